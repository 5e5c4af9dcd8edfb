#include "app/frmMain.h"

#include "app/PassageFiles.h"
#include "app/frmFind.h"
#include "app/frmPrint.h"
#include "app/frmSearch.h"

#include "bookmarks/frmAddBookmark.h"
#include "bookmarks/frmOrganizeBookmarks.h"
#include "library/DataFiles.h"
#include "library/frmBibleNames.h"
#include "library/frmDictionary.h"
#include "library/frmParables.h"
#include "library/frmProphecies.h"
#include "library/frmStories.h"
#include "library/frmStrongLexicon.h"
#include "library/frmTopics.h"
#include "library/frmVerseOfDay.h"
#include "platform/CSendMessage.h"
#include "platform/BusyCursor.h"
#include "platform/CShell.h"
#include "platform/FileSystem.h"
#include "platform/clsCommonOpenDialog.h"
#include "platform/InputBox.h"
#include "platform/MsgBox.h"
#include "platform/RichTextBox.h"
#include "platform/Twips.h"
#include "platform/WinQColor.h"
#include "platform/clsCommonColorDialog.h"
#include "platform/frmAbout.h"
#include "scripture/NotesStore.h"
#include "scripture/PassageFormatter.h"
#include "scripture/QuickSearch.h"
#include "scripture/StrongConcordance.h"
#include "scripture/TranslationList.h"
#include "scripture/basStrings.h"
#include "settings/ProgramSettings.h"
#include "settings/WindowPlacement.h"
#include "settings/basSettings.h"
#include "settings/frmOptions.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QCloseEvent>
#include <QComboBox>
#include <QDir>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QToolButton>
#include <QTimer>
#include <QVBoxLayout>

#include <optional>

namespace {

// Opens a file or an address with the desktop's handler. When there is none, or the desktop
// refuses, the reader is told what could not be opened rather than left waiting for a window.
void openOnDesktop(const QString &target, const QString &failurePrompt)
{
    CShell shell;
    shell.setFilename(target);
    shell.setWindowState(CShell::SW_SHOWNORMAL);
    if (shell.Execute())
        return;
    const QUrl url = shell.Url();
    platform::MsgBox(failurePrompt + (url.isLocalFile() ? QDir::toNativeSeparators(url.toLocalFile()) : target),
                     vb::vbExclamation);
}

QString programFile(const QString &name)
{
    return basStrings::JoinPath(ProgramSettings::instance().programFolder(), name);
}

// Pixels for a length in twips, rounded up so that a smallest size is never undercut.
int pixelsX(const QWidget *widget, int twips)
{
    const int perPixel = platform::TwipsPerPixelX(widget);
    return (twips + perPixel - 1) / perPixel;
}

// The smallest window, in twips, frame included: below it the lists and the boxes at the bottom
// do not fit.
constexpr int kMinWidthTwips = 3000;
constexpr int kMinHeightTwips = 4080;
// The narrowest a list or the tab strip may be made with a splitter.
constexpr int kSplitterClampTwips = 250;
// The characters of a word for the passage's look-ups: any other character ends a word.
const QString kWordCharacters = QStringLiteral("AaBbCcDdEeFfGgHhIiJjKkLlMmNnOoPpQqRrSsTtUuVvWwXxYyZz1234567890");

const QString kNotesCaption = QStringLiteral("Notes");
// The wording users know, comma splice and all.
const QString kUnsavedNotesPrompt = QStringLiteral(
    "You have not saved your notes changes, If you switch tabs now, you will lose any changes you have saved\r\n"
    "Would you like to save your changes so far?");
const QString kCommentaryCaption = QStringLiteral("TVC");

} // namespace

frmMain::frmMain(QWidget *parent) : QMainWindow(parent)
{
    setObjectName(QStringLiteral("frmMain"));
    buildControls();
    buildMenus();
    m_placement = new WindowPlacement(this, QStringLiteral("main"),
                                      WindowPlacement::Position | WindowPlacement::Size | WindowPlacement::State);
    m_placement->setMinimumOuterSize(kMinWidthTwips, kMinHeightTwips);
    // The first size, for a user who does not keep the window's placement: as large as a reader
    // wants, but on the screen.
    QSize size(1000, 720);
    if (const QScreen *screen = QGuiApplication::primaryScreen())
        size = size.boundedTo(screen->availableGeometry().size() - QSize(40, 80));
    resize(size.expandedTo(minimumSize()));

    // Old settings files spell the key so; the store finds "left" under it all the same.
    m_placement->setLeftReadKey(QStringLiteral("Left"));
    m_placement->addSplitter(splitter, {QStringLiteral("split0"), QStringLiteral("split1")});
    connect(m_placement, &WindowPlacement::splittersRestored, this, &frmMain::placeHeader);
}

frmMain::~frmMain() = default;

void frmMain::buildControls()
{
    auto *central = new QWidget(this);
    auto *layout = new QVBoxLayout(central);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->setSpacing(4);

    // The testament choice and the title sit above the columns they belong to; placeHeader()
    // keeps them there as the splitters move.
    m_header = new QWidget(central);
    cmbTestaments = new QComboBox(m_header);
    cmbTestaments->setObjectName(QStringLiteral("cmbTestaments"));
    cmbTestaments->setToolTip(QStringLiteral("Select Testament"));
    lbltitle = new QLabel(m_header);
    lbltitle->setObjectName(QStringLiteral("lbltitle"));
    lbltitle->setAutoFillBackground(true);
    lbltitle->setIndent(6);
    m_header->setFixedHeight(std::max(cmbTestaments->sizeHint().height(), 26));
    layout->addWidget(m_header);

    splitter = new QSplitter(Qt::Horizontal, central);
    splitter->setObjectName(QStringLiteral("splitter"));
    // The layout changes when the drag bar is released, not while it moves.
    splitter->setOpaqueResize(false);
    splitter->setChildrenCollapsible(false);
    splitter->setHandleWidth(4);
    lstBooks = new QListWidget(splitter);
    lstBooks->setObjectName(QStringLiteral("lstBooks"));
    lstBooks->setToolTip(QStringLiteral("Select Book"));
    lstChapters = new QListWidget(splitter);
    lstChapters->setObjectName(QStringLiteral("lstChapters"));
    lstChapters->setToolTip(QStringLiteral("Select Chapter"));
    SSTab1 = new QTabWidget(splitter);
    SSTab1->setObjectName(QStringLiteral("SSTab1"));
    rtfPassage = new platform::RichTextBox(SSTab1);
    rtfPassage->setObjectName(QStringLiteral("rtfPassage"));
    rtfPassage->setLocked(true);
    SSTab1->addTab(rtfPassage, QStringLiteral("Passage"));
    SSTab1->addTab(buildNotesTab(), kNotesCaption);
    rtfTVC = new platform::RichTextBox(SSTab1);
    rtfTVC->setObjectName(QStringLiteral("rtfTVC"));
    rtfTVC->setLocked(true);
    SSTab1->addTab(rtfTVC, kCommentaryCaption);
    SSTab1->setTabToolTip(1, QStringLiteral("Your own notes on the chapter"));
    SSTab1->setTabToolTip(2, QStringLiteral("Commentary on the chapter"));
    for (QWidget *w : {static_cast<QWidget *>(lstBooks), static_cast<QWidget *>(lstChapters),
                       static_cast<QWidget *>(SSTab1)})
        w->setMinimumWidth(pixelsX(this, kSplitterClampTwips));
    splitter->setStretchFactor(2, 1);
    splitter->setSizes({170, 60, 740});
    layout->addWidget(splitter, 1);

    auto *frame = new QFrame(central);
    frame->setObjectName(QStringLiteral("Frame1"));
    auto *grid = new QGridLayout(frame);
    grid->setContentsMargins(0, 4, 0, 0);
    grid->setHorizontalSpacing(6);
    auto *lblReference = new QLabel(QStringLiteral("&Reference:"), frame);
    txtReference = new QLineEdit(frame);
    txtReference->setObjectName(QStringLiteral("txtReference"));
    txtReference->setToolTip(QStringLiteral("Standard Reference Entry Box (ie: John 3:16)"));
    lblReference->setBuddy(txtReference);
    cmdGet = new QPushButton(QStringLiteral("Get it"), frame);
    cmdGet->setObjectName(QStringLiteral("cmdGet"));
    cmdGet->setToolTip(QStringLiteral("Retrive the reference typed"));
    chkUpdateList = new QCheckBox(QStringLiteral("&Update Books List"), frame);
    chkUpdateList->setObjectName(QStringLiteral("chkUpdateList"));
    chkUpdateList->setToolTip(
        QStringLiteral("Updates the selection on the lists to the left when using the standard reference method"));
    chkUpdateList->setChecked(true);
    cmdCopy = new QPushButton(QStringLiteral("&Copy"), frame);
    cmdCopy->setObjectName(QStringLiteral("cmdCopy"));
    cmdCopy->setToolTip(QStringLiteral("Copies the currently displayed passage to the clipboard"));

    auto *lblQuery = new QLabel(QStringLiteral("&KeyWord:"), frame);
    txtQuery = new QLineEdit(frame);
    txtQuery->setObjectName(QStringLiteral("txtQuery"));
    txtQuery->setToolTip(QStringLiteral("Keyword Search"));
    lblQuery->setBuddy(txtQuery);
    cmdSearch = new QPushButton(QStringLiteral("&Search"), frame);
    cmdSearch->setObjectName(QStringLiteral("cmdSearch"));
    cmdSearch->setToolTip(QStringLiteral("Start Search"));
    chkWordSearch = new QCheckBox(QStringLiteral("&Word Search"), frame);
    chkWordSearch->setObjectName(QStringLiteral("chkWordSearch"));
    chkWordSearch->setToolTip(QStringLiteral("Search for whole words only "));
    cmdAdvanced = new QPushButton(QStringLiteral("Ad&vanced Search"), frame);
    cmdAdvanced->setObjectName(QStringLiteral("cmdAdvanced"));
    cmdAdvanced->setToolTip(QStringLiteral("Search chosen books for any word, all words or a phrase"));
    picProgress = new QProgressBar(frame);
    picProgress->setObjectName(QStringLiteral("picProgress"));
    picProgress->setTextVisible(false);
    picProgress->setMaximumHeight(14);
    picProgress->setVisible(false);

    grid->addWidget(lblReference, 0, 0);
    grid->addWidget(txtReference, 0, 1);
    grid->addWidget(cmdGet, 0, 2);
    grid->addWidget(chkUpdateList, 0, 3);
    grid->addWidget(cmdCopy, 0, 4);
    grid->addWidget(lblQuery, 1, 0);
    grid->addWidget(txtQuery, 1, 1);
    grid->addWidget(cmdSearch, 1, 2);
    grid->addWidget(chkWordSearch, 1, 3);
    grid->addWidget(cmdAdvanced, 1, 4);
    grid->addWidget(picProgress, 1, 5);
    grid->setColumnStretch(1, 1);
    layout->addWidget(frame);
    setCentralWidget(central);

    connect(cmbTestaments, &QComboBox::activated, this, &frmMain::cmbTestaments_Click);
    // A list acts on a click, on a keyboard move and on a selection made by the program; the
    // change a mouse press makes waits for its click, so one click acts once.
    auto connectList = [this](QListWidget *list, void (frmMain::*handler)()) {
        connect(list, &QListWidget::currentRowChanged, this, [this, handler](int row) {
            if (row >= 0 && QGuiApplication::mouseButtons() == Qt::NoButton)
                (this->*handler)();
        });
        connect(list, &QListWidget::itemClicked, this, [this, handler] { (this->*handler)(); });
    };
    connectList(lstBooks, &frmMain::lstBooks_Click);
    connectList(lstChapters, &frmMain::lstChapters_Click);
    connect(cmdGet, &QPushButton::clicked, this, &frmMain::cmdGet_Click);
    connect(txtReference, &QLineEdit::returnPressed, this, &frmMain::cmdGet_Click);
    connect(cmdSearch, &QPushButton::clicked, this, &frmMain::cmdSearch_Click);
    connect(txtQuery, &QLineEdit::returnPressed, this, &frmMain::cmdSearch_Click);
    // The button does what the Tools menu's entry does.
    connect(cmdAdvanced, &QPushButton::clicked, this, [this] { mnuToolsSearch->trigger(); });
    connect(cmdCopy, &QPushButton::clicked, this, &frmMain::mnuEditCopyPassage_Click);
    connect(splitter, &QSplitter::splitterMoved, this, &frmMain::placeHeader);
    connect(SSTab1, &QTabWidget::currentChanged, this, [this](int index) {
        const int previous = m_shownTab;
        m_shownTab = index;
        SSTab1_Click(previous);
    });
    // The passage's own menu gives way to the word look-ups.
    rtfPassage->setContextMenuPolicy(Qt::NoContextMenu);
    rtfPassage->viewport()->installEventFilter(this);
    txtReference->installEventFilter(this);
    txtQuery->installEventFilter(this);
}

QWidget *frmMain::buildNotesTab()
{
    auto *page = new QWidget(SSTab1);
    auto *layout = new QVBoxLayout(page);
    // The views sit 30 twips inside the tab on every side.
    const int inset = pixelsX(this, 30);
    layout->setContentsMargins(inset, inset, inset, inset);
    layout->setSpacing(2);

    frmNotesCommands = new QFrame(page);
    frmNotesCommands->setObjectName(QStringLiteral("frmNotesCommands"));
    auto *commands = new QHBoxLayout(frmNotesCommands);
    commands->setContentsMargins(0, 0, 0, 0);
    commands->setSpacing(2);
    const auto addButton = [&](const char *name, const QString &caption, const QString &tip,
                               void (frmMain::*handler)(), const std::function<void(QFont &)> &look) {
        auto *button = new QToolButton(frmNotesCommands);
        button->setObjectName(QLatin1String(name));
        button->setText(caption);
        button->setToolTip(tip);
        QFont font = button->font();
        look(font);
        button->setFont(font);
        button->setMinimumWidth(28);
        // The button acts on the notes' selection, so it must not take the focus from them.
        button->setFocusPolicy(Qt::NoFocus);
        connect(button, &QToolButton::clicked, this, handler);
        commands->addWidget(button);
    };
    addButton("cmdBold", QStringLiteral("B"), QStringLiteral("Bold"), &frmMain::cmdBold_Click,
              [](QFont &f) { f.setBold(true); });
    addButton("cmdItalic", QStringLiteral("I"), QStringLiteral("Italic"), &frmMain::cmdItalic_Click,
              [](QFont &f) { f.setItalic(true); });
    addButton("cmdUnderline", QStringLiteral("U"), QStringLiteral("Underline"), &frmMain::cmdUnderline_Click,
              [](QFont &f) { f.setUnderline(true); });
    addButton("cmdStrikeThru", QStringLiteral("S"), QStringLiteral("Strike Through"),
              &frmMain::cmdStrikeThru_Click, [](QFont &f) { f.setStrikeOut(true); });
    addButton("cmdColor", QStringLiteral("A"), QStringLiteral("Change Color"), &frmMain::cmdColor_Click,
              [](QFont &) {});
    commands->addStretch(1);
    cmdSaveNotes = new QPushButton(QStringLiteral("&Save Notes"), frmNotesCommands);
    cmdSaveNotes->setObjectName(QStringLiteral("cmdSaveNotes"));
    cmdSaveNotes->setToolTip(QStringLiteral("Save the notes of this chapter"));
    connect(cmdSaveNotes, &QPushButton::clicked, this, &frmMain::cmdSaveNotes_Click);
    commands->addWidget(cmdSaveNotes);

    rtfNotes = new platform::RichTextBox(page);
    rtfNotes->setObjectName(QStringLiteral("rtfNotes"));
    rtfNotes->setAcceptRichText(true);
    connect(rtfNotes, &QTextEdit::textChanged, this, [this] { m_notesSaved = false; });

    layout->addWidget(frmNotesCommands);
    layout->addWidget(rtfNotes, 1);
    return page;
}

void frmMain::buildMenus()
{
    QMenu *file = menuBar()->addMenu(QStringLiteral("&File"));
    QMenu *exportMenu = file->addMenu(QStringLiteral("&Export"));
    exportMenu->addAction(QStringLiteral("to &Notepad"), this, &frmMain::mnuFileExportNotepad_Click)
        ->setObjectName(QStringLiteral("mnuFileExportNotepad"));
    file->addAction(QStringLiteral("&Save"), QKeySequence::Save, this, &frmMain::mnuFileSave_Click)
        ->setObjectName(QStringLiteral("mnuFileSave"));
    mnuFilePrint = file->addAction(QStringLiteral("&Print current passage"), QKeySequence::Print, this,
                                   &frmMain::mnuFilePrint_Click);
    mnuFilePrint->setObjectName(QStringLiteral("mnuFilePrint"));
    file->addSeparator();
    file->addAction(QStringLiteral("E&xit"), this, &frmMain::mnuFileExit_Click)->setObjectName(QStringLiteral("mnuFileExit"));

    QMenu *edit = menuBar()->addMenu(QStringLiteral("&Edit"));
    edit->addAction(QStringLiteral("Select &All"), QKeySequence::SelectAll, this, &frmMain::mnuEditSelectAll_Click);
    edit->addAction(QStringLiteral("&Copy Selection"), QKeySequence::Copy, this, &frmMain::mnuEditCopy_Click);
    edit->addAction(QStringLiteral("Copy &Passage"), this, &frmMain::mnuEditCopyPassage_Click);
    edit->addAction(QStringLiteral("Copy &Book Name"), this, &frmMain::mnuEditCopyBookName_Click);
    edit->addSeparator();
    edit->addAction(QStringLiteral("&Find"), QKeySequence::Find, this, &frmMain::mnuEditFind_Click)
        ->setObjectName(QStringLiteral("mnuEditFind"));
    edit->addSeparator();
    QAction *options = edit->addAction(QStringLiteral("&Options..."), QKeySequence(QStringLiteral("Ctrl+,")), this,
                                       &frmMain::mnuEditOptions_Click);
    options->setObjectName(QStringLiteral("mnuEditOptions"));

    mnuBookmarks = menuBar()->addMenu(QStringLiteral("&Bookmarks"));
    mnuBookmarks->setObjectName(QStringLiteral("mnuBookmarks"));
    QAction *add = mnuBookmarks->addAction(QStringLiteral("Add Passage to bookmarks"), QKeySequence(QStringLiteral("Ctrl+D")),
                                           this, &frmMain::mnuBookmarksAdd_Click);
    add->setObjectName(QStringLiteral("mnuBookmarksAdd"));
    QAction *organize = mnuBookmarks->addAction(QStringLiteral("&Organize Bookmarks"), QKeySequence(QStringLiteral("Ctrl+B")),
                                                this, &frmMain::mnuBookmarksOrganize_Click);
    organize->setObjectName(QStringLiteral("mnuBookmarksOrganize"));
    mnuBookmarks->addSeparator();
    mnuBookmarksBookmarks.append(nullptr);

    mnuTranslations = menuBar()->addMenu(QStringLiteral("&Translations"));
    mnuTranslations->setObjectName(QStringLiteral("mnuTranslations"));

    // Alt+R belongs to the reference box, which a reader reaches for far more often.
    QMenu *references = menuBar()->addMenu(QStringLiteral("Refere&nces"));
    const auto reference = [this, references](const char *name, const QString &caption, auto handler) {
        QAction *action = references->addAction(caption, this, handler);
        action->setObjectName(QLatin1String(name));
        return action;
    };
    mnuReferencesDictionary = reference("mnuReferencesDictionary", QStringLiteral("&Dictionary"), [this] { openDictionary(); });
    mnuReferencesStrong = reference("mnuReferencesStrong", QStringLiteral("&Strong's Lexicon"), [this] { openStrongLexicon(); });
    reference("mnuReferencesConcordance", QStringLiteral("Strong's &Concordance"), &frmMain::mnuReferencesConcordance_Click);
    references->addSeparator();
    reference("mnuReferencesNames", QStringLiteral("Bible &Names"), [this] { openBibleNames(); });
    reference("mnuReferencesTopics", QStringLiteral("Bible &Topics"),
              [this] { m_topics.open([this] { return new frmTopics(*this, this); }); });
    reference("mnuReferencesStories", QStringLiteral("Famous Bible St&ories"),
              [this] { m_stories.open([this] { return new frmStories(*this, this); }); });
    references->addSeparator();
    reference("mnuReferencesParables", QStringLiteral("Parables of &Jesus Christ"), &frmMain::mnuReferencesParables_Click);
    reference("mnuReferencesMiracles", QStringLiteral("&Miracles of Jesus Christ"), &frmMain::mnuReferencesMiracles_Click);
    reference("mnuReferencesProphecies", QStringLiteral("&Prophecies and Fulfilment"), &frmMain::mnuReferencesProphecies_Click);
    references->addSeparator();
    reference("mnuReferencesUnits", QStringLiteral("&Units Table"), &frmMain::mnuReferencesUnits_Click);
    reference("mnuReferencesVerseOfDay", QStringLiteral("&Verse of the Day"), &frmMain::mnuReferencesVerseOfDay_Click);

    // "&Tools" would share its key with "&Translations".
    QMenu *tools = menuBar()->addMenu(QStringLiteral("T&ools"));
    mnuToolsSearch = tools->addAction(QStringLiteral("Bible &Search"), this, &frmMain::mnuToolsSearch_Click);
    mnuToolsSearch->setObjectName(QStringLiteral("mnuToolsSearch"));

    QMenu *help = menuBar()->addMenu(QStringLiteral("&Help"));
    help->addAction(QStringLiteral("&Contents"), QKeySequence::HelpContents, this, &frmMain::mnuHelpContents_Click)
        ->setObjectName(QStringLiteral("mnuHelpContents"));
    help->addAction(QStringLiteral("Quillstone on the &Web"), this, &frmMain::mnuHelpWebSite_Click)
        ->setObjectName(QStringLiteral("mnuHelpWebSite"));
    help->addAction(QStringLiteral("&Mailing List"), this, &frmMain::mnuHelpMailingList_Click)
        ->setObjectName(QStringLiteral("mnuHelpMailingList"));
    help->addSeparator();
    help->addAction(QStringLiteral("&About Quillstone"), this, &frmMain::mnuHelpAbout_Click);

    // The passage's pop-up menu is a menu of its own, never shown in the menu bar.
    mnuRightClick = new QMenu(this);
    mnuRightClick->setObjectName(QStringLiteral("mnuRightClick"));
    const auto entry = [this](const char *name, const QString &caption, void (frmMain::*handler)()) {
        QAction *action = mnuRightClick->addAction(caption, this, handler);
        action->setObjectName(QLatin1String(name));
        return action;
    };
    mnuRightclickWord = mnuRightClick->addAction(QString());
    mnuRightclickWord->setObjectName(QStringLiteral("mnuRightclickWord"));
    mnuRightclickWord->setEnabled(false);
    mnuRightClick->addSeparator();
    entry("mnuRightclickCopy", QStringLiteral("&Copy"), &frmMain::mnuRightclickCopy_Click);
    entry("mnuRightclickSearch", QStringLiteral("&Search the Bible"), &frmMain::mnuRightclickSearch_Click);
    mnuRightclickDictionary = entry("mnuRightclickDictionary", QStringLiteral("Look up in &Dictionary"),
                                    &frmMain::mnuRightclickDicionary_Click);
    entry("mnuRichtclickBiblenames", QStringLiteral("Look up in Bible &Names"), &frmMain::mnuRichtclickBiblenames_Click);
    mnuRightclickStrongLexicon = entry("mnuRightclickStrongLexicon", QStringLiteral("Strong's Lexicon Entry?"),
                                       &frmMain::mnuRightclickStrongLexicon_Click);
    entry("mnuRightClickLookupReference", QStringLiteral("&Look up Reference"), &frmMain::mnuRightClickLookupReference_Click);
}

void frmMain::buildTranslationsMenu()
{
    mnuTranslations->clear();
    auto *group = new QActionGroup(mnuTranslations);
    for (const InstalledTranslation &t : TranslationList::List(ProgramSettings::instance().programFolder())) {
        QAction *entry = mnuTranslations->addAction(t.displayName);
        entry->setCheckable(true);
        entry->setChecked(t.folder.compare(m_translationFolder, Qt::CaseInsensitive) == 0);
        entry->setData(t.folder);
        group->addAction(entry);
        connect(entry, &QAction::triggered, this, [this, folder = t.folder] { emit translationChosen(folder); });
    }
}

void frmMain::checkDataFiles()
{
    // Each optional data file decides whether its feature is offered.
    using DataFiles::File;
    m_hasCommentary = DataFiles::Exists(File::Commentary);
    SSTab1->setTabVisible(2, m_hasCommentary);
    const bool strong = DataFiles::Exists(File::StrongHebrew);
    mnuReferencesStrong->setEnabled(strong);
    mnuRightclickStrongLexicon->setEnabled(strong);
    const bool dictionary = DataFiles::Exists(File::Dictionary);
    mnuReferencesDictionary->setVisible(dictionary);
    mnuRightclickDictionary->setVisible(dictionary);
    m_namesPath = DataFiles::Path(File::Names);
    m_prophecyPath = DataFiles::Path(File::Prophecy);
    m_unitsPath = DataFiles::Path(File::Units);
}

bool frmMain::LoadTranslation(const QString &folder)
{
    // Keep the reader's place when another translation is opened over this one: the same book by
    // name, else by number when both translations have the same books.
    const bool reopening = !m_translationFolder.isEmpty();
    if (reopening && !askToKeepNotes())
        return false;
    const int oldBook = m_onDisplay.found() ? m_onDisplay.bookNumber : 0;
    const int oldCount = m_bible.BooksCount();
    const QString oldName = m_onDisplay.book;
    const int chapter = m_onDisplay.chapterFrom;

    m_translationFolder = folder;
    const QString path = programFile(folder);
    m_bible.setVersionPath(path);
    m_bible.setVersionInitial(folder);

    const TranslationList::Header header = TranslationList::ReadHeader(path);
    setWindowTitle(header.name + QStringLiteral(" - Quillstone Bible ") + basStrings::VersionText());
    cmbTestaments->clear();
    cmbTestaments->addItems({header.firstTestament, header.secondTestament});

    checkDataFiles();
    if (!reopening)
        LoadBookmarks();
    LoadSettingsFiles();
    if (!reopening)
        LoadSession();
    buildTranslationsMenu();

    if (!reopening || oldBook == 0)
        return true;
    int book = m_bible.BookByName(oldName);
    if (book == 0 && oldCount == m_bible.BooksCount())
        book = oldBook;
    if (book == 0)
        return true;
    const int testament = m_bible.TestamentOfBook(book);
    cmbTestaments->setCurrentIndex(testament);
    cmbTestaments_Click();
    lstBooks->setCurrentRow(m_bible.RowOfBook(book));
    if (chapter > 0 && chapter <= lstChapters->count())
        lstChapters->setCurrentRow(chapter - 1);
    return true;
}

void frmMain::ShowVerseOfDayAfterLoad()
{
    const int show = ProgramSettings::instance().Ini().Data(QStringLiteral("verseofday"), QStringLiteral("show"));
    if (show != 0)
        openVerseOfDay(show);
}

void frmMain::LoadSettingsFiles()
{
    ProgramSettings::instance().readSettingsFiles();
    InitiateSession();
}

void frmMain::InitiateSession()
{
    ProgramSettings &settings = ProgramSettings::instance();
    m_bible.setSeparator(settings.general.lineBreaks ? QStringLiteral("\r\n") : QStringLiteral(" "));
    settings.searchLimit = settings.general.maxSearchResults;
    ApplyStyle(cmbTestaments, settings.display.navigation);
    ApplyStyle(lstBooks, settings.display.navigation);
    ApplyStyle(lstChapters, settings.display.navigation);
    ApplyStyle(lbltitle, settings.display.title);
    ApplyRichTextStyle(rtfPassage, settings.display.passage);
    ApplyRichTextStyle(rtfTVC, settings.display.passage);
    {
        // A new look is not an edit of the notes.
        const bool saved = m_notesSaved;
        ApplyRichTextStyle(rtfNotes, settings.display.passage);
        m_notesSaved = saved;
    }
    m_header->setFixedHeight(std::max(cmbTestaments->sizeHint().height(), lbltitle->sizeHint().height()));
    placeHeader();

    cmbTestaments->setCurrentIndex(0);
    cmbTestaments_Click();
    if (lstBooks->count() > 0)
        lstBooks->setCurrentRow(0);
    if (lstChapters->count() > 0)
        lstChapters->setCurrentRow(0);
    rtfPassage->setSelStart(0);
}

void frmMain::cmbTestaments_Click()
{
    lstBooks->clear();
    lstChapters->clear();
    const int testament = cmbTestaments->currentIndex() == 1 ? 1 : 0;
    QStringList names;
    for (int b = m_bible.FirstBookOfTestament(testament), last = m_bible.LastBookOfTestament(testament); b <= last; ++b)
        names << m_bible.BookName(b);
    lstBooks->addItems(names);
}

void frmMain::lstBooks_Click()
{
    lstChapters->clear();
    const int row = lstBooks->currentRow();
    if (row < 0)
        return;
    const int number = m_bible.BookByRow(cmbTestaments->currentIndex() == 1 ? 1 : 0, row);
    QStringList chapters;
    for (int c = 1, n = m_bible.Chapters(number); c <= n; ++c)
        chapters << QString::number(c);
    lstChapters->addItems(chapters);
}

void frmMain::lstChapters_Click()
{
    const QListWidgetItem *book = lstBooks->currentItem();
    const QListWidgetItem *chapter = lstChapters->currentItem();
    if (!book || !chapter || !askToKeepNotes())
        return;
    const Passage fetched = m_bible.MoveToPassage(book->text(), chapter->text().toInt());
    showFetched(fetched, fetched.Standard());
}

void frmMain::showFetched(const Passage &fetched, const QString &title)
{
    rtfPassage->setTextRTF(PassageFormatter::ForView(fetched.text));
    rtfPassage->setSelStart(0);
    lbltitle->setText(title);
    if (fetched.found()) {
        m_onDisplay = fetched;
        m_onDisplay.text.clear();
    }
    refreshStudyTab();
}

void frmMain::ShowPassage(const QString &rtf, const QString &title)
{
    // A passage handed over by another window is there to be read.
    SSTab1->setCurrentIndex(0);
    rtfPassage->setTextRTF(rtf);
    rtfPassage->setSelStart(0);
    lbltitle->setText(title);
}

void frmMain::GoToReference(const QString &reference)
{
    txtReference->setText(reference);
    cmdGet_Click();
}

void frmMain::cmdGet_Click()
{
    if (!askToKeepNotes())
        return;
    const Passage fetched = m_bible.MoveTo(txtReference->text());
    showFetched(fetched, fetched.Standard());
    // An unknown book leaves an empty view, and the lists stay where they were; so does a view
    // of three characters or fewer, which holds no verse.
    if (chkUpdateList->isChecked() && fetched.found() && rtfPassage->Text().size() > 3)
        selectInLists(fetched);
}

void frmMain::selectInLists(const Passage &passage)
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

void frmMain::QuickSearch(const QString &text)
{
    txtQuery->setText(text);
    cmdSearch_Click();
}

void frmMain::cmdSearch_Click()
{
    if (m_searching || basStrings::TrimBlanks(txtQuery->text()).isEmpty())
        return;
    runSearch(m_bible, [this](::QuickSearch &search) {
        return search.run(m_bible, txtQuery->text(), chkWordSearch->isChecked(), ProgramSettings::instance().searchLimit);
    });
}

void frmMain::StrongConcordance(const QString &typed)
{
    const QString number = StrongConcordance::Normalize(typed);
    if (number.isEmpty()) {
        platform::MsgBox(u'"' + typed + QStringLiteral("\" is not a Strong's number. Type H or G and the number, such as H430 or G26."),
                         vb::vbExclamation);
        return;
    }
    // The open translation when its text carries the numbers, else the first installed one that does.
    const clsBible *store = &m_bible;
    QString other;
    if (!StrongConcordance::CarriesNumbers(m_bible)) {
        const QString folder = numberedTranslation();
        if (folder.isEmpty()) {
            platform::MsgBox(QStringLiteral("None of the installed translations carries Strong's numbers."), vb::vbExclamation);
            return;
        }
        store = m_numbered.get();
        other = TranslationList::ReadHeader(programFile(folder)).name;
    }
    runSearch(*store, [&](::QuickSearch &search) {
        return StrongConcordance::Run(search, *store, number, ProgramSettings::instance().searchLimit, other);
    });
}

QString frmMain::numberedTranslation()
{
    const QString folder = StrongConcordance::TaggedTranslation(ProgramSettings::instance().programFolder(), m_translationFolder);
    if (folder.isEmpty())
        return folder;
    m_numbered = std::make_unique<clsBible>();
    m_numbered->setVersionPath(programFile(folder));
    m_numbered->setSeparator(m_bible.Separator());
    return folder;
}

void frmMain::mnuReferencesConcordance_Click()
{
    const QString number = platform::InputBox(QStringLiteral("Enter a Strong's number, such as H430 or G26:"),
                                              QStringLiteral("Strong's Concordance"), m_lastConcordance, this);
    if (basStrings::TrimBlanks(number).isEmpty())
        return;
    m_lastConcordance = number;
    StrongConcordance(number);
}

void frmMain::runSearch(const clsBible &store, const std::function<::QuickSearch::Result(::QuickSearch &)> &scan)
{
    // The search lets the window repaint between books; a second start meanwhile is ignored.
    if (m_searching)
        return;
    m_searching = true;
    SSTab1->setCurrentIndex(0);
    std::optional<platform::BusyCursor> busy(std::in_place);
    lbltitle->setText(QString());
    txtQuery->setFocus();
    rtfPassage->setText(QString());
    picProgress->setMaximum(std::max(1, store.BooksCount()));
    picProgress->setValue(0);
    picProgress->setVisible(true);

    ::QuickSearch search;
    search.onTitle = [this](const QString &title) { lbltitle->setText(title); };
    search.onProgress = [this](int value, int) {
        picProgress->setValue(value);
        platform::YieldToEvents();
    };
    const ::QuickSearch::Result result = scan(search);
    lbltitle->setText(result.title);
    // The results go in as one text with the caret left at the top: a caret after tens of
    // thousands of results would have the view lay out every one of them before showing any.
    if (result.outcome != ::QuickSearch::Outcome::Failed && result.outcome != ::QuickSearch::Outcome::TooMany)
        rtfPassage->setText(SearchHit::ListedAll(result.hits));

    // The normal pointer is back before a failure is told.
    busy.reset();
    picProgress->setVisible(false);
    m_searching = false;
    if (!result.failureMessage.isEmpty())
        platform::MsgBox(result.failureMessage);
}

platform::RichTextBox *frmMain::targetView() const
{
    // The view of the tab on show, by its caption.
    const QString caption = tabCaption(SSTab1->currentIndex());
    if (caption == kCommentaryCaption)
        return rtfTVC;
    if (caption == kNotesCaption)
        return rtfNotes;
    return rtfPassage;
}

void frmMain::mnuEditFind_Click()
{
    // One dialog, beside the window, for as many presses of Find as the reader wants.
    m_find.open([this] {
        auto *find = new frmFind([this] { return targetView(); }, this);
        find->setAttribute(Qt::WA_DeleteOnClose);
        return find;
    });
}

void frmMain::mnuFileExportNotepad_Click()
{
    // 1-2. The passage's text goes to "export.txt" in the program folder.
    const QString path = PassageFiles::ExportPath(ProgramSettings::instance().programFolder());
    const QString failure = PassageFiles::Write(path, rtfPassage->Text());
    if (!failure.isEmpty()) {
        platform::MsgBox(QStringLiteral("The passage could not be exported to ") + path + QStringLiteral(":\r\n") + failure,
                         vb::vbCritical);
        return;
    }
    // 3. It opens in the desktop's text editor, and the program goes on at once.
    openOnDesktop(path, QStringLiteral("The exported passage could not be opened: "));
}

void frmMain::mnuFileSave_Click()
{
    // 1. The save dialog. It does not ask before replacing a file itself: the name it gives may
    // still get its type's ending, and the question must be about the file that is written.
    clsCommonOpenDialog dialog;
    dialog.setFilter(PassageFiles::SaveFilter());
    dialog.setFilterIndex(1);
    dialog.setDialogtitle(QStringLiteral("Filename to save to?"));
    dialog.setOverWritePrompt(false);
    dialog.setPathMustExist(true);
    // 2. Cancel stops here.
    if (!dialog.ShowSave(this))
        return;
    // 3-4. Rich text for the second type, plain text otherwise; the ending added when missing.
    const bool rich = PassageFiles::SavesRichText(dialog.FilterIndex());
    // Names match case-blind when written, so the question names the file as it is on disk.
    const QString path = platform::ResolvePath(PassageFiles::SaveName(dialog.filename(), dialog.FilterIndex()));
    // Asked as the dialog would have asked, under its title.
    if (platform::FileExists(path) &&
        platform::MsgBox(QDir::toNativeSeparators(path) + QStringLiteral(" already exists.\r\nDo you want to replace it?"),
                         vb::vbYesNo | vb::vbExclamation | vb::vbDefaultButton2, dialog.Dialogtitle()) != vb::vbYes)
        return;
    // 5. One piece of text and a line break.
    const QString failure = PassageFiles::Write(path, rich ? rtfPassage->TextRTF() : rtfPassage->Text());
    if (!failure.isEmpty())
        platform::MsgBox(QStringLiteral("The passage could not be saved to ") + path + QStringLiteral(":\r\n") + failure,
                         vb::vbCritical);
}

void frmMain::mnuFilePrint_Click()
{
    // The view on show, under the title of what it shows.
    frmPrint dialog(targetView()->document(), lbltitle->text(), this);
    dialog.exec();
}

void frmMain::mnuFileExit_Click()
{
    // Closing saves the session, as closing the window does.
    close();
}

void frmMain::mnuHelpContents_Click()
{
    // The help file when there is one, else the manual that comes with the program.
    using DataFiles::File;
    openOnDesktop(DataFiles::Exists(File::Help) ? DataFiles::Path(File::Help) : DataFiles::Path(File::Manual),
                  QStringLiteral("The help could not be opened: "));
}

void frmMain::mnuHelpWebSite_Click()
{
    openOnDesktop(WebSite, QStringLiteral("The web site could not be opened: "));
}

void frmMain::mnuHelpMailingList_Click()
{
    const int answer = platform::MsgBox(
        QStringLiteral("The mailinglist is designed to provide updates regarding software releases and updates to our product line.") +
            QStringLiteral("\r\n") + QStringLiteral("Please visit our site and use the subscription form on there") +
            QStringLiteral("\r\n\r\n") +
            QStringLiteral("Click yes to visit our site to subscribe (you need to be connected to the internet to do this)?"),
        vb::vbQuestion | vb::vbYesNo | vb::vbMsgBoxSetForeground, QStringLiteral("Mailing List"));
    if (answer == vb::vbYes)
        mnuHelpWebSite_Click();
}

void frmMain::mnuEditSelectAll_Click()
{
    platform::RichTextBox *view = targetView();
    view->setSelStart(0);
    view->setSelLength(int(view->Text().size()));
}

void frmMain::mnuEditCopy_Click()
{
    const QString selected = targetView()->SelText();
    if (selected.isEmpty())
        return;
    QGuiApplication::clipboard()->clear();
    QGuiApplication::clipboard()->setText(selected);
}

void frmMain::mnuEditCopyPassage_Click()
{
    const QString text = rtfPassage->Text();
    if (text.isEmpty())
        return;
    QGuiApplication::clipboard()->clear();
    // The last two characters are the final line break.
    QGuiApplication::clipboard()->setText(text.left(std::max<qsizetype>(0, text.size() - 2)));
}

void frmMain::mnuEditCopyBookName_Click()
{
    if (const QListWidgetItem *book = lstBooks->currentItem()) {
        QGuiApplication::clipboard()->clear();
        QGuiApplication::clipboard()->setText(book->text());
    }
}

void frmMain::LoadBookmarks()
{
    // 1. Every bookmark entry goes; entry 0 is never a bookmark.
    for (qsizetype i = 1; i < mnuBookmarksBookmarks.size(); ++i)
        delete mnuBookmarksBookmarks.at(i);
    mnuBookmarksBookmarks.resize(1);
    // 2.-4. The file, repaired when missing, gives the entries and the shared reference list.
    m_bookmarks.Load();
    const QStringList &names = m_bookmarks.Names();
    QList<QAction *> entries;
    entries.reserve(names.size());
    for (qsizetype i = 0; i < names.size(); ++i) {
        // An "&" in a name is shown as it is, not taken for a mnemonic.
        auto *entry = new QAction(QString(names.at(i)).replace(u'&', QStringLiteral("&&")), mnuBookmarks);
        entry->setObjectName(QStringLiteral("mnuBookmarksBookmarks%1").arg(i + 1));
        connect(entry, &QAction::triggered, this, [this, index = int(i) + 1] { mnuBookmarksBookmarks_Click(index); });
        entries.append(entry);
    }
    // Added in one go, so that thousands of bookmarks do not lay the menu out thousands of times.
    mnuBookmarks->addActions(entries);
    mnuBookmarksBookmarks.append(entries);
}

void frmMain::mnuBookmarksBookmarks_Click(int index)
{
    if (!askToKeepNotes())
        return;
    // The reference list may have lost items since the menu was built (Remove, then Cancel).
    const Passage fetched = m_bible.MoveTo(m_bookmarks.Reference(index));
    showFetched(fetched, QStringLiteral("Bookmark: ") + fetched.Standard() + QStringLiteral(" -- ") + m_bookmarks.Names().value(index - 1));
}

void frmMain::mnuBookmarksAdd_Click()
{
    frmAddBookmark dialog(lbltitle->text(), [this] { LoadBookmarks(); }, this);
    dialog.exec();
}

void frmMain::mnuBookmarksOrganize_Click()
{
    frmOrganizeBookmarks dialog(m_bookmarks.Names(), m_bookmarks.References(), m_bible, [this] { LoadBookmarks(); }, this);
    dialog.exec();
}

void frmMain::mnuEditOptions_Click()
{
    frmOptions options(TranslationList::List(ProgramSettings::instance().programFolder()), m_translationFolder, this);
    connect(&options, &frmOptions::loadTranslationRequested, this, &frmMain::translationChosen);
    // The new look shows at once, without a restart.
    connect(&options, &frmOptions::settingsSaved, this, &frmMain::InitiateSession);
    options.exec();
}

void frmMain::mnuReferencesUnits_Click()
{
    if (basStrings::FileExists(m_unitsPath)) {
        SSTab1->setCurrentIndex(0);
        rtfPassage->LoadFile(m_unitsPath);
        rtfPassage->setSelStart(0);
        return;
    }
    DataFiles::ReportMissing(m_unitsPath);
}

void frmMain::mnuToolsSearch_Click()
{
    m_search.open([this] { return new frmSearch(*this, this); });
}

void frmMain::mnuReferencesMiracles_Click()
{
    openGospelParallels(frmParables::MiraclesTag, DataFiles::File::Miracles);
}

void frmMain::mnuReferencesParables_Click()
{
    openGospelParallels(frmParables::ParablesTag, DataFiles::File::Parables);
}

void frmMain::openGospelParallels(const QString &tag, DataFiles::File file)
{
    // One window for each list: a list already open is brought forward instead.
    frmParables *window = frmParables::FindOpen(tag);
    if (!window) {
        window = new frmParables(*this, this);
        window->SetDataFile(DataFiles::Path(file));
        window->SetTag(tag);
    }
    BringToolWindowForward(window);
}

void frmMain::mnuReferencesProphecies_Click()
{
    m_prophecies.open([this] { return new frmProphecies(*this, this); });
}

void frmMain::mnuReferencesVerseOfDay_Click()
{
    openVerseOfDay(ProgramSettings::instance().Ini().Data(QStringLiteral("verseofday"), QStringLiteral("show")));
}

void frmMain::openVerseOfDay(int show)
{
    // A window already open shows its verse again, from the translation now open.
    const bool open = m_verseOfDay.window();
    frmVerseOfDay *window = m_verseOfDay.open([this, show] { return new frmVerseOfDay(*this, show, this); });
    if (open && window)
        window->ShowVerse();
}

void frmMain::mnuHelpAbout_Click()
{
    frmAbout about(DataFiles::Path(DataFiles::File::Credits), this);
    about.exec();
}

void frmMain::LoadSession()
{
    m_placement->restore();
    placeHeader();
}

void frmMain::SaveSession()
{
    m_placement->save();
}

void frmMain::placeHeader()
{
    const QList<int> sizes = splitter->sizes();
    const int handle = splitter->handleWidth();
    const int lists = sizes.value(0) + handle + sizes.value(1);
    const int h = m_header->height();
    cmbTestaments->setGeometry(0, 0, lists, h);
    lbltitle->setGeometry(lists + handle, 0, std::max(0, m_header->width() - lists - handle), h);
}

void frmMain::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    QTimer::singleShot(0, this, &frmMain::placeHeader);
}

void frmMain::closeEvent(QCloseEvent *event)
{
    if (!askToKeepNotes()) {
        event->ignore();
        return;
    }
    SaveSession();
    event->accept();
}

bool frmMain::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == rtfPassage->viewport() && event->type() == QEvent::MouseButtonRelease) {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() == Qt::RightButton) {
            rtfPassage_RightClick(mouse->position().toPoint(), mouse->globalPosition().toPoint());
            return true;
        }
    }
    // The reference and keyword boxes select their whole text on focus, so typing replaces it.
    if (event->type() == QEvent::FocusIn) {
        if (auto *edit = qobject_cast<QLineEdit *>(watched))
            QTimer::singleShot(0, edit, &QLineEdit::selectAll);
    }
    return QMainWindow::eventFilter(watched, event);
}

QString frmMain::tabCaption(int index) const
{
    return index >= 0 && index < SSTab1->count() ? SSTab1->tabText(index) : QString();
}

void frmMain::SSTab1_Click(int previousTab)
{
    // 1. Leaving a tab: its title goes back, and unsaved notes are saved if the user wants them.
    const QString left = tabCaption(previousTab);
    if (left == kNotesCaption) {
        lbltitle->setText(m_savedTitle);
        if (!m_notesSaved &&
            platform::MsgBox(kUnsavedNotesPrompt, vb::vbYesNo | vb::vbExclamation) == vb::vbYes) {
            cmdSaveNotes_Click();
            if (!m_notesSaved) {
                // The notes could not be written: back to them, as they are, so nothing is lost.
                m_keepUnsavedNotes = true;
                QTimer::singleShot(0, this, [this, previousTab] { SSTab1->setCurrentIndex(previousTab); });
            }
        }
    } else if (left == kCommentaryCaption) {
        lbltitle->setText(m_savedTitle);
    }

    // 2. Entering a tab.
    const QString entered = tabCaption(SSTab1->currentIndex());
    if (entered == kCommentaryCaption)
        enterCommentary(true);
    else if (entered == kNotesCaption)
        enterNotes(true);
    else
        rtfPassage->setFocus();
}

void frmMain::enterCommentary(bool focus)
{
    // The tab strip repaints before the commentary's book file is read.
    if (!m_commentary)
        m_commentary = std::make_unique<CommentaryStore>(ProgramSettings::instance().programFolder());
    platform::YieldToEvents();
    if (m_commentary->Changed(m_onDisplay))
        rtfTVC->setText(m_commentary->ViewText(m_bible, m_onDisplay));
    m_savedTitle = lbltitle->text();
    lbltitle->setText(QStringLiteral("Commentary For: ") + m_commentary->Standard());
    if (focus)
        rtfTVC->setFocus();
}

void frmMain::enterNotes(bool focus)
{
    platform::YieldToEvents();
    if (m_keepUnsavedNotes) {
        m_keepUnsavedNotes = false;
    } else {
        // The notes view now belongs to the chapter on display, whatever is fetched meanwhile.
        m_notesChapter = m_onDisplay;
        const NotesStore notes(ProgramSettings::instance().programFolder());
        rtfNotes->setTextRTF(m_notesChapter.found() ? notes.Read(m_notesChapter.testament, m_notesChapter.book,
                                                                 m_notesChapter.chapterFrom)
                                                    : QString());
        m_notesSaved = true;
    }
    m_savedTitle = lbltitle->text();
    lbltitle->setText(QStringLiteral("Notes For: ") + m_notesChapter.book + u' ' +
                      QString::number(m_notesChapter.chapterFrom));
    if (focus)
        rtfNotes->setFocus();
    frmNotesCommands->raise();
}

void frmMain::cmdSaveNotes_Click()
{
    const Passage &chapter = m_notesChapter;
    if (!chapter.found() || chapter.chapterFrom < 1) {
        platform::MsgBox(QStringLiteral("There is no chapter on display to keep notes for."), vb::vbExclamation);
        return;
    }
    const NotesStore notes(ProgramSettings::instance().programFolder());
    const QString failure = notes.Write(chapter.testament, chapter.book, chapter.chapterFrom, rtfNotes->TextRTF());
    if (!failure.isEmpty()) {
        platform::MsgBox(QStringLiteral("Your notes could not be saved to '") +
                             QDir::toNativeSeparators(notes.BookPath(chapter.testament, chapter.book)) +
                             QStringLiteral(".dat'.\r\n") + failure +
                             QStringLiteral("\r\nThe file was left as it was, and your notes are still on screen."),
                         vb::vbExclamation);
        return;
    }
    m_notesSaved = true;
}

bool frmMain::askToKeepNotes()
{
    if (tabCaption(SSTab1->currentIndex()) != kNotesCaption || m_notesSaved)
        return true;
    if (platform::MsgBox(kUnsavedNotesPrompt, vb::vbYesNo | vb::vbExclamation) != vb::vbYes) {
        // Dropped: the notes are read again for the chapter that comes next.
        m_notesSaved = true;
        return true;
    }
    cmdSaveNotes_Click();
    return m_notesSaved;
}

void frmMain::refreshStudyTab()
{
    const QString shown = tabCaption(SSTab1->currentIndex());
    if (shown == kNotesCaption)
        enterNotes(false);
    else if (shown == kCommentaryCaption)
        enterCommentary(false);
}

void frmMain::toggleNotesFormat(bool (platform::RichTextBox::*get)() const, void (platform::RichTextBox::*set)(bool))
{
    // A selection that is only partly formatted reads as not formatted, and becomes formatted.
    (rtfNotes->*set)(!(rtfNotes->*get)());
    rtfNotes->setFocus();
}

void frmMain::cmdBold_Click()
{
    toggleNotesFormat(&platform::RichTextBox::SelBold, &platform::RichTextBox::setSelBold);
}

void frmMain::cmdItalic_Click()
{
    toggleNotesFormat(&platform::RichTextBox::SelItalic, &platform::RichTextBox::setSelItalic);
}

void frmMain::cmdUnderline_Click()
{
    toggleNotesFormat(&platform::RichTextBox::SelUnderline, &platform::RichTextBox::setSelUnderline);
}

void frmMain::cmdStrikeThru_Click()
{
    toggleNotesFormat(&platform::RichTextBox::SelStrikeThru, &platform::RichTextBox::setSelStrikeThru);
}

void frmMain::cmdColor_Click()
{
    // The dialog opens on the selection's colour, or on the notes' own colour when it mixes.
    const QColor current = rtfNotes->SelColor();
    m_noteColors.setColor(platform::QColorToWindowsColor(current.isValid() ? current : rtfNotes->palette().text().color()));
    m_noteColors.setRGBInit(true);
    if (m_noteColors.Show(this))
        rtfNotes->setSelColor(platform::WindowsColorToQColor(m_noteColors.Color()));
    rtfNotes->setFocus();
}

void frmMain::rtfPassage_RightClick(const QPoint &at, const QPoint &global)
{
    // 1. A selection is the word, when the click is on it; a click elsewhere means the word there,
    // or a word selected by the last look-up would be taken again and again.
    const int clicked = rtfPassage->textPosition(rtfPassage->cursorForPosition(at).position());
    const bool onSelection = clicked >= rtfPassage->SelStart() && clicked <= rtfPassage->SelStart() + rtfPassage->SelLength();
    if (onSelection && !basStrings::TrimBlanks(rtfPassage->SelText()).isEmpty()) {
        m_lookupWord = rtfPassage->SelText();
    } else {
        // 2. Else the run of word characters around the character clicked: forward with the
        // view's span, backward a character at a time.
        const QSignalBlocker still(rtfPassage);
        rtfPassage->setSelStart(clicked);
        rtfPassage->Span(kWordCharacters, true, false);
        const QString text = rtfPassage->Text();
        int start = rtfPassage->SelStart();
        int length = rtfPassage->SelLength();
        while (start > 0 && start <= text.size() && kWordCharacters.contains(text.at(start - 1))) {
            --start;
            ++length;
        }
        rtfPassage->setSelStart(start);
        rtfPassage->setSelLength(length);
        m_lookupWord = rtfPassage->SelText();
    }
    // 3. The caption shows a long word by its two ends.
    const QString shown = m_lookupWord.size() > 40 ? m_lookupWord.left(20) + QStringLiteral("...") + m_lookupWord.right(20)
                                                   : m_lookupWord;
    mnuRightclickWord->setText(u'<' + QString(shown).replace(u'&', QStringLiteral("&&")) + u'>');
    // 4. The menu at the mouse.
    mnuRightClick->popup(global);
}

void frmMain::mnuRightclickCopy_Click()
{
    if (rtfPassage->SelLength() > 0) {
        CSendMessage(rtfPassage).Copy();
        return;
    }
    QGuiApplication::clipboard()->clear();
    QGuiApplication::clipboard()->setText(m_lookupWord);
}

void frmMain::mnuRightclickSearch_Click()
{
    QuickSearch(basStrings::TrimBlanks(m_lookupWord).toString());
}

void frmMain::mnuRightclickDicionary_Click()
{
    openDictionary(basStrings::TrimBlanks(m_lookupWord).toString());
}

void frmMain::mnuRichtclickBiblenames_Click()
{
    openBibleNames(basStrings::TrimBlanks(m_lookupWord).toString());
}

void frmMain::mnuRightclickStrongLexicon_Click()
{
    openStrongLexicon(m_lookupWord);
}

void frmMain::mnuRightClickLookupReference_Click()
{
    GoToReference(m_lookupWord);
}

void frmMain::openDictionary(const QString &word)
{
    frmDictionary *window = m_dictionary.open([this] { return new frmDictionary(*this, this); });
    if (window && !word.isEmpty())
        window->FindWord(word);
}

void frmMain::openBibleNames(const QString &word)
{
    frmBibleNames *window = m_bibleNames.open([this] { return new frmBibleNames(*this, this); });
    if (window && !word.isEmpty())
        window->FindWord(word);
}

void frmMain::openStrongLexicon(const QString &number)
{
    frmStrongLexicon *window = m_strongLexicon.open([this] { return new frmStrongLexicon(*this, this); });
    if (window && !number.isEmpty())
        window->ShowNumber(number);
}
