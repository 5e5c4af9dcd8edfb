// Printing the longest chapter, Psalm 119 of the imported KJV, to PDF: the pages the margins give,
// the title and "Page N of M" on every page, no verse lost, ink on the paper; and the Print window
// as a reader uses it.
#include "../support/HookGuards.h"
#include "app/frmPrint.h"
#include "platform/MsgBoxAnswerer.h"
#include "platform/RichTextBox.h"
#include "platform/basPrintRTF.h"
#include "scripture/PassageFormatter.h"
#include "scripture/clsBible.h"
#include "settings/ProgramSettings.h"
#include "settings/basSettings.h"

#include <QApplication>
#include <QComboBox>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QLineEdit>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QSpinBox>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <utility>

namespace {

QString run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(60000) || process.exitCode() != 0)
        return QString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

int pdfPages(const QString &pdf)
{
    const auto match = QRegularExpression(QStringLiteral("Pages:\\s+(\\d+)"))
                           .match(run(QStringLiteral("pdfinfo"), {pdf}));
    return match.hasMatch() ? match.captured(1).toInt() : -1;
}

// The text of a page in the order it was drawn: the title, the page number, then the text.
QString pageLines(const QString &pdf, int page)
{
    const QString n = QString::number(page);
    return run(QStringLiteral("pdftotext"), {QStringLiteral("-raw"), QStringLiteral("-f"), n,
                                             QStringLiteral("-l"), n, pdf, QStringLiteral("-")});
}

QString pageText(const QString &pdf, int page)
{
    return pageLines(pdf, page).simplified();
}

// The lines of text on a page below its title, without the page number.
QStringList bodyLines(const QString &pdf, int page)
{
    QStringList lines = pageLines(pdf, page).split(u'\n');
    for (QString &line : lines)
        line = line.simplified();
    lines.removeAll(QString());
    static const QRegularExpression number(QStringLiteral("^Page \\d+ of \\d+$"));
    lines.removeIf([](const QString &line) { return number.match(line).hasMatch(); });
    return lines.mid(1);
}

} // namespace

class TestPrint : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    platform::RichTextBox m_view;
    QString m_title = QStringLiteral("Psalms 119 - King James Version");

    QString file(const QString &name) const { return m_dir.filePath(name); }

    // Prints with the given margins all round; returns the sheets the call reported.
    int printPsalm(const QString &pdf, double margin, int from = 0, int to = 0, int copies = 1)
    {
        platform::PrintJob job;
        job.title = m_title;
        job.margins = QMarginsF(margin, margin, margin, margin);
        job.fromPage = from;
        job.toPage = to;
        job.copies = copies;
        QString error;
        const int sheets = platform::PrintPdf(*m_view.document(), job, pdf, &error);
        if (sheets == 0)
            qWarning() << error;
        return sheets;
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        const QString program = qEnvironmentVariable("QS_PROGRAM_DIR");
        clsBible bible;
        bible.setVersionPath(program + QStringLiteral("/KJV"));
        const QString text = bible.Passagebystandard(QStringLiteral("Psalms 119"));
        QVERIFY2(text.contains(QStringLiteral("176 I have gone astray")),
                 qPrintable(program + QStringLiteral(" holds no imported KJV with Psalm 119")));
        TextStyle style = DisplaySettings().passage;
        ApplyRichTextStyle(&m_view, style);
        m_view.setTextRTF(PassageFormatter::ToRichText(text, true));
        for (const char *tool : {"pdfinfo", "pdftotext", "pdftoppm"})
            QVERIFY2(!QStandardPaths::findExecutable(QLatin1String(tool)).isEmpty(),
                     "poppler-utils is not installed: run scripts/setup.sh");

        ProgramSettings::instance().setProgramFolder(m_dir.path());
    }

    // The pages follow from the margins, the PDF holds as many as reported, and each page
    // carries the title, its number and its share of the psalm; the view is left as it was.
    void psalmToPdf()
    {
        const QString before = m_view.document()->toHtml();
        const QString narrow = file(QStringLiteral("narrow.pdf"));
        const QString wide = file(QStringLiteral("wide.pdf"));
        const int pages20 = printPsalm(narrow, 20);
        const int pages40 = printPsalm(wide, 40);
        QCOMPARE(pdfPages(narrow), pages20);
        QCOMPARE(pdfPages(wide), pages40);
        QCOMPARE(m_view.document()->toHtml(), before);

        // Text fills the page area between the margins, so the page count scales with the
        // inverse of that area (A4 or Letter alike, within a page or two for the title lines).
        QVERIFY2(pages20 >= 3 && pages40 > pages20,
                 qPrintable(QStringLiteral("%1 and %2 pages").arg(pages20).arg(pages40)));
        const QSizeF paper = platform::PdfPaper().size(QPageSize::Millimeter);
        const double area20 = (paper.width() - 40) * (paper.height() - 40 - 15);
        const double area40 = (paper.width() - 80) * (paper.height() - 80 - 15);
        QVERIFY2(
            qAbs(pages40 - pages20 * area20 / area40) <= 2.0,
            qPrintable(
                QStringLiteral("%1 pages at 20 mm but %2 at 40 mm").arg(pages20).arg(pages40)));

        for (int page = 1; page <= pages20; ++page) {
            const QString text = pageText(narrow, page);
            QVERIFY2(text.contains(m_title),
                     qPrintable(QStringLiteral("page %1: %2").arg(page).arg(text.left(200))));
            QVERIFY2(text.contains(QStringLiteral("Page %1 of %2").arg(page).arg(pages20)),
                     qPrintable(QStringLiteral("page %1").arg(page)));
        }
        // Pages break between lines, and each line is on one page only, in the PDF's text too.
        for (int page = 1; page < pages20; ++page) {
            const QStringList before = bodyLines(narrow, page);
            const QStringList after = bodyLines(narrow, page + 1);
            for (const QString &line : after)
                QVERIFY2(!before.contains(line), qPrintable(QStringLiteral("on pages %1 and %2: %3")
                                                                .arg(page)
                                                                .arg(page + 1)
                                                                .arg(line)));
        }
        QVERIFY(pageText(narrow, 1).contains(QStringLiteral("Blessed are the undefiled")));
        QVERIFY(pageText(narrow, pages20)
                    .contains(QStringLiteral("I have gone astray like a lost sheep")));

        const QString image = file(QStringLiteral("page1"));
        run(QStringLiteral("pdftoppm"), {QStringLiteral("-r"), QStringLiteral("50"),
                                         QStringLiteral("-png"), QStringLiteral("-singlefile"),
                                         QStringLiteral("-f"), QStringLiteral("1"), narrow, image});
        const QImage page1(image + QStringLiteral(".png"));
        QVERIFY(!page1.isNull());
        int dark = 0;
        for (int y = 0; y < page1.height(); ++y)
            for (int x = 0; x < page1.width(); ++x)
                dark += qGray(page1.pixel(x, y)) < 128;
        QVERIFY2(dark > page1.width() * page1.height() / 100, qPrintable(QString::number(dark)));
    }

    // A range prints only its pages, numbered as in the whole; copies repeat the range whole.
    void rangeAndCopies()
    {
        const QString all = file(QStringLiteral("all.pdf"));
        const int total = printPsalm(all, 20);
        const QString part = file(QStringLiteral("part.pdf"));
        QCOMPARE(printPsalm(part, 20, 2, 3, 2), 4);
        QCOMPARE(pdfPages(part), 4);
        const QStringList expected = {
            QStringLiteral("Page 2 of %1"), QStringLiteral("Page 3 of %1"),
            QStringLiteral("Page 2 of %1"), QStringLiteral("Page 3 of %1")};
        for (int i = 0; i < 4; ++i)
            QVERIFY(pageText(part, i + 1).contains(expected.at(i).arg(total)));
        QCOMPARE(printPsalm(file(QStringLiteral("beyond.pdf")), 20, total + 1, 0), 0);
        QVERIFY(!QFile::exists(file(QStringLiteral("beyond.pdf"))));
    }

    // The Print window: the title passed in, the margins remembered in window.ini, the PDF
    // written, and a folder that does not exist told to the reader instead of a crash.
    void printWindow()
    {
        const QString pdf = file(QStringLiteral("window.pdf"));
        {
            frmPrint dialog(m_view.document(), m_title);
            QCOMPARE(dialog.findChild<QLineEdit *>(QStringLiteral("txtTitle"))->text(), m_title);
            QCOMPARE(dialog.findChild<QSpinBox *>(QStringLiteral("spnTop"))->value(), 20);
            dialog.findChild<QComboBox *>(QStringLiteral("cboPrinter"))
                ->setCurrentText(frmPrint::PdfChoice());
            dialog.findChild<QSpinBox *>(QStringLiteral("spnTop"))->setValue(31);
            dialog.findChild<QSpinBox *>(QStringLiteral("spnLeft"))->setValue(12);
            dialog.findChild<QLineEdit *>(QStringLiteral("txtFile"))->setText(pdf);
            platform::MsgBoxAnswerer answers;
            QTest::mouseClick(dialog.findChild<QPushButton *>(QStringLiteral("cmdPrint")),
                              Qt::LeftButton);
            QCOMPARE(answers.count(), 0);
            QCOMPARE(dialog.result(), int(QDialog::Accepted));
        }
        QVERIFY(pdfPages(pdf) > 0);
        QVERIFY(pageText(pdf, 1).contains(m_title));
        clsIni &ini = ProgramSettings::instance().Ini();
        QCOMPARE(ini.Data(QStringLiteral("print"), QStringLiteral("top")), 31);
        QCOMPARE(ini.Data(QStringLiteral("print"), QStringLiteral("left")), 12);
        QCOMPARE(ini.Data(QStringLiteral("print"), QStringLiteral("bottom")), 20);
        QCOMPARE(ini.Text(QStringLiteral("print"), QStringLiteral("pdffile")), pdf);

        frmPrint again(m_view.document(), QStringLiteral("John 3"));
        QCOMPARE(again.findChild<QSpinBox *>(QStringLiteral("spnTop"))->value(), 31);
        QCOMPARE(again.findChild<QLineEdit *>(QStringLiteral("txtFile"))->text(),
                 QDir::toNativeSeparators(file(QStringLiteral("John 3.pdf"))));
        again.findChild<QComboBox *>(QStringLiteral("cboPrinter"))
            ->setCurrentText(frmPrint::PdfChoice());
        again.findChild<QLineEdit *>(QStringLiteral("txtFile"))
            ->setText(file(QStringLiteral("no such folder/x.pdf")));
        platform::MsgBoxAnswerer answers;
        QTest::mouseClick(again.findChild<QPushButton *>(QStringLiteral("cmdPrint")),
                          Qt::LeftButton);
        QCOMPARE(answers.count(), 1);
        QVERIFY2(
            answers.last().prompt.startsWith(QStringLiteral("The PDF file could not be written")),
            qPrintable(answers.last().prompt));
        QVERIFY(answers.last().prompt.contains(QStringLiteral("no such folder")));
        QVERIFY(again.result() != QDialog::Accepted);

        // Printing over an existing file asks first; No leaves it alone.
        again.findChild<QLineEdit *>(QStringLiteral("txtFile"))->setText(pdf);
        const QDateTime written = QFileInfo(pdf).lastModified();
        answers.clear();
        answers.enqueue(vb::vbNo);
        QTest::mouseClick(again.findChild<QPushButton *>(QStringLiteral("cmdPrint")),
                          Qt::LeftButton);
        QCOMPARE(answers.count(), 1);
        QVERIFY(answers.last().prompt.contains(QStringLiteral("already exists")));
        QCOMPARE(QFileInfo(pdf).lastModified(), written);
    }

    // The preview shows as many pages as the PDF the same settings write; the range boxes show
    // them.
    void previewMatchesPrint()
    {
        frmPrint dialog(m_view.document(), m_title);
        dialog.findChild<QComboBox *>(QStringLiteral("cboPrinter"))
            ->setCurrentText(frmPrint::PdfChoice());
        for (const char *name : {"spnTop", "spnBottom", "spnLeft", "spnRight"})
            dialog.findChild<QSpinBox *>(QLatin1String(name))->setValue(25);
        const QString pdf = file(QStringLiteral("preview.pdf"));
        platform::PrintJob job;
        job.title = m_title;
        job.margins = QMarginsF(25, 25, 25, 25);
        const int printed = platform::PrintPdf(*m_view.document(), job, pdf);

        // With All chosen the range shows the whole document, also when All is chosen again.
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        auto *from = dialog.findChild<QSpinBox *>(QStringLiteral("spnFrom"));
        auto *to = dialog.findChild<QSpinBox *>(QStringLiteral("spnTo"));
        QCOMPARE(std::pair(from->value(), to->value()), std::pair(1, printed));
        from->setValue(2);
        to->setValue(2);
        QTest::mouseClick(dialog.findChild<QRadioButton *>(QStringLiteral("optAll")),
                          Qt::LeftButton);
        QCOMPARE(std::pair(from->value(), to->value()), std::pair(1, printed));

        int previewed = -1;
        QTimer::singleShot(0, this, [&] {
            auto *preview = qobject_cast<QPrintPreviewDialog *>(QApplication::activeModalWidget());
            if (!preview)
                return;
            if (auto *pages = preview->findChild<QPrintPreviewWidget *>())
                previewed = pages->pageCount();
            preview->reject();
        });
        QTest::mouseClick(dialog.findChild<QPushButton *>(QStringLiteral("cmdPreview")),
                          Qt::LeftButton);
        QCOMPARE(previewed, printed);
    }
};

QTEST_MAIN(TestPrint)
#include "tst_print.moc"
