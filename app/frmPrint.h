#pragma once

#include "platform/basPrintRTF.h"

#include <QDialog>
#include <QString>

#include <memory>

class QComboBox;
class QLabel;
class QLineEdit;
class QPrinter;
class QPushButton;
class QRadioButton;
class QSpinBox;
class QTextDocument;

// The Print window: prints the rich text of a view, or writes it to a PDF file, with a title
// line over every page. It offers the installed printers and "PDF file", copies, a page range,
// margins in millimetres and a preview of exactly what would print. Margins and the last PDF
// file are remembered in section "print" of window.ini.
class frmPrint : public QDialog
{
    Q_OBJECT

public:
    // The document is only read; it must outlive the window.
    frmPrint(const QTextDocument *document, const QString &title, QWidget *parent = nullptr);
    ~frmPrint() override;

    // The printer list's entry for writing a PDF file instead of printing.
    static QString PdfChoice() { return QStringLiteral("PDF file"); }

public slots:
    void cboPrinter_Click();
    void cmdBrowse_Click();
    void cmdPreview_Click();
    void cmdPrint_Click();
    void cmdCancel_Click();

private:
    bool pdfChosen() const;
    platform::PrintJob job() const;
    // A printer set up for the current choice: the chosen printer, or one laid out as the PDF
    // file will be, so that the count and the preview match what is written.
    std::unique_ptr<QPrinter> makePrinter() const;
    void updatePageCount();
    void showWholeRange();
    QString pdfPath() const;
    bool printPdf();
    bool printOnPrinter();
    void loadSettings();
    void saveSettings() const;

    const QTextDocument *m_document;
    // The file the user already agreed to replace in the save dialog.
    QString m_confirmedFile;
    int m_pageCount = 0;

    QComboBox *cboPrinter = nullptr;
    QLineEdit *txtFile = nullptr;
    QPushButton *cmdBrowse = nullptr;
    QSpinBox *spnCopies = nullptr;
    QRadioButton *optAll = nullptr;
    QRadioButton *optPages = nullptr;
    QSpinBox *spnFrom = nullptr;
    QSpinBox *spnTo = nullptr;
    QLabel *lblPageCount = nullptr;
    QSpinBox *spnTop = nullptr;
    QSpinBox *spnBottom = nullptr;
    QSpinBox *spnLeft = nullptr;
    QSpinBox *spnRight = nullptr;
    QLineEdit *txtTitle = nullptr;
    QPushButton *cmdPreview = nullptr;
    QPushButton *cmdPrint = nullptr;
    QPushButton *cmdCancel = nullptr;
};
