#include "scripture/BookScan.h"

#include "platform/FileSystem.h"
#include "platform/VbError.h"
#include "scripture/BookFiles.h"
#include "scripture/ChapterMarker.h"
#include "scripture/basStrings.h"
#include "scripture/clsBible.h"

#include <bit>
#include <string_view>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace {
bool isLetter(QChar c)
{
    return c >= u'A' && c <= u'Z';
}

bool isMarker(const BookFiles::Bytes &file, qsizetype line)
{
    const BookFiles::Bytes::Span &span = file.lines.at(line);
    if (!span.foldable)
        return ChapterMarker::IsMarker(file.UpperText(line));
    if (span.length < 7)
        return false;
    static constexpr char word[] = "CHAPTER";
    for (int i = 0; i < 7; ++i) {
        const char c = file.bytes.at(span.start + i);
        if ((c >= 'a' && c <= 'z' ? char(c - 32) : c) != word[i])
            return false;
    }
    return true;
}
} // namespace

namespace {
// How common each capital letter is in English text (0 = rarest), to pick the character of a word
// that is quickest to look for.
int letterFrequency(QChar c)
{
    static constexpr char order[] = "ZQJXKVBPYGFWMUCLDRHSNIOATE";
    if (c < u'A' || c > u'Z')
        return -1;
    for (int i = 0; order[i]; ++i) {
        if (char16_t(order[i]) == c.unicode())
            return i;
    }
    return -1;
}
} // namespace

namespace {

char16_t unit(QStringView text, qsizetype i)
{
    return text[i].unicode();
}
qsizetype indexOf(QStringView text, char16_t key, qsizetype from)
{
    return text.indexOf(QChar(key), from);
}
// A line of plain ASCII read as its upper-cased self, without making the upper-cased copy.
struct FoldedAscii
{
    std::string_view raw;
    qsizetype size() const { return qsizetype(raw.size()); }
};
char16_t upperAscii(char c)
{
    return c >= 'a' && c <= 'z' ? char16_t(c - 32) : char16_t(static_cast<unsigned char>(c));
}
char16_t unit(FoldedAscii text, qsizetype i)
{
    return upperAscii(text.raw[size_t(i)]);
}
bool sameAt(FoldedAscii line, qsizetype start, std::string_view word)
{
    for (size_t i = 0; i < word.size(); ++i) {
        if (upperAscii(line.raw[size_t(start) + i]) !=
            char16_t(static_cast<unsigned char>(word[i])))
            return false;
    }
    return true;
}

bool sameAt(QStringView line, qsizetype start, QStringView word)
{
    return line.mid(start, word.size()) == word;
}

template <typename Line, typename Word> qsizetype findWord(Line line, Word word, qsizetype from)
{
    // Every line of the translation goes through here: look for the word's rarest character with
    // the vectorised single-character search, then compare the whole word around it, which is
    // several times faster than a general substring search on short lines.
    const qsizetype lineSize = qsizetype(line.size());
    const qsizetype wordSize = qsizetype(word.size());
    if (wordSize == 0)
        return from <= lineSize ? from : -1;
    // A word longer than what is left of the line is not in it: said before the word is read, so
    // a phrase of a million characters costs nothing on every short line.
    if (wordSize > lineSize - from)
        return -1;
    // Blanks, digits and marks count as common as the commonest letter, so a phrase is not
    // looked for by its blank.
    const auto rank = [&](qsizetype k) {
        const int f = letterFrequency(QChar(unit(word, k)));
        return f < 0 ? 26 : f;
    };
    qsizetype pivot = 0;
    for (qsizetype k = 1, best = rank(0); k < wordSize && best > 0; ++k) {
        const int f = rank(k);
        if (f < best) {
            best = f;
            pivot = k;
        }
    }
    const char16_t key = unit(word, pivot);
    const qsizetype last = lineSize - wordSize;
    while (from <= last) {
        const qsizetype at = indexOf(line, key, from + pivot);
        if (at < 0 || at - pivot > last)
            return -1;
        const qsizetype start = at - pivot;
        if (sameAt(line, start, word))
            return start;
        from = start + 1;
    }
    return -1;
}

// A plain ASCII line read as capitals: sixteen places at a time, those where the word's first and
// last characters stand (a letter in either case) are compared in full. The search for the rarest
// character stops at every one of them, in both cases; the pair seldom stands at the right
// distance, so a line is read about once.
qsizetype findWord(FoldedAscii line, std::string_view word, qsizetype from)
{
    const qsizetype size = line.size();
    const qsizetype n = qsizetype(word.size());
    if (n == 0)
        return from <= size ? from : -1;
    if (n > size - from)
        return -1;
    const qsizetype last = size - n;
    const char *text = line.raw.data();
    const auto letter = [](char c) { return c >= 'A' && c <= 'Z'; };
    const char first = word.front();
    const char end = word.back();
#ifdef __SSE2__
    // A capital and its small letter differ in the bit 0x20 alone: with the bit set on both sides
    // the letter is found in either case, and nothing else is (the word is upper-cased).
    const __m128i firstBit = _mm_set1_epi8(letter(first) ? 0x20 : 0);
    const __m128i endBit = _mm_set1_epi8(letter(end) ? 0x20 : 0);
    const __m128i firstChar = _mm_set1_epi8(char(first | (letter(first) ? 0x20 : 0)));
    const __m128i endChar = _mm_set1_epi8(char(end | (letter(end) ? 0x20 : 0)));
    for (; from + 16 <= last + 1; from += 16) {
        const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i *>(text + from));
        const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i *>(text + from + n - 1));
        unsigned mask = unsigned(
            _mm_movemask_epi8(_mm_and_si128(_mm_cmpeq_epi8(_mm_or_si128(a, firstBit), firstChar),
                                            _mm_cmpeq_epi8(_mm_or_si128(b, endBit), endChar))));
        while (mask) {
            const qsizetype at = from + std::countr_zero(mask);
            if (sameAt(line, at, word))
                return at;
            mask &= mask - 1;
        }
    }
#endif
    for (; from <= last; ++from) {
        if (upperAscii(text[from]) == char16_t(static_cast<unsigned char>(first)) &&
            sameAt(line, from, word))
            return from;
    }
    return -1;
}

template <typename Line, typename Word> bool wholeWordMatch(Line upperLine, Word word)
{
    const qsizetype size = qsizetype(upperLine.size());
    qsizetype from = 0;
    while (from <= size) {
        const qsizetype at = findWord(upperLine, word, from);
        if (at < 0)
            return false;
        const qsizetype end = at + qsizetype(word.size());
        const bool before = at == 0 || !isLetter(QChar(unit(upperLine, at - 1)));
        const bool after = end >= size || !isLetter(QChar(unit(upperLine, end)));
        if (before && after)
            return true;
        from = at + 1;
    }
    return false;
}

std::string_view view(QByteArrayView bytes)
{
    return std::string_view(bytes.data(), size_t(bytes.size()));
}

} // namespace

qsizetype FindWord(QStringView line, QStringView word, qsizetype from)
{
    return findWord(line, word, from);
}

bool WholeWordMatch(QStringView upperLine, QStringView word)
{
    return wholeWordMatch(upperLine, word);
}

SearchTerm::SearchTerm(const QString &upperTerm) : m_term(upperTerm)
{
    for (const QChar c : upperTerm)
        m_ascii = m_ascii && c.unicode() < 0x80;
    if (m_ascii)
        m_bytes = upperTerm.toLatin1();
}

bool SearchTerm::In(const BookScan::Line &line, bool wholeWord) const
{
    // An ASCII line's capitals are all ASCII: a word that is not is never in it.
    if (line.ascii() && !m_ascii)
        return false;
    // Bytes and characters line up wherever an ASCII word can match; an empty word (two blanks in
    // a query) taken as a whole word looks at every position, which differ where a character
    // takes several bytes.
    if (m_ascii && (line.ascii() || (line.foldable() && !(wholeWord && m_bytes.isEmpty())))) {
        const FoldedAscii folded{view(line.bytes())};
        const std::string_view term = view(m_bytes);
        return wholeWord ? wholeWordMatch(folded, term) : findWord(folded, term, 0) >= 0;
    }
    const QString &upper = line.file.UpperText(line.index);
    return wholeWord ? wholeWordMatch(QStringView(upper), QStringView(m_term))
                     : findWord(QStringView(upper), QStringView(m_term), 0) >= 0;
}

namespace {

// Whether the match of a word of the given length ending at position end (exclusive) stands
// between non-letters.
template <typename Text> bool standsAlone(Text text, qsizetype end, qsizetype length)
{
    const qsizetype at = end - length;
    return (at == 0 || !isLetter(QChar(unit(text, at - 1)))) &&
           (end >= qsizetype(text.size()) || !isLetter(QChar(unit(text, end))));
}

} // namespace

// The words are put in a trie whose nodes know the longest proper suffix that is also in the
// trie (the failure link) and the nearest such suffix that is a whole word; a line is then read
// once, whatever the number of words.
AnyOfWords::AnyOfWords(const QStringList &upperWords)
{
    m_nodes.push_back({});
    for (const QString &word : upperWords) {
        if (word.isEmpty()) {
            m_empty = true;
            continue;
        }
        int node = 0;
        for (const QChar c : word) {
            const quint64 key = edgeKey(node, c.unicode());
            auto found = m_edges.find(key);
            if (found == m_edges.end()) {
                m_nodes.push_back({});
                m_nodes.back().depth = m_nodes[size_t(node)].depth + 1;
                found = m_edges.emplace(key, int(m_nodes.size() - 1)).first;
            }
            node = found->second;
        }
        m_nodes[size_t(node)].word = true;
    }
    // Breadth first, so a node's failure link is known before its children's.
    std::vector<std::vector<std::pair<char16_t, int>>> children(m_nodes.size());
    for (const auto &[key, child] : m_edges)
        children[size_t(key >> 16)].push_back({char16_t(key & 0xFFFF), child});
    std::vector<int> queue{0};
    for (size_t q = 0; q < queue.size(); ++q) {
        const int node = queue[q];
        for (const auto &[c, child] : children[size_t(node)]) {
            int fail = 0;
            if (node != 0) {
                int f = m_nodes[size_t(node)].fail;
                for (;;) {
                    const auto found = m_edges.find(edgeKey(f, c));
                    if (found != m_edges.end()) {
                        fail = found->second;
                        break;
                    }
                    if (f == 0)
                        break;
                    f = m_nodes[size_t(f)].fail;
                }
            }
            Node &n = m_nodes[size_t(child)];
            n.fail = fail;
            n.output = m_nodes[size_t(fail)].word ? fail : m_nodes[size_t(fail)].output;
            queue.push_back(child);
        }
    }
}

int AnyOfWords::step(int node, char16_t c) const
{
    for (;;) {
        const auto found = m_edges.find(edgeKey(node, c));
        if (found != m_edges.end())
            return found->second;
        if (node == 0)
            return 0;
        node = m_nodes[size_t(node)].fail;
    }
}

template <typename Text> bool AnyOfWords::find(Text text, bool wholeWord) const
{
    int node = 0;
    const qsizetype size = qsizetype(text.size());
    for (qsizetype i = 0; i < size; ++i) {
        node = step(node, unit(text, i));
        // Every word that ends here: this node's own, then those along its output links.
        for (int w = m_nodes[size_t(node)].word ? node : m_nodes[size_t(node)].output; w != 0;
             w = m_nodes[size_t(w)].output) {
            if (!wholeWord || standsAlone(text, i + 1, m_nodes[size_t(w)].depth))
                return true;
        }
    }
    return false;
}

bool AnyOfWords::In(const BookScan::Line &line, bool wholeWord) const
{
    if (m_empty && SearchTerm(QString()).In(line, wholeWord))
        return true;
    if (line.ascii())
        return find(FoldedAscii{view(line.bytes())}, wholeWord);
    return find(QStringView(line.file.UpperText(line.index)), wholeWord);
}

void BookScan::run(const clsBible &store)
{
    QString chapter;
    const int books = store.BooksCount();
    for (int b = 1; b <= books; ++b) {
        if (beforeBook && !beforeBook(b))
            continue;
        const QString path = store.BookFilePath(b);
        const std::shared_ptr<const BookFiles::Bytes> file = BookFiles::bytes(path);
        if (!file)
            throw VbError::fileNotFound(platform::ResolvePath(path));
        const qsizetype count = file->lines.size();

        // The first line is read and passed over; an empty file has none to read.
        if (count == 0)
            throw VbError::inputPastEnd();
        qsizetype i = 1;
        while (i < count) {
            qsizetype at = i++;
            // Upper case makes no marker of a line: a plain line is a marker when its first seven
            // bytes are "CHAPTER" in any case.
            if (isMarker(*file, at)) {
                chapter = QString::number(ChapterMarker::Number(file->Text(at)));
                // The line after a marker is read at once, without looking for the end of file.
                if (i >= count)
                    throw VbError::inputPastEnd();
                at = i++;
            }
            const Next next = onLine ? onLine(Line{b, chapter, *file, at}) : Next::Line;
            if (next == Next::Book)
                break;
            if (next == Next::Stop)
                return;
        }
        if (afterBook && !afterBook(b))
            return;
    }
}

QString OverLimitMessage(int limit)
{
    return QStringLiteral("There were over a ") + QString::number(limit) +
           QStringLiteral(" results for your search,\r\n") +
           QStringLiteral("please narrow it down or use the advanced search feature!");
}

QString SearchHit::Reference() const
{
    // The verse number: the line up to its first blank, trimmed.
    const qsizetype blank = line.indexOf(u' ');
    return book + u' ' + chapter + u':' +
           basStrings::TrimBlanks(blank < 0 ? QStringView(line) : QStringView(line).left(blank))
               .toString();
}

QString SearchHit::Listed() const
{
    return book + u' ' + chapter + u':' + line + QStringLiteral("\r\n\r\n");
}

QStringList SearchHit::References(const QList<SearchHit> &hits)
{
    QStringList references;
    references.reserve(hits.size());
    for (const SearchHit &hit : hits)
        references.append(hit.Reference());
    return references;
}

QString SearchHit::ListedAll(const QList<SearchHit> &hits)
{
    constexpr qsizetype longestLine = 10000;
    constexpr qsizetype mostListed = 8000000;
    QString text;
    for (qsizetype i = 0; i < hits.size(); ++i) {
        const SearchHit &hit = hits.at(i);
        if (text.size() > mostListed) {
            text += QStringLiteral("[%L1 more results are not shown.]\r\n").arg(hits.size() - i);
            break;
        }
        if (hit.line.size() <= longestLine) {
            text += hit.Listed();
            continue;
        }
        SearchHit cut = hit;
        cut.line =
            hit.line.left(longestLine - (hit.line.at(longestLine - 1).isHighSurrogate() ? 1 : 0));
        cut.line += QStringLiteral(" [%L1 more characters are not shown.]")
                        .arg(hit.line.size() - cut.line.size());
        text += cut.Listed();
    }
    return text;
}
