// The main window's small commands as a reader uses them: Find stepping through the text on show,
// the copies to the clipboard, export and save, and the Help menu.
#include "../support/HookGuards.h"
#include "../support/ProgramHarness.h"
#include "../support/TranslationFixture.h"
#include "app/frmAbout.h"
#include "app/frmFind.h"
#include "platform/FileSystem.h"
#include "platform/MsgBoxAnswerer.h"
#include "platform/RichTextBox.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>

using namespace fixture;
using support::ProgramHarness;

class TestFileEdit : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    static QString read(const QString &path) { return QString::fromUtf8(readFile(path)); }

    static frmFind *openFind(ProgramHarness &program, const QString &word, bool wholeWord = false)
    {
        program.control<QAction>("mnuEditFind")->trigger();
        auto *find = program.main()->findChild<frmFind *>();
        if (!find)
            qFatal("no find dialog");
        find->findChild<QLineEdit *>(QStringLiteral("txtSearch"))->setText(word);
        find->findChild<QCheckBox *>(QStringLiteral("chkWordSearch"))->setChecked(wholeWord);
        return find;
    }
    static void press(frmFind *find)
    {
        find->findChild<QPushButton *>(QStringLiteral("cmdFind"))->click();
    }

private slots:
    void initTestCase()
    {
        const QStringList genesis{"CHAPTER 1", "1 Let there be light: and there was LIGHT.",
                                  "2 God saw the Light", "CHAPTER 2", "1 delight"};
        makeTranslation(m_dir.path(), QStringLiteral("KJV"),
                        wholeBible({{QStringLiteral("Genesis"), false, genesis}}),
                        QStringLiteral("Test Version"));
        writeFile(m_dir.filePath(QStringLiteral("bookmarks.dat")), "");
        writeFile(m_dir.filePath(QStringLiteral("window.ini")),
                  "[load]\r\nautoload=0\r\n[verseofday]\r\nshow=0\r\n");
    }

    void findStepsThroughTheText()
    {
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        QVERIFY(program.start(QStringLiteral("KJV")));
        auto *view = program.control<platform::RichTextBox>("rtfPassage");
        const QString text = view->Text();
        frmFind *find = openFind(program, QStringLiteral("light"));

        // Every occurrence in order, whatever its case, then the message once and the top again.
        QList<int> found;
        for (int i = 0; i < 3; ++i) {
            press(find);
            found << view->SelStart();
            QCOMPARE(view->SelText().toLower(), QStringLiteral("light"));
        }
        QCOMPARE(found, (QList<int>{int(text.indexOf(QStringLiteral("light"))),
                                    int(text.indexOf(QStringLiteral("LIGHT"))),
                                    int(text.indexOf(QStringLiteral("Light")))}));
        QCOMPARE(answers.count(), 0);
        press(find);
        QCOMPARE(answers.prompts(), QStringList{"No (more) results were found"});
        press(find);
        QCOMPARE(view->SelStart(), found.first());

        // Whole words only ask for a blank before the word.
        find->findChild<QCheckBox *>(QStringLiteral("chkWordSearch"))->setChecked(true);
        view->setSelStart(0);
        press(find);
        QCOMPARE(view->SelText(), QStringLiteral(" light"));
        find->findChild<QLineEdit *>(QStringLiteral("txtSearch"))
            ->setText(QStringLiteral("GENESIS"));
        view->setSelStart(0);
        press(find);
        QCOMPARE(answers.count(), 2);
    }

    void findSearchesTheNotesOnShow()
    {
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        QVERIFY(program.start(QStringLiteral("KJV")));
        program.control<QTabWidget>("SSTab1")->setCurrentIndex(1);
        auto *notes = program.control<platform::RichTextBox>("rtfNotes");
        notes->setText(QStringLiteral("my own note on the light"));
        frmFind *find = openFind(program, QStringLiteral("own note"));
        press(find);
        QCOMPARE(notes->SelText(), QStringLiteral("own note"));
        QCOMPARE(program.control<platform::RichTextBox>("rtfPassage")->SelLength(), 0);
        answers.enqueue(vb::vbNo); // leave the notes unsaved when the harness closes
    }

    // Once Find has been used, a click into the notes takes the keyboard back to them.
    void typingAfterFindGoesToTheNotes()
    {
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        QVERIFY(program.start(QStringLiteral("KJV")));
        program.control<QTabWidget>("SSTab1")->setCurrentIndex(1);
        auto *notes = program.control<platform::RichTextBox>("rtfNotes");
        notes->setText(QStringLiteral("my own note"));
        frmFind *find = openFind(program, QStringLiteral("own"));
        QTRY_COMPARE(QApplication::activeWindow(), static_cast<QWidget *>(find));
        press(find);
        QTest::mouseClick(notes->viewport(), Qt::LeftButton, {}, QPoint(2, 2));
        QTRY_VERIFY(notes->hasFocus());
        // The keys go where the keyboard is.
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("abc"));
        QCOMPARE(notes->Text(), QStringLiteral("abcmy own note"));
        QCOMPARE(find->findChild<QLineEdit *>(QStringLiteral("txtSearch"))->text(),
                 QStringLiteral("own"));
        answers.enqueue(vb::vbNo); // leave the notes unsaved when the harness closes
    }

    void copies()
    {
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        QVERIFY(program.start(QStringLiteral("KJV")));
        auto *view = program.control<platform::RichTextBox>("rtfPassage");
        QApplication::clipboard()->setText(QStringLiteral("before"));
        view->setSelStart(0);
        program.control<QAction>("mnuEditCopy")->trigger();
        QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("before"));

        // Copy Passage cuts the last two characters, whatever they are.
        program.control<QAction>("mnuEditCopyPassage")->trigger();
        QCOMPARE(QApplication::clipboard()->text(), view->Text().chopped(2));
        view->setText(QStringLiteral("x"));
        program.control<QAction>("mnuEditCopyPassage")->trigger();
        QCOMPARE(QApplication::clipboard()->text(), QString());
    }

    void save_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("filter");
        QTest::addColumn<QString>("written");
        QTest::addColumn<bool>("rich");
        QTest::newRow("rich text") << "notes" << 2 << "notes.rtf" << true;
        QTest::newRow("text, ending typed") << "notes.txt" << 1 << "notes.txt" << false;
        QTest::newRow("rich text, ending typed in capitals")
            << "NOTES.RTF" << 2 << "NOTES.RTF" << true;
        QTest::newRow("all files save text") << "passage" << 3 << "passage.txt" << false;
    }

    void save()
    {
        QFETCH(QString, name);
        QFETCH(int, filter);
        QFETCH(QString, written);
        QFETCH(bool, rich);
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        QVERIFY(program.start(QStringLiteral("KJV")));
        const QString shown = program.passage();

        QTemporaryDir out;
        QString title;
        {
            support::FileAnswer answer([&](clsCommonOpenDialog &dialog, bool save) {
                title = dialog.Dialogtitle();
                dialog.setFilename(out.filePath(name));
                dialog.setFilterIndex(filter);
                return save;
            });
            program.control<QAction>("mnuFileSave")->trigger();
        }
        QCOMPARE(title, QStringLiteral("Filename to save to?"));
        QCOMPARE(QDir(out.path()).entryList(QDir::Files), QStringList{written});
        const QString content = read(out.filePath(written));
        if (rich)
            QVERIFY2(content.startsWith(QStringLiteral("{\\rtf")), qPrintable(content.left(40)));
        else
            QCOMPARE(content, shown + QStringLiteral("\r\n"));
        QCOMPARE(answers.count(), 0);
    }

    // Export writes "export.txt" beside the program and opens it.
    void exportOpensTheText()
    {
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        QVERIFY(program.start(QStringLiteral("KJV")));
        const QString shown = program.passage();
        support::ShellRecorder shell;
        program.control<QAction>("mnuFileExportNotepad")->trigger();
        QCOMPARE(read(m_dir.filePath(QStringLiteral("export.txt"))),
                 shown + QStringLiteral("\r\n"));
        QCOMPARE(shell.opened.size(), 1);
        QVERIFY(shell.opened.first().toLocalFile().endsWith(QStringLiteral("/export.txt")));
        QCOMPARE(answers.count(), 0);
    }

    // Replacing a file asks about the file that is written, its ending added or typed; No keeps it.
    void saveAsksBeforeReplacing_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("answer");
        QTest::newRow("ending added, No") << "plain" << int(vb::vbNo);
        QTest::newRow("ending typed, No") << "plain.txt" << int(vb::vbNo);
        QTest::newRow("ending added, Yes") << "plain" << int(vb::vbYes);
    }

    void saveAsksBeforeReplacing()
    {
        QFETCH(QString, typed);
        QFETCH(int, answer);
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        QVERIFY(program.start(QStringLiteral("KJV")));
        QTemporaryDir out;
        const QString existing = out.filePath(QStringLiteral("plain.txt"));
        writeFile(existing, "kept");
        answers.enqueue(answer);
        {
            support::FileAnswer chosen([&](clsCommonOpenDialog &dialog, bool save) {
                dialog.setFilename(out.filePath(typed));
                dialog.setFilterIndex(1);
                return save;
            });
            program.control<QAction>("mnuFileSave")->trigger();
        }
        QCOMPARE(answers.prompts(),
                 QStringList{QDir::toNativeSeparators(existing) +
                             QStringLiteral(" already exists.\r\nDo you want to replace it?")});
        QCOMPARE(answers.last().buttons & 0xF, int(vb::vbYesNo));
        QCOMPARE(QDir(out.path()).entryList(QDir::Files), QStringList{QStringLiteral("plain.txt")});
        QCOMPARE(read(existing) == QStringLiteral("kept"), answer == vb::vbNo);
    }

    void saveCancelledWritesNothing()
    {
        ProgramHarness program(m_dir.path());
        QVERIFY(program.start(QStringLiteral("KJV")));
        QTemporaryDir out;
        support::FileAnswer answer([&](clsCommonOpenDialog &dialog, bool) {
            dialog.setFilename(out.filePath(QStringLiteral("cancelled")));
            return false;
        });
        program.control<QAction>("mnuFileSave")->trigger();
        QVERIFY(QDir(out.path()).isEmpty());
    }

    void helpMenu()
    {
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        QVERIFY(program.start(QStringLiteral("KJV")));
        support::ShellRecorder shell;
        // No help file: the manual that comes with the program.
        program.control<QAction>("mnuHelpContents")->trigger();
        QVERIFY(shell.opened.last().toLocalFile().endsWith(QStringLiteral("help/index.html")));
        writeFile(m_dir.filePath(QStringLiteral("help/bible.chm")), "chm");
        program.control<QAction>("mnuHelpContents")->trigger();
        QVERIFY(shell.opened.last().toLocalFile().endsWith(QStringLiteral("help/bible.chm")));
        QFile::remove(m_dir.filePath(QStringLiteral("help/bible.chm")));

        // The mailing list asks first; only Yes opens the site.
        answers.enqueue(vb::vbNo);
        answers.enqueue(vb::vbYes);
        program.control<QAction>("mnuHelpMailingList")->trigger();
        QCOMPARE(shell.opened.size(), 2);
        program.control<QAction>("mnuHelpMailingList")->trigger();
        QCOMPARE(shell.opened.size(), 3);
        QCOMPARE(shell.opened.last().toString(), QStringLiteral("https://quillstone.example.org/"));
        QCOMPARE(answers.last().title, QStringLiteral("Mailing List"));
        QCOMPARE(answers.last().buttons,
                 int(vb::vbQuestion | vb::vbYesNo | vb::vbMsgBoxSetForeground));
        QVERIFY(answers.last().prompt.startsWith(QStringLiteral("The mailinglist is designed")));
    }

    // With nothing on the desktop to open a file or address, the reader is told which one.
    void desktopCannotOpen_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<QString>("named");
        QTest::newRow("export") << "mnuFileExportNotepad"
                                << "/export.txt";
        QTest::newRow("help") << "mnuHelpContents"
                              << "help/index.html";
        QTest::newRow("web site") << "mnuHelpWebSite"
                                  << "https://quillstone.example.org/";
        QTest::newRow("mailing list") << "mnuHelpMailingList"
                                      << "https://quillstone.example.org/";
    }

    void desktopCannotOpen()
    {
        QFETCH(QString, action);
        QFETCH(QString, named);
        platform::MsgBoxAnswerer
            answers; // the mailing list's question gets Yes, as unanswered boxes do
        ProgramHarness program(m_dir.path());
        QVERIFY(program.start(QStringLiteral("KJV")));
        support::ShellRecorder shell(false);
        program.control<QAction>(qPrintable(action))->trigger();
        QCOMPARE(shell.opened.size(), 1);
        QVERIFY2(answers.last().prompt.contains(named), qPrintable(answers.last().prompt));
        QCOMPARE(answers.last().buttons, int(vb::vbExclamation));
    }

    void aboutBox()
    {
        QTemporaryDir dir;
        QFile credits(dir.filePath(QStringLiteral("CREDITS.md")));
        QVERIFY(credits.open(QIODevice::WriteOnly));
        credits.write("# Credits\n\nThanks to *everyone* who helped.\n");
        credits.close();

        support::ShellRecorder shellOpens;
        frmAbout about(dir.filePath(QStringLiteral("CREDITS.md")));
        about.show();
        QCOMPARE(about.findChild<QLabel *>(QStringLiteral("lblVersion"))->text(),
                 QStringLiteral("1.0.0"));
        QVERIFY(about.findChild<QTextEdit *>()->toPlainText().contains(
            QStringLiteral("Thanks to everyone")));

        QTest::mouseClick(about.findChild<QLabel *>(QStringLiteral("Label3")), Qt::LeftButton);
        QTest::mouseClick(about.findChild<QLabel *>(QStringLiteral("Label4")), Qt::LeftButton);
        QCOMPARE(shellOpens.opened,
                 (QList<QUrl>{QUrl(QStringLiteral("mailto:support@quillstone.example.org")),
                              QUrl(QStringLiteral("https://quillstone.example.org/"))}));
        QTest::mouseClick(about.findChild<QPushButton *>(QStringLiteral("cmdOK")), Qt::LeftButton);
        QCOMPARE(about.result(), int(QDialog::Accepted));
        QVERIFY(!about.isVisible());

        frmAbout missing(dir.filePath(QStringLiteral("nothing.md")));
        QVERIFY(missing.findChild<QTextEdit *>()->toPlainText().contains(
            QStringLiteral("could not be found")));
    }
};

QTEST_MAIN(TestFileEdit)
#include "tst_fileedit.moc"
