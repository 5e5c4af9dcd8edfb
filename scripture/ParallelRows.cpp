#include "scripture/ParallelRows.h"

#include "scripture/BookFiles.h"
#include "scripture/ChapterMarker.h"
#include "scripture/ReferenceParser.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <climits>
#include <memory>
#include <numeric>
#include <tuple>

namespace {

// A verse of one translation in its own numbers.
struct Place
{
    int book = 0;
    int chapter = 0;
    int verse = 0;

    bool operator==(const Place &) const = default;
    auto operator<=>(const Place &) const = default;
};

struct VerseLine
{
    int verse = 0;
    QString text;
};

// The verse lines of a translation's book files, read once for all the rows.
class TranslationText
{
public:
    explicit TranslationText(const clsBible &bible) : m_bible(bible) {}

    // The chapter's verses in file order; the first line of a verse number wins.
    const QList<VerseLine> &chapter(int book, int chapter)
    {
        const qint64 key = qint64(book) << 20 | chapter;
        auto found = m_chapters.find(key);
        if (found == m_chapters.end())
            found = m_chapters.insert(key, read(book, chapter));
        return *found;
    }

    const VerseLine *verse(const Place &place)
    {
        for (const VerseLine &line : chapter(place.book, place.chapter)) {
            if (line.verse == place.verse)
                return &line;
        }
        return nullptr;
    }

private:
    QList<VerseLine> read(int book, int chapter) const
    {
        QList<VerseLine> verses;
        if (book < 1 || book > m_bible.BooksCount() || chapter < 1)
            return verses;
        const std::shared_ptr<const BookFiles::Content> file =
            BookFiles::lines(m_bible.BookFilePath(book));
        if (!file)
            return verses;
        bool inside = false;
        QSet<int> seen;
        for (const QString &line : file->lines) {
            if (ChapterMarker::IsMarker(line)) {
                if (inside)
                    break;
                inside = ChapterMarker::IsMarkerOf(line, chapter);
                continue;
            }
            if (!inside)
                continue;
            // "12 text": the number, one blank, the text. A line without a number is no verse.
            qsizetype digits = 0;
            while (digits < line.size() && digits < 6 && line.at(digits).isDigit())
                ++digits;
            if (digits == 0)
                continue;
            const int number = QStringView(line).left(digits).toInt();
            if (seen.contains(number))
                continue;
            seen.insert(number);
            QStringView text = QStringView(line).mid(digits);
            if (text.startsWith(u' '))
                text = text.mid(1);
            verses.append({number, text.trimmed().toString()});
        }
        return verses;
    }

    const clsBible &m_bible;
    QHash<qint64, QList<VerseLine>> m_chapters;
};

// Titles counted as verse 0 are read at the start of verse 1.
VerseId asFolderVerse(VerseId verse)
{
    if (verse.verse == 0)
        verse.verse = 1;
    return verse;
}

// The verses of a run: all of them within one chapter, else its two ends.
QList<VerseId> versesOf(const VerseSpan &span)
{
    const VerseId first = asFolderVerse(span.first);
    const VerseId last = asFolderVerse(span.last);
    QList<VerseId> verses;
    if (first.book == last.book && first.chapter == last.chapter && first.verse <= last.verse) {
        for (int v = first.verse; v <= last.verse; ++v)
            verses.append({first.book, first.chapter, v});
    } else {
        verses << first;
        if (!(last == first))
            verses << last;
    }
    return verses;
}

// Verses of every translation and of the KJV, joined where they meet.
class Joins
{
public:
    int translationVerse(int translation, const Place &place)
    {
        return node(QStringLiteral("%1|%2.%3.%4")
                        .arg(translation)
                        .arg(place.book)
                        .arg(place.chapter)
                        .arg(place.verse));
    }
    int kjvVerse(const VerseId &verse)
    {
        return node(QStringLiteral("K|") + asFolderVerse(verse).text());
    }

    void join(int a, int b) { m_parent[root(a)] = root(b); }
    int root(int n)
    {
        while (m_parent[n] != n) {
            m_parent[n] = m_parent[m_parent[n]];
            n = m_parent[n];
        }
        return n;
    }

private:
    int node(const QString &key)
    {
        const auto found = m_nodes.constFind(key);
        if (found != m_nodes.cend())
            return *found;
        const int n = int(m_parent.size());
        m_parent.append(n);
        m_nodes.insert(key, n);
        return n;
    }

    QHash<QString, int> m_nodes;
    QList<int> m_parent;
};

struct Member
{
    int translation = 0;
    Place place;
    QString text;
};

// The first translation's verses of a passage, in its order.
QList<Place> passageVerses(TranslationText &text, const clsBible &bible,
                           const VerseMapping::Numbers &passage)
{
    QList<Place> verses;
    if (passage.book < 1 || passage.book > bible.BooksCount())
        return verses;
    // The store's rules: chapters in order and within the book, a missing verse the whole
    // chapter or one verse.
    const int chapters = bible.Chapters(passage.book);
    int chapterFrom = passage.chapterFrom;
    int chapterTo = passage.chapterTo == 0 ? chapterFrom : passage.chapterTo;
    if (chapterTo < chapterFrom)
        std::swap(chapterFrom, chapterTo);
    chapterFrom = std::min(chapterFrom, chapters);
    chapterTo = std::min(chapterTo, chapters);
    int verseFrom = passage.verseFrom;
    int verseTo = passage.verseTo;
    if (verseFrom == 0 && verseTo == 0) {
        verseTo = INT_MAX;
    } else {
        verseFrom = std::max(verseFrom, 1);
        if (verseTo == 0)
            verseTo = chapterFrom == chapterTo ? verseFrom : INT_MAX;
    }
    for (int c = std::max(chapterFrom, 1); c <= chapterTo; ++c) {
        for (const VerseLine &line : text.chapter(passage.book, c)) {
            if ((c == chapterFrom && line.verse < verseFrom) ||
                (c == chapterTo && line.verse > verseTo))
                continue;
            verses.append({passage.book, c, line.verse});
        }
    }
    return verses;
}

} // namespace

ParallelRows::Result ParallelRows::Build(const QList<const clsBible *> &translations,
                                         const QString &reference)
{
    if (translations.size() < MinTranslations || translations.size() > MaxTranslations)
        return Build(translations, VerseMapping::Numbers{});
    const clsBible &first = *translations.first();
    const ReferenceParser::Reference ref = ReferenceParser::Parse(reference);
    const int book = BookOfTypedName(first, VerseNumbering::ForTranslation(first), ref.book);
    if (book == 0 || book > first.BooksCount() || ref.chapterFrom < 1) {
        Result result;
        result.unknownBook = true;
        result.problem =
            QStringLiteral("No book of this translation matches \"%1\".").arg(reference.trimmed());
        return result;
    }
    return Build(translations, {book, ref.chapterFrom, ref.verseFrom, ref.chapterTo, ref.verseTo});
}

ParallelRows::Result ParallelRows::Build(const QList<const clsBible *> &translations,
                                         const VerseMapping::Numbers &passage)
{
    Result result;
    if (translations.size() < MinTranslations || translations.size() > MaxTranslations) {
        result.problem = QStringLiteral("Choose from %1 to %2 translations to read side by side.")
                             .arg(MinTranslations)
                             .arg(MaxTranslations);
        return result;
    }
    const qsizetype count = translations.size();
    std::vector<TranslationText> texts;
    QList<VerseNumbering> numberings;
    for (const clsBible *bible : translations) {
        texts.emplace_back(*bible);
        numberings.append(VerseNumbering::ForTranslation(*bible));
    }

    // 1. The passage in the first translation, each verse joined to its KJV verses.
    const QList<Place> firstVerses = passageVerses(texts[0], *translations.first(), passage);
    if (firstVerses.isEmpty()) {
        VerseMapping::Numbers asked = passage;
        asked.chapterTo = asked.chapterTo == 0 ? asked.chapterFrom : asked.chapterTo;
        asked.verseTo = asked.verseTo == 0 && asked.chapterTo == asked.chapterFrom ? asked.verseFrom
                                                                                   : asked.verseTo;
        result.problem = QStringLiteral("There is no %1 in this translation.")
                             .arg(StandardOf(*translations.first(), asked));
        return result;
    }
    Joins joins;
    QList<Member> members;
    QList<VerseId> kjvVerses;
    QSet<QString> kjvSeen;
    const auto addKjv = [&](const VerseId &verse) {
        if (!kjvSeen.contains(asFolderVerse(verse).text())) {
            kjvSeen.insert(asFolderVerse(verse).text());
            kjvVerses.append(asFolderVerse(verse));
        }
    };
    const auto joinToKjv = [&](int t, const Place &place) {
        const QString osis = numberings[t].OsisOfBook(place.book);
        const int n = joins.translationVerse(int(t), place);
        if (osis.isEmpty())
            return QList<VerseId>();
        const VerseSpan kjv = numberings[t].ToKjv({osis, place.chapter, place.verse});
        if (kjv.isEmpty())
            return QList<VerseId>();
        const QList<VerseId> verses = versesOf(kjv);
        for (const VerseId &verse : verses)
            joins.join(n, joins.kjvVerse(verse));
        return verses;
    };
    for (const Place &place : firstVerses) {
        members.append({0, place, texts[0].verse(place)->text});
        for (const VerseId &verse : joinToKjv(0, place))
            addKjv(verse);
    }

    // 2. The other translations' verses at those KJV verses, with the verses between them in
    // the same chapter (verses the KJV lacks) and those next to them that reach the KJV verses
    // from their side only.
    for (qsizetype t = 1; t < count; ++t) {
        const clsBible &bible = *translations.at(t);
        const VerseNumbering &numbering = numberings.at(t);
        QSet<QString> taken;
        QList<Place> found;
        const auto take = [&](const Place &place) {
            const QString key =
                QStringLiteral("%1.%2.%3").arg(place.book).arg(place.chapter).arg(place.verse);
            if (taken.contains(key) || !texts[t].verse(place))
                return false;
            taken.insert(key);
            found.append(place);
            return true;
        };
        for (const VerseId &kjv : std::as_const(kjvVerses)) {
            const VerseSpan here = numbering.FromKjv(kjv);
            if (here.isEmpty())
                continue;
            for (const VerseId &verse : versesOf(here)) {
                const int book = numbering.BookOfOsis(verse.book);
                if (book < 1 || book > bible.BooksCount())
                    continue;
                const Place place{book, verse.chapter, verse.verse};
                take(place);
                if (texts[t].verse(place))
                    joins.join(joins.translationVerse(int(t), place), joins.kjvVerse(kjv));
            }
        }
        // Chapter by chapter: the verses from the first found to the last, and beyond either end
        // as long as a verse maps into the passage.
        QHash<qint64, std::pair<int, int>> reach; // book and chapter -> first and last verse
        for (const Place &place : std::as_const(found)) {
            const qint64 key = qint64(place.book) << 20 | place.chapter;
            auto it = reach.find(key);
            if (it == reach.end())
                reach.insert(key, {place.verse, place.verse});
            else
                *it = {std::min(it->first, place.verse), std::max(it->second, place.verse)};
        }
        const auto mapsIntoPassage = [&](const Place &place) {
            const QString osis = numbering.OsisOfBook(place.book);
            const VerseSpan kjv = numbering.ToKjv({osis, place.chapter, place.verse});
            if (kjv.isEmpty())
                return false;
            const QList<VerseId> verses = versesOf(kjv);
            return std::any_of(verses.cbegin(), verses.cend(), [&](const VerseId &v) {
                return kjvSeen.contains(asFolderVerse(v).text());
            });
        };
        for (auto it = reach.cbegin(); it != reach.cend(); ++it) {
            const int book = int(it.key() >> 20);
            const int chapter = int(it.key() & 0xFFFFF);
            const QList<VerseLine> &lines = texts[t].chapter(book, chapter);
            qsizetype firstIndex = -1;
            qsizetype lastIndex = -1;
            for (qsizetype i = 0; i < lines.size(); ++i) {
                if (lines.at(i).verse >= it->first && lines.at(i).verse <= it->second) {
                    if (firstIndex < 0)
                        firstIndex = i;
                    lastIndex = i;
                }
            }
            while (firstIndex > 0 &&
                   mapsIntoPassage({book, chapter, lines.at(firstIndex - 1).verse}))
                --firstIndex;
            while (lastIndex >= 0 && lastIndex + 1 < lines.size() &&
                   mapsIntoPassage({book, chapter, lines.at(lastIndex + 1).verse}))
                ++lastIndex;
            for (qsizetype i = firstIndex; i >= 0 && i <= lastIndex; ++i)
                take({book, chapter, lines.at(i).verse});
        }
        std::sort(found.begin(), found.end());
        for (const Place &place : std::as_const(found)) {
            joinToKjv(int(t), place);
            members.append({int(t), place, texts[t].verse(place)->text});
        }
    }

    // 3. Rows: the verses joined together. A row holding verses of the first translation comes
    // where the first of them comes; another stands after the row of the verse before it in its
    // own translation.
    QHash<int, qsizetype> rowOfRoot;
    QList<QList<qsizetype>> rowMembers;
    for (qsizetype m = 0; m < members.size(); ++m) {
        const int root =
            joins.root(joins.translationVerse(members.at(m).translation, members.at(m).place));
        auto found = rowOfRoot.find(root);
        if (found == rowOfRoot.end()) {
            found = rowOfRoot.insert(root, rowMembers.size());
            rowMembers.append(QList<qsizetype>());
        }
        rowMembers[*found].append(m);
    }
    using Key = std::tuple<qsizetype, qsizetype, qsizetype>; // anchor, translation, place
    QList<Key> keys(rowMembers.size(), Key{-2, 0, 0});
    for (qsizetype r = 0; r < rowMembers.size(); ++r) {
        for (const qsizetype m : rowMembers.at(r)) {
            if (members.at(m).translation == 0) {
                keys[r] = Key{m, -1, 0};
                break;
            }
        }
    }
    qsizetype anchor = -1;
    qsizetype position = 0;
    int lastTranslation = -1;
    for (qsizetype m = 0; m < members.size(); ++m) {
        const int t = members.at(m).translation;
        if (t == 0)
            continue;
        if (t != lastTranslation) {
            lastTranslation = t;
            anchor = -1;
            position = 0;
        }
        const qsizetype r =
            rowOfRoot.value(joins.root(joins.translationVerse(t, members.at(m).place)));
        if (std::get<0>(keys[r]) == -2)
            keys[r] = Key{anchor, t, ++position};
        else if (std::get<1>(keys[r]) == -1)
            anchor = std::get<0>(keys[r]);
    }
    QList<qsizetype> order(rowMembers.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [&](qsizetype a, qsizetype b) { return keys[a] < keys[b]; });

    // 4. Cells: each translation's verses of the row under one reference.
    for (const qsizetype r : order) {
        ParallelRow row;
        row.cells.resize(count);
        QList<const Member *> sorted;
        for (const qsizetype m : rowMembers.at(r))
            sorted.append(&members.at(m));
        std::stable_sort(sorted.begin(), sorted.end(), [](const Member *a, const Member *b) {
            return std::tie(a->translation, a->place) < std::tie(b->translation, b->place);
        });
        for (const Member *member : std::as_const(sorted)) {
            ParallelCell &cell = row.cells[member->translation];
            const QString &text = member->text;
            if (cell.isEmpty()) {
                cell.verses.book = member->place.book;
                cell.verses.chapterFrom = member->place.chapter;
                cell.verses.verseFrom = member->place.verse;
                cell.text = text;
            } else if (!text.isEmpty()) {
                cell.text += (cell.text.isEmpty() ? QString() : QStringLiteral(" ")) + text;
            }
            cell.verses.chapterTo = member->place.chapter;
            cell.verses.verseTo = member->place.verse;
        }
        for (qsizetype t = 0; t < count; ++t) {
            ParallelCell &cell = row.cells[t];
            if (!cell.isEmpty())
                cell.reference = StandardOf(*translations.at(t), cell.verses);
        }
        result.rows.append(row);
    }
    return result;
}
