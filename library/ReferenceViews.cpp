#include "library/ReferenceViews.h"

#include <QListWidget>
#include <QScrollBar>

#include "platform/RichTextBox.h"
#include "scripture/PassageFormatter.h"
#include "scripture/clsBible.h"

void ShowReferenceIn(platform::RichTextBox *view, const clsBible &bible, const QString &reference)
{
    view->setTextRTF(PassageFormatter::ForView(bible.Fetch(reference).text));
    view->setSelStart(0);
}

void FitListToNames(QListWidget *list, int limit)
{
    const int wanted = list->sizeHintForColumn(0) + list->verticalScrollBar()->sizeHint().width() +
                       2 * list->frameWidth() + 4;
    list->setMinimumWidth(qMin(wanted, limit));
}
