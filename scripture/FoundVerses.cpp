#include "scripture/FoundVerses.h"

#include "scripture/SearchQuery.h"
#include "scripture/basStrings.h"
#include "scripture/clsBible.h"

#include <QHash>

#include <algorithm>
#include <tuple>

QString FoundVerse::Reference() const
{
    return bookName + u' ' + chapter + u':' + verse;
}

QString FoundVerse::Standard() const
{
    return basStrings::UpperCase(bookName) + u' ' + chapter + u':' + verse;
}

QueryHit FoundVerse::AsQueryHit() const
{
    QueryHit shared;
    shared.translation = translation;
    shared.book = book;
    shared.bookName = bookName;
    shared.chapter = chapter.toInt();
    shared.verse = verse.toInt();
    shared.reference = Standard();
    shared.text = text;
    return shared;
}

namespace FoundVerses {

QList<FoundVerse> FromHits(const QList<SearchHit> &hits, const clsBible &store,
                           const QString &translation)
{
    QHash<QString, int> numbers;
    for (int b = store.BooksCount(); b >= 1; --b)
        numbers.insert(store.BookName(b), b);
    QList<FoundVerse> verses;
    verses.reserve(hits.size());
    for (const SearchHit &hit : hits) {
        FoundVerse verse;
        verse.translation = translation;
        verse.book = numbers.value(hit.book, 0);
        verse.bookName = hit.book;
        verse.chapter = hit.chapter;
        const qsizetype blank = hit.line.indexOf(u' ');
        verse.verse = basStrings::TrimBlanks(blank < 0 ? QStringView(hit.line)
                                                       : QStringView(hit.line).left(blank))
                          .toString();
        verse.text = SearchQuery::DisplayedText(hit.line);
        verse.hit = hit;
        verses.append(std::move(verse));
    }
    return verses;
}

QList<FoundVerse> FromQueryHits(const QList<QueryHit> &hits)
{
    QList<FoundVerse> verses;
    verses.reserve(hits.size());
    for (const QueryHit &hit : hits) {
        FoundVerse verse;
        verse.translation = hit.translation;
        verse.book = hit.book;
        verse.bookName = hit.bookName;
        verse.chapter = QString::number(hit.chapter);
        verse.verse = QString::number(hit.verse);
        verse.text = hit.text;
        verse.hit = SearchHit{hit.bookName, verse.chapter, verse.verse + u' ' + hit.text};
        verses.append(std::move(verse));
    }
    return verses;
}

QList<FoundVerse> Interleave(const QList<QList<FoundVerse>> &perTranslation,
                             const QList<VerseNumbering> &numberings)
{
    struct Keyed
    {
        std::tuple<int, int, int> kjvPlace;
        qsizetype translation;
        qsizetype index;
    };
    static const VerseNumbering kjv = VerseNumbering::Kjv();
    QList<Keyed> keys;
    for (qsizetype t = 0; t < perTranslation.size(); ++t) {
        const QList<FoundVerse> &verses = perTranslation.at(t);
        const VerseNumbering &numbering = t < numberings.size() ? numberings.at(t) : kjv;
        for (qsizetype i = 0; i < verses.size(); ++i) {
            const FoundVerse &v = verses.at(i);
            keys.append({numbering.KjvOrder(v.book, v.chapter.toInt(), v.verse.toInt()), t, i});
        }
    }
    std::stable_sort(keys.begin(), keys.end(), [](const Keyed &a, const Keyed &b) {
        return std::tie(a.kjvPlace, a.translation) < std::tie(b.kjvPlace, b.translation);
    });
    QList<FoundVerse> all;
    all.reserve(keys.size());
    for (const Keyed &key : std::as_const(keys))
        all.append(perTranslation.at(key.translation).at(key.index));
    return all;
}

QList<int> HitsPerBook(const QList<FoundVerse> &verses, int books)
{
    QList<int> counts(std::max(0, books), 0);
    for (const FoundVerse &verse : verses) {
        if (verse.book >= 1 && verse.book <= books)
            ++counts[verse.book - 1];
    }
    return counts;
}

namespace {
bool isLetter(QChar c)
{
    return c >= u'A' && c <= u'Z';
}
} // namespace

Spans WordSpans(const QString &text, const QStringList &upperWords, bool wholeWord)
{
    // Upper-casing keeps the length of nearly every text; when it does not, positions in the
    // upper-cased copy would not be positions in the text, so nothing is marked.
    const QString upper = basStrings::UpperCase(text);
    if (upper.size() != text.size())
        return {};
    Spans spans;
    for (const QString &word : upperWords) {
        if (word.isEmpty())
            continue;
        for (qsizetype at = upper.indexOf(word); at >= 0; at = upper.indexOf(word, at + 1)) {
            const qsizetype end = at + word.size();
            if (wholeWord && ((at > 0 && isLetter(upper.at(at - 1))) ||
                              (end < upper.size() && isLetter(upper.at(end)))))
                continue;
            spans.append({int(at), int(word.size())});
        }
    }
    return Merged(std::move(spans));
}

Spans Merged(Spans spans)
{
    std::sort(spans.begin(), spans.end());
    Spans merged;
    for (const auto &[start, length] : std::as_const(spans)) {
        if (length <= 0)
            continue;
        if (!merged.isEmpty() && start <= merged.back().first + merged.back().second) {
            auto &last = merged.back();
            last.second = std::max(last.first + last.second, start + length) - last.first;
        } else {
            merged.append({start, length});
        }
    }
    return merged;
}

QByteArray Csv(const QList<FoundVerse> &verses)
{
    QString out = QueryHit::CsvHeader();
    for (const FoundVerse &v : verses)
        out += v.AsQueryHit().CsvRecord();
    return out.toUtf8();
}

QByteArray Text(const QList<FoundVerse> &verses, int translationsSearched)
{
    const bool several = translationsSearched > 1;
    QString out;
    for (const FoundVerse &v : verses) {
        if (several)
            out += v.translation + u'\t';
        out += v.Standard() + u'\t' + v.text + QStringLiteral("\r\n");
    }
    out += QString::number(verses.size()) + QStringLiteral(" verses");
    if (several)
        out += QStringLiteral(" in ") + QString::number(translationsSearched) +
               QStringLiteral(" translations");
    out += QStringLiteral("\r\n");
    return out.toUtf8();
}

} // namespace FoundVerses
