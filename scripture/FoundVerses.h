#pragma once

#include "scripture/BookScan.h"
#include "scripture/QuerySearch.h"
#include "scripture/VerseNumbering.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <utility>

class clsBible;

// A verse a search of the Search window found, in the form every view of the results needs: the
// list, the chart of hits per book, the passage and the exported files.
struct FoundVerse
{
    QString translation; // the translation's folder name
    int book = 0;        // the book's number in its translation
    QString bookName;
    QString chapter;
    QString verse;
    QString text;  // the verse as displayed: no verse number, italic brackets or Strong's numbers
    SearchHit hit; // the verse line as stored, for "Show All"

    // "Book chapter:verse", as the list shows it.
    QString Reference() const;
    // The standard reference, "BOOK chapter:verse", as the command line writes it.
    QString Standard() const;
    // The verse as the query search gives its hits, for the writers they share.
    QueryHit AsQueryHit() const;
};

// Where a search found what it looked for in a text: start and length of each span, in order.
using Spans = QList<std::pair<int, int>>;
using SpanFinder = std::function<Spans(const QString &text)>;

namespace FoundVerses {

// The hits of a search of one translation, with their book numbers as the store counts them.
QList<FoundVerse> FromHits(const QList<SearchHit> &hits, const clsBible &store,
                           const QString &translation);
// The hits of a query search; "Show All" lists each with its verse number before its text.
QList<FoundVerse> FromQueryHits(const QList<QueryHit> &hits);

// The results of several translations in one list, a reference's verses together: lined up through
// each translation's verse numbering (given in the same order) by the KJV's book, chapter and
// verse, and within a reference in the order the translations were given.
QList<FoundVerse> Interleave(const QList<QList<FoundVerse>> &perTranslation,
                             const QList<VerseNumbering> &numberings);

// How many verses each book holds: entry b - 1 for book b, for books 1..books.
QList<int> HitsPerBook(const QList<FoundVerse> &verses, int books);

// The spans of the three word modes in a text: every occurrence of each upper-cased word (or of
// the phrase), as the search compared them, whole words only when asked.
Spans WordSpans(const QString &text, const QStringList &upperWords, bool wholeWord);

// Overlapping or touching spans joined, in order of their start.
Spans Merged(Spans spans);

// The verses as CSV, as the command line writes them: the header
// "translation,reference,book,chapter,verse,text" and one record a verse, in UTF-8.
QByteArray Csv(const QList<FoundVerse> &verses);
// The verses as text, as the command line writes them but for the CR LF line ends of the program's
// text files: "REFERENCE<TAB>TEXT", the translation's folder first when several translations were
// searched, then "N verses" (or "N verses in M translations"), in UTF-8.
QByteArray Text(const QList<FoundVerse> &verses, int translationsSearched);

} // namespace FoundVerses
