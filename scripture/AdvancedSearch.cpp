#include "scripture/AdvancedSearch.h"

#include <algorithm>

#include "platform/MsgBox.h"
#include "platform/VbError.h"
#include "scripture/BookScan.h"
#include "scripture/basStrings.h"
#include "scripture/clsBible.h"
#include "scripture/clsSeparation.h"

namespace {

// The verse number: the line up to its first blank, trimmed.
QString verseNumber(const QString &line)
{
    const qsizetype blank = line.indexOf(u' ');
    return basStrings::TrimBlanks(blank < 0 ? QStringView(line) : QStringView(line).left(blank)).toString();
}

} // namespace

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
    // 2. A blank query does nothing.
    const QString trimmed = basStrings::TrimBlanks(options.query).toString();
    if (trimmed.isEmpty())
        return result;
    result.ran = true;

    // 4. The word list, then 5. the mode.
    const QStringList wordList = Words(trimmed);
    result.mode = ModeToRun(wordList, options.mode);
    const SearchTerm phrase(basStrings::UpperCase(trimmed));
    QList<SearchTerm> words;
    for (const QString &word : wordList)
        words.append(SearchTerm(word));

    const auto matches = [&](const BookScan::Line &line) {
        switch (result.mode) {
        case Mode::ExactPhrase:
            return phrase.In(line, options.wholeWord);
        // The flag is OR (any word) or AND (all words) of every word's test, in order; once it
        // cannot change, the words left are not tried, which gives the same flag sooner.
        case Mode::AnyWord:
            return std::any_of(words.cbegin(), words.cend(),
                               [&](const SearchTerm &word) { return word.In(line, options.wholeWord); });
        case Mode::AllWords:
            return std::all_of(words.cbegin(), words.cend(),
                               [&](const SearchTerm &word) { return word.In(line, options.wholeWord); });
        }
        return false;
    };

    const int limit = options.limit;
    const int books = store.BooksCount();
    // "Book chapter:", made again only when the book or the chapter changes.
    QString place;
    int placeBook = 0;
    QString placeChapter;
    try {
        BookScan scan;
        scan.beforeBook = [&](int b) {
            if (onProgress)
                onProgress(b, books);
            return options.books.value(b - 1, false);
        };
        scan.onLine = [&](const BookScan::Line &line) {
            if (matches(line)) {
                if (line.book != placeBook || line.chapter != placeChapter) {
                    placeBook = line.book;
                    placeChapter = line.chapter;
                    place = store.BookName(line.book) + u' ' + line.chapter + u':';
                }
                const QString text = line.text();
                result.items.append(place + verseNumber(text));
                result.lines.append(place + text + QStringLiteral("\r\n\r\n"));
            }
            return result.items.size() > limit ? BookScan::Next::Book : BookScan::Next::Line;
        };
        // Once over the limit the user is told once and the search ends there: the books after
        // would each add their first match only.
        scan.afterBook = [&](int) {
            if (result.items.size() <= limit)
                return true;
            result.overLimit = true;
            if (onOverLimit)
                onOverLimit(OverLimitMessage(limit));
            return false;
        };
        scan.run(store);
    } catch (const VbError &error) {
        result.items.clear();
        result.lines.clear();
        result.failureMessage = platform::ErrText(error.number, error.description);
        result.title.clear();
        return result;
    }

    if (result.overLimit) {
        result.title = result.mode == Mode::ExactPhrase
                           ? QStringLiteral("Too many results!!!  Only First ") + QString::number(limit) +
                                 QStringLiteral(" shown")
                           : QStringLiteral("Too many results!!!");
    } else {
        result.title = QString::number(result.items.size()) + QStringLiteral(" Matches");
    }
    return result;
}
