#pragma once

#include <QString>

// Turns a typed reference ("1 Jn 4:8", "John 3:36-4:2", "Song of Solomon 2:1") into its book part
// and numbers. The book part is resolved against the translation's book table by the store.
namespace ReferenceParser {

struct ChapterVerse
{
    int chapter = 0;
    int verse = 0;
    bool hasColon = false;
};

struct Reference
{
    QString book; // upper-cased book part, as typed (before the abbreviation table)
    int chapterFrom = 0;
    int verseFrom = 0;
    int chapterTo = 0; // 0 when the reference names one chapter
    int verseTo = 0;
};

// "chapter:verse": no ":" gives the whole text's value as chapter and verse 0.
ChapterVerse SplitChapterVerse(const QString &text);

// Parses one reference (not a list).
Reference Parse(const QString &text);

// The short fixed table of abbreviations applied to a whole, upper-cased book part; a part that is
// not in the table comes back unchanged.
QString ExpandAbbreviation(const QString &bookPart);

} // namespace ReferenceParser
