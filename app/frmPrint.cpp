#include "app/frmPrint.h"

#include "platform/FileSystem.h"
#include "platform/MsgBox.h"
#include "platform/clsCommonOpenDialog.h"
#include "settings/ProgramSettings.h"
#include "settings/WindowSettings.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QStandardPaths>
#include <QTextDocument>
#include <QVBoxLayout>

#include <algorithm>

namespace {

QSpinBox *makeSpin(const QString &name, int minimum, int maximum, QWidget *parent)
{
    auto *spin = new QSpinBox(parent);
    spin->setObjectName(name);
    spin->setRange(minimum, maximum);
    return spin;
}

// A file name made from the title, without the characters file systems refuse.
QString fileNameFor(const QString &title)
{
    QString name = title.trimmed();
    static const QString refused = QStringLiteral("\\/:*?\"<>|");
    for (QChar &c : name)
        if (refused.contains(c) || c.unicode() < 32)
            c = u'_';
    return (name.isEmpty() ? QStringLiteral("Passage") : name) + QStringLiteral(".pdf");
}

} // namespace

frmPrint::frmPrint(const QTextDocument *document, const QString &title, QWidget *parent)
    : QDialog(parent), m_document(document)
{
    setObjectName(QStringLiteral("frmPrint"));
    setWindowTitle(tr("Print"));

    cboPrinter = new QComboBox(this);
    cboPrinter->setObjectName(QStringLiteral("cboPrinter"));
    const QString defaultPrinter = QPrinterInfo::defaultPrinterName();
    for (const QString &name : QPrinterInfo::availablePrinterNames())
        cboPrinter->addItem(name);
    cboPrinter->addItem(PdfChoice());
    const int preferred = defaultPrinter.isEmpty() ? -1 : cboPrinter->findText(defaultPrinter);
    cboPrinter->setCurrentIndex(preferred >= 0 ? preferred : cboPrinter->count() - 1);

    txtFile = new QLineEdit(this);
    txtFile->setObjectName(QStringLiteral("txtFile"));
    txtFile->setMinimumWidth(280);
    cmdBrowse = new QPushButton(tr("&Browse..."), this);
    cmdBrowse->setObjectName(QStringLiteral("cmdBrowse"));

    auto *printerBox = new QGroupBox(tr("Printer"), this);
    auto *printerForm = new QFormLayout(printerBox);
    printerForm->addRow(tr("&Name:"), cboPrinter);
    auto *fileRow = new QHBoxLayout;
    fileRow->addWidget(txtFile, 1);
    fileRow->addWidget(cmdBrowse);
    auto *fileLabel = new QLabel(tr("&File:"), printerBox);
    fileLabel->setBuddy(txtFile);
    printerForm->addRow(fileLabel, fileRow);

    optAll = new QRadioButton(tr("&All"), this);
    optAll->setObjectName(QStringLiteral("optAll"));
    optAll->setChecked(true);
    optPages = new QRadioButton(tr("Pa&ges"), this);
    optPages->setObjectName(QStringLiteral("optPages"));
    spnFrom = makeSpin(QStringLiteral("spnFrom"), 1, 9999, this);
    spnTo = makeSpin(QStringLiteral("spnTo"), 1, 9999, this);
    lblPageCount = new QLabel(this);
    lblPageCount->setObjectName(QStringLiteral("lblPageCount"));
    spnCopies = makeSpin(QStringLiteral("spnCopies"), 1, 999, this);
    spnCopies->setValue(1);

    auto *pagesBox = new QGroupBox(tr("Pages"), this);
    auto *pagesGrid = new QGridLayout(pagesBox);
    pagesGrid->addWidget(optAll, 0, 0);
    pagesGrid->addWidget(lblPageCount, 0, 1, 1, 4);
    pagesGrid->addWidget(optPages, 1, 0);
    pagesGrid->addWidget(new QLabel(tr("from"), pagesBox), 1, 1);
    pagesGrid->addWidget(spnFrom, 1, 2);
    pagesGrid->addWidget(new QLabel(tr("to"), pagesBox), 1, 3);
    pagesGrid->addWidget(spnTo, 1, 4);
    auto *copiesLabel = new QLabel(tr("&Copies:"), pagesBox);
    copiesLabel->setBuddy(spnCopies);
    pagesGrid->addWidget(copiesLabel, 2, 0);
    pagesGrid->addWidget(spnCopies, 2, 2);

    spnTop = makeSpin(QStringLiteral("spnTop"), 0, 80, this);
    spnBottom = makeSpin(QStringLiteral("spnBottom"), 0, 80, this);
    spnLeft = makeSpin(QStringLiteral("spnLeft"), 0, 80, this);
    spnRight = makeSpin(QStringLiteral("spnRight"), 0, 80, this);
    auto *marginsBox = new QGroupBox(tr("Margins (mm)"), this);
    auto *marginsGrid = new QGridLayout(marginsBox);
    const auto addMargin = [&](const QString &caption, QSpinBox *spin, int row, int column) {
        auto *label = new QLabel(caption, marginsBox);
        label->setBuddy(spin);
        marginsGrid->addWidget(label, row, column);
        marginsGrid->addWidget(spin, row, column + 1);
    };
    addMargin(tr("&Top:"), spnTop, 0, 0);
    addMargin(tr("&Bottom:"), spnBottom, 0, 2);
    addMargin(tr("&Left:"), spnLeft, 1, 0);
    addMargin(tr("&Right:"), spnRight, 1, 2);

    txtTitle = new QLineEdit(title, this);
    txtTitle->setObjectName(QStringLiteral("txtTitle"));
    auto *titleRow = new QFormLayout;
    titleRow->addRow(tr("T&itle line:"), txtTitle);

    cmdPreview = new QPushButton(tr("Pre&view..."), this);
    cmdPreview->setObjectName(QStringLiteral("cmdPreview"));
    cmdPrint = new QPushButton(tr("&Print"), this);
    cmdPrint->setObjectName(QStringLiteral("cmdPrint"));
    cmdPrint->setDefault(true);
    cmdCancel = new QPushButton(tr("Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(cmdPreview);
    buttons->addStretch(1);
    buttons->addWidget(cmdPrint);
    buttons->addWidget(cmdCancel);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(printerBox);
    auto *middle = new QHBoxLayout;
    middle->addWidget(pagesBox);
    middle->addWidget(marginsBox);
    layout->addLayout(middle);
    layout->addLayout(titleRow);
    layout->addLayout(buttons);

    loadSettings();
    cboPrinter_Click();

    connect(cboPrinter, &QComboBox::currentIndexChanged, this, &frmPrint::cboPrinter_Click);
    connect(cmdBrowse, &QPushButton::clicked, this, &frmPrint::cmdBrowse_Click);
    connect(cmdPreview, &QPushButton::clicked, this, &frmPrint::cmdPreview_Click);
    connect(cmdPrint, &QPushButton::clicked, this, &frmPrint::cmdPrint_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmPrint::cmdCancel_Click);
    connect(optAll, &QRadioButton::toggled, this, &frmPrint::showWholeRange);
    // Typing a page number means the reader wants a range.
    for (QSpinBox *spin : {spnFrom, spnTo})
        connect(spin, &QSpinBox::valueChanged, optPages, [this] { optPages->setChecked(true); });
    for (QSpinBox *spin : {spnTop, spnBottom, spnLeft, spnRight})
        connect(spin, &QSpinBox::valueChanged, this, &frmPrint::updatePageCount);
}

frmPrint::~frmPrint() = default;

bool frmPrint::pdfChosen() const
{
    return cboPrinter->currentText() == PdfChoice();
}

platform::PrintJob frmPrint::job() const
{
    platform::PrintJob job;
    job.title = txtTitle->text();
    job.margins =
        QMarginsF(spnLeft->value(), spnTop->value(), spnRight->value(), spnBottom->value());
    if (optPages->isChecked()) {
        job.fromPage = spnFrom->value();
        job.toPage = spnTo->value();
    }
    job.copies = spnCopies->value();
    return job;
}

std::unique_ptr<QPrinter> frmPrint::makePrinter() const
{
    if (pdfChosen()) {
        auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
        printer->setOutputFormat(QPrinter::PdfFormat);
        printer->setResolution(platform::kPdfResolution);
        printer->setPageSize(platform::PdfPaper());
        return printer;
    }
    auto printer = std::make_unique<QPrinter>(QPrinterInfo::printerInfo(cboPrinter->currentText()),
                                              QPrinter::HighResolution);
    printer->setDocName(txtTitle->text());
    return printer;
}

void frmPrint::updatePageCount()
{
    const std::unique_ptr<QPrinter> printer = makePrinter();
    const int pages = platform::PrintPageCount(*m_document, job(), *printer);
    lblPageCount->setText(pages == 1 ? tr("(1 page)") : tr("(%1 pages)").arg(pages));
    m_pageCount = pages;
    showWholeRange();
}

void frmPrint::showWholeRange()
{
    // With All chosen the range is the whole document. Set quietly: a typed number chooses Pages.
    if (!optAll->isChecked())
        return;
    const QSignalBlocker fromBlocker(spnFrom);
    const QSignalBlocker toBlocker(spnTo);
    spnFrom->setValue(1);
    spnTo->setValue(std::max(1, m_pageCount));
}

void frmPrint::cboPrinter_Click()
{
    const bool pdf = pdfChosen();
    txtFile->setEnabled(pdf);
    cmdBrowse->setEnabled(pdf);
    updatePageCount();
}

void frmPrint::cmdBrowse_Click()
{
    clsCommonOpenDialog dialog;
    dialog.setDialogtitle(tr("Print to PDF File"));
    dialog.setFilter(QStringLiteral("PDF Files (*.pdf)|*.pdf|All Files (*.*)|*.*"));
    dialog.setFilename(pdfPath());
    dialog.setInitDir(QFileInfo(pdfPath()).absolutePath());
    dialog.setOverWritePrompt(true);
    dialog.setPathMustExist(true);
    if (!dialog.ShowSave(this))
        return;
    txtFile->setText(QDir::toNativeSeparators(dialog.filename()));
    m_confirmedFile = pdfPath();
}

void frmPrint::cmdPreview_Click()
{
    const std::unique_ptr<QPrinter> printer = makePrinter();
    QPrintPreviewDialog preview(printer.get(), this);
    preview.setWindowTitle(tr("Print Preview - ") + txtTitle->text());
    // The preview shows one copy of the range: more copies would only repeat it.
    platform::PrintJob shown = job();
    shown.copies = 1;
    connect(&preview, &QPrintPreviewDialog::paintRequested, this,
            [this, shown](QPrinter *target) { platform::PrintRTF(*m_document, shown, *target); });
    preview.resize(qMax(preview.width(), 820), qMax(preview.height(), 720));
    preview.exec();
}

void frmPrint::cmdPrint_Click()
{
    saveSettings();
    if (pdfChosen() ? printPdf() : printOnPrinter())
        accept();
}

void frmPrint::cmdCancel_Click()
{
    reject();
}

QString frmPrint::pdfPath() const
{
    QString path = QDir::fromNativeSeparators(txtFile->text().trimmed());
    if (!path.isEmpty() && QFileInfo(path).suffix().isEmpty())
        path += QStringLiteral(".pdf");
    return path;
}

bool frmPrint::printPdf()
{
    const QString path = pdfPath();
    if (path.isEmpty()) {
        platform::MsgBox(tr("Type the name of the PDF file, or choose one with Browse."),
                         vb::vbExclamation, tr("Print"));
        txtFile->setFocus();
        return false;
    }
    if (path != m_confirmedFile && platform::FileExists(path) &&
        platform::MsgBox(
            QDir::toNativeSeparators(path) + tr(" already exists.\r\nDo you want to replace it?"),
            vb::vbYesNo | vb::vbExclamation | vb::vbDefaultButton2, tr("Print")) != vb::vbYes)
        return false;

    QString error;
    if (platform::PrintPdf(*m_document, job(), path, &error) == 0) {
        platform::MsgBox(tr("The PDF file could not be written:\r\n") +
                             QDir::toNativeSeparators(path) + QStringLiteral("\r\n\r\n") + error,
                         vb::vbExclamation, tr("Print"));
        return false;
    }
    WindowSettings::Set(WindowSettings::PrintPdfFile, path);
    return true;
}

bool frmPrint::printOnPrinter()
{
    const std::unique_ptr<QPrinter> printer = makePrinter();
    if (platform::PrintRTF(*m_document, job(), *printer) == 0) {
        platform::MsgBox(tr("Nothing was printed on ") + cboPrinter->currentText() +
                             tr(".\r\nCheck the printer and the page range."),
                         vb::vbExclamation, tr("Print"));
        return false;
    }
    return true;
}

void frmPrint::loadSettings()
{
    spnTop->setValue(WindowSettings::Get(WindowSettings::PrintTop));
    spnBottom->setValue(WindowSettings::Get(WindowSettings::PrintBottom));
    spnLeft->setValue(WindowSettings::Get(WindowSettings::PrintLeft));
    spnRight->setValue(WindowSettings::Get(WindowSettings::PrintRight));

    // The last file's folder, with a name made from this title: a new passage should not
    // overwrite the last one unasked.
    const QString last = WindowSettings::Get(WindowSettings::PrintPdfFile);
    QString folder = last.isEmpty() ? QString() : QFileInfo(last).absolutePath();
    if (folder.isEmpty() || !QFileInfo(folder).isDir())
        folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (folder.isEmpty())
        folder = QDir::homePath();
    txtFile->setText(QDir::toNativeSeparators(folder + u'/' + fileNameFor(txtTitle->text())));
}

void frmPrint::saveSettings() const
{
    WindowSettings::Set(WindowSettings::PrintTop, spnTop->value());
    WindowSettings::Set(WindowSettings::PrintBottom, spnBottom->value());
    WindowSettings::Set(WindowSettings::PrintLeft, spnLeft->value());
    WindowSettings::Set(WindowSettings::PrintRight, spnRight->value());
}
