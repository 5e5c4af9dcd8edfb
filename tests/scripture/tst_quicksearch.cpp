// The quick keyword search over a translation: matching, whole words, the result limit and its
// three titles, and the order and form of the results.
#include "../support/TranslationFixture.h"
#include "platform/MsgBoxAnswerer.h"
#include "platform/VbError.h"
#include "scripture/BookFiles.h"
#include "scripture/QuickSearch.h"
#include "scripture/clsBible.h"

#include <QTemporaryDir>
#include <QTest>

using namespace fixture;

namespace {

QStringList listed(const QList<SearchHit> &hits)
{
    QStringList lines;
    for (const SearchHit &hit : hits)
        lines << hit.Listed();
    return lines;
}

} // namespace

class TestQuickSearch : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    clsBible m_bible;
    platform::MsgBoxAnswerer m_answers;

    QuickSearch::Result search(const QString &query, bool wholeWord = false, int limit = 500)
    {
        m_answers.clear();
        QuickSearch quick;
        return quick.run(m_bible, query, wholeWord, limit);
    }

private slots:
    void initTestCase()
    {
        QList<Book> books = {
            {QStringLiteral("Genesis"),
             false,
             {"CHAPTER 1", "1 In the beginning GOD created", "2 and God's spirit moved",
              "CHAPTER 2", "1 a godly man loved God.", "2 love and god"}},
            {QStringLiteral("Exodus"),
             false,
             {"CHAPTER 1", "1 these are the names; God saw", "CHAPTER 2", "1 love of God"}},
            {QStringLiteral("Matthew"),
             true,
             {"CHAPTER 1", "1 the book of the generation", "CHAPTER 2", "1 GODLY ones"}},
        };
        makeTranslation(m_dir.path(), QStringLiteral("S"), books);
        m_bible.setVersionPath(m_dir.path() + QStringLiteral("/S"));
    }
    void matching_data()
    {
        QTest::addColumn<QString>("query");
        QTest::addColumn<bool>("wholeWord");
        QTest::addColumn<QStringList>("results");
        // The first line of each file is never looked at, so chapter 1 of a book carries the
        // chapter of the book before it (none for the first book).
        QTest::newRow("all keywords, any order")
            << "love god" << false
            << QStringList{"Genesis 2:1 a godly man loved God.\r\n\r\n",
                           "Genesis 2:2 love and god\r\n\r\n", "Exodus 2:1 love of God\r\n\r\n"};
        QTest::newRow("substring") << "GOD" << false
                                   << QStringList{"Genesis :1 In the beginning GOD created\r\n\r\n",
                                                  "Genesis :2 and God's spirit moved\r\n\r\n",
                                                  "Genesis 2:1 a godly man loved God.\r\n\r\n",
                                                  "Genesis 2:2 love and god\r\n\r\n",
                                                  "Exodus 2:1 these are the names; God saw\r\n\r\n",
                                                  "Exodus 2:1 love of God\r\n\r\n",
                                                  "Matthew 2:1 GODLY ones\r\n\r\n"};
        QTest::newRow("whole word: GOD. and GOD'S count, GODLY does not")
            << "god" << true << QStringList{"Genesis :1 In the beginning GOD created\r\n\r\n",
                                            "Genesis :2 and God's spirit moved\r\n\r\n",
                                            "Genesis 2:1 a godly man loved God.\r\n\r\n",
                                            "Genesis 2:2 love and god\r\n\r\n",
                                            "Exodus 2:1 these are the names; God saw\r\n\r\n",
                                            "Exodus 2:1 love of God\r\n\r\n"};
        QTest::newRow("whole word only in a longer word")
            << "godly" << true
            << QStringList{"Genesis 2:1 a godly man loved God.\r\n\r\n",
                           "Matthew 2:1 GODLY ones\r\n\r\n"};
        QTest::newRow("first line never matched") << "CHAPTER" << false << QStringList{};
    }

    void matching()
    {
        QFETCH(QString, query);
        QFETCH(bool, wholeWord);
        QFETCH(QStringList, results);
        const QuickSearch::Result r = search(query, wholeWord);
        QCOMPARE(listed(r.hits), results);
        QCOMPARE(r.matchCount, results.size());
        QVERIFY((m_answers.count() == 0));
    }

    // A verse line of a damaged file, millions of characters long, is cut for the view; the
    // command line, which lists hit by hit, keeps it whole.
    void longLinesCutForTheView()
    {
        const SearchHit hit{QStringLiteral("Genesis"), QStringLiteral("1"),
                            QStringLiteral("1 ") + QString(3000000, u'w')};
        const QString listed = SearchHit::ListedAll({hit, hit});
        QVERIFY(listed.size() < 21000);
        QCOMPARE(
            listed.count(QStringLiteral(" [2,990,002 more characters are not shown.]\r\n\r\n")), 2);
        QCOMPARE(hit.Listed().size(), 10 + 3000002 + 4);
    }

    void limits()
    {
        // Fewer: the title quotes the query as typed, blanks kept.
        QuickSearch::Result r = search(QStringLiteral("  god "), false, 10);
        QCOMPARE(r.outcome, QuickSearch::Outcome::UnderLimit);
        QCOMPARE(r.title, QStringLiteral("Search results for \"  god \" (7 matches)"));

        // Exactly the limit: no message, the title still shows the last book searched.
        r = search(QStringLiteral("god"), false, 7);
        QCOMPARE(r.outcome, QuickSearch::Outcome::AtLimit);
        QCOMPARE(r.title, QStringLiteral("Searching: Matthew..."));
        QCOMPARE(r.hits.size(), 7);
        QVERIFY((m_answers.count() == 0));

        // More: the message names the limit, limit + 1 results are kept, the scan stops in the
        // book where the limit was passed.
        QStringList titles;
        QuickSearch quick;
        quick.onTitle = [&](const QString &t) { titles << t; };
        m_answers.clear();
        r = quick.run(m_bible, QStringLiteral("god"), false, 2);
        QCOMPARE(r.outcome, QuickSearch::Outcome::OverLimit);
        QCOMPARE(r.hits.size(), 3);
        QCOMPARE(r.title, QStringLiteral("First 2 results."));
        QCOMPARE(m_answers.prompts(),
                 QStringList{
                     QStringLiteral("There were over a 2 results for your search,\r\n"
                                    "please narrow it down or use the advanced search feature!")});
        QCOMPARE(titles, (QStringList{QString(), "Searching: Genesis...", "First 2 results."}));

        // A blank query does nothing at all.
        titles.clear();
        r = quick.run(m_bible, QStringLiteral("   "), false, 2);
        QCOMPARE(r.outcome, QuickSearch::Outcome::Nothing);
        QVERIFY(titles.isEmpty());
    }

    // Looking only at the lines where a word stands, found in one pass over the bytes, sees the
    // same lines, chapters and errors as reading every line, whatever the file holds.
    void placesAgreeWithLines_data()
    {
        QTest::addColumn<QByteArray>("genesis");
        QTest::addColumn<QByteArray>("matthew");
        QTest::addColumn<QString>("word");
        const QByteArray plain("T\r\nCHAPTER 9\r\n1 love\r\n");
        QTest::newRow("markers, a verse after one, words in markers and in the first line")
            << QByteArray("love title\r\nCHAPTER 1\r\n1 love\r\nCHAPTER 2\r\nCHAPTER 3 love\r\n"
                          "chapter 4\r\n2 LOVE and Love\r\n3 glove\r\n")
            << QByteArray("T\r\n1 love before a marker\r\nCHAPTER 9\r\n1 love\r\n") << "LOVE";
        QTest::newRow("a CR alone starts a line that is a marker")
            << QByteArray("T\r\nCHAPTER 1\r\n1 love\r\n2 x\rCHAPTER 2\r\n3 love\r\n") << plain
            << "LOVE";
        QTest::newRow("CRs alone and no line feed")
            << QByteArray("T\rCHAPTER 1\r1 love\r2 x") << plain << "LOVE";
        QTest::newRow("a character whose capitals are ASCII letters")
            << QByteArray("T\nCHAPTER 1\n1 stra\xc3\x9f"
                          "e\n2 strasse\n")
            << QByteArray("T\nCHAPTER 1\n1 gro\xdf\n2 GROSS\n") << "STRASSE";
        QTest::newRow("Windows-1252 apostrophes")
            << QByteArray("T\r\nCHAPTER 1\r\n1 love\x92s way\r\n2 loves\r\n") << plain << "LOVE";
        QTest::newRow("a marker on the last line")
            << QByteArray("T\r\nCHAPTER 1\r\n1 love\r\nCHAPTER 2\r\n") << plain << "LOVE";
        QTest::newRow("no line break at the end, LF alone")
            << QByteArray("T\nCHAPTER 7\n1 love") << QByteArray("T\nCHAPTER 1\nlove\n") << "LOVE";
        QByteArray longBook("T\r\n");
        for (int c = 1; c <= 20; ++c) {
            longBook += "CHAPTER " + QByteArray::number(c) + "\r\n";
            for (int v = 1; v <= 40; ++v)
                longBook +=
                    QByteArray::number(v) +
                    (v % 7 == c % 7 ? " they love it\r\n" : " and the word is elsewhere\r\n");
        }
        QTest::newRow("a long book") << longBook << longBook + "41 x\r42 love\r\n"
                                     << "LOVE";
        QTest::newRow("a one-letter word") << longBook << plain << "O";
    }
    void placesAgreeWithLines()
    {
        QFETCH(QByteArray, genesis);
        QFETCH(QByteArray, matthew);
        QFETCH(QString, word);
        QTemporaryDir dir;
        makeTranslation(dir.path(), QStringLiteral("P"),
                        {{QStringLiteral("Genesis"), false, {}, 50},
                         {QStringLiteral("Matthew"), true, {}, 28}});
        writeFile(dir.path() + QStringLiteral("/P/oldtest/GENESIS.dat"), genesis);
        writeFile(dir.path() + QStringLiteral("/P/newtest/MATTHEW.dat"), matthew);
        clsBible bible;
        bible.setVersionPath(dir.path() + QStringLiteral("/P"));
        const SearchTerm term(word);
        const auto seen = [&](bool byPlaces) {
            QStringList lines;
            BookScan scan;
            if (byPlaces)
                scan.heldWord = word.toLatin1();
            scan.onLine = [&](const BookScan::Line &line) {
                if (term.In(line, false))
                    lines
                        << QStringLiteral("%1 %2:%3").arg(line.book).arg(line.chapter, line.text());
                return BookScan::Next::Line;
            };
            try {
                scan.run(bible);
            } catch (const VbError &error) {
                lines << QStringLiteral("error %1").arg(error.number);
            }
            return lines;
        };
        for (const bool onePass : {false, true}) {
            BookFiles::setOnePass(onePass);
            const QStringList everyLine = seen(false);
            QVERIFY(!everyLine.isEmpty());
            QCOMPARE(seen(true), everyLine);
        }
        BookFiles::setOnePass(false);
    }

    void failures()
    {
        QTemporaryDir dir;
        makeTranslation(dir.path(), QStringLiteral("F"),
                        {{QStringLiteral("Genesis"), false, {"CHAPTER 1", "1 x", "CHAPTER 2"}},
                         {QStringLiteral("Mark"), true, {"CHAPTER 1", "1 y"}}});
        clsBible bible;
        bible.setVersionPath(dir.path() + QStringLiteral("/F"));
        QuickSearch quick;
        m_answers.clear();
        QuickSearch::Result r = quick.run(bible, QStringLiteral("x"), false, 10);
        QCOMPARE(r.outcome, QuickSearch::Outcome::Failed);
        QCOMPARE(r.failureMessage, QStringLiteral("Err #62 ocurred(Input past end of file)"));

        QFile::remove(dir.path() + QStringLiteral("/F/oldtest/GENESIS.dat"));
        m_answers.clear();
        r = quick.run(bible, QStringLiteral("x"), false, 10);
        QCOMPARE(r.outcome, QuickSearch::Outcome::Failed);
        QCOMPARE(r.title, QStringLiteral("Searching: Genesis..."));
        QVERIFY(r.failureMessage.startsWith(QStringLiteral("Err #53 ocurred(File not found")));
    }
};

QTEST_GUILESS_MAIN(TestQuickSearch)
#include "tst_quicksearch.moc"
