#pragma once

#include "scripture/BookScan.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

class clsBible;

// The advanced search: the chosen books of a translation searched for a query in one of three
// modes, every matching verse listed as "Book chapter:verse". It runs on the same scan of the book
// files as the quick search, opening only the books chosen.
class AdvancedSearch
{
public:
    enum class Mode
    {
        AnyWord,
        AllWords,
        ExactPhrase
    };

    struct Options
    {
        QString query; // the query box's text as typed
        Mode mode = Mode::ExactPhrase;
        bool wholeWord = false;
        QList<bool> books; // entry i - 1 says whether book i is searched; missing entries are not
        int limit = 500;   // the maximum number of results
    };

    struct Result
    {
        bool ran = false;              // false for a blank query: nothing happened at all
        Mode mode = Mode::ExactPhrase; // the mode that ran
        QList<SearchHit> hits;         // in book order
        bool overLimit = false;        // more than the limit were found: the list holds limit + 1
        QString title;                 // the title label's text at the end
        // What to tell the user when a book could not be read; the list is then empty.
        QString failureMessage;
        bool stopped = false; // the reader stopped the search: the list holds what was found before
    };

    // Called for every book in order, chosen or not, before it is searched: a chance to move the
    // progress bar and let the window repaint.
    std::function<void(int book, int books)> onProgress;
    // Called when more results than the limit were found, with the message to show the user.
    std::function<void(const QString &message)> onOverLimit;
    // Asked after each progress call: true ends the search there, before the next book is read.
    std::function<bool()> stopRequested;

    Result run(const clsBible &store, const Options &options);

    // The query's words: upper-cased, trimmed, split at each single blank.
    static QStringList Words(const QString &query);
    // One word always searches for the exact phrase, whatever mode is chosen.
    static Mode ModeToRun(const QStringList &words, Mode chosen);
};
