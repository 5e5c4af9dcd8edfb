#include "app/frmMain.h"

#include "app/BookmarkCommands.h"
#include "app/HistoryNavigator.h"
#include "app/MainMenus.h"
#include "app/NavigatorPane.h"
#include "app/PassageCommands.h"
#include "app/QuickSearchView.h"
#include "app/StudyTabs.h"
#include "app/ToolWindows.h"
#include "app/frmAbout.h"
#include "library/DataFiles.h"
#include "platform/CSendMessage.h"
#include "platform/InputBox.h"
#include "platform/MsgBox.h"
#include "platform/RichTextBox.h"
#include "scripture/StrongConcordance.h"
#include "scripture/TranslationList.h"
#include "scripture/VerseMapping.h"
#include "scripture/basStrings.h"
#include "settings/ProgramSettings.h"
#include "settings/WindowPlacement.h"
#include "settings/WindowSettings.h"
#include "settings/basSettings.h"
#include "settings/frmOptions.h"

#include <QAction>
#include <QCloseEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QSplitter>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace {

QString programFolder()
{
    return ProgramSettings::instance().programFolder();
}

// The smallest window, in twips, frame included: below it the lists and the boxes at the bottom
// do not fit.
constexpr int kMinWidthTwips = 3000;
constexpr int kMinHeightTwips = 4080;

} // namespace

frmMain::frmMain(QWidget *parent) : QMainWindow(parent)
{
    setObjectName(QStringLiteral("frmMain"));
    auto *central = new QWidget(this);
    auto *layout = new QVBoxLayout(central);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->setSpacing(4);
    m_navigator = new NavigatorPane(m_bible, central);
    m_study = new StudyTabs(m_bible, m_navigator->title(), central);
    splitter = new QSplitter(Qt::Horizontal, central);
    splitter->setObjectName(QStringLiteral("splitter"));
    // The layout changes when the drag bar is released, not while it moves.
    splitter->setOpaqueResize(false);
    splitter->setChildrenCollapsible(false);
    splitter->setHandleWidth(4);
    m_navigator->addLists(splitter);
    splitter->addWidget(m_study->tabs());
    m_study->tabs()->setMinimumWidth(splitter->widget(0)->minimumWidth());
    splitter->setStretchFactor(2, 1);
    splitter->setSizes({170, 60, 740});
    layout->addWidget(m_navigator->header());
    layout->addWidget(splitter, 1);
    layout->addWidget(m_navigator->boxes());
    setCentralWidget(central);
    m_menus = new MainMenus(this);
    m_marks = std::make_unique<BookmarkCommands>(*m_menus, m_bible, this);
    m_tools = std::make_unique<ToolWindows>(*this, this);
    m_history =
        new HistoryNavigator(this, *m_study, [this](const Place &p) { return goToPlace(p); });
    connectCommands();

    m_placement = new WindowPlacement(this, QStringLiteral("main"),
                                      WindowPlacement::Position | WindowPlacement::Size |
                                          WindowPlacement::State);
    m_placement->setMinimumOuterSize(kMinWidthTwips, kMinHeightTwips);
    // The first size, for a user who does not keep the window's placement.
    WindowPlacement::ResizeOnScreen(this, QSize(1000, 720));
    // Old settings files spell the key so; the store finds "left" under it all the same.
    m_placement->setLeftReadKey(QStringLiteral("Left"));
    m_placement->addSplitter(splitter, {QStringLiteral("split0"), QStringLiteral("split1")});
    connect(m_placement, &WindowPlacement::splittersRestored, this, &frmMain::placeHeader);
    connect(splitter, &QSplitter::splitterMoved, this, &frmMain::placeHeader);
    // The passage's own menu gives way to the word look-ups.
    m_study->passageView()->setContextMenuPolicy(Qt::NoContextMenu);
    m_study->passageView()->viewport()->installEventFilter(this);
}

frmMain::~frmMain() = default;

void frmMain::connectCommands()
{
    connect(m_navigator, &NavigatorPane::chapterChosen, this, &frmMain::lstChapters_Click);
    connect(m_navigator, &NavigatorPane::referenceEntered, this, &frmMain::cmdGet_Click);
    connect(m_navigator, &NavigatorPane::searchRequested, this, &frmMain::cmdSearch_Click);
    // The buttons do what the menus' entries do.
    connect(m_navigator, &NavigatorPane::advancedSearchRequested, m_menus->mnuToolsSearch,
            &QAction::trigger);
    connect(m_navigator, &NavigatorPane::copyRequested, m_menus->mnuEditCopyPassage,
            &QAction::trigger);
    connect(m_menus, &MainMenus::bookmarkChosen, this, &frmMain::showBookmark);
    connect(m_menus, &MainMenus::translationChosen, this, &frmMain::translationChosen);
    // A reference clicked in the side-by-side view opens in its own translation, on the
    // passage tab.
    connect(m_study, &StudyTabs::parallelReferenceChosen, this,
            [this](const QString &folder, const QString &reference) {
                // Kept on the translation open (unsaved notes that could not be saved).
                if (!switchTranslationFor(folder))
                    return;
                m_study->showPassageTab();
                GoToReference(reference);
            });

    const auto shown = [this] { return m_study->shownView(); };
    const auto passage = [this] { return m_study->passageView(); };
    const auto word = [this] { return basStrings::TrimBlanks(m_lookupWord).toString(); };
    ToolWindows &tools = *m_tools;
    const std::pair<QAction *, std::function<void()>> commands[] = {
        {m_menus->mnuFileExportNotepad,
         [=] { PassageCommands::ExportToEditor(passage()->Text()); }},
        {m_menus->mnuFileSave, [=, this] { PassageCommands::SaveAs(passage(), this); }},
        {m_menus->mnuFilePrint,
         [=, this] { PassageCommands::Print(shown(), m_navigator->title()->text(), this); }},
        {m_menus->mnuFileExit, [this] { close(); }},
        {m_menus->mnuEditSelectAll, [=] { PassageCommands::SelectAll(shown()); }},
        {m_menus->mnuEditCopy, [=] { PassageCommands::Copy(shown()->SelText()); }},
        {m_menus->mnuEditCopyPassage, [=] { PassageCommands::CopyPassage(passage()); }},
        {m_menus->mnuEditCopyBookName,
         [this] { PassageCommands::Copy(m_navigator->chosenBook()); }},
        {m_menus->mnuEditFind, [=, &tools] { tools.find(shown); }},
        {m_menus->mnuEditOptions, [this] { editOptions(); }},
        {m_menus->mnuBookmarksAdd, [this] { m_marks->Add(m_navigator->title()->text()); }},
        {m_menus->mnuBookmarksOrganize, [this] { m_marks->Organize(); }},
        {m_menus->mnuReferencesDictionary, [&tools] { tools.dictionary(); }},
        {m_menus->mnuReferencesStrong, [&tools] { tools.strongLexicon(); }},
        {m_menus->mnuReferencesConcordance, [this] { askForConcordance(); }},
        {m_menus->mnuReferencesNames, [&tools] { tools.bibleNames(); }},
        {m_menus->mnuReferencesTopics, [&tools] { tools.topics(); }},
        {m_menus->mnuReferencesStories, [&tools] { tools.stories(); }},
        {m_menus->mnuReferencesParables, [&tools] { tools.parables(); }},
        {m_menus->mnuReferencesMiracles, [&tools] { tools.miracles(); }},
        {m_menus->mnuReferencesProphecies, [&tools] { tools.prophecies(); }},
        {m_menus->mnuReferencesUnits, [this] { showUnitsTable(); }},
        {m_menus->mnuReferencesVerseOfDay,
         [&tools] { tools.verseOfDay(WindowSettings::Get(WindowSettings::VerseOfDay)); }},
        {m_menus->mnuToolsSearch, [&tools] { tools.search(); }},
        {m_menus->mnuHelpContents, [] { PassageCommands::OpenHelp(); }},
        {m_menus->mnuHelpWebSite, [] { PassageCommands::OpenWebSite(frmAbout::WebSite()); }},
        {m_menus->mnuHelpMailingList, [] { PassageCommands::AskMailingList(frmAbout::WebSite()); }},
        {m_menus->mnuHelpAbout,
         [this] { frmAbout(DataFiles::Path(DataFiles::File::Credits), this).exec(); }},
        // A selection is copied as the view copies it; else the word the menu names.
        {m_menus->mnuRightclickCopy,
         [=, this] {
             if (passage()->SelLength() > 0)
                 CSendMessage(passage()).Copy();
             else
                 PassageCommands::Copy(m_lookupWord);
         }},
        {m_menus->mnuRightclickSearch, [=, this] { SearchFor(word()); }},
        {m_menus->mnuRightclickDictionary, [=, &tools] { tools.dictionary(word()); }},
        {m_menus->mnuRichtclickBiblenames, [=, &tools] { tools.bibleNames(word()); }},
        {m_menus->mnuRightclickStrongLexicon,
         [=, this, &tools] { tools.strongLexicon(m_lookupWord); }},
        {m_menus->mnuRightClickLookupReference, [this] { GoToReference(m_lookupWord); }},
    };
    for (const auto &[action, run] : commands)
        connect(action, &QAction::triggered, this, run);
}

void frmMain::checkDataFiles()
{
    // Each optional data file decides whether its feature is offered.
    using DataFiles::File;
    m_study->setCommentaryAvailable(DataFiles::Exists(File::Commentary));
    m_menus->offer(DataFiles::Exists(File::StrongHebrew), DataFiles::Exists(File::Dictionary));
    m_unitsPath = DataFiles::Path(File::Units);
}

bool frmMain::LoadTranslation(const QString &folder)
{
    // Opening a translation shows a chapter or two on the way; only where it ends is a step.
    m_history->leaving();
    bool opened = false;
    {
        const HistoryNavigator::Hold hold(*m_history);
        opened = openTranslation(folder);
    }
    if (opened)
        m_history->arrived(m_translationFolder, m_study->chapterOnDisplay());
    return opened;
}

bool frmMain::openTranslation(const QString &folder)
{
    // Keep the reader's place when another translation is opened over this one: the book and
    // chapter carried through both translations' verse numbering.
    const bool reopening = !m_translationFolder.isEmpty();
    if (reopening && !m_study->askToKeepNotes())
        return false;
    const Passage place = m_study->chapterOnDisplay();
    const clsBible before = m_bible;

    m_translationFolder = folder;
    const QString path = basStrings::JoinPath(programFolder(), folder);
    m_bible.setVersionPath(path);
    m_bible.setVersionInitial(folder);
    const TranslationList::Header header = TranslationList::ReadHeader(path);
    setWindowTitle(header.name + QStringLiteral(" - Quillstone Bible ") +
                   basStrings::VersionText());
    m_navigator->setTestaments(header.firstTestament, header.secondTestament);

    checkDataFiles();
    if (!reopening)
        LoadBookmarks();
    LoadSettingsFiles();
    if (!reopening)
        LoadSession();
    m_menus->setTranslations(TranslationList::List(programFolder()), m_translationFolder);

    if (!reopening || !place.found())
        return true;
    const ReaderPlace there =
        PlaceInOtherTranslation(before, {place.bookNumber, place.chapterFrom, 0}, m_bible);
    if (there.book != 0)
        m_navigator->choose(there.book, there.chapter);
    return true;
}

bool frmMain::switchTranslationFor(const QString &folder)
{
    if (folder.compare(m_translationFolder, Qt::CaseInsensitive) == 0)
        return true;
    // The reader is going to a verse, not opening a translation to read: the verse of the day
    // would stand in the way.
    m_switchingForPlace = true;
    emit translationChosen(folder);
    m_switchingForPlace = false;
    return folder.compare(m_translationFolder, Qt::CaseInsensitive) == 0;
}

void frmMain::ShowVerseOfDayAfterLoad()
{
    if (m_switchingForPlace)
        return;
    const int show = WindowSettings::Get(WindowSettings::VerseOfDay);
    if (show != 0)
        m_tools->verseOfDay(show);
}

void frmMain::LoadSettingsFiles()
{
    ProgramSettings::instance().readSettingsFiles();
    InitiateSession();
}

void frmMain::InitiateSession()
{
    ProgramSettings &settings = ProgramSettings::instance();
    m_bible.setSeparator(settings.general.lineBreaks ? QStringLiteral("\r\n")
                                                     : QStringLiteral(" "));
    settings.searchLimit = settings.general.maxSearchResults;
    ApplyLookScheme(WindowSettings::Get(WindowSettings::LookScheme));
    m_navigator->applyLook(settings.display);
    m_study->applyLook(settings.display);
    placeHeader();
    m_navigator->chooseFirstChapter();
    m_study->passageView()->setSelStart(0);
}

void frmMain::lstChapters_Click(const QString &book, int chapter)
{
    if (!m_study->askToKeepNotes())
        return;
    const Passage fetched = m_bible.MoveToPassage(book, chapter);
    showChapter(fetched, fetched.Standard());
}

void frmMain::showChapter(const Passage &fetched, const QString &title)
{
    m_history->leaving();
    m_study->showChapter(fetched, title);
    m_history->arrived(m_translationFolder, fetched);
}

bool frmMain::goToPlace(const Place &place)
{
    if (!m_study->askToKeepNotes())
        return false;
    if (place.translation.compare(m_translationFolder, Qt::CaseInsensitive) != 0) {
        if (!TranslationList::IsTranslation(
                basStrings::JoinPath(programFolder(), place.translation))) {
            platform::MsgBox(tr("The translation \"%1\" of %2 is not installed any more.")
                                 .arg(place.translation, place.reference),
                             vb::vbExclamation);
            return false;
        }
        if (!switchTranslationFor(place.translation))
            return false;
    }
    const Passage fetched = m_bible.MoveTo(place.reference);
    showChapter(fetched, fetched.Standard());
    if (m_navigator->updatesLists() && fetched.found())
        m_navigator->markPassage(fetched);
    return true;
}

void frmMain::ShowPassage(const QString &rtf, const QString &title)
{
    m_history->wentAway();
    m_study->showOther(rtf, title);
}

void frmMain::GoToReference(const QString &reference)
{
    m_navigator->setReference(reference);
    cmdGet_Click();
}

void frmMain::cmdGet_Click()
{
    if (!m_study->askToKeepNotes())
        return;
    const Passage fetched = m_bible.MoveTo(m_navigator->reference());
    showChapter(fetched, fetched.Standard());
    // An unknown book leaves an empty view, and the lists stay where they were; so does a view
    // of three characters or fewer, which holds no verse.
    if (m_navigator->updatesLists() && fetched.found() && m_study->passageView()->Text().size() > 3)
        m_navigator->markPassage(fetched);
}

void frmMain::SearchFor(const QString &text)
{
    m_navigator->setQuery(text);
    cmdSearch_Click();
}

void frmMain::cmdSearch_Click()
{
    if (m_searching || basStrings::TrimBlanks(m_navigator->query()).isEmpty())
        return;
    runSearch(m_bible, [this](::QuickSearch &search) {
        return search.run(m_bible, m_navigator->query(), m_navigator->wholeWords(),
                          ProgramSettings::instance().searchLimit);
    });
}

void frmMain::ShowConcordance(const QString &typed)
{
    const QString number = StrongConcordance::Normalize(typed);
    if (number.isEmpty()) {
        platform::MsgBox(
            u'"' + typed +
                tr("\" is not a Strong's number. Type H or G and the number, such as H430 or G26."),
            vb::vbExclamation);
        return;
    }
    // The open translation when its text carries the numbers, else the first installed one that
    // does.
    QString other;
    const clsBible *store = StrongConcordance::StoreFor(m_bible, programFolder(),
                                                        m_translationFolder, m_numbered, other);
    if (!store) {
        platform::MsgBox(tr("None of the installed translations carries Strong's numbers."),
                         vb::vbExclamation);
        return;
    }
    runSearch(*store, [&](::QuickSearch &search) {
        return StrongConcordance::Run(search, *store, number,
                                      ProgramSettings::instance().searchLimit, other);
    });
}

void frmMain::askForConcordance()
{
    const QString number = platform::InputBox(tr("Enter a Strong's number, such as H430 or G26:"),
                                              tr("Strong's Concordance"), m_lastConcordance, this);
    if (basStrings::TrimBlanks(number).isEmpty())
        return;
    m_lastConcordance = number;
    ShowConcordance(number);
}

void frmMain::runSearch(const clsBible &store,
                        const std::function<::QuickSearch::Result(::QuickSearch &)> &scan)
{
    // The search lets the window repaint between books; a second start meanwhile is ignored.
    if (m_searching)
        return;
    m_searching = true;
    m_history->wentAway();
    m_study->showPassageTab();
    const QString failure = ShowQuickSearch(*m_navigator, *m_study, store, scan);
    m_searching = false;
    if (!failure.isEmpty())
        platform::MsgBox(failure);
}

void frmMain::LoadBookmarks()
{
    m_marks->Load();
}

void frmMain::showBookmark(int index)
{
    if (!m_study->askToKeepNotes())
        return;
    // The reference list may have lost items since the menu was built (Remove, then Cancel).
    const Passage fetched = m_bible.MoveTo(m_marks->Reference(index));
    showChapter(fetched, QStringLiteral("Bookmark: ") + fetched.Standard() +
                             QStringLiteral(" -- ") + m_marks->Name(index));
}

void frmMain::editOptions()
{
    frmOptions options(TranslationList::List(programFolder()), m_translationFolder, this);
    connect(&options, &frmOptions::loadTranslationRequested, this, &frmMain::translationChosen);
    // The new look shows at once, without a restart.
    connect(&options, &frmOptions::settingsSaved, this, &frmMain::InitiateSession);
    options.exec();
}

void frmMain::showUnitsTable()
{
    if (!basStrings::FileExists(m_unitsPath)) {
        DataFiles::ReportMissing(m_unitsPath);
        return;
    }
    m_history->wentAway();
    m_study->showPassageTab();
    m_study->passageView()->LoadFile(m_unitsPath);
    m_study->passageView()->setSelStart(0);
}

void frmMain::LoadSession()
{
    m_placement->restore();
    placeHeader();
    m_history->restore();
}

void frmMain::SaveSession()
{
    m_placement->save();
    m_history->save();
}

void frmMain::placeHeader()
{
    m_navigator->placeHeader(splitter);
}

void frmMain::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    QTimer::singleShot(0, this, &frmMain::placeHeader);
}

void frmMain::closeEvent(QCloseEvent *event)
{
    if (!m_study->askToKeepNotes()) {
        event->ignore();
        return;
    }
    SaveSession();
    event->accept();
}

bool frmMain::eventFilter(QObject *watched, QEvent *event)
{
    // A right click in the passage: the word under the mouse (or the selection) and its menu.
    platform::RichTextBox *passage = m_study->passageView();
    if (watched == passage->viewport() && event->type() == QEvent::MouseButtonRelease) {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() == Qt::RightButton) {
            m_lookupWord = PassageCommands::WordAt(passage, mouse->position().toPoint());
            m_menus->popUp(m_lookupWord, mouse->globalPosition().toPoint());
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

void frmMain::MarkInPassage(const PassageMarks &find)
{
    m_study->markPassage(find);
}
