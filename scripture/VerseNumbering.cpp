#include "scripture/VerseNumbering.h"

#include "platform/FileSystem.h"
#include "scripture/basStrings.h"
#include "scripture/clsBible.h"

namespace CanonBooks {

namespace {
struct Row
{
    const char16_t *osis;
    const char16_t *english;
};
constexpr Row Rows[] = {
    {u"Gen", u"Genesis"},
    {u"Exod", u"Exodus"},
    {u"Lev", u"Leviticus"},
    {u"Num", u"Numbers"},
    {u"Deut", u"Deuteronomy"},
    {u"Josh", u"Joshua"},
    {u"Judg", u"Judges"},
    {u"Ruth", u"Ruth"},
    {u"1Sam", u"1Samuel"},
    {u"2Sam", u"2Samuel"},
    {u"1Kgs", u"1Kings"},
    {u"2Kgs", u"2Kings"},
    {u"1Chr", u"1Chronicles"},
    {u"2Chr", u"2Chronicles"},
    {u"Ezra", u"Ezra"},
    {u"Neh", u"Nehemiah"},
    {u"Esth", u"Esther"},
    {u"Job", u"Job"},
    {u"Ps", u"Psalms"},
    {u"Prov", u"Proverbs"},
    {u"Eccl", u"Ecclesiastes"},
    {u"Song", u"Song of Solomon"},
    {u"Isa", u"Isaiah"},
    {u"Jer", u"Jeremiah"},
    {u"Lam", u"Lamentations"},
    {u"Ezek", u"Ezekiel"},
    {u"Dan", u"Daniel"},
    {u"Hos", u"Hosea"},
    {u"Joel", u"Joel"},
    {u"Amos", u"Amos"},
    {u"Obad", u"Obadiah"},
    {u"Jonah", u"Jonah"},
    {u"Mic", u"Micah"},
    {u"Nah", u"Nahum"},
    {u"Hab", u"Habakkuk"},
    {u"Zeph", u"Zephaniah"},
    {u"Hag", u"Haggai"},
    {u"Zech", u"Zechariah"},
    {u"Mal", u"Malachi"},
    {u"Matt", u"Matthew"},
    {u"Mark", u"Mark"},
    {u"Luke", u"Luke"},
    {u"John", u"John"},
    {u"Acts", u"Acts"},
    {u"Rom", u"Romans"},
    {u"1Cor", u"1Corinthians"},
    {u"2Cor", u"2Corinthians"},
    {u"Gal", u"Galatians"},
    {u"Eph", u"Ephesians"},
    {u"Phil", u"Philippians"},
    {u"Col", u"Colossians"},
    {u"1Thess", u"1Thessalonians"},
    {u"2Thess", u"2Thessalonians"},
    {u"1Tim", u"1Timothy"},
    {u"2Tim", u"2Timothy"},
    {u"Titus", u"Titus"},
    {u"Phlm", u"Philemon"},
    {u"Heb", u"Hebrews"},
    {u"Jas", u"James"},
    {u"1Pet", u"1Peter"},
    {u"2Pet", u"2Peter"},
    {u"1John", u"1John"},
    {u"2John", u"2John"},
    {u"3John", u"3John"},
    {u"Jude", u"Jude"},
    {u"Rev", u"Revelation"},
};
} // namespace

int Count()
{
    return int(std::size(Rows));
}

QString Osis(int index)
{
    return index >= 0 && index < Count() ? QString::fromUtf16(Rows[index].osis) : QString();
}

QString EnglishName(int index)
{
    return index >= 0 && index < Count() ? QString::fromUtf16(Rows[index].english) : QString();
}

int IndexOfOsis(const QString &osisId)
{
    for (int i = 0; i < Count(); ++i) {
        if (osisId == QStringView(Rows[i].osis))
            return i;
    }
    return -1;
}

} // namespace CanonBooks

QString VerseId::text() const
{
    return book + u'.' + QString::number(chapter) + u'.' + QString::number(verse);
}

std::optional<VerseId> VerseId::FromText(QStringView text)
{
    const QList<QStringView> parts = text.split(u'.');
    if (parts.size() != 3 || parts.at(0).isEmpty())
        return std::nullopt;
    bool chapterOk = false;
    bool verseOk = false;
    VerseId id{parts.at(0).toString(), parts.at(1).toInt(&chapterOk), parts.at(2).toInt(&verseOk)};
    if (!chapterOk || !verseOk || id.chapter < 0 || id.verse < 0)
        return std::nullopt;
    return id;
}

QString VerseSpan::text() const
{
    if (isEmpty())
        return QStringLiteral("-");
    return first == last ? first.text() : first.text() + u'-' + last.text();
}

std::optional<VerseSpan> VerseSpan::FromText(QStringView text)
{
    if (text == u"-")
        return VerseSpan{};
    const qsizetype dash = text.indexOf(u'-');
    const std::optional<VerseId> first = VerseId::FromText(dash < 0 ? text : text.left(dash));
    const std::optional<VerseId> last = dash < 0 ? first : VerseId::FromText(text.mid(dash + 1));
    if (!first || !last)
        return std::nullopt;
    return VerseSpan{*first, *last};
}

VerseNumbering VerseNumbering::Kjv(int oldTestamentBooks, int newTestamentBooks)
{
    VerseNumbering kjv;
    constexpr int FirstOfNew = 39;
    for (int i = 0; i < oldTestamentBooks; ++i)
        kjv.m_books.append(CanonBooks::Osis(i));
    for (int i = 0; i < newTestamentBooks; ++i)
        kjv.m_books.append(CanonBooks::Osis(FirstOfNew + i));
    return kjv;
}

VerseNumbering VerseNumbering::ForTranslation(const clsBible &bible)
{
    const QString path = basStrings::JoinPath(bible.VersionPath(), FileName());
    if (const std::optional<platform::TextFileContent> file = platform::ReadTextLines(path)) {
        if (std::optional<VerseNumbering> numbering = Parse(file->lines))
            return *numbering;
    }
    // Books known by their English names; the others by their place in their testament.
    VerseNumbering kjv = Kjv(bible.OldTestamentCount(), bible.NewTestamentCount());
    for (int b = 1; b <= bible.BooksCount() && b <= kjv.m_books.size(); ++b) {
        const QString name = bible.BookName(b).remove(u' ');
        for (int i = 0; i < CanonBooks::Count(); ++i) {
            if (CanonBooks::EnglishName(i).remove(u' ').compare(name, Qt::CaseInsensitive) == 0)
                kjv.m_books[b - 1] = CanonBooks::Osis(i);
        }
    }
    return kjv;
}

std::optional<VerseNumbering> VerseNumbering::Parse(const QStringList &lines, QString *problem)
{
    const auto fail = [&](qsizetype line, const QString &why) -> std::optional<VerseNumbering> {
        if (problem)
            *problem = QStringLiteral("line %1: %2").arg(line + 1).arg(why);
        return std::nullopt;
    };
    if (lines.isEmpty() || lines.first().trimmed().isEmpty())
        return fail(0, QStringLiteral("the first line names the versification"));
    VerseNumbering numbering;
    numbering.m_name = lines.first().trimmed();
    for (qsizetype i = 1; i < lines.size(); ++i) {
        const QStringList fields = lines.at(i).split(u' ', Qt::SkipEmptyParts);
        if (fields.isEmpty())
            continue;
        const QString &kind = fields.first();
        if (kind == u"BOOKS") {
            numbering.m_books = fields.mid(1);
            continue;
        }
        if ((kind != u"TOKJV" && kind != u"FROMKJV") || fields.size() != 3)
            return fail(i, QStringLiteral("expected BOOKS, TOKJV or FROMKJV and two verses"));
        const std::optional<VerseId> verse = VerseId::FromText(fields.at(1));
        const std::optional<VerseSpan> span = VerseSpan::FromText(fields.at(2));
        if (!verse || !span)
            return fail(i, QStringLiteral("a verse is not written as Book.chapter.verse"));
        if (kind == u"TOKJV")
            numbering.addToKjv(*verse, *span);
        else
            numbering.addFromKjv(*verse, *span);
    }
    return numbering;
}

QStringList VerseNumbering::Lines() const
{
    QStringList lines{m_name, QStringLiteral("BOOKS ") + m_books.join(u' ')};
    for (const QString &key : m_toOrder)
        lines.append(QStringLiteral("TOKJV ") + key + u' ' + m_toKjv.value(key).text());
    for (const QString &key : m_fromOrder)
        lines.append(QStringLiteral("FROMKJV ") + key + u' ' + m_fromKjv.value(key).text());
    return lines;
}

QString VerseNumbering::OsisOfBook(int bookNumber) const
{
    return m_books.value(bookNumber - 1);
}

int VerseNumbering::BookOfOsis(const QString &osisId) const
{
    return int(m_books.indexOf(osisId)) + 1;
}

int VerseNumbering::SameBookIn(const VerseNumbering &other, int bookNumber) const
{
    const QString osis = OsisOfBook(bookNumber);
    return osis.isEmpty() ? bookNumber : other.BookOfOsis(osis);
}

VerseSpan VerseNumbering::ToKjv(const VerseId &verse) const
{
    return m_toKjv.value(verse.text(), VerseSpan{verse, verse});
}

VerseSpan VerseNumbering::FromKjv(const VerseId &verse) const
{
    return m_fromKjv.value(verse.text(), VerseSpan{verse, verse});
}

void VerseNumbering::addToKjv(const VerseId &here, const VerseSpan &kjv)
{
    const QString key = here.text();
    if (!m_toKjv.contains(key))
        m_toOrder.append(key);
    m_toKjv.insert(key, kjv);
}

void VerseNumbering::addFromKjv(const VerseId &kjv, const VerseSpan &here)
{
    const QString key = kjv.text();
    if (!m_fromKjv.contains(key))
        m_fromOrder.append(key);
    m_fromKjv.insert(key, here);
}

std::tuple<int, int, int> VerseNumbering::KjvOrder(int book, int chapter, int verse) const
{
    static const VerseNumbering kjv = Kjv();
    const VerseSpan span = ToKjv({OsisOfBook(book), chapter, verse});
    const int kjvBook = span.isEmpty() ? 0 : kjv.BookOfOsis(span.first.book);
    return kjvBook > 0 ? std::tuple{kjvBook, span.first.chapter, span.first.verse}
                       : std::tuple{1000 + book, chapter, verse};
}
