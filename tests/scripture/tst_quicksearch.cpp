// The quick keyword search over a translation: matching, whole words, the result limit and its
// three titles, and the order and form of the results.
#include "../support/TranslationFixture.h"
#include "platform/MsgBoxAnswerer.h"
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
