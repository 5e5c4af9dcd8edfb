#include "scripture/VerseMapping.h"

#include "scripture/ReferenceParser.h"
#include "scripture/basStrings.h"

#include <algorithm>

namespace {

// Titles counted as verse 0 are read at the start of verse 1 in the translation folders.
VerseId titleAsFirstVerse(VerseId verse)
{
    if (verse.verse == 0)
        verse.verse = 1;
    return verse;
}

// Whether a run from `first` to `last` would leave its book or run backwards.
bool endsBefore(const VerseId &last, const VerseId &first)
{
    return last.book != first.book || last.chapter < first.chapter ||
           (last.chapter == first.chapter && last.verse < first.verse);
}

} // namespace

VerseMapping::VerseMapping(VerseNumbering from, VerseNumbering to)
    : m_from(std::move(from)), m_to(std::move(to))
{
}

VerseMapping VerseMapping::Between(const clsBible &from, const clsBible &to)
{
    return VerseMapping(VerseNumbering::ForTranslation(from), VerseNumbering::ForTranslation(to));
}

std::optional<VerseSpan> VerseMapping::mapVerse(int book, int chapter, int verse) const
{
    const QString osis = m_from.OsisOfBook(book);
    if (osis.isEmpty())
        return std::nullopt;
    const VerseSpan kjv = m_from.ToKjv({osis, chapter, verse});
    if (kjv.isEmpty())
        return std::nullopt;
    const VerseSpan start = m_to.FromKjv(kjv.first);
    const VerseSpan end = m_to.FromKjv(kjv.last);
    if (start.isEmpty())
        return std::nullopt;
    VerseSpan mapped{titleAsFirstVerse(start.first),
                     titleAsFirstVerse(end.isEmpty() ? start.last : end.last)};
    // A run never leaves the book it starts in, nor ends before it starts.
    if (endsBefore(mapped.last, mapped.first))
        mapped.last = titleAsFirstVerse(start.last);
    if (endsBefore(mapped.last, mapped.first))
        mapped.last = mapped.first;
    if (m_to.BookOfOsis(mapped.first.book) == 0)
        return std::nullopt;
    return mapped;
}

std::optional<VerseMapping::Numbers> VerseMapping::Map(const Numbers &passage) const
{
    const int chapterTo = passage.chapterTo == 0 ? passage.chapterFrom : passage.chapterTo;
    if (passage.verseFrom == 0) {
        // Whole chapters go where their first verses go.
        const std::optional<VerseSpan> first = mapVerse(passage.book, passage.chapterFrom, 1);
        const std::optional<VerseSpan> last = mapVerse(passage.book, chapterTo, 1);
        if (!first || !last)
            return std::nullopt;
        const int lastChapter =
            last->first.book == first->first.book ? last->first.chapter : first->first.chapter;
        return Numbers{m_to.BookOfOsis(first->first.book), first->first.chapter, 0,
                       std::max(lastChapter, first->first.chapter), 0};
    }
    const int verseTo = passage.verseTo == 0 ? passage.verseFrom : passage.verseTo;
    const std::optional<VerseSpan> first =
        mapVerse(passage.book, passage.chapterFrom, passage.verseFrom);
    const std::optional<VerseSpan> last = mapVerse(passage.book, chapterTo, verseTo);
    if (!first || !last)
        return std::nullopt;
    VerseId end = last->last;
    if (endsBefore(end, first->first))
        end = first->last;
    return Numbers{m_to.BookOfOsis(first->first.book), first->first.chapter, first->first.verse,
                   end.chapter, end.verse};
}

ReaderPlace VerseMapping::Carry(const ReaderPlace &place) const
{
    std::optional<Numbers> mapped = Map({place.book, place.chapter, place.verse, 0, 0});
    // A verse the other numbering lacks: the chapter it stands in.
    if (!mapped && place.verse != 0)
        mapped = Map({place.book, place.chapter, 0, 0, 0});
    if (!mapped)
        return {};
    return {mapped->book, mapped->chapterFrom, mapped->verseFrom};
}

ReaderPlace KeepReaderPlace(const clsBible &from, const ReaderPlace &place, const clsBible &to)
{
    const VerseMapping mapping = VerseMapping::Between(from, to);
    ReaderPlace carried = mapping.Carry(place);
    // A chapter the other numbering lacks altogether (the Synodal's Psalm 151): the same book,
    // as near as it goes.
    if (carried.book == 0)
        carried = {mapping.To().BookOfOsis(mapping.From().OsisOfBook(place.book)), place.chapter,
                   0};
    if (carried.book < 1 || carried.book > to.BooksCount())
        return {};
    carried.chapter = std::clamp(carried.chapter, 1, std::max(1, to.Chapters(carried.book)));
    return carried;
}

ReaderPlace PlaceInOtherTranslation(const clsBible &from, const ReaderPlace &place,
                                    const clsBible &to)
{
    ReaderPlace there = KeepReaderPlace(from, place, to);
    // A book the numbering does not know: the same book by name, else by number when both
    // translations have as many books.
    if (there.book == 0) {
        there = {to.BookByName(from.BookName(place.book)), place.chapter, 0};
        if (there.book == 0 && from.BooksCount() == to.BooksCount())
            there.book = place.book;
    }
    return there;
}

int BookOfTypedName(const clsBible &bible, const VerseNumbering &numbering, const QString &bookPart)
{
    const QString typed = ReferenceParser::ExpandAbbreviation(
        basStrings::UpperCase(basStrings::TrimBlanks(bookPart).toString()));
    if (typed.isEmpty())
        return 0;
    for (int b = 1; b <= bible.BooksCount(); ++b) {
        if (basStrings::UpperCase(bible.BookName(b)).startsWith(typed))
            return b;
    }
    for (int i = 0; i < CanonBooks::Count(); ++i) {
        if (basStrings::UpperCase(CanonBooks::EnglishName(i)).startsWith(typed))
            return numbering.BookOfOsis(CanonBooks::Osis(i));
    }
    return 0;
}

QString StandardOf(const clsBible &to, const VerseMapping::Numbers &passage)
{
    Passage standard;
    standard.book = basStrings::UpperCase(to.BookName(passage.book));
    standard.chapterFrom = passage.chapterFrom;
    standard.verseFrom = passage.verseFrom;
    standard.chapterTo = passage.chapterTo;
    standard.verseTo = passage.verseTo;
    return standard.Standard();
}
