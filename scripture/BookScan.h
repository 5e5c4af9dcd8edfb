#pragma once

#include "scripture/BookFiles.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>
#include <unordered_map>
#include <utility>
#include <vector>

class clsBible;

// The one scan of a translation's book files that both searches use: every book in order, the
// first line of each file passed over, a "CHAPTER" line setting the current chapter and the line
// after it read at once as a verse line. The current chapter is text and carries over from one book
// to the next, so verses read before a book's first counted marker show the previous chapter.
class BookScan
{
public:
    enum class Next
    {
        Line,
        Book,
        Stop
    };

    struct Line
    {
        int book = 0;
        const QString &chapter; // empty until the first marker is read
        const BookFiles::Bytes &file;
        BookFiles::Bytes::Span span;
        qsizetype index = -1; // the line's number in the file, from 0, where its lines were split

        // The line as text, decoded only when asked for.
        QString text() const { return file.Text(span); }
        bool ascii() const { return span.ascii; }
        bool foldable() const { return span.foldable; }
        // The line's bytes as stored.
        QByteArrayView bytes() const
        {
            return QByteArrayView(file.bytes).sliced(span.start, span.length);
        }
        // The line upper-cased as text.
        QString upper() const;
    };

    // Called before each book: false skips it (the file is not opened).
    std::function<bool(int book)> beforeBook;
    // Called for each verse line; says whether to go on.
    std::function<Next(const Line &line)> onLine;
    // Called after each book that was read; says whether to go on to the next book.
    std::function<bool(int book)> afterBook;
    // A word, upper-cased ASCII, that every line onLine acts on holds (its bytes read as
    // capitals, as SearchTerm finds it). Then only the lines where it stands are handed over, and
    // the lines between are passed over but for their chapter markers, in the same pass over the
    // bytes, as far as the file is plain (BookFiles::Bytes::PlainBetween). Left empty, every line
    // is handed over.
    QByteArray heldWord;

    // Runs the scan over books 1..BooksCount of the store. Throws VbError when a book file cannot
    // be read (53) or a "CHAPTER" line ends a file (62).
    void run(const clsBible &store);

private:
    // One book read line by line, the lines before the byte offset handFrom only for their
    // markers; false when onLine said to stop.
    bool readLines(int book, const BookFiles::Bytes &file, QString &chapter, qsizetype handFrom);
    // One book read from one place where the held word stands to the next.
    bool readPlaces(int book, const BookFiles::Bytes &file, QString &chapter);
};

// A verse a search found, and the ways it is shown: the window's results, the Search window's
// list and "Show All", and the command line all format it here.
struct SearchHit
{
    QString book;    // the book's name as the map gives it
    QString chapter; // as the last chapter marker gave it (text, possibly empty)
    QString line;    // the verse line as stored, its number first

    // "Book chapter:verse".
    QString Reference() const;
    // "Book chapter:" and the verse line, then two line breaks.
    QString Listed() const;

    static QStringList References(const QList<SearchHit> &hits);
    // Every hit listed, for a view: a verse line of over ten thousand characters (no real verse
    // comes near) is cut, and so is the list past eight million characters, each with a mark,
    // so that a damaged book file cannot keep the view laying out for minutes.
    static QString ListedAll(const QList<SearchHit> &hits);
};

// A word or phrase as both searches look for it in a line, the term upper-cased: in the bytes of
// a plain ASCII line, read as capitals without decoding or copying it, else in the decoded line
// upper-cased. Upper-casing
// an ASCII line gives ASCII, so a term that is not ASCII is never in one.
class SearchTerm
{
public:
    explicit SearchTerm(const QString &upperTerm);
    bool In(const BookScan::Line &line, bool wholeWord) const;
    // The term's bytes when it is ASCII, which a line holding it holds; empty otherwise.
    QByteArray AsciiBytes() const { return m_ascii ? m_bytes : QByteArray(); }
    // Of terms a line must hold all of, the one to tell a scan of (BookScan::heldWord): the
    // longest written in ASCII, likely the rarest; empty when none is.
    static QByteArray HeldByEvery(const QList<SearchTerm> &terms);

private:
    QString m_term;
    QByteArray m_bytes;
    bool m_ascii = true;
    std::pair<qsizetype, qsizetype> m_pair; // the places of its two rarest characters
};

// Whether any of many words (upper-cased) is in a line, as SearchTerm would say of each of them,
// reading the line once: a query of thousands of words costs no more on a line than one word.
class AnyOfWords
{
public:
    explicit AnyOfWords(const QStringList &upperWords);
    bool In(const BookScan::Line &line, bool wholeWord) const;

private:
    struct Node
    {
        int fail = 0;
        int output = 0; // the nearest node along the failure links that ends a word; 0 for none
        int depth = 0;
        bool word = false;
    };
    static quint64 edgeKey(int node, char16_t c) { return (quint64(node) << 16) | c; }
    int step(int node, char16_t c) const;
    template <typename Text> bool find(Text text, bool wholeWord) const;

    std::vector<Node> m_nodes;
    std::unordered_map<quint64, int> m_edges;
    bool m_empty = false;
};

// Where a word first occurs in a line at or after a position; -1 when it does not.
qsizetype FindWord(QStringView line, QStringView word, qsizetype from = 0);

// Whether a word occurs in an upper-cased line as a whole word: the characters on either side of
// some occurrence are not letters A to Z (the ends of the line count as boundaries).
bool WholeWordMatch(QStringView upperLine, QStringView word);

// What both searches tell the user when they found more results than the limit.
QString OverLimitMessage(int limit);
