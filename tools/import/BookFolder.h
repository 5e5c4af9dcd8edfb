#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace importer {

class ImportLog;

// A folder in the book-file layout of a translation, the commentary and the notes: per testament
// a "map.dat" of quoted book names and chapter counts, and per book a file named after the
// upper-cased book name, holding "CHAPTER n" markers each followed by that chapter's lines.
struct BookText
{
    QString name;
    int testament = 0;           // 0 "oldtest", 1 "newtest"
    QList<QStringList> chapters; // lines under "CHAPTER 1", "CHAPTER 2", ...
};

struct BookFolder
{
    // The three lines of "bible.dat"; a folder without a display name gets no "bible.dat".
    QString displayName;
    QString firstTestament;
    QString secondTestament;
    QList<BookText> books;

    int chapterCount() const;
    qsizetype lineCount() const;

    // Writes the whole folder under path; false when a file could not be written (logged).
    bool write(const QString &path, ImportLog &log, const QString &work) const;

    // The map line of a book: "Genesis",50
    static QString mapLine(const BookText &book);
    // The file name of a book: GENESIS.dat
    static QString fileName(const QString &bookName);
};

} // namespace importer
