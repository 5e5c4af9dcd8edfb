#pragma once

#include "scripture/BookScan.h"

#include <QString>
#include <QStringList>
#include <functional>

class clsBible;

// The quick keyword search: every line of every book that holds all the typed keywords, each
// listed as "Book chapter:verse line". The window and the command line drive the same search; it
// reports the changing title and the progress through callbacks, tells the user about too many
// results through the message wrapper, and hands back the message of a failure.
class QuickSearch
{
public:
    enum class Outcome
    {
        Nothing,    // the query was blank: nothing at all happened
        UnderLimit, // fewer results than the limit: the title names the count
        AtLimit,    // exactly the limit: the title still shows the last book searched
        OverLimit,  // more than the limit: the first limit + 1 results are kept
        TooMany,    // out of memory while collecting
        Failed,     // a book file could not be read, or similar
    };

    struct Result
    {
        Outcome outcome = Outcome::Nothing;
        QList<SearchHit> hits;
        int matchCount = 0;
        QString title; // the title label's text at the end
        // What to tell the user when the search failed; the caller shows it once the window
        // has its normal pointer back.
        QString failureMessage;
    };

    // The title label changes as the search goes through the books.
    std::function<void(const QString &title)> onTitle;
    // Progress: the book being searched out of the number of books; a chance to repaint.
    std::function<void(int value, int maximum)> onProgress;

    // query is the keyword box's text as typed; wholeWord is the "Word Search" box; limit the
    // maximum number of results.
    Result run(const clsBible &store, const QString &query, bool wholeWord, int limit);
};
