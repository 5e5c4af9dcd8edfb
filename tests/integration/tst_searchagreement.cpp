// Every search mode against a plain scan of the book files written here, on every installed
// translation: the quick search, the three advanced modes and a few hundred generated queries of
// the query language. The scan shares no code with the searches: it reads and decodes the files
// itself, splits them into lines and words its own way and answers queries from an index of words.
// Each comparison runs twice, the second time with every cached file forgotten and the order of
// the translations and queries reversed, so no result depends on what was read before.
#include "platform/TextCodec.h"
#include "scripture/AdvancedSearch.h"
#include "scripture/BookFiles.h"
#include "scripture/QuerySearch.h"
#include "scripture/QuickSearch.h"
#include "scripture/SearchQuery.h"
#include "scripture/TranslationList.h"
#include "scripture/clsBible.h"

#include <QFile>
#include <QHash>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>
#include <functional>
#include <memory>

namespace {

// ---- The plain scan.

struct Line
{
    int book = 0;
    QString chapter; // as the searches carry it: text, from the last marker read
    QString text;
    QString upper;
};

struct Verse
{
    int book = 0;
    int chapter = 0;
    int verse = 0;
    QString shown;
    QList<int> words; // folded, as numbers of the translation's vocabulary
    QStringList strongs;
};

struct Translation
{
    QString folder;
    QString path;
    QList<QString> bookNames;
    QList<Line> lines;       // as the quick and advanced searches read them
    QList<Verse> verses;     // as the query language reads them
    QHash<QString, int> ids; // folded word -> its number
    QStringList vocabulary;  // by number
    QList<QList<int>> index; // by number: the verses holding the word, in order
};

QStringList fileLines(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.readAll();
    QString text =
        bytes.isValidUtf8() ? QString::fromUtf8(bytes) : platform::DecodeWindows1252(bytes);
    if (text.startsWith(QChar(0xFEFF)))
        text.remove(0, 1);
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(u'\r', u'\n');
    if (text.endsWith(u'\n'))
        text.chop(1);
    return text.isEmpty() ? QStringList() : text.split(u'\n');
}

QString fold(const QString &text)
{
    const QString decomposed = text.normalized(QString::NormalizationForm_KD);
    QString folded;
    for (const QChar c : decomposed) {
        if (c.category() == QChar::Mark_NonSpacing ||
            c.category() == QChar::Mark_SpacingCombining || c.category() == QChar::Mark_Enclosing)
            continue;
        folded += c.isSurrogate() ? c : c.toUpper();
    }
    return folded;
}

// The runs of letters and digits.
QStringList wordsOf(const QString &folded)
{
    QStringList words;
    qsizetype start = -1;
    for (qsizetype i = 0; i <= folded.size(); ++i) {
        const bool inWord = i < folded.size() && folded.at(i).isLetterOrNumber();
        if (inWord && start < 0)
            start = i;
        if (!inWord && start >= 0) {
            words.append(folded.mid(start, i - start));
            start = -1;
        }
    }
    return words;
}

Translation load(const QString &programFolder, const InstalledTranslation &installed)
{
    Translation t;
    t.folder = installed.folder;
    t.path = programFolder + u'/' + installed.folder;
    clsBible bible;
    bible.setVersionPath(t.path);
    QString chapter;
    static const QRegularExpression braces(QStringLiteral("\\{([^}]*)\\}?"));
    static const QRegularExpression number(QStringLiteral("^([HhGg])0*([1-9][0-9]{0,8})$"));
    for (int b = 1; b <= bible.BooksCount(); ++b) {
        t.bookNames.append(bible.BookName(b));
        const QStringList lines = fileLines(bible.BookFilePath(b));
        // The quick and advanced searches: the first line passed over, a marker line setting the
        // chapter and the line after it taken as a verse.
        for (qsizetype i = 1; i < lines.size(); ++i) {
            QString line = lines.at(i);
            if (line.left(7).toUpper() == u"CHAPTER") {
                chapter = QString::number(line.mid(7).trimmed().toInt());
                line = lines.at(++i);
            }
            t.lines.append({b, chapter, line, line.toUpper()});
        }
        // The query language: verses are the lines after a book's first marker.
        int queryChapter = -1;
        for (const QString &line : lines) {
            if (line.trimmed().left(7).toUpper() == u"CHAPTER") {
                queryChapter = line.trimmed().mid(7).trimmed().toInt();
                continue;
            }
            if (queryChapter < 0 || line.isEmpty())
                continue;
            Verse v;
            v.book = b;
            v.chapter = queryChapter;
            static const QRegularExpression lead(QStringLiteral("^([0-9]*) ?"));
            const QRegularExpressionMatch m = lead.match(line);
            v.verse = m.captured(1).left(9).toInt();
            QString rest = m.captured(1).isEmpty() ? line : line.mid(m.capturedLength());
            QRegularExpressionMatchIterator it = braces.globalMatch(rest);
            while (it.hasNext()) {
                static const QRegularExpression notWord(QStringLiteral("[^\\p{L}\\p{N}]"));
                for (const QString &piece : it.next().captured(1).split(notWord)) {
                    const QRegularExpressionMatch n = number.match(piece);
                    if (n.hasMatch())
                        v.strongs.append(n.captured(1).toUpper() + n.captured(2));
                }
            }
            rest.remove(braces);
            rest.remove(u'[');
            rest.remove(u']');
            v.shown = rest;
            const int index = int(t.verses.size());
            for (const QString &w : wordsOf(fold(rest))) {
                auto id = t.ids.constFind(w);
                if (id == t.ids.cend()) {
                    id = t.ids.insert(w, int(t.vocabulary.size()));
                    t.vocabulary.append(w);
                    t.index.append(QList<int>());
                }
                v.words.append(*id);
                QList<int> &list = t.index[*id];
                if (list.isEmpty() || list.last() != index)
                    list.append(index);
            }
            t.verses.append(v);
        }
    }
    return t;
}

// The advanced search's whole-word rule: no letter A to Z on either side of some occurrence.
bool wholeWordIn(const QString &upper, const QString &term)
{
    for (qsizetype at = upper.indexOf(term); at >= 0; at = upper.indexOf(term, at + 1)) {
        const auto letter = [&](qsizetype i) {
            return i >= 0 && i < upper.size() && upper.at(i) >= u'A' && upper.at(i) <= u'Z';
        };
        if (!letter(at - 1) && !letter(at + term.size()))
            return true;
    }
    return false;
}

// ---- Generated queries, kept as trees so the scan can answer them without reading the text.

struct Query
{
    enum class Kind
    {
        Word,
        Phrase,
        Regex,
        Strongs,
        And,
        Or,
        Not
    };
    Kind kind = Kind::Word;
    QStringList words; // as typed
    QString text;      // regular expression or Strong's number as typed
    std::vector<Query> children;

    QString typed(QRandomGenerator &random) const
    {
        switch (kind) {
        case Kind::Word:
            return words.first();
        case Kind::Phrase:
            return u'"' + words.join(u' ') + u'"';
        case Kind::Regex:
            return u'/' + QString(text).replace(u'/', QStringLiteral("\\/")) + u'/';
        case Kind::Strongs:
            return text;
        case Kind::Not:
            return (random.bounded(2) ? QStringLiteral("-") : QStringLiteral("NOT ")) +
                   children.front().typed(random);
        case Kind::And:
        case Kind::Or: {
            QStringList parts;
            for (const Query &child : children)
                parts.append(child.typed(random));
            const QString joined = parts.join(kind == Kind::Or    ? QStringLiteral(" OR ")
                                              : random.bounded(2) ? QStringLiteral(" AND ")
                                                                  : QStringLiteral(" "));
            return u'(' + joined + u')';
        }
        }
        return QString();
    }
};

// A word pattern with * and ?, as a test of whole words.
struct Pattern
{
    QString literal; // the word itself when it has no wildcards
    QRegularExpression rx;

    explicit Pattern(const QString &pattern)
    {
        if (!pattern.contains(u'*') && !pattern.contains(u'?')) {
            literal = pattern;
            return;
        }
        QString text;
        for (const QChar c : pattern)
            text += c == u'*'   ? QStringLiteral("[\\p{L}\\p{N}]*")
                    : c == u'?' ? QStringLiteral("[\\p{L}\\p{N}]")
                                : QRegularExpression::escape(QString(c));
        rx = QRegularExpression(QRegularExpression::anchoredPattern(text));
    }
    bool matches(const QString &word) const
    {
        return literal.isEmpty() ? rx.match(word).hasMatch() : word == literal;
    }
};

using Flags = std::vector<char>;

Flags answer(const Translation &t, const Query &q)
{
    const size_t n = size_t(t.verses.size());
    Flags flags(n, 0);
    switch (q.kind) {
    case Query::Kind::Word:
    case Query::Kind::Phrase: {
        QStringList pieces;
        for (const QString &typed : q.words)
            pieces += wordsOf(fold(typed)
                                  .replace(u'*', QStringLiteral("XSTARX"))
                                  .replace(u'?', QStringLiteral("XQMARKX")))
                          .replaceInStrings(QStringLiteral("XSTARX"), QStringLiteral("*"))
                          .replaceInStrings(QStringLiteral("XQMARKX"), QStringLiteral("?"));
        // Each word of the phrase as the words of the vocabulary it allows.
        std::vector<std::vector<char>> allowed;
        for (const QString &piece : std::as_const(pieces)) {
            const Pattern pattern(piece);
            std::vector<char> ok(size_t(t.vocabulary.size()), 0);
            if (!pattern.literal.isEmpty()) {
                const int id = t.ids.value(pattern.literal, -1);
                if (id >= 0)
                    ok[size_t(id)] = 1;
            } else {
                for (qsizetype id = 0; id < t.vocabulary.size(); ++id)
                    ok[size_t(id)] = pattern.matches(t.vocabulary.at(id));
            }
            allowed.push_back(std::move(ok));
        }
        // The verses that hold the first word, by the index; then each is read for the rest.
        for (qsizetype id = 0; id < t.vocabulary.size(); ++id) {
            if (!allowed.front()[size_t(id)])
                continue;
            for (const int v : t.index.at(id)) {
                const QList<int> &words = t.verses.at(v).words;
                for (qsizetype s = 0; s + pieces.size() <= words.size() && !flags[size_t(v)]; ++s) {
                    bool all = true;
                    for (qsizetype k = 0; k < pieces.size() && all; ++k)
                        all = allowed[size_t(k)][size_t(words.at(s + k))];
                    flags[size_t(v)] = all;
                }
            }
        }
        return flags;
    }
    case Query::Kind::Regex: {
        const QRegularExpression rx(q.text, QRegularExpression::CaseInsensitiveOption |
                                                QRegularExpression::UseUnicodePropertiesOption);
        for (size_t v = 0; v < n; ++v)
            flags[v] = rx.match(t.verses.at(qsizetype(v)).shown).hasMatch();
        return flags;
    }
    case Query::Kind::Strongs: {
        static const QRegularExpression number(QStringLiteral("^([HhGg])0*([0-9]+)$"));
        const QRegularExpressionMatch m = number.match(q.text);
        const QString wanted = m.captured(1).toUpper() + m.captured(2);
        for (size_t v = 0; v < n; ++v)
            flags[v] = t.verses.at(qsizetype(v)).strongs.contains(wanted);
        return flags;
    }
    case Query::Kind::Not: {
        flags = answer(t, q.children.front());
        for (char &f : flags)
            f = !f;
        return flags;
    }
    case Query::Kind::And:
    case Query::Kind::Or: {
        const bool isAnd = q.kind == Query::Kind::And;
        std::fill(flags.begin(), flags.end(), isAnd);
        for (const Query &child : q.children) {
            const Flags other = answer(t, child);
            for (size_t v = 0; v < n; ++v)
                flags[v] = isAnd ? flags[v] && other[v] : flags[v] || other[v];
        }
        return flags;
    }
    }
    return flags;
}

} // namespace

class TestSearchAgreement : public QObject
{
    Q_OBJECT

    QString m_folder;
    std::vector<Translation> m_translations;
    QHash<QString, Flags> m_answers;
    QHash<QString, QList<QStringList>> m_lists;

    // A word of some verse, as the text has it.
    QString someWord(QRandomGenerator &random)
    {
        const Translation &t = m_translations[random.bounded(quint32(m_translations.size()))];
        for (;;) {
            const Verse &v = t.verses.at(random.bounded(int(t.verses.size())));
            static const QRegularExpression word(QStringLiteral("[\\p{L}\\p{N}]+"));
            QStringList words;
            QRegularExpressionMatchIterator it = word.globalMatch(v.shown);
            while (it.hasNext())
                words.append(it.next().captured());
            if (words.isEmpty())
                continue;
            const QString w = words.at(random.bounded(int(words.size())));
            // The commonest words are in most verses: listing those says little and takes long,
            // so one in ten is kept.
            const int id = t.ids.value(fold(w), -1);
            if (id < 0 || t.index.at(id).size() < 2000 || random.bounded(10) == 0)
                return w;
        }
    }

    Query term(QRandomGenerator &random, int depth)
    {
        Query q;
        const int pick = int(random.bounded(100));
        if (depth < 2 && pick < 25) {
            q.kind = random.bounded(2) ? Query::Kind::And : Query::Kind::Or;
            const int count = 2 + int(random.bounded(2));
            for (int i = 0; i < count; ++i) {
                // An exclusion beside other terms; alone or beside OR it would list most of the
                // Bible, which says no more and takes longer.
                if (q.kind == Query::Kind::And && i > 0 && random.bounded(3) == 0) {
                    Query excluded;
                    excluded.kind = Query::Kind::Not;
                    excluded.children.push_back(term(random, 2));
                    q.children.push_back(excluded);
                } else {
                    q.children.push_back(term(random, depth + 1));
                }
            }
        } else if (pick < 40) {
            q.kind = Query::Kind::Phrase;
            const Translation &t = m_translations[random.bounded(quint32(m_translations.size()))];
            const Verse &v = t.verses.at(random.bounded(int(t.verses.size())));
            static const QRegularExpression word(QStringLiteral("[\\p{L}\\p{N}]+"));
            QStringList words;
            QRegularExpressionMatchIterator it = word.globalMatch(v.shown);
            while (it.hasNext())
                words.append(it.next().captured());
            const int length = 2 + int(random.bounded(2));
            if (words.size() < length)
                return term(random, depth);
            const int start = int(random.bounded(int(words.size()) - length + 1));
            const QString phrase = words.mid(start, length).join(u' ');
            // Case changed as a user might type it.
            q.words = {random.bounded(2) ? phrase.toLower() : phrase};
        } else if (pick < 43) {
            q.kind = Query::Kind::Regex;
            static const QStringList patterns{
                QStringLiteral("\\blove\\b"),  QStringLiteral("^and "),
                QStringLiteral("lord\\.$"),    QStringLiteral("[0-9]"),
                QStringLiteral("\\bDios\\b"),  QStringLiteral("s[ií]\\b"),
                QStringLiteral("beginning"),   QStringLiteral("(father|mother)s?\\b"),
                QStringLiteral("[;:]\\s*the"), QStringLiteral("a/b|the end"),
                QStringLiteral("\\bGod's"),    QStringLiteral("ñ")};
            q.text = patterns.at(random.bounded(int(patterns.size())));
        } else if (pick < 48) {
            q.kind = Query::Kind::Strongs;
            static const QStringList numbers{QStringLiteral("H430"),  QStringLiteral("G26"),
                                             QStringLiteral("h0430"), QStringLiteral("g2316"),
                                             QStringLiteral("H3068"), QStringLiteral("G1722")};
            q.text = numbers.at(random.bounded(int(numbers.size())));
        } else {
            q.kind = Query::Kind::Word;
            QString w = someWord(random);
            const int change = int(random.bounded(10));
            if (change == 0 && w.size() > 3)
                w = w.left(w.size() - 2) + u'*';
            else if (change == 1 && w.size() > 2)
                w[1] = u'?';
            else if (change == 2)
                w = w.toLower();
            else if (change == 3)
                w = w.toUpper();
            // The operators are written in capitals; a word must not become one.
            if (w == u"OR" || w == u"AND" || w == u"NOT")
                w = w.toLower();
            q.words = {w};
        }
        return q;
    }

    // The engine's hits against the scan's verses, translation by translation in file order;
    // empty when they agree, else the first difference.
    QString compare(const QString &typed, const Query &q, const QuerySearch::Result &result)
    {
        QHash<QString, QList<const QueryHit *>> byTranslation;
        for (const QueryHit &hit : result.hits)
            byTranslation[hit.translation].append(&hit);
        for (const Translation &t : m_translations) {
            // The scan's answers are the same in both rounds: made once.
            const QString key = t.folder + u'\n' + typed;
            if (!m_answers.contains(key))
                m_answers.insert(key, answer(t, q));
            const Flags &flags = m_answers[key];
            const QList<const QueryHit *> hits = byTranslation.value(t.folder);
            qsizetype k = 0;
            for (qsizetype v = 0; v < t.verses.size(); ++v) {
                if (!flags[size_t(v)])
                    continue;
                const Verse &verse = t.verses.at(v);
                const auto scanned = [&] {
                    return QStringLiteral("%1 %2:%3 ")
                        .arg(verse.book)
                        .arg(verse.chapter)
                        .arg(verse.verse);
                };
                if (k >= hits.size())
                    return t.folder + QStringLiteral(": the engine misses ") + scanned() +
                           verse.shown;
                const QueryHit &hit = *hits.at(k++);
                if (hit.book != verse.book || hit.chapter != verse.chapter ||
                    hit.verse != verse.verse || hit.text != verse.shown)
                    return t.folder + QStringLiteral(": engine ") + hit.reference + u' ' +
                           hit.text + QStringLiteral("\n   scan ") + scanned() + verse.shown;
            }
            if (k < hits.size())
                return t.folder + QStringLiteral(": the scan does not find ") +
                       hits.at(k)->reference + u' ' + hits.at(k)->text;
        }
        return QString();
    }

    static QString firstDifference(const QStringList &a, const QStringList &b)
    {
        for (qsizetype i = 0; i < std::max(a.size(), b.size()); ++i) {
            if (a.value(i) != b.value(i))
                return QStringLiteral("engine: %1\nscan:   %2").arg(a.value(i), b.value(i));
        }
        return QString();
    }

private slots:
    void initTestCase()
    {
        m_folder = qEnvironmentVariable("QS_PROGRAM_DIR");
        for (const InstalledTranslation &installed : TranslationList::List(m_folder))
            m_translations.push_back(load(m_folder, installed));
        QVERIFY2(m_translations.size() >= 2, qPrintable(m_folder));
        for (const Translation &t : m_translations)
            QVERIFY2(t.verses.size() > 30000, qPrintable(t.folder));
    }

    // The quick search and the three advanced modes, with and without whole words.
    void existingModes()
    {
        const QStringList queries{QStringLiteral("love god"),        QStringLiteral("Jesús"),
                                  QStringLiteral("light  darkness"), QStringLiteral("’s"),
                                  QStringLiteral("{h430}"),          QStringLiteral("[added]")};
        constexpr int limit = 32767;
        for (const bool again : {false, true}) {
            BookFiles::clear();
            std::vector<const Translation *> order;
            for (const Translation &t : m_translations)
                order.push_back(&t);
            if (again)
                std::reverse(order.begin(), order.end());
            for (const Translation *t : order) {
                clsBible bible;
                bible.setVersionPath(t->path);
                for (const QString &query : queries) {
                    const QStringList words = query.trimmed().toUpper().split(u' ');
                    const QString phrase = query.trimmed().toUpper();
                    for (const bool whole : {false, true}) {
                        const auto in = [&](const Line &line, const QString &term) {
                            return whole ? wholeWordIn(line.upper, term)
                                         : line.upper.contains(term);
                        };
                        // The scan's lists are the same in both rounds: made once.
                        const QString key = t->folder + u'\n' + query + (whole ? u'1' : u'0');
                        if (!m_lists.contains(key)) {
                            QList<QStringList> made(4);
                            for (const Line &line : t->lines) {
                                const auto listed = [&] {
                                    return t->bookNames.at(line.book - 1) + u' ' + line.chapter +
                                           u':' + line.text;
                                };
                                const bool allWords =
                                    std::all_of(words.cbegin(), words.cend(),
                                                [&](const QString &w) { return in(line, w); });
                                if (allWords) {
                                    made[0].append(listed());
                                    made[2].append(listed());
                                }
                                if (std::any_of(words.cbegin(), words.cend(),
                                                [&](const QString &w) { return in(line, w); }))
                                    made[3].append(listed());
                                if (in(line, phrase))
                                    made[1].append(listed());
                            }
                            m_lists.insert(key, made);
                        }
                        const QList<QStringList> &lists = m_lists[key];
                        const QStringList &quick = lists[0];
                        const QStringList &exact = lists[1];
                        const QStringList &all = lists[2];
                        const QStringList &any = lists[3];
                        QuickSearch quickSearch;
                        QStringList got;
                        for (const SearchHit &hit :
                             quickSearch.run(bible, query, whole, limit).hits)
                            got.append(hit.book + u' ' + hit.chapter + u':' + hit.line);
                        QVERIFY2(got == quick, qPrintable(t->folder + u' ' + query + u'\n' +
                                                          firstDifference(got, quick)));
                        const QList<std::pair<AdvancedSearch::Mode, const QStringList *>> modes{
                            {AdvancedSearch::Mode::ExactPhrase, &exact},
                            {AdvancedSearch::Mode::AllWords, words.size() == 1 ? &exact : &all},
                            {AdvancedSearch::Mode::AnyWord, words.size() == 1 ? &exact : &any}};
                        for (const auto &[mode, expected] : modes) {
                            AdvancedSearch advanced;
                            const AdvancedSearch::Result result =
                                advanced.run(bible, {query, mode, whole,
                                                     QList<bool>(bible.BooksCount(), true), limit});
                            got.clear();
                            for (const SearchHit &hit : result.hits)
                                got.append(hit.book + u' ' + hit.chapter + u':' + hit.line);
                            QVERIFY2(got == *expected,
                                     qPrintable(t->folder + u' ' + query +
                                                QStringLiteral(" mode %1\n").arg(int(mode)) +
                                                firstDifference(got, *expected)));
                        }
                    }
                }
            }
        }
    }

    // A few hundred generated queries over all translations at once.
    void generatedQueries()
    {
        QRandomGenerator random(20261123);
        std::vector<std::pair<QString, Query>> queries;
        while (queries.size() < 200) {
            const Query q = term(random, 0);
            queries.push_back({q.typed(random), q});
        }
        QStringList paths;
        for (const Translation &t : m_translations)
            paths.append(t.path);
        int withHits = 0;
        for (const bool again : {false, true}) {
            BookFiles::clear();
            QuerySearch::Options options;
            options.translations = paths;
            options.limit = 1000000;
            options.order = QuerySearch::Order::ByTranslation;
            if (again) {
                std::reverse(options.translations.begin(), options.translations.end());
                std::reverse(queries.begin(), queries.end());
            }
            for (const auto &[typed, q] : queries) {
                QueryProblem problem;
                const std::optional<SearchQuery> parsed = SearchQuery::Parse(typed, &problem);
                QVERIFY2(parsed, qPrintable(typed + QStringLiteral(": ") + problem.message));
                QuerySearch search;
                const QuerySearch::Result result = search.run(*parsed, options);
                QCOMPARE(result.found, result.hits.size());
                const QString difference = compare(typed, q, result);
                QVERIFY2(difference.isEmpty(), qPrintable(typed + u'\n' + difference));
                withHits += result.found > 0;
            }
        }
        // The queries are drawn from the text: most find something.
        QVERIFY2(withHits > 200, qPrintable(QString::number(withHits)));
    }
};

QTEST_GUILESS_MAIN(TestSearchAgreement)
#include "tst_searchagreement.moc"
