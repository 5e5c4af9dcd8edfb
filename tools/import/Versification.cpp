#include "tools/import/Versification.h"

#include "tools/import/BookTable.h"

namespace importer {

void Versification::setBook(int book, QList<int> verseCounts)
{
    if (book < 0)
        return;
    if (m_books.size() <= book)
        m_books.resize(book + 1);
    m_books[book] = std::move(verseCounts);
}

int Versification::chapterCount(int book) const
{
    return book >= 0 && book < m_books.size() ? int(m_books.at(book).size()) : 0;
}

int Versification::chapterCount() const
{
    int n = 0;
    for (const QList<int> &book : m_books)
        n += int(book.size());
    return n;
}

int Versification::verseCount(int book, int chapter) const
{
    if (chapter < 1 || chapter > chapterCount(book))
        return 0;
    return m_books.at(book).at(chapter - 1);
}

QString Versification::bookName(int book)
{
    const std::vector<BookInfo> &books = CanonBooks();
    return book >= 0 && size_t(book) < books.size() ? books[size_t(book)].english : QString();
}

Versification::Point Versification::parsePoint(QStringView text)
{
    // A grain ("!note", "@word") narrows a point inside a verse; the verse is what matters here.
    const qsizetype grain = text.indexOf(u'!');
    if (grain >= 0)
        text = text.left(grain);
    const QList<QStringView> parts = text.split(u'.');
    Point p;
    if (parts.isEmpty())
        return p;
    p.book = CanonIndex(parts.at(0));
    bool ok = true;
    if (parts.size() > 1)
        p.chapter = parts.at(1).toInt(&ok);
    if (ok && parts.size() > 2)
        p.verse = parts.at(2).toInt(&ok);
    if (!ok || parts.size() > 3 || p.chapter < 0 || p.verse < 0)
        p.book = -1;
    return p;
}

QString Versification::rangeText(Point from, Point to, QString *problem) const
{
    const int book = from.book;
    const QString name = bookName(book);
    if (book < 0 || chapterCount(book) == 0) {
        *problem = QStringLiteral("unknown book");
        return {};
    }
    if (to.book >= 0 && to.book != book) {
        *problem = QStringLiteral("range across books");
        return {};
    }
    const int chapters = chapterCount(book);
    if (from.chapter == 0) {
        // A whole book.
        return chapters == 1 ? name + QStringLiteral(" 1")
                             : name + QStringLiteral(" 1-") + QString::number(chapters);
    }
    if (from.chapter > chapters) {
        *problem = QStringLiteral("no chapter %1").arg(from.chapter);
        return {};
    }
    if (from.verse > verseCount(book, from.chapter)) {
        *problem = QStringLiteral("no verse %1:%2").arg(from.chapter).arg(from.verse);
        return {};
    }
    if (to.book < 0) {
        to = from;
    } else {
        if (to.chapter == 0 || to.chapter > chapters)
            to.chapter = chapters;
        if (to.verse > verseCount(book, to.chapter))
            to.verse = verseCount(book, to.chapter);
    }
    if (to.chapter < from.chapter ||
        (to.chapter == from.chapter && from.verse > 0 && to.verse > 0 && to.verse < from.verse))
        to = from;

    const QString start = name + u' ' + QString::number(from.chapter);
    if (from.verse == 0 && to.verse == 0) {
        if (to.chapter == from.chapter)
            return start;
        return start + u'-' + QString::number(to.chapter);
    }
    const int fromVerse = from.verse == 0 ? 1 : from.verse;
    const int toVerse = to.verse == 0 ? verseCount(book, to.chapter) : to.verse;
    QString text = start + u':' + QString::number(fromVerse);
    if (to.chapter != from.chapter)
        text += u'-' + QString::number(to.chapter) + u':' + QString::number(toVerse);
    else if (toVerse != fromVerse)
        text += u'-' + QString::number(toVerse);
    return text;
}

QStringList Versification::references(QStringView osisRef, QStringList *problems) const
{
    QStringList out;
    const QList<QStringView> items = osisRef.split(u' ', Qt::SkipEmptyParts);
    for (QStringView item : items) {
        const qsizetype dash = item.indexOf(u'-');
        const Point from = parsePoint(dash < 0 ? item : item.left(dash));
        Point to;
        if (dash >= 0) {
            to = parsePoint(item.mid(dash + 1));
            if (to.book < 0) {
                if (problems)
                    problems->append(item.toString() + QStringLiteral(": unreadable"));
                continue;
            }
        }
        QString problem;
        const QString text = rangeText(from, to, &problem);
        if (text.isEmpty()) {
            if (problems)
                problems->append(item.toString() + QStringLiteral(": ") + problem);
            continue;
        }
        if (!out.contains(text))
            out.append(text);
    }
    return out;
}

} // namespace importer
