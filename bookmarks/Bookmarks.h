#pragma once

#include <QString>
#include <QStringList>

// The bookmarks the main window shows on its Bookmarks menu: their names, which are the menu
// entries' captions, and the shared reference list, in which item k (counted from 1) belongs to
// menu entry k. The main window owns one, loads it at start-up and after every add or save, and
// rebuilds its menu from Names(); the Organize dialog edits References() in place.
class Bookmarks
{
public:
    // The bookmarks of a program folder; without one, of the program's folder at each load.
    explicit Bookmarks(const QString &programFolder = QString());

    // Empties both lists and fills them again from "bookmarks.dat" (a missing file is reported
    // and created empty). Lines of the file that are not bookmarks are reported, once: a later
    // load that finds the same lines again does not tell the user again.
    void Load();

    // The menu entries' captions, in order: entry k (from 1) is Names().at(k - 1).
    const QStringList &Names() const { return m_names; }
    int Count() const { return int(m_names.size()); }

    // The shared reference list: item k (from 1) is References().at(k - 1).
    QStringList &References() { return m_references; }
    const QStringList &References() const { return m_references; }
    // Item k of the reference list, counted from 1. Empty past the end of the list, where a
    // Remove then Cancel in the Organize dialog leaves the last menu entry until the next load.
    QString Reference(int k) const;

    // The lines of the file that the last load could not read; they stay in the file.
    const QStringList &UnreadableLines() const { return m_unreadable; }

    QString ProgramFolder() const;
    QString FilePath() const;

    // The message that tells how many lines could not be read and that they are kept.
    static QString UnreadableMessage(const QList<int> &lineNumbers);

private:
    QString m_folder;
    QStringList m_names;
    QStringList m_references;
    QStringList m_unreadable;
    QStringList m_reported;
};
