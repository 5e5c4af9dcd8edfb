#pragma once

#include "scripture/VerseNumbering.h"
#include "scripture/clsBible.h"

#include <optional>

// Where a reader is: a book number of the translation, a chapter and a verse (0 for the chapter as
// a whole).
struct ReaderPlace
{
    int book = 0;
    int chapter = 0;
    int verse = 0;

    bool operator==(const ReaderPlace &) const = default;
};

// Carries references from one translation's verse numbering to another's, through the KJV's: a
// Russian reader's Psalm 22 is the KJV's Psalm 23. Psalm titles that one numbering counts as verse
// 0 are read as verse 1, since the translation folders keep a title at the start of its psalm's
// first verse.
class VerseMapping
{
public:
    VerseMapping(VerseNumbering from, VerseNumbering to);
    // Between the translations open in two stores.
    static VerseMapping Between(const clsBible &from, const clsBible &to);

    // A passage of the first translation (its book number and numbers as a store takes them: verse
    // 0 the whole chapter, chapterTo 0 the same chapter, verseTo 0 the same verse) in the second's
    // numbering, with the second's book number; nothing when the second lacks the book or the
    // passage's first verse has no counterpart there.
    struct Numbers
    {
        int book = 0;
        int chapterFrom = 0;
        int verseFrom = 0;
        int chapterTo = 0;
        int verseTo = 0;
    };
    std::optional<Numbers> Map(const Numbers &passage) const;

    // The reader's place carried over (a verse without a counterpart by its chapter); book 0 when
    // the second translation lacks the book.
    ReaderPlace Carry(const ReaderPlace &place) const;

    const VerseNumbering &From() const { return m_from; }
    const VerseNumbering &To() const { return m_to; }

private:
    // One verse of the first numbering as a run of verses of the second.
    std::optional<VerseSpan> mapVerse(int book, int chapter, int verse) const;

    VerseNumbering m_from;
    VerseNumbering m_to;
};

// What the main window calls when the user opens another translation over the one on display: the
// place in `to` that shows what the reader saw in `from`, carried through both verse numberings,
// the chapter kept within the book (a chapter without counterpart keeps its number as far as the
// book goes). Book 0 when `to` lacks the book (the caller keeps its own fallback then).
ReaderPlace KeepReaderPlace(const clsBible &from, const ReaderPlace &place, const clsBible &to);

// The same, falling back for a book the numberings do not know to the book of the same name, else
// of the same number when both translations have as many books; book 0 when none is found.
ReaderPlace PlaceInOtherTranslation(const clsBible &from, const ReaderPlace &place,
                                    const clsBible &to);

// The book number a typed book part ("Psalm", "Ps", "1 Jn") names in a translation: by the
// translation's own book names as the store matches them, else by the English names, so that a
// translation with book names in another language still answers "Psalm 9:22". 0 when none.
int BookOfTypedName(const clsBible &bible, const VerseNumbering &numbering,
                    const QString &bookPart);

// A passage of the translation open in `to` in the store's standard form: PSALMS 10:1.
QString StandardOf(const clsBible &to, const VerseMapping::Numbers &passage);
