#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <optional>
#include <tuple>

class clsBible;

// One verse named as the numbering file names it: the book's OSIS id ("Ps", "1John"), chapter and
// verse. Verse 0 is a psalm's title where a numbering counts it apart from verse 1.
struct VerseId
{
    QString book;
    int chapter = 0;
    int verse = 0;

    bool operator==(const VerseId &) const = default;
    QString text() const; // Ps.9.22
    static std::optional<VerseId> FromText(QStringView text);
};

// A verse or a run of verses (first == last for one verse); empty (no book) where a verse has no
// counterpart in the other numbering.
struct VerseSpan
{
    VerseId first;
    VerseId last;

    bool operator==(const VerseSpan &) const = default;
    bool isEmpty() const { return first.book.isEmpty(); }
    QString text() const; // Ps.10.1, 3John.1.14-3John.1.15, or "-" when empty
    static std::optional<VerseSpan> FromText(QStringView text);
};

// How a translation numbers its verses: the name of its versification, the OSIS ids of its books
// in the order of its book maps, and for each verse it numbers unlike the KJV, where that verse is
// in the KJV and back. It is the file "versification.dat" of a translation folder, written by the
// importer from the SWORD library's own tables:
//
//   Synodal
//   BOOKS Gen Exod Lev ...
//   TOKJV Ps.9.22 Ps.10.1
//   FROMKJV Ps.10.1 Ps.9.22
//   TOKJV Ps.151.1 -
//
// ("-": the verse has no counterpart in the other numbering.)
// A translation without the file is numbered as the KJV, its books in the usual order.
class VerseNumbering
{
public:
    static QString FileName() { return QStringLiteral("versification.dat"); }

    // The KJV's own numbering for a translation with these book counts per testament: the first
    // testament's books from Genesis, the second's from Matthew.
    static VerseNumbering Kjv(int oldTestamentBooks = 39, int newTestamentBooks = 27);
    // The numbering of the translation open in a store: its file, else the KJV's, with the books
    // known by their English names or else by their place in their testament.
    static VerseNumbering ForTranslation(const clsBible &bible);
    // The file's lines; nothing, with the reason, when a line cannot be read.
    static std::optional<VerseNumbering> Parse(const QStringList &lines,
                                               QString *problem = nullptr);
    QStringList Lines() const;

    QString Name() const { return m_name; }
    void setName(const QString &name) { m_name = name; }
    bool IsKjv() const { return m_toKjv.isEmpty() && m_fromKjv.isEmpty(); }

    // OSIS ids of books 1, 2, ... of the translation.
    QStringList Books() const { return m_books; }
    void setBooks(const QStringList &osisIds) { m_books = osisIds; }
    // The OSIS id of a book number (empty when out of range), and back (0 when absent).
    QString OsisOfBook(int bookNumber) const;
    int BookOfOsis(const QString &osisId) const;
    // The number among another translation's books of one of this translation's books, found by
    // what the book is: its own number where this numbering names it not, 0 where the other
    // translation lacks it.
    int SameBookIn(const VerseNumbering &other, int bookNumber) const;

    // Where a verse of this translation is in the KJV, and a KJV verse here; a verse without an
    // entry keeps its numbers.
    VerseSpan ToKjv(const VerseId &verse) const;
    VerseSpan FromKjv(const VerseId &verse) const;
    void addToKjv(const VerseId &here, const VerseSpan &kjv);
    void addFromKjv(const VerseId &kjv, const VerseSpan &here);

    // Where a verse of this translation (its book number) stands in the KJV's order, to line up
    // the verses of several translations: the KJV's book, chapter and verse. A verse the KJV lacks
    // keeps its own numbers, after all the KJV's books.
    std::tuple<int, int, int> KjvOrder(int book, int chapter, int verse) const;

private:
    QString m_name = QStringLiteral("KJV");
    QStringList m_books;
    QHash<QString, VerseSpan> m_toKjv;   // by VerseId::text()
    QHash<QString, VerseSpan> m_fromKjv; // by VerseId::text()
    QStringList m_toOrder;               // keys in the order added, for writing
    QStringList m_fromOrder;
};

// The 66 books in their usual order: OSIS id and English name as the KJV folder names them.
namespace CanonBooks {
int Count();
QString Osis(int index);        // index 0..65
QString EnglishName(int index); // "Genesis", "1Samuel", "Song of Solomon"
int IndexOfOsis(const QString &osisId);
} // namespace CanonBooks
