#pragma once

#include "scripture/SearchQuery.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

// A verse the query search found.
struct QueryHit
{
    QString translation; // the translation's folder name, e.g. "KJV"
    int book = 0;        // the book's number in that translation
    QString bookName;    // as its book map gives it
    int chapter = 0;
    int verse = 0;
    QString reference; // the standard reference: "JOHN 3:16"
    QString text;      // the verse as shown, without its number, brackets and Strong's numbers

    // "translation,reference,book,chapter,verse,text" and one record a hit, quoted as RFC 4180
    // says (a field with a comma, a quote or a line break in quotes, quotes doubled), lines ended
    // by CR LF.
    static QString CsvHeader();
    QString CsvRecord() const;
};

// Runs a query over the chosen books of one or several translations. UI-free: the caller shows
// the progress and may stop the search from the progress callback. Book files are read through
// the shared cache of folded verses (FoldedVerses), so a second search reads nothing from disk.
// Not for use from several threads at once.
class QuerySearch
{
public:
    enum class Order
    {
        ByReference,  // interleaved: verse by verse, each verse in every translation that has it
        ByTranslation // grouped: every hit of the first translation, then of the second...
    };

    struct Options
    {
        // Translation folders (absolute paths); hits name each by its folder name.
        QStringList translations;
        // Entry i - 1 says whether book i of the FIRST translation is searched; empty for all.
        // The other translations search the same books, found by their names in the verse
        // numbering (scripture/VerseNumbering.h), so a translation that orders or numbers its
        // books otherwise still searches the same books.
        QList<bool> books;
        int limit = 500; // the most hits listed; the count of all that matched is still given
        Order order = Order::ByReference;
    };

    struct Result
    {
        QList<QueryHit> hits; // at most the limit, in the order asked for
        int found = 0;        // every verse that matched, listed or not
        int translations = 0; // how many translations were searched
        bool stopped = false; // the progress callback said to stop; hits hold what was found
        // The translations searched for a Strong's number that carry none (by folder name), so
        // that an empty list can say why.
        QStringList withoutStrongsNumbers;
        // What to tell the user when a translation or a book file could not be read; the hits
        // then hold what the others gave.
        QString failureMessage;
    };

    // Called before each book of each translation, with how many books are done and the total;
    // false stops the search.
    std::function<bool(int done, int total)> onProgress;

    Result run(const SearchQuery &query, const Options &options);

    // Ordering hits by reference lines verses up through each translation's verse numbering: a
    // verse that another translation numbers otherwise sorts where the KJV has it.
};
