// Zoom and the light or dark look, used as a reader would: Ctrl with Plus, Minus, 0 and the
// wheel in the passage and the notes, kept from one session to the next and never written into
// the options or the notes; the dark look's colours and their contrast, the user's own colours
// kept, and the choice made in the options.
#include "../support/ProgramHarness.h"
#include "../support/TranslationFixture.h"
#include "platform/MsgBoxAnswerer.h"
#include "platform/RichTextBox.h"
#include "settings/SettingsRecords.h"
#include "settings/frmOptions.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>

#include <cmath>

using support::ProgramHarness;

namespace {

// WCAG 2: the relative luminance of a colour and the contrast ratio of two.
double luminance(const QColor &color)
{
    const auto channel = [](int value) {
        const double c = value / 255.0;
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * channel(color.red()) + 0.7152 * channel(color.green()) +
           0.0722 * channel(color.blue());
}

double contrast(const QColor &a, const QColor &b)
{
    const double la = luminance(a);
    const double lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

void wheel(QWidget *view, int notches)
{
    const QPointF at(view->width() / 2.0, view->height() / 2.0);
    QWheelEvent event(at, view->mapToGlobal(at), QPoint(), QPoint(0, 120 * notches), Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view, &event);
}

} // namespace

class TestZoomAndLook : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    QByteArray m_shippedLook;

    QString file(const char *name) const { return m_dir.filePath(QLatin1String(name)); }

    void start(ProgramHarness &program)
    {
        QVERIFY(program.start(QStringLiteral("KJV")));
        QVERIFY(QTest::qWaitForWindowExposed(program.main()));
        program.main()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(program.main()));
    }

    static double points(ProgramHarness &program, const char *view)
    {
        return program.control<platform::RichTextBox>(view)->font().pointSizeF();
    }

    // The dictionary window's definition, a plain text view, opened from the menu.
    static QPlainTextEdit *definition(ProgramHarness &program)
    {
        program.control<QAction>("mnuReferencesDictionary")->trigger();
        return program.control<QPlainTextEdit>("txtDefinition");
    }

private slots:
    void initTestCase()
    {
        const QString imported = qEnvironmentVariable("QS_PROGRAM_DIR");
        for (const QString &folder :
             {QStringLiteral("KJV"), QStringLiteral("tvc"), QStringLiteral("Dictionary.dat")})
            QVERIFY(QFile::link(imported + u'/' + folder, m_dir.filePath(folder)));
        m_shippedLook = fixture::readFile(qEnvironmentVariable("QS_SOURCE_DIR") +
                                          QStringLiteral("/data/display.cfg"));
        QCOMPARE(m_shippedLook.size(), DisplaySettings::RecordLength);
    }

    void init()
    {
        fixture::writeFile(file("bookmarks.dat"), QByteArray());
        fixture::writeFile(file("window.ini"),
                           "[load]\r\nautoload=0\r\n[verseofday]\r\nshow=0\r\n");
        fixture::writeFile(file("display.cfg"), m_shippedLook);
    }

    void zoomIsKeptAndNeverSaved()
    {
        const double base = DisplaySettings::fromBytes(m_shippedLook).passage.FontSize;
        QByteArray notesFile;
        {
            platform::MsgBoxAnswerer nobodyAsked;
            ProgramHarness program(m_dir.path());
            start(program);
            auto *passage = program.control<platform::RichTextBox>("rtfPassage");
            QCOMPARE(points(program, "rtfPassage"), base);
            passage->setFocus();
            QTest::keyClick(passage, Qt::Key_Plus, Qt::ControlModifier);
            QTest::keyClick(passage, Qt::Key_Plus, Qt::ControlModifier);
            QCOMPARE(points(program, "rtfPassage"), base * 1.25);
            QTest::keyClick(passage, Qt::Key_Minus, Qt::ControlModifier);
            QCOMPARE(points(program, "rtfPassage"), base * 1.10);
            QTest::keyClick(passage, Qt::Key_Equal, Qt::ControlModifier);
            QCOMPARE(points(program, "rtfPassage"), base * 1.25);

            // New options are the new base, under the same zoom.
            ProgramSettings::instance().display.passage.FontSize = 20;
            program.main()->InitiateSession();
            QCOMPARE(points(program, "rtfPassage"), 25.0);
            ProgramSettings::instance().readSettingsFiles();
            program.main()->InitiateSession();

            // The notes, saved, zoomed with the wheel and saved again: the same bytes.
            program.getReference(QStringLiteral("John 3"));
            program.control<QTabWidget>("SSTab1")->setCurrentIndex(1);
            auto *notes = program.control<platform::RichTextBox>("rtfNotes");
            notes->setFocus();
            QTest::keyClicks(notes, QStringLiteral("For God so loved"));
            auto *save = program.control<QPushButton>("cmdSaveNotes");
            QTest::mouseClick(save, Qt::LeftButton);
            notesFile = fixture::readFile(file("notes/newtest/JOHN.dat"));
            QVERIFY(notesFile.contains("For God so loved"));
            const QString rtf = notes->TextRTF();
            wheel(notes->viewport(), 3);
            QCOMPARE(points(program, "rtfNotes"), base * 1.5);
            QCOMPARE(notes->TextRTF(), rtf);
            QTest::mouseClick(save, Qt::LeftButton);
            QCOMPARE(fixture::readFile(file("notes/newtest/JOHN.dat")), notesFile);
            wheel(notes->viewport(), -1);
            QCOMPARE(points(program, "rtfNotes"), base * 1.25);
            QTest::keyClick(notes, Qt::Key_0, Qt::ControlModifier);
            QCOMPARE(points(program, "rtfNotes"), base);
            wheel(notes->viewport(), -1);

            // A reference window's view zooms the same way.
            QPlainTextEdit *dictionary = definition(program);
            QTest::keyClick(dictionary, Qt::Key_Plus, Qt::ControlModifier);
            QCOMPARE(dictionary->font().pointSizeF(), base * 1.1);
            QCOMPARE(nobodyAsked.prompts().join(u'|'), QString());
        }
        // The next session: each view as it was left; the options and the notes untouched.
        ProgramHarness program(m_dir.path());
        start(program);
        QCOMPARE(points(program, "rtfPassage"), base * 1.25);
        QCOMPARE(points(program, "rtfNotes"), base * 0.9);
        QCOMPARE(points(program, "rtfTVC"), base);
        QCOMPARE(definition(program)->font().pointSizeF(), base * 1.1);
        QCOMPARE(fixture::readFile(file("display.cfg")), m_shippedLook);
        QCOMPARE(fixture::readFile(file("notes/newtest/JOHN.dat")), notesFile);
    }

    void darkLookKeepsContrastAndChosenColours()
    {
        fixture::writeFile(
            file("window.ini"),
            "[load]\r\nautoload=0\r\n[verseofday]\r\nshow=0\r\n[look]\r\nscheme=2\r\n");
        {
            ProgramHarness program(m_dir.path());
            start(program);
            QVERIFY(luminance(QApplication::palette().color(QPalette::Window)) < 0.05);
            const auto *passage = program.control<platform::RichTextBox>("rtfPassage");
            const auto *title = program.control<QLabel>("lbltitle");
            const auto *books = program.control<QListWidget>("lstBooks");
            const std::pair<QColor, QColor> pairs[] = {
                {passage->palette().color(QPalette::Base),
                 passage->palette().color(QPalette::Text)},
                {title->palette().color(QPalette::Window),
                 title->palette().color(QPalette::WindowText)},
                {books->palette().color(QPalette::Base), books->palette().color(QPalette::Text)},
            };
            for (const auto &[back, fore] : pairs) {
                QVERIFY2(luminance(back) < 0.05, qPrintable(back.name()));
                QVERIFY2(contrast(back, fore) >= 4.5, qPrintable(back.name() + u' ' + fore.name()));
            }
            // The title keeps a red of its own, light on dark.
            const QColor red = title->palette().color(QPalette::WindowText);
            QVERIFY(red.red() > red.green() + 40);

            // The options show the choice; Light goes to "window.ini" only.
            frmOptions options({}, QStringLiteral("KJV"), program.main());
            QVERIFY(options.findChild<QRadioButton *>(QStringLiteral("optLookDark"))->isChecked());
            QTest::mouseClick(options.findChild<QRadioButton *>(QStringLiteral("optLookLight")),
                              Qt::LeftButton);
            QTest::mouseClick(options.findChild<QPushButton *>(QStringLiteral("cmdSaveSettings")),
                              Qt::LeftButton);
            QVERIFY(fixture::readFile(file("window.ini")).contains("scheme=1"));
            QCOMPARE(fixture::readFile(file("display.cfg")), m_shippedLook);
            program.main()->InitiateSession();
            QCOMPARE(passage->palette().color(QPalette::Base), QColor(255, 253, 245));
            QCOMPARE(title->palette().color(QPalette::WindowText), QColor(0x8B, 0x1A, 0x1A));
        }

        // Colours the reader chose stay as chosen under the dark look.
        DisplaySettings chosen = DisplaySettings::fromBytes(m_shippedLook);
        chosen.passage.BackColor = 0x00C0FFC0;
        QVERIFY(chosen.write(file("display.cfg")));
        fixture::writeFile(
            file("window.ini"),
            "[load]\r\nautoload=0\r\n[verseofday]\r\nshow=0\r\n[look]\r\nscheme=2\r\n");
        ProgramHarness program(m_dir.path());
        start(program);
        const auto *passage = program.control<platform::RichTextBox>("rtfPassage");
        QCOMPARE(passage->palette().color(QPalette::Base), QColor(0xC0, 0xFF, 0xC0));
        QCOMPARE(passage->palette().color(QPalette::Text), QColor(0x1A, 0x1A, 0x1A));
        QVERIFY(luminance(program.control<QLabel>("lbltitle")->palette().color(QPalette::Window)) <
                0.05);
    }
};

QTEST_MAIN(TestZoomAndLook)
#include "tst_zoomandlook.moc"
