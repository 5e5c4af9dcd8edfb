#include "app/frmSearch.h"

#include "app/BookHitsChart.h"
#include "app/FoundVerseDelegate.h"
#include "library/MainWindowLink.h"
#include "platform/BusyCursor.h"
#include "platform/FileSystem.h"
#include "platform/InputOnlyTo.h"
#include "platform/MsgBox.h"
#include "platform/clsCommonOpenDialog.h"
#include "scripture/AdvancedSearch.h"
#include "scripture/QuerySearch.h"
#include "scripture/SearchQuery.h"
#include "scripture/TranslationList.h"
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
#include <QSet>
#include <QVBoxLayout>

#include <optional>

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
    optQuery = new QRadioButton(tr("&Query"));
    optQuery->setObjectName(QStringLiteral("optQuery"));
    optQuery->setToolTip(tr("Words, \"a phrase\", OR, -word, (groups), lov*, l?ve, /regular "
                            "expression/ and Strong's numbers such as H430"));
    optAllWords->setChecked(true);
    auto *methodLayout = new QVBoxLayout(method);
    methodLayout->addWidget(optAnyWord);
    methodLayout->addWidget(optAllWords);
    methodLayout->addWidget(optExact);
    methodLayout->addWidget(optQuery);
    chkWordSearch = new QCheckBox(tr("&Word Search"));
    chkWordSearch->setObjectName(QStringLiteral("chkWordSearch"));
    chkWordSearch->setToolTip(tr("Search for whole words only"));
    chkWithin = new QCheckBox(tr("Search w&ithin these results"));
    chkWithin->setObjectName(QStringLiteral("chkWithin"));
    chkWithin->setToolTip(tr("Keeps only the verses of the list shown that the next search finds"));

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
    auto *lblTranslations = new QLabel(tr("Also search &translations:"));
    lstTranslations = new QListWidget;
    lstTranslations->setObjectName(QStringLiteral("lstTranslations"));
    lstTranslations->setToolTip(tr("Tick the translations to search beside the open one"));
    lstTranslations->setMaximumHeight(90);
    lblTranslations->setBuddy(lstTranslations);

    lstResults = new QListWidget;
    lstResults->setObjectName(QStringLiteral("lstResults"));
    lstResults->setToolTip(tr("This shows the list of verses containing your search criteria"));
    // Tens of thousands of results are listed at once.
    lstResults->setUniformItemSizes(true);
    // Verses are cut at the list's edge rather than scrolled to.
    lstResults->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_delegate = new FoundVerseDelegate(lstResults);
    lstResults->setItemDelegate(m_delegate);
    picChart = new BookHitsChart;
    picChart->setToolTip(tr("Verses found in each book: click a bar to list only that book"));
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
    cmdStop = new QPushButton(tr("Sto&p"));
    cmdStop->setObjectName(QStringLiteral("cmdStop"));
    cmdStop->setToolTip(tr("Stops the search, keeping what it found so far"));
    cmdStop->setEnabled(false);
    cmdExport = new QPushButton(tr("&Export..."));
    cmdExport->setObjectName(QStringLiteral("cmdExport"));
    cmdExport->setToolTip(tr("Saves the verses listed as text or CSV"));
    cmdClearFilter = new QPushButton(tr("Every boo&k"));
    cmdClearFilter->setObjectName(QStringLiteral("cmdClearFilter"));
    cmdClearFilter->setToolTip(tr("Lists the verses of every book again"));
    cmdClearFilter->setEnabled(false);

    auto *left = new QVBoxLayout;
    auto *queryRow = new QHBoxLayout;
    queryRow->addWidget(txtQuery, 1);
    queryRow->addWidget(cmdSearch);
    queryRow->addWidget(cmdStop);
    left->addWidget(lblQuery);
    left->addLayout(queryRow);
    left->addWidget(method);
    left->addWidget(chkWordSearch);
    left->addWidget(chkWithin);
    left->addWidget(lblBooks);
    left->addWidget(lstBooks, 1);
    auto *testaments = new QHBoxLayout;
    testaments->addWidget(chkOldTestament);
    testaments->addWidget(chkNewTestament);
    left->addLayout(testaments);
    left->addWidget(lblTranslations);
    left->addWidget(lstTranslations);

    auto *right = new QVBoxLayout;
    right->addWidget(lbltitle);
    right->addWidget(lstResults, 1);
    right->addWidget(picChart);
    right->addWidget(picProgress);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(cmdClearFilter);
    buttons->addWidget(cmdExport);
    buttons->addStretch(1);
    buttons->addWidget(cmdShowVerse);
    buttons->addWidget(cmdShowAll);
    right->addLayout(buttons);

    auto *layout = new QHBoxLayout(this);
    layout->addLayout(left, 2);
    layout->addLayout(right, 5);
    resize(960, 640);

    connect(cmdSearch, &QPushButton::clicked, this, &frmSearch::cmdSearch_Click);
    connect(txtQuery, &QLineEdit::returnPressed, this, &frmSearch::cmdSearch_Click);
    connect(cmdShowVerse, &QPushButton::clicked, this, &frmSearch::cmdShowVerse_Click);
    connect(cmdShowAll, &QPushButton::clicked, this, &frmSearch::cmdShowAll_Click);
    connect(lstResults, &QListWidget::itemDoubleClicked, this, &frmSearch::cmdShowVerse_Click);
    connect(chkOldTestament, &QCheckBox::clicked, this, &frmSearch::chkOldTestament_Click);
    connect(chkNewTestament, &QCheckBox::clicked, this, &frmSearch::chkNewTestament_Click);
    connect(lstBooks, &QListWidget::itemSelectionChanged, this, &frmSearch::showTestamentChoice);
    connect(cmdStop, &QPushButton::clicked, this, &frmSearch::cmdStop_Click);
    connect(cmdExport, &QPushButton::clicked, this, &frmSearch::cmdExport_Click);
    connect(cmdClearFilter, &QPushButton::clicked, this, &frmSearch::cmdClearFilter_Click);
    // A click on the bar of the book the list is kept to lists every book again.
    connect(picChart, &BookHitsChart::bookClicked, this,
            [this](int book) { filterToBook(book == m_filterBook ? 0 : book); });

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
    listTranslations();
    showFound();

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
    QStringList ticked;
    for (int i = 0; i < lstTranslations->count(); ++i) {
        if (lstTranslations->item(i)->checkState() == Qt::Checked)
            ticked.append(lstTranslations->item(i)->data(Qt::UserRole).toString());
    }
    WindowSettings::Set(WindowSettings::SearchTranslations, ticked.join(u','));
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

QString frmSearch::openFolder() const
{
    QString path = m_main.Bible().VersionPath();
    while (path.endsWith(u'/') || path.endsWith(u'\\'))
        path.chop(1);
    const qsizetype cut = std::max(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\'));
    return path.mid(cut + 1);
}

void frmSearch::listTranslations()
{
    const QString open = openFolder();
    // Those ticked when the window last closed are ticked again.
    const QStringList ticked =
        WindowSettings::Get(WindowSettings::SearchTranslations).split(u',', Qt::SkipEmptyParts);
    for (const InstalledTranslation &translation :
         TranslationList::List(ProgramSettings::instance().programFolder())) {
        if (translation.folder.compare(open, Qt::CaseInsensitive) == 0)
            continue;
        auto *item = new QListWidgetItem(translation.folder + QStringLiteral(" - ") +
                                         translation.displayName);
        item->setData(Qt::UserRole, translation.folder);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
        item->setCheckState(
            ticked.contains(translation.folder, Qt::CaseInsensitive) ? Qt::Checked : Qt::Unchecked);
        lstTranslations->addItem(item);
    }
    lstTranslations->setEnabled(lstTranslations->count() > 0);
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
    // A query that cannot be read is answered before anything listed goes.
    std::optional<SearchQuery> query;
    if (optQuery->isChecked()) {
        QueryProblem problem;
        query = SearchQuery::Parse(options.query, &problem);
        if (!query) {
            platform::MsgBox(problem.message, vb::vbExclamation);
            txtQuery->setFocus();
            txtQuery->setCursorPosition(problem.position);
            return;
        }
    }

    // The open translation first, then the ones ticked.
    QStringList folders{openFolder()};
    for (int i = 0; i < lstTranslations->count(); ++i) {
        const QListWidgetItem *item = lstTranslations->item(i);
        if (item->checkState() == Qt::Checked)
            folders.append(item->data(Qt::UserRole).toString());
    }
    // Searching within the results keeps what the list shows now (one book's, when it is kept to
    // one).
    const bool within = chkWithin->isChecked();
    QSet<QString> previous;
    if (within) {
        for (const FoundVerse &verse : shownVerses())
            previous.insert(verse.translation + u'\t' + verse.Reference());
    }

    // 3. Start afresh.
    lstResults->clear();
    m_found.clear();
    m_running = true;
    m_stopRequested = false;
    cmdStop->setEnabled(true);
    lbltitle->setText(QString());
    platform::BusyCursor busy;
    // This window takes clicks meanwhile, so that a second Search is refused in words and Stop
    // is heard.
    platform::InputOnlyTo onlyHere(this);
    const Outcome outcome =
        query ? runQuery(*query, folders, options, onlyHere) : runWords(folders, options, onlyHere);
    m_found = outcome.verses;
    m_translationsSearched = int(folders.size());
    QString title = outcome.title;
    if (within) {
        QList<FoundVerse> kept;
        for (const FoundVerse &verse : std::as_const(m_found)) {
            if (previous.contains(verse.translation + u'\t' + verse.Reference()))
                kept.append(verse);
        }
        m_found = kept;
        title = tr("%1 Matches").arg(m_found.size());
    }
    if (outcome.stopped)
        title = tr("%1 Matches before the search was stopped").arg(m_found.size());
    showFound();
    lbltitle->setText(title);
    m_lastQuery = options.query;
    cmdStop->setEnabled(false);
    m_running = false;
    if (!outcome.failure.isEmpty())
        platform::MsgBox(outcome.failure);
}

frmSearch::Outcome frmSearch::runWords(const QStringList &folders,
                                       const AdvancedSearch::Options &options,
                                       platform::InputOnlyTo &onlyHere)
{
    Outcome outcome;
    // Each translation besides the open one through a store of its own.
    const QString programFolder = ProgramSettings::instance().programFolder();
    const int books = m_main.Bible().BooksCount();
    const int rounds = int(folders.size());
    picProgress->setRange(0, std::max(1, rounds * books));
    QList<QList<FoundVerse>> perTranslation;
    QList<VerseNumbering> numberings;
    for (int t = 0; t < rounds && !outcome.stopped; ++t) {
        clsBible other;
        if (t > 0) {
            other.setVersionPath(basStrings::JoinPath(programFolder, folders.at(t)));
            other.setSeparator(m_main.Bible().Separator());
        }
        const clsBible &store = t == 0 ? m_main.Bible() : other;
        if (rounds > 1)
            numberings.append(VerseNumbering::ForTranslation(store));
        // The books ticked in the open translation's list are found in another one by what they
        // are, not by their place in its list.
        AdvancedSearch::Options own = options;
        if (t > 0) {
            own.books = QList<bool>(store.BooksCount(), false);
            for (int b = 1; b <= options.books.size(); ++b) {
                const int same = numberings.first().SameBookIn(numberings.last(), b);
                if (options.books.at(b - 1) && same >= 1 && same <= own.books.size())
                    own.books[same - 1] = true;
            }
        }
        AdvancedSearch search;
        search.onProgress = [this, &onlyHere, offset = t * books](int book, int) {
            picProgress->setValue(offset + book);
            onlyHere.yield();
        };
        search.onOverLimit = [](const QString &message) {
            platform::MsgBox(message, vb::vbCritical | vb::vbOKOnly);
        };
        search.stopRequested = [this] { return m_stopRequested; };
        const AdvancedSearch::Result result = search.run(store, own);
        if (!result.failureMessage.isEmpty() && outcome.failure.isEmpty())
            outcome.failure = rounds > 1
                                  ? folders.at(t) + QStringLiteral(": ") + result.failureMessage
                                  : result.failureMessage;
        outcome.stopped = result.stopped;
        perTranslation.append(FoundVerses::FromHits(result.hits, store, folders.at(t)));
        if (t > 0)
            continue;
        // The open translation's search says which mode ran, and so what to mark.
        outcome.title = result.title;
        const QStringList marked = result.mode == AdvancedSearch::Mode::ExactPhrase
                                       ? QStringList{basStrings::UpperCase(
                                             basStrings::TrimBlanks(options.query).toString())}
                                       : AdvancedSearch::Words(options.query);
        m_marks = [marked, wholeWord = options.wholeWord](const QString &text) {
            return FoundVerses::WordSpans(text, marked, wholeWord);
        };
    }
    outcome.verses =
        rounds == 1 ? perTranslation.value(0) : FoundVerses::Interleave(perTranslation, numberings);
    // The three modes over the open translation alone keep their own title; over several
    // translations the title counts what is listed.
    if (rounds > 1)
        outcome.title = tr("%1 Matches").arg(outcome.verses.size());
    return outcome;
}

frmSearch::Outcome frmSearch::runQuery(const SearchQuery &query, const QStringList &folders,
                                       const AdvancedSearch::Options &options,
                                       platform::InputOnlyTo &onlyHere)
{
    QuerySearch::Options asked;
    const QString programFolder = ProgramSettings::instance().programFolder();
    for (const QString &folder : folders)
        asked.translations.append(basStrings::JoinPath(programFolder, folder));
    asked.books = options.books;
    asked.limit = options.limit;
    asked.order = QuerySearch::Order::ByReference;
    QuerySearch search;
    search.onProgress = [this, &onlyHere](int done, int total) {
        picProgress->setRange(0, std::max(1, total));
        picProgress->setValue(done);
        onlyHere.yield();
        return !m_stopRequested;
    };
    const QuerySearch::Result result = search.run(query, asked);
    m_marks = [query](const QString &text) { return query.Highlights(text); };

    Outcome outcome;
    outcome.verses = FoundVerses::FromQueryHits(result.hits);
    outcome.stopped = result.stopped;
    outcome.failure = result.failureMessage;
    outcome.title =
        result.found > result.hits.size()
            ? tr("%1 Matches, the first %2 listed").arg(result.found).arg(result.hits.size())
            : tr("%1 Matches").arg(result.hits.size());
    return outcome;
}

void frmSearch::showFound()
{
    // The rows name their translation when the list holds more than one.
    const bool several = std::any_of(m_found.cbegin(), m_found.cend(), [this](const FoundVerse &v) {
        return v.translation != m_found.first().translation;
    });
    m_delegate->setVerses(&m_found, m_marks, several);
    // The whole list goes in at once: tens of thousands of results one by one would take seconds.
    QStringList references;
    references.reserve(m_found.size());
    for (const FoundVerse &verse : std::as_const(m_found))
        references.append(verse.Reference());
    lstResults->clear();
    lstResults->addItems(references);
    const clsBible &bible = m_main.Bible();
    QStringList books;
    for (int b = 1; b <= bible.BooksCount(); ++b)
        books.append(bible.BookName(b));
    picChart->setCounts(books, bible.OldTestamentCount(),
                        FoundVerses::HitsPerBook(m_found, bible.BooksCount()));
    m_filterBook = 0;
    picChart->setChosenBook(0);
    cmdClearFilter->setEnabled(false);
    cmdExport->setEnabled(!m_found.isEmpty());
}

void frmSearch::filterToBook(int book)
{
    m_filterBook = book;
    picChart->setChosenBook(book);
    lstResults->setUpdatesEnabled(false);
    for (int row = 0; row < lstResults->count() && row < m_found.size(); ++row)
        lstResults->setRowHidden(row, book != 0 && m_found.at(row).book != book);
    lstResults->setUpdatesEnabled(true);
    cmdClearFilter->setEnabled(book != 0);
}

void frmSearch::cmdClearFilter_Click()
{
    filterToBook(0);
}

void frmSearch::cmdStop_Click()
{
    m_stopRequested = true;
}

QList<FoundVerse> frmSearch::shownVerses() const
{
    QList<FoundVerse> shown;
    for (int row = 0; row < lstResults->count() && row < m_found.size(); ++row) {
        if (!lstResults->isRowHidden(row))
            shown.append(m_found.at(row));
    }
    return shown;
}

void frmSearch::cmdExport_Click()
{
    const QList<FoundVerse> shown = shownVerses();
    if (shown.isEmpty())
        return;
    clsCommonOpenDialog dialog;
    dialog.setDialogtitle(tr("Export Results"));
    dialog.setFilter(tr("Text Files (*.txt)|*.txt|CSV Files (*.csv)|*.csv"));
    dialog.setFilterIndex(1);
    dialog.setFilename(QStringLiteral("results.txt"));
    dialog.setOverWritePrompt(true);
    dialog.setHideReadOnly(true);
    if (!dialog.ShowSave(this))
        return;
    const QString path = dialog.filename();
    const bool csv =
        dialog.FilterIndex() == 2 || path.endsWith(QStringLiteral(".csv"), Qt::CaseInsensitive);
    const QByteArray bytes =
        csv ? FoundVerses::Csv(shown) : FoundVerses::Text(shown, m_translationsSearched);
    const QString failed = platform::WriteFileAtomically(path, bytes);
    if (!failed.isEmpty())
        platform::MsgBox(tr("The results could not be saved to ") + path + QStringLiteral(":\r\n") +
                             failed,
                         vb::vbExclamation);
}

void frmSearch::cmdShowVerse_Click()
{
    const QList<QListWidgetItem *> chosen = lstResults->selectedItems();
    if (chosen.isEmpty())
        return;
    m_main.GoToReference(chosen.first()->text());
    if (m_marks)
        m_main.MarkInPassage(m_marks);
}

void frmSearch::cmdShowAll_Click()
{
    const QList<FoundVerse> shown = shownVerses();
    if (shown.isEmpty())
        return;
    platform::BusyCursor busy;
    QList<SearchHit> hits;
    hits.reserve(shown.size());
    for (const FoundVerse &verse : shown)
        hits.append(verse.hit);
    // The verses as the quick search lists them, as plain lines: thousands of them show at once.
    m_main.ShowPassage(SearchHit::ListedAll(hits),
                       tr("Search results for \"") + m_lastQuery + QStringLiteral("\" (") +
                           QString::number(hits.size()) + tr(" matches)"));
    if (m_marks)
        m_main.MarkInPassage(m_marks);
}
