#include "library/WordListWindow.h"

#include "library/DataFiles.h"
#include "library/ListSearch.h"
#include "platform/BusyCursor.h"
#include "platform/MsgBox.h"
#include "platform/VbError.h"
#include "scripture/basStrings.h"
#include "settings/ProgramSettings.h"
#include "settings/WindowPlacement.h"
#include "settings/basSettings.h"

#include "platform/ListRows.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>

namespace {

const QString kFound = QStringLiteral("Found!!!");

} // namespace

WordListWindow::WordListWindow(const WordListWindowTexts &texts, QWidget *parent)
    : ToolWindow(texts.objectName, texts.caption, parent), m_texts(texts),
      m_words(ProgramSettings::instance().programFolder(), texts.kind)
{

    txtWord = new QLineEdit(this);
    txtWord->setObjectName(QStringLiteral("txtWord"));
    txtWord->setToolTip(m_texts.wordTip);
    platform::UseVerdana(txtWord);
    auto *lblWord = new QLabel(m_texts.wordLabel, this);
    lblWord->setBuddy(txtWord);
    cmdFind = new QPushButton(tr("Find"), this);
    cmdFind->setObjectName(QStringLiteral("cmdFind"));
    cmdFind->setDefault(true);
    m_list = new QListWidget(this);
    m_list->setObjectName(m_texts.listName);
    m_list->setToolTip(m_texts.listTip);
    m_list->setUniformItemSizes(true);
    txtDefinition = new QPlainTextEdit(this);
    txtDefinition->setObjectName(QStringLiteral("txtDefinition"));
    txtDefinition->setToolTip(tr("Result of search"));
    txtDefinition->setReadOnly(true);
    platform::UseVerdana(txtDefinition);
    lblStatus = new QLabel(this);
    lblStatus->setObjectName(QStringLiteral("lblStatus"));

    m_layout = new QGridLayout(this);
    m_layout->addWidget(lblWord, 0, 0, 1, 2);
    m_layout->addWidget(txtWord, 1, 0);
    m_layout->addWidget(cmdFind, 1, 1);
    m_layout->addWidget(m_list, 2, 0, 1, 2);
    m_layout->addWidget(txtDefinition, 1, 2, 2, 1);
    m_layout->addWidget(lblStatus, 3, 0, 1, 3);
    m_layout->setColumnStretch(0, 2);
    m_layout->setColumnStretch(2, 5);
    m_layout->setRowStretch(2, 1);
    resize(m_texts.size);

    // Enter in the word box runs Find, as the window's default button.
    connect(txtWord, &QLineEdit::returnPressed, cmdFind, &QPushButton::click);
    connect(cmdFind, &QPushButton::clicked, this, &WordListWindow::cmdFind_Click);
    connect(txtWord, &QLineEdit::textChanged, this, &WordListWindow::txtWord_Change);

    Form_Load();
}

void WordListWindow::Form_Load()
{
    // The user's look, the list and the saved place. A missing file is said once and the window
    // opens empty; the main window offers a list only when its file is there, so this is a file
    // that went missing since.
    ApplyStyle(m_list, look().navigation);
    ApplyStyle(txtDefinition, look().passage);
    m_placement = keepPlace(m_texts.section, WindowPlacement::Position);
    const std::optional<QStringList> headwords = m_words.Headwords();
    if (headwords) {
        m_headwords = *headwords;
        m_list->addItems(m_headwords);
    } else {
        reportMissing(m_words.Path());
        if (!m_texts.placedWithoutFile)
            return;
    }
    m_placement->restore();
}

void WordListWindow::addUnderDefinition(QWidget *pane)
{
    m_layout->removeWidget(m_list);
    m_layout->removeWidget(lblStatus);
    m_layout->addWidget(m_list, 2, 0, 2, 2);
    m_layout->addWidget(pane, 3, 2);
    m_layout->addWidget(lblStatus, 4, 0, 1, 3);
    m_layout->setRowStretch(2, 3);
    m_layout->setRowStretch(3, 2);
}

void WordListWindow::showReferences(const QStringList &) {}

void WordListWindow::FindWord(const QString &word)
{
    txtWord->setText(basStrings::TrimBlanks(word).toString());
    platform::YieldToEvents();
    cmdFind_Click();
}

void WordListWindow::cmdFind_Click()
{
    txtDefinition->clear();
    showReferences({});
    // The status is painted before the scan.
    lblStatus->setText(tr("Searching..."));
    platform::YieldToEvents();
    const WordList::LookUp found = m_words.Find(txtWord->text());
    if (found.outcome == WordList::Outcome::Unreadable) {
        // The file cannot be opened: said as an error, and the window stays open.
        platform::MsgBox(platform::ErrText(53, VbError::fileNotFound(m_words.Path()).description),
                         vb::vbCritical);
    } else if (found.outcome == WordList::Outcome::Found) {
        txtDefinition->setPlainText(found.definition);
        showReferences(found.references);
        lblStatus->setText(kFound);
    }
    if (lblStatus->text() != kFound)
        lblStatus->setText(m_texts.notFound);
    // Typing replaces the word.
    txtWord->selectAll();
}

void WordListWindow::txtWord_Change()
{
    // The text as typed, untrimmed; with no match the selection stays where it was.
    const int row = ListSearch::FirstPrefixMatch(m_headwords, txtWord->text());
    if (row >= 0) {
        m_list->setCurrentRow(row);
        m_list->scrollToItem(m_list->item(row), QAbstractItemView::PositionAtTop);
    }
}

void WordListWindow::lookUpSelected()
{
    const QListWidgetItem *item = m_list->currentItem();
    if (!item)
        return;
    txtWord->setText(item->text());
    cmdFind_Click();
}

void WordListWindow::Form_Click()
{
    platform::MsgBox(tr("There are ") + QString::number(m_list->count()) + QLatin1Char(' ') +
                     m_texts.countedWord + tr(" in the database"));
}

void WordListWindow::mousePressEvent(QMouseEvent *event)
{
    // A press on the bare background is kept, so that its release comes here too.
    event->setAccepted(event->button() == Qt::LeftButton && !childAt(event->position().toPoint()));
}

void WordListWindow::mouseReleaseEvent(QMouseEvent *event)
{
    const QPoint at = event->position().toPoint();
    if (event->button() == Qt::LeftButton && rect().contains(at) && !childAt(at))
        Form_Click();
}
