// The query language: what each element finds in a verse, what a malformed query is told, the
// spans a query highlights, and a search over two small translations with a book that changes on
// disk between searches.
#include "../support/TranslationFixture.h"
#include "scripture/BookFiles.h"
#include "scripture/QuerySearch.h"
#include "scripture/SearchQuery.h"

#include <QTemporaryDir>
#include <QTest>

using namespace fixture;

class TestSearchQuery : public QObject
{
    Q_OBJECT

    static bool matches(const QString &query, const QString &verse)
    {
        QueryProblem problem;
        const std::optional<SearchQuery> parsed = SearchQuery::Parse(query, &problem);
        if (!parsed)
            qWarning("%s: %s", qPrintable(query), qPrintable(problem.message));
        return parsed && parsed->Matches(verse);
    }

private slots:
    void elements_data()
    {
        QTest::addColumn<QString>("query");
        QTest::addColumn<QString>("verse");
        QTest::addColumn<bool>("found");
        const QString john = QStringLiteral(
            "16 For God so loved the world, that he gave his only begotten Son, that whosoever "
            "believeth in him should not perish, but have everlasting life.");
        QTest::newRow("all words, any order") << "world god" << john << true;
        QTest::newRow("one word missing") << "world satan" << john << false;
        QTest::newRow("whole words only") << "love" << john << false;
        QTest::newRow("case-blind") << "GOD" << john << true;
        QTest::newRow("verse number is not text") << "16" << john << false;
        QTest::newRow("accents ignored in the text") << "jesus"
                                                     << "1 Y Jesús lloró." << true;
        QTest::newRow("accents ignored in the query") << "élite"
                                                      << "1 the elite" << true;
        QTest::newRow("ligature folds") << "fine"
                                        << "1 ﬁne gold" << true;
        QTest::newRow("phrase") << "\"god so loved\"" << john << true;
        QTest::newRow("phrase across a comma") << "\"world that he\"" << john << true;
        QTest::newRow("phrase out of order") << "\"loved so\"" << john << false;
        QTest::newRow("or") << "satan OR world" << john << true;
        QTest::newRow("lower-case or is a word") << "satan or world" << john << false;
        QTest::newRow("minus") << "god -perish" << john << false;
        QTest::newRow("not") << "god NOT satan" << john << true;
        QTest::newRow("group") << "(satan OR devil) world" << john << false;
        QTest::newRow("and written") << "god AND world" << john << true;
        QTest::newRow("star") << "lov* begot*" << john << true;
        QTest::newRow("star in the middle") << "ev*ing" << john << true;
        QTest::newRow("question mark") << "w?rld" << john << true;
        QTest::newRow("question mark is one letter") << "wo?rld" << john << false;
        QTest::newRow("regex") << "/loved the w/" << john << true;
        QTest::newRow("regex case-blind") << "/^for GOD/" << john << true;
        QTest::newRow("regex skips brackets and numbers")
            << "/was the Word/"
            << "1 In{G1722} the beginning{G746} [was] the Word{G3056}" << true;
        QTest::newRow("word beside a number") << "beginning word"
                                              << "1 In the beginning{G746} the Word{G3056}" << true;
        QTest::newRow("strong's number") << "G746"
                                         << "1 the beginning{G746}" << true;
        QTest::newRow("strong's leading zeros") << "g0746"
                                                << "1 the beginning{G746}" << true;
        QTest::newRow("strong's whole number") << "G74"
                                               << "1 the beginning{G746}" << false;
        QTest::newRow("strong's not in the text") << "G746"
                                                  << "1 the G746 beginning" << false;
        QTest::newRow("apostrophe splits a word") << "lord"
                                                  << "1 the LORD'S house" << true;
        QTest::newRow("only exclusions") << "-satan" << john << true;
        // Each "ﬃ" folds into three letters: the text after them is still folded whole.
        QTest::newRow("ligatures before a long text")
            << "lifted"
            << QStringLiteral("1 ") + QString(300, QChar(0xFB03)) + u' ' + QString(300, u'a') +
                   QStringLiteral(" lifted")
            << true;
    }

    void elements()
    {
        QFETCH(QString, query);
        QFETCH(QString, verse);
        QFETCH(bool, found);
        QCOMPARE(matches(query, verse), found);
    }

    void malformed_data()
    {
        QTest::addColumn<QString>("query");
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("says");
        QTest::newRow("empty") << "   " << 0 << "empty";
        QTest::newRow("open quote") << "love \"so loved" << 5 << "quote at character 6";
        QTest::newRow("open parenthesis") << "(love OR (hate)" << 0 << "never closed";
        QTest::newRow("stray closing") << "love) god" << 4 << "no opening";
        QTest::newRow("empty group") << "love ()" << 5 << "hold nothing";
        QTest::newRow("empty phrase") << "\" \"" << 0 << "no words";
        QTest::newRow("bad regex") << "love /(ab/" << 5 << "not valid";
        QTest::newRow("open regex") << "/abc" << 0 << "never closed";
        QTest::newRow("empty regex") << "//" << 0 << "empty";
        QTest::newRow("or at the end") << "love OR" << 5 << "no term after";
        QTest::newRow("or at the start") << "OR love" << 0 << "no term before";
        QTest::newRow("not at the end") << "love NOT" << 5 << "nothing after";
        QTest::newRow("lone minus") << "love - god" << 5 << "nothing after";
        QTest::newRow("marks only") << "love !!" << 5 << "no letters";
    }

    void malformed()
    {
        QFETCH(QString, query);
        QFETCH(int, position);
        QFETCH(QString, says);
        QueryProblem problem;
        QVERIFY(!SearchQuery::Parse(query, &problem));
        QVERIFY2(problem.message.contains(says), qPrintable(problem.message));
        QCOMPARE(problem.position, position);
    }

    void highlights()
    {
        const QString shown = QStringLiteral("Y Jesús lloró; y Jesús amó a Lázaro.");
        const auto query =
            SearchQuery::Parse(QStringLiteral("jesus /l[aá]zaro/ -pedro \"y jesus\""));
        QVERIFY(query);
        // "y Jesús" merges with the second "Jesús"; "Y Jesús" at the start is the phrase too.
        const QList<std::pair<int, int>> expected{{0, 7}, {15, 7}, {29, 6}};
        QCOMPARE(query->Highlights(shown), expected);
        // Excluded words are not marked.
        const auto excluded = SearchQuery::Parse(QStringLiteral("amó NOT jesus"));
        QCOMPARE(excluded->Highlights(shown), (QList<std::pair<int, int>>{{23, 3}}));
        QCOMPARE(SearchQuery::DisplayedText(u"3 In{G1722} [the] beginning"),
                 QStringLiteral("In the beginning"));
        // A text as shown keeps a number at its start; a stored line does not.
        const auto number = SearchQuery::Parse(QStringLiteral("144"));
        QVERIFY(number->MatchesShown(QStringLiteral("144 thousand were sealed")));
        QVERIFY(!number->Matches(QStringLiteral("144 thousand were sealed")));
    }

    // Two translations, books chosen, the limit, interleaving by reference, and a book file that
    // changes between two searches.
    void search()
    {
        QTemporaryDir dir;
        makeTranslation(dir.path(), QStringLiteral("ONE"),
                        {{QStringLiteral("Genesis"),
                          false,
                          {"CHAPTER 1", "1 God made light", "2 and light was good"}},
                         {QStringLiteral("John"),
                          true,
                          {"CHAPTER 1", "1 the light shineth", "CHAPTER 2", "1 no match"}}});
        makeTranslation(dir.path(), QStringLiteral("TWO"),
                        {{QStringLiteral("Genesis"), false, {"CHAPTER 1", "1 Dios hizo la luz"}},
                         {QStringLiteral("John"), true, {"CHAPTER 1", "1 the light, light"}}});
        QuerySearch::Options options;
        options.translations = {dir.path() + QStringLiteral("/ONE"),
                                dir.path() + QStringLiteral("/TWO")};
        QuerySearch search;
        const auto light = *SearchQuery::Parse(QStringLiteral("light"));
        QuerySearch::Result result = search.run(light, options);
        QCOMPARE(result.found, 4);
        QCOMPARE(result.translations, 2);
        QStringList listed;
        for (const QueryHit &hit : result.hits)
            listed << hit.translation + u' ' + hit.reference + u' ' + hit.text;
        QCOMPARE(listed, (QStringList{
                             "ONE GENESIS 1:1 God made light", "ONE GENESIS 1:2 and light was good",
                             "ONE JOHN 1:1 the light shineth", "TWO JOHN 1:1 the light, light"}));
        QCOMPARE(result.hits.last().CsvRecord(),
                 QStringLiteral("TWO,JOHN 1:1,John,1,1,\"the light, light\"\r\n"));

        options.order = QuerySearch::Order::ByTranslation;
        options.books = {false, true};
        options.limit = 1;
        result = search.run(light, options);
        QCOMPARE(result.found, 2);
        QCOMPARE(result.hits.size(), 1);
        QCOMPARE(result.hits.first().reference, QStringLiteral("JOHN 1:1"));

        // Stopped before the first book: nothing found, and said so.
        search.onProgress = [](int, int) { return false; };
        result = search.run(light, options);
        QVERIFY(result.stopped);
        QCOMPARE(result.found, 0);
        search.onProgress = nullptr;

        // The file shrinks on disk: the next search reads it again.
        writeFile(dir.path() + QStringLiteral("/TWO/newtest/JOHN.dat"), "CHAPTER 1\r\n1 dark\r\n");
        options.books.clear();
        options.limit = 10;
        result = search.run(light, options);
        QCOMPARE(result.found, 3);
        QVERIFY(result.failureMessage.isEmpty());

        // A book file gone: what could be read is listed, and the missing file is named.
        QFile::remove(dir.path() + QStringLiteral("/ONE/newtest/JOHN.dat"));
        result = search.run(light, options);
        QCOMPARE(result.found, 2);
        QVERIFY2(result.failureMessage.contains(QStringLiteral("JOHN.dat"), Qt::CaseInsensitive),
                 qPrintable(result.failureMessage));
    }

    // A book file that shrinks on disk while the program holds it, as when another program rewrites
    // it: reading what is held never crashes, and the next search reads the new file.
    void shrinkingFile()
    {
        QTemporaryDir dir;
        QStringList lines{"CHAPTER 1"};
        for (int v = 1; v <= 2000; ++v)
            lines << QStringLiteral("%1 And the light was good, verse %1.").arg(v);
        makeTranslation(dir.path(), QStringLiteral("BIG"),
                        {{QStringLiteral("Genesis"), false, lines}});
        const QString book = dir.path() + QStringLiteral("/BIG/oldtest/GENESIS.dat");
        const std::shared_ptr<const BookFiles::Bytes> held = BookFiles::bytes(book);
        QVERIFY(held);
        QCOMPARE(held->Lines().size(), 2001);
        QuerySearch::Options options;
        options.translations = {dir.path() + QStringLiteral("/BIG")};
        QuerySearch search;
        const auto query = *SearchQuery::Parse(QStringLiteral("\"verse 2000\""));
        QCOMPARE(search.run(query, options).found, 1);

        QFile file(book);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.resize(0));
        file.write("CHAPTER 1\r\n1 short\r\n");
        file.close();
        // Whatever the held copy shows now, reading all of it is safe.
        qsizetype characters = 0;
        for (qsizetype i = 0; i < held->Lines().size(); ++i)
            characters += held->Text(i).size();
        QVERIFY(characters > 0);
        QCOMPARE(search.run(query, options).found, 0);
        QCOMPARE(search.run(*SearchQuery::Parse(QStringLiteral("short")), options).found, 1);
    }
};

QTEST_GUILESS_MAIN(TestSearchQuery)
#include "tst_searchquery.moc"
