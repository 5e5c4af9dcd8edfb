#pragma once

#include <QMarginsF>
#include <QPageSize>
#include <QString>

class QPagedPaintDevice;
class QTextDocument;

// Prints the rich text of a view page by page: the title line in bold over a thin rule at the top
// of every page, the text below it and "Page N of M" at the foot. The view's document is copied,
// never changed, so printing leaves the view as the reader had it. Any paged device serves: a
// printer, a printer writing PDF, a PDF writer on a file.
namespace platform {

struct PrintJob
{
    QString title;
    // Page margins in millimetres, measured from the edge of the paper.
    QMarginsF margins{20, 20, 20, 20};
    // Pages counted from 1; 0 leaves that end of the range open.
    int fromPage = 0;
    int toPage = 0;
    // Each copy is the whole range again, so copies come out collated.
    int copies = 1;
};

// PDF files are laid out at this resolution, and so is a printer that previews one, so the
// preview breaks lines and pages exactly where the file will.
inline constexpr int kPdfResolution = 1200;

// The paper of a PDF file: Letter where the locale measures in inches, else A4.
QPageSize PdfPaper();

// How many pages the document takes on the device with the job's title and margins. Sets the
// device's margins.
int PrintPageCount(const QTextDocument &document, const PrintJob &job, QPagedPaintDevice &device);

// Prints the job's pages on the device and returns how many sheets were painted (pages in range
// times copies); 0 when nothing was painted: the device could not be opened or the range lies
// beyond the last page.
int PrintRTF(const QTextDocument &document, const PrintJob &job, QPagedPaintDevice &device);

// Writes the job to a PDF file on PdfPaper() through a temporary file renamed over the old one,
// so a failed write leaves any old file whole. Returns the sheets written, or 0 with the reason
// in error.
int PrintPdf(const QTextDocument &document, const PrintJob &job, const QString &path,
             QString *error = nullptr);

} // namespace platform
