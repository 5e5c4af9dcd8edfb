// Start-up and the reading window, driven through their controls on the offscreen platform.
#include "../support/HookGuards.h"
#include "../support/ProgramHarness.h"
#include "../support/TranslationFixture.h"
#include "platform/MsgBoxAnswerer.h"
#include "platform/RichTextBox.h"
#include "scripture/PassageFormatter.h"
#include "settings/ProgramSettings.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace fixture;
using support::ProgramHarness;

class TestMainWindow : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    // The testament chosen from the drop-down, as the reader chooses it.
    static void chooseTestament(const ProgramHarness &program, int index)
    {
        auto *testaments = program.control<QComboBox>("cmbTestaments");
        testaments->setCurrentIndex(index);
        emit testaments->activated(index);
    }

    void writeIni(const QByteArray &text)
    {
        writeFile(m_dir.path() + QStringLiteral("/window.ini"), text);
    }
    QString ini(const QString &section, const QString &key) const
    {
        return ProgramSettings::instance().Ini().Text(section, key);
    }

    // The window opened on TEST, the reader's way.
    void openTest(ProgramHarness &program)
    {
        writeIni("[load]\r\nautoload=0\r\n");
        QVERIFY(program.start(QStringLiteral("TEST")));
    }

    static void search(const ProgramHarness &program, const QString &typed)
    {
        program.control<QLineEdit>("txtQuery")->setText(typed);
        QTest::mouseClick(program.control<QPushButton>("cmdSearch"), Qt::LeftButton);
    }

private slots:
    void initTestCase()
    {
        QList<Book> special = {
            {QStringLiteral("John"), false, chapters(QStringLiteral("John"), {51, 25, 36})}};
        makeTranslation(m_dir.path(), QStringLiteral("TEST"), wholeBible(special),
                        QStringLiteral("Test Version"));
        makeTranslation(
            m_dir.path(), QStringLiteral("NAMELESS"),
            {{QStringLiteral("Genesis"), false, chapters(QStringLiteral("Genesis"), {1})}},
            QString());
        makeTranslation(
            m_dir.path(), QStringLiteral("SMALL"),
            {{QStringLiteral("Genesis"), false, chapters(QStringLiteral("Genesis"), {2})},
             {QStringLiteral("Mark"), true, chapters(QStringLiteral("Mark"), {2})}},
            QStringLiteral("Small Version"));
    }

    void startWithoutIni()
    {
        QFile::remove(m_dir.path() + QStringLiteral("/window.ini"));
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        QVERIFY(!program.start());
        QCOMPARE(
            answers.prompts(),
            QStringList{QStringLiteral(
                "Unable to launch because 'window.ini' is missing from the program's directory!\r\n"
                "Reinstall the program to repair the problem")});
        QVERIFY(answers.last().buttons & vb::vbCritical);
    }

    void commandLine()
    {
        writeIni("[]\r\nrememberwindowsetting=0\r\n[load]\r\nautoload=0\r\n");
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        program.start(QStringLiteral("test"));
        QVERIFY(program.opened());
        QCOMPARE(program.main()->windowTitle(),
                 QStringLiteral("Test Version - Quillstone Bible 1.0.0"));
        // The first start repairs the missing bookmark file and says so.
        QCOMPARE(answers.prompts(),
                 QStringList{QStringLiteral(
                     "'bookmarks.dat' is missing from the program's directory!\r\nProblem was "
                     "repaired, click ok to proceed")});
        QVERIFY(answers.last().buttons & vb::vbCritical);
        QVERIFY(QFile::exists(m_dir.filePath(QStringLiteral("bookmarks.dat"))));
        QCOMPARE(program.control<QListWidget>("lstVersions")->count(), 3);
        // A translation with no name on its first line goes by its folder's name.
        QCOMPARE(program.control<QListWidget>("lstVersions")->item(0)->text(),
                 QStringLiteral("NAMELESS"));
    }

    // A folder outside the program folder is refused; nothing opens and the list waits.
    void commandLineOutsideTheFolder()
    {
        writeIni("[load]\r\nautoload=0\r\n");
        for (const QString &bad :
             {QStringLiteral("../TEST"), m_dir.path() + QStringLiteral("/TEST"),
              QStringLiteral("NONE")}) {
            platform::MsgBoxAnswerer answers;
            ProgramHarness program(m_dir.path());
            program.start(bad);
            QVERIFY2(!program.opened(), qPrintable(bad));
            QCOMPARE(answers.prompts(),
                     QStringList{QStringLiteral("An invalid version path was supplied at the "
                                                "command line, ignoring it and resuming")});
        }
    }

    // The saved translation opens by itself when auto-load is on. Any value but 0 is on, and a
    // missing key reads as -1.
    void autoLoad()
    {
        for (const QByteArray &autoload :
             {QByteArray("autoload=1\r\n"), QByteArray("autoload=2\r\n"), QByteArray()}) {
            writeIni("[load]\r\n" + autoload + "version=SMALL\r\n");
            platform::MsgBoxAnswerer answers;
            ProgramHarness program(m_dir.path());
            program.start();
            QVERIFY2(program.opened(), autoload.constData());
            QCOMPARE(program.main()->windowTitle(),
                     QStringLiteral("Small Version - Quillstone Bible 1.0.0"));
            // Once the window is up, the translation counts as opened.
            QTRY_COMPARE(ini(QStringLiteral("load"), QStringLiteral("opening")), QString());
        }
    }

    // A start that never finished opening the saved translation (it hung, or was killed) does
    // not open it again by itself.
    void unfinishedOpeningIsNotRepeated()
    {
        writeIni("[load]\r\nautoload=1\r\nversion=SMALL\r\nopening=small\r\n");
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        program.start();
        QVERIFY(!program.opened());
        QCOMPARE(answers.prompts(),
                 QStringList{QStringLiteral("The translation \"SMALL\" did not finish opening the "
                                            "last time, so it is not opened automatically.\r\n"
                                            "Choose the translation to open.")});
    }

    void badSavedTranslationLeavesTheChoice()
    {
        writeIni("[load]\r\nautoload=1\r\nversion=GONE\r\n");
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        program.start();
        QVERIFY(!program.opened());
        QCOMPARE(answers.prompts(),
                 QStringList{QStringLiteral(
                     "An invalid version path was saved in the settings, ignoring and resuming")});
        // The list takes the focus without marking a row: Enter asks for a choice.
        frmLoadVersion *chooser = program.chooser();
        auto *list = program.control<QListWidget>("lstVersions");
        chooser->show();
        QVERIFY(QTest::qWaitForWindowExposed(chooser));
        list->setFocus();
        QTest::qWait(20);
        QCOMPARE(list->currentRow(), -1);
        answers.clear();
        QTest::keyClick(list, Qt::Key_Return);
        QCOMPARE(answers.prompts(),
                 QStringList{QStringLiteral("Please select a translation first")});
        list->setCurrentRow(2);
        QTest::mouseClick(program.control<QPushButton>("cmdLoad"), Qt::LeftButton);
        QVERIFY(program.opened());
        QCOMPARE(ini(QStringLiteral("load"), QStringLiteral("version")), QStringLiteral("TEST"));
    }

    void listsShowChapters()
    {
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        openTest(program);
        // The first chapter of the Bible is on display after start-up.
        QCOMPARE(program.title(), QStringLiteral("GENESIS 1"));

        chooseTestament(program, 1);
        QCOMPARE(program.control<QListWidget>("lstBooks")->count(), 27);
        QCOMPARE(program.control<QListWidget>("lstBooks")->item(0)->text(),
                 QStringLiteral("Matthew"));
        program.control<QListWidget>("lstBooks")->setCurrentRow(3); // John
        QCOMPARE(program.control<QListWidget>("lstChapters")->count(), 3);
        program.control<QListWidget>("lstChapters")->setCurrentRow(1);
        QCOMPARE(program.title(), QStringLiteral("JOHN 2"));
        QVERIFY(program.passage().startsWith(QStringLiteral("JOHN 2\r\n1 Text of John 2:1\r\n")));
    }

    void getItMovesTheLists()
    {
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        openTest(program);
        program.control<QLineEdit>("txtReference")->setText(QStringLiteral("jn 3:16"));
        QTest::mouseClick(program.control<QPushButton>("cmdGet"), Qt::LeftButton);
        QCOMPARE(program.title(), QStringLiteral("JOHN 3:16"));
        QCOMPARE(program.passage(), QStringLiteral("JOHN 3 \r\n16 Text of John 3:16\r\n"));
        QCOMPARE(program.control<QComboBox>("cmbTestaments")->currentIndex(), 1);
        QCOMPARE(program.control<QListWidget>("lstBooks")->currentItem()->text(),
                 QStringLiteral("John"));
        QCOMPARE(program.control<QListWidget>("lstChapters")->currentItem()->text(),
                 QStringLiteral("3"));
    }

    void unknownBookOrChapter()
    {
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        openTest(program);
        program.getReference(QStringLiteral("John 3:16"));
        // An unknown book: empty view, the lists stay, the title keeps the last passage.
        program.getReference(QStringLiteral("Hezekiah 4:1"));
        QVERIFY(program.passage().isEmpty());
        QCOMPARE(program.title(), QStringLiteral("JOHN 3:16"));
        QCOMPARE(program.control<QListWidget>("lstBooks")->currentItem()->text(),
                 QStringLiteral("John"));

        // A known book with no such chapter: the title names the book, not the last one shown;
        // "Mal 0,3" then goes on in Malachi.
        for (const auto &[typed, title] :
             {std::pair{"Gen x", "GENESIS 0"}, std::pair{"Mal 0,3", "MALACHI 3"}}) {
            program.getReference(QLatin1String(typed));
            QCOMPARE(program.title(), QLatin1String(title));
        }
        QVERIFY(program.passage().startsWith(QStringLiteral("MALACHI 3")));
    }

    void anotherTranslationKeepsThePlace()
    {
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        openTest(program);
        // Features whose data files are missing are not offered, until the next load finds them.
        QVERIFY(!program.control<QAction>("mnuReferencesStrong")->isEnabled());
        QVERIFY(!program.control<QAction>("mnuReferencesDictionary")->isVisible());
        writeFile(m_dir.path() + QStringLiteral("/Strong/HEBREW.dat"), "H1|a|b|c\r\n");
        writeFile(m_dir.path() + QStringLiteral("/dictionary.dat"), "header\r\n");

        program.getReference(QStringLiteral("Mark 1"));
        QVERIFY(program.chooseTranslation(QStringLiteral("Small Version")));
        QCOMPARE(program.main()->windowTitle(),
                 QStringLiteral("Small Version - Quillstone Bible 1.0.0"));
        QCOMPARE(program.control<QListWidget>("lstBooks")->currentItem()->text(),
                 QStringLiteral("Mark"));
        QCOMPARE(program.title(), QStringLiteral("MARK 1"));
        QVERIFY(program.control<QAction>("mnuReferencesStrong")->isEnabled());
        QVERIFY(program.control<QAction>("mnuRightclickStrongLexicon")->isEnabled());
        QVERIFY(program.control<QAction>("mnuReferencesDictionary")->isVisible());
        QFile::remove(m_dir.path() + QStringLiteral("/Strong/HEBREW.dat"));
        QFile::remove(m_dir.path() + QStringLiteral("/dictionary.dat"));
    }

    // Another translation numbered otherwise: the chapter on display is carried through both
    // numberings (the Synodal Psalm 22 is the KJV's Psalm 23).
    void anotherNumberingKeepsThePlace()
    {
        const QList<Book> psalms = {{QStringLiteral("Psalms"), false,
                                     chapters(QStringLiteral("Psalms"), QList<int>(30, 3))}};
        makeTranslation(m_dir.path(), QStringLiteral("SYN"), wholeBible(psalms),
                        QStringLiteral("Synodal Version"));
        makeTranslation(m_dir.path(), QStringLiteral("PSA"), wholeBible(psalms),
                        QStringLiteral("Psalter Version"));
        writeFile(
            m_dir.path() + QStringLiteral("/SYN/versification.dat"),
            "Synodal\r\nBOOKS Gen Exod Lev Num Deut Josh Judg Ruth 1Sam 2Sam 1Kgs 2Kgs 1Chr 2Chr "
            "Ezra Neh Esth Job Ps "
            "Prov Eccl Song Isa Jer Lam Ezek Dan Hos Joel Amos Obad Jonah Mic Nah Hab Zeph Hag "
            "Zech Mal Matt Mark "
            "Luke John Acts Rom 1Cor 2Cor Gal Eph Phil Col 1Thess 2Thess 1Tim 2Tim Titus Phlm Heb "
            "Jas 1Pet 2Pet "
            "1John 2John 3John Jude Rev\r\nTOKJV Ps.22.1 Ps.23.1\r\nFROMKJV Ps.23.1 Ps.22.1\r\n");
        writeIni("[load]\r\nautoload=0\r\n");
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        QVERIFY(program.start(QStringLiteral("PSA")));
        program.getReference(QStringLiteral("Psalm 23"));
        QVERIFY(program.chooseTranslation(QStringLiteral("Synodal Version")));
        QCOMPARE(program.title(), QStringLiteral("PSALMS 22"));
        QCOMPARE(program.control<QListWidget>("lstChapters")->currentItem()->text(),
                 QStringLiteral("22"));
    }

    void updateList()
    {
        writeIni("[load]\r\nautoload=0\r\n");
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        program.start(QStringLiteral("TEST"));
        chooseTestament(program, 1);

        // Without "Update Books List" the lists stay where they are.
        program.control<QCheckBox>("chkUpdateList")->setChecked(false);
        program.control<QLineEdit>("txtReference")->setText(QStringLiteral("Gen 2:1"));
        QTest::mouseClick(program.control<QPushButton>("cmdGet"), Qt::LeftButton);
        QCOMPARE(program.title(), QStringLiteral("GENESIS 2:1"));
        QCOMPARE(program.control<QComboBox>("cmbTestaments")->currentIndex(), 1);

        // A list of twenty thousand chapters past the end: each is the last chapter, as many
        // times as asked, and the view shows the first million characters of it and says so.
        QStringList items{QStringLiteral("John 3:1")};
        for (int c = 2; c < 20000; ++c)
            items << QString::number(c);
        program.control<QLineEdit>("txtReference")->setText(items.join(u','));
        QTest::mouseClick(program.control<QPushButton>("cmdGet"), Qt::LeftButton);
        QCOMPARE(program.title(), QStringLiteral("JOHN 3"));
        const QString shown = program.passage();
        QVERIFY(shown.size() < PassageFormatter::kMostShown + 100);
        QVERIFY(shown.contains(QStringLiteral("The passage is cut here: ")));
    }

    void quickSearch()
    {
        writeIni("[load]\r\nautoload=0\r\n");
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        program.start(QStringLiteral("SMALL"));

        // Genesis and Mark hold one chapter of two verses each: four lines hold "text".
        ProgramSettings::instance().searchLimit = 100;
        search(program, QStringLiteral(" text "));
        QCOMPARE(program.title(), QStringLiteral("Search results for \" text \" (4 matches)"));
        QVERIFY(
            program.passage().startsWith(QStringLiteral("Genesis :1 Text of Genesis 1:1\r\n\r\n")));
        QCOMPARE(program.control<platform::RichTextBox>("rtfPassage")->SelStart(), 0);
        QCOMPARE(answers.count(), 0);

        ProgramSettings::instance().searchLimit = 3;
        search(program, QStringLiteral("text"));
        QCOMPARE(program.title(), QStringLiteral("First 3 results."));
        QCOMPARE(answers.prompts(), QStringList{QStringLiteral(
                                        "There were over a 3 results for your search,\r\nplease "
                                        "narrow it down or use the advanced search feature!")});
        QCOMPARE(program.passage().count(QStringLiteral("Text of")), 4);
        QVERIFY(!program.control<QProgressBar>("picProgress")->isVisible());

        // Whole words: "TEXTS" is not "TEXT".
        ProgramSettings::instance().searchLimit = 100;
        program.control<QCheckBox>("chkWordSearch")->setChecked(true);
        search(program, QStringLiteral("tex"));
        QCOMPARE(program.title(), QStringLiteral("Search results for \"tex\" (0 matches)"));
    }

    void optionsApplyAtOnce()
    {
        writeIni("[load]\r\nautoload=0\r\n");
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        program.start(QStringLiteral("TEST"));
        // In the modal dialog: a red title, no line breaks, then Save.
        support::ColorAnswer red([](clsCommonColorDialog &d) {
            d.setColor(0x0000FF);
            return true;
        });
        QTimer::singleShot(0, this, [] {
            auto *options = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            QVERIFY(options);
            QTest::mouseClick(options->findChild<QLabel *>(QStringLiteral("lblTitFont")),
                              Qt::LeftButton);
            options->findChild<QCheckBox *>(QStringLiteral("chkLineBreaks"))->setChecked(false);
            QTest::mouseClick(options->findChild<QPushButton *>(QStringLiteral("cmdSaveSettings")),
                              Qt::LeftButton);
        });
        program.control<QAction>("mnuEditOptions")->trigger();
        QCOMPARE(program.control<QLabel>("lbltitle")->palette().color(QPalette::WindowText),
                 QColor(255, 0, 0));
        QVERIFY(program.passage().contains(
            QStringLiteral("1 Text of Genesis 1:1 2 Text of Genesis 1:2")));
        QCOMPARE(ProgramSettings::instance().general.lineBreaks, qint16(0));
    }
};

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
