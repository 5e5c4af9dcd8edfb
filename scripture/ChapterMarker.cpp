#include "scripture/ChapterMarker.h"

#include "scripture/basStrings.h"

#include <charconv>

namespace ChapterMarker {

namespace {

// Upper-casing turns no other character into one of these seven letters, so comparing the ASCII
// letters case-blind is the same test, without building an upper-cased copy of every line a
// search reads.
bool startsWithChapter(QStringView text)
{
    static constexpr char16_t word[] = u"CHAPTER";
    if (text.size() < 7)
        return false;
    for (int i = 0; i < 7; ++i) {
        char16_t c = text[i].unicode();
        if (c >= u'a' && c <= u'z')
            c = char16_t(c - 32);
        if (c != word[i])
            return false;
    }
    return true;
}

} // namespace

bool IsMarker(QStringView line)
{
    // Trimming the first seven characters cannot make "CHAPTER" of anything but "CHAPTER".
    return startsWithChapter(line);
}

bool IsMarkerOf(QStringView line, int chapter)
{
    const QStringView t = basStrings::TrimBlanks(line);
    // Most lines fail the first test; the number is written out without allocating, as this runs
    // for every line of a book up to the chapter asked for.
    if (t.size() < 9 || t[7] != u' ' || !startsWithChapter(t))
        return false;
    char digits[16];
    const qsizetype count = std::to_chars(digits, digits + sizeof digits, chapter).ptr - digits;
    if (t.size() != 8 + count)
        return false;
    for (qsizetype i = 0; i < count; ++i) {
        if (t[8 + i] != QLatin1Char(digits[i]))
            return false;
    }
    return true;
}

int Number(QStringView line)
{
    return basStrings::LeadingNumber(line.mid(7));
}

bool MayReadAsMarker(QStringView line)
{
    return startsWithChapter(basStrings::TrimBlanks(line));
}

} // namespace ChapterMarker
