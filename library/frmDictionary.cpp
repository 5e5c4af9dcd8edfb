#include "library/frmDictionary.h"

#include "library/DataFiles.h"
#include "library/ListSearch.h"
#include "library/MainWindowLink.h"
#include "platform/MsgBox.h"
#include "platform/VbError.h"
#include "scripture/basStrings.h"
#include "settings/ProgramSettings.h"
#include "settings/WindowPlacement.h"
#include "settings/basSettings.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>

namespace {

const QString kFound = QStringLiteral("Found!!!");

void useVerdana(QWidget *control)
{
    QFont font = control->font();
    font.setFamily(QStringLiteral("Verdana"));
    control->setFont(font);
}

} // namespace

frmDictionary::frmDictionary(MainWindowLink &main, QWidget *parent)
    : QWidget(parent, Qt::Window), m_main(main),
      m_words(ProgramSettings::instance().programFolder(), WordList::Kind::Dictionary)
{
    setObjectName(QStringLiteral("frmDictionary"));
    setWindowTitle(QStringLiteral("Dictionary"));
    setAttribute(Qt::WA_DeleteOnClose);

    txtWord = new QLineEdit(this);
    txtWord->setObjectName(QStringLiteral("txtWord"));
    txtWord->setToolTip(QStringLiteral("Enter a word to search for and hit <enter>"));
    useVerdana(txtWord);
    auto *lblWord = new QLabel(QStringLiteral("Enter &Word"), this);
    lblWord->setBuddy(txtWord);
    cmdFind = new QPushButton(QStringLiteral("Find"), this);
    cmdFind->setObjectName(QStringLiteral("cmdFind"));
    cmdFind->setDefault(true);
    lstWords = new QListWidget(this);
    lstWords->setObjectName(QStringLiteral("lstWords"));
    lstWords->setToolTip(QStringLiteral("Double Click a word to see its data"));
    lstWords->setUniformItemSizes(true);
    txtDefinition = new QPlainTextEdit(this);
    txtDefinition->setObjectName(QStringLiteral("txtDefinition"));
    txtDefinition->setToolTip(QStringLiteral("Result of search"));
    txtDefinition->setReadOnly(true);
    useVerdana(txtDefinition);
    lstReferences = new QListWidget(this);
    lstReferences->setObjectName(QStringLiteral("lstReferences"));
    lstReferences->setToolTip(QStringLiteral("References where word is found"));
    lblStatus = new QLabel(this);
    lblStatus->setObjectName(QStringLiteral("lblStatus"));

    auto *layout = new QGridLayout(this);
    layout->addWidget(lblWord, 0, 0, 1, 2);
    layout->addWidget(txtWord, 1, 0);
    layout->addWidget(cmdFind, 1, 1);
    layout->addWidget(lstWords, 2, 0, 2, 2);
    layout->addWidget(txtDefinition, 1, 2, 2, 1);
    layout->addWidget(lstReferences, 3, 2);
    layout->addWidget(lblStatus, 4, 0, 1, 3);
    layout->setColumnStretch(0, 2);
    layout->setColumnStretch(2, 5);
    layout->setRowStretch(2, 3);
    layout->setRowStretch(3, 2);
    resize(640, 420);

    // Enter in the word box runs Find, as the window's default button.
    connect(txtWord, &QLineEdit::returnPressed, cmdFind, &QPushButton::click);
    connect(cmdFind, &QPushButton::clicked, this, &frmDictionary::cmdFind_Click);
    connect(txtWord, &QLineEdit::textChanged, this, &frmDictionary::txtWord_Change);
    connect(lstWords, &QListWidget::itemDoubleClicked, this, &frmDictionary::lstWords_DblClick);
    connect(lstReferences, &QListWidget::itemDoubleClicked, this,
            &frmDictionary::lstReferences_DblClick);
    txtWord->installEventFilter(this);

    // Form_Load: the list, the saved place, the user's look.
    const std::optional<QStringList> headwords = m_words.Headwords();
    if (headwords) {
        m_headwords = *headwords;
        lstWords->addItems(m_headwords);
    } else {
        // The main window offers the dictionary only when its file is there; one that went
        // missing since is said so, and the window opens empty.
        DataFiles::ReportMissing(m_words.Path());
    }
    m_placement = new WindowPlacement(this, QStringLiteral("dictionary"));
    m_placement->restore();
    DisplaySettings &display = ProgramSettings::instance().display;
    ApplyStyle(lstWords, display.navigation);
    ApplyStyle(lstReferences, display.navigation);
    ApplyStyle(txtDefinition, display.passage);
}

void frmDictionary::FindWord(const QString &word)
{
    txtWord->setText(basStrings::TrimBlanks(word).toString());
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    cmdFind_Click();
}

void frmDictionary::cmdFind_Click()
{
    // 1.
    txtDefinition->clear();
    lstReferences->clear();
    // 3. The status is painted before the scan.
    lblStatus->setText(QStringLiteral("Searching..."));
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    // 2., 4. and 5.
    const WordList::LookUp found = m_words.Find(txtWord->text());
    if (found.outcome == WordList::Outcome::Unreadable) {
        platform::MsgBox(platform::ErrText(53, VbError::fileNotFound(m_words.Path()).description),
                         vb::vbCritical);
    } else if (found.outcome == WordList::Outcome::Found) {
        // 6. and 7.
        txtDefinition->setPlainText(found.definition);
        lstReferences->addItems(found.references);
        lblStatus->setText(kFound);
    }
    // 8.
    if (lblStatus->text() != kFound)
        lblStatus->setText(QStringLiteral("Not Found"));
    // 9. Typing replaces the word.
    txtWord->selectAll();
}

void frmDictionary::txtWord_Change()
{
    // The text as typed, untrimmed; with no match the selection stays where it was.
    const int row = ListSearch::FirstPrefixMatch(m_headwords, txtWord->text());
    if (row >= 0) {
        lstWords->setCurrentRow(row);
        lstWords->scrollToItem(lstWords->item(row), QAbstractItemView::PositionAtTop);
    }
}

void frmDictionary::txtWord_KeyDown(int key)
{
    // Moves the selection only; nothing is looked up.
    const int row = lstWords->currentRow();
    if (key == Qt::Key_Down && row < lstWords->count() - 1)
        lstWords->setCurrentRow(row + 1);
    else if (key == Qt::Key_Up && row >= 1)
        lstWords->setCurrentRow(row - 1);
}

void frmDictionary::lstWords_DblClick()
{
    const QListWidgetItem *item = lstWords->currentItem();
    if (!item)
        return;
    txtWord->setText(item->text());
    cmdFind_Click();
}

void frmDictionary::lstReferences_DblClick()
{
    const QListWidgetItem *item = lstReferences->currentItem();
    if (item)
        m_main.GoToReference(item->text());
}

void frmDictionary::Form_Click()
{
    platform::MsgBox(QStringLiteral("There are ") + QString::number(lstWords->count()) +
                     QStringLiteral(" words in the database"));
}

bool frmDictionary::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == txtWord) {
        if (event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent *>(event)->key();
            if (key == Qt::Key_Up || key == Qt::Key_Down) {
                txtWord_KeyDown(key);
                return true;
            }
        } else if (event->type() == QEvent::FocusIn) {
            // txtWord_GotFocus: typing replaces the whole word.
            txtWord->selectAll();
        }
    }
    return QWidget::eventFilter(watched, event);
}

void frmDictionary::mousePressEvent(QMouseEvent *event)
{
    // A press on the bare background is kept, so that its release comes here too.
    event->setAccepted(event->button() == Qt::LeftButton && !childAt(event->position().toPoint()));
}

void frmDictionary::mouseReleaseEvent(QMouseEvent *event)
{
    const QPoint at = event->position().toPoint();
    if (event->button() == Qt::LeftButton && rect().contains(at) && !childAt(at))
        Form_Click();
}
