#include "library/frmStories.h"

#include "library/MainWindowLink.h"
#include "scripture/PassageFormatter.h"
#include "scripture/clsBible.h"
#include "settings/WindowPlacement.h"

#include <QListWidget>

frmStories::frmStories(MainWindowLink &main, QWidget *parent)
    : ReferenceListWindow({.file = DataFiles::File::Stories,
                           .objectName = QStringLiteral("frmStories"),
                           .caption = tr("Famous Bible Stories"),
                           .section = QStringLiteral("stories"),
                           .placementParts = WindowPlacement::Position,
                           .listName = QStringLiteral("lstStories"),
                           .listTip = tr("Select a story to see its references"),
                           .queryTip = tr("Type word(s) to search for in stories"),
                           .browseCaption = tr("Stories")},
                          main, parent)
{
    lstReferences = new QListWidget(this);
    lstReferences->setObjectName(QStringLiteral("lstReferences"));
    lstReferences->setToolTip(tr("Click a reference to see the text in the main bible window"));
    addBesideTabs(lstReferences);
    resize(640, height());
    // A click on the reference already shown shows it again, as the main window may have moved on.
    connect(lstReferences, &QListWidget::itemClicked, this, &frmStories::lstReferences_Click);
}

void frmStories::nameSelected(int record)
{
    lstReferences->clear();
    lstReferences->addItems(entries().References(record));
}

void frmStories::lstReferences_Click()
{
    const QListWidgetItem *item = lstReferences->currentItem();
    const int record = selectedRecord();
    if (!item || record < 1)
        return;
    const QString reference = item->text();
    const QString text = main().Bible().Fetch(reference).text;
    main().ShowPassage(PassageFormatter::ForView(text),
                       entries().Names().at(record - 1) + QStringLiteral(" - ") + reference);
}
