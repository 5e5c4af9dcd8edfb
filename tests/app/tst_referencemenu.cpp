// The References menu's reading aids as the main window opens them: one window per list, the
// units table in the passage view, and the verse of the day after a translation has loaded.
#include "../support/ProgramHarness.h"
#include "../support/TranslationFixture.h"
#include "library/frmParables.h"
#include "library/frmProphecies.h"
#include "library/frmVerseOfDay.h"
#include "platform/MsgBoxAnswerer.h"
#include "platform/RichTextBox.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

using namespace fixture;
using support::ProgramHarness;

class TestReferenceMenu : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    QString file(const QString &name) const { return m_dir.filePath(name); }

    static QList<frmParables *> openLists()
    {
        QList<frmParables *> lists;
        for (QWidget *window : QApplication::topLevelWidgets()) {
            auto *list = qobject_cast<frmParables *>(window);
            if (list && list->isVisible())
                lists << list;
        }
        return lists;
    }

private slots:
    void initTestCase()
    {
        makeTranslation(m_dir.path(), QStringLiteral("KJV"), wholeBible(),
                        QStringLiteral("Test Version"));
        writeFile(file(QStringLiteral("bookmarks.dat")), "");
        writeFile(file(QStringLiteral("parables.dat")),
                  "Parables of the test\r\nThe sower|Matthew 1:1|Mark 1:1|Luke 1:1|\r\n");
        writeFile(file(QStringLiteral("miracles.dat")),
                  "Miracles of the test\r\nWine||||John 2:1\r\n");
        writeFile(file(QStringLiteral("prophecy.dat")),
                  "header\r\nThe seed|Genesis 3:1|Galatians 3:1\r\n");
        writeFile(file(QStringLiteral("verses.dat")), "John 3:2\r\n");
    }

    void init()
    {
        writeFile(file(QStringLiteral("window.ini")),
                  "[load]\r\nautoload=0\r\n[verseofday]\r\nshow=0\r\n");
    }

    void oneWindowPerList()
    {
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        QVERIFY(program.start(QStringLiteral("KJV")));
        QVERIFY(openLists().isEmpty());

        program.control<QAction>("mnuReferencesMiracles")->trigger();
        program.control<QAction>("mnuReferencesMiracles")->trigger();
        QCOMPARE(openLists().size(), 1);
        frmParables *miracles = openLists().first();
        QCOMPARE(miracles->Tag(), QStringLiteral("MIRACLES"));
        QCOMPARE(miracles->findChild<QLabel *>(QStringLiteral("Label1"))->text(),
                 QStringLiteral("Miracles "));

        program.control<QAction>("mnuReferencesParables")->trigger();
        QCOMPARE(openLists().size(), 2);
        program.control<QAction>("mnuReferencesParables")->trigger();
        QCOMPARE(openLists().size(), 2);

        // A closed list is made afresh on the next request.
        miracles->close();
        QCOMPARE(openLists().size(), 1);
        program.control<QAction>("mnuReferencesMiracles")->trigger();
        QCOMPARE(openLists().size(), 2);

        program.control<QAction>("mnuReferencesProphecies")->trigger();
        program.control<QAction>("mnuReferencesProphecies")->trigger();
        QCOMPARE(program.main()->findChildren<frmProphecies *>().size(), 1);
        QCOMPARE(answers.count(), 0);
    }

    void unitsTable()
    {
        platform::MsgBoxAnswerer answers;
        writeFile(file(QStringLiteral("Units.rtf")), "{\\rtf1\\ansi Talent: about 75 pounds\\par}");
        ProgramHarness program(m_dir.path());
        QVERIFY(program.start(QStringLiteral("KJV")));
        program.control<QTabWidget>("SSTab1")->setCurrentIndex(1);
        program.control<QAction>("mnuReferencesUnits")->trigger();
        QCOMPARE(program.control<QTabWidget>("SSTab1")->currentIndex(), 0);
        QCOMPARE(program.passage().trimmed(), QStringLiteral("Talent: about 75 pounds"));

        QFile::remove(file(QStringLiteral("Units.rtf")));
        program.control<QAction>("mnuReferencesUnits")->trigger();
        QCOMPARE(answers.prompts(),
                 QStringList{file(QStringLiteral("Units.rtf")) +
                             QStringLiteral(" is missing.  Feature will be disabled.\r\n"
                                            "Reinstall the program to restore it")});
    }

    void verseOfTheDayAfterLoading()
    {
        platform::MsgBoxAnswerer answers;
        writeFile(file(QStringLiteral("window.ini")),
                  "[load]\r\nautoload=0\r\n[verseofday]\r\nshow=1\r\n");
        {
            ProgramHarness program(m_dir.path());
            QVERIFY(program.start(QStringLiteral("KJV")));
            auto *verse = program.main()->findChild<frmVerseOfDay *>();
            QVERIFY(verse && verse->isVisible());
            QCOMPARE(verse->findChild<QPlainTextEdit *>(QStringLiteral("txtVerse"))->toPlainText(),
                     QStringLiteral("JOHN 3:2\n2 Text of John 3:2\n"));
            // The passage view keeps its in-text heading.
            QVERIFY(program.passage().startsWith(QStringLiteral("GENESIS 1")));
            auto *box = verse->findChild<QCheckBox *>(QStringLiteral("chkLoadVerseAtStartup"));
            QVERIFY(box->isChecked());
            box->click();
        }
        // Unticked, the next start shows no verse; the menu still opens it, unticked.
        ProgramHarness program(m_dir.path());
        QVERIFY(program.start(QStringLiteral("KJV")));
        QVERIFY(!program.main()->findChild<frmVerseOfDay *>());
        program.control<QAction>("mnuReferencesVerseOfDay")->trigger();
        auto *verse = program.main()->findChild<frmVerseOfDay *>();
        QVERIFY(verse && verse->isVisible());
        QVERIFY(
            !verse->findChild<QCheckBox *>(QStringLiteral("chkLoadVerseAtStartup"))->isChecked());
        // Asked again, the same window shows its verse afresh.
        auto *text = verse->findChild<QPlainTextEdit *>(QStringLiteral("txtVerse"));
        text->clear();
        program.control<QAction>("mnuReferencesVerseOfDay")->trigger();
        QCOMPARE(program.main()->findChildren<frmVerseOfDay *>().size(), 1);
        QVERIFY(text->toPlainText().startsWith(QStringLiteral("JOHN 3:2")));
        QCOMPARE(answers.count(), 0);
    }
};

QTEST_MAIN(TestReferenceMenu)
#include "tst_referencemenu.moc"
