#include "library/frmDictionary.h"

#include "library/MainWindowLink.h"
#include "settings/ProgramSettings.h"
#include "settings/basSettings.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>

frmDictionary::frmDictionary(MainWindowLink &main, QWidget *parent)
    : WordListWindow({.kind = WordList::Kind::Dictionary,
                      .objectName = QStringLiteral("frmDictionary"),
                      .caption = tr("Dictionary"),
                      .section = QStringLiteral("dictionary"),
                      .wordLabel = tr("Enter &Word"),
                      .wordTip = tr("Enter a word to search for and hit <enter>"),
                      .listName = QStringLiteral("lstWords"),
                      .listTip = tr("Double Click a word to see its data"),
                      .notFound = tr("Not Found"),
                      .countedWord = QStringLiteral("words"),
                      .size = QSize(640, 420),
                      // The main window offers the dictionary only when its file is there; one
                      // that went missing since still opens where it was last.
                      .placedWithoutFile = true},
                     parent),
      m_main(main)
{
    lstReferences = new QListWidget(this);
    lstReferences->setObjectName(QStringLiteral("lstReferences"));
    lstReferences->setToolTip(tr("References where word is found"));
    ApplyStyle(lstReferences, ProgramSettings::instance().display.navigation);
    addUnderDefinition(lstReferences);

    connect(headwordList(), &QListWidget::itemDoubleClicked, this,
            &frmDictionary::lstWords_DblClick);
    connect(lstReferences, &QListWidget::itemDoubleClicked, this,
            &frmDictionary::lstReferences_DblClick);
    wordBox()->installEventFilter(this);
}

void frmDictionary::showReferences(const QStringList &references)
{
    lstReferences->clear();
    lstReferences->addItems(references);
}

void frmDictionary::txtWord_KeyDown(int key)
{
    // Moves the selection only; nothing is looked up.
    QListWidget *list = headwordList();
    const int row = list->currentRow();
    if (key == Qt::Key_Down && row < list->count() - 1)
        list->setCurrentRow(row + 1);
    else if (key == Qt::Key_Up && row >= 1)
        list->setCurrentRow(row - 1);
}

void frmDictionary::lstWords_DblClick()
{
    lookUpSelected();
}

void frmDictionary::lstReferences_DblClick()
{
    const QListWidgetItem *item = lstReferences->currentItem();
    if (item)
        m_main.GoToReference(item->text());
}

bool frmDictionary::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == wordBox()) {
        if (event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent *>(event)->key();
            if (key == Qt::Key_Up || key == Qt::Key_Down) {
                txtWord_KeyDown(key);
                return true;
            }
        } else if (event->type() == QEvent::FocusIn) {
            // txtWord_GotFocus: typing replaces the whole word.
            wordBox()->selectAll();
        }
    }
    return WordListWindow::eventFilter(watched, event);
}
