#include "scripture/QuickSearch.h"

#include "platform/MsgBox.h"
#include "platform/VbError.h"
#include "scripture/BookScan.h"
#include "scripture/basStrings.h"
#include "scripture/clsBible.h"
#include "scripture/clsSeparation.h"

#include <new>

QuickSearch::Result QuickSearch::run(const clsBible &store, const QString &query, bool wholeWord,
                                     int limit)
{
    Result result;
    const QString trimmed = basStrings::TrimBlanks(query).toString();
    if (trimmed.isEmpty())
        return result;

    auto setTitle = [&](const QString &title) {
        result.title = title;
        if (onTitle)
            onTitle(title);
    };

    // Keywords: the upper-cased query split at each single blank; runs of blanks leave empty
    // keywords, which every line holds.
    clsSeparation splitter;
    splitter.setDelimiter(QStringLiteral(" "));
    splitter.setText(basStrings::UpperCase(trimmed));
    // A keyword typed twice is looked for once: a line holds it or not.
    QStringList once = splitter.items();
    once.removeDuplicates();
    QList<SearchTerm> keywords;
    for (const QString &keyword : std::as_const(once))
        keywords.append(SearchTerm(keyword));

    setTitle(QString());
    const int books = store.BooksCount();
    QString bookName;
    try {
        BookScan scan;
        // A listed line holds every keyword: only the lines holding one of them are looked at.
        scan.heldWord = SearchTerm::HeldByEvery(keywords);
        scan.beforeBook = [&](int b) {
            bookName = store.BookName(b);
            setTitle(QStringLiteral("Searching: ") + store.BookName(b) + QStringLiteral("..."));
            if (onProgress)
                onProgress(b, books);
            return true;
        };
        scan.onLine = [&](const BookScan::Line &line) {
            bool match = true;
            for (const SearchTerm &keyword : keywords) {
                if (!keyword.In(line, wholeWord)) {
                    match = false;
                    break;
                }
            }
            if (match) {
                if (result.matchCount == 32767)
                    throw VbError::overflow();
                ++result.matchCount;
                result.hits.append({bookName, line.chapter, line.text()});
            }
            return result.matchCount > limit ? BookScan::Next::Book : BookScan::Next::Line;
        };
        scan.afterBook = [&](int) {
            if (result.matchCount <= limit)
                return true;
            platform::MsgBox(OverLimitMessage(limit), vb::vbCritical | vb::vbOKOnly);
            setTitle(QStringLiteral("First ") + QString::number(limit) +
                     QStringLiteral(" results."));
            return false;
        };
        scan.run(store);
    } catch (const std::bad_alloc &) {
        result.outcome = Outcome::TooMany;
        result.hits.clear();
        result.failureMessage = QStringLiteral(
            "There were too many results to List!!!  Try to modify your search query");
        setTitle(QString::number(result.matchCount) + QStringLiteral("+ matches were found"));
        return result;
    } catch (const VbError &error) {
        result.outcome = Outcome::Failed;
        result.hits.clear();
        result.failureMessage = platform::ErrText(error.number, error.description);
        return result;
    }

    if (result.matchCount > limit) {
        result.outcome = Outcome::OverLimit;
    } else if (result.matchCount < limit) {
        // The query is quoted as typed, blanks and case kept.
        result.outcome = Outcome::UnderLimit;
        setTitle(QStringLiteral("Search results for \"") + query + QStringLiteral("\" (") +
                 QString::number(result.matchCount) + QStringLiteral(" matches)"));
    } else {
        // Exactly as many results as the limit: the title keeps showing the last book searched.
        result.outcome = Outcome::AtLimit;
    }
    return result;
}
