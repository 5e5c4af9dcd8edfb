#pragma once

#include "scripture/BookScan.h"

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

    // "Book chapter:verse".
    QString Reference() const;
};

// Where a search found what it looked for in a text: start and length of each span, in order.
using Spans = QList<std::pair<int, int>>;
using SpanFinder = std::function<Spans(const QString &text)>;

namespace FoundVerses {

// A stored verse line as the reader sees it: the verse number it begins with, the square brackets
// of the translators' words and the braced Strong's numbers taken out, runs of blanks made one.
QString DisplayedText(const QString &line);

// The hits of a search of one translation, with their book numbers as the store counts them.
QList<FoundVerse> FromHits(const QList<SearchHit> &hits, const clsBible &store,
                           const QString &translation);

// The results of several translations in one list, a reference's verses together: by book,
// chapter and verse, and within a reference in the order the translations were given.
QList<FoundVerse> Interleave(const QList<QList<FoundVerse>> &perTranslation);

// How many verses each book holds: entry b - 1 for book b, for books 1..books.
QList<int> HitsPerBook(const QList<FoundVerse> &verses, int books);

// The spans of the three word modes in a text: every occurrence of each upper-cased word (or of
// the phrase), as the search compared them, whole words only when asked.
Spans WordSpans(const QString &text, const QStringList &upperWords, bool wholeWord);

// Overlapping or touching spans joined, in order of their start.
Spans Merged(Spans spans);

// One field of a CSV record: quoted when it holds a comma, a quote, or a line break, its quotes
// doubled.
QString CsvField(const QString &field);
// The verses as CSV: the header "translation,reference,book,chapter,verse,text" and one record a
// verse, lines ended by CR LF, in UTF-8.
QByteArray Csv(const QList<FoundVerse> &verses);
// The verses as text: "REFERENCE<TAB>TEXT" a line, the translation's folder first when the list
// holds several translations, then "N verses" (or "N verses in M translations"), in UTF-8.
QByteArray Text(const QList<FoundVerse> &verses);

} // namespace FoundVerses
