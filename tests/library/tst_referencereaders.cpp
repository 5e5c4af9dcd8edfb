// The readers of the reference lists: topics and stories with their name search, the gospel
// parallels, the prophecies and the verse list, on good files and on missing or damaged ones.
#include "../support/TranslationFixture.h"
#include "library/ReferenceLists.h"
#include "library/ReferencePassages.h"
#include "scripture/clsBible.h"

#include <QTemporaryDir>
#include <QTest>

using fixture::chapters;
using fixture::makeTranslation;
using fixture::writeFile;

namespace {

// Files that no reader may crash or hang on, with the number of entries after the header.
struct Damaged
{
    const char *name;
    QByteArray bytes;
    int entries;
};

const QList<Damaged> &damagedFiles()
{
    static const char binary[] = "\x00\xFF\xFE|\x01\r\n\x80\x00|\x9F\xC3|\r\r\n|||||||\n";
    static const QList<Damaged> files = {
        {"empty", QByteArray(), 0},
        {"header only", QByteArray("HEADER|x|y"), 0},
        // A lone CR ends a line too, so "\r\r\n" leaves an empty entry.
        {"binary", QByteArray(binary, sizeof binary - 1), 3},
        {"no bar", QByteArray("head\r\nno bar here\r\n"), 1},
        {"long line", "head\r\n" + QByteArray(100000, 'x') + "|Gen 1:1\r\nlast|John 1:1\r\n", 2},
    };
    return files;
}

} // namespace

class TestReferenceReaders : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    QString write(const QString &name, const QByteArray &bytes)
    {
        const QString path = m_dir.filePath(name);
        writeFile(path, bytes);
        return path;
    }

private slots:
    void namedReferences()
    {
        write(QStringLiteral("topics.dat"), "Topic|References\r\n"
                                            "Abiding in Christ|John 15:4;1John 2:28\r\n"
                                            "Love|1Cor 13:4; John 3:16;\r\n"
                                            "Lonely name\r\n");
        NamedReferences topics;
        QVERIFY(topics.Load(m_dir.filePath(QStringLiteral("TOPICS.DAT"))));
        QCOMPARE(topics.Names(), (QStringList{"Abiding in Christ", "Love", "Lonely name"}));
        QCOMPARE(topics.ReferenceField(2), QStringLiteral("1Cor 13:4; John 3:16;"));
        QCOMPARE(topics.References(1), (QStringList{"John 15:4", "1John 2:28"}));
        QCOMPARE(topics.References(2), (QStringList{"1Cor 13:4", " John 3:16", ""}));
        QCOMPARE(topics.References(3), QStringList());
        for (const int outside : {0, 4, -1})
            QCOMPARE(topics.ReferenceField(outside), QString());

        // A failed load leaves nothing of the last one.
        QVERIFY(!topics.Load(m_dir.filePath(QStringLiteral("absent.dat"))));
        QCOMPARE(topics.Count(), 0);
        QVERIFY(topics.Search(QStringLiteral("love")).isEmpty());
    }

    void search_data()
    {
        QTest::addColumn<QString>("query");
        QTest::addColumn<QList<int>>("found");

        QTest::newRow("two words in any order and case")
            << QStringLiteral("CHRIST abiding") << QList<int>{0, 3};
        QTest::newRow("inside a longer word") << QStringLiteral("love") << QList<int>{1, 2};
        QTest::newRow("every word required") << QStringLiteral("love christ") << QList<int>{};
        QTest::newRow("blanks around and between")
            << QStringLiteral("  god   love ") << QList<int>{2};
        QTest::newRow("blank query") << QStringLiteral("   ") << QList<int>{};
        QTest::newRow("empty query") << QString() << QList<int>{};
        QTest::newRow("no match") << QStringLiteral("zz") << QList<int>{};
    }

    void search()
    {
        QFETCH(QString, query);
        QFETCH(QList<int>, found);
        const QStringList names{"Abiding in Christ", "Love", "God's Loveliness",
                                "Christ, abiding in"};
        QCOMPARE(NamedReferences::Search(names, query), found);
    }

    void findName()
    {
        const QStringList names{"Sower", "The Sower", "sower"};
        QCOMPARE(FindName(names, QStringLiteral(" SOWER ")), 1);
        QCOMPARE(FindName(names, QStringLiteral("the sower")), 2);
        QCOMPARE(FindName(names, QStringLiteral("Sow")), 0);
        QCOMPARE(FindName({}, QStringLiteral("x")), 0);
    }

    void gospelParallels_data()
    {
        QTest::addColumn<QByteArray>("header");
        QTest::addColumn<QString>("heading");

        QTest::newRow("first word heads the list")
            << QByteArray("Miracles of Jesus") << QStringLiteral("Miracles ");
        QTest::newRow("no blank") << QByteArray("Parables") << QString();
        QTest::newRow("empty header") << QByteArray() << QString();
    }

    void gospelParallels()
    {
        QFETCH(QByteArray, header);
        QFETCH(QString, heading);
        write(
            QStringLiteral("miracles.dat"),
            header +
                "\r\n"
                "Feeding the five thousand|Matt 14:13-21|Mark 6:30-44|Luke 9:10-17|John 6:1-14\r\n"
                "Widow's son raised|||Luke 7:11-17|\r\n"
                "Short line|Matt 8:1\r\n");
        GospelParallels miracles;
        QVERIFY(miracles.Load(m_dir.filePath(QStringLiteral("miracles.dat"))));
        QCOMPARE(miracles.Heading(), heading);
        QCOMPARE(miracles.Names(),
                 (QStringList{"Feeding the five thousand", "Widow's son raised", "Short line"}));
        QCOMPARE(miracles.Reference(1, GospelParallels::John), QStringLiteral("John 6:1-14"));
        QCOMPARE(miracles.Reference(1, GospelParallels::Mark), QStringLiteral("Mark 6:30-44"));

        // Told only in Luke.
        const QList<bool> onlyLuke{false, false, true, false};
        for (int g = 0; g < GospelParallels::GospelCount; ++g)
            QCOMPARE(miracles.Tells(2, GospelParallels::Gospel(g)), onlyLuke.at(g));
        QCOMPARE(miracles.Reference(2, GospelParallels::Luke), QStringLiteral("Luke 7:11-17"));

        QCOMPARE(miracles.Reference(3, GospelParallels::Matthew), QStringLiteral("Matt 8:1"));
        QCOMPARE(miracles.Reference(3, GospelParallels::John), QString());
        QCOMPARE(miracles.Reference(0, GospelParallels::Matthew), QString());
        QCOMPARE(miracles.Reference(4, GospelParallels::Matthew), QString());
        QCOMPARE(miracles.Reference(1, GospelParallels::Gospel(7)), QString());
    }

    void prophecies()
    {
        write(
            QStringLiteral("prophecy.dat"),
            "Prophecy|Old|New\r\nBorn of a virgin|Isaiah 7:14|Matt 1:18-25\r\nHalf|Micah 5:2\r\n");
        Prophecies list;
        QVERIFY(list.Load(m_dir.filePath(QStringLiteral("prophecy.dat"))));
        QCOMPARE(list.Names(), (QStringList{"Born of a virgin", "Half"}));
        QCOMPARE(list.Prophecy(1), QStringLiteral("Isaiah 7:14"));
        QCOMPARE(list.Fulfilment(1), QStringLiteral("Matt 1:18-25"));
        QCOMPARE(list.Prophecy(2), QStringLiteral("Micah 5:2"));
        QCOMPARE(list.Fulfilment(2), QString());
        QCOMPARE(list.Prophecy(3), QString());
    }

    void verses_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QStringList>("lines");

        QTest::newRow("one line") << QByteArray("John 3:16") << QStringList{"John 3:16"};
        QTest::newRow("empty file") << QByteArray() << QStringList();
        QTest::newRow("no header, empty lines kept, nothing trimmed")
            << QByteArray("John 3:16\r\n\r\n Gen 1:1, Gen 1:3 \r\n")
            << QStringList{"John 3:16", "", " Gen 1:1, Gen 1:3 "};
        QTest::newRow("a bar is part of the line") << QByteArray("a|b\r\n") << QStringList{"a|b"};
    }

    void verses()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QStringList, lines);
        VerseList verses;
        QVERIFY(verses.Load(write(QStringLiteral("verses.dat"), bytes)));
        QCOMPARE(verses.Lines(), lines);
        QCOMPARE(verses.Line(1), lines.value(0));
        QCOMPARE(verses.Line(0), QString());
        QCOMPARE(verses.Line(int(lines.size()) + 1), QString());
        QVERIFY(!verses.Load(m_dir.filePath(QStringLiteral("none.dat"))));
        QCOMPARE(verses.Count(), 0);
    }

    void topicPassages()
    {
        const QString translation = makeTranslation(
            m_dir.path(), QStringLiteral("T"),
            {{QStringLiteral("Genesis"), false, chapters(QStringLiteral("Genesis"), {3})}});
        write(QStringLiteral("topics.dat"),
              "Topic\r\nCreation|Genesis 1:1;Genesis 1:3\r\nEmpty|\r\n");
        NamedReferences topics;
        QVERIFY(topics.Load(m_dir.filePath(QStringLiteral("topics.dat"))));
        clsBible bible;
        bible.setVersionPath(translation);
        bible.setSeparator(QStringLiteral("\r\n"));

        QCOMPARE(ReferencePassages::TopicTitle(topics, 1),
                 QStringLiteral("Creation - Genesis 1:1;Genesis 1:3"));
        QCOMPARE(ReferencePassages::TopicTitle(topics, 2), QStringLiteral("Empty - "));
        // Every reference, one after another.
        const QString first = bible.Passagebystandard(QStringLiteral("Genesis 1:1"));
        const QString third = bible.Passagebystandard(QStringLiteral("Genesis 1:3"));
        QVERIFY(first.contains(QStringLiteral("Text of Genesis 1:1")));
        QVERIFY(third.contains(QStringLiteral("Text of Genesis 1:3")));
        QCOMPARE(ReferencePassages::TopicText(bible, topics, 1), first + third);
        QCOMPARE(ReferencePassages::TopicText(bible, topics, 2), QString());
    }

    void pickVerse_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<double>("r");
        QTest::addColumn<int>("line");

        QTest::newRow("empty list") << 0 << 0.7 << 1;
        QTest::newRow("one line, low") << 1 << 0.0 << 1;
        QTest::newRow("one line, high") << 1 << 0.999 << 1;
        QTest::newRow("first of four") << 4 << 0.2499 << 1;
        QTest::newRow("second of four") << 4 << 0.25 << 2;
        QTest::newRow("last of four") << 4 << 0.9999 << 4;
        QTest::newRow("a draw of 1 stays in the list") << 4 << 1.0 << 4;
    }

    void pickVerse()
    {
        QFETCH(int, count);
        QFETCH(double, r);
        QFETCH(int, line);
        QByteArray bytes;
        for (int i = 0; i < count; ++i)
            bytes += "John 3:16\r\n";
        VerseList verses;
        QVERIFY(verses.Load(write(QStringLiteral("pick.dat"), bytes)));
        QCOMPARE(ReferencePassages::PickVerse(verses, r), line);
    }

    void verseText()
    {
        const QString translation = makeTranslation(
            m_dir.path(), QStringLiteral("V"),
            {{QStringLiteral("John"), true, chapters(QStringLiteral("John"), {3, 17})}});
        clsBible bible;
        bible.setVersionPath(translation);
        bible.setSeparator(QStringLiteral("\r\n"));
        bible.setInTextReference(true);
        const QString plain = [&] {
            bible.setInTextReference(false);
            const QString text = bible.Passagebystandard(QStringLiteral("John 2:16"));
            bible.setInTextReference(true);
            return text;
        }();

        VerseList verses;
        QVERIFY(verses.Load(write(QStringLiteral("verses.dat"), "John 2:16")));
        QCOMPARE(ReferencePassages::VerseText(bible, verses, 1),
                 QStringLiteral("JOHN 2:16\r\n") + plain);
        QVERIFY(bible.InTextReference()); // restored

        QVERIFY(verses.Load(write(QStringLiteral("verses.dat"), "")));
        QCOMPARE(ReferencePassages::VerseText(bible, verses, 1), QString());
    }

    // Whatever a file holds, every reader ends with an answer, and each line after the header
    // is one entry.
    void damaged_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("entries");
        for (const Damaged &file : damagedFiles())
            QTest::newRow(file.name) << file.bytes << file.entries;
    }

    void damaged()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, entries);
        const QString path = write(QStringLiteral("damaged.dat"), bytes);
        NamedReferences named;
        GospelParallels parallels;
        Prophecies prophecies;
        VerseList verses;
        QVERIFY(named.Load(path));
        QVERIFY(parallels.Load(path));
        QVERIFY(prophecies.Load(path));
        QVERIFY(verses.Load(path));
        QCOMPARE(named.Count(), entries);
        QCOMPARE(parallels.Count(), entries);
        QCOMPARE(prophecies.Count(), entries);
        QCOMPARE(verses.Count(), named.Count() + (bytes.isEmpty() ? 0 : 1));
        for (int record = 0; record <= named.Count() + 1; ++record) {
            named.References(record);
            parallels.Reference(record, GospelParallels::John);
            prophecies.Fulfilment(record);
        }
        named.Search(QStringLiteral("x |"));
    }
};

QTEST_GUILESS_MAIN(TestReferenceReaders)
#include "tst_referencereaders.moc"
