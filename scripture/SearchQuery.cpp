#include "scripture/SearchQuery.h"

#include "scripture/FoldedVerses.h"
#include "scripture/StrongConcordance.h"

#include <QRegularExpression>
#include <algorithm>
#include <bit>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

// The parsed query: a tree of AND, OR and NOT over four kinds of terms.
struct SearchQuery::Node
{
    enum class Kind
    {
        And,
        Or,
        Not,
        Words,  // one word, or a phrase: its words (folded, with * and ?) one after the other
        Regex,  // against the shown text
        Strongs // a Strong's number, "H430"
    };
    Kind kind = Kind::Words;
    std::vector<std::shared_ptr<const Node>> children;
    QStringList words;
    QRegularExpression regex;
    QString strongs;
};

namespace {

using Node = SearchQuery::Node;
using NodePtr = std::shared_ptr<const Node>;

// ---- Verse flags, 64 to a word.

class Flags
{
public:
    explicit Flags(qsizetype count = 0, bool value = false)
        : m_count(count), m_words(size_t((count + 63) / 64), value ? ~quint64(0) : 0)
    {
        trim();
    }
    qsizetype count() const { return m_count; }
    bool test(qsizetype i) const { return (m_words[size_t(i / 64)] >> (i % 64)) & 1; }
    void set(qsizetype i) { m_words[size_t(i / 64)] |= quint64(1) << (i % 64); }
    qsizetype ones() const
    {
        qsizetype n = 0;
        for (const quint64 w : m_words)
            n += std::popcount(w);
        return n;
    }
    bool any() const
    {
        return std::any_of(m_words.cbegin(), m_words.cend(), [](quint64 w) { return w != 0; });
    }
    Flags &operator&=(const Flags &other)
    {
        for (size_t i = 0; i < m_words.size(); ++i)
            m_words[i] &= other.m_words[i];
        return *this;
    }
    Flags &operator|=(const Flags &other)
    {
        for (size_t i = 0; i < m_words.size(); ++i)
            m_words[i] |= other.m_words[i];
        return *this;
    }
    // Those of `within` that are not set here.
    Flags without(const Flags &within) const
    {
        Flags result(m_count);
        for (size_t i = 0; i < m_words.size(); ++i)
            result.m_words[i] = within.m_words[i] & ~m_words[i];
        return result;
    }

private:
    void trim()
    {
        if (m_count % 64 && !m_words.empty())
            m_words.back() &= (quint64(1) << (m_count % 64)) - 1;
    }
    qsizetype m_count = 0;
    std::vector<quint64> m_words;
};

// ---- Finding words in a folded text.

bool isWild(QChar c)
{
    return c == u'*' || c == u'?';
}

bool wordAt(QStringView text, qsizetype i)
{
    return i >= 0 && i < text.size() && FoldedVerses::IsWordChar(text.at(i));
}

// Whether a whole word matches a pattern of letters, * (any run) and ? (one character).
bool globMatch(QStringView word, QStringView pattern)
{
    qsizetype w = 0;
    qsizetype p = 0;
    qsizetype star = -1;
    qsizetype resume = 0;
    while (w < word.size()) {
        if (p < pattern.size() && (pattern.at(p) == u'?' || pattern.at(p) == word.at(w))) {
            ++w;
            ++p;
        } else if (p < pattern.size() && pattern.at(p) == u'*') {
            star = p++;
            resume = w;
        } else if (star >= 0) {
            p = star + 1;
            w = ++resume;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern.at(p) == u'*')
        ++p;
    return p == pattern.size();
}

qsizetype findLiteral(QStringView text, QStringView literal, qsizetype from)
{
    const qsizetype n = literal.size();
    if (n == 1)
        return text.indexOf(literal.at(0), from);
    const qsizetype last = text.size() - n;
    const char16_t *t = text.utf16();
    const char16_t *w = literal.utf16();
    const auto sameAt = [&](qsizetype at) { return std::equal(w + 1, w + n - 1, t + at + 1); };
#ifdef __SSE2__
    // Eight places at a time: those where both the word's first and its last character stand are
    // compared in full. Common letters make a search for the rarest one stop every few
    // characters; the pair seldom stands at the right distance.
    const __m128i first = _mm_set1_epi16(short(w[0]));
    const __m128i end = _mm_set1_epi16(short(w[n - 1]));
    for (; from + 8 <= last + 1; from += 8) {
        const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i *>(t + from));
        const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i *>(t + from + n - 1));
        unsigned mask = unsigned(
            _mm_movemask_epi8(_mm_and_si128(_mm_cmpeq_epi16(a, first), _mm_cmpeq_epi16(b, end))));
        while (mask) {
            const int bit = std::countr_zero(mask);
            const qsizetype at = from + bit / 2;
            if (sameAt(at))
                return at;
            mask &= ~(3u << bit);
        }
    }
#endif
    for (; from <= last; ++from) {
        if (t[from] == w[0] && t[from + n - 1] == w[n - 1] && sameAt(from))
            return from;
    }
    return -1;
}

// The literal part of a pattern that is quickest to look for: its longest run without wildcards.
QStringView anchorOf(QStringView pattern, qsizetype *offset)
{
    qsizetype best = 0;
    qsizetype bestStart = 0;
    for (qsizetype i = 0; i < pattern.size();) {
        if (isWild(pattern.at(i))) {
            ++i;
            continue;
        }
        qsizetype j = i;
        while (j < pattern.size() && !isWild(pattern.at(j)))
            ++j;
        if (j - i > best) {
            best = j - i;
            bestStart = i;
        }
        i = j;
    }
    *offset = bestStart;
    return pattern.mid(bestStart, best);
}

// The next whole word of the text at or after `from` that matches a pattern: its start and end,
// or start -1.
std::pair<qsizetype, qsizetype> nextWord(QStringView text, QStringView pattern, qsizetype from)
{
    qsizetype offset = 0;
    const QStringView anchor = anchorOf(pattern, &offset);
    const bool wild = anchor.size() != pattern.size();
    if (anchor.isEmpty()) {
        // Only wildcards: every word is a candidate.
        qsizetype i = from;
        while (i < text.size()) {
            while (i < text.size() && !FoldedVerses::IsWordChar(text.at(i)))
                ++i;
            qsizetype end = i;
            while (end < text.size() && FoldedVerses::IsWordChar(text.at(end)))
                ++end;
            if (end > i && globMatch(text.mid(i, end - i), pattern))
                return {i, end};
            i = end;
        }
        return {-1, -1};
    }
    qsizetype search = from;
    for (;;) {
        const qsizetype at = findLiteral(text, anchor, search);
        if (at < 0)
            return {-1, -1};
        if (!wild && !wordAt(text, at - 1) && !wordAt(text, at + anchor.size()))
            return {at, at + anchor.size()};
        // Any other place of the anchor within the same word is inside that word too: the search
        // goes on after it.
        qsizetype end = at + anchor.size();
        while (wordAt(text, end))
            ++end;
        if (!wild) {
            search = end;
            continue;
        }
        // The word around the anchor, matched as a whole.
        qsizetype start = at;
        while (start > from && wordAt(text, start - 1))
            --start;
        if (start >= from && !wordAt(text, start - 1) &&
            globMatch(text.mid(start, end - start), pattern))
            return {start, end};
        search = end;
    }
}

// The next place, at or after `from`, where the words of a phrase stand one after the other in
// one verse (anything but a word or a line end between them).
std::pair<qsizetype, qsizetype> nextPhrase(QStringView text, const QStringList &words,
                                           qsizetype from)
{
    for (;;) {
        const auto [start, firstEnd] = nextWord(text, words.first(), from);
        if (start < 0)
            return {-1, -1};
        qsizetype end = firstEnd;
        bool ok = true;
        for (qsizetype w = 1; w < words.size() && ok; ++w) {
            qsizetype i = end;
            while (i < text.size() && !FoldedVerses::IsWordChar(text.at(i)) && text.at(i) != u'\n')
                ++i;
            qsizetype e = i;
            while (e < text.size() && FoldedVerses::IsWordChar(text.at(e)))
                ++e;
            ok = e > i && globMatch(text.mid(i, e - i), words.at(w));
            end = e;
        }
        if (ok)
            return {start, end};
        from = start + 1;
    }
}

// ---- Matching a tree against the verses of a folded text.

int cost(const Node &node)
{
    switch (node.kind) {
    case Node::Kind::Words:
    case Node::Kind::Strongs:
        return 0;
    case Node::Kind::Regex:
        return 2;
    default:
        return 1;
    }
}

// The verses of one of the folded texts (starts: where each verse begins there) in which find
// finds something, in one pass over the text: one find is enough for a verse, the next look starts
// at the verse after it.
template <typename Find>
Flags versesFound(QStringView text, const QList<qsizetype> &starts, qsizetype count, Find find)
{
    Flags found(count);
    qsizetype from = 0;
    while (from < text.size()) {
        const qsizetype start = find(text, from).first;
        if (start < 0)
            break;
        const auto verse = qsizetype(std::upper_bound(starts.cbegin(), starts.cend(), start) -
                                     starts.cbegin() - 1);
        found.set(verse);
        from = starts.at(verse + 1);
    }
    return found;
}

Flags evaluate(const Node &node, const FoldedVerses &verses, const Flags &candidates)
{
    const qsizetype count = verses.count();
    switch (node.kind) {
    case Node::Kind::Words: {
        Flags found(count);
        const QStringView text(verses.folded);
        const auto find = [&](QStringView within, qsizetype from) {
            return node.words.size() == 1 ? nextWord(within, node.words.first(), from)
                                          : nextPhrase(within, node.words, from);
        };
        // When the terms before left few verses, only those are read.
        if (candidates.ones() * 16 < count) {
            for (qsizetype v = 0; v < count; ++v) {
                if (!candidates.test(v))
                    continue;
                const qsizetype end = verses.foldedStarts.at(v + 1);
                if (find(text.first(end), verses.foldedStarts.at(v)).first >= 0)
                    found.set(v);
            }
            return found;
        }
        found = versesFound(text, verses.foldedStarts, count, find);
        found &= candidates;
        return found;
    }
    case Node::Kind::Strongs: {
        Flags found = versesFound(verses.strongs, verses.strongStarts, count,
                                  [&](QStringView within, qsizetype from) {
                                      return nextWord(within, node.strongs, from);
                                  });
        found &= candidates;
        return found;
    }
    case Node::Kind::Regex: {
        Flags found(count);
        for (qsizetype v = 0; v < count; ++v) {
            if (candidates.test(v) && node.regex.match(verses.Shown(v)).hasMatch())
                found.set(v);
        }
        return found;
    }
    case Node::Kind::Not:
        return evaluate(*node.children.front(), verses, candidates).without(candidates);
    case Node::Kind::And: {
        // The cheap terms first: what they leave is all the costly ones have to look at.
        std::vector<const Node *> order;
        for (const NodePtr &child : node.children)
            order.push_back(child.get());
        std::stable_sort(order.begin(), order.end(),
                         [](const Node *a, const Node *b) { return cost(*a) < cost(*b); });
        Flags left = candidates;
        for (const Node *child : order) {
            if (!left.any())
                break;
            left = evaluate(*child, verses, left);
        }
        return left;
    }
    case Node::Kind::Or: {
        Flags found(count);
        for (const NodePtr &child : node.children) {
            // A verse already found need not be looked at again.
            const Flags left = found.without(candidates);
            if (!left.any())
                break;
            found |= evaluate(*child, verses, left);
        }
        return found;
    }
    }
    return Flags(count);
}

// ---- Reading a query.

struct Token
{
    enum class Kind
    {
        End,
        Open,
        Close,
        Or,
        And,
        Not,
        Minus,
        Word,
        Phrase,
        Regex
    };
    Kind kind = Kind::End;
    QString text;
    int position = 0;
};

class Parser
{
public:
    explicit Parser(const QString &query) : m_query(query) {}

    NodePtr parse()
    {
        if (!tokenize())
            return nullptr;
        if (m_tokens.front().kind == Token::Kind::End)
            return fail(QStringLiteral("The query is empty: type the words to look for."), 0);
        NodePtr root = parseOr();
        if (!root)
            return nullptr;
        if (peek().kind == Token::Kind::Close)
            return fail(QStringLiteral("The closing parenthesis at character %1 has no opening "
                                       "parenthesis before it.")
                            .arg(peek().position + 1),
                        peek().position);
        return root;
    }

    QueryProblem problem;

private:
    std::nullptr_t fail(const QString &message, int position)
    {
        if (problem.message.isEmpty())
            problem = {message, position};
        return nullptr;
    }

    bool tokenize()
    {
        const QString &q = m_query;
        qsizetype i = 0;
        while (i < q.size()) {
            const QChar c = q.at(i);
            const int at = int(i);
            if (c.isSpace()) {
                ++i;
            } else if (c == u'(' || c == u')') {
                m_tokens.push_back({c == u'(' ? Token::Kind::Open : Token::Kind::Close, c, at});
                ++i;
            } else if (c == u'"') {
                const qsizetype close = q.indexOf(u'"', i + 1);
                if (close < 0) {
                    fail(QStringLiteral("The quote at character %1 is never closed: a phrase ends "
                                        "with a second quote.")
                             .arg(at + 1),
                         at);
                    return false;
                }
                m_tokens.push_back({Token::Kind::Phrase, q.mid(i + 1, close - i - 1), at});
                i = close + 1;
            } else if (c == u'/') {
                QString pattern;
                qsizetype k = i + 1;
                for (; k < q.size() && q.at(k) != u'/'; ++k) {
                    // A backslash keeps the next character, a slash among them.
                    if (q.at(k) == u'\\' && k + 1 < q.size()) {
                        if (q.at(k + 1) != u'/')
                            pattern += q.at(k);
                        ++k;
                    }
                    pattern += q.at(k);
                }
                if (k >= q.size()) {
                    fail(QStringLiteral("The regular expression at character %1 is never closed: "
                                        "it ends with a second slash.")
                             .arg(at + 1),
                         at);
                    return false;
                }
                m_tokens.push_back({Token::Kind::Regex, pattern, at});
                i = k + 1;
            } else if (c == u'-' && (i + 1 >= q.size() || q.at(i + 1).isSpace())) {
                fail(QStringLiteral("The minus at character %1 has nothing after it to leave out.")
                         .arg(at + 1),
                     at);
                return false;
            } else if (c == u'-') {
                m_tokens.push_back({Token::Kind::Minus, c, at});
                ++i;
            } else {
                qsizetype k = i;
                while (k < q.size() && !q.at(k).isSpace() && q.at(k) != u'(' && q.at(k) != u')' &&
                       q.at(k) != u'"')
                    ++k;
                const QString word = q.mid(i, k - i);
                Token::Kind kind = Token::Kind::Word;
                if (word == u"OR")
                    kind = Token::Kind::Or;
                else if (word == u"AND")
                    kind = Token::Kind::And;
                else if (word == u"NOT")
                    kind = Token::Kind::Not;
                m_tokens.push_back({kind, word, at});
                i = k;
            }
        }
        m_tokens.push_back({Token::Kind::End, QString(), int(q.size())});
        return true;
    }

    const Token &peek() const { return m_tokens.at(m_next); }
    const Token &take() { return m_tokens.at(m_next++); }
    static bool endsTerm(Token::Kind kind)
    {
        return kind == Token::Kind::End || kind == Token::Kind::Close || kind == Token::Kind::Or ||
               kind == Token::Kind::And;
    }

    NodePtr parseOr()
    {
        if (peek().kind == Token::Kind::Or || peek().kind == Token::Kind::And)
            return fail(QStringLiteral("%1 at character %2 has no term before it.")
                            .arg(peek().text)
                            .arg(peek().position + 1),
                        peek().position);
        std::vector<NodePtr> terms;
        for (;;) {
            NodePtr term = parseAnd();
            if (!term)
                return nullptr;
            terms.push_back(term);
            if (peek().kind != Token::Kind::Or)
                break;
            const Token &op = take();
            if (endsTerm(peek().kind))
                return fail(
                    QStringLiteral("OR at character %1 has no term after it.").arg(op.position + 1),
                    op.position);
        }
        if (terms.size() == 1)
            return terms.front();
        auto node = std::make_shared<Node>();
        node->kind = Node::Kind::Or;
        node->children = std::move(terms);
        return node;
    }

    NodePtr parseAnd()
    {
        std::vector<NodePtr> terms;
        for (;;) {
            const Token::Kind kind = peek().kind;
            if (kind == Token::Kind::End || kind == Token::Kind::Close || kind == Token::Kind::Or)
                break;
            if (kind == Token::Kind::And) {
                const Token &op = take();
                if (endsTerm(peek().kind))
                    return fail(QStringLiteral("AND at character %1 has no term after it.")
                                    .arg(op.position + 1),
                                op.position);
                continue;
            }
            NodePtr term = parseUnary();
            if (!term)
                return nullptr;
            terms.push_back(term);
        }
        if (terms.empty() && peek().kind == Token::Kind::Close)
            return fail(QStringLiteral("The closing parenthesis at character %1 has no opening "
                                       "parenthesis before it.")
                            .arg(peek().position + 1),
                        peek().position);
        if (terms.empty())
            return fail(QStringLiteral("The query ends at character %1 where a term is expected.")
                            .arg(peek().position + 1),
                        peek().position);
        if (terms.size() == 1)
            return terms.front();
        auto node = std::make_shared<Node>();
        node->kind = Node::Kind::And;
        node->children = std::move(terms);
        return node;
    }

    NodePtr parseUnary()
    {
        if (peek().kind != Token::Kind::Not && peek().kind != Token::Kind::Minus)
            return parsePrimary();
        const Token &op = take();
        if (endsTerm(peek().kind))
            return fail(QStringLiteral("%1 at character %2 has nothing after it to leave out.")
                            .arg(op.kind == Token::Kind::Not ? QStringLiteral("NOT")
                                                             : QStringLiteral("The minus"))
                            .arg(op.position + 1),
                        op.position);
        NodePtr child = parseUnary();
        if (!child)
            return nullptr;
        auto node = std::make_shared<Node>();
        node->kind = Node::Kind::Not;
        node->children.push_back(child);
        return node;
    }

    NodePtr parsePrimary()
    {
        const Token &token = take();
        switch (token.kind) {
        case Token::Kind::Open: {
            if (peek().kind == Token::Kind::End)
                return fail(QStringLiteral("The parenthesis at character %1 is never closed.")
                                .arg(token.position + 1),
                            token.position);
            if (peek().kind == Token::Kind::Close)
                return fail(QStringLiteral("The parentheses at character %1 hold nothing.")
                                .arg(token.position + 1),
                            token.position);
            NodePtr inner = parseOr();
            if (!inner)
                return nullptr;
            if (peek().kind != Token::Kind::Close)
                return fail(QStringLiteral("The parenthesis at character %1 is never closed.")
                                .arg(token.position + 1),
                            token.position);
            take();
            return inner;
        }
        case Token::Kind::Word:
        case Token::Kind::Phrase:
            return words(token);
        case Token::Kind::Regex: {
            if (token.text.isEmpty())
                return fail(QStringLiteral("The regular expression at character %1 is empty.")
                                .arg(token.position + 1),
                            token.position);
            auto node = std::make_shared<Node>();
            node->kind = Node::Kind::Regex;
            node->regex =
                QRegularExpression(token.text, QRegularExpression::CaseInsensitiveOption |
                                                   QRegularExpression::UseUnicodePropertiesOption);
            if (!node->regex.isValid())
                return fail(QStringLiteral("The regular expression at character %1 is not valid: "
                                           "%2 at its character %3.")
                                .arg(token.position + 1)
                                .arg(node->regex.errorString())
                                .arg(node->regex.patternErrorOffset() + 1),
                            token.position);
            node->regex.optimize();
            return node;
        }
        default:
            // Only a closing parenthesis can stand here: the others end a term before.
            return fail(QStringLiteral("The closing parenthesis at character %1 has no opening "
                                       "parenthesis before it.")
                            .arg(token.position + 1),
                        token.position);
        }
    }

    NodePtr words(const Token &token)
    {
        auto node = std::make_shared<Node>();
        if (token.kind == Token::Kind::Word) {
            const QString number = StrongConcordance::Normalize(token.text);
            if (!number.isEmpty()) {
                node->kind = Node::Kind::Strongs;
                node->strongs = number;
                return node;
            }
        }
        // The words of the term as the text's words are folded; wildcards stay in them.
        const QString folded = FoldedVerses::Fold(token.text);
        for (qsizetype i = 0; i < folded.size();) {
            const auto inWord = [&](qsizetype k) {
                return FoldedVerses::IsWordChar(folded.at(k)) || isWild(folded.at(k));
            };
            if (!inWord(i)) {
                ++i;
                continue;
            }
            qsizetype end = i;
            while (end < folded.size() && inWord(end))
                ++end;
            node->words.append(folded.mid(i, end - i));
            i = end;
        }
        if (node->words.isEmpty())
            return fail(token.kind == Token::Kind::Phrase
                            ? QStringLiteral("The phrase at character %1 holds no words.")
                                  .arg(token.position + 1)
                            : QStringLiteral("\"%1\" at character %2 holds no letters or digits to "
                                             "look for.")
                                  .arg(token.text)
                                  .arg(token.position + 1),
                        token.position);
        return node;
    }

    const QString &m_query;
    std::vector<Token> m_tokens;
    size_t m_next = 0;
};

void collectHighlights(const Node &node, bool excluded, const QString &shown, const QString &folded,
                       const QList<qsizetype> &from, QList<std::pair<int, int>> &spans)
{
    switch (node.kind) {
    case Node::Kind::And:
    case Node::Kind::Or:
        for (const NodePtr &child : node.children)
            collectHighlights(*child, excluded, shown, folded, from, spans);
        return;
    case Node::Kind::Not:
        collectHighlights(*node.children.front(), !excluded, shown, folded, from, spans);
        return;
    case Node::Kind::Strongs:
        return;
    case Node::Kind::Words: {
        if (excluded)
            return;
        qsizetype at = 0;
        for (;;) {
            const auto [start, end] = node.words.size() == 1
                                          ? nextWord(folded, node.words.first(), at)
                                          : nextPhrase(folded, node.words, at);
            if (start < 0)
                return;
            const qsizetype first = from.at(start);
            const qsizetype last = from.at(end - 1) + 1;
            spans.append({int(first), int(last - first)});
            at = end;
        }
    }
    case Node::Kind::Regex: {
        if (excluded)
            return;
        QRegularExpressionMatchIterator it = node.regex.globalMatch(shown);
        while (it.hasNext()) {
            const QRegularExpressionMatch match = it.next();
            if (match.capturedLength() > 0)
                spans.append({int(match.capturedStart()), int(match.capturedLength())});
        }
        return;
    }
    }
}

bool usesStrongs(const Node &node)
{
    if (node.kind == Node::Kind::Strongs)
        return true;
    return std::any_of(node.children.cbegin(), node.children.cend(),
                       [](const NodePtr &child) { return usesStrongs(*child); });
}

} // namespace

std::optional<SearchQuery> SearchQuery::Parse(const QString &query, QueryProblem *problem)
{
    Parser parser(query);
    NodePtr root = parser.parse();
    if (!root) {
        if (problem)
            *problem = parser.problem;
        return std::nullopt;
    }
    SearchQuery parsed;
    parsed.m_root = root;
    return parsed;
}

bool SearchQuery::Matches(const QString &verse) const
{
    const FoldedVerses one = FoldedVerses::OfLines({verse});
    return MatchingVerses(one).front();
}

bool SearchQuery::MatchesShown(const QString &shownText) const
{
    FoldedVerses one;
    one.append({}, shownText, false);
    one.finish();
    return MatchingVerses(one).front();
}

std::vector<bool> SearchQuery::MatchingVerses(const FoldedVerses &verses) const
{
    const Flags all(verses.count(), true);
    const Flags found = m_root ? evaluate(*m_root, verses, all) : Flags(verses.count());
    std::vector<bool> flags(size_t(verses.count()));
    for (qsizetype v = 0; v < verses.count(); ++v)
        flags[size_t(v)] = found.test(v);
    return flags;
}

QList<std::pair<int, int>> SearchQuery::Highlights(const QString &displayedText) const
{
    QList<std::pair<int, int>> spans;
    if (!m_root)
        return spans;
    QList<qsizetype> from;
    const QString folded = FoldedVerses::Fold(displayedText, &from);
    collectHighlights(*m_root, false, displayedText, folded, from, spans);
    std::sort(spans.begin(), spans.end());
    // Overlapping or touching spans become one.
    QList<std::pair<int, int>> merged;
    for (const auto &span : std::as_const(spans)) {
        if (!merged.isEmpty() && span.first <= merged.last().first + merged.last().second) {
            const int end =
                std::max(merged.last().first + merged.last().second, span.first + span.second);
            merged.last().second = end - merged.last().first;
        } else {
            merged.append(span);
        }
    }
    return merged;
}

QString SearchQuery::DisplayedText(QStringView line)
{
    const FoldedVerses one = FoldedVerses::OfLines({line.toString()});
    return one.Shown(0).toString();
}

bool SearchQuery::UsesStrongsNumbers() const
{
    return m_root && usesStrongs(*m_root);
}
