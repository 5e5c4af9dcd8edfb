#include "library/frmBibleNames.h"

#include "library/DataFiles.h"
#include "library/ListSearch.h"
#include "platform/FileSystem.h"
#include "platform/MsgBox.h"
#include "platform/VbError.h"
#include "scripture/basStrings.h"
#include "settings/ProgramSettings.h"
#include "settings/WindowPlacement.h"
#include "settings/basSettings.h"

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

void useVerdana(QWidget *control)
{
    QFont font = control->font();
    font.setFamily(QStringLiteral("Verdana"));
    control->setFont(font);
}

} // namespace

frmBibleNames::frmBibleNames(MainWindowLink &, QWidget *parent)
    : QWidget(parent, Qt::Window),
      m_names(ProgramSettings::instance().programFolder(), WordList::Kind::Names)
{
    setObjectName(QStringLiteral("frmBibleNames"));
    setWindowTitle(QStringLiteral("Penlowe's Bible Names Dictionary"));
    setAttribute(Qt::WA_DeleteOnClose);

    txtWord = new QLineEdit(this);
    txtWord->setObjectName(QStringLiteral("txtWord"));
    txtWord->setToolTip(QStringLiteral("Enter a name to search for and hit enter"));
    useVerdana(txtWord);
    auto *lblName = new QLabel(QStringLiteral("Enter &Name"), this);
    lblName->setBuddy(txtWord);
    cmdFind = new QPushButton(QStringLiteral("Find"), this);
    cmdFind->setObjectName(QStringLiteral("cmdFind"));
    cmdFind->setDefault(true);
    lstNames = new QListWidget(this);
    lstNames->setObjectName(QStringLiteral("lstNames"));
    lstNames->setToolTip(QStringLiteral("Double click a name to see meaning"));
    lstNames->setUniformItemSizes(true);
    txtDefinition = new QPlainTextEdit(this);
    txtDefinition->setObjectName(QStringLiteral("txtDefinition"));
    txtDefinition->setToolTip(QStringLiteral("Result of search"));
    txtDefinition->setReadOnly(true);
    useVerdana(txtDefinition);
    lblStatus = new QLabel(this);
    lblStatus->setObjectName(QStringLiteral("lblStatus"));

    auto *layout = new QGridLayout(this);
    layout->addWidget(lblName, 0, 0, 1, 2);
    layout->addWidget(txtWord, 1, 0);
    layout->addWidget(cmdFind, 1, 1);
    layout->addWidget(lstNames, 2, 0, 1, 2);
    layout->addWidget(txtDefinition, 1, 2, 2, 1);
    layout->addWidget(lblStatus, 3, 0, 1, 3);
    layout->setColumnStretch(0, 2);
    layout->setColumnStretch(2, 5);
    layout->setRowStretch(2, 1);
    resize(600, 380);

    // Enter in the word box runs Find, as the window's default button.
    connect(txtWord, &QLineEdit::returnPressed, cmdFind, &QPushButton::click);
    connect(cmdFind, &QPushButton::clicked, this, &frmBibleNames::cmdFind_Click);
    connect(txtWord, &QLineEdit::textChanged, this, &frmBibleNames::txtWord_Change);
    connect(lstNames, &QListWidget::itemDoubleClicked, this, &frmBibleNames::lstNames_DblClick);

    // Form_Load: without its file the window says so once and opens empty, where it was last.
    DisplaySettings &display = ProgramSettings::instance().display;
    ApplyStyle(lstNames, display.navigation);
    ApplyStyle(txtDefinition, display.passage);
    m_placement = new WindowPlacement(this, QStringLiteral("biblenames"));
    const std::optional<QStringList> names =
        platform::FileExists(m_names.Path()) ? m_names.Headwords() : std::nullopt;
    if (!names) {
        DataFiles::ReportMissing(m_names.Path());
        return;
    }
    m_headwords = *names;
    lstNames->addItems(m_headwords);
    m_placement->restore();
}

void frmBibleNames::FindWord(const QString &word)
{
    txtWord->setText(basStrings::TrimBlanks(word).toString());
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    cmdFind_Click();
}

void frmBibleNames::cmdFind_Click()
{
    txtDefinition->clear();
    lblStatus->setText(QStringLiteral("Searching..."));
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    const WordList::LookUp found = m_names.Find(txtWord->text());
    if (found.outcome == WordList::Outcome::Unreadable) {
        // The file cannot be opened: said as an error, and the window stays open.
        platform::MsgBox(platform::ErrText(53, VbError::fileNotFound(m_names.Path()).description),
                         vb::vbCritical);
    } else if (found.outcome == WordList::Outcome::Found) {
        txtDefinition->setPlainText(found.definition);
        lblStatus->setText(kFound);
    }
    // The names window's own text, with its exclamation mark, unlike the dictionary's.
    if (lblStatus->text() != kFound)
        lblStatus->setText(QStringLiteral("Not Found!"));
    txtWord->selectAll();
}

void frmBibleNames::txtWord_Change()
{
    const int row = ListSearch::FirstPrefixMatch(m_headwords, txtWord->text());
    if (row >= 0) {
        lstNames->setCurrentRow(row);
        lstNames->scrollToItem(lstNames->item(row), QAbstractItemView::PositionAtTop);
    }
}

void frmBibleNames::lstNames_DblClick()
{
    const QListWidgetItem *item = lstNames->currentItem();
    if (!item)
        return;
    txtWord->setText(item->text());
    cmdFind_Click();
}

void frmBibleNames::Form_Click()
{
    platform::MsgBox(QStringLiteral("There are ") + QString::number(lstNames->count()) +
                     QStringLiteral(" names in the database"));
}

void frmBibleNames::mousePressEvent(QMouseEvent *event)
{
    event->setAccepted(event->button() == Qt::LeftButton && !childAt(event->position().toPoint()));
}

void frmBibleNames::mouseReleaseEvent(QMouseEvent *event)
{
    const QPoint at = event->position().toPoint();
    if (event->button() == Qt::LeftButton && rect().contains(at) && !childAt(at))
        Form_Click();
}
