#include "scripture/clsBible.h"

#include "platform/FileSystem.h"
#include "platform/MsgBox.h"
#include "platform/VbError.h"
#include "scripture/BookFiles.h"
#include "scripture/BookMap.h"
#include "scripture/ChapterMarker.h"
#include "scripture/ReferenceParser.h"
#include "scripture/basStrings.h"
#include "scripture/clsSeparation.h"

#include <QHash>
#include <QList>
#include <algorithm>

namespace {

bool containsLetter(const QString &text)
{
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.isLetter(); });
}

struct Part
{
    QString text;
    bool heading = false;
    int chapter = 0;
};

} // namespace

void clsBible::setVersionPath(const QString &path)
{
    QString folder = path;
    if (!folder.endsWith(u'\\') && !folder.endsWith(u'/'))
        folder += platform::PathSeparator();
    m_versionPath = folder;
    m_testamentFolders[0] = folder + QStringLiteral("oldtest") + platform::PathSeparator();
    m_testamentFolders[1] = folder + QStringLiteral("newtest") + platform::PathSeparator();

    m_lastReadFailed = false;
    int row = 0;
    if (!loadMap(0, row))
        return;
    m_oldTestamentCount = row;
    if (!loadMap(1, row))
        return;
    m_newTestamentCount = row - m_oldTestamentCount;
    m_booksCount = m_oldTestamentCount + m_newTestamentCount;
}

bool clsBible::loadMap(int testament, int &row)
{
    const QString mapPath = m_testamentFolders[testament] + QStringLiteral("map.dat");
    const std::optional<platform::TextFileContent> map = platform::ReadTextLines(mapPath);
    if (!map) {
        m_lastReadFailed = true;
        platform::MsgBox(mapPath + QStringLiteral(" is missing or is corrupt"), vb::vbOKOnly);
        return false;
    }
    // The book files' names as they are on disk, so that a search over all the books does not
    // have to look each one up without regard to case.
    QHash<QString, QString> onDisk;
    for (const QString &file :
         platform::FileNames(platform::ResolvePath(m_testamentFolders[testament]))) {
        if (file.endsWith(QStringLiteral(".dat")))
            onDisk.insert(file.toUpper(), file);
    }
    for (const QString &line : map->lines) {
        if (BookMap::IsBlank(line))
            continue;
        VbError error;
        std::optional<BookMap::Entry> entry = BookMap::Parse(line, &error);
        if (entry && row >= MaxBooks)
            error = VbError::subscriptOutOfRange();
        if (!entry || row >= MaxBooks) {
            m_lastReadFailed = true;
            platform::MsgBox(platform::ErrText(error.number, error.description), vb::vbOKOnly);
            return false;
        }
        m_books[row].name = entry->name;
        m_books[row].chapters = entry->chapters;
        m_books[row].fileName =
            onDisk.value((entry->name.trimmed() + QStringLiteral(".dat")).toUpper());
        ++row;
    }
    return true;
}

QString clsBible::BookName(int number) const
{
    number = std::clamp(number, 1, std::clamp(m_booksCount, 1, MaxBooks));
    return m_books[number - 1].name.trimmed();
}

int clsBible::Chapters(int number) const
{
    number = std::clamp(number, 1, std::clamp(m_booksCount, 1, MaxBooks));
    return m_books[number - 1].chapters;
}

int clsBible::FirstBookOfTestament(int testament) const
{
    return testament == 1 ? m_oldTestamentCount + 1 : 1;
}

int clsBible::LastBookOfTestament(int testament) const
{
    return testament == 1 ? m_booksCount : m_oldTestamentCount;
}

int clsBible::TestamentOfBook(int book) const
{
    return book > m_oldTestamentCount ? 1 : 0;
}

int clsBible::BookByRow(int testament, int row) const
{
    const int book = FirstBookOfTestament(testament) + row;
    return row >= 0 && book <= LastBookOfTestament(testament) ? book : 0;
}

int clsBible::RowOfBook(int book) const
{
    if (book < 1 || book > m_booksCount)
        return -1;
    return book - FirstBookOfTestament(TestamentOfBook(book));
}

int clsBible::BookByName(const QString &name) const
{
    const QString wanted = basStrings::UpperCase(name.trimmed());
    const int count = std::clamp(m_booksCount, 0, MaxBooks);
    for (int i = 1; i <= count; ++i) {
        if (basStrings::UpperCase(m_books[i - 1].name.trimmed()) == wanted)
            return i;
    }
    return 0;
}

QString clsBible::BookFilePath(int number) const
{
    const QString &onDisk =
        m_books[std::clamp(number, 1, std::clamp(m_booksCount, 1, MaxBooks)) - 1].fileName;
    return m_testamentFolders[TestamentOfBook(number)] +
           (onDisk.isEmpty() ? BookName(number) + QStringLiteral(".dat") : onDisk);
}

bool clsBible::lookUpBook(QString &name, Passage &record) const
{
    name = ReferenceParser::ExpandAbbreviation(
        basStrings::UpperCase(basStrings::TrimBlanks(name).toString()));
    // An empty name is a prefix of every name, so it finds the first book.
    const int count = std::clamp(m_booksCount, 0, MaxBooks);
    for (int i = 1; i <= count; ++i) {
        const QString full = basStrings::UpperCase(m_books[i - 1].name.trimmed());
        if (full.startsWith(name)) {
            name = full;
            record.bookNumber = i;
            record.testament = TestamentOfBook(i);
            return true;
        }
    }
    record.testament = NotFound;
    return false;
}

QString clsBible::read(Passage &record, QString book, int chapterFrom, int verseFrom, int chapterTo,
                       int verseTo, bool inTextReference) const
{
    // 1. Find the book; an unknown one changes nothing but the testament.
    if (!lookUpBook(book, record))
        return QString();

    // 2. Forget the last passage's numbers.
    record.chapterFrom = record.chapterTo = record.verseFrom = record.verseTo = 0;

    // 3. Order the chapters.
    if (chapterTo == 0)
        chapterTo = chapterFrom;
    if (chapterTo < chapterFrom)
        std::swap(chapterFrom, chapterTo);

    // 4. A chapter past the end of the book means the last chapter.
    const int last = Chapters(record.bookNumber);
    if (chapterFrom > last)
        chapterFrom = chapterTo = last;
    if (chapterTo > last)
        chapterTo = last;

    // 5. Read the chapters, markers becoming headings when in-text references are on.
    const QString path = m_testamentFolders[record.testament] + book + QStringLiteral(".dat");
    const std::shared_ptr<const BookFiles::Content> file = BookFiles::lines(path);
    QList<Part> parts;
    bool inside = false;
    if (file) {
        record.readFailed = false;
        int chapter = 0;
        for (const QString &line : file->lines) {
            if (inside && ChapterMarker::IsMarkerOf(line, chapterTo + 1))
                break;
            if (!inside && ChapterMarker::IsMarkerOf(line, chapterFrom))
                inside = true;
            if (!inside)
                continue;
            if (ChapterMarker::IsMarker(line)) {
                chapter = ChapterMarker::Number(line);
                if (inTextReference)
                    parts.append({book + u' ' + QString::number(chapter), true, chapter});
                continue;
            }
            parts.append({line, false, chapter});
        }
    }

    // 6. The book and chapters of this passage, even when none of it was found, so that the
    // reference shown and a list's next bare chapter ("Mal 0,3") name the book asked for.
    record.book = book;
    record.chapterFrom = chapterFrom;
    record.chapterTo = chapterTo;
    if (!file) {
        record.readFailed = true;
        platform::MsgBox(
            platform::ErrText(53, VbError::fileNotFound(platform::ResolvePath(path)).description));
        return QString();
    }
    if (!inside)
        return QString();

    // 7. Whole chapters, or the verses asked for.
    if (verseFrom == 0 && verseTo == 0) {
        QString text;
        for (const Part &part : std::as_const(parts))
            text += part.text + m_separator;
        return text;
    }
    if (verseFrom == 0)
        verseFrom = 1;
    if (verseTo == 0 && chapterFrom == chapterTo)
        verseTo = verseFrom;

    // 8. The first verse line that begins with the digits of the first verse.
    const QString fromDigits = QString::number(verseFrom);
    qsizetype start = -1;
    for (qsizetype i = 0; i < parts.size(); ++i) {
        if (!parts.at(i).heading && parts.at(i).text.startsWith(fromDigits)) {
            start = i;
            break;
        }
    }
    if (start < 0)
        return QString();

    // 9. Verses up to and including the last one; in a passage across chapters the last verse
    // only counts once its chapter has begun. Running off the end keeps the empty piece after the
    // final line break, as splitting the text at its separator does.
    parts.append({QString(), false, chapterTo});
    bool inLastChapter = chapterFrom == chapterTo;
    QString text;
    for (qsizetype i = start; i < parts.size(); ++i) {
        const Part &part = parts.at(i);
        text += part.text + m_separator;
        if (part.chapter == chapterTo)
            inLastChapter = true;
        if (part.heading)
            continue;
        if (verseTo != 0 && inLastChapter && basStrings::LeadingNumber(part.text) == verseTo)
            break;
    }

    // 10. The verses and the end of the passage; the heading goes in front when asked for.
    record.verseFrom = verseFrom;
    record.chapterTo = chapterTo;
    record.verseTo = verseTo;
    if (inTextReference)
        return book + u' ' + QString::number(chapterFrom) + QStringLiteral(" \r\n") + text;
    return text;
}

QString Passage::Standard() const
{
    QString s = book + u' ' + QString::number(chapterFrom);
    if (verseFrom != 0)
        s += u':' + QString::number(verseFrom);
    if (chapterTo != 0 && chapterTo != chapterFrom) {
        s += u'-' + QString::number(chapterTo);
        if (verseTo != 0)
            s += u':' + QString::number(verseTo);
    } else if (verseTo != verseFrom) {
        s += u'-' + QString::number(verseTo);
    }
    return s;
}

QString clsBible::readOne(Passage &record, const QString &reference, bool inTextReference) const
{
    const ReferenceParser::Reference ref = ReferenceParser::Parse(reference);
    return read(record, ref.book, ref.chapterFrom, ref.verseFrom, ref.chapterTo, ref.verseTo,
                inTextReference);
}

Passage clsBible::FetchPassage(const QString &book, int chapterFrom, int verseFrom, int chapterTo,
                               int verseTo) const
{
    Passage fetched = m_last;
    fetched.readFailed = m_lastReadFailed;
    fetched.text =
        read(fetched, book, chapterFrom, verseFrom, chapterTo, verseTo, m_inTextReference);
    return fetched;
}

Passage clsBible::Fetch(const QString &references, bool inTextReference) const
{
    clsSeparation list;
    list.setDelimiter(QStringLiteral(","));
    list.setText(references);
    // The numbers of the passage before carry on until a passage replaces them.
    Passage fetched = m_last;
    fetched.readFailed = m_lastReadFailed;
    QString text;
    for (const QString &item : list.items()) {
        // "John 3:16,18": an item of bare numbers continues the last passage's book. An item
        // that names a book of its own ("1John 4:8", "1 Cor 13") starts with a digit too, but
        // is read as it stands, or numbered books could not be reached after any other passage.
        if (!item.isEmpty() && basStrings::IsDigit(item.at(0)) && !containsLetter(item))
            text += readOne(fetched, fetched.book + u' ' + item, inTextReference);
        else
            text += readOne(fetched, item, inTextReference);
    }
    fetched.text = text;
    return fetched;
}

Passage clsBible::remember(Passage fetched)
{
    m_lastReadFailed = fetched.readFailed;
    m_last = fetched;
    m_last.text.clear();
    return fetched;
}

Passage clsBible::MoveTo(const QString &references)
{
    return remember(Fetch(references));
}

Passage clsBible::MoveToPassage(const QString &book, int chapterFrom, int verseFrom, int chapterTo,
                                int verseTo)
{
    return remember(FetchPassage(book, chapterFrom, verseFrom, chapterTo, verseTo));
}

QString clsBible::passage(const QString &book, int chapterFrom, int verseFrom, int chapterTo,
                          int verseTo)
{
    return MoveToPassage(book, chapterFrom, verseFrom, chapterTo, verseTo).text;
}
