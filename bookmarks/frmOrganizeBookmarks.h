#pragma once

#include "scripture/clsBible.h"

#include <QDialog>
#include <QString>
#include <QStringList>
#include <functional>

class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class WindowPlacement;

// "Organize Bookmarks": renames, re-points and removes bookmarks. The list shows the Bookmarks
// menu's captions; Update and Remove change the list and the shared reference list at once, and
// only Save writes "bookmarks.dat" (then runs the main window's reload). Cancel closes without
// undoing what Update and Remove did to the shared reference list: later menu entries point one
// reference further after a Remove until the next load, as users of the program have always seen.
// The dialog is modal and keeps its place in the section "organizebookmarks" of "window.ini".
class frmOrganizeBookmarks : public QDialog
{
    Q_OBJECT

public:
    // captions: the Bookmarks menu's entries, in order; references: the shared reference list
    // (item k from 1 belongs to entry k), edited in place and so kept alive by the caller;
    // bible: the store of the open translation, for the passage of a bookmark; reload: the main
    // window's LoadBookmarks, run after a save.
    frmOrganizeBookmarks(const QStringList &captions, QStringList &references,
                         const clsBible &bible, std::function<void()> reload,
                         QWidget *parent = nullptr);

private slots:
    void lstBookmarks_Click();
    void cmdUpdate_Click();
    void cmdRemove_Click();
    void cmdSave_Click();
    void cmdCancel_Click();

private:
    // The chosen entry's row; -1 when none is chosen.
    int selectedRow() const;
    // Item k of the reference list, from 1; empty past its end.
    QString referenceItem(int k) const;

    QStringList &m_references;
    // A copy of the translation store, so that showing a bookmark's passage here leaves the
    // passage the main window shows (and where its notes are saved) as it is.
    const clsBible &m_bible;
    std::function<void()> m_reload;
    WindowPlacement *m_placement = nullptr;

    QListWidget *lstBookmarks = nullptr;
    QLineEdit *txtName = nullptr;
    QLineEdit *txtReference = nullptr;
    QPlainTextEdit *txtPassage = nullptr;
    QPushButton *cmdUpdate = nullptr;
    QPushButton *cmdRemove = nullptr;
    QPushButton *cmdSave = nullptr;
    QPushButton *cmdCancel = nullptr;
};
