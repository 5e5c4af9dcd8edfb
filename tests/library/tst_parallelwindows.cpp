// The parables and miracles window, the prophecies window and the verse of the day, used as a
// reader would: a name chosen and its passages shown, the gospels that are silent on it closed,
// the place the windows share, the check box that decides the start-up, and missing files.
#include "../support/ToolWindowHarness.h"
#include "../support/TranslationFixture.h"
#include "library/frmParables.h"
#include "library/frmProphecies.h"
#include "library/frmVerseOfDay.h"
#include "platform/MsgBoxAnswerer.h"
#include "platform/RichTextBox.h"
#include "settings/ProgramSettings.h"

#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

using fixture::writeFile;
using support::FakeMain;
using support::OpenedWindow;

namespace {

const QByteArray kParables = "Parables of the test, in order\r\n"
                             "The sower|Genesis 1:1|Genesis 1:2|Genesis 1:3|Genesis 2:1\r\n"
                             "The lost coin|||Genesis 2:2|\r\n"
                             "The two sons|Genesis 2:3|||\r\n"
                             "Untold||||\r\n";
const QByteArray kProphecies = "Prophecies of the test\r\n"
                               "Born of a virgin|Genesis 1:2|Genesis 2:3\r\n"
                               "The seed|Genesis 1:1|Genesis 2:1\r\n";

} // namespace

class TestParallelWindows : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    FakeMain m_main;

    QString file(const QString &name) const { return m_dir.filePath(name); }
    void settings(const QByteArray &windowIni) { support::useSettings(m_dir.path(), windowIni); }
    int iniValue(const char *section, const char *key) const
    {
        return support::iniData(m_dir.path(), section, key);
    }

    // A parables window as the main window opens one.
    frmParables *parables(const QString &tag = frmParables::ParablesTag,
                          const QString &name = QStringLiteral("parables.dat"))
    {
        auto *window = new frmParables(m_main);
        window->SetDataFile(file(name));
        window->SetTag(tag);
        return window;
    }
    static QString gospelText(const OpenedWindow<frmParables> &window, int j)
    {
        const QByteArray name = "rtfGospel" + QByteArray::number(j);
        return window.control<platform::RichTextBox>(name.constData())->Text();
    }
    static QList<bool> enabledTabs(const OpenedWindow<frmParables> &window)
    {
        auto *tabs = window.control<QTabWidget>("SSTab1");
        QList<bool> enabled;
        for (int j = 0; j < tabs->count(); ++j)
            enabled << tabs->isTabEnabled(j);
        return enabled;
    }

private slots:
    void initTestCase() { m_main.openGenesis(m_dir.path()); }

    void init()
    {
        writeFile(file(QStringLiteral("parables.dat")), kParables);
        writeFile(file(QStringLiteral("prophecy.dat")), kProphecies);
        writeFile(file(QStringLiteral("verses.dat")), "Genesis 1:2\r\n");
        settings("[]\r\nrememberwindowsetting=0\r\n");
    }

    void cleanup() { ProgramSettings::instance().rememberWindows = false; }

    void gospelsSideBySide()
    {
        OpenedWindow<frmParables> window(parables());
        QCOMPARE(window.entries("lstParables"),
                 (QStringList{"The sower", "The lost coin", "The two sons", "Untold"}));
        auto *tabs = window.control<QTabWidget>("SSTab1");
        QCOMPARE(tabs->tabText(0) + tabs->tabText(1) + tabs->tabText(2) + tabs->tabText(3),
                 QStringLiteral("MatthewMarkLukeJohn"));

        // Taking the focus chooses nothing.
        auto *list = window.control<QListWidget>("lstParables");
        QApplication::setActiveWindow(window.get());
        list->setFocus(Qt::TabFocusReason);
        QVERIFY(list->hasFocus());
        QCOMPARE(window.control<QLineEdit>("txtTitle")->text(), QString());
        list->setCurrentRow(0);
        QCOMPARE(window.control<QLineEdit>("txtTitle")->text(), QStringLiteral("The sower"));
        QCOMPARE(enabledTabs(window), (QList<bool>{true, true, true, true}));
        const char *told[] = {"Text of Genesis 1:1", "Text of Genesis 1:2", "Text of Genesis 1:3",
                              "Text of Genesis 2:1"};
        for (int j = 0; j < 4; ++j)
            QVERIFY2(gospelText(window, j).contains(QLatin1String(told[j])), told[j]);

        // Told only in Luke: only Luke can be opened, and it comes forward from John.
        tabs->setCurrentIndex(3);
        QTest::keyClick(list, Qt::Key_Down);
        QCOMPARE(window.control<QLineEdit>("txtTitle")->text(), QStringLiteral("The lost coin"));
        QCOMPARE(enabledTabs(window), (QList<bool>{false, false, true, false}));
        QCOMPARE(tabs->currentIndex(), 2);
        QVERIFY(gospelText(window, 2).contains(QStringLiteral("Text of Genesis 2:2")));
        QVERIFY(gospelText(window, 3).isEmpty());

        // A gospel still telling the story stays in front.
        list->setCurrentRow(0);
        QCOMPARE(tabs->currentIndex(), 2);
        list->setCurrentRow(2);
        QCOMPARE(enabledTabs(window), (QList<bool>{true, false, false, false}));
        QCOMPARE(tabs->currentIndex(), 0);
        // Told by none: no gospel can be opened, the one in front included.
        list->setCurrentRow(3);
        QCOMPARE(enabledTabs(window), (QList<bool>{false, false, false, false}));
        QVERIFY(!tabs->isEnabled());
        QVERIFY(gospelText(window, 0).isEmpty());
        list->setCurrentRow(0);
        QVERIFY(tabs->isEnabled());
        QVERIFY(m_main.shown.isEmpty());
    }

    void titleAndHeadingByTag()
    {
        writeFile(file(QStringLiteral("miracles.dat")),
                  "Miracles\r\nWater into wine||||Genesis 1:1\r\n");
        OpenedWindow<frmParables> first(
            parables(frmParables::MiraclesTag, QStringLiteral("miracles.dat")));
        OpenedWindow<frmParables> second(parables());
        QCOMPARE(second->windowTitle(), QStringLiteral("Parables of Jesus Christ"));
        QCOMPARE(first->windowTitle(), QStringLiteral("Miracles of Jesus Christ"));
        // A header of one word with nothing after it heads no list.
        QCOMPARE(first.control<QLabel>("Label1")->text(), QString());
    }

    void parablesAndMiraclesShareTheirPlace()
    {
        settings("[]\r\nrememberwindowsetting=1\r\n[parables]\r\nleft=1500\r\ntop=1200\r\n");
        QPoint moved;
        {
            OpenedWindow<frmParables> miracles(parables(frmParables::MiraclesTag));
            moved = QPoint(6, 34);
            miracles->move(moved);
        }
        QVERIFY(iniValue("parables", "left") != 1500);
        OpenedWindow<frmParables> window(parables());
        QCOMPARE(window->pos(), moved);
    }

    void prophecyBesideItsFulfilment()
    {
        {
            OpenedWindow<frmProphecies> window(m_main);
            QCOMPARE(window.entries("lstProphecies"),
                     (QStringList{"Born of a virgin", "The seed"}));
            window.control<QListWidget>("lstProphecies")->setCurrentRow(0);
            const QString old = window.control<platform::RichTextBox>("rtfOld")->Text();
            const QString fulfilled = window.control<platform::RichTextBox>("rtfNew")->Text();
            QVERIFY2(old.contains(QStringLiteral("Text of Genesis 1:2")), qPrintable(old));
            QVERIFY2(fulfilled.contains(QStringLiteral("Text of Genesis 2:3")),
                     qPrintable(fulfilled));
            window.control<QListWidget>("lstProphecies")->setCurrentRow(1);
            QVERIFY(window.control<platform::RichTextBox>("rtfOld")->Text().contains(
                QStringLiteral("Text of Genesis 1:1")));
            window->move(20, 40);
        }
        // Its place goes to its own section, in twips.
        QCOMPARE(iniValue("prophecy", "left"), 300);
        QCOMPARE(iniValue("prophecy", "top"), 600);
        QCOMPARE(iniValue("parables", "left"), -1);
    }

    void missingFiles()
    {
        QFile::remove(file(QStringLiteral("parables.dat")));
        QFile::remove(file(QStringLiteral("prophecy.dat")));
        platform::MsgBoxAnswerer answers;
        const QString tail = QStringLiteral(" is missing.  Feature will be disabled.\r\n"
                                            "Reinstall the program to restore it");
        {
            OpenedWindow<frmParables> window(parables());
            QCOMPARE(answers.prompts(), QStringList{file(QStringLiteral("parables.dat")) + tail});
            QCOMPARE(window.entries("lstParables"), QStringList());
        }
        {
            OpenedWindow<frmProphecies> window(m_main);
            QCOMPARE(answers.prompts().last(), QStringLiteral("'prophecy.dat'") + tail);
            QCOMPARE(answers.last().buttons, int(vb::vbCritical));
            QCOMPARE(window.entries("lstProphecies"), QStringList());
        }
    }

    void verseOfTheDay_data()
    {
        QTest::addColumn<QByteArray>("verses");
        QTest::addColumn<QString>("shown");
        QTest::newRow("one line") << QByteArray("Genesis 1:2\r\n")
                                  << QStringLiteral("GENESIS 1:2\n2 Text of Genesis 1:2");
        QTest::newRow("empty file") << QByteArray() << QString();
    }

    void verseOfTheDay()
    {
        QFETCH(QByteArray, verses);
        QFETCH(QString, shown);
        writeFile(file(QStringLiteral("verses.dat")), verses);
        m_main.bible.setInTextReference(true);
        OpenedWindow<frmVerseOfDay> window(new frmVerseOfDay(m_main, 1));
        auto *text = window.control<QPlainTextEdit>("txtVerse");
        // However often it is asked, a list of one line gives that line.
        for (int i = 0; i < 5; ++i) {
            QCOMPARE(text->toPlainText().trimmed(), shown);
            QTest::mouseClick(window.control<QPushButton>("cmdNextverse"), Qt::LeftButton);
        }
        QVERIFY(m_main.bible.InTextReference());
        QVERIFY(window.control<QCheckBox>("chkLoadVerseAtStartup")->isChecked());
        QTest::mouseClick(window.control<QPushButton>("cmdOK"), Qt::LeftButton);
        QTRY_VERIFY(!window.get());
    }

    void versesMissing()
    {
        QFile::remove(file(QStringLiteral("verses.dat")));
        OpenedWindow<frmVerseOfDay> window(new frmVerseOfDay(m_main, 0));
        const QString missing = QStringLiteral(
            "That the verses.dat file was not found? \n\nCreate a text file named verses.dat using "
            "NotePad with 1 verse per line. Then place it in the same directory as the "
            "application. ");
        auto *text = window.control<QPlainTextEdit>("txtVerse");
        QCOMPARE(text->toPlainText(), missing);
        QTest::mouseClick(window.control<QPushButton>("cmdNextverse"), Qt::LeftButton);
        QCOMPARE(text->toPlainText(), missing);
        QVERIFY(!window.control<QCheckBox>("chkLoadVerseAtStartup")->isChecked());
    }

    void checkBoxDecidesTheStartUp()
    {
        settings("[verseofday]\r\nshow=1\r\n");
        OpenedWindow<frmVerseOfDay> window(new frmVerseOfDay(m_main, 1));
        // Opening writes nothing; each click writes the box's state.
        QCOMPARE(iniValue("verseofday", "show"), 1);
        auto *box = window.control<QCheckBox>("chkLoadVerseAtStartup");
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(5, box->height() / 2));
        QCOMPARE(iniValue("verseofday", "show"), 0);
        QTest::keyClick(box, Qt::Key_Space);
        QCOMPARE(iniValue("verseofday", "show"), 1);
    }
};

QTEST_MAIN(TestParallelWindows)
#include "tst_parallelwindows.moc"
