#include "scripture/FoundVerses.h"

#include "scripture/basStrings.h"
#include "scripture/clsBible.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <tuple>

QString FoundVerse::Reference() const
{
    return bookName + u' ' + chapter + u':' + verse;
}

namespace FoundVerses {

QString DisplayedText(const QString &line)
{
    // The verse number first, up to the first blank.
    const qsizetype blank = line.indexOf(u' ');
    const QStringView body = blank < 0 ? QStringView() : QStringView(line).mid(blank + 1);
    QString shown;
    shown.reserve(body.size());
    int braces = 0;
    for (const QChar c : body) {
        if (c == u'{') {
            ++braces;
        } else if (c == u'}') {
            braces = std::max(0, braces - 1);
        } else if (braces == 0 && c != u'[' && c != u']') {
            // A Strong's number taken out leaves its blanks on both sides: one is kept.
            if (c == u' ' && (shown.isEmpty() || shown.back() == u' '))
                continue;
            shown += c;
        }
    }
    while (shown.endsWith(u' '))
        shown.chop(1);
    return shown;
}

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
        verse.text = DisplayedText(hit.line);
        verse.hit = hit;
        verses.append(std::move(verse));
    }
    return verses;
}

QList<FoundVerse> Interleave(const QList<QList<FoundVerse>> &perTranslation)
{
    struct Keyed
    {
        int book;
        int chapter;
        int verse;
        qsizetype translation;
        qsizetype index;
    };
    QList<Keyed> keys;
    for (qsizetype t = 0; t < perTranslation.size(); ++t) {
        const QList<FoundVerse> &verses = perTranslation.at(t);
        for (qsizetype i = 0; i < verses.size(); ++i) {
            const FoundVerse &v = verses.at(i);
            keys.append({v.book, v.chapter.toInt(), v.verse.toInt(), t, i});
        }
    }
    std::stable_sort(keys.begin(), keys.end(), [](const Keyed &a, const Keyed &b) {
        return std::tie(a.book, a.chapter, a.verse, a.translation) <
               std::tie(b.book, b.chapter, b.verse, b.translation);
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

QString CsvField(const QString &field)
{
    if (!field.contains(u',') && !field.contains(u'"') && !field.contains(u'\n') &&
        !field.contains(u'\r'))
        return field;
    QString quoted = field;
    quoted.replace(u'"', QStringLiteral("\"\""));
    return u'"' + quoted + u'"';
}

QByteArray Csv(const QList<FoundVerse> &verses)
{
    QString out = QStringLiteral("translation,reference,book,chapter,verse,text\r\n");
    for (const FoundVerse &v : verses) {
        const QStringList fields{v.translation, v.Reference(), v.bookName,
                                 v.chapter,     v.verse,       v.text};
        QStringList quoted;
        for (const QString &field : fields)
            quoted.append(CsvField(field));
        out += quoted.join(u',') + QStringLiteral("\r\n");
    }
    return out.toUtf8();
}

QByteArray Text(const QList<FoundVerse> &verses)
{
    QSet<QString> translations;
    for (const FoundVerse &v : verses)
        translations.insert(v.translation);
    const bool several = translations.size() > 1;
    QString out;
    for (const FoundVerse &v : verses) {
        if (several)
            out += v.translation + u'\t';
        out += v.Reference() + u'\t' + v.text + QStringLiteral("\r\n");
    }
    out += QString::number(verses.size()) + QStringLiteral(" verses");
    if (several)
        out += QStringLiteral(" in ") + QString::number(translations.size()) +
               QStringLiteral(" translations");
    out += QStringLiteral("\r\n");
    return out.toUtf8();
}

} // namespace FoundVerses
