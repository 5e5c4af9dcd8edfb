#pragma once

#include "bookmarks/Bookmarks.h"
#include "library/DataFiles.h"
#include "library/MainWindowLink.h"
#include "library/ToolWindowSlot.h"
#include "platform/clsCommonColorDialog.h"
#include "scripture/CommentaryStore.h"
#include "scripture/QuickSearch.h"
#include "scripture/clsBible.h"

#include <QMainWindow>
#include <QStringList>

#include <functional>
#include <memory>

class QAction;
class QCheckBox;
class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QListWidget;
class QMenu;
class QProgressBar;
class QPushButton;
class QSplitter;
class QTabWidget;
class QWidget;
class WindowPlacement;
class frmBibleNames;
class frmDictionary;
class frmProphecies;
class frmSearch;
class frmFind;
class frmVerseOfDay;
class frmStrongLexicon;
class frmStories;
class frmTopics;
namespace platform {
class RichTextBox;
}

// The main reading window: testament, book and chapter lists on the left, the passage, the notes
// and the commentary under their title on the right, and the reference and keyword boxes along
// the bottom. It binds the controls to the Bible text store, the notes and commentary stores and
// the quick search; the logic lives in those. Controls carry the object names the program has
// always used, so tests and other windows find them by name.
class frmMain : public QMainWindow, public MainWindowLink
{
    Q_OBJECT

public:
    // The program's web site, opened from the Help menu.
    static inline const QString WebSite = QStringLiteral("https://quillstone.example.org/");

    explicit frmMain(QWidget *parent = nullptr);
    ~frmMain() override;

    // The store of the open translation.
    const clsBible &Bible() const override { return m_bible; }

    // Points the window at a translation folder of the program folder (its name, e.g. "KJV") and
    // fills everything from it.
    // False when the user kept the window on the chapter shown (unsaved notes that could not be
    // saved).
    bool LoadTranslation(const QString &folder);
    // After a translation has been loaded: the verse of the day, when the user wants it then.
    void ShowVerseOfDayAfterLoad();

    // Puts text into the keyword box and searches for it (used by the passage's word look-ups).
    void QuickSearch(const QString &text);

    // Fills the passage view with a whole rich-text document and the title label.
    void ShowPassage(const QString &rtf, const QString &title) override;
    // Puts a reference into the reference box and fetches it, as "Get it" does.
    void GoToReference(const QString &reference) override;
    // Lists the verses that carry a Strong's number ("H430", typed in any case, zeros forgiven).
    void StrongConcordance(const QString &number) override;

    // Rebuilds the Bookmarks menu's entries and the shared reference list from "bookmarks.dat".
    void LoadBookmarks();

    // Reads "general.cfg" and "display.cfg", then applies them.
    void LoadSettingsFiles();
    // Puts the look and the general options in place and shows the first chapter of the Bible.
    void InitiateSession();
    void LoadSession();
    void SaveSession();

    // Paths of optional data files, kept at load for the features that open them.
    QString NamesPath() const { return m_namesPath; }
    QString ProphecyPath() const { return m_prophecyPath; }
    QString UnitsPath() const { return m_unitsPath; }
    bool HasCommentary() const { return m_hasCommentary; }

signals:
    // The user chose another translation from the menu.
    void translationChosen(const QString &folder);

public slots:
    void cmbTestaments_Click();
    void lstBooks_Click();
    void lstChapters_Click();
    void cmdGet_Click();
    void cmdSearch_Click();
    void SSTab1_Click(int previousTab);
    void cmdSaveNotes_Click();
    void cmdBold_Click();
    void cmdItalic_Click();
    void cmdUnderline_Click();
    void cmdStrikeThru_Click();
    void cmdColor_Click();
    void mnuEditSelectAll_Click();
    void mnuEditCopy_Click();
    void mnuEditCopyPassage_Click();
    void mnuEditCopyBookName_Click();
    void mnuEditOptions_Click();
    void mnuBookmarksAdd_Click();
    void mnuBookmarksOrganize_Click();
    void mnuBookmarksBookmarks_Click(int index);
    void mnuReferencesConcordance_Click();
    void mnuRightclickCopy_Click();
    void mnuRightclickSearch_Click();
    void mnuRightclickDicionary_Click();
    void mnuRichtclickBiblenames_Click();
    void mnuRightclickStrongLexicon_Click();
    void mnuRightClickLookupReference_Click();
    void mnuReferencesUnits_Click();
    void mnuToolsSearch_Click();
    void mnuEditFind_Click();
    void mnuFileExportNotepad_Click();
    void mnuFileSave_Click();
    void mnuFilePrint_Click();
    void mnuFileExit_Click();
    void mnuHelpContents_Click();
    void mnuHelpWebSite_Click();
    void mnuHelpMailingList_Click();
    void mnuReferencesMiracles_Click();
    void mnuReferencesParables_Click();
    void mnuReferencesProphecies_Click();
    void mnuReferencesVerseOfDay_Click();
    void mnuHelpAbout_Click();

protected:
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildControls();
    QWidget *buildNotesTab();
    void buildMenus();
    void buildTranslationsMenu();
    void checkDataFiles();
    void placeHeader();
    platform::RichTextBox *targetView() const;
    // Runs a search of the quick search's kind and shows its results as the quick search does.
    void runSearch(const clsBible &store, const std::function<::QuickSearch::Result(::QuickSearch &)> &scan);
    // The first installed translation other than the open one whose text carries Strong's
    // numbers, opened in m_numbered; empty when there is none.
    QString numberedTranslation();
    // A right click in the passage: the word under the mouse (or the selection) and the menu.
    void rtfPassage_RightClick(const QPoint &at, const QPoint &global);
    // The reference windows, each opened once and brought forward after; the word, when given,
    // is looked up at once.
    void openDictionary(const QString &word = QString());
    void openBibleNames(const QString &word = QString());
    void openStrongLexicon(const QString &number = QString());
    // The parables or the miracles window (by its tag), reading its data file when first opened.
    void openGospelParallels(const QString &tag, DataFiles::File file);
    // The verse of the day, its check box set from the saved "show".
    void openVerseOfDay(int show);

    QString tabCaption(int index) const;
    void enterNotes(bool focus);
    void enterCommentary(bool focus);
    // Before the chapter on display changes: unsaved notes are saved or dropped, as the user says.
    // False when they were to be saved and could not be: the change must not happen.
    bool askToKeepNotes();
    void toggleNotesFormat(bool (platform::RichTextBox::*get)() const, void (platform::RichTextBox::*set)(bool));
    // After it changed: a notes or commentary tab on show follows the new chapter.
    void refreshStudyTab();
    // Shows a passage the window fetched itself, under a title; a passage of a known book becomes
    // the chapter on display, which the notes and the commentary follow.
    void showFetched(const Passage &fetched, const QString &title);
    // The lists mark the book and chapter of a passage, without showing the whole chapter.
    void selectInLists(const Passage &passage);

    clsBible m_bible;
    // The chapter on display: the book and first chapter of the last passage this window fetched
    // and showed. Nothing another window fetches moves it.
    Passage m_onDisplay;
    // The chapter whose notes the notes view holds.
    Passage m_notesChapter;
    Bookmarks m_bookmarks;
    std::unique_ptr<clsBible> m_numbered;
    QString m_lastConcordance;
    QString m_lookupWord;
    ToolWindowSlot<frmDictionary> m_dictionary;
    ToolWindowSlot<frmBibleNames> m_bibleNames;
    ToolWindowSlot<frmStrongLexicon> m_strongLexicon;
    ToolWindowSlot<frmTopics> m_topics;
    ToolWindowSlot<frmStories> m_stories;
    ToolWindowSlot<frmProphecies> m_prophecies;
    ToolWindowSlot<frmSearch> m_search;
    ToolWindowSlot<frmFind> m_find;
    ToolWindowSlot<frmVerseOfDay> m_verseOfDay;
    // Opened on the first visit to the commentary, which reads its book maps.
    std::unique_ptr<CommentaryStore> m_commentary;
    QString m_translationFolder;
    QString m_namesPath;
    QString m_prophecyPath;
    QString m_unitsPath;
    bool m_hasCommentary = false;
    bool m_searching = false;
    bool m_notesSaved = false;
    bool m_keepUnsavedNotes = false;
    clsCommonColorDialog m_noteColors;
    QString m_savedTitle;
    int m_shownTab = 0;
    WindowPlacement *m_placement = nullptr;

    QWidget *m_header = nullptr;
    QAction *mnuReferencesStrong = nullptr;
    QAction *mnuReferencesDictionary = nullptr;
    QAction *mnuRightclickStrongLexicon = nullptr;
    QAction *mnuRightclickDictionary = nullptr;
    QMenu *mnuTranslations = nullptr;
    QMenu *mnuBookmarks = nullptr;
    // The bookmark entries, from 1; index 0 is never a bookmark.
    QList<QAction *> mnuBookmarksBookmarks;
    QMenu *mnuRightClick = nullptr;
    QAction *mnuRightclickWord = nullptr;
    QComboBox *cmbTestaments = nullptr;
    QListWidget *lstBooks = nullptr;
    QListWidget *lstChapters = nullptr;
    QLineEdit *txtReference = nullptr;
    QPushButton *cmdGet = nullptr;
    QCheckBox *chkUpdateList = nullptr;
    QLineEdit *txtQuery = nullptr;
    QPushButton *cmdSearch = nullptr;
    QPushButton *cmdAdvanced = nullptr;
    QAction *mnuToolsSearch = nullptr;
    QAction *mnuFilePrint = nullptr;
    QCheckBox *chkWordSearch = nullptr;
    QPushButton *cmdCopy = nullptr;
    QTabWidget *SSTab1 = nullptr;
    platform::RichTextBox *rtfPassage = nullptr;
    platform::RichTextBox *rtfNotes = nullptr;
    platform::RichTextBox *rtfTVC = nullptr;
    QFrame *frmNotesCommands = nullptr;
    QPushButton *cmdSaveNotes = nullptr;
    QLabel *lbltitle = nullptr;
    QProgressBar *picProgress = nullptr;
    QSplitter *splitter = nullptr;
};
