#include "app/BookmarkCommands.h"

#include "app/MainMenus.h"
#include "bookmarks/frmAddBookmark.h"
#include "bookmarks/frmOrganizeBookmarks.h"

BookmarkCommands::BookmarkCommands(MainMenus &menus, const clsBible &bible, QWidget *window)
    : m_menus(menus), m_bible(bible), m_window(window)
{
}

void BookmarkCommands::Load()
{
    m_bookmarks.Load();
    m_menus.setBookmarks(m_bookmarks.Names());
}

void BookmarkCommands::Add(const QString &shownTitle)
{
    frmAddBookmark dialog(
        shownTitle, [this] { Load(); }, m_window);
    dialog.exec();
}

void BookmarkCommands::Organize()
{
    frmOrganizeBookmarks dialog(
        m_bookmarks.Names(), m_bookmarks.References(), m_bible, [this] { Load(); }, m_window);
    dialog.exec();
}
