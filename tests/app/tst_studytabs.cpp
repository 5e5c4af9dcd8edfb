// The notes and commentary tabs, used as a reader would: typing and formatting notes, saving
// them, leaving them unsaved, changing chapter with unsaved notes, and the commentary beside them.
#include "../support/HookGuards.h"
#include "../support/ProgramHarness.h"
#include "../support/TranslationFixture.h"
#include "platform/MsgBoxAnswerer.h"
#include "platform/RichTextBox.h"

#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

using namespace fixture;
using support::ProgramHarness;

namespace {

const QString kPrompt = QStringLiteral("You have not saved your notes changes, If you switch tabs "
                                       "now, you will lose any changes you have saved\r\n"
                                       "Would you like to save your changes so far?");

int tabIndex(QTabWidget *tabs, const QString &caption)
{
    for (int i = 0; i < tabs->count(); ++i)
        if (tabs->tabText(i) == caption)
            return i;
    return -1;
}

} // namespace

class TestStudyTabs : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    QString johnNotes() const { return m_dir.filePath(QStringLiteral("notes/newtest/JOHN.dat")); }

    // Starts on John 3 with the given tab shown.
    void open(ProgramHarness &program, const QString &tab = QString())
    {
        QVERIFY(program.start(QStringLiteral("TEST")));
        program.getReference(QStringLiteral("John 3"));
        if (!tab.isEmpty())
            showTab(program, tab);
    }

    void showTab(ProgramHarness &program, const QString &caption)
    {
        auto *tabs = program.control<QTabWidget>("SSTab1");
        tabs->setCurrentIndex(tabIndex(tabs, caption));
    }

    void type(ProgramHarness &program, const QString &text)
    {
        auto *notes = program.control<platform::RichTextBox>("rtfNotes");
        notes->setFocus();
        notes->moveCursor(QTextCursor::End);
        const QStringList lines = text.split(u'\n');
        for (qsizetype i = 0; i < lines.size(); ++i) {
            if (i > 0)
                QTest::keyClick(notes, Qt::Key_Return);
            QTest::keyClicks(notes, lines.at(i));
        }
    }

private slots:
    void initTestCase()
    {
        makeTranslation(m_dir.path(), QStringLiteral("TEST"), wholeBible(),
                        QStringLiteral("Test Version"));
        makeCommentary(m_dir.path());
        writeFile(m_dir.filePath(QStringLiteral("window.ini")), "[load]\r\nautoload=0\r\n");
    }

    void init()
    {
        // Chapters 1 and 2 of John hold notes of their own, in bytes no rewrite may touch.
        writeFile(johnNotes(),
                  "CHAPTER 1\r\nfirst \xE9 notes\r\nCHAPTER 2\n{\\rtf1 two}\r\nCHAPTER 3\r\n");
    }

    void typedNotesSurviveSaveAndRestart()
    {
        QString shown;
        {
            ProgramHarness program(m_dir.path());
            open(program, QStringLiteral("Notes"));
            QCOMPARE(program.title(), QStringLiteral("Notes For: JOHN 3"));
            auto *notes = program.control<platform::RichTextBox>("rtfNotes");
            QVERIFY(notes->Text().isEmpty());

            type(program, QStringLiteral("Born again"));
            notes->setSelStart(0);
            notes->setSelLength(4);
            QTest::mouseClick(program.control<QToolButton>("cmdBold"), Qt::LeftButton);
            {
                support::ColorAnswer red([](clsCommonColorDialog &dialog) {
                    dialog.setColor(0x0000C0);
                    return true;
                });
                notes->setSelStart(5);
                notes->setSelLength(5);
                QTest::mouseClick(program.control<QToolButton>("cmdColor"), Qt::LeftButton);
            }
            // Lines a book file would take for chapter markers, and text that is not Latin.
            type(program, QStringLiteral("\nCHAPTER 2\nchapter 7 begins here\n}\n"));
            // Keys for letters beyond Latin come from an input method, which inserts the text.
            notes->insertPlainText(QStringLiteral("Ἐν ἀρχῇ ἦν ὁ λόγος"));
            QTest::mouseClick(program.control<QPushButton>("cmdSaveNotes"), Qt::LeftButton);
            shown = notes->TextRTF();
        }
        // The other chapters' bytes are as they were; chapter 3 holds the notes.
        const QByteArray file = readFile(johnNotes());
        QVERIFY(file.startsWith(
            "CHAPTER 1\r\nfirst \xE9 notes\r\nCHAPTER 2\n{\\rtf1 two}\r\nCHAPTER 3\r\n{\\rtf1"));
        int markers = 0;
        for (const QByteArray &line : file.split('\n'))
            markers += line.trimmed().left(7).toUpper() == "CHAPTER";
        QCOMPARE(markers, 3);

        ProgramHarness program(m_dir.path());
        open(program, QStringLiteral("Notes"));
        auto *notes = program.control<platform::RichTextBox>("rtfNotes");
        QCOMPARE(
            notes->Text(),
            QStringLiteral(
                "Born again\r\nCHAPTER 2\r\nchapter 7 begins here\r\n}\r\nἘν ἀρχῇ ἦν ὁ λόγος"));
        QCOMPARE(notes->TextRTF(), shown);
        notes->setSelStart(0);
        notes->setSelLength(4);
        QVERIFY(notes->SelBold());
        notes->setSelStart(5);
        notes->setSelLength(5);
        QCOMPARE(notes->SelColor(), QColor(0xC0, 0, 0));
        QVERIFY(!notes->SelBold());
    }

    void leavingUnsavedNotesAsks()
    {
        ProgramHarness program(m_dir.path());
        open(program, QStringLiteral("Notes"));
        const QByteArray before = readFile(johnNotes());

        // No: nothing is written, the title is back, and the next visit shows the notes as saved.
        type(program, QStringLiteral("dropped"));
        {
            platform::MsgBoxAnswerer answers({vb::vbNo});
            showTab(program, QStringLiteral("Passage"));
            QCOMPARE(answers.prompts(), QStringList{kPrompt});
            QCOMPARE(answers.last().buttons, vb::vbYesNo | vb::vbExclamation);
        }
        QCOMPARE(program.title(), QStringLiteral("JOHN 3"));
        QCOMPARE(readFile(johnNotes()), before);
        showTab(program, QStringLiteral("Notes"));
        QVERIFY(program.control<platform::RichTextBox>("rtfNotes")->Text().isEmpty());

        // Yes: written, and the title still goes back to what it was.
        type(program, QStringLiteral("kept"));
        {
            platform::MsgBoxAnswerer answers({vb::vbYes});
            showTab(program, QStringLiteral("Passage"));
            QCOMPARE(answers.count(), 1);
        }
        QCOMPARE(program.title(), QStringLiteral("JOHN 3"));
        QVERIFY(readFile(johnNotes()).contains("kept"));

        // Saved notes leave without a question.
        platform::MsgBoxAnswerer answers;
        showTab(program, QStringLiteral("Notes"));
        showTab(program, QStringLiteral("TVC"));
        QCOMPARE(answers.count(), 0);
    }

    void changingChapterWithUnsavedNotes()
    {
        ProgramHarness program(m_dir.path());
        open(program, QStringLiteral("Notes"));
        type(program, QStringLiteral("about chapter three"));
        {
            // A click on chapter 2 asks first; the notes go to chapter 3, where they were written.
            platform::MsgBoxAnswerer answers({vb::vbYes});
            auto *chapters = program.control<QListWidget>("lstChapters");
            const QRect row = chapters->visualItemRect(chapters->item(1));
            QTest::mouseClick(chapters->viewport(), Qt::LeftButton, {}, row.center());
            QCOMPARE(answers.prompts(), QStringList{kPrompt});
        }
        const QByteArray file = readFile(johnNotes());
        QVERIFY(file.indexOf("about chapter three") > file.indexOf("CHAPTER 3"));
        // The tab follows the new chapter.
        QCOMPARE(program.title(), QStringLiteral("Notes For: JOHN 2"));
        QCOMPARE(program.control<platform::RichTextBox>("rtfNotes")->Text(), QStringLiteral("two"));

        // A typed reference and closing the window ask too; No drops the edit.
        type(program, QStringLiteral(" more"));
        {
            platform::MsgBoxAnswerer answers({vb::vbNo});
            program.getReference(QStringLiteral("Gen 1"));
            QCOMPARE(answers.count(), 1);
        }
        QCOMPARE(program.title(), QStringLiteral("Notes For: GENESIS 1"));
        type(program, QStringLiteral("in the beginning"));
        {
            platform::MsgBoxAnswerer answers({vb::vbYes});
            program.closeMain();
            QCOMPARE(answers.count(), 1);
        }
        QVERIFY(readFile(m_dir.filePath(QStringLiteral("notes/oldtest/GENESIS.dat")))
                    .contains("in the beginning"));
        QVERIFY(!readFile(johnNotes()).contains("more"));
    }

    void saveThatCannotWrite()
    {
        ProgramHarness program(m_dir.path());
        open(program, QStringLiteral("Notes"));
        const QByteArray before = readFile(johnNotes());
        // A folder where the temporary file must go: no file can be written there, not even by
        // root.
        QVERIFY(QDir().mkpath(m_dir.filePath(QStringLiteral("notes/newtest/JOHN.temp"))));
        type(program, QStringLiteral("precious"));
        {
            platform::MsgBoxAnswerer answers;
            QTest::mouseClick(program.control<QPushButton>("cmdSaveNotes"), Qt::LeftButton);
            QCOMPARE(answers.count(), 1);
            QVERIFY(
                answers.last().prompt.startsWith(QStringLiteral("Your notes could not be saved")));
        }
        QCOMPARE(readFile(johnNotes()), before);
        // Leaving and answering Yes keeps the notes on screen, since they could not be saved.
        {
            platform::MsgBoxAnswerer answers({vb::vbYes});
            showTab(program, QStringLiteral("Passage"));
            QTest::qWait(20);
        }
        QCOMPARE(program.control<QTabWidget>("SSTab1")->tabText(
                     program.control<QTabWidget>("SSTab1")->currentIndex()),
                 QStringLiteral("Notes"));
        QCOMPARE(program.control<platform::RichTextBox>("rtfNotes")->Text(),
                 QStringLiteral("precious"));
        QDir(m_dir.filePath(QStringLiteral("notes/newtest/JOHN.temp"))).removeRecursively();
    }

    void formattingButtons()
    {
        ProgramHarness program(m_dir.path());
        open(program, QStringLiteral("Notes"));
        type(program, QStringLiteral("mixed text"));
        auto *notes = program.control<platform::RichTextBox>("rtfNotes");
        notes->setSelStart(0);
        notes->setSelLength(3);
        QTest::mouseClick(program.control<QToolButton>("cmdItalic"), Qt::LeftButton);
        // Partly italic reads as not italic, and becomes italic; again, it is undone.
        notes->setSelStart(0);
        notes->setSelLength(10);
        QTest::mouseClick(program.control<QToolButton>("cmdItalic"), Qt::LeftButton);
        QVERIFY(notes->SelItalic());
        QTest::mouseClick(program.control<QToolButton>("cmdItalic"), Qt::LeftButton);
        QVERIFY(!notes->SelItalic());
        for (const char *name : {"cmdUnderline", "cmdStrikeThru"})
            QTest::mouseClick(program.control<QToolButton>(name), Qt::LeftButton);
        QVERIFY(notes->SelUnderline());
        QVERIFY(notes->SelStrikeThru());
        // A cancelled colour dialog changes nothing.
        const QColor before = notes->SelColor();
        support::ColorAnswer cancel([](clsCommonColorDialog &dialog) {
            dialog.setColor(0x00FF00);
            return false;
        });
        QTest::mouseClick(program.control<QToolButton>("cmdColor"), Qt::LeftButton);
        QCOMPARE(notes->SelColor(), before);
        platform::MsgBoxAnswerer quiet({vb::vbNo});
    }

    void commentaryTab()
    {
        ProgramHarness program(m_dir.path());
        open(program, QStringLiteral("TVC"));
        auto *view = program.control<platform::RichTextBox>("rtfTVC");
        QCOMPARE(program.title(), QStringLiteral("Commentary For: JOHN 3"));
        QCOMPARE(view->Text(), QStringLiteral("Tovelian's Commentary \r\nOn John chapter 3.\r\n"));

        // The same chapter again reads no file: the commentary is still there with its file gone.
        const QString file = m_dir.filePath(QStringLiteral("tvc/newtest/JOHN.dat"));
        QVERIFY(QFile::rename(file, file + QStringLiteral(".away")));
        showTab(program, QStringLiteral("Passage"));
        QCOMPARE(program.title(), QStringLiteral("JOHN 3"));
        showTab(program, QStringLiteral("TVC"));
        QCOMPARE(view->Text(), QStringLiteral("Tovelian's Commentary \r\nOn John chapter 3.\r\n"));
        QVERIFY(QFile::rename(file + QStringLiteral(".away"), file));

        // Another chapter while the commentary is shown: it follows.
        program.control<QLineEdit>("txtReference")->setText(QStringLiteral("John 2:1"));
        QTest::mouseClick(program.control<QPushButton>("cmdGet"), Qt::LeftButton);
        QCOMPARE(program.title(), QStringLiteral("Commentary For: JOHN 2"));
        QCOMPARE(view->Text(), QStringLiteral("Tovelian's Commentary \r\nOn John chapter 2.\r\n"));
        showTab(program, QStringLiteral("Passage"));
        QCOMPARE(program.title(), QStringLiteral("JOHN 2:1"));
    }

    void noCommentaryNoTab()
    {
        QVERIFY(QFile::rename(m_dir.filePath(QStringLiteral("tvc")),
                              m_dir.filePath(QStringLiteral("tvc-away"))));
        {
            ProgramHarness program(m_dir.path());
            open(program);
            auto *tabs = program.control<QTabWidget>("SSTab1");
            QVERIFY(!tabs->isTabVisible(tabIndex(tabs, QStringLiteral("TVC"))));
        }
        QVERIFY(QFile::rename(m_dir.filePath(QStringLiteral("tvc-away")),
                              m_dir.filePath(QStringLiteral("tvc"))));
    }
};

QTEST_MAIN(TestStudyTabs)
#include "tst_studytabs.moc"
