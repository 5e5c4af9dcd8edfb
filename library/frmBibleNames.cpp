#include "library/frmBibleNames.h"

#include <QListWidget>

frmBibleNames::frmBibleNames(MainWindowLink &, QWidget *parent)
    : WordListWindow({.kind = WordList::Kind::Names,
                      .objectName = QStringLiteral("frmBibleNames"),
                      .caption = QStringLiteral("Penlowe's Bible Names Dictionary"),
                      .section = QStringLiteral("biblenames"),
                      .wordLabel = QStringLiteral("Enter &Name"),
                      .wordTip = QStringLiteral("Enter a name to search for and hit enter"),
                      .listName = QStringLiteral("lstNames"),
                      .listTip = QStringLiteral("Double click a name to see meaning"),
                      // With its exclamation mark, unlike the dictionary's.
                      .notFound = QStringLiteral("Not Found!"),
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
