#include "scripture/BookScan.h"

#include "platform/FileSystem.h"
#include "platform/VbError.h"
#include "scripture/BookFiles.h"
#include "scripture/basStrings.h"
#include "scripture/clsBible.h"

namespace {
bool isLetter(QChar c)
{
    return c >= u'A' && c <= u'Z';
}
} // namespace

bool WholeWordMatch(QStringView upperLine, QStringView word)
{
    qsizetype from = 0;
    while (from <= upperLine.size()) {
        const qsizetype at = upperLine.indexOf(word, from);
        if (at < 0)
            return false;
        const qsizetype end = at + word.size();
        const bool before = at == 0 || !isLetter(upperLine[at - 1]);
        const bool after = end >= upperLine.size() || !isLetter(upperLine[end]);
        if (before && after)
            return true;
        from = at + 1;
    }
    return false;
}

void BookScan::run(const clsBible &store)
{
    QString chapter;
    const int books = store.BooksCount();
    for (int b = 1; b <= books; ++b) {
        if (beforeBook && !beforeBook(b))
            continue;
        const QString path = store.BookFilePath(b);
        const std::shared_ptr<const BookFiles::Content> file = BookFiles::upperLines(path);
        if (!file)
            throw VbError::fileNotFound(platform::ResolvePath(path));
        const QStringList &lines = file->lines;
        const QStringList &upper = file->upper;
        const qsizetype count = lines.size();

        // The first line is read and passed over; an empty file has none to read.
        if (count == 0)
            throw VbError::inputPastEnd();
        qsizetype i = 1;
        while (i < count) {
            qsizetype at = i++;
            if (QStringView(upper.at(at)).left(7) == u"CHAPTER") {
                chapter = QString::number(basStrings::LeadingNumber(QStringView(upper.at(at)).mid(7)));
                // The line after a marker is read at once, without looking for the end of file.
                if (i >= count)
                    throw VbError::inputPastEnd();
                at = i++;
            }
            const Next next = onLine ? onLine(Line{b, chapter, lines.at(at), upper.at(at)}) : Next::Line;
            if (next == Next::Book)
                break;
            if (next == Next::Stop)
                return;
        }
        if (afterBook && !afterBook(b))
            return;
    }
}
