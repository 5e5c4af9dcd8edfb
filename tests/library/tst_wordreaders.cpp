// The readers under the word lists and the Strong's lexicon, on what their windows' tests do not
// reach: line ends and encodings, fields, an index read only when asked for, entries past the end
// of the data, and files that are missing, empty or damaged.
#include "../support/TranslationFixture.h"
#include "library/DataFileReader.h"
#include "library/StrongsLexicon.h"
#include "library/WordList.h"

#include <QTemporaryDir>
#include <QTest>

using fixture::writeFile;
using Language = StrongsLexicon::Language;
using Outcome = WordList::Outcome;

class TestWordReaders : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    QString file(const QString &name) const { return m_dir.filePath(name); }

private slots:
    void linesAndFields_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QStringList>("lines");

        QTest::newRow("CR LF, LF and CR")
            << QByteArray("a\r\nb\nc\rd") << QStringList{"a", "b", "c", "d"};
        QTest::newRow("final line end starts no line")
            << QByteArray("a\r\n\r\n") << QStringList{"a", ""};
        QTest::newRow("byte-order mark dropped")
            << QByteArray("\xEF\xBB\xBFh\xC3\xA9\r\n") << QStringList{"hé"};
        QTest::newRow("Windows-1252 when not UTF-8")
            << QByteArray("caf\xE9\r\n\x93q\x94") << QStringList{"café", "“q”"};
        QTest::newRow("empty") << QByteArray() << QStringList();
    }

    void linesAndFields()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QStringList, lines);
        writeFile(file(QStringLiteral("lines.dat")), bytes);
        DataFileReader reader;
        QVERIFY(reader.Open(file(QStringLiteral("LINES.DAT"))));
        QCOMPARE(reader.ReadAll(), lines);
        QVERIFY(reader.AtEnd());
        QCOMPARE(reader.ReadLine(), QString());
    }

    void splitting()
    {
        const QStringList fields = DataFileReader::Fields(QStringLiteral("a||b "));
        QCOMPARE(fields, (QStringList{"a", "", "b "}));
        QCOMPARE(DataFileReader::Field(fields, 4), QString());
        QCOMPARE(DataFileReader::FirstField("no bar at all"), QByteArrayView("no bar at all"));
        QCOMPARE(DataFileReader::References(QStringLiteral("Gen 1:1; John 3;")),
                 (QStringList{"Gen 1:1", " John 3", ""}));
        QCOMPARE(DataFileReader::References(QString()), QStringList());
        QVERIFY(!DataFileReader().Open(file(QStringLiteral("absent.dat"))));
        QVERIFY(!DataFileReader().Open(m_dir.path()));
    }

    // Whatever a data file holds, the list and a look-up end with an answer.
    void damagedWordLists_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("headwords"); // -1: the file cannot be read
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("outcome");

        const QByteArray longLine =
            "HEAD\r\n" + QByteArray(100000, 'x') + "|def|Gen 1:1\r\nLAST|d|\r\n";
        QTest::newRow("missing") << QByteArray() << -1 << QStringLiteral("x")
                                 << int(Outcome::Unreadable);
        QTest::newRow("empty") << QByteArray("") << 0 << QString() << int(Outcome::NotFound);
        QTest::newRow("header only")
            << QByteArray("HEAD|ER") << 0 << QStringLiteral("HEAD") << int(Outcome::NotFound);
        QTest::newRow("no bar at all") << QByteArray("h\r\nplain line\r\n") << 1
                                       << QStringLiteral("plain line") << int(Outcome::Found);
        QTest::newRow("100,000 characters")
            << longLine << 2 << QStringLiteral("last") << int(Outcome::Found);
        QTest::newRow("binary junk") << QByteArray("\x00\xff\xfe|\x01\r\x80\x00|\x9f\n\n", 12) << 2
                                     << QStringLiteral("x") << int(Outcome::NotFound);
    }

    void damagedWordLists()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, headwords);
        QFETCH(QString, typed);
        QFETCH(int, outcome);
        QTemporaryDir dir;
        if (headwords >= 0)
            writeFile(dir.filePath(QStringLiteral("Dictionary.dat")), bytes);
        const WordList list(dir.path(), WordList::Kind::Dictionary);
        const std::optional<QStringList> words = list.Headwords();
        QCOMPARE(words ? int(words->size()) : -1, headwords);
        QCOMPARE(int(list.Find(typed).outcome), outcome);
    }

    void strongsEntries()
    {
        QTemporaryDir dir;
        writeFile(dir.filePath(QStringLiteral("STRONG/Greek.idx")), "A\r\nagape\r\n");
        QByteArray records;
        for (int k = 1; k <= 7; ++k)
            records += QStringLiteral("G%1|word%1|pron%1|meaning %1\r\n").arg(k).toUtf8();
        writeFile(dir.filePath(QStringLiteral("STRONG/GREEK.DAT")), records + "G8|only a word");
        StrongsLexicon lexicon(dir.path());

        // Each index is read when it is first asked for, not before.
        QVERIFY(!lexicon.IndexRead(Language::Greek));
        QCOMPARE(lexicon.Index(Language::Greek), (QStringList{"A", "agape"}));
        QVERIFY(lexicon.IndexRead(Language::Greek));
        QVERIFY(!lexicon.IndexRead(Language::Hebrew));

        QCOMPARE(lexicon.Show(Language::Greek, 7).definition,
                 QStringLiteral("7 - word7 (pron7) : meaning 7"));
        QCOMPARE(lexicon.Show(Language::Greek, 8).definition,
                 QStringLiteral("8 - only a word () : "));
        QCOMPARE(lexicon.Show(Language::Greek, 9).outcome, StrongsLexicon::Outcome::NotFound);
        QCOMPARE(lexicon.Show(Language::Greek, 0).outcome, StrongsLexicon::Outcome::NotFound);
        QCOMPARE(lexicon.Show(Language::Hebrew, 1).outcome, StrongsLexicon::Outcome::Unreadable);

        // A missing index is an empty list, said once.
        QCOMPARE(lexicon.Index(Language::Hebrew), QStringList());
        QVERIFY(!lexicon.IndexReadable(Language::Hebrew));
        QCOMPARE(lexicon.Choose(Language::Hebrew, QStringLiteral("5")).number, 0);
        QCOMPARE(lexicon.Choose(Language::Hebrew, QStringLiteral("a")).number, 0);
    }

    void strongsDamagedData_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("definition");

        QTest::newRow("no bar") << QByteArray("nothing to split\r\n")
                                << QStringLiteral("1 -  () : ");
        QTest::newRow("binary junk")
            << QByteArray("\xff|\x00|\x80|\x9d", 7)
            << QStringLiteral("1 - ") + QChar(0) + QStringLiteral(" (€) : ") + QChar(0x9d);
        QTest::newRow("100,000 characters") << "x|" + QByteArray(100000, 'y') + "|p|d"
                                            << "1 - " + QString(100000, u'y') + " (p) : d";
    }

    void strongsDamagedData()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, definition);
        QTemporaryDir dir;
        writeFile(dir.filePath(QStringLiteral("strong/hebrew.dat")), bytes);
        QCOMPARE(StrongsLexicon(dir.path()).Show(Language::Hebrew, 1).definition, definition);
    }
};

QTEST_GUILESS_MAIN(TestWordReaders)
#include "tst_wordreaders.moc"
