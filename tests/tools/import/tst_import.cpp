// The importer's conversions from module markup to the program's formats, on small pieces of
// markup shaped like the modules' own, faults included.
#include "../../support/TranslationFixture.h"
#include "tools/import/BookFolder.h"
#include "tools/import/CommentaryConverter.h"
#include "tools/import/ImportLog.h"
#include "tools/import/MarkupReader.h"
#include "tools/import/StrongsEntry.h"
#include "tools/import/TopicIndex.h"
#include "tools/import/VerseConverter.h"
#include "tools/import/Versification.h"
#include "tools/import/WordStudy.h"

#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

using namespace importer;

namespace {

// Genesis with three chapters of 31, 25 and 24 verses, Jude with one of 25, John with 21 chapters.
Versification smallVersification()
{
    Versification v;
    v.setBook(0, {31, 25, 24});
    QList<int> john(21, 40);
    john[2] = 36;
    john[3] = 54;
    v.setBook(42, john);
    v.setBook(64, {25});
    return v;
}

StrongsEntry entry(QChar language, int number, const QString &translit, const QString &sense,
                   const QString &usage)
{
    StrongsEntry e;
    e.language = language;
    e.number = number;
    e.transliteration = translit;
    e.sense = sense;
    e.usage = usage;
    e.segments = {sense};
    return e;
}

} // namespace

class TestImport : public QObject
{
    Q_OBJECT

private slots:
    void verse_data()
    {
        QTest::addColumn<QString>("osis");
        QTest::addColumn<bool>("strongs");
        QTest::addColumn<QString>("text");
        QTest::newRow("added words")
            << R"(darkness <transChange type="added">was</transChange> upon)" << false
            << "darkness [was] upon";
        QTest::newRow("numbers")
            << R"(In the <w lemma="strong:H7225">beginning</w> <w lemma="strong:H0430">God</w>.)"
            << true << "In the beginning{H7225} God{H430}.";
        QTest::newRow("several numbers") << R"(<w lemma="strong:G3588 strong:G2316">God</w> is)"
                                         << true << "God{G3588}{G2316} is";
        QTest::newRow("numbers left out of KJV")
            << R"(<w lemma="strong:H0430">God</w>)" << false << "God";
        QTest::newRow("empty tagged word")
            << R"(God<w lemma="strong:H0853"></w> said)" << true << "God said";
        QTest::newRow("footnote between words")
            << R"(God<note placement="foot">Heb. <w>Elohim</w></note><w lemma="strong:H1254">created</w>)"
            << false << "God created";
        QTest::newRow("stray source code")
            << R"(my name \nd <w lemma="strong:H3068">JEHOVAH</w></divineName> was)" << false
            << "my name JEHOVAH was";
        QTest::newRow("nested brackets")
            << R"(Father: <transChange type="added">[but] he that</transChange>.)" << false
            << "Father: [but he that].";
        QTest::newRow("module brackets") << "the end[of days]" << false << "the end(of days)";
        QTest::newRow("reserved characters") << "a {b} | c \\ d" << false << "a b c d";
        QTest::newRow("paragraph mark") << "\xc2\xb6 And he said" << false << "And he said";
        QTest::newRow("heading dropped")
            << R"(<title type="x-heading">The Fall</title>Now the serpent)" << false
            << "Now the serpent";
        QTest::newRow("glossary after the book")
            << R"(saints. Amen. <chapter eID="Rev.22"/> <div eID="x" type="book"/> <div type="glossary"/> Abaddon is Hebrew)"
            << false << "saints. Amen.";
        QTest::newRow("unclosed added words")
            << R"(it <transChange type="added">was good)" << false << "it [was good]";
        QTest::newRow("entities") << "Tom &amp; Jerry &#233;t&#xE9; &bogus; a < b" << false
                                  << "Tom & Jerry été &bogus; a < b";
    }

    void verse()
    {
        QFETCH(QString, osis);
        QFETCH(bool, strongs);
        QFETCH(QString, text);
        ImportLog log;
        VerseConverter converter(log, QStringLiteral("KJV"));
        const std::string raw = osis.toStdString();
        QCOMPARE(converter.convert(raw, {strongs, false}).text, text);
    }

    void psalmTitleAndTaggedWords()
    {
        ImportLog log;
        VerseConverter converter(log, QStringLiteral("KJV"));
        const std::string raw =
            R"(<title canonical="true" type="psalm">A <w lemma="strong:H4210">Psalm</w> of David.</title> <divineName><w lemma="strong:H3068">LORD</w></divineName>, how)";
        const ConvertedVerse v = converter.convert(raw, {false, true});
        QCOMPARE(v.title, QStringLiteral("A Psalm of David."));
        QCOMPARE(v.text, QStringLiteral("LORD, how"));
        QCOMPARE(v.tagged.size(), 2);
        QCOMPARE(v.tagged.at(1).text, QStringLiteral("LORD"));
        QCOMPARE(v.tagged.at(1).numbers, QStringList{QStringLiteral("H3068")});
    }

    void junkNeverBreaksTheReader()
    {
        QRandomGenerator random(7);
        const char alphabet[] = "<>/=\"' &;#x[]{}\\wlemma:H01";
        ImportLog log;
        VerseConverter verses(log, QStringLiteral("junk"));
        const Versification versification = smallVersification();
        CommentaryConverter commentary(log, QStringLiteral("junk"), versification);
        for (int round = 0; round < 500; ++round) {
            std::string junk;
            const int length = random.bounded(200);
            for (int i = 0; i < length; ++i)
                junk += alphabet[random.bounded(int(sizeof alphabet) - 1)];
            const QString text = verses.convert(junk, {true, true}).text;
            QVERIFY(!text.contains(u'|') && !text.contains(u'\\'));
            commentary.paragraphs(junk);
            ParseStrongsEntry(junk, u'H');
        }
    }

    void references_data()
    {
        QTest::addColumn<QString>("osis");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("verse") << "Gen.1.1" << QStringList{"Genesis 1:1"};
        QTest::newRow("range") << "Gen.1.3-Gen.1.5" << QStringList{"Genesis 1:3-5"};
        QTest::newRow("across chapters") << "John.3.36-John.4.2" << QStringList{"John 3:36-4:2"};
        QTest::newRow("chapter") << "Gen.2" << QStringList{"Genesis 2"};
        QTest::newRow("chapters") << "Gen.2-Gen.3" << QStringList{"Genesis 2-3"};
        QTest::newRow("range cut at chapter end")
            << "Gen.2.20-Gen.2.40" << QStringList{"Genesis 2:20-25"};
        QTest::newRow("one-chapter book") << "Jude.1.3" << QStringList{"Jude 1:3"};
        QTest::newRow("whole book") << "Gen" << QStringList{"Genesis 1-3"};
        QTest::newRow("several") << "Gen.1.1 John.3.16" << QStringList{"Genesis 1:1", "John 3:16"};
        QTest::newRow("no such chapter") << "Gen.4.1" << QStringList();
        QTest::newRow("no such verse") << "Gen.3.25" << QStringList();
        QTest::newRow("book outside the canon") << "Tob.1.1" << QStringList();
        QTest::newRow("across books") << "Gen.3.1-John.1.1" << QStringList();
        QTest::newRow("garbage") << "Gen.x.1" << QStringList();
    }

    void references()
    {
        QFETCH(QString, osis);
        QFETCH(QStringList, expected);
        QStringList problems;
        QCOMPARE(smallVersification().references(osis, &problems), expected);
        QCOMPARE(problems.isEmpty(), !expected.isEmpty());
    }

    void commentary()
    {
        ImportLog log;
        const Versification versification = smallVersification();
        CommentaryConverter converter(log, QStringLiteral("tvc"), versification);
        const std::string raw =
            R"(<title type="x-ms">Genesis</title><title type="x-s2">Chapter 1</title>)"
            R"(<title type="x-IS">Chapter Outline</title><table><row><cell>God creates.</cell><cell>(1-2)</cell></row></table>)"
            R"(<hi type="bold">Verses 1-2</hi><div sID="a" type="x-p"/> The first verse, <reference osisRef="John.1.3">Joh 1:3</reference>, and ver. #(2). <hi type="italic">Note</hi> well.<div eID="a" type="x-p"/>)"
            R"(<div type="x-p"/>Chapter two follows.)";
        const QStringList expected = {
            QStringLiteral("Outline:"), QStringLiteral("God creates. (1-2)"),
            QStringLiteral("Verses 1-2"),
            QStringLiteral("The first verse, John 1:3, and ver. (2). Note well."),
            QStringLiteral("The chapter two follows.")};
        QCOMPARE(converter.paragraphs(raw), expected);
    }

    void strongsHebrew()
    {
        const std::string raw =
            R"(<entryFree n="6"> <orth>אבד</orth><lb/> <orth rend="bold" type="trans">'âbad</orth> <pron rend="italic">aw-bad'</pron><lb/> <def>A primitive root; properly to <hi rend="italic">wander</hi> {away} that is <hi rend="italic">lose</hi> oneself; see <ref target="StrongsHebrew:0007">H7</ref>: - {break} destroy ({-uction}) + not {escape} perish.</def> </entryFree>)";
        const StrongsEntry e = ParseStrongsEntry(raw, u'H');
        QCOMPARE(e.number, 6);
        QCOMPARE(e.indexText(), QStringLiteral("abad"));
        QCOMPARE(e.dataLine(),
                 QStringLiteral("H6|אבד 'âbad|aw-bad'|A primitive root; properly to wander away, "
                                "that is lose oneself; see 7. KJV: break, destroy (-uction) + not "
                                "escape, perish."));
    }

    void strongsGreek()
    {
        const std::string raw =
            R"(<entryFree n="00025"> <orth>ἀγαπάω</orth> <orth type="writing">A)GAPA/W</orth> <orth rend="bold" type="trans">agapáō</orth> <pron rend="italic">ag-ap-ah'-o</pron><lb/> perhaps from <orth>ἄγαν</orth> <orth rend="bold" type="trans">ágan</orth> (much) [or compare <ref target="StrongsGreek:5689">H5689</ref>];<lb/> <def>to love:--(be-)love(-ed). Compare <ref target="StrongsGreek:5368">G05368</ref>. </def> </entryFree>)";
        const StrongsEntry e = ParseStrongsEntry(raw, u'G');
        QCOMPARE(e.indexText(), QStringLiteral("agapao"));
        QCOMPARE(e.definition(), QStringLiteral("perhaps from ágan (much) [or compare H5689]; to "
                                                "love. KJV: (be-)love(-ed). Compare G5368."));
        const StrongsEntry unused =
            ParseStrongsEntry(R"(<entryFree n="02717"> <def>Not Used </def> </entryFree>)", u'G');
        QVERIFY(!unused.used);
        QCOMPARE(unused.dataLine().count(u'|'), 3);
    }

    void topics()
    {
        ImportLog log;
        const Versification versification = smallVersification();
        TopicIndex index(versification, log, QStringLiteral("topics"));
        index.addEntry(
            QStringLiteral("ZEAL"),
            R"(<def> <lb/>→ OF THE LORD <ref osisRef="Gen.1.1">Ge 1:1</ref>, <ref osisRef="Gen.9.9">9:9</ref> <lb/>→ Instances of <list> <item>Of Jude <ref osisRef="Jude.1.1">Jude 1</ref>:3,5-7</item> <item>See <ref target="Nave:X">X</ref></item> </list></def>)");
        index.addEntry(QStringLiteral("AFFLICTIONS AND ADVERSITIES"),
                       R"(<def><ref osisRef="John.3.16">Joh 3:16</ref></def>)");
        index.addEntry(QStringLiteral("ADVENT"),
                       R"(<def> <lb/>→ See <ref target="Nave:JESUS">JESUS</ref></def>)");
        const QStringList expected = {
            QStringLiteral("header"), QStringLiteral("Afflictions and Adversities|John 3:16"),
            QStringLiteral("Zeal: Instances of: Of Jude|Jude 1:3;Jude 1:5-7"),
            QStringLiteral("Zeal: Of the Lord|Genesis 1:1")};
        QCOMPARE(index.lines(QStringLiteral("header")), expected);
        QCOMPARE(log.value(QStringLiteral("topics"),
                           QStringLiteral("references left out (no such passage)")),
                 1);
    }

    void wordStudy()
    {
        const QList<StrongsEntry> hebrew = {
            entry(u'H', 1, QStringLiteral("'âhab"),
                  QStringLiteral("A primitive root; to have affection for"),
                  QStringLiteral("love, like, friend")),
            entry(u'H', 2, QStringLiteral("Mosheh"),
                  QStringLiteral("From 1; drawing out; Mosheh, the Israelitish lawgiver"),
                  QStringLiteral("Moses")),
        };
        const QList<StrongsEntry> greek = {
            entry(u'G', 1, QStringLiteral("agapáō"), QStringLiteral("to love (in a social sense)"),
                  QStringLiteral("(be-)love(-ed)")),
        };
        QList<VerseWords> tagged = {
            {0,
             1,
             2,
             {{QStringLiteral("loved"), {QStringLiteral("H1")}},
              {QStringLiteral("Moses's"), {QStringLiteral("H2")}}}},
            {0,
             2,
             1,
             {{QStringLiteral("love"), {QStringLiteral("H1")}},
              {QStringLiteral("him"), {QStringLiteral("H1")}}}},
            {42,
             3,
             16,
             {{QStringLiteral("loved"), {QStringLiteral("G1")}},
              {QStringLiteral("Moses"), {QStringLiteral("H2")}}}},
        };
        const WordStudy study(hebrew, greek, tagged);
        QCOMPARE(study.dictionaryLines(QStringLiteral("h")),
                 (QStringList{QStringLiteral("h"),
                              QStringLiteral("LOVE|Forms: love, loved. Occurs 3 times in the KJV. "
                                             "Translates Hebrew 'âhab (H1), to have affection "
                                             "for, twice; Greek agapáō (G1), to love (in a social "
                                             "sense), once.|Genesis 1:2;John 3:16")}));
        QCOMPARE(study.namesLines(QStringLiteral("h")),
                 (QStringList{QStringLiteral("h"),
                              QStringLiteral("Moses|Drawing out; Mosheh, the Israelitish "
                                             "lawgiver. (H2)")}));
        QCOMPARE(
            WordStudy::usageItems(QStringLiteral("X exceeding, God (gods), + ever. Compare 5.")),
            (QStringList{QStringLiteral("exceeding"), QStringLiteral("God"),
                         QStringLiteral("ever")}));
    }

    void bookFolder()
    {
        QTemporaryDir dir;
        BookFolder folder;
        folder.displayName = QStringLiteral("Reina Valera 1909");
        folder.firstTestament = QStringLiteral("Antiguo Testamento");
        folder.secondTestament = QStringLiteral("Nuevo Testamento");
        folder.books = {{QStringLiteral("Génesis"), 0, {{QStringLiteral("1 En el principio")}, {}}},
                        {QStringLiteral("Juan"), 1, {{QStringLiteral("1 Ἐν ἀρχῇ")}}}};
        ImportLog log;
        QVERIFY(folder.write(dir.path(), log, QStringLiteral("RV1909")));
        // A book name that fits Windows-1252 is written in it.
        QCOMPARE(fixture::readFile(dir.filePath(QStringLiteral("oldtest/map.dat"))),
                 QByteArray("\"G\xe9nesis\",2\r\n"));
        QCOMPARE(fixture::readFile(dir.filePath(QStringLiteral("oldtest/GÉNESIS.dat"))),
                 QByteArray("CHAPTER 1\r\n1 En el principio\r\nCHAPTER 2\r\n"));
        QCOMPARE(
            QString::fromUtf8(fixture::readFile(dir.filePath(QStringLiteral("newtest/JUAN.dat")))),
            QStringLiteral("CHAPTER 1\r\n1 Ἐν ἀρχῇ\r\n"));
    }
};

QTEST_GUILESS_MAIN(TestImport)
#include "tst_import.moc"
