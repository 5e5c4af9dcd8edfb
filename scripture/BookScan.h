#pragma once

#include <QString>
#include <functional>

class clsBible;

// The one scan of a translation's book files that both searches use: every book in order, the
// first line of each file passed over, a "CHAPTER" line setting the current chapter and the line
// after it read at once as a verse line. The current chapter is text and carries over from one book
// to the next, so verses read before a book's first counted marker show the previous chapter.
class BookScan
{
public:
    enum class Next { Line, Book, Stop };

    struct Line
    {
        int book = 0;
        const QString &chapter; // empty until the first marker is read
        const QString &text;    // the line as read
        const QString &upper;   // the same, upper-cased
    };

    // Called before each book: false skips it (the file is not opened).
    std::function<bool(int book)> beforeBook;
    // Called for each verse line; says whether to go on.
    std::function<Next(const Line &line)> onLine;
    // Called after each book that was read; says whether to go on to the next book.
    std::function<bool(int book)> afterBook;

    // Runs the scan over books 1..BooksCount of the store. Throws VbError when a book file cannot
    // be read (53) or a "CHAPTER" line ends a file (62).
    void run(const clsBible &store);
};

// Where a word first occurs in a line at or after a position; -1 when it does not.
qsizetype FindWord(QStringView line, QStringView word, qsizetype from = 0);

// Whether a word occurs in an upper-cased line as a whole word: the characters on either side of
// some occurrence are not letters A to Z (the ends of the line count as boundaries).
bool WholeWordMatch(QStringView upperLine, QStringView word);

// What both searches tell the user when they found more results than the limit.
QString OverLimitMessage(int limit);
