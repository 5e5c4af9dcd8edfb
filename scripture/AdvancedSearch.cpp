#include "scripture/AdvancedSearch.h"

#include <algorithm>
#include <optional>

#include "platform/MsgBox.h"
#include "platform/VbError.h"
#include "scripture/BookScan.h"
#include "scripture/basStrings.h"
#include "scripture/clsBible.h"
#include "scripture/clsSeparation.h"

QStringList AdvancedSearch::Words(const QString &query)
{
    clsSeparation splitter;
    splitter.setDelimiter(QStringLiteral(" "));
    splitter.setText(basStrings::UpperCase(basStrings::TrimBlanks(query).toString()));
    return splitter.items();
}

AdvancedSearch::Mode AdvancedSearch::ModeToRun(const QStringList &words, Mode chosen)
{
    return words.size() == 1 ? Mode::ExactPhrase : chosen;
}

AdvancedSearch::Result AdvancedSearch::run(const clsBible &store, const Options &options)
{
    Result result;
    // A blank query does nothing.
    const QString trimmed = basStrings::TrimBlanks(options.query).toString();
    if (trimmed.isEmpty())
        return result;
    result.ran = true;

    // The word list, then 5. the mode.
    const QStringList wordList = Words(trimmed);
    result.mode = ModeToRun(wordList, options.mode);
    const SearchTerm phrase(basStrings::UpperCase(trimmed));
    // A word said twice is looked for once: the flag of each word's test is the same.
    QStringList once = wordList;
    once.removeDuplicates();
    QList<SearchTerm> words;
    for (const QString &word : std::as_const(once))
        words.append(SearchTerm(word));
    // Many words are read in one pass over each line.
    std::optional<AnyOfWords> anyOf;
    if (result.mode == Mode::AnyWord && once.size() > 8)
        anyOf.emplace(once);

    const auto matches = [&](const BookScan::Line &line) {
        switch (result.mode) {
        case Mode::ExactPhrase:
            return phrase.In(line, options.wholeWord);
        // The flag is OR (any word) or AND (all words) of every word's test, in order; once it
        // cannot change, the words left are not tried, which gives the same flag sooner.
        case Mode::AnyWord:
            if (anyOf)
                return anyOf->In(line, options.wholeWord);
            return std::any_of(words.cbegin(), words.cend(), [&](const SearchTerm &word) {
                return word.In(line, options.wholeWord);
            });
        case Mode::AllWords:
            return std::all_of(words.cbegin(), words.cend(), [&](const SearchTerm &word) {
                return word.In(line, options.wholeWord);
            });
        }
        return false;
    };

    const int limit = options.limit;
    const int books = store.BooksCount();
    QString bookName;
    try {
        BookScan scan;
        // A listed line holds the phrase, or every word: only the lines holding it, or one of
        // them, are looked at. Any word of several names no word every line must hold.
        if (result.mode == Mode::ExactPhrase)
            scan.heldWord = phrase.AsciiBytes();
        else if (result.mode == Mode::AllWords)
            scan.heldWord = SearchTerm::HeldByEvery(words);
        scan.beforeBook = [&](int b) {
            // Once stopped, the books left are passed over unopened.
            if (result.stopped)
                return false;
            if (onProgress)
                onProgress(b, books);
            if (stopRequested && stopRequested()) {
                result.stopped = true;
                return false;
            }
            const bool chosen = options.books.value(b - 1, false);
            if (chosen)
                bookName = store.BookName(b);
            return chosen;
        };
        scan.onLine = [&](const BookScan::Line &line) {
            if (matches(line))
                result.hits.append({bookName, line.chapter, line.text()});
            return result.hits.size() > limit ? BookScan::Next::Book : BookScan::Next::Line;
        };
        // Once over the limit the user is told once and the search ends there: the books after
        // would each add their first match only.
        scan.afterBook = [&](int) {
            if (result.hits.size() <= limit)
                return true;
            result.overLimit = true;
            if (onOverLimit)
                onOverLimit(OverLimitMessage(limit));
            return false;
        };
        scan.run(store);
    } catch (const VbError &error) {
        result.hits.clear();
        result.failureMessage = platform::ErrText(error.number, error.description);
        result.title.clear();
        return result;
    }

    if (result.overLimit) {
        result.title = result.mode == Mode::ExactPhrase
                           ? QStringLiteral("Too many results!!!  Only First ") +
                                 QString::number(limit) + QStringLiteral(" shown")
                           : QStringLiteral("Too many results!!!");
    } else {
        result.title = QString::number(result.hits.size()) + QStringLiteral(" Matches");
    }
    return result;
}
