#include "platform/basPrintRTF.h"

#include <QAbstractTextDocumentLayout>
#include <QFontMetricsF>
#include <QLocale>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <memory>

namespace platform {

namespace {

// The printable frame of one page, in device pixels, and the fonts of its title and foot.
struct PageFrame
{
    double width = 0;
    double height = 0;
    double titleHeight = 0;  // the title line
    double headerHeight = 0; // title, rule and the space under it
    double footerHeight = 0; // the space above the page number and its line
    double ruleWidth = 1;
    QFont titleFont;
    QFont footerFont;

    // A whole number of pixels, so that the layout's page edges, which it keeps in fractions of a
    // pixel, fall exactly where the pages are cut.
    double bodyHeight() const { return std::floor(height - headerHeight - footerHeight); }
};

// Printers cannot print to the very edge: a margin smaller than the printer allows takes the
// printer's least margin instead of failing the whole print.
void applyMargins(QPagedPaintDevice &device, const QMarginsF &wanted)
{
    if (device.setPageMargins(wanted, QPageLayout::Millimeter))
        return;
    QPageLayout layout = device.pageLayout();
    layout.setUnits(QPageLayout::Millimeter);
    const QMarginsF least = layout.minimumMargins();
    const QMarginsF clamped(
        std::max(wanted.left(), least.left()), std::max(wanted.top(), least.top()),
        std::max(wanted.right(), least.right()), std::max(wanted.bottom(), least.bottom()));
    device.setPageMargins(clamped, QPageLayout::Millimeter);
}

PageFrame measure(const QTextDocument &document, QPagedPaintDevice &device)
{
    PageFrame frame;
    frame.width = device.width();
    frame.height = device.height();

    frame.titleFont = QFont(document.defaultFont(), &device);
    frame.titleFont.setBold(true);
    frame.footerFont = QFont(document.defaultFont(), &device);
    frame.footerFont.setPointSizeF(std::max(6.0, document.defaultFont().pointSizeF() * 0.85));

    const QFontMetricsF title(frame.titleFont, &device);
    const QFontMetricsF footer(frame.footerFont, &device);
    frame.titleHeight = title.height();
    frame.ruleWidth = std::max(1.0, device.logicalDpiY() / 200.0);
    frame.headerHeight = frame.titleHeight + frame.ruleWidth + title.height() * 0.8;
    frame.footerHeight = footer.height() * 1.8;
    return frame;
}

// Paper is white whatever the view's background: text coloured near white (a light style on a
// dark view) would vanish, so it prints black.
void darkenPaleText(QTextDocument &document)
{
    QTextCharFormat black;
    black.setForeground(Qt::black);
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            const QTextCharFormat format = fragment.charFormat();
            if (format.hasProperty(QTextFormat::ForegroundBrush) &&
                format.foreground().color().lightness() > 200) {
                QTextCursor cursor(&document);
                cursor.setPosition(fragment.position());
                cursor.setPosition(fragment.position() + fragment.length(),
                                   QTextCursor::KeepAnchor);
                cursor.mergeCharFormat(black);
            }
        }
    }
}

// Cuts every paragraph that runs over a page break into two at the break. With each page the
// layout also draws the last line of a paragraph that began on the page before: cut away on
// paper, but in a PDF's text a second time. A paragraph that starts on its page has no such line.
// The halves stand exactly where the paragraph stood: the cut adds no space and no indent.
void splitAtPageBreaks(QTextDocument &pages)
{
    const double pageHeight = pages.pageSize().height();
    QAbstractTextDocumentLayout *layout = pages.documentLayout();
    QList<int> cuts;
    for (QTextBlock block = pages.begin(); block.isValid(); block = block.next()) {
        // Asking for the block's place lays it out.
        const double origin = layout->blockBoundingRect(block).top();
        const QTextLayout *lines = block.layout();
        if (!lines || lines->lineCount() < 2)
            continue;
        // Lines never cross a break (the layout moves them to the next page), so a line's middle
        // tells its page.
        const auto pageOf = [&](const QTextLine &line) {
            return std::floor((origin + line.y() + line.height() / 2) / pageHeight);
        };
        for (int i = 1; i < lines->lineCount(); ++i) {
            if (pageOf(lines->lineAt(i)) != pageOf(lines->lineAt(i - 1)))
                cuts.append(block.position() + lines->lineAt(i).textStart());
        }
    }
    // From the end, so that the positions still to cut stay where they were.
    for (auto cut = cuts.crbegin(); cut != cuts.crend(); ++cut) {
        QTextCursor cursor(&pages);
        cursor.setPosition(*cut);
        QTextBlockFormat before = cursor.blockFormat();
        QTextBlockFormat after = before;
        before.setBottomMargin(0);
        after.setTopMargin(0);
        after.setTextIndent(0);
        cursor.setBlockFormat(before);
        cursor.insertBlock(after);
    }
}

// A copy of the document laid out in pages of the body's size on the device, each paragraph
// within a page.
std::unique_ptr<QTextDocument> layOut(const QTextDocument &document, QPagedPaintDevice &device,
                                      const PageFrame &frame)
{
    std::unique_ptr<QTextDocument> copy(document.clone());
    darkenPaleText(*copy);
    copy->documentLayout()->setPaintDevice(&device);
    copy->setDocumentMargin(0);
    copy->setPageSize(QSizeF(frame.width, std::max(1.0, frame.bodyHeight())));
    splitAtPageBreaks(*copy);
    return copy;
}

void paintPage(QPainter &painter, QTextDocument &pages, const PageFrame &frame,
               const QString &title, int page, int pageCount)
{
    painter.save();
    painter.setPen(QPen(Qt::black, frame.ruleWidth));
    painter.setFont(frame.titleFont);
    const QString shown = QFontMetricsF(frame.titleFont, painter.device())
                              .elidedText(title, Qt::ElideRight, frame.width);
    painter.drawText(QRectF(0, 0, frame.width, frame.titleHeight), Qt::AlignLeft | Qt::AlignVCenter,
                     shown);
    const double ruleY = frame.titleHeight + frame.ruleWidth / 2;
    painter.drawLine(QPointF(0, ruleY), QPointF(frame.width, ruleY));

    painter.setFont(frame.footerFont);
    painter.drawText(QRectF(0, frame.height - frame.footerHeight, frame.width, frame.footerHeight),
                     Qt::AlignHCenter | Qt::AlignBottom,
                     QStringLiteral("Page %1 of %2").arg(page).arg(pageCount));

    const double bodyHeight = frame.bodyHeight();
    const QRectF view(0, (page - 1) * bodyHeight, frame.width, bodyHeight);
    painter.translate(0, frame.headerHeight - view.top());
    painter.setClipRect(view);
    QAbstractTextDocumentLayout::PaintContext context;
    // The layout moves a line that would cross the foot of a page to the top of the next, so the
    // lines of the pages around this one end or begin exactly on its edges. It draws every line
    // that touches the clip, edges included: a clip a pixel short of both edges keeps the next
    // page's first line off this page, where it would be cut away yet still be in the PDF's text.
    context.clip = view.adjusted(0, 1, 0, -1);
    context.palette.setColor(QPalette::Text, Qt::black);
    pages.documentLayout()->draw(&painter, context);
    painter.restore();
}

} // namespace

int PrintPageCount(const QTextDocument &document, const PrintJob &job, QPagedPaintDevice &device)
{
    applyMargins(device, job.margins);
    const PageFrame frame = measure(document, device);
    return layOut(document, device, frame)->pageCount();
}

int PrintRTF(const QTextDocument &document, const PrintJob &job, QPagedPaintDevice &device)
{
    applyMargins(device, job.margins);
    const PageFrame frame = measure(document, device);
    if (frame.bodyHeight() <= 0 || frame.width <= 0)
        return 0;
    const std::unique_ptr<QTextDocument> pages = layOut(document, device, frame);
    const int pageCount = pages->pageCount();
    const int first = std::max(1, job.fromPage);
    const int last = job.toPage > 0 ? std::min(job.toPage, pageCount) : pageCount;
    if (first > last)
        return 0;

    QPainter painter;
    if (!painter.begin(&device))
        return 0;
    int sheets = 0;
    for (int copy = 0; copy < std::max(1, job.copies); ++copy) {
        for (int page = first; page <= last; ++page) {
            if (sheets > 0 && !device.newPage())
                return sheets;
            paintPage(painter, *pages, frame, job.title, page, pageCount);
            ++sheets;
        }
    }
    painter.end();
    return sheets;
}

QPageSize PdfPaper()
{
    return QPageSize(QLocale().measurementSystem() == QLocale::ImperialUSSystem ? QPageSize::Letter
                                                                                : QPageSize::A4);
}

int PrintPdf(const QTextDocument &document, const PrintJob &job, const QString &path,
             QString *error)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        if (error)
            *error = file.errorString();
        return 0;
    }
    int sheets = 0;
    {
        QPdfWriter writer(&file);
        writer.setResolution(kPdfResolution);
        writer.setPageSize(PdfPaper());
        writer.setTitle(job.title);
        writer.setCreator(QStringLiteral("Quillstone"));
        sheets = PrintRTF(document, job, writer);
    }
    if (sheets == 0) {
        file.cancelWriting();
        if (error)
            *error = QStringLiteral("There are no pages to print in that range.");
        return 0;
    }
    if (!file.commit()) {
        if (error)
            *error = file.errorString();
        return 0;
    }
    return sheets;
}

} // namespace platform
