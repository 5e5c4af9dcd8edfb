#include "scripture/AdvancedSearch.h"

#include "platform/MsgBox.h"
#include "platform/VbError.h"
#include "scripture/BookScan.h"
#include "scripture/basStrings.h"
#include "scripture/clsBible.h"
#include "scripture/clsSeparation.h"

namespace {

bool occurs(QStringView upperLine, QStringView term, bool wholeWord)
{
    return wholeWord ? WholeWordMatch(upperLine, term) : FindWord(upperLine, term) >= 0;
}

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
    const QStringList words = Words(trimmed);
    result.mode = ModeToRun(words, options.mode);
    const QString phrase = basStrings::UpperCase(trimmed);

    const auto matches = [&](QStringView upper) {
        switch (result.mode) {
        case Mode::ExactPhrase:
            return occurs(upper, phrase, options.wholeWord);
        case Mode::AnyWord: {
            // Every word is tried, without stopping at the first that is found.
            bool found = false;
            for (const QString &word : words)
                found = occurs(upper, word, options.wholeWord) || found;
            return found;
        }
        case Mode::AllWords: {
            bool found = true;
            for (const QString &word : words)
                found = occurs(upper, word, options.wholeWord) && found;
            return found;
        }
        }
        return false;
    };

    const int limit = options.limit;
    const int books = store.BooksCount();
    try {
        BookScan scan;
        scan.beforeBook = [&](int b) {
            if (onProgress)
                onProgress(b, books);
            return options.books.value(b - 1, false);
        };
        scan.onLine = [&](const BookScan::Line &line) {
            if (matches(line.upper)) {
                const QString place = store.BookName(line.book) + u' ' + line.chapter + u':';
                result.items.append(place + verseNumber(line.text));
                result.lines.append(place + line.text + QStringLiteral("\r\n\r\n"));
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
