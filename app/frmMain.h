#pragma once

#include "library/MainWindowLink.h"
#include "scripture/PlaceHistory.h"
#include "scripture/QuickSearch.h"
#include "scripture/clsBible.h"

#include <QMainWindow>

#include <functional>
#include <memory>

class BookmarkCommands;
class HistoryNavigator;
class MainMenus;
class NavigatorPane;
class QSplitter;
class StudyTabs;
class ToolWindows;
class WindowPlacement;

// The main reading window, a shell of panes: the navigator (testament, book and chapter lists,
// the reference and keyword boxes, the title), the study tabs (passage, notes, commentary) and
// the menus' commands. It holds the store of the open translation and is the one window that
// moves it: a request goes fetch -> show -> mark in the lists, from the value the store returns.
class frmMain : public QMainWindow, public MainWindowLink
{
    Q_OBJECT

public:
    explicit frmMain(QWidget *parent = nullptr);
    ~frmMain() override;

    const clsBible &Bible() const override { return m_bible; }
    void GoToReference(const QString &reference) override;
    void ShowPassage(const QString &rtf, const QString &title) override;
    void ShowConcordance(const QString &number) override;
    void MarkInPassage(const PassageMarks &find) override;

    // Points the window at a translation folder of the program folder (its name, e.g. "KJV") and
    // fills everything from it. False when the user kept the window on the chapter shown
    // (unsaved notes that could not be saved).
    bool LoadTranslation(const QString &folder);
    HistoryNavigator &History() const { return *m_history; }
    // After a translation has been loaded: the verse of the day, when the user wants it then.
    void ShowVerseOfDayAfterLoad();
    // Puts text into the keyword box and searches for it, as the keyword search does.
    void SearchFor(const QString &text);
    // Rebuilds the Bookmarks menu's entries and the shared reference list from "bookmarks.dat".
    void LoadBookmarks();
    // Reads "general.cfg" and "display.cfg", then applies them.
    void LoadSettingsFiles();
    // Puts the look and the general options in place and shows the first chapter of the Bible.
    void InitiateSession();
    void LoadSession();
    void SaveSession();

signals:
    // The user chose another translation from the menu or the options.
    void translationChosen(const QString &folder);

private slots:
    void lstChapters_Click(const QString &book, int chapter);
    void cmdGet_Click();
    void cmdSearch_Click();
    void askForConcordance();
    void showBookmark(int index);
    void editOptions();
    void showUnitsTable();

protected:
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // Opens another translation on the way to a place in it (a parallel reference, Back); true
    // when it is open.
    bool switchTranslationFor(const QString &folder);
    void connectCommands();
    bool openTranslation(const QString &folder);
    // Every passage the window fetched itself is shown here, and so becomes a step of the history.
    void showChapter(const Passage &fetched, const QString &title);
    // Back or forward to a place of the history: its translation, then its passage.
    bool goToPlace(const Place &place);
    void checkDataFiles();
    void placeHeader();
    // Runs a search of the quick search's kind and shows its results as the quick search does.
    void runSearch(const clsBible &store,
                   const std::function<::QuickSearch::Result(::QuickSearch &)> &scan);

    clsBible m_bible;
    // The translation the concordance searches when the open one carries no numbers.
    std::unique_ptr<clsBible> m_numbered;
    QString m_lastConcordance;
    QString m_lookupWord;
    QString m_translationFolder;
    QString m_unitsPath;
    bool m_searching = false;
    bool m_switchingForPlace = false;
    NavigatorPane *m_navigator = nullptr;
    StudyTabs *m_study = nullptr;
    MainMenus *m_menus = nullptr;
    std::unique_ptr<ToolWindows> m_tools;
    std::unique_ptr<BookmarkCommands> m_marks;
    QSplitter *splitter = nullptr;
    WindowPlacement *m_placement = nullptr;
    HistoryNavigator *m_history = nullptr;
};
