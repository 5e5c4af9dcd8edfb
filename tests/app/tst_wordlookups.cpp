// Word look-ups from the passage: the right click's word and menu, and the Strong's concordance.
#include "../support/HookGuards.h"
#include "../support/ProgramHarness.h"
#include "../support/TranslationFixture.h"
#include "platform/MsgBoxAnswerer.h"
#include "platform/RichTextBox.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QTest>

using namespace fixture;
using support::ProgramHarness;

class TestWordLookups : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    // The main window on the tagged translation, on screen, as a right click needs it.
    static bool startShown(ProgramHarness &program)
    {
        if (!program.start(QStringLiteral("TAGGED")))
            return false;
        program.main()->show();
        return QTest::qWaitForWindowExposed(program.main());
    }

    // Right-clicks the passage just after the given character of the text on display; true when
    // the menu came up. The menu is closed again, and its entries stay ready to trigger.
    static bool rightClickAt(ProgramHarness &program, const QString &near, int offset)
    {
        auto *view = program.control<platform::RichTextBox>("rtfPassage");
        const int at = int(view->Text().indexOf(near));
        if (at < 0)
            return false;
        QTextCursor cursor(view->document());
        cursor.setPosition(view->documentPosition(at + offset));
        QTest::mouseClick(view->viewport(), Qt::RightButton, {}, view->cursorRect(cursor).center());
        auto *menu = program.control<QMenu>("mnuRightClick");
        const bool shown = menu->isVisible();
        menu->hide();
        return shown;
    }

    // Asks the concordance for a number, typed into its input box.
    static void concordance(ProgramHarness &program, const QString &typed)
    {
        support::InputBoxAnswers answer({typed});
        program.control<QAction>("mnuReferencesConcordance")->trigger();
    }

    static QString caption(ProgramHarness &program)
    {
        return program.control<QAction>("mnuRightclickWord")->text();
    }

private slots:
    void initTestCase()
    {
        // A translation tagged with Strong's numbers, and one without them.
        QList<Book> tagged =
            wholeBible({{QStringLiteral("Genesis"),
                         false,
                         {QStringLiteral("CHAPTER 1"),
                          QStringLiteral("1 In the beginning God{H430} created{H1254} the heaven."),
                          QStringLiteral("2 And the LORD's spirit moved."),
                          QStringLiteral("CHAPTER 2"), QStringLiteral("1 Thus God{H430} finished."),
                          QStringLiteral("CHAPTER 3"), QStringLiteral("1 Now the serpent.")}}});
        makeTranslation(m_dir.path(), QStringLiteral("TAGGED"), tagged,
                        QStringLiteral("Tagged Version"));
        makeTranslation(m_dir.path(), QStringLiteral("PLAIN"), wholeBible(),
                        QStringLiteral("Plain Version"));
        writeFile(m_dir.filePath(QStringLiteral("window.ini")), "[load]\r\nautoload=0\r\n");
        writeFile(m_dir.filePath(QStringLiteral("bookmarks.dat")), "");
        writeFile(m_dir.filePath(QStringLiteral("Dictionary.dat")),
                  "header\r\nGOD|The supreme being.|Gen 1:1;John 1:1\r\nSPIRIT|Breath, wind.|Gen "
                  "1:2\r\n");
        writeFile(m_dir.filePath(QStringLiteral("names.dat")), "header\r\nAdam|Earthy; red\r\n");
        writeFile(m_dir.filePath(QStringLiteral("topics.dat")), "header\r\nCreation|Gen 1:1\r\n");
        writeFile(m_dir.filePath(QStringLiteral("stories.dat")),
                  "header\r\nThe creation|Gen 1:1\r\n");
        QStringList hebrew, hebrewIndex;
        for (int n = 1; n <= 500; ++n) {
            hebrewIndex << QStringLiteral("word%1").arg(n);
            hebrew << QStringLiteral("H%1|word%1|wurd|meaning %1").arg(n);
        }
        writeFile(m_dir.filePath(QStringLiteral("strong/hebrew.idx")), crlf(hebrewIndex));
        writeFile(m_dir.filePath(QStringLiteral("strong/hebrew.dat")), crlf(hebrew));
        writeFile(m_dir.filePath(QStringLiteral("strong/greek.idx")), "agape\r\n");
        writeFile(m_dir.filePath(QStringLiteral("strong/greek.dat")),
                  "G1|agape|ag-ah'-pay|love\r\n");
    }

    void lookupsOpenTheirWindowsOnce()
    {
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        QVERIFY(startShown(program));

        QVERIFY(rightClickAt(program, QStringLiteral("spirit"), 2));
        program.control<QAction>("mnuRightclickDictionary")->trigger();
        auto *dictionary = program.main()->findChild<QWidget *>(QStringLiteral("frmDictionary"));
        QVERIFY(dictionary && dictionary->isVisible());
        QCOMPARE(
            dictionary->findChild<QPlainTextEdit *>(QStringLiteral("txtDefinition"))->toPlainText(),
            QStringLiteral("SPIRIT: Breath, wind."));
        // A second look-up uses the same window.
        QVERIFY(rightClickAt(program, QStringLiteral("beginning God"), 11));
        program.control<QAction>("mnuRightclickDictionary")->trigger();
        QCOMPARE(program.main()->findChildren<QWidget *>(QStringLiteral("frmDictionary")).size(),
                 1);
        QCOMPARE(
            dictionary->findChild<QPlainTextEdit *>(QStringLiteral("txtDefinition"))->toPlainText(),
            QStringLiteral("GOD: The supreme being."));

        // A Strong's number opens the lexicon on the Hebrew tab with the number.
        QVERIFY(rightClickAt(program, QStringLiteral("H430"), 1));
        program.control<QAction>("mnuRightclickStrongLexicon")->trigger();
        auto *lexicon = program.main()->findChild<QWidget *>(QStringLiteral("frmStrongLexicon"));
        QVERIFY(lexicon && lexicon->isVisible());
        QCOMPARE(lexicon->findChild<QLineEdit *>(QStringLiteral("txtHebrewWord"))->text(),
                 QStringLiteral("430"));
        QVERIFY(lexicon->findChild<QPlainTextEdit *>(QStringLiteral("txtHebrewDefinition"))
                    ->toPlainText()
                    .startsWith(QStringLiteral("430 - word430 (wurd) : meaning 430")));
        QCOMPARE(answers.count(), 0);
    }

    void rightClickTakesTheWord()
    {
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        QVERIFY(startShown(program));
        auto *view = program.control<platform::RichTextBox>("rtfPassage");

        // The apostrophe ends the word.
        QVERIFY(rightClickAt(program, QStringLiteral("LORD's"), 2));
        QCOMPARE(view->SelText(), QStringLiteral("LORD"));
        QCOMPARE(caption(program), QStringLiteral("<LORD>"));

        // A Strong's number between braces.
        view->setSelStart(0);
        QVERIFY(rightClickAt(program, QStringLiteral("H430"), 1));
        QCOMPARE(view->SelText(), QStringLiteral("H430"));

        // A selection is taken as it is, a long one shown by its two ends.
        const int start = int(view->Text().indexOf(QStringLiteral("In the beginning")));
        view->setSelStart(start);
        view->setSelLength(50);
        const QString selected = view->SelText();
        QVERIFY(rightClickAt(program, QStringLiteral("beginning"), 3));
        QCOMPARE(caption(program),
                 u'<' + selected.left(20) + QStringLiteral("...") + selected.right(20) + u'>');
    }

    void rightClickEntriesUseTheWord()
    {
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        QVERIFY(startShown(program));
        QVERIFY(rightClickAt(program, QStringLiteral("spirit"), 1));
        program.control<QAction>("mnuRightclickCopy")->trigger();
        QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("spirit"));
        program.control<QAction>("mnuRightclickSearch")->trigger();
        QCOMPARE(program.control<QLineEdit>("txtQuery")->text(), QStringLiteral("spirit"));
        QCOMPARE(program.title(), QStringLiteral("Search results for \"spirit\" (1 matches)"));
        program.getReference(QStringLiteral("Gen 2"));
        QVERIFY(rightClickAt(program, QStringLiteral("Thus"), 1));
        QCOMPARE(caption(program), QStringLiteral("<Thus>"));
        program.getReference(QStringLiteral("John 1"));
        auto *view = program.control<platform::RichTextBox>("rtfPassage");
        view->setSelStart(0);
        view->setSelLength(0);
        QVERIFY(rightClickAt(program, QStringLiteral("JOHN 1"), 1));
        program.control<QAction>("mnuRightClickLookupReference")->trigger();
        QCOMPARE(program.control<QLineEdit>("txtReference")->text(), QStringLiteral("JOHN"));
        QCOMPARE(program.title(), QStringLiteral("JOHN 1"));
    }

    void strongConcordance()
    {
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        QVERIFY(program.start(QStringLiteral("TAGGED")));
        concordance(program, QStringLiteral(" h0430 "));
        QCOMPARE(program.title(), QStringLiteral("Search results for \"H430\" (2 matches)"));
        QCOMPARE(
            program.passage(),
            // The first line of a book file is never searched, so its chapter is not known yet.
            QStringLiteral(
                "Genesis :1 In the beginning God{H430} created{H1254} the heaven.\r\n\r\n"
                "Genesis 2:1 Thus God{H430} finished.\r\n\r\n"));
        // Not a number: said so, nothing searched.
        concordance(program, QStringLiteral("430"));
        QCOMPARE(answers.count(), 1);
        QVERIFY(answers.last().prompt.contains(QStringLiteral("is not a Strong's number")));

        // A translation without numbers: the tagged one is searched, and the title says so.
        QVERIFY(program.chooseTranslation(QStringLiteral("Plain Version")));
        concordance(program, QStringLiteral("G26"));
        QCOMPARE(program.title(),
                 QStringLiteral("Search results for \"G26\" in Tagged Version (0 matches)"));
        concordance(program, QStringLiteral("H1254"));
        QCOMPARE(program.title(),
                 QStringLiteral("Search results for \"H1254\" in Tagged Version (1 matches)"));
    }
};

QTEST_MAIN(TestWordLookups)
#include "tst_wordlookups.moc"
