#include "scripture/FoldedVerses.h"

#include "scripture/BookFiles.h"
#include "scripture/ChapterMarker.h"
#include "scripture/StrongConcordance.h"

#include <QHash>
#include <algorithm>
#include <bit>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace {

bool isDigit(char16_t c)
{
    return c >= u'0' && c <= u'9';
}

// A text being written character by character into room made beforehand: appending one QChar at
// a time to a QString costs a capacity check a character, which shows over millions of them.
struct Writer
{
    QString &text;
    qsizetype size = 0;
    char16_t *buffer = nullptr; // the text's characters, kept so that a write does not detach

    explicit Writer(QString &target) : text(target), size(target.size()) {}
    void room(qsizetype more)
    {
        if (size + more > text.size() || !buffer) {
            if (size + more > text.size())
                text.resize(std::max(size + more, text.size() * 3 / 2 + 64));
            buffer = reinterpret_cast<char16_t *>(text.data());
        }
    }
    void put(char16_t c) { buffer[size++] = c; }
    void done()
    {
        text.resize(size);
        buffer = nullptr;
    }
};

// The bulk of every verse is plain text between the marks that the shown text drops: found
// sixteen bytes at a time, copied and upper-cased eight characters at a time.
qsizetype nextMark(const char *line, qsizetype from, qsizetype n)
{
#ifdef __SSE2__
    const __m128i open = _mm_set1_epi8('[');
    const __m128i close = _mm_set1_epi8(']');
    const __m128i brace = _mm_set1_epi8('{');
    for (; from + 16 <= n; from += 16) {
        const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i *>(line + from));
        const int mask = _mm_movemask_epi8(
            _mm_or_si128(_mm_or_si128(_mm_cmpeq_epi8(b, open), _mm_cmpeq_epi8(b, close)),
                         _mm_cmpeq_epi8(b, brace)));
        if (mask)
            return from + std::countr_zero(unsigned(mask));
    }
#endif
    while (from < n && line[from] != '[' && line[from] != ']' && line[from] != '{')
        ++from;
    return from;
}

qsizetype nextMark(const char16_t *line, qsizetype from, qsizetype n)
{
    while (from < n && line[from] != u'[' && line[from] != u']' && line[from] != u'{')
        ++from;
    return from;
}

void copyRun(const char *from, qsizetype n, char16_t *to)
{
    qsizetype i = 0;
#ifdef __SSE2__
    const __m128i zero = _mm_setzero_si128();
    for (; i + 16 <= n; i += 16) {
        const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i *>(from + i));
        _mm_storeu_si128(reinterpret_cast<__m128i *>(to + i), _mm_unpacklo_epi8(b, zero));
        _mm_storeu_si128(reinterpret_cast<__m128i *>(to + i + 8), _mm_unpackhi_epi8(b, zero));
    }
#endif
    for (; i < n; ++i)
        to[i] = static_cast<unsigned char>(from[i]);
}

void copyRun(const char16_t *from, qsizetype n, char16_t *to)
{
    std::copy(from, from + n, to);
}

// Plain ASCII upper-cased: the small letters a to z, and nothing else, lose 32.
void upperAscii(const char16_t *from, qsizetype n, char16_t *to)
{
    qsizetype i = 0;
#ifdef __SSE2__
    const __m128i below = _mm_set1_epi16(u'a' - 1);
    const __m128i above = _mm_set1_epi16(u'z' + 1);
    const __m128i difference = _mm_set1_epi16(32);
    for (; i + 8 <= n; i += 8) {
        const __m128i c = _mm_loadu_si128(reinterpret_cast<const __m128i *>(from + i));
        const __m128i small = _mm_and_si128(_mm_cmpgt_epi16(c, below), _mm_cmplt_epi16(c, above));
        _mm_storeu_si128(reinterpret_cast<__m128i *>(to + i),
                         _mm_sub_epi16(c, _mm_and_si128(small, difference)));
    }
#endif
    for (; i < n; ++i)
        to[i] = from[i] >= u'a' && from[i] <= u'z' ? char16_t(from[i] - 32) : from[i];
}

// The shown text of a line (see FoldedVerses) and its Strong's numbers, blank-separated.
template <typename Unit>
void splitLine(const Unit *line, qsizetype n, Writer &shown, QString &strongs, bool numbered = true)
{
    qsizetype i = 0;
    while (numbered && i < n && isDigit(char16_t(line[i])))
        ++i;
    if (i > 0 && i < n && line[i] == Unit(' '))
        ++i;
    shown.room(n - i + 1);
    while (i < n) {
        const qsizetype mark = nextMark(line, i, n);
        copyRun(line + i, mark - i, shown.buffer + shown.size);
        shown.size += mark - i;
        i = mark;
        if (i >= n)
            break;
        const char16_t c = char16_t(line[i]);
        if (c == u'[' || c == u']') {
            ++i;
            continue;
        }
        // A group in braces, to its closing brace or the end of the line.
        qsizetype end = i + 1;
        while (end < n && line[end] != Unit('}'))
            ++end;
        qsizetype piece = i + 1;
        for (qsizetype k = i + 1; k <= end; ++k) {
            if (k < end && QChar(char16_t(line[k])).isLetterOrNumber())
                continue;
            if (k > piece) {
                QString text(k - piece, Qt::Uninitialized);
                for (qsizetype p = piece; p < k; ++p)
                    text[p - piece] = QChar(char16_t(line[p]));
                const QString number = StrongConcordance::Normalize(text);
                if (!number.isEmpty()) {
                    if (!strongs.isEmpty() && !strongs.endsWith(u'\n'))
                        strongs += u' ';
                    strongs += number;
                }
            }
            piece = k + 1;
        }
        i = end + 1;
    }
}

void foldInto(QStringView text, Writer &out, QList<qsizetype> *from)
{
    static QHash<char16_t, QString> decomposed;
    out.room(text.size() + 1);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = text.at(i).unicode();
        if (c < 0x80) {
            out.put(c >= u'a' && c <= u'z' ? char16_t(c - 32) : c);
            if (from)
                from->append(i);
            continue;
        }
        auto found = decomposed.constFind(c);
        if (found == decomposed.cend()) {
            // Surrogates are kept as they are: no letter outside the first plane has an accent to
            // take off in any translation.
            QString parts = QChar(c).isSurrogate()
                                ? QString(QChar(c))
                                : QString(QChar(c)).normalized(QString::NormalizationForm_KD);
            QString kept;
            for (const QChar p : std::as_const(parts)) {
                const QChar::Category category = p.category();
                if (category == QChar::Mark_NonSpacing ||
                    category == QChar::Mark_SpacingCombining || category == QChar::Mark_Enclosing)
                    continue;
                kept += p.isSurrogate() ? p : p.toUpper();
            }
            found = decomposed.insert(c, kept);
        }
        // A character may fold into several ("ﬃ" into "FFI"): the room made covers them and all
        // the text still to come.
        out.room(found->size() + text.size() - i);
        for (const QChar p : *found) {
            out.put(p.unicode());
            if (from)
                from->append(i);
        }
    }
}

bool asciiMarker(const char *line, qsizetype n)
{
    // Only a line that begins, after blanks, with a C can be a marker.
    qsizetype i = 0;
    while (i < n && (line[i] == ' ' || line[i] == '\t'))
        ++i;
    return i < n && (line[i] == 'C' || line[i] == 'c');
}

struct CacheEntry
{
    std::shared_ptr<const BookFiles::Bytes> bytes;
    std::shared_ptr<const FoldedVerses> verses;
};

QHash<QString, CacheEntry> &cache()
{
    static QHash<QString, CacheEntry> entries;
    return entries;
}

} // namespace

QString FoldedVerses::Fold(QStringView text)
{
    return Fold(text, nullptr);
}

QString FoldedVerses::Fold(QStringView text, QList<qsizetype> *from)
{
    QString folded;
    Writer out(folded);
    foldInto(text, out, from);
    out.done();
    return folded;
}

void FoldedVerses::append(const Verse &verse, QStringView line, bool numbered)
{
    verses.append(verse);
    shownStarts.append(shown.size());
    foldedStarts.append(folded.size());
    strongStarts.append(strongs.size());
    Writer shownOut(shown);
    const qsizetype from = shownOut.size;
    splitLine(line.utf16(), line.size(), shownOut, strongs, numbered);
    const qsizetype to = shownOut.size;
    shownOut.room(1);
    shownOut.put(u'\n');
    shownOut.done();
    Writer foldedOut(folded);
    foldInto(QStringView(shown).mid(from, to - from), foldedOut, nullptr);
    foldedOut.room(1);
    foldedOut.put(u'\n');
    foldedOut.done();
    strongs += u'\n';
}

void FoldedVerses::finish()
{
    shownStarts.append(shown.size());
    foldedStarts.append(folded.size());
    strongStarts.append(strongs.size());
}

FoldedVerses FoldedVerses::OfLines(const QStringList &lines)
{
    FoldedVerses verses;
    for (const QString &line : lines) {
        qsizetype digits = 0;
        while (digits < line.size() && isDigit(line.at(digits).unicode()))
            ++digits;
        verses.append({1, line.left(digits).toInt()}, line);
    }
    verses.finish();
    return verses;
}

std::shared_ptr<const FoldedVerses> FoldedVerses::OfBookFile(const QString &path)
{
    const std::shared_ptr<const BookFiles::Bytes> file = BookFiles::bytes(path);
    if (!file) {
        cache().remove(path);
        return nullptr;
    }
    auto it = cache().constFind(path);
    if (it != cache().cend() && it->bytes == file)
        return it->verses;

    auto verses = std::make_shared<FoldedVerses>();
    const qsizetype total = file->bytes.size();
    verses->verses.reserve(file->Lines().size());
    verses->shownStarts.reserve(file->Lines().size() + 1);
    verses->foldedStarts.reserve(file->Lines().size() + 1);
    verses->strongStarts.reserve(file->Lines().size() + 1);
    Writer shown(verses->shown);
    Writer folded(verses->folded);
    shown.room(total + 1);
    folded.room(total + 1);
    int chapter = 0;
    bool inChapter = false;
    const char *bytes = file->bytes.constData();
    for (qsizetype i = 0; i < file->Lines().size(); ++i) {
        const BookFiles::Bytes::Span &span = file->Lines().at(i);
        if (span.length == 0)
            continue;
        const char *line = bytes + span.start;
        QString text;
        if (!span.ascii || asciiMarker(line, span.length)) {
            text = file->Text(i);
            if (ChapterMarker::IsMarker(text)) {
                chapter = ChapterMarker::Number(text);
                inChapter = true;
                continue;
            }
        }
        if (!inChapter)
            continue;
        Verse verse{chapter, 0};
        for (qsizetype d = 0;
             d < span.length && isDigit(char16_t(line[d])) && verse.verse < 100000000; ++d)
            verse.verse = verse.verse * 10 + (line[d] - '0');
        verses->verses.append(verse);
        verses->shownStarts.append(shown.size);
        verses->foldedStarts.append(folded.size);
        verses->strongStarts.append(verses->strongs.size());
        const qsizetype shownFrom = shown.size;
        if (span.ascii) {
            splitLine(line, span.length, shown, verses->strongs);
            // Plain ASCII folds by upper-casing alone.
            folded.room(shown.size - shownFrom + 1);
            upperAscii(shown.buffer + shownFrom, shown.size - shownFrom,
                       folded.buffer + folded.size);
            folded.size += shown.size - shownFrom;
        } else {
            splitLine(reinterpret_cast<const char16_t *>(text.utf16()), text.size(), shown,
                      verses->strongs);
            foldInto(QStringView(verses->shown).mid(shownFrom, shown.size - shownFrom), folded,
                     nullptr);
        }
        shown.room(1);
        shown.put(u'\n');
        folded.room(1);
        folded.put(u'\n');
        verses->strongs += u'\n';
    }
    shown.done();
    folded.done();
    verses->finish();
    cache().insert(path, CacheEntry{file, verses});
    return verses;
}
