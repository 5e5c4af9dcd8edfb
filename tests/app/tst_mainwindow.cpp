// Start-up and the reading window, driven through their controls on the offscreen platform.
#include "../support/TranslationFixture.h"
#include "app/frmLoadVersion.h"
#include "app/frmMain.h"
#include "platform/MsgBoxAnswerer.h"
#include "platform/RichTextBox.h"
#include "settings/ProgramSettings.h"

#include <QAction>
#include <QCheckBox>
#include <QMenu>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

using namespace fixture;

class TestMainWindow : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    void writeIni(const QByteArray &text) { writeFile(m_dir.path() + QStringLiteral("/window.ini"), text); }

    // Starts the program on the fixture folder the way main() does.
    std::unique_ptr<frmLoadVersion> start(const QString &commandLine, bool *started = nullptr)
    {
        ProgramSettings::instance().setProgramFolder(m_dir.path());
        auto chooser = std::make_unique<frmLoadVersion>(commandLine);
        const bool ok = chooser->Form_Load();
        if (started)
            *started = ok;
        return chooser;
    }

private slots:
    void initTestCase()
    {
        QList<Book> special = {{QStringLiteral("John"), false, chapters(QStringLiteral("John"), {51, 25, 36})}};
        makeTranslation(m_dir.path(), QStringLiteral("TEST"), wholeBible(special), QStringLiteral("Test Version"));
        makeTranslation(m_dir.path(), QStringLiteral("SMALL"),
                        {{QStringLiteral("Genesis"), false, chapters(QStringLiteral("Genesis"), {2})},
                         {QStringLiteral("Mark"), true, chapters(QStringLiteral("Mark"), {2})}},
                        QStringLiteral("Small Version"));
    }

    void startWithoutIni()
    {
        QFile::remove(m_dir.path() + QStringLiteral("/window.ini"));
        platform::MsgBoxAnswerer answers;
        bool started = true;
        auto chooser = start(QString(), &started);
        QVERIFY(!started);
        QCOMPARE(answers.prompts(), QStringList{QStringLiteral(
            "Unable to launch because 'window.ini' is missing from the program's directory!\r\n"
            "Reinstall the program to repair the problem")});
        QVERIFY(answers.last().buttons & vb::vbCritical);
    }

    void commandLineAndAutoLoad()
    {
        writeIni("[]\r\nrememberwindowsetting=0\r\n[load]\r\nautoload=0\r\n");
        {
            platform::MsgBoxAnswerer answers;
            auto chooser = start(QStringLiteral("test"));
            QVERIFY(chooser->Opened());
            QCOMPARE(chooser->MainWindow()->windowTitle(), QStringLiteral("Test Version - Quillstone Bible 1.0.0"));
            QCOMPARE(answers.count(), 0);
            QCOMPARE(chooser->lstVersions->count(), 2);
            delete chooser->MainWindow();
        }
        // A folder outside the program folder is refused; nothing opens and the list waits.
        for (const QString &bad : {QStringLiteral("../TEST"), m_dir.path() + QStringLiteral("/TEST"), QStringLiteral("NONE")}) {
            platform::MsgBoxAnswerer answers;
            auto chooser = start(bad);
            QVERIFY2(!chooser->Opened(), qPrintable(bad));
            QCOMPARE(answers.prompts(), QStringList{QStringLiteral(
                "An invalid version path was supplied at the command line, ignoring it and resuming")});
        }
        // The saved translation opens by itself when auto-load is on; a bad one is reported.
        writeIni("[load]\r\nautoload=1\r\nversion=SMALL\r\n");
        {
            platform::MsgBoxAnswerer answers;
            auto chooser = start(QString());
            QVERIFY(chooser->Opened());
            QCOMPARE(chooser->MainWindow()->windowTitle(), QStringLiteral("Small Version - Quillstone Bible 1.0.0"));
            delete chooser->MainWindow();
        }
        writeIni("[load]\r\nautoload=1\r\nversion=GONE\r\n");
        {
            platform::MsgBoxAnswerer answers;
            auto chooser = start(QString());
            QVERIFY(!chooser->Opened());
            QCOMPARE(answers.prompts(), QStringList{QStringLiteral(
                "An invalid version path was saved in the settings, ignoring and resuming")});
            // Load with nothing selected, then with a choice.
            chooser->lstVersions->clearSelection();
            chooser->lstVersions->setCurrentRow(-1);
            answers.clear();
            chooser->cmdLoad_Click();
            QCOMPARE(answers.prompts(), QStringList{QStringLiteral("Please select a translation first")});
            chooser->lstVersions->setCurrentRow(1);
            chooser->cmdLoad_Click();
            QVERIFY(chooser->Opened());
            QCOMPARE(ProgramSettings::instance().Ini().Text(QStringLiteral("load"), QStringLiteral("version")),
                     QStringLiteral("TEST"));
            delete chooser->MainWindow();
        }
    }

    void navigation()
    {
        writeIni("[load]\r\nautoload=0\r\n");
        platform::MsgBoxAnswerer answers;
        auto chooser = start(QStringLiteral("TEST"));
        frmMain *main = chooser->MainWindow();
        QVERIFY(main);

        // The first chapter of the Bible is on display after start-up.
        QCOMPARE(main->lbltitle->text(), QStringLiteral("GENESIS 1"));

        main->cmbTestaments->setCurrentIndex(1);
        main->cmbTestaments_Click();
        QCOMPARE(main->lstBooks->count(), 27);
        QCOMPARE(main->lstBooks->item(0)->text(), main->Bible().BookName(40));

        main->lstBooks->setCurrentRow(3); // John
        QCOMPARE(main->lstChapters->count(), 3);
        main->lstChapters->setCurrentRow(1);
        QCOMPARE(main->lbltitle->text(), QStringLiteral("JOHN 2"));
        QCOMPARE(main->lbltitle->text(), main->Bible().Standard());
        QVERIFY(main->rtfPassage->Text().startsWith(QStringLiteral("JOHN 2\r\n1 Text of John 2:1\r\n")));

        // "Get it" moves the lists to the passage.
        main->cmbTestaments->setCurrentIndex(0);
        main->cmbTestaments_Click();
        main->txtReference->setText(QStringLiteral("jn 3:16"));
        QTest::mouseClick(main->cmdGet, Qt::LeftButton);
        QCOMPARE(main->lbltitle->text(), QStringLiteral("JOHN 3:16"));
        QCOMPARE(main->rtfPassage->Text(), QStringLiteral("JOHN 3 \r\n16 Text of John 3:16\r\n"));
        QCOMPARE(main->cmbTestaments->currentIndex(), 1);
        QCOMPARE(main->lstBooks->currentItem()->text(), QStringLiteral("John"));
        QCOMPARE(main->lstChapters->currentItem()->text(), QStringLiteral("3"));

        // An unknown book: empty view, the lists stay, the title keeps the last passage.
        main->txtReference->setText(QStringLiteral("Hezekiah 4:1"));
        QTest::keyClick(main->txtReference, Qt::Key_Return);
        QVERIFY(main->rtfPassage->Text().isEmpty());
        QCOMPARE(main->lbltitle->text(), QStringLiteral("JOHN 3:16"));
        QCOMPARE(main->lstBooks->currentItem()->text(), QStringLiteral("John"));

        // Features whose data files are missing are not offered.
        QVERIFY(!main->mnuReferencesStrong->isEnabled());
        QVERIFY(!main->mnuReferencesDictionary->isVisible());
        writeFile(m_dir.path() + QStringLiteral("/Strong/HEBREW.dat"), "H1|a|b|c\r\n");
        writeFile(m_dir.path() + QStringLiteral("/dictionary.dat"), "header\r\n");

        // Another translation from the menu opens at the same book and chapter.
        QAction *small = nullptr;
        for (QAction *entry : main->mnuTranslations->actions())
            if (entry->text() == QStringLiteral("Small Version"))
                small = entry;
        QVERIFY(small);
        QVERIFY(!small->isChecked());
        main->cmdGet_Click();
        QCOMPARE(main->lbltitle->text(), QStringLiteral("JOHN 3:16"));
        main->txtReference->setText(QStringLiteral("Mark 1"));
        main->cmdGet_Click();
        small->trigger();
        QCOMPARE(main->windowTitle(), QStringLiteral("Small Version - Quillstone Bible 1.0.0"));
        QCOMPARE(main->lstBooks->currentItem()->text(), QStringLiteral("Mark"));
        QCOMPARE(main->lbltitle->text(), QStringLiteral("MARK 1"));
        QVERIFY(main->mnuReferencesStrong->isEnabled());
        QVERIFY(main->mnuRightclickStrongLexicon->isEnabled());
        QVERIFY(main->mnuReferencesDictionary->isVisible());
        QFile::remove(m_dir.path() + QStringLiteral("/Strong/HEBREW.dat"));
        QFile::remove(m_dir.path() + QStringLiteral("/dictionary.dat"));
        delete main;
    }

    void updateList()
    {
        writeIni("[load]\r\nautoload=0\r\n");
        platform::MsgBoxAnswerer answers;
        auto chooser = start(QStringLiteral("TEST"));
        frmMain *main = chooser->MainWindow();
        main->cmbTestaments->setCurrentIndex(1);
        main->cmbTestaments_Click();

        // Without "Update Books List" the lists stay where they are.
        main->chkUpdateList->setChecked(false);
        main->txtReference->setText(QStringLiteral("Gen 2:1"));
        main->cmdGet_Click();
        QCOMPARE(main->lbltitle->text(), QStringLiteral("GENESIS 2:1"));
        QCOMPARE(main->cmbTestaments->currentIndex(), 1);
        delete main;
    }

    void quickSearch()
    {
        writeIni("[load]\r\nautoload=0\r\n");
        platform::MsgBoxAnswerer answers;
        auto chooser = start(QStringLiteral("SMALL"));
        frmMain *main = chooser->MainWindow();
        QLabel *title = main->lbltitle;

        // Genesis and Mark hold one chapter of two verses each: four lines hold "text".
        ProgramSettings::instance().searchLimit = 100;
        main->QuickSearch(QStringLiteral(" text "));
        QCOMPARE(title->text(), QStringLiteral("Search results for \" text \" (4 matches)"));
        QVERIFY(main->rtfPassage->Text().startsWith(QStringLiteral("Genesis :1 Text of Genesis 1:1\r\n\r\n")));
        QCOMPARE(main->rtfPassage->SelStart(), 0);
        QCOMPARE(answers.count(), 0);

        ProgramSettings::instance().searchLimit = 4;
        main->QuickSearch(QStringLiteral("text"));
        QCOMPARE(title->text(), QStringLiteral("Searching: Mark..."));
        QCOMPARE(answers.count(), 0);

        ProgramSettings::instance().searchLimit = 3;
        main->QuickSearch(QStringLiteral("text"));
        QCOMPARE(title->text(), QStringLiteral("First 3 results."));
        QCOMPARE(answers.prompts(), QStringList{QStringLiteral(
            "There were over a 3 results for your search,\r\nplease narrow it down or use the advanced search feature!")});
        QCOMPARE(main->rtfPassage->Text().count(QStringLiteral("Text of")), 4);
        QVERIFY(!main->picProgress->isVisible());

        // Whole words: "TEXTS" is not "TEXT".
        ProgramSettings::instance().searchLimit = 100;
        main->chkWordSearch->setChecked(true);
        main->QuickSearch(QStringLiteral("tex"));
        QCOMPARE(title->text(), QStringLiteral("Search results for \"tex\" (0 matches)"));
        delete main;
    }
};

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
