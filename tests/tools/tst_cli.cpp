// The command-line front end as scripts use it: its output bytes, exit statuses and defaults.
#include "../support/CliRun.h"
#include "../support/SettingsBytes.h"
#include "../support/TranslationFixture.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace fixture;

class TestCli : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    using Run = support::CliRun;

    Run cli(const QStringList &args, const QString &dir = QString())
    {
        return support::RunCli(QStringLiteral(QS_CLI), dir.isEmpty() ? m_dir.path() : dir, args);
    }

private slots:
    void initTestCase()
    {
        makeTranslation(
            m_dir.path(), QStringLiteral("AAA"),
            {{QStringLiteral("Genesis"), false, chapters(QStringLiteral("Genesis"), {3, 2})},
             {QStringLiteral("John"), true, {"CHAPTER 1", "1 God [is] love{G26}", "2 light"}}},
            QStringLiteral("First"));
        makeTranslation(m_dir.path(), QStringLiteral("BBB"),
                        {{QStringLiteral("Exodus"), false, chapters(QStringLiteral("Exodus"), {1})},
                         {QStringLiteral("Mark"), true, chapters(QStringLiteral("Mark"), {1})}},
                        QStringLiteral("Second"));
        writeFile(m_dir.path() + QStringLiteral("/window.ini"), "[load]\r\nversion=BBB\r\n");
    }

    void fetching()
    {
        Run r = cli({QStringLiteral("--translation"), QStringLiteral("AAA"),
                     QStringLiteral("passage"), QStringLiteral("Gen 1:2-3")});
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out,
                 QByteArray("GENESIS 1 \r\n2 Text of Genesis 1:2\r\n3 Text of Genesis 1:3\r\n"));
        QVERIFY(r.err.isEmpty());

        r = cli({QStringLiteral("--translation"), QStringLiteral("AAA"), QStringLiteral("standard"),
                 QStringLiteral("gen 2-1")});
        QCOMPARE(r.out, QByteArray("GENESIS 1-2\n"));

        r = cli({QStringLiteral("--translation"), QStringLiteral("AAA"), QStringLiteral("rtf"),
                 QStringLiteral("John 1:1")});
        QCOMPARE(r.out, QByteArray("{\\rtf {\\colortbl ;\\red255\\green0\\blue0;}JOHN 1 \\par 1 "
                                   "God \\i is \\i0 love{\\super {\\fs0 '}G26}\\par }"));

        r = cli({QStringLiteral("--translation"), QStringLiteral("AAA"), QStringLiteral("passage"),
                 QStringLiteral("Nahum 1")});
        QCOMPARE(r.status, 2);
        QVERIFY(r.out.isEmpty());
        QVERIFY(!r.err.isEmpty());

        // The translation saved in window.ini is the default; --dir overrides the environment.
        r = cli({QStringLiteral("--dir"), m_dir.path(), QStringLiteral("books")},
                QStringLiteral("/nonexistent"));
        QCOMPARE(r.out, QByteArray("1\tExodus\t1\n2\tMark\t1\n"));
        r = cli({QStringLiteral("--translation"), QStringLiteral("ZZZ"), QStringLiteral("books")});
        QVERIFY(r.status != 0);
    }

    void searching()
    {
        Run r = cli({QStringLiteral("--translation"), QStringLiteral("AAA"),
                     QStringLiteral("search"), QStringLiteral("text")});
        QCOMPARE(r.status, 0);
        QVERIFY(r.out.startsWith("Genesis :1 Text of Genesis 1:1\r\n\r\n"));
        QVERIFY(r.out.endsWith("\r\n\r\nSearch results for \"text\" (5 matches)\n"));

        r = cli({QStringLiteral("--translation"), QStringLiteral("AAA"), QStringLiteral("search"),
                 QStringLiteral("--limit"), QStringLiteral("2"), QStringLiteral("text")});
        QCOMPARE(r.out.count("Text of"), 3);
        QVERIFY(r.out.endsWith("First 2 results.\n"));
        QVERIFY(r.err.contains("There were over a 2 results for your search,"));

        r = cli({QStringLiteral("--translation"), QStringLiteral("AAA"), QStringLiteral("search"),
                 QStringLiteral("--word"), QStringLiteral("lov")});
        QCOMPARE(r.out, QByteArray("Search results for \"lov\" (0 matches)\n"));

        // A query of several arguments is one query.
        r = cli({QStringLiteral("--translation"), QStringLiteral("AAA"), QStringLiteral("search"),
                 QStringLiteral("of"), QStringLiteral("genesis"), QStringLiteral("2:1")});
        QCOMPARE(r.out, QByteArray("Genesis 2:1 Text of Genesis 2:1\r\n\r\nSearch results for \"of "
                                   "genesis 2:1\" (1 matches)\n"));

        // The advanced search: items, then the title; the books by number.
        const auto advanced = [&](const QStringList &args) {
            return cli(QStringList{QStringLiteral("--translation"), QStringLiteral("AAA"),
                                   QStringLiteral("search")} +
                       args);
        };
        r = advanced({QStringLiteral("--mode"), QStringLiteral("any"), QStringLiteral("light"),
                      QStringLiteral("love")});
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out, QByteArray("John 2:1\nJohn 2:2\n2 Matches\n"));
        r = advanced({QStringLiteral("--mode"), QStringLiteral("all"), QStringLiteral("--books"),
                      QStringLiteral("1"), QStringLiteral("genesis text")});
        QCOMPARE(r.out,
                 QByteArray(
                     "Genesis :1\nGenesis :2\nGenesis :3\nGenesis 2:1\nGenesis 2:2\n5 Matches\n"));
        r = advanced({QStringLiteral("--mode"), QStringLiteral("exact"), QStringLiteral("--books"),
                      QStringLiteral("2"), QStringLiteral("--limit"), QStringLiteral("0"),
                      QStringLiteral("light")});
        // Genesis not read, John's first chapter has no number before it.
        QCOMPARE(r.out, QByteArray("John :2\nToo many results!!!  Only First 0 shown\n"));
        QVERIFY(r.err.contains("There were over a 0 results for your search,"));
        r = advanced({QStringLiteral("--mode"), QStringLiteral("all"), QStringLiteral("--books"),
                      QStringLiteral("1-3"), QStringLiteral("x")});
        QVERIFY(r.status != 0);
        QVERIFY(r.err.contains("names no books"));
        r = advanced({QStringLiteral("--mode"), QStringLiteral("some"), QStringLiteral("x")});
        QVERIFY(r.status != 0);

        // The concordance searches the translation that carries the numbers and says which; like
        // the quick search it passes over a book's first line, so John's verse keeps Genesis' last
        // chapter.
        r = cli({QStringLiteral("concordance"), QStringLiteral("g026")});
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out, QByteArray("John 2:1 God [is] love{G26}\r\n\r\nSearch results for \"G26\" "
                                   "in First (1 matches)\n"));
        r = cli({QStringLiteral("concordance"), QStringLiteral("26")});
        QCOMPARE(r.status, 1);
        QVERIFY(r.err.contains("is not a Strong's number"));
    }

    void notesAndCommentary()
    {
        makeTranslation(m_dir.path(), QStringLiteral("tvc"),
                        {{QStringLiteral("Genesis"),
                          false,
                          {"CHAPTER 1", "On Genesis 1", "CHAPTER 2", "On Genesis 2"}},
                         {QStringLiteral("John"), true, {"CHAPTER 1", "On John 1"}}});
        const QString plain = m_dir.path() + QStringLiteral("/plain.txt");
        const QString rich = m_dir.path() + QStringLiteral("/rich.rtf");
        writeFile(plain, "Notes\r\nCHAPTER 2 {caf\xc3\xa9}\r\n");
        writeFile(rich, "{\\rtf1 On love}");
        const QStringList aaa = {QStringLiteral("--translation"), QStringLiteral("AAA")};
        const auto notes = [&](const QStringList &args) {
            return cli(aaa + QStringList{QStringLiteral("notes")} + args);
        };

        Run r = notes({QStringLiteral("--set"), plain, QStringLiteral("Gen 2:5")});
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out + r.err, QByteArray());
        QCOMPARE(notes({QStringLiteral("--set"), rich, QStringLiteral("John 1")}).status, 0);
        // Plain text becomes rich text, and its marker-like line is kept from reading as a marker.
        QCOMPARE(notes({QStringLiteral("Genesis 2")}).out,
                 QByteArray("{\\rtf1\\ansi\\uc1 Notes\\par\r\n{}CHAPTER 2 \\{caf\\u233?\\}}\r\n"));
        QCOMPARE(notes({QStringLiteral("jn 1:1")}).out, QByteArray("{\\rtf1 On love}\r\n"));
        r = notes({QStringLiteral("Genesis 1")});
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out, QByteArray());

        QCOMPARE(notes({QStringLiteral("Nahum 1")}).status, 2);
        r = notes({QStringLiteral("--set"), m_dir.path() + QStringLiteral("/none.txt"),
                   QStringLiteral("Gen 1")});
        QCOMPARE(r.status, 66);
        QVERIFY2(r.err.contains("does not exist"), r.err.constData());
        r = notes({QStringLiteral("--set"), plain, QStringLiteral("Gen x")});
        QCOMPARE(r.status, 1);
        QVERIFY(!r.err.isEmpty());

        r = cli(aaa + QStringList{QStringLiteral("commentary"), QStringLiteral("John 1:2")});
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out, QByteArray("Tovelian's Commentary \r\nOn John 1\r\n"));
    }

    void bookmarks()
    {
        const QString file = m_dir.path() + QStringLiteral("/bookmarks.dat");
        const QStringList aaa = {QStringLiteral("--translation"), QStringLiteral("AAA"),
                                 QStringLiteral("bookmarks")};
        const auto add = [&](const QString &name, const QString &reference) {
            return cli({QStringLiteral("bookmarks"), QStringLiteral("add"), name, reference});
        };

        // A missing file is repaired, as the window does at start-up.
        Run r = cli(aaa);
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out, QByteArray());
        QVERIFY2(r.err.contains("'bookmarks.dat' is missing from the program's directory!"),
                 r.err.constData());
        QVERIFY(QFile::exists(file));

        QCOMPARE(add(QStringLiteral("In the beginning"), QStringLiteral("gen 1:1")).status, 0);
        QCOMPARE(add(QStringLiteral("Love, light"), QStringLiteral("John 1:1-2")).status, 0);
        r = add(QStringLiteral("\"Light\""), QStringLiteral("John 1:2"));
        QCOMPARE(r.status, 1);
        QVERIFY2(r.err.contains("cannot contain a double quote"), r.err.constData());
        QCOMPARE(add(QString(), QStringLiteral("John 1")).err,
                 QByteArray("Please enter a bookmark name\n"));
        QCOMPARE(
            cli({QStringLiteral("bookmarks"), QStringLiteral("add"), QStringLiteral("x")}).status,
            64);
        QFile appended(file);
        QVERIFY(appended.open(QIODevice::ReadWrite | QIODevice::Append));
        appended.write("junk\r\n");
        appended.close();

        r = cli(aaa);
        QCOMPARE(r.status, 0);
        QCOMPARE(
            r.out,
            QByteArray(
                "In the beginning\tgen 1:1\tGENESIS 1:1\nLove, light\tJohn 1:1-2\tJOHN 1:1-2\n"));
        QVERIFY2(r.err.contains("Line 3 of 'bookmarks.dat' could not be read"), r.err.constData());

        // A book the translation lacks: the line as the store gives it, and exit status 2.
        QCOMPARE(add(QStringLiteral("Exodus"), QStringLiteral("Exodus 1")).status, 0);
        r = cli(aaa);
        QCOMPARE(r.status, 2);
        QVERIFY(r.out.endsWith("\nExodus\tExodus 1\tJOHN 1:1-2\n"));
        QCOMPARE(readFile(file),
                 QByteArray("\"In the beginning\",\"gen 1:1\"\r\n\"Love, light\",\"John 1:1-2\"\r\n"
                            "junk\r\n\"Exodus\",\"Exodus 1\"\r\n"));
    }

    void settings()
    {
        // Without the files, the defaults and a note.
        Run r = cli({QStringLiteral("settings")});
        QCOMPARE(r.status, 0);
        QVERIFY(r.out.startsWith("linebreaks=true\nmaxsearchresults=500\nnavigation.font=Arial\n"));
        QVERIFY(r.err.contains("'general.cfg' is missing") &&
                r.err.contains("'display.cfg' is missing"));

        writeFile(m_dir.path() + QStringLiteral("/general.cfg"), le(0, 2) + le(1200, 2));
        // A system colour without a name (25) is shown as stored.
        writeFile(m_dir.path() + QStringLiteral("/display.cfg"),
                  styleBytes(qint32(0x80000005), 0x0000FF, "DejaVu Sans", 10, 0, -1) +
                      styleBytes(qint32(0x80000019), 0, "Times New Roman", 12, 0, 0) +
                      styleBytes(qint32(0x8000000F), qint32(0x80000012), "Arial", 12, -1, 0) +
                      le(0x00123456));
        r = cli({QStringLiteral("settings")});
        QCOMPARE(r.err, QByteArray());
        QCOMPARE(
            r.out,
            QByteArray(
                "linebreaks=false\nmaxsearchresults=1200\n"
                "navigation.font=DejaVu Sans\nnavigation.size=10\nnavigation.bold=false\n"
                "navigation.italic=true\nnavigation.forecolor=#ff0000\nnavigation.backcolor="
                "window\n"
                "passage.font=Times New Roman\npassage.size=12\npassage.bold=false\n"
                "passage.italic=false\npassage.forecolor=#000000\npassage.backcolor=0x80000019\n"
                "title.font=Arial\ntitle.size=12\ntitle.bold=true\ntitle.italic=false\n"
                "title.forecolor=buttontext\ntitle.backcolor=buttonface\nrightclickcolor=#"
                "563412\n"));
    }

    void wordStudy_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("out");

        QTest::newRow("dictionary") << QStringList{"dictionary", " love "} << 0
                                    << QByteArray("LOVE: Affection.\nJohn 3:16\n 1John 4:8\n");
        QTest::newRow("dictionary, no references")
            << QStringList{"dictionary", "babel"} << 0 << QByteArray("BABEL: Confusion.\n");
        QTest::newRow("dictionary, not there")
            << QStringList{"dictionary", "lov"} << 1 << QByteArray("Not Found\n");
        QTest::newRow("names") << QStringList{"names", "ABEL"} << 0
                               << QByteArray("ABEL: Breath.\n");
        QTest::newRow("names, not there")
            << QStringList{"names", "Enoch"} << 1 << QByteArray("Not Found!\n");
        QTest::newRow("strong H") << QStringList{"strong", "H2"} << 0
                                  << QByteArray("2 - word2 (p2) : meaning 2\n");
        QTest::newRow("strong G past the end")
            << QStringList{"strong", "G26"} << 0 << QByteArray("1 - agape (ag-ah'-pay) : love\n");
        QTest::newRow("strong word") << QStringList{"strong", "--hebrew", "AB"} << 0
                                     << QByteArray("3 - word3 (p3) : meaning 3\n");
        QTest::newRow("strong, no such word")
            << QStringList{"strong", "--greek", "zz"} << 1 << QByteArray();
        QTest::newRow("strong without a number") << QStringList{"strong"} << 64 << QByteArray();
        QTest::newRow("dictionary without a word")
            << QStringList{"dictionary"} << 64 << QByteArray();
    }

    void wordStudy()
    {
        QFETCH(QStringList, args);
        QFETCH(int, status);
        QFETCH(QByteArray, out);
        writeFile(m_dir.path() + QStringLiteral("/Dictionary.dat"),
                  "header\r\nBABEL|Confusion.|\r\nLOVE|Affection.|John 3:16; 1John 4:8\r\n");
        writeFile(m_dir.path() + QStringLiteral("/names.dat"), "header\r\nAbel|Breath.|x\r\n");
        writeFile(m_dir.path() + QStringLiteral("/strong/hebrew.idx"), "x\r\ny\r\nab\r\n");
        writeFile(m_dir.path() + QStringLiteral("/strong/hebrew.dat"),
                  "H1|word1|p1|meaning 1\r\nH2|word2|p2|meaning 2\r\nH3|word3|p3|meaning 3\r\n");
        writeFile(m_dir.path() + QStringLiteral("/strong/greek.idx"), "agape\r\n");
        writeFile(m_dir.path() + QStringLiteral("/strong/greek.dat"),
                  "G1|agape|ag-ah'-pay|love\r\n");
        const Run r = cli(args);
        QCOMPARE(r.status, status);
        QCOMPARE(r.out, out);
    }

    void wordStudyFilesMissing()
    {
        QTemporaryDir empty;
        for (const QStringList &args :
             {QStringList{"dictionary", "love"}, QStringList{"strong", "H1"}}) {
            const Run r = cli(args, empty.path());
            QCOMPARE(r.status, 66);
            QVERIFY2(r.err.contains(" is missing.  Feature will be disabled."), r.err.constData());
        }
    }

    void referenceLists_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("out");

        QTest::newRow("topics, two words in any order")
            << QStringList{"topics", "christ ABIDING"} << 0
            << QByteArray("Abiding in Christ\nChrist, abiding in\n");
        QTest::newRow("topics, inside a longer word")
            << QStringList{"topics", "love"} << 0 << QByteArray("Love\nGod's Loveliness\n");
        QTest::newRow("topics, none") << QStringList{"topics", "zz"} << 1 << QByteArray();
        QTest::newRow("stories") << QStringList{"stories", "ark"} << 0
                                 << QByteArray("Noah's Ark\n");
        QTest::newRow("parallels, all four gospels")
            << QStringList{"parallels", "miracles", "feeding the five thousand"} << 0
            << QByteArray("Matt 14:13-21\nMark 6:30-44\nLuke 9:10-17\nJohn 6:1-14\n");
        QTest::newRow("parallels, only Luke")
            << QStringList{"parallels", "miracles", " Widow's son raised "} << 0
            << QByteArray("\n\nLuke 7:11-17\n\n");
        QTest::newRow("parallels, parables")
            << QStringList{"parallels", "parables", "Sower"} << 0
            << QByteArray("Matt 13:3-9\nMark 4:3-9\nLuke 8:5-8\n\n");
        QTest::newRow("parallels, not there")
            << QStringList{"parallels", "parables", "Feeding the five thousand"} << 1
            << QByteArray();
        QTest::newRow("parallels, no such list")
            << QStringList{"parallels", "psalms", "Sower"} << 64 << QByteArray();
        QTest::newRow("prophecy") << QStringList{"prophecy", "born of a virgin"} << 0
                                  << QByteArray("Isaiah 7:14\nMatt 1:18-25\n");
        QTest::newRow("prophecy, not there")
            << QStringList{"prophecy", "born"} << 1 << QByteArray();
        QTest::newRow("topics without a query") << QStringList{"topics"} << 64 << QByteArray();
    }

    void referenceLists()
    {
        QFETCH(QStringList, args);
        QFETCH(int, status);
        QFETCH(QByteArray, out);
        writeFile(m_dir.path() + QStringLiteral("/topics.dat"),
                  "Topic|References\r\nAbiding in Christ|John 15:4\r\nLove|1Cor 13:4\r\n"
                  "God's Loveliness|Ps 27:4\r\nChrist, abiding in|1John 2:28\r\n");
        writeFile(m_dir.path() + QStringLiteral("/stories.dat"),
                  "Story|References\r\nNoah's Ark|Gen 6:9-22;Gen 7\r\nCreation|Gen 1\r\n");
        writeFile(
            m_dir.path() + QStringLiteral("/miracles.dat"),
            "Miracles of Jesus\r\n"
            "Feeding the five thousand|Matt 14:13-21|Mark 6:30-44|Luke 9:10-17|John 6:1-14\r\n"
            "Widow's son raised|||Luke 7:11-17|\r\n");
        writeFile(m_dir.path() + QStringLiteral("/parables.dat"),
                  "Parables of Jesus\r\nSower|Matt 13:3-9|Mark 4:3-9|Luke 8:5-8|\r\n");
        writeFile(m_dir.path() + QStringLiteral("/prophecy.dat"),
                  "Prophecy|Old|New\r\nBorn of a virgin|Isaiah 7:14|Matt 1:18-25\r\n");
        const Run r = cli(args);
        QCOMPARE(r.status, status);
        QCOMPARE(r.out, out);
    }

    void referenceListsMissing_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<QByteArray>("named");

        QTest::newRow("topics") << QStringList{"topics", "love"}
                                << QByteArray("'topics.dat' is missing.");
        QTest::newRow("stories") << QStringList{"stories", "ark"}
                                 << QByteArray("'stories.dat' is missing.");
        QTest::newRow("prophecy") << QStringList{"prophecy", "x"}
                                  << QByteArray("'prophecy.dat' is missing.");
        QTest::newRow("miracles, by path")
            << QStringList{"parallels", "miracles", "x"} << QByteArray("miracles.dat is missing.");
    }

    void referenceListsMissing()
    {
        QFETCH(QStringList, args);
        QFETCH(QByteArray, named);
        QTemporaryDir empty;
        const Run r = cli(args, empty.path());
        QCOMPARE(r.status, 66);
        QVERIFY2(r.err.contains(named + "  Feature will be disabled."), r.err.constData());
        if (args.first() == u"parallels")
            QVERIFY2(r.err.contains(QDir::toNativeSeparators(empty.path()).toUtf8()),
                     r.err.constData());
    }

    void topicAndVerse_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<QByteArray>("verses"); // absent: no verses.dat
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("out");

        const QByteArray list("Genesis 1:2\r\n\r\nGenesis 2:1\r\n");
        QTest::newRow("topic of several references")
            << QStringList{"--translation", "AAA", "topic", "creation"} << list << 0
            << QByteArray("Creation - Genesis 1:1;Genesis 2:2\n") +
                   "GENESIS 1 \r\n1 Text of Genesis 1:1\r\nGENESIS 2 \r\n2 Text of Genesis 2:2\r\n";
        QTest::newRow("topic, not there")
            << QStringList{"--translation", "AAA", "topic", "flood"} << list << 1 << QByteArray();
        QTest::newRow("verse of a line")
            << QStringList{"--translation", "AAA", "verse", "--line", "3"} << list << 0
            << QByteArray("GENESIS 2:1\r\n1 Text of Genesis 2:1\r\n");
        // An empty line names no book: the empty name is a prefix of the first book's.
        QTest::newRow("verse of an empty line")
            << QStringList{"--translation", "AAA", "verse", "--line", "2"} << list << 0
            << QByteArray("GENESIS 1\r\n1 Text of Genesis 1:1\r\n2 Text of Genesis 1:2\r\n3 Text "
                          "of Genesis 1:3\r\n");
        QTest::newRow("verse past the end")
            << QStringList{"--translation", "AAA", "verse", "--line", "4"} << list << 1
            << QByteArray();
        QTest::newRow("verse, one line, drawn at random")
            << QStringList{"--translation", "AAA", "verse"} << QByteArray("Genesis 1:2") << 0
            << QByteArray("GENESIS 1:2\r\n2 Text of Genesis 1:2\r\n");
        QTest::newRow("verse, empty list")
            << QStringList{"--translation", "AAA", "verse"} << QByteArray("") << 0 << QByteArray();
        QTest::newRow("verse, missing list")
            << QStringList{"--translation", "AAA", "verse"} << QByteArray() << 66
            << QByteArray(
                   "That the verses.dat file was not found? \r\n\r\nCreate a text file named "
                   "verses.dat using NotePad with 1 verse per line. Then place it in the same "
                   "directory as the application. \n");
        QTest::newRow("verse, line not a number")
            << QStringList{"verse", "--line", "x"} << list << 64 << QByteArray();
    }

    void topicAndVerse()
    {
        QFETCH(QStringList, args);
        QFETCH(QByteArray, verses);
        QFETCH(int, status);
        QFETCH(QByteArray, out);
        writeFile(m_dir.path() + QStringLiteral("/topics.dat"),
                  "Topic\r\nCreation|Genesis 1:1;Genesis 2:2\r\n");
        QFile::remove(m_dir.path() + QStringLiteral("/verses.dat"));
        if (!verses.isNull())
            writeFile(m_dir.path() + QStringLiteral("/verses.dat"), verses);
        const Run r = cli(args);
        QCOMPARE(r.status, status);
        QCOMPARE(r.out, out);
    }

    void checking()
    {
        Run r = cli({QStringLiteral("check"), QStringLiteral("AAA")});
        QCOMPARE(r.status, 0);
        writeFile(m_dir.path() + QStringLiteral("/BBB/newtest/MARK.dat"), "CHAPTER 1\r\n\r\n");
        r = cli({QStringLiteral("check"), m_dir.path() + QStringLiteral("/BBB")});
        QCOMPARE(r.status, 1);
        QVERIFY2(r.out.contains("Mark 1"), r.out.constData());
    }
};

QTEST_GUILESS_MAIN(TestCli)
#include "tst_cli.moc"
