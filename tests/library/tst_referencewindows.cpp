// The topics and stories windows, used as a reader would: a search typed and run, a result
// clicked, a topic or a story reference clicked, the tab and place they keep, and a missing file.
#include "../support/ToolWindowHarness.h"
#include "../support/TranslationFixture.h"
#include "library/MainWindowLink.h"
#include "library/frmStories.h"
#include "library/frmTopics.h"
#include "platform/MsgBoxAnswerer.h"
#include "scripture/clsBible.h"
#include "settings/ProgramSettings.h"

#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

using fixture::writeFile;

namespace {

const QByteArray kTopics = "Topics of the test\r\n"
                           "Creation|Genesis 1:1;Genesis 1:3\r\n"
                           "God is Love|1John 4:8\r\n"
                           "Godliness|1Timothy 4:8\r\n"
                           "Love of God|Genesis 2:2;Genesis 2:1\r\n"
                           "Loving kindness|Psalms 36:7\r\n";
const QByteArray kStories = "Stories of the test\r\n"
                            "The Creation|Genesis 1:1-2;Genesis 2:1\r\n"
                            "Cain and Abel|Genesis 2:3\r\n"
                            "Abel's offering|Genesis 1:3\r\n";

using support::FakeMain;

// The reference window under test, with what the tests do with its controls.
template <typename Window> class Opened : public support::OpenedWindow<Window>
{
public:
    using support::OpenedWindow<Window>::OpenedWindow;
    using support::OpenedWindow<Window>::control;

    void showTab(int index) const
    {
        this->template control<QTabWidget>("SSTab1")->setCurrentIndex(index);
    }
    void search(const QString &query) const
    {
        showTab(1);
        this->type("txtQuery", query);
        this->click("cmdSearch");
    }
};

// The lines of one section of "window.ini", as written.
QStringList iniSection(const QString &folder, const QString &section)
{
    QStringList lines;
    bool inside = false;
    const QString text =
        QString::fromUtf8(fixture::readFile(folder + QStringLiteral("/window.ini")));
    for (const QString &line : text.split(QStringLiteral("\r\n"))) {
        if (line.startsWith(u'['))
            inside = line.compare(u'[' + section + u']', Qt::CaseInsensitive) == 0;
        else if (inside && !line.isEmpty())
            lines << line;
    }
    return lines;
}

} // namespace

class TestReferenceWindows : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    FakeMain m_main;

    QString file(const QString &name) const { return m_dir.filePath(name); }
    void settings(const QByteArray &windowIni) { support::useSettings(m_dir.path(), windowIni); }

private slots:
    void initTestCase() { m_main.openGenesis(m_dir.path()); }

    void init()
    {
        writeFile(file(QStringLiteral("topics.dat")), kTopics);
        writeFile(file(QStringLiteral("stories.dat")), kStories);
        settings("[]\r\nrememberwindowsetting=0\r\n");
        m_main.shown.clear();
        m_main.references.clear();
    }

    void cleanup() { ProgramSettings::instance().rememberWindows = false; }

    void windowsOpenOnTheirLists()
    {
        Opened<frmTopics> topics(m_main);
        QCOMPARE(topics.entries("lstTopics"), (QStringList{"Creation", "God is Love", "Godliness",
                                                           "Love of God", "Loving kindness"}));
        Opened<frmStories> stories(m_main);
        QCOMPARE(stories.entries("lstStories"),
                 (QStringList{"The Creation", "Cain and Abel", "Abel's offering"}));
        QVERIFY(m_main.shown.isEmpty());
    }

    void search_data()
    {
        QTest::addColumn<QString>("query");
        QTest::addColumn<QStringList>("results");

        // The rules of the name search are the reader's; here, that the window applies them.
        QTest::newRow("words in any order and case, blanks around")
            << QStringLiteral("  GOD   Love ") << QStringList{"God is Love", "Love of God"};
        QTest::newRow("inside a longer word")
            << QStringLiteral("lov")
            << QStringList{"God is Love", "Love of God", "Loving kindness"};
        QTest::newRow("no match") << QStringLiteral("love flood") << QStringList();
    }

    void search()
    {
        QFETCH(QString, query);
        QFETCH(QStringList, results);
        Opened<frmTopics> window(m_main);
        window.search(query);
        QCOMPARE(window.entries("lstResults"), results);
        // A search shows nothing by itself.
        QCOMPARE(window.row("lstTopics"), -1);
        QVERIFY(m_main.shown.isEmpty());
    }

    void emptyQueryKeepsResults()
    {
        Opened<frmStories> window(m_main);
        window.search(QStringLiteral("abel"));
        QCOMPARE(window.entries("lstResults"), (QStringList{"Cain and Abel", "Abel's offering"}));
        window.search(QStringLiteral("   "));
        QCOMPARE(window.entries("lstResults"), (QStringList{"Cain and Abel", "Abel's offering"}));
        // Enter in the query box searches too.
        auto *edit = window.control<QLineEdit>("txtQuery");
        QTest::keyClicks(edit, QStringLiteral("offer"));
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(window.entries("lstResults"), QStringList{"Abel's offering"});
    }

    void resultSelectsItsTopic()
    {
        Opened<frmTopics> window(m_main);
        window.search(QStringLiteral("god love"));
        window.clickRow("lstResults", 1);
        QCOMPARE(window.row("lstTopics"), 3);
        QCOMPARE(m_main.shown.size(), 1);
        QCOMPARE(m_main.shown.last().title,
                 QStringLiteral("Love of God - Genesis 2:2;Genesis 2:1"));
        window.clickRow("lstResults", 0);
        QCOMPARE(window.row("lstTopics"), 1);
        QCOMPARE(m_main.shown.last().title, QStringLiteral("God is Love - 1John 4:8"));
    }

    void topicShowsEveryReference()
    {
        Opened<frmTopics> window(m_main);
        window.clickRow("lstTopics", 3);
        QCOMPARE(m_main.shown.size(), 1);
        const FakeMain::Shown shown = m_main.shown.first();
        QCOMPARE(shown.title, QStringLiteral("Love of God - Genesis 2:2;Genesis 2:1"));
        QVERIFY(shown.rtf.startsWith(QStringLiteral("{\\rtf")));
        // Both passages, in the order the topic gives them.
        const qsizetype second = shown.rtf.indexOf(QStringLiteral("Text of Genesis 2:2"));
        const qsizetype first = shown.rtf.indexOf(QStringLiteral("Text of Genesis 2:1"));
        QVERIFY(second >= 0);
        QVERIFY(first > second);
        QVERIFY(!shown.rtf.contains(QStringLiteral("Text of Genesis 2:3")));
        // The arrow keys move to the next topic and show it.
        QTest::keyClick(window.control<QListWidget>("lstTopics"), Qt::Key_Down);
        QCOMPARE(m_main.shown.size(), 2);
        QCOMPARE(m_main.shown.last().title, QStringLiteral("Loving kindness - Psalms 36:7"));
    }

    void storyListsItsReferences()
    {
        Opened<frmStories> window(m_main);
        window.clickRow("lstStories", 0);
        QCOMPARE(window.entries("lstReferences"), (QStringList{"Genesis 1:1-2", "Genesis 2:1"}));
        QVERIFY(m_main.shown.isEmpty());
        window.clickRow("lstReferences", 1);
        QCOMPARE(m_main.shown.size(), 1);
        QCOMPARE(m_main.shown.last().title, QStringLiteral("The Creation - Genesis 2:1"));
        QVERIFY(m_main.shown.last().rtf.contains(QStringLiteral("Text of Genesis 2:1")));
        QVERIFY(!m_main.shown.last().rtf.contains(QStringLiteral("Text of Genesis 1:1")));
        // The same reference clicked again is shown again.
        window.clickRow("lstReferences", 1);
        QCOMPARE(m_main.shown.size(), 2);

        // A result fills the references of its story.
        window.search(QStringLiteral("ABEL"));
        window.clickRow("lstResults", 1);
        QCOMPARE(window.row("lstStories"), 2);
        QCOMPARE(window.entries("lstReferences"), QStringList{"Genesis 1:3"});
        window.clickRow("lstReferences", 0);
        QCOMPARE(m_main.shown.last().title, QStringLiteral("Abel's offering - Genesis 1:3"));
        QVERIFY(m_main.shown.last().rtf.contains(QStringLiteral("Text of Genesis 1:3")));
        QVERIFY(m_main.references.isEmpty());
    }

    void topicsKeepOnlyTheirTab()
    {
        settings("[]\r\nrememberwindowsetting=1\r\n[topics]\r\ntab=1\r\n");
        Opened<frmTopics> window(m_main);
        QCOMPARE(window.control<QTabWidget>("SSTab1")->currentIndex(), 1);
        window.showTab(0);
        window.close();
        QCOMPARE(iniSection(m_dir.path(), QStringLiteral("topics")), QStringList{"tab=0"});
    }

    void storiesKeepTabAndPlace()
    {
        settings(
            "[]\r\nrememberwindowsetting=1\r\n[stories]\r\nleft=1500\r\ntop=1200\r\ntab=1\r\n");
        {
            Opened<frmStories> window(m_main);
            QCOMPARE(window.control<QTabWidget>("SSTab1")->currentIndex(), 1);
            window.showTab(0);
        }
        QCOMPARE(support::iniData(m_dir.path(), "stories", "tab"), 0);
        // Untouched, the place goes back as it was read.
        QCOMPARE(support::iniData(m_dir.path(), "stories", "left"), 1500);
        QCOMPARE(support::iniData(m_dir.path(), "stories", "top"), 1200);

        // Without remembered windows the tab is still restored, and the place still written.
        settings("[]\r\nrememberwindowsetting=0\r\n[stories]\r\ntab=1\r\n");
        {
            Opened<frmStories> window(m_main);
            QCOMPARE(window.control<QTabWidget>("SSTab1")->currentIndex(), 1);
        }
        const QStringList keys = iniSection(m_dir.path(), QStringLiteral("stories"));
        QVERIFY(keys.contains(QStringLiteral("tab=1")));
        QCOMPARE(keys.filter(QRegularExpression(QStringLiteral("^(left|top)="))).size(), 2);
    }

    void missingFile_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("topics");
        QTest::newRow("topics") << QStringLiteral("topics.dat") << true;
        QTest::newRow("stories") << QStringLiteral("stories.dat") << false;
    }

    void missingFile()
    {
        QFETCH(QString, name);
        QFETCH(bool, topics);
        QFile::remove(file(name));
        platform::MsgBoxAnswerer answers;
        auto check = [&](const auto &window, const char *list) {
            QCOMPARE(answers.prompts(),
                     QStringList{u'\'' + name +
                                 QStringLiteral("' is missing.  Feature will be disabled.\r\n"
                                                "Reinstall the program to restore it")});
            QCOMPARE(answers.last().buttons, int(vb::vbCritical));
            QCOMPARE(window.entries(list), QStringList());
            window.search(QStringLiteral("a"));
            QCOMPARE(window.entries("lstResults"), QStringList());
            QCOMPARE(answers.count(), 1);
        };
        if (topics)
            check(Opened<frmTopics>(m_main), "lstTopics");
        else
            check(Opened<frmStories>(m_main), "lstStories");
        QVERIFY(m_main.shown.isEmpty());
    }
};

QTEST_MAIN(TestReferenceWindows)
#include "tst_referencewindows.moc"
