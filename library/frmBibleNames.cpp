#include "library/frmBibleNames.h"

#include <QListWidget>

frmBibleNames::frmBibleNames(MainWindowLink &, QWidget *parent)
    : WordListWindow({.kind = WordList::Kind::Names,
                      .objectName = QStringLiteral("frmBibleNames"),
                      .caption = tr("Penlowe's Bible Names Dictionary"),
                      .section = QStringLiteral("biblenames"),
                      .wordLabel = tr("Enter &Name"),
                      .wordTip = tr("Enter a name to search for and hit enter"),
                      .listName = QStringLiteral("lstNames"),
                      .listTip = tr("Double click a name to see meaning"),
                      // With its exclamation mark, unlike the dictionary's.
                      .notFound = tr("Not Found!"),
                      .countedWord = QStringLiteral("names"),
                      .size = QSize(600, 380),
                      .placedWithoutFile = false},
                     parent)
{
    connect(headwordList(), &QListWidget::itemDoubleClicked, this,
            &frmBibleNames::lstNames_DblClick);
}

void frmBibleNames::lstNames_DblClick()
{
    lookUpSelected();
}
