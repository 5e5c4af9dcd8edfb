#pragma once

#include "tools/import/BookFolder.h"
#include "tools/import/StrongsEntry.h"
#include "tools/import/VerseConverter.h"

#include <QList>
#include <QString>
#include <functional>
#include <string_view>

namespace sword {
class SWModule;
}

namespace importer {

class ImportLog;
class Versification;

// The tagged words of one verse, for the word studies.
struct VerseWords
{
    int book = 0; // position in CanonBooks()
    int chapter = 0;
    int verse = 0;
    QList<TaggedWords> words;
};

struct BibleOptions
{
    QString work; // the translation folder's name, used in the summary
    bool spanishNames = false;
    bool strongsCopy = false;   // also build the copy with Strong's numbers in braces
    bool collectTagged = false; // keep the tagged words for the word studies
    // A whole Bible must hold the 66 books and most of their verses; otherwise any books with
    // text are taken (a New Testament, a few books), the others left out.
    bool wholeBible = true;
    // Names by position in CanonBooks() where given (a module's own language), else the table's.
    QStringList bookNames;
    // Told of each book as it is read: its position among the module's books and their count.
    std::function<void(int done, int total, const QString &book)> progress;
};

struct BibleText
{
    BookFolder plain;
    BookFolder strongs;
    QList<VerseWords> tagged;
    QStringList osisIds; // of plain.books, in their order
};

// Reads the 66 books of a Bible module (other books the module carries are skipped). Verses are
// numbered as in the module; a slot the module leaves empty keeps its number with no text, except
// at the end of a chapter, where it is dropped. A verse that repeats the text of the one before
// (the module merged them) keeps the text on the first. False, with the reason logged, when the
// module cannot be read as a Bible.
bool ReadBible(sword::SWModule *module, const BibleOptions &options, ImportLog &log,
               BibleText &out);

// The chapters of each book of a commentary, in the layout of the KJV's books and chapters.
bool ReadCommentary(sword::SWModule *module, const QString &work, const Versification &kjv,
                    ImportLog &log, BookFolder &out);

// Entries 1..count of a Strong's dictionary; a number the module lacks is marked unused.
bool ReadStrongs(sword::SWModule *module, QChar language, int count, const QString &work,
                 ImportLog &log, QList<StrongsEntry> &out);

// Calls visit for every entry of a dictionary module, in the module's order, each key once.
bool ReadDictionary(sword::SWModule *module, const QString &work, ImportLog &log,
                    const std::function<void(const QString &key, std::string_view raw)> &visit);

} // namespace importer
