#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

class QAction;
class QMainWindow;
class QMenu;
struct InstalledTranslation;

// The main window's commands, each one QAction made once with its caption, shortcut and object
// name, shared by the menu bar, the buttons that do the same and the passage's right-click menu.
// The main window connects each to what it does.
class MainMenus : public QObject
{
    Q_OBJECT

public:
    explicit MainMenus(QMainWindow *window);

    // Bookmark entries, from 1: rebuilt whole from the names, "&" shown as it is.
    void setBookmarks(const QStringList &names);
    void setTranslations(const QList<InstalledTranslation> &translations, const QString &open);
    // The look-ups whose data files are there.
    void offer(bool strong, bool dictionary);
    // The right-click menu at a point of the screen, captioned by the word it acts on.
    void popUp(const QString &word, const QPoint &global);

    QAction *mnuFileExportNotepad, *mnuFileSave, *mnuFilePrint, *mnuFileExit;
    QAction *mnuEditSelectAll, *mnuEditCopy, *mnuEditCopyPassage, *mnuEditCopyBookName,
        *mnuEditFind, *mnuEditOptions;
    QAction *mnuBookmarksAdd, *mnuBookmarksOrganize;
    QAction *mnuReferencesDictionary, *mnuReferencesStrong, *mnuReferencesConcordance,
        *mnuReferencesNames, *mnuReferencesTopics, *mnuReferencesStories, *mnuReferencesParables,
        *mnuReferencesMiracles, *mnuReferencesProphecies, *mnuReferencesUnits,
        *mnuReferencesVerseOfDay;
    QAction *mnuToolsSearch;
    QAction *mnuHelpContents, *mnuHelpWebSite, *mnuHelpMailingList, *mnuHelpAbout;
    QAction *mnuRightclickCopy, *mnuRightclickSearch, *mnuRightclickDictionary,
        *mnuRichtclickBiblenames, *mnuRightclickStrongLexicon, *mnuRightClickLookupReference;

signals:
    void bookmarkChosen(int index);
    void translationChosen(const QString &folder);

private:
    QMenu *mnuBookmarks = nullptr;
    QMenu *mnuTranslations = nullptr;
    QMenu *mnuRightClick = nullptr;
    QAction *mnuRightclickWord = nullptr;
    // The bookmark entries, in order.
    QList<QAction *> m_bookmarkEntries;
};
