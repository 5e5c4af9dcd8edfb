#include "scripture/BookScan.h"

#include "platform/FileSystem.h"
#include "platform/VbError.h"
#include "scripture/BookFiles.h"
#include "scripture/ChapterMarker.h"
#include "scripture/basStrings.h"
#include "scripture/clsBible.h"

#include <algorithm>
#include <array>
#include <bit>
#include <string_view>
#include <tuple>
#include <utility>

#ifdef __SSE2__
#include <emmintrin.h>
#endif
#if defined(__x86_64__) && (defined(__GNUC__) || defined(__clang__))
#include <immintrin.h>
#endif

namespace {
bool isLetter(QChar c)
{
    return c >= u'A' && c <= u'Z';
}

bool isMarker(const BookFiles::Bytes &file, qsizetype line)
{
    const BookFiles::Bytes::Span &span = file.Lines().at(line);
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
    // Each letter's place in "ZQJXKVBPYGFWMUCLDRHSNIOATE", looked up for A to Z.
    static constexpr std::array<signed char, 26> rank = {23, 6,  14, 16, 25, 10, 9, 18, 21,
                                                         2,  4,  15, 12, 20, 22, 7, 1,  17,
                                                         19, 24, 13, 5,  11, 3,  8, 0};
    if (c < u'A' || c > u'Z')
        return -1;
    return rank[size_t(c.unicode() - u'A')];
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

// The places in a word of its two rarest characters, to look for it by: a pair seldom stands at
// the right distance where the word does not.
std::pair<qsizetype, qsizetype> rarestPair(std::string_view word)
{
    const qsizetype n = qsizetype(word.size());
    // Blanks, digits and marks count as common as the commonest letter.
    const auto rank = [&](qsizetype k) {
        const int f = letterFrequency(QChar(char16_t(static_cast<unsigned char>(word[size_t(k)]))));
        return f < 0 ? 26 : f;
    };
    qsizetype one = 0;
    for (qsizetype k = 1; k < n; ++k) {
        if (rank(k) < rank(one))
            one = k;
    }
    qsizetype two = one == 0 ? n - 1 : 0;
    for (qsizetype k = 0; k < n; ++k) {
        if (k != one && rank(k) < rank(two))
            two = k;
    }
    return {one, two};
}

#ifdef __SSE2__
// Where in sixteen places from a position a character of an upper-cased word stands, a letter in
// either case: a capital and its small letter differ in the bit 0x20 alone, so with the bit set
// on both sides the letter is found in either case, and nothing else is.
struct CharInBlock
{
    explicit CharInBlock(char c)
    {
        const bool letter = c >= 'A' && c <= 'Z';
        bit = _mm_set1_epi8(letter ? 0x20 : 0);
        wanted = _mm_set1_epi8(char(c | (letter ? 0x20 : 0)));
    }
    __m128i at(const char *p) const
    {
        return at(_mm_loadu_si128(reinterpret_cast<const __m128i *>(p)));
    }
    __m128i at(__m128i block) const { return _mm_cmpeq_epi8(_mm_or_si128(block, bit), wanted); }
    __m128i bit;
    __m128i wanted;
};
#endif

// An upper-cased ASCII word as it is looked for in plain ASCII read as capitals, with the places
// of its rarest pair, found once for all the lines it is looked for in.
struct Needle
{
    explicit Needle(std::string_view w) : word(w) { std::tie(one, two) = rarestPair(word); }
    Needle(std::string_view w, std::pair<qsizetype, qsizetype> pair)
        : word(w), one(pair.first), two(pair.second)
    {
    }
    qsizetype size() const { return qsizetype(word.size()); }
    std::string_view word;
    qsizetype one = 0;
    qsizetype two = 0;
};

// Plain ASCII read as capitals (a line, or a whole file): sixteen places at a time, those where
// the word's two rarest characters stand at their distance are compared in full. Searching for
// the rarest character alone stops at every one of them, in both cases; the pair seldom stands
// at the right distance, so the text is read about once.
qsizetype findWord(FoldedAscii line, const Needle &needle, qsizetype from)
{
    const std::string_view word = needle.word;
    const qsizetype size = line.size();
    const qsizetype n = needle.size();
    if (n == 0)
        return from <= size ? from : -1;
    if (n > size - from)
        return -1;
    const qsizetype last = size - n;
    const char *text = line.raw.data();
    const qsizetype one = needle.one;
#ifdef __SSE2__
    const qsizetype two = needle.two;
    const CharInBlock first(word[size_t(one)]);
    const CharInBlock second(word[size_t(two)]);
    for (; from + 16 <= last + 1; from += 16) {
        unsigned mask = unsigned(_mm_movemask_epi8(
            _mm_and_si128(first.at(text + from + one), second.at(text + from + two))));
        for (; mask; mask &= mask - 1) {
            const qsizetype at = from + std::countr_zero(mask);
            if (sameAt(line, at, word))
                return at;
        }
    }
#endif
    const char16_t key = char16_t(static_cast<unsigned char>(word[size_t(one)]));
    for (; from <= last; ++from) {
        if (upperAscii(text[from + one]) == key && sameAt(line, from, word))
            return from;
    }
    return -1;
}

// A place a scan by places stops at: where a word stands, a line that begins with "CHAPTER" in
// any case, or the first stretch that is not plain.
struct Place
{
    enum Kind
    {
        None,
        Word,
        Marker,
        NotPlain
    };
    Kind kind = None;
    qsizetype at = -1;
    qsizetype plainTo = 0; // the bytes before it are plain
};

#ifdef __SSE2__
// What a scan by places looks for in each block of sixteen places, kept in registers.
struct BlockTest
{
    explicit BlockTest(const Needle &needle)
        : one(needle.one), two(needle.two), first(needle.word[size_t(needle.one)]),
          second(needle.word[size_t(needle.two)])
    {
    }
    qsizetype one;
    qsizetype two;
    CharInBlock first;
    CharInBlock second;
    CharInBlock c{'C'};
    __m128i lf = _mm_set1_epi8('\n');
    __m128i cr = _mm_set1_epi8('\r');
};

// A block with something in it: the places where the word's rarest pair stands, where a line
// begins with "C", and whether a CR stands alone or a byte is outside ASCII.
struct BusyBlock
{
    qsizetype at;
    unsigned words = 0;
    unsigned markers = 0;
    bool suspect = false;
};

// The first busy block of sixteen places from a place on, before stop (where a block with the
// bytes around it still fits); stop when there is none.
[[gnu::noinline]] BusyBlock nextBusyBlock(const char *bytes, qsizetype from, qsizetype stop,
                                          const BlockTest &t)
{
    for (; from < stop; from += 16) {
        const __m128i here = _mm_loadu_si128(reinterpret_cast<const __m128i *>(bytes + from));
        const __m128i before = _mm_loadu_si128(reinterpret_cast<const __m128i *>(bytes + from - 1));
        const __m128i next = _mm_loadu_si128(reinterpret_cast<const __m128i *>(bytes + from + 1));
        const __m128i loneCr =
            _mm_andnot_si128(_mm_cmpeq_epi8(next, t.lf), _mm_cmpeq_epi8(here, t.cr));
        const auto suspect = unsigned(_mm_movemask_epi8(_mm_or_si128(here, loneCr)));
        const auto words = unsigned(_mm_movemask_epi8(
            _mm_and_si128(t.first.at(bytes + from + t.one), t.second.at(bytes + from + t.two))));
        const auto markers =
            unsigned(_mm_movemask_epi8(_mm_and_si128(_mm_cmpeq_epi8(before, t.lf), t.c.at(here))));
        if (suspect | words | markers)
            return {from, words, markers, suspect != 0};
    }
    return {stop};
}

#if defined(__x86_64__) && (defined(__GNUC__) || defined(__clang__))
#define QS_WIDE_BLOCKS
// The same look at thirty-two places at a time, on processors that can: the scan of a whole
// translation is bound by it. Its busy block is handed on sixteen places at a time.
[[gnu::target("avx2")]] inline __m256i wideLoad(const char *at)
{
    return _mm256_loadu_si256(reinterpret_cast<const __m256i *>(at));
}

// Where a character of the word stands in thirty-two places, as CharInBlock says of sixteen.
[[gnu::target("avx2")]] inline __m256i wideCharAt(const char *at, const CharInBlock &c)
{
    return _mm256_cmpeq_epi8(_mm256_or_si256(wideLoad(at), _mm256_broadcastsi128_si256(c.bit)),
                             _mm256_broadcastsi128_si256(c.wanted));
}

[[gnu::target("avx2")]] BusyBlock nextBusyBlockWide(const char *bytes, qsizetype from,
                                                    qsizetype stop, const BlockTest &t)
{
    const __m256i lf = _mm256_broadcastsi128_si256(t.lf);
    const __m256i cr = _mm256_broadcastsi128_si256(t.cr);
    for (; from + 16 < stop; from += 32) {
        const __m256i here = wideLoad(bytes + from);
        const __m256i loneCr = _mm256_andnot_si256(
            _mm256_cmpeq_epi8(wideLoad(bytes + from + 1), lf), _mm256_cmpeq_epi8(here, cr));
        const auto suspect = unsigned(_mm256_movemask_epi8(_mm256_or_si256(here, loneCr)));
        const auto words = unsigned(
            _mm256_movemask_epi8(_mm256_and_si256(wideCharAt(bytes + from + t.one, t.first),
                                                  wideCharAt(bytes + from + t.two, t.second))));
        const auto markers = unsigned(_mm256_movemask_epi8(_mm256_and_si256(
            _mm256_cmpeq_epi8(wideLoad(bytes + from - 1), lf), wideCharAt(bytes + from, t.c))));
        if (suspect | words | markers) {
            // The half that holds something, as the narrow look would give it.
            const bool low = ((suspect | words | markers) & 0xFFFF) != 0;
            const int shift = low ? 0 : 16;
            return {from + shift, (words >> shift) & 0xFFFF, (markers >> shift) & 0xFFFF,
                    ((suspect >> shift) & 0xFFFF) != 0};
        }
    }
    return nextBusyBlock(bytes, from, stop, t);
}
#endif

// The wide look where the processor has it, else the narrow one.
BusyBlock nextBusy(const char *bytes, qsizetype from, qsizetype stop, const BlockTest &t)
{
#ifdef QS_WIDE_BLOCKS
    static const bool wide = __builtin_cpu_supports("avx2");
    if (wide)
        return nextBusyBlockWide(bytes, from, stop, t);
#endif
    return nextBusyBlock(bytes, from, stop, t);
}
#endif

// The first such place at or after from (from > 0), in one pass: each block of sixteen places is
// looked at for the word's rarest pair, for a line feed before a "C", and for a CR or a byte
// outside ASCII, which sends the block to be checked as plain. The bytes before a place are all
// plain. A line beginning at skip is not taken for a marker; a marker comes first where both
// begin.
Place nextPlace(const BookFiles::Bytes &file, const Needle &needle, qsizetype from, qsizetype skip)
{
    static constexpr std::string_view kMarker = "CHAPTER";
    const FoldedAscii text{std::string_view(file.bytes.constData(), size_t(file.bytes.size()))};
    const char *bytes = file.bytes.constData();
    const qsizetype size = text.size();
    const qsizetype last = size - qsizetype(needle.word.size());
    const auto markerAt = [&](qsizetype at) {
        return at != skip && bytes[at - 1] == '\n' && at + qsizetype(kMarker.size()) <= size &&
               sameAt(text, at, kMarker);
    };
    const auto wordAt = [&](qsizetype at) { return at <= last && sameAt(text, at, needle.word); };
#ifdef __SSE2__
    const BlockTest test(needle);
    const qsizetype stop = std::min(last + 1, size - 1) - 15;
    while (from < stop) {
        const BusyBlock block = nextBusy(bytes, from, stop, test);
        from = block.at;
        if (from >= stop)
            break;
        if (block.suspect && !file.PlainBetween(from, from + 16))
            return {Place::NotPlain, from, from};
        for (unsigned mask = block.words | block.markers; mask; mask &= mask - 1) {
            const int bit = std::countr_zero(mask);
            const qsizetype at = from + bit;
            if ((block.markers >> bit & 1) && markerAt(at))
                return {Place::Marker, at, from + 16};
            if ((block.words >> bit & 1) && wordAt(at))
                return {Place::Word, at, from + 16};
        }
        from += 16;
    }
#endif
    for (; from < size; ++from) {
        if (!file.PlainBetween(from, from + 1))
            return {Place::NotPlain, from, from};
        if (markerAt(from))
            return {Place::Marker, from, from + 1};
        if (wordAt(from))
            return {Place::Word, from, from + 1};
    }
    return {};
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
    if (m_ascii) {
        m_bytes = upperTerm.toLatin1();
        m_pair = rarestPair(view(m_bytes));
    }
}

QByteArray SearchTerm::HeldByEvery(const QList<SearchTerm> &terms)
{
    QByteArray held;
    for (const SearchTerm &term : terms) {
        if (term.AsciiBytes().size() > held.size())
            held = term.AsciiBytes();
    }
    return held;
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
        const Needle term(view(m_bytes), m_pair);
        return wholeWord ? wholeWordMatch(folded, term) : findWord(folded, term, 0) >= 0;
    }
    const QString upper = line.upper();
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
    const QString upper = line.upper();
    return find(QStringView(upper), wholeWord);
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
        // The first line is read and passed over; an empty file has none to read.
        if (file->bytes.isEmpty())
            throw VbError::inputPastEnd();
        const bool goOn =
            heldWord.isEmpty() ? readLines(b, *file, chapter, 0) : readPlaces(b, *file, chapter);
        if (!goOn || (afterBook && !afterBook(b)))
            return;
    }
}

bool BookScan::readLines(int book, const BookFiles::Bytes &file, QString &chapter,
                         qsizetype handFrom)
{
    const qsizetype count = file.Lines().size();
    qsizetype i = 1;
    while (i < count) {
        qsizetype at = i++;
        // Upper case makes no marker of a line: a plain line is a marker when its first seven
        // bytes are "CHAPTER" in any case.
        if (isMarker(file, at)) {
            chapter = QString::number(ChapterMarker::Number(file.Text(at)));
            // The line after a marker is read at once, without looking for the end of file.
            if (i >= count)
                throw VbError::inputPastEnd();
            at = i++;
        }
        const BookFiles::Bytes::Span &span = file.Lines().at(at);
        const Next next = onLine && span.start >= handFrom
                              ? onLine(Line{book, chapter, file, span, at})
                              : Next::Line;
        if (next == Next::Book)
            break;
        if (next == Next::Stop)
            return false;
    }
    return true;
}

bool BookScan::readPlaces(int book, const BookFiles::Bytes &file, QString &chapter)
{
    // The same lines, markers and chapters as reading line by line gives, found from the places
    // where the word stands: the lines between are passed over, except for the chapter markers.
    // From the first stretch that is not plain, the book is read line by line instead.
    const QString chapterBefore = chapter;
    const Needle word(std::string_view(heldWord.constData(), size_t(heldWord.size())));
    const qsizetype n = file.bytes.size();
    qsizetype pos = file.PlainNextLine(0);
    // The first line is passed over, but only when it is plain is it the whole of it.
    if (!file.PlainBetween(0, pos))
        return readLines(book, file, chapter, 0);
    bool afterMarker = false; // the line at pos follows a marker: a verse line, whatever it holds
    // The latest marker's line, its number read only when a line or the next book needs it.
    qsizetype marker = -1;
    const auto readChapter = [&] {
        if (marker >= 0)
            chapter = QString::number(ChapterMarker::Number(file.Text(file.PlainLineAt(marker))));
        marker = -1;
    };
    while (pos < n) {
        const Place next = nextPlace(file, word, pos, afterMarker ? pos : -1);
        if (next.kind == Place::None)
            break;
        qsizetype start = next.at;
        if (next.kind == Place::Word) {
            while (start > pos && file.bytes.at(start - 1) != '\n')
                --start;
        }
        const qsizetype after = file.PlainNextLine(start);
        if (next.kind == Place::NotPlain ||
            !file.PlainBetween(std::max(start, next.plainTo), after)) {
            chapter = chapterBefore;
            return readLines(book, file, chapter, pos);
        }
        if (next.kind == Place::Marker) {
            marker = start;
            // The line after a marker is read at once, without looking for the end of file.
            pos = after;
            if (pos >= n)
                throw VbError::inputPastEnd();
            afterMarker = true;
            continue;
        }
        readChapter();
        const Next step =
            onLine ? onLine(Line{book, chapter, file, file.PlainLineAt(start)}) : Next::Line;
        if (step == Next::Book)
            break;
        if (step == Next::Stop)
            return false;
        pos = after;
        afterMarker = false;
    }
    readChapter();
    return true;
}

QString BookScan::Line::upper() const
{
    return index >= 0 ? file.UpperText(index) : basStrings::UpperCase(text());
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
