#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

namespace importer {

// The books, chapters and verse counts of the imported KJV, used to write references from the
// modules (OSIS form, "Exod.6.16-Exod.6.20") in the form the program's reference parser reads
// ("Exodus 6:16-20") and to keep out every reference that would not show a passage.
class Versification
{
public:
    // Verse counts of each chapter of a book, by its position in CanonBooks().
    void setBook(int book, QList<int> verseCounts);

    bool isEmpty() const { return m_books.isEmpty(); }
    int chapterCount(int book) const;
    int chapterCount() const;
    int verseCount(int book, int chapter) const;

    // Each passage an OSIS reference names, written as "Book C", "Book C:V", "Book C:V-W",
    // "Book C-D" or "Book C:V-D:W". A passage outside these books, chapters and verses is left
    // out and described in problems; a range that runs past a chapter's end is cut there.
    QStringList references(QStringView osisRef, QStringList *problems = nullptr) const;

    static QString bookName(int book);

private:
    struct Point
    {
        int book = -1;
        int chapter = 0;
        int verse = 0;
    };
    static Point parsePoint(QStringView text);
    QString rangeText(Point from, Point to, QString *problem) const;

    QList<QList<int>> m_books;
};

} // namespace importer
