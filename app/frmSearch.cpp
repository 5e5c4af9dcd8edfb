#include "app/frmSearch.h"

#include "library/MainWindowLink.h"
#include "platform/BusyCursor.h"
#include "platform/InputOnlyTo.h"
#include "platform/MsgBox.h"
#include "scripture/AdvancedSearch.h"
#include "scripture/basStrings.h"
#include "scripture/clsBible.h"
#include "settings/ProgramSettings.h"
#include "settings/WindowPlacement.h"
#include "settings/WindowSettings.h"
#include "settings/basSettings.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {
const QString kSection = QStringLiteral("search");
} // namespace

frmSearch::frmSearch(MainWindowLink &main, QWidget *parent)
    : QWidget(parent, Qt::Window), m_main(main)
{
    setObjectName(QStringLiteral("frmSearch"));
    setWindowTitle(tr("Search"));
    setAttribute(Qt::WA_DeleteOnClose);

    auto *lblQuery = new QLabel(tr("&Search for:"));
    txtQuery = new QLineEdit;
    txtQuery->setObjectName(QStringLiteral("txtQuery"));
    txtQuery->setToolTip(tr("Enter word(s) to search for"));
    lblQuery->setBuddy(txtQuery);
    cmdSearch = new QPushButton(tr("Search"));
    cmdSearch->setObjectName(QStringLiteral("cmdSearch"));
    cmdSearch->setDefault(true);

    auto *method = new QGroupBox(tr("Search method"));
    optAnyWord = new QRadioButton(tr("An&y Word"));
    optAnyWord->setObjectName(QStringLiteral("optAnyWord"));
    optAnyWord->setToolTip(tr("this will search for any of the words you typed"));
    optAllWords = new QRadioButton(tr("&All Words"));
    optAllWords->setObjectName(QStringLiteral("optAllWords"));
    optAllWords->setToolTip(tr("This will find all the verses containing the words you entered"));
    optExact = new QRadioButton(tr("E&xact phrase"));
    optExact->setObjectName(QStringLiteral("optExact"));
    optExact->setToolTip(tr("This will search for the phrase exactly as you typed it"));
    optAllWords->setChecked(true);
    auto *methodLayout = new QVBoxLayout(method);
    methodLayout->addWidget(optAnyWord);
    methodLayout->addWidget(optAllWords);
    methodLayout->addWidget(optExact);
    chkWordSearch = new QCheckBox(tr("&Word Search"));
    chkWordSearch->setObjectName(QStringLiteral("chkWordSearch"));
    chkWordSearch->setToolTip(tr("Search for whole words only"));

    auto *lblBooks = new QLabel(tr("Choose &Books to search:"));
    lstBooks = new QListWidget;
    lstBooks->setObjectName(QStringLiteral("lstBooks"));
    lstBooks->setToolTip(tr("Click here to choose a book to search"));
    lstBooks->setSelectionMode(QAbstractItemView::MultiSelection);
    lblBooks->setBuddy(lstBooks);
    chkOldTestament = new QCheckBox(tr("&Old Testament"));
    chkOldTestament->setObjectName(QStringLiteral("chkOldTestament"));
    chkNewTestament = new QCheckBox(tr("&New Testament"));
    chkNewTestament->setObjectName(QStringLiteral("chkNewTestament"));

    lstResults = new QListWidget;
    lstResults->setObjectName(QStringLiteral("lstResults"));
    lstResults->setToolTip(tr("This shows the list of verses containing your search criteria"));
    // Tens of thousands of results are listed at once.
    lstResults->setUniformItemSizes(true);
    lbltitle = new QLabel;
    lbltitle->setObjectName(QStringLiteral("lbltitle"));
    picProgress = new QProgressBar;
    picProgress->setObjectName(QStringLiteral("picProgress"));
    picProgress->setTextVisible(false);
    picProgress->setMaximumHeight(14);
    cmdShowVerse = new QPushButton(tr("Show &Verse"));
    cmdShowVerse->setObjectName(QStringLiteral("cmdShowVerse"));
    cmdShowVerse->setToolTip(tr("Shows the selected verse in the main window"));
    cmdShowAll = new QPushButton(tr("Show A&ll"));
    cmdShowAll->setObjectName(QStringLiteral("cmdShowAll"));
    cmdShowAll->setToolTip(tr("Shows every verse found in the main window"));

    auto *left = new QVBoxLayout;
    auto *queryRow = new QHBoxLayout;
    queryRow->addWidget(txtQuery, 1);
    queryRow->addWidget(cmdSearch);
    left->addWidget(lblQuery);
    left->addLayout(queryRow);
    left->addWidget(method);
    left->addWidget(chkWordSearch);
    left->addWidget(lblBooks);
    left->addWidget(lstBooks, 1);
    auto *testaments = new QHBoxLayout;
    testaments->addWidget(chkOldTestament);
    testaments->addWidget(chkNewTestament);
    left->addLayout(testaments);

    auto *right = new QVBoxLayout;
    right->addWidget(lbltitle);
    right->addWidget(lstResults, 1);
    right->addWidget(picProgress);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdShowVerse);
    buttons->addWidget(cmdShowAll);
    right->addLayout(buttons);

    auto *layout = new QHBoxLayout(this);
    layout->addLayout(left, 1);
    layout->addLayout(right, 1);
    resize(640, 520);

    connect(cmdSearch, &QPushButton::clicked, this, &frmSearch::cmdSearch_Click);
    connect(txtQuery, &QLineEdit::returnPressed, this, &frmSearch::cmdSearch_Click);
    connect(cmdShowVerse, &QPushButton::clicked, this, &frmSearch::cmdShowVerse_Click);
    connect(cmdShowAll, &QPushButton::clicked, this, &frmSearch::cmdShowAll_Click);
    connect(lstResults, &QListWidget::itemDoubleClicked, this, &frmSearch::cmdShowVerse_Click);
    connect(chkOldTestament, &QCheckBox::clicked, this, &frmSearch::chkOldTestament_Click);
    connect(chkNewTestament, &QCheckBox::clicked, this, &frmSearch::chkNewTestament_Click);
    connect(lstBooks, &QListWidget::itemSelectionChanged, this, &frmSearch::showTestamentChoice);

    Form_Load();
}

void frmSearch::Form_Load()
{
    DisplaySettings &display = ProgramSettings::instance().display;
    ApplyStyle(lstBooks, display.navigation);
    ApplyStyle(lstResults, display.navigation);

    // One entry a book, in book order: entry i - 1 is book i.
    const clsBible &bible = m_main.Bible();
    for (int b = 1; b <= bible.BooksCount(); ++b)
        lstBooks->addItem(bible.BookName(b));
    picProgress->setRange(0, std::max(1, bible.BooksCount()));
    picProgress->setValue(0);

    // The books chosen last time, one "1" or "0" a book; every book the first time.
    const QString saved = WindowSettings::Get(WindowSettings::SearchBooks);
    for (int i = 0; i < lstBooks->count(); ++i)
        lstBooks->item(i)->setSelected(saved.isEmpty() ||
                                       (i < saved.size() && saved.at(i) == u'1'));
    showTestamentChoice();

    m_placement = new WindowPlacement(this, kSection);
    m_placement->restore();
}

void frmSearch::closeEvent(QCloseEvent *event)
{
    if (m_running) {
        // The search reads the book list as it goes; it ends first.
        event->ignore();
        return;
    }
    QString books;
    for (int i = 0; i < lstBooks->count(); ++i)
        books += lstBooks->item(i)->isSelected() ? u'1' : u'0';
    WindowSettings::Set(WindowSettings::SearchBooks, books);
    QWidget::closeEvent(event);
}

void frmSearch::chooseTestament(int testament, bool chosen)
{
    const int old = m_main.Bible().OldTestamentCount();
    const int first = testament == 0 ? 0 : old;
    const int last = testament == 0 ? old : lstBooks->count();
    for (int i = first; i < last; ++i)
        lstBooks->item(i)->setSelected(chosen);
}

void frmSearch::showTestamentChoice()
{
    const int old = m_main.Bible().OldTestamentCount();
    bool allOld = old > 0;
    bool allNew = lstBooks->count() > old;
    for (int i = 0; i < lstBooks->count(); ++i) {
        const bool chosen = lstBooks->item(i)->isSelected();
        (i < old ? allOld : allNew) &= chosen;
    }
    chkOldTestament->setChecked(allOld);
    chkNewTestament->setChecked(allNew);
}

void frmSearch::chkOldTestament_Click()
{
    chooseTestament(0, chkOldTestament->isChecked());
}

void frmSearch::chkNewTestament_Click()
{
    chooseTestament(1, chkNewTestament->isChecked());
}

void frmSearch::cmdSearch_Click()
{
    // 1. The search lets the window repaint between books; a second start meanwhile is refused.
    if (m_running) {
        platform::MsgBox(tr("A search is already running, please wait until it is finished"),
                         vb::vbCritical | vb::vbOKOnly);
        return;
    }
    // 2. A blank query does nothing.
    AdvancedSearch::Options options;
    options.query = txtQuery->text();
    if (basStrings::TrimBlanks(options.query).isEmpty())
        return;
    options.mode = optExact->isChecked()      ? AdvancedSearch::Mode::ExactPhrase
                   : optAllWords->isChecked() ? AdvancedSearch::Mode::AllWords
                                              : AdvancedSearch::Mode::AnyWord;
    options.wholeWord = chkWordSearch->isChecked();
    options.limit = ProgramSettings::instance().searchLimit;
    for (int i = 0; i < lstBooks->count(); ++i)
        options.books.append(lstBooks->item(i)->isSelected());

    // 3. Start afresh.
    lstResults->clear();
    m_running = true;
    lbltitle->setText(QString());
    platform::BusyCursor busy;
    // This window takes clicks meanwhile, so that a second Search is refused in words.
    platform::InputOnlyTo onlyHere(this);
    AdvancedSearch search;
    search.onProgress = [this, &onlyHere](int book, int) {
        picProgress->setValue(book);
        onlyHere.yield();
    };
    search.onOverLimit = [](const QString &message) {
        platform::MsgBox(message, vb::vbCritical | vb::vbOKOnly);
    };
    const AdvancedSearch::Result result = search.run(m_main.Bible(), options);
    // The whole list goes in at once: tens of thousands of results one by one would take seconds.
    lstResults->addItems(SearchHit::References(result.hits));
    lbltitle->setText(result.title);
    m_lastQuery = options.query;
    m_lastHits = result.hits;
    m_running = false;
    if (!result.failureMessage.isEmpty())
        platform::MsgBox(result.failureMessage);
}

void frmSearch::cmdShowVerse_Click()
{
    const QList<QListWidgetItem *> chosen = lstResults->selectedItems();
    if (!chosen.isEmpty())
        m_main.GoToReference(chosen.first()->text());
}

void frmSearch::cmdShowAll_Click()
{
    if (m_lastHits.isEmpty())
        return;
    platform::BusyCursor busy;
    // The verses as the quick search lists them, as plain lines: thousands of them show at once.
    m_main.ShowPassage(SearchHit::ListedAll(m_lastHits),
                       tr("Search results for \"") + m_lastQuery + QStringLiteral("\" (") +
                           QString::number(m_lastHits.size()) + tr(" matches)"));
}
