// The dictionary, the Bible names and the Strong's lexicon windows, used as a reader would: typing
// and Enter, the list following what is typed, double-clicks on lists, references and numbers,
// the background click, the saved tab and check box, and files that are missing or damaged.
#include "../support/ToolWindowHarness.h"
#include "../support/TranslationFixture.h"
#include "library/MainWindowLink.h"
#include "library/frmBibleNames.h"
#include "library/frmDictionary.h"
#include "library/frmStrongLexicon.h"
#include "platform/MsgBoxAnswerer.h"
#include "scripture/clsBible.h"
#include "settings/ProgramSettings.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

using fixture::writeFile;

namespace {

const QByteArray kDictionary = "Quillstone test dictionary|not|read\r\n"
                               "Aaron|Brother of Moses.|Exodus 4:14\r\n"
                               "ABEL|A meadow.|Genesis 4:2;Luke 11:51\r\n"
                               "BABEL|Confusion.|\r\n"
                               "LOVE|Affection.|John 3:16;1John 4:8\r\n"
                               "love|A second entry, never shown.|Romans 5:5\r\n"
                               "ZION|A hill.|Psalms 2:6";
const QByteArray kNames = "Names\r\nAbel|Breath.|H1893\r\nCain|Acquired.\r\nSeth|Put.\r\n";
const QByteArray kHebrewIndex = "ab\r\nab\r\nabad\r\nElohim\r\nzayin\r\n";
const QByteArray kHebrew = "H1|\xD7\x90\xD7\x91|awb|father; see 3 and 5\r\n"
                           "H2|\xD7\x90\xD7\x91|ab|father (Chaldee)\r\n"
                           "H3|\xD7\x90\xD7\x91\xD7\x93|aw-bad'|to perish; compare 1\r\n"
                           "H4|\xD7\x90\xD7\x9C\xD7\x94\xD7\x99\xD7\x9D|el-o-heem'|plural of 1\r\n"
                           "H5|\xD7\x96\xD7\x99\xD7\x9F|zah'-yin|a letter\r\n";
const QByteArray kGreekIndex = "A\r\nAaron\r\nagape\r\n";
const QByteArray kGreek = "G1|A|al'-fah|the first letter; see "
                          "3\r\nG2|Aaron|ah-ar-ohn'|Aaron\r\nG3|agape|ag-ah'-pay|love\r\n";

using support::FakeMain;
using support::iniData;

template <typename Window> using Opened = support::OpenedWindow<Window>;

// Double-clicks the character at a position of a definition box's text.
template <typename Window>
void doubleClickText(const Opened<Window> &window, const char *box, int position)
{
    auto *edit = window.template control<QPlainTextEdit>(box);
    QTextCursor cursor(edit->document());
    cursor.setPosition(position);
    const QPoint at = edit->cursorRect(cursor).center() + QPoint(2, 0);
    QTest::mouseClick(edit->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(edit->viewport(), Qt::LeftButton, {}, at);
}

} // namespace

class TestWordWindows : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    FakeMain m_main;

    QString file(const QString &name) const { return m_dir.filePath(name); }

private slots:
    void init()
    {
        writeFile(file(QStringLiteral("Dictionary.dat")), kDictionary);
        writeFile(file(QStringLiteral("names.dat")), kNames);
        writeFile(file(QStringLiteral("strong/hebrew.idx")), kHebrewIndex);
        writeFile(file(QStringLiteral("strong/hebrew.dat")), kHebrew);
        writeFile(file(QStringLiteral("strong/greek.idx")), kGreekIndex);
        writeFile(file(QStringLiteral("strong/greek.dat")), kGreek);
        writeFile(file(QStringLiteral("window.ini")), "[]\r\nrememberwindowsetting=0\r\n");
        ProgramSettings::instance().setProgramFolder(m_dir.path());
        m_main.references.clear();
        m_main.concordance.clear();
    }

    void dictionaryLookUp_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("status");
        QTest::addColumn<QString>("definition");
        QTest::addColumn<QStringList>("references");

        QTest::newRow("lower case with blanks")
            << QStringLiteral("  love ") << QStringLiteral("Found!!!")
            << QStringLiteral("LOVE: Affection.") << QStringList{"John 3:16", "1John 4:8"};
        QTest::newRow("headword shown in capitals")
            << QStringLiteral("aaron") << QStringLiteral("Found!!!")
            << QStringLiteral("AARON: Brother of Moses.") << QStringList{"Exodus 4:14"};
        QTest::newRow("empty reference field")
            << QStringLiteral("Babel") << QStringLiteral("Found!!!")
            << QStringLiteral("BABEL: Confusion.") << QStringList();
        QTest::newRow("the last line")
            << QStringLiteral("zion") << QStringLiteral("Found!!!")
            << QStringLiteral("ZION: A hill.") << QStringList{"Psalms 2:6"};
        QTest::newRow("not there")
            << QStringLiteral("lov") << QStringLiteral("Not Found") << QString() << QStringList();
        QTest::newRow("the header is no entry")
            << QStringLiteral("Quillstone test dictionary") << QStringLiteral("Not Found")
            << QString() << QStringList();
    }

    void dictionaryLookUp()
    {
        QFETCH(QString, typed);
        QFETCH(QString, status);
        QFETCH(QString, definition);
        QFETCH(QStringList, references);
        Opened<frmDictionary> window(m_main);
        // Something shown before is cleared by the next look-up.
        window->FindWord(QStringLiteral(" abel "));
        QCOMPARE(window.text("txtWord"), QStringLiteral("abel"));
        QCOMPARE(window.entries("lstReferences"), (QStringList{"Genesis 4:2", "Luke 11:51"}));

        window.type("txtWord", typed, true);
        QCOMPARE(window.text("lblStatus"), status);
        QCOMPARE(window.text("txtDefinition"), definition);
        QCOMPARE(window.entries("lstReferences"), references);
        // Typing next replaces the word.
        QCOMPARE(window.control<QLineEdit>("txtWord")->selectedText(), typed);
    }

    void dictionaryListFollowsTyping()
    {
        Opened<frmDictionary> window(m_main);
        QCOMPARE(window.entries("lstWords"),
                 (QStringList{"Aaron", "ABEL", "BABEL", "LOVE", "love", "ZION"}));
        auto *word = window.control<QLineEdit>("txtWord");
        // Each text typed into the emptied box, key by key: untrimmed text that matches nothing
        // leaves the selection where it was, and an empty box matches the first entry.
        const QList<std::pair<QString, int>> typed = {
            {"l", 3}, {"lovx", 3}, {"", 0}, {" z", 0}, {"ZI", 5}};
        for (const auto &[text, row] : typed) {
            word->clear();
            QTest::keyClicks(word, text);
            QCOMPARE(window.row("lstWords"), row);
        }
        // The arrows move the selection within the list and look nothing up.
        const struct
        {
            Qt::Key key;
            int row;
        } arrows[] = {{Qt::Key_Down, 5}, {Qt::Key_Up, 4}, {Qt::Key_Up, 3}, {Qt::Key_Up, 2},
                      {Qt::Key_Up, 1},   {Qt::Key_Up, 0}, {Qt::Key_Up, 0}, {Qt::Key_Down, 1}};
        for (const auto &arrow : arrows) {
            QTest::keyClick(word, arrow.key);
            QCOMPARE(window.row("lstWords"), arrow.row);
        }
        QCOMPARE(window.text("txtWord"), QStringLiteral("ZI"));
        QCOMPARE(window.text("lblStatus"), QString());
        QCOMPARE(window.text("txtDefinition"), QString());

        // Coming back to the box selects the whole word, so that typing replaces it.
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        window.control<QListWidget>("lstWords")->setFocus();
        word->deselect();
        word->setFocus(Qt::OtherFocusReason);
        QCOMPARE(word->selectedText(), QStringLiteral("ZI"));
    }

    void dictionaryDoubleClicks()
    {
        Opened<frmDictionary> window(m_main);
        // The second "love" fills the box, and the first in the file is the one shown.
        window.doubleClickRow("lstWords", 4);
        QCOMPARE(window.text("txtWord"), QStringLiteral("love"));
        QCOMPARE(window.text("txtDefinition"), QStringLiteral("LOVE: Affection."));
        window.doubleClickRow("lstReferences", 1);
        QCOMPARE(m_main.references, QStringList{"1John 4:8"});
        QVERIFY(window->isVisible());
    }

    void backgroundClickCounts()
    {
        platform::MsgBoxAnswerer answers;
        {
            Opened<frmDictionary> dictionary(m_main);
            QVERIFY(!dictionary->childAt(2, 2));
            QTest::mouseClick(dictionary.get(), Qt::LeftButton, {}, QPoint(2, 2));
            // A click on a control is no click on the window.
            QTest::mouseClick(dictionary.control<QLabel>("lblStatus"), Qt::LeftButton);
        }
        {
            Opened<frmBibleNames> names(m_main);
            QTest::mouseClick(names.get(), Qt::LeftButton, {}, QPoint(2, 2));
        }
        QCOMPARE(answers.prompts(), (QStringList{"There are 6 words in the database",
                                                 "There are 3 names in the database"}));
        QCOMPARE(answers.last().buttons, int(vb::vbOKOnly));
    }

    void namesLookUp()
    {
        Opened<frmBibleNames> window(m_main);
        QCOMPARE(window.entries("lstNames"), (QStringList{"Abel", "Cain", "Seth"}));
        QVERIFY(!window->findChild<QListWidget *>(QStringLiteral("lstReferences")));
        window.type("txtWord", QStringLiteral(" cain"), true);
        QCOMPARE(window.text("lblStatus"), QStringLiteral("Found!!!"));
        QCOMPARE(window.text("txtDefinition"), QStringLiteral("CAIN: Acquired."));
        QCOMPARE(window.row("lstNames"), -1); // the blank in front matches no name
        window.type("txtWord", QStringLiteral("Enoch"), true);
        QCOMPARE(window.text("lblStatus"), QStringLiteral("Not Found!"));
        QCOMPARE(window.text("txtDefinition"), QString());
        window.doubleClickRow("lstNames", 0);
        QCOMPARE(window.text("txtDefinition"), QStringLiteral("ABEL: Breath."));
        QCOMPARE(window.row("lstNames"), 0);
    }

    void namesFileMissing()
    {
        QFile::remove(file(QStringLiteral("names.dat")));
        platform::MsgBoxAnswerer answers;
        Opened<frmBibleNames> window(m_main);
        QCOMPARE(answers.prompts(),
                 QStringList{m_dir.path() +
                             QStringLiteral("/names.dat is missing.  Feature will be "
                                            "disabled.\r\nReinstall the program to restore it")});
        QCOMPARE(answers.last().buttons, int(vb::vbCritical));
        QCOMPARE(window.entries("lstNames"), QStringList());

        // Find cannot open the file: said as an error, and the window stays.
        window.type("txtWord", QStringLiteral("Abel"), true);
        QCOMPARE(answers.count(), 2);
        QVERIFY(
            answers.last().prompt.startsWith(QStringLiteral("Err #53 ocurred(File not found: ")));
        QCOMPARE(window.text("lblStatus"), QStringLiteral("Not Found!"));
        QVERIFY(window->isVisible());
    }

    void lexiconListsReadWhenShown()
    {
        {
            Opened<frmStrongLexicon> window(m_main);
            QCOMPARE(window.entries("lstHebrewWords").size(), 5);
            QCOMPARE(window.entries("lstGreekWords"), QStringList());
            // Written after the window opened, and still what the Greek tab shows.
            writeFile(file(QStringLiteral("strong/greek.idx")), "Alpha\r\n" + kGreekIndex);
            QTabBar *tabs = window.control<QTabWidget>("SSTab1")->tabBar();
            QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(1).center());
            QCOMPARE(window.entries("lstGreekWords").first(), QStringLiteral("Alpha"));
        }
        // Saved on the Greek tab, the window opens on it and leaves Hebrew unread.
        QCOMPARE(iniData(m_dir.path(), "strong", "tab"), 1);
        Opened<frmStrongLexicon> again(m_main);
        QCOMPARE(again.control<QTabWidget>("SSTab1")->currentIndex(), 1);
        QCOMPARE(again.entries("lstGreekWords").size(), 4);
        QCOMPARE(again.entries("lstHebrewWords"), QStringList());
    }

    void lexiconFind_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("definition");
        QTest::addColumn<QString>("word");
        QTest::addColumn<int>("row");

        QTest::newRow("1 is the first entry")
            << QStringLiteral("1") << QStringLiteral("1 - אב (awb) : father; see 3 and 5")
            << QStringLiteral("1") << 0;
        QTest::newRow("the definition line of entry 4")
            << QStringLiteral("4") << QStringLiteral("4 - אלהים (el-o-heem') : plural of 1")
            << QStringLiteral("4") << 3;
        QTest::newRow("past the end: the last entry and its number")
            << QStringLiteral("99") << QStringLiteral("5 - זין (zah'-yin) : a letter")
            << QStringLiteral("5") << 4;
        QTest::newRow("0 is a word, and none starts with it")
            << QStringLiteral("0") << QString() << QStringLiteral("0") << -1;
        QTest::newRow("a word by its beginning")
            << QStringLiteral("ELO") << QStringLiteral("4 - אלהים (el-o-heem') : plural of 1")
            << QStringLiteral("Elohim") << 3;
        QTest::newRow("a word beginning with letters")
            << QStringLiteral("aba3") << QString() << QStringLiteral("aba3") << -1;
    }

    void lexiconFind()
    {
        QFETCH(QString, typed);
        QFETCH(QString, definition);
        QFETCH(QString, word);
        QFETCH(int, row);
        Opened<frmStrongLexicon> window(m_main);
        window.type("txtHebrewWord", typed);
        window.click("cmdFind");
        QCOMPARE(window.text("txtHebrewDefinition"), definition);
        QCOMPARE(window.text("txtHebrewWord"), word);
        QCOMPARE(window.row("lstHebrewWords"), row);
        // The line reads from the left, its number first, although the Hebrew word follows it.
        auto *box = window.control<QPlainTextEdit>("txtHebrewDefinition");
        QVERIFY(box->cursorRect(QTextCursor(box->document())).left() <
                box->viewport()->width() / 4);
    }

    void lexiconDoubleClicks()
    {
        Opened<frmStrongLexicon> window(m_main);
        // A number in a Hebrew definition shows that entry.
        window.type("txtHebrewWord", QStringLiteral("1"), true);
        const QString first = window.text("txtHebrewDefinition");
        doubleClickText(window, "txtHebrewDefinition", int(first.indexOf(u'3')));
        QCOMPARE(window.text("txtHebrewDefinition"),
                 QStringLiteral("3 - אבד (aw-bad') : to perish; compare 1"));
        QCOMPARE(window.row("lstHebrewWords"), 2);
        QCOMPARE(window.text("txtHebrewWord"), QStringLiteral("abad"));

        // The second of two equal words stays the one chosen, and its number is what Find All
        // Occurrences sends.
        window.doubleClickRow("lstHebrewWords", 1);
        QCOMPARE(window.text("txtHebrewDefinition"),
                 QStringLiteral("2 - אב (ab) : father (Chaldee)"));
        QCOMPARE(window.text("txtHebrewWord"), QStringLiteral("ab"));
        window.click("cmdFindAllHeb");
        QCOMPARE(m_main.concordance, QStringList{"H2"});

        // The same in a Greek definition does nothing.
        window.control<QTabWidget>("SSTab1")->setCurrentIndex(1);
        window.type("txtGreekWord", QStringLiteral("1"));
        window.click("cmdFindGreek");
        const QString greek = window.text("txtGreekDefinition");
        QCOMPARE(greek, QStringLiteral("1 - A (al'-fah) : the first letter; see 3"));
        doubleClickText(window, "txtGreekDefinition", int(greek.lastIndexOf(u'3')));
        QCOMPARE(window.text("txtGreekDefinition"), greek);
        QCOMPARE(window.row("lstGreekWords"), 0);
        window.click("cmdFindAllGreek");
        QCOMPARE(m_main.concordance, (QStringList{"H2", "G1"}));
    }

    void findAllWithoutSelection()
    {
        Opened<frmStrongLexicon> window(m_main);
        window.click("cmdFindAllHeb"); // an empty word box sends nothing
        window.type("txtHebrewWord", QStringLiteral("qq"), true);
        window.click("cmdFindAllHeb");
        QCOMPARE(m_main.concordance, QStringList{"H0"});
    }

    void highlightWhileTyping()
    {
        Opened<frmStrongLexicon> window(m_main);
        auto *highlight = window.control<QCheckBox>("chkHighlightWord");
        QVERIFY(!highlight->isChecked());
        window.type("txtHebrewWord", QStringLiteral("eL"));
        QCOMPARE(window.row("lstHebrewWords"), -1);
        QTest::mouseClick(highlight, Qt::LeftButton, {}, QPoint(4, highlight->height() / 2));
        QVERIFY(highlight->isChecked());
        window.type("txtHebrewWord", QStringLiteral("z"));
        QCOMPARE(window.row("lstHebrewWords"), 4);
        QCOMPARE(window.text("txtHebrewDefinition"), QString());
    }

    void showNumber_data()
    {
        QTest::addColumn<QString>("number");
        QTest::addColumn<int>("tab");
        QTest::addColumn<QString>("word");
        QTest::addColumn<QString>("definition");

        QTest::newRow("H") << QStringLiteral("H4") << 0 << QStringLiteral("4")
                           << QStringLiteral("4 - אלהים (el-o-heem') : plural of 1");
        QTest::newRow("only H is Hebrew") << QStringLiteral("h2") << 1 << QStringLiteral("2")
                                          << QStringLiteral("2 - Aaron (ah-ar-ohn') : Aaron");
    }

    void showNumber()
    {
        QFETCH(QString, number);
        QFETCH(int, tab);
        QFETCH(QString, word);
        QFETCH(QString, definition);
        Opened<frmStrongLexicon> window(m_main);
        window->ShowNumber(number);
        QCOMPARE(window.control<QTabWidget>("SSTab1")->currentIndex(), tab);
        const char *box = tab == 0 ? "txtHebrewWord" : "txtGreekWord";
        QCOMPARE(window.text(box), word);
        QCOMPARE(window.text(tab == 0 ? "txtHebrewDefinition" : "txtGreekDefinition"), definition);
    }

    void windowsKeepTheirPlaces()
    {
        writeFile(file(QStringLiteral("window.ini")),
                  "[]\r\nrememberwindowsetting=0\r\n[strong]\r\nhighlightword=1\r\n");
        {
            Opened<frmDictionary> dictionary(m_main);
            Opened<frmBibleNames> names(m_main);
            Opened<frmStrongLexicon> lexicon(m_main);
            QVERIFY(lexicon.control<QCheckBox>("chkHighlightWord")->isChecked());
            lexicon.control<QCheckBox>("chkHighlightWord")->setChecked(false);
            dictionary->move(10, 20);
            names->move(30, 40);
            lexicon->move(50, 60);
        }
        // Each in its own section, in twips (15 to a pixel).
        const struct
        {
            const char *section;
            int left, top;
        } places[] = {{"dictionary", 150, 300}, {"biblenames", 450, 600}, {"strong", 750, 900}};
        for (const auto &[section, left, top] : places) {
            QCOMPARE(iniData(m_dir.path(), section, "left"), left);
            QCOMPARE(iniData(m_dir.path(), section, "top"), top);
        }
        QCOMPARE(iniData(m_dir.path(), "strong", "highlightword"), 0);
        QCOMPARE(iniData(m_dir.path(), "strong", "tab"), 0);
    }

    void damagedLexicon()
    {
        QFile::remove(file(QStringLiteral("strong/hebrew.idx")));
        writeFile(file(QStringLiteral("strong/greek.dat")), "G1|A|al'-fah|the first letter\r\n");
        platform::MsgBoxAnswerer answers;
        Opened<frmStrongLexicon> window(m_main);
        QCOMPARE(answers.count(), 1);
        QVERIFY(answers.last().prompt.endsWith(
            QStringLiteral("hebrew.idx is missing.  Feature will be "
                           "disabled.\r\nReinstall the program to restore it")));
        window.type("txtHebrewWord", QStringLiteral("7"), true);
        QCOMPARE(window.text("txtHebrewDefinition"), QString());
        // A data file shorter than its index.
        window->ShowNumber(QStringLiteral("G3"));
        QCOMPARE(answers.count(), 2);
        QCOMPARE(answers.last().prompt, QStringLiteral("Err #62 ocurred(Input past end of file)"));
        QCOMPARE(window.text("txtGreekDefinition"), QString());
        window.control<QTabWidget>("SSTab1")->setCurrentIndex(0);
        QCOMPARE(answers.count(), 2); // the missing index is said once
    }
};

QTEST_MAIN(TestWordWindows)
#include "tst_wordwindows.moc"
