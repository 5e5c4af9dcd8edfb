#include "app/QuickSearchView.h"

#include "app/NavigatorPane.h"
#include "app/StudyTabs.h"
#include "platform/BusyCursor.h"
#include "platform/RichTextBox.h"
#include "scripture/clsBible.h"

#include <QLabel>
#include <QProgressBar>

#include <optional>

QString ShowQuickSearch(NavigatorPane &navigator, StudyTabs &study, const clsBible &store,
                        const std::function<QuickSearch::Result(QuickSearch &)> &scan)
{
    std::optional<platform::BusyCursor> busy(std::in_place);
    QLabel *title = navigator.title();
    QProgressBar *progress = navigator.progress();
    title->setText(QString());
    navigator.focusQuery();
    study.passageView()->setText(QString());
    progress->setMaximum(std::max(1, store.BooksCount()));
    progress->setValue(0);
    progress->setVisible(true);

    ::QuickSearch search;
    search.onTitle = [title](const QString &text) { title->setText(text); };
    search.onProgress = [progress](int value, int) {
        progress->setValue(value);
        platform::YieldToEvents();
    };
    const ::QuickSearch::Result result = scan(search);
    title->setText(result.title);
    // The results go in as one text with the caret left at the top: a caret after tens of
    // thousands of results would have the view lay out every one of them before showing any.
    if (result.outcome != ::QuickSearch::Outcome::Failed &&
        result.outcome != ::QuickSearch::Outcome::TooMany)
        study.passageView()->setText(SearchHit::ListedAll(result.hits));

    // The normal pointer is back before a failure is told.
    busy.reset();
    progress->setVisible(false);
    return result.failureMessage;
}
