#include "app/NavigatorPane.h"

#include "platform/Twips.h"
#include "scripture/clsBible.h"
#include "settings/ProgramSettings.h"
#include "settings/basSettings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSplitter>
#include <QTimer>

namespace {
// The narrowest a list may be made with a splitter, in twips.
constexpr int kSplitterClampTwips = 250;
} // namespace

NavigatorPane::NavigatorPane(const clsBible &translation, QWidget *window)
    : QObject(window), m_bible(translation)
{
    // The testament choice and the title sit above the columns they belong to; placeHeader()
    // keeps them there as the splitters move.
    m_header = new QWidget(window);
    cmbTestaments = new QComboBox(m_header);
    cmbTestaments->setObjectName(QStringLiteral("cmbTestaments"));
    cmbTestaments->setToolTip(tr("Select Testament"));
    lbltitle = new QLabel(m_header);
    lbltitle->setObjectName(QStringLiteral("lbltitle"));
    lbltitle->setAutoFillBackground(true);
    lbltitle->setIndent(6);
    m_header->setFixedHeight(std::max(cmbTestaments->sizeHint().height(), 26));

    lstBooks = new QListWidget(window);
    lstBooks->setObjectName(QStringLiteral("lstBooks"));
    lstBooks->setToolTip(tr("Select Book"));
    lstChapters = new QListWidget(window);
    lstChapters->setObjectName(QStringLiteral("lstChapters"));
    lstChapters->setToolTip(tr("Select Chapter"));

    Frame1 = new QFrame(window);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    auto *grid = new QGridLayout(Frame1);
    grid->setContentsMargins(0, 4, 0, 0);
    grid->setHorizontalSpacing(6);
    const auto button = [this](const char *name, const QString &caption, const QString &tip) {
        auto *b = new QPushButton(caption, Frame1);
        b->setObjectName(QLatin1String(name));
        b->setToolTip(tip);
        return b;
    };
    const auto box = [this](const char *name, const QString &caption, const QString &tip) {
        auto *b = new QCheckBox(caption, Frame1);
        b->setObjectName(QLatin1String(name));
        b->setToolTip(tip);
        return b;
    };
    auto *lblReference = new QLabel(tr("&Reference:"), Frame1);
    txtReference = new QLineEdit(Frame1);
    txtReference->setObjectName(QStringLiteral("txtReference"));
    txtReference->setToolTip(tr("Standard Reference Entry Box (ie: John 3:16)"));
    lblReference->setBuddy(txtReference);
    cmdGet = button("cmdGet", tr("Get it"), tr("Retrive the reference typed"));
    chkUpdateList = box("chkUpdateList", tr("&Update Books List"),
                        tr("Updates the selection on the lists to the left when using the standard "
                           "reference method"));
    chkUpdateList->setChecked(true);
    cmdCopy = button("cmdCopy", tr("&Copy"),
                     tr("Copies the currently displayed passage to the clipboard"));
    auto *lblQuery = new QLabel(tr("&KeyWord:"), Frame1);
    txtQuery = new QLineEdit(Frame1);
    txtQuery->setObjectName(QStringLiteral("txtQuery"));
    txtQuery->setToolTip(tr("Keyword Search"));
    lblQuery->setBuddy(txtQuery);
    cmdSearch = button("cmdSearch", tr("&Search"), tr("Start Search"));
    chkWordSearch = box("chkWordSearch", tr("&Word Search"), tr("Search for whole words only "));
    cmdAdvanced = button("cmdAdvanced", tr("Ad&vanced Search"),
                         tr("Search chosen books for any word, all words or a phrase"));
    picProgress = new QProgressBar(Frame1);
    picProgress->setObjectName(QStringLiteral("picProgress"));
    picProgress->setTextVisible(false);
    picProgress->setMaximumHeight(14);
    picProgress->setVisible(false);
    const QList<QWidget *> rows[2] = {
        {lblReference, txtReference, cmdGet, chkUpdateList, cmdCopy},
        {lblQuery, txtQuery, cmdSearch, chkWordSearch, cmdAdvanced, picProgress}};
    for (int r = 0; r < 2; ++r)
        for (int c = 0; c < rows[r].size(); ++c)
            grid->addWidget(rows[r].at(c), r, c);
    grid->setColumnStretch(1, 1);

    connect(cmbTestaments, &QComboBox::activated, this, &NavigatorPane::cmbTestaments_Click);
    // A list acts on a click, on a keyboard move and on a selection made by the program; the
    // change a mouse press makes waits for its click, so one click acts once.
    const auto connectList = [this](QListWidget *list, void (NavigatorPane::*handler)()) {
        connect(list, &QListWidget::currentRowChanged, this, [this, handler](int row) {
            if (row >= 0 && QGuiApplication::mouseButtons() == Qt::NoButton)
                (this->*handler)();
        });
        connect(list, &QListWidget::itemClicked, this, handler);
    };
    connectList(lstBooks, &NavigatorPane::lstBooks_Click);
    connectList(lstChapters, &NavigatorPane::lstChapters_Click);
    connect(cmdGet, &QPushButton::clicked, this, &NavigatorPane::referenceEntered);
    connect(txtReference, &QLineEdit::returnPressed, this, &NavigatorPane::referenceEntered);
    connect(cmdSearch, &QPushButton::clicked, this, &NavigatorPane::searchRequested);
    connect(txtQuery, &QLineEdit::returnPressed, this, &NavigatorPane::searchRequested);
    connect(cmdAdvanced, &QPushButton::clicked, this, &NavigatorPane::advancedSearchRequested);
    connect(cmdCopy, &QPushButton::clicked, this, &NavigatorPane::copyRequested);
    txtReference->installEventFilter(this);
    txtQuery->installEventFilter(this);
}

void NavigatorPane::addLists(QSplitter *splitter)
{
    for (QListWidget *list : {lstBooks, lstChapters}) {
        splitter->addWidget(list);
        list->setMinimumWidth((kSplitterClampTwips + platform::TwipsPerPixelX(list) - 1) /
                              platform::TwipsPerPixelX(list));
    }
}

QString NavigatorPane::reference() const
{
    return txtReference->text();
}

void NavigatorPane::setReference(const QString &text)
{
    txtReference->setText(text);
}

QString NavigatorPane::query() const
{
    return txtQuery->text();
}

void NavigatorPane::setQuery(const QString &text)
{
    txtQuery->setText(text);
}

void NavigatorPane::focusQuery()
{
    txtQuery->setFocus();
}

bool NavigatorPane::wholeWords() const
{
    return chkWordSearch->isChecked();
}

bool NavigatorPane::updatesLists() const
{
    return chkUpdateList->isChecked();
}

QString NavigatorPane::chosenBook() const
{
    const QListWidgetItem *book = lstBooks->currentItem();
    return book ? book->text() : QString();
}

void NavigatorPane::setTestaments(const QString &first, const QString &second)
{
    cmbTestaments->clear();
    cmbTestaments->addItems({first, second});
}

int NavigatorPane::testament() const
{
    return cmbTestaments->currentIndex() == 1 ? 1 : 0;
}

void NavigatorPane::cmbTestaments_Click()
{
    lstBooks->clear();
    lstChapters->clear();
    QStringList names;
    for (int b = m_bible.FirstBookOfTestament(testament()),
             last = m_bible.LastBookOfTestament(testament());
         b <= last; ++b)
        names << m_bible.BookName(b);
    lstBooks->addItems(names);
}

void NavigatorPane::lstBooks_Click()
{
    lstChapters->clear();
    const int row = lstBooks->currentRow();
    if (row < 0)
        return;
    QStringList chapters;
    for (int c = 1, n = m_bible.Chapters(m_bible.BookByRow(testament(), row)); c <= n; ++c)
        chapters << QString::number(c);
    lstChapters->addItems(chapters);
}

void NavigatorPane::lstChapters_Click()
{
    const QListWidgetItem *book = lstBooks->currentItem();
    const QListWidgetItem *chapter = lstChapters->currentItem();
    if (book && chapter)
        emit chapterChosen(book->text(), chapter->text().toInt());
}

void NavigatorPane::chooseFirstChapter()
{
    cmbTestaments->setCurrentIndex(0);
    cmbTestaments_Click();
    if (lstBooks->count() > 0)
        lstBooks->setCurrentRow(0);
    if (lstChapters->count() > 0)
        lstChapters->setCurrentRow(0);
}

void NavigatorPane::markPassage(const Passage &passage)
{
    cmbTestaments->setCurrentIndex(passage.testament);
    cmbTestaments_Click();
    {
        const QSignalBlocker block(lstBooks);
        lstBooks->setCurrentRow(m_bible.RowOfBook(passage.bookNumber));
    }
    lstBooks_Click();
    // The chapter is marked too, without showing the whole chapter over the verses asked for.
    const QSignalBlocker block(lstChapters);
    lstChapters->setCurrentRow(passage.chapterFrom - 1);
}

void NavigatorPane::choose(int book, int chapter)
{
    cmbTestaments->setCurrentIndex(m_bible.TestamentOfBook(book));
    cmbTestaments_Click();
    lstBooks->setCurrentRow(m_bible.RowOfBook(book));
    if (chapter > 0 && chapter <= lstChapters->count())
        lstChapters->setCurrentRow(chapter - 1);
}

void NavigatorPane::applyLook(DisplaySettings &display)
{
    ApplyStyle(cmbTestaments, display.navigation);
    ApplyStyle(lstBooks, display.navigation);
    ApplyStyle(lstChapters, display.navigation);
    ApplyStyle(lbltitle, display.title);
    m_header->setFixedHeight(
        std::max(cmbTestaments->sizeHint().height(), lbltitle->sizeHint().height()));
}

void NavigatorPane::placeHeader(const QSplitter *splitter)
{
    const QList<int> sizes = splitter->sizes();
    const int handle = splitter->handleWidth();
    const int lists = sizes.value(0) + handle + sizes.value(1);
    const int h = m_header->height();
    cmbTestaments->setGeometry(0, 0, lists, h);
    lbltitle->setGeometry(lists + handle, 0, std::max(0, m_header->width() - lists - handle), h);
}

bool NavigatorPane::eventFilter(QObject *watched, QEvent *event)
{
    // The reference and keyword boxes select their whole text on focus, so typing replaces it.
    if (event->type() == QEvent::FocusIn) {
        if (auto *edit = qobject_cast<QLineEdit *>(watched))
            QTimer::singleShot(0, edit, &QLineEdit::selectAll);
    }
    return QObject::eventFilter(watched, event);
}
