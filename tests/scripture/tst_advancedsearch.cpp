// The advanced search: the three modes and the one-word rule, whole words, the books chosen (a
// book not chosen is never opened), the limit with its message and captions, bad input.
#include "../support/TranslationFixture.h"
#include "platform/FileSystem.h"
#include "platform/MsgBoxAnswerer.h"
#include "scripture/AdvancedSearch.h"
#include "scripture/BookFiles.h"
#include "scripture/clsBible.h"

#include <QFile>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

using namespace fixture;
using Mode = AdvancedSearch::Mode;

class TestAdvancedSearch : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    clsBible m_bible;
    platform::MsgBoxAnswerer m_answers;
    QStringList m_messages;

    AdvancedSearch::Result search(const QString &query, Mode mode, bool wholeWord = false,
                                  int limit = 500, QList<bool> books = {true, true, true})
    {
        m_messages.clear();
        AdvancedSearch advanced;
        advanced.onOverLimit = [this](const QString &message) { m_messages << message; };
        return advanced.run(m_bible, {query, mode, wholeWord, books, limit});
    }

private slots:
    void initTestCase()
    {
        QList<Book> books = {
            {QStringLiteral("Genesis"),
             false,
             {"CHAPTER 1", "1 In the beginning GOD created", "2 and God's spirit moved",
              "CHAPTER 2", "1 a godly man loved God.", "2 love and god", "3 GOD IS LOVE"}},
            {QStringLiteral("Exodus"),
             false,
             {"CHAPTER 1", "1 these are the names", "CHAPTER 2", "1 love of the brethren"}},
            {QStringLiteral("Matthew"),
             true,
             {"CHAPTER 1", "1 the book of the generation", "CHAPTER 2", "1 GODLY love"}},
        };
        makeTranslation(m_dir.path(), QStringLiteral("S"), books);
        m_bible.setVersionPath(m_dir.path() + QStringLiteral("/S"));
    }

    void modes_data()
    {
        QTest::addColumn<QString>("query");
        QTest::addColumn<int>("mode");
        QTest::addColumn<bool>("wholeWord");
        QTest::addColumn<QStringList>("items");
        QTest::addColumn<int>("ran");

        // The first line of each file is never looked at, so chapter 1 of a book carries the
        // chapter of the book before it (none for the first book), as in the quick search.
        QTest::newRow("all words, any order")
            << "love god" << int(Mode::AllWords) << false
            << QStringList{"Genesis 2:1", "Genesis 2:2", "Genesis 2:3", "Matthew 2:1"}
            << int(Mode::AllWords);
        QTest::newRow("any word") << "god brethren" << int(Mode::AnyWord) << false
                                  << QStringList{"Genesis :1",  "Genesis :2",  "Genesis 2:1",
                                                 "Genesis 2:2", "Genesis 2:3", "Exodus 2:1",
                                                 "Matthew 2:1"}
                                  << int(Mode::AnyWord);
        QTest::newRow("exact phrase, blanks inside kept")
            << "god is love" << int(Mode::ExactPhrase) << false << QStringList{"Genesis 2:3"}
            << int(Mode::ExactPhrase);
        QTest::newRow("exact phrase not found in order")
            << "love is god" << int(Mode::ExactPhrase) << false << QStringList{}
            << int(Mode::ExactPhrase);
        QTest::newRow("one word is an exact phrase whatever the mode")
            << "  GODLY " << int(Mode::AnyWord) << false
            << QStringList{"Genesis 2:1", "Matthew 2:1"} << int(Mode::ExactPhrase);
        QTest::newRow("whole word: LOVE is not LOVED")
            << "love" << int(Mode::AllWords) << true
            << QStringList{"Genesis 2:2", "Genesis 2:3", "Exodus 2:1", "Matthew 2:1"}
            << int(Mode::ExactPhrase);
        QTest::newRow("without whole words LOVED holds LOVE")
            << "love" << int(Mode::AllWords) << false
            << QStringList{"Genesis 2:1", "Genesis 2:2", "Genesis 2:3", "Exodus 2:1", "Matthew 2:1"}
            << int(Mode::ExactPhrase);
        QTest::newRow("whole words in all words")
            << "god love" << int(Mode::AllWords) << true
            << QStringList{"Genesis 2:2", "Genesis 2:3"} << int(Mode::AllWords);
        QTest::newRow("the first line is never matched")
            << "chapter" << int(Mode::AnyWord) << false << QStringList{} << int(Mode::ExactPhrase);
    }

    void modes()
    {
        QFETCH(QString, query);
        QFETCH(int, mode);
        QFETCH(bool, wholeWord);
        QFETCH(QStringList, items);
        QFETCH(int, ran);
        const AdvancedSearch::Result r = search(query, Mode(mode), wholeWord);
        QVERIFY(r.ran);
        QCOMPARE(int(r.mode), ran);
        QCOMPARE(SearchHit::References(r.hits), items);
        QCOMPARE(r.title, QString::number(items.size()) + QStringLiteral(" Matches"));
        QVERIFY(m_messages.isEmpty());
        QCOMPARE(m_answers.count(), 0);
    }

    // Many words are read in one pass over each line; what it finds is what each word finds
    // alone, whole words or not, with words inside others, repeated and unknown words, an
    // empty word from a doubled blank, and a word of a million letters.
    void manyWordsFindWhatEachFinds()
    {
        const QStringList words = {"OD",  "GOD",   "GODLY", "LOVED", "EN", "Ä",
                                   "THE", "NAMES", "XYZZY", "OD",    "'S"};
        for (const bool whole : {false, true}) {
            for (const QString &extra : {QString(), QStringLiteral(" "), QString(1000000, u'q')}) {
                QStringList each;
                for (const QString &word : words)
                    each += SearchHit::References(search(word, Mode::ExactPhrase, whole).hits);
                if (extra == u" ")
                    each += SearchHit::References(
                        search(QStringLiteral("a  b"), Mode::AnyWord, whole).hits);
                const QStringList found = SearchHit::References(
                    search(QStringLiteral("OD ") + extra + u' ' + words.join(u' '), Mode::AnyWord,
                           whole)
                        .hits);
                for (const QString &item : std::as_const(each))
                    QVERIFY2(found.contains(item), qPrintable(item));
                QCOMPARE(QSet<QString>(found.begin(), found.end()),
                         QSet<QString>(each.begin(), each.end()));
            }
        }
    }

    void linesAreTheVerses()
    {
        const AdvancedSearch::Result r = search(QStringLiteral("brethren"), Mode::ExactPhrase);
        QCOMPARE(SearchHit::ListedAll(r.hits),
                 QStringLiteral("Exodus 2:1 love of the brethren\r\n\r\n"));
    }

    void lettersThatBecomeSeveral()
    {
        // Upper-cased, "ß" is "SS", "ſ" is "S" and "ﬁ" is "FI": a search finds them as such, in
        // UTF-8 and in Windows-1252 alike, and a letter with an accent stays no letter A to Z.
        QTemporaryDir dir;
        makeTranslation(dir.path(), QStringLiteral("U"),
                        {{QStringLiteral("Genesis"),
                          false,
                          {"CHAPTER 1", "1 die Straße", "2 ſo ﬁne", "3 café", "4 x"}},
                         {QStringLiteral("Matthew"), true, {"CHAPTER 1", "1 y"}}});
        clsBible utf8;
        utf8.setVersionPath(dir.path() + QStringLiteral("/U"));
        BookFiles::clear();
        const auto items = [&](clsBible &bible, const QString &query, bool whole) {
            AdvancedSearch advanced;
            return SearchHit::References(
                advanced.run(bible, {query, Mode::AnyWord, whole, {true, true}, 500}).hits);
        };
        QCOMPARE(items(utf8, QStringLiteral("strasse"), false), QStringList{"Genesis :1"});
        QCOMPARE(items(utf8, QStringLiteral("so"), true), QStringList{"Genesis :2"});
        QCOMPARE(items(utf8, QStringLiteral("fine"), true), QStringList{"Genesis :2"});
        QCOMPARE(items(utf8, QStringLiteral("caf"), true), QStringList{"Genesis :3"});
        // Two blanks make an empty word, which as a whole word wants two non-letters side by side:
        // the verse number and its blank are.
        QCOMPARE(
            items(utf8, QStringLiteral("x  y"), true),
            (QStringList{"Genesis :1", "Genesis :2", "Genesis :3", "Genesis :4", "Matthew :1"}));

        writeFile(platform::ResolvePath(utf8.BookFilePath(1)), "CHAPTER 1\r\n1 die Stra\xDF"
                                                               "e\r\n2 caf\xE9\r\n");
        BookFiles::clear();
        QCOMPARE(items(utf8, QStringLiteral("strasse"), false), QStringList{"Genesis :1"});
        QCOMPARE(items(utf8, QStringLiteral("caf"), true), QStringList{"Genesis :2"});
        BookFiles::clear();
    }

    void booksNotChosenAreNeverOpened()
    {
        // Exodus has no file at all: choosing the others only must not touch it.
        const QString exodus = platform::ResolvePath(m_bible.BookFilePath(2));
        const QString saved = exodus + QStringLiteral(".away");
        QVERIFY(QFile::rename(exodus, saved));
        BookFiles::clear();
        const AdvancedSearch::Result r =
            search(QStringLiteral("love"), Mode::ExactPhrase, false, 500, {false, false, true});
        QVERIFY(r.failureMessage.isEmpty());
        QCOMPARE(SearchHit::References(r.hits), QStringList{"Matthew 2:1"});
        // Chosen, the missing book ends the search with the file-not-found message.
        const AdvancedSearch::Result failed = search(QStringLiteral("love"), Mode::ExactPhrase);
        QVERIFY2(failed.failureMessage.contains(QStringLiteral("53")),
                 qPrintable(failed.failureMessage));
        QVERIFY(failed.hits.isEmpty());
        QVERIFY(QFile::rename(saved, exodus));
        BookFiles::clear();
    }

    void progressVisitsEveryBook()
    {
        QList<int> seen;
        AdvancedSearch advanced;
        advanced.onProgress = [&](int book, int books) {
            QCOMPARE(books, 3);
            seen << book;
        };
        advanced.run(m_bible,
                     {QStringLiteral("god"), Mode::AnyWord, false, {false, true, false}, 500});
        QCOMPARE(seen, (QList<int>{1, 2, 3}));
    }

    void overTheLimit()
    {
        // One more than the limit is kept; the user is told once and the search ends there.
        AdvancedSearch::Result r = search(QStringLiteral("god"), Mode::ExactPhrase, false, 2);
        QCOMPARE(SearchHit::References(r.hits),
                 (QStringList{"Genesis :1", "Genesis :2", "Genesis 2:1"}));
        QVERIFY(r.overLimit);
        QCOMPARE(m_messages,
                 QStringList{"There were over a 2 results for your search,\r\n"
                             "please narrow it down or use the advanced search feature!"});
        QCOMPARE(r.title, QStringLiteral("Too many results!!!  Only First 2 shown"));

        r = search(QStringLiteral("god love"), Mode::AnyWord, false, 3);
        QCOMPARE(r.hits.size(), 4);
        QCOMPARE(r.title, QStringLiteral("Too many results!!!"));
        QCOMPARE(m_messages.size(), 1);

        // Exactly the limit is not over it.
        r = search(QStringLiteral("brethren"), Mode::ExactPhrase, false, 1);
        QVERIFY(!r.overLimit);
        QCOMPARE(r.title, QStringLiteral("1 Matches"));
    }

    void binaryJunkInABook()
    {
        // Bytes of every value, lone CRs, NULs and broken UTF-8 in the place of a book: the
        // searches go through it and find what its text holds, nothing else.
        QTemporaryDir dir;
        QByteArray junk("CHAPTER 1\r\n");
        for (int i = 0; i < 4096; ++i)
            junk.append(char((i * 37) % 256));
        junk.append("\r1 GOD\xC3\r\nCHAPTER\r\n\xFF\xFE god\n");
        makeTranslation(dir.path(), QStringLiteral("J"),
                        {{QStringLiteral("Genesis"), false, {}},
                         {QStringLiteral("Matthew"), true, {"CHAPTER 1", "1 god"}}});
        clsBible junkBible;
        junkBible.setVersionPath(dir.path() + QStringLiteral("/J"));
        writeFile(platform::ResolvePath(junkBible.BookFilePath(1)), junk);
        BookFiles::clear();
        for (const Mode mode : {Mode::AnyWord, Mode::AllWords, Mode::ExactPhrase}) {
            AdvancedSearch advanced;
            const AdvancedSearch::Result r =
                advanced.run(junkBible, {QStringLiteral("god x"), mode, true, {true, true}, 500});
            QVERIFY(r.ran);
            QVERIFY(r.failureMessage.isEmpty());
            // Matthew's chapter is the one the junk's last marker (a bare "CHAPTER") left: 0.
            QVERIFY2(SearchHit::References(r.hits).contains(QStringLiteral("Matthew 0:1")) ==
                         (mode == Mode::AnyWord),
                     qPrintable(SearchHit::References(r.hits).join(u',')));
        }
        // An empty book file ends the search with a message, as reading past its end does.
        writeFile(platform::ResolvePath(junkBible.BookFilePath(1)), QByteArray());
        BookFiles::clear();
        AdvancedSearch advanced;
        const AdvancedSearch::Result empty = advanced.run(
            junkBible, {QStringLiteral("god"), Mode::AnyWord, false, {true, true}, 500});
        QVERIFY(!empty.failureMessage.isEmpty());
        QVERIFY(empty.hits.isEmpty());
    }

    void badQueries_data()
    {
        QTest::addColumn<QString>("query");
        QTest::addColumn<bool>("ran");
        QTest::newRow("empty") << QString() << false;
        QTest::newRow("only blanks") << QStringLiteral("     ") << false;
        QTest::newRow("10,000 characters") << QString(10000, u'x') << true;
        QTest::newRow("control characters") << QStringLiteral("\t\x01 god") << true;
    }

    void badQueries()
    {
        QFETCH(QString, query);
        QFETCH(bool, ran);
        for (const Mode mode : {Mode::AnyWord, Mode::AllWords, Mode::ExactPhrase}) {
            const AdvancedSearch::Result r = search(query, mode, true);
            QCOMPARE(r.ran, ran);
            QVERIFY(r.failureMessage.isEmpty());
        }
    }
};

QTEST_GUILESS_MAIN(TestAdvancedSearch)
#include "tst_advancedsearch.moc"
