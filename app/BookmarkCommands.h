#pragma once

#include "bookmarks/Bookmarks.h"

#include <QString>

class MainMenus;
class QWidget;
class clsBible;

// The Bookmarks menu kept in step with "bookmarks.dat": its entries, and the dialogs that add a
// bookmark and organise them, each rebuilding the entries once it has saved the file.
class BookmarkCommands
{
public:
    BookmarkCommands(MainMenus &menus, const clsBible &bible, QWidget *window);

    // Rebuilds the menu's entries and the shared reference list from the file, repaired when it is
    // missing.
    void Load();
    // The Add dialog, offering the passage title on show.
    void Add(const QString &shownTitle);
    void Organize();

    // A bookmark's reference and name, counted from 1 as the menu counts them.
    QString Reference(int index) const { return m_bookmarks.Reference(index); }
    QString Name(int index) const { return m_bookmarks.Names().value(index - 1); }

private:
    MainMenus &m_menus;
    const clsBible &m_bible;
    QWidget *m_window;
    Bookmarks m_bookmarks;
};
