#pragma once

// Builds small translation folders for tests: a few books with a few verses, or the 66 books of a
// whole Bible with one short verse per chapter.
#include <QDir>
#include <QFile>
#include <QList>
#include <QString>
#include <QStringList>

namespace fixture {

struct Book
{
    QString name;
    bool newTestament = false;
    QStringList lines;    // the whole book file, line by line
    int mapChapters = -1; // -1: count the CHAPTER lines
};

inline void writeFile(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
}

// The bytes of a file, or nothing when it cannot be read.
inline QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline QByteArray crlf(const QStringList &lines)
{
    QByteArray out;
    for (const QString &line : lines)
        out += line.toUtf8() + "\r\n";
    return out;
}

// Writes the folder: bible.dat, both maps and one file per book.
inline QString makeTranslation(const QString &root, const QString &folder, const QList<Book> &books,
                               const QString &name = QStringLiteral("Test Version"))
{
    const QString dir = root + u'/' + folder;
    writeFile(dir + QStringLiteral("/bible.dat"),
              crlf({name, QStringLiteral("Old Testament"), QStringLiteral("New Testament")}));
    QStringList maps[2];
    for (const Book &book : books) {
        int chapters = book.mapChapters;
        if (chapters < 0) {
            chapters = 0;
            for (const QString &line : book.lines)
                chapters += line.startsWith(QStringLiteral("CHAPTER"), Qt::CaseInsensitive);
        }
        const int t = book.newTestament ? 1 : 0;
        maps[t] << QStringLiteral("\"%1\",%2").arg(book.name).arg(chapters);
        writeFile(dir + (t ? QStringLiteral("/newtest/") : QStringLiteral("/oldtest/")) +
                      book.name.left(30).toUpper() + QStringLiteral(".dat"),
                  crlf(book.lines));
    }
    writeFile(dir + QStringLiteral("/oldtest/map.dat"), crlf(maps[0]));
    writeFile(dir + QStringLiteral("/newtest/map.dat"), crlf(maps[1]));
    return dir;
}

// Chapters of numbered verses: chapter c has verses[c-1] verses, "n Text of Book c:n".
inline QStringList chapters(const QString &book, const QList<int> &verses)
{
    QStringList lines;
    for (int c = 1; c <= verses.size(); ++c) {
        lines << QStringLiteral("CHAPTER %1").arg(c);
        for (int v = 1; v <= verses.at(c - 1); ++v)
            lines << QStringLiteral("%1 Text of %2 %3:%4").arg(v).arg(book).arg(c).arg(v);
    }
    return lines;
}

inline const QStringList &canonNames()
{
    static const QStringList names = {"Genesis",        "Exodus",
                                      "Leviticus",      "Numbers",
                                      "Deuteronomy",    "Joshua",
                                      "Judges",         "Ruth",
                                      "1Samuel",        "2Samuel",
                                      "1Kings",         "2Kings",
                                      "1Chronicles",    "2Chronicles",
                                      "Ezra",           "Nehemiah",
                                      "Esther",         "Job",
                                      "Psalms",         "Proverbs",
                                      "Ecclesiastes",   "Song of Solomon",
                                      "Isaiah",         "Jeremiah",
                                      "Lamentations",   "Ezekiel",
                                      "Daniel",         "Hosea",
                                      "Joel",           "Amos",
                                      "Obadiah",        "Jonah",
                                      "Micah",          "Nahum",
                                      "Habakkuk",       "Zephaniah",
                                      "Haggai",         "Zechariah",
                                      "Malachi",        "Matthew",
                                      "Mark",           "Luke",
                                      "John",           "Acts",
                                      "Romans",         "1Corinthians",
                                      "2Corinthians",   "Galatians",
                                      "Ephesians",      "Philippians",
                                      "Colossians",     "1Thessalonians",
                                      "2Thessalonians", "1Timothy",
                                      "2Timothy",       "Titus",
                                      "Philemon",       "Hebrews",
                                      "James",          "1Peter",
                                      "2Peter",         "1John",
                                      "2John",          "3John",
                                      "Jude",           "Revelation"};
    return names;
}

// A whole Bible of 66 books with 3 chapters of 3 verses each, except those given.
inline QList<Book> wholeBible(const QList<Book> &special = {})
{
    QList<Book> books;
    const QStringList &names = canonNames();
    for (int i = 0; i < names.size(); ++i) {
        Book book{names.at(i), i >= 39, chapters(names.at(i), {3, 3, 3})};
        for (const Book &s : special) {
            if (s.name == names.at(i))
                book.lines = s.lines;
        }
        books << book;
    }
    return books;
}

// The commentary folder "tvc": every book's three chapters say "On Book chapter n." It has no
// bible.dat, as the commentary is no translation of its own.
inline void makeCommentary(const QString &root)
{
    QList<Book> commentary = wholeBible();
    for (Book &book : commentary) {
        book.lines.clear();
        for (int c = 1; c <= 3; ++c)
            book.lines << QStringLiteral("CHAPTER %1").arg(c)
                       << QStringLiteral("On %1 chapter %2.").arg(book.name).arg(c);
    }
    makeTranslation(root, QStringLiteral("tvc"), commentary);
    QFile::remove(root + QStringLiteral("/tvc/bible.dat"));
}

} // namespace fixture
