#include "scripture/BookScan.h"

#include "platform/FileSystem.h"
#include "platform/VbError.h"
#include "scripture/BookFiles.h"
#include "scripture/ChapterMarker.h"
#include "scripture/clsBible.h"

namespace {
bool isLetter(QChar c)
{
    return c >= u'A' && c <= u'Z';
}
} // namespace

namespace {
// How common each capital letter is in English text (0 = rarest), to pick the character of a word
// that is quickest to look for.
int letterFrequency(QChar c)
{
    static constexpr char order[] = "ZQJXKVBPYGFWMUCLDRHSNIOATE";
    if (c < u'A' || c > u'Z')
        return -1;
    for (int i = 0; order[i]; ++i) {
        if (order[i] == c.unicode())
            return i;
    }
    return -1;
}
} // namespace

qsizetype FindWord(QStringView line, QStringView word, qsizetype from)
{
    // Every line of the translation goes through here: look for the word's rarest character with
    // the vectorised single-character search, then compare the whole word around it, which is
    // several times faster than a general substring search on short lines.
    if (word.isEmpty())
        return from <= line.size() ? from : -1;
    qsizetype pivot = 0;
    for (qsizetype k = 1, best = letterFrequency(word[0]); k < word.size() && best >= 0; ++k) {
        const int f = letterFrequency(word[k]);
        if (f < best) {
            best = f;
            pivot = k;
        }
    }
    const QChar key = word[pivot];
    const qsizetype last = line.size() - word.size();
    while (from <= last) {
        const qsizetype at = line.indexOf(key, from + pivot);
        if (at < 0 || at - pivot > last)
            return -1;
        const qsizetype start = at - pivot;
        if (line.mid(start, word.size()) == word)
            return start;
        from = start + 1;
    }
    return -1;
}

bool WholeWordMatch(QStringView upperLine, QStringView word)
{
    qsizetype from = 0;
    while (from <= upperLine.size()) {
        const qsizetype at = FindWord(upperLine, word, from);
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
            // The upper-cased copy is the one the searches read anyway; testing the other copy
            // would bring every line into the cache twice. Upper case makes no marker of a line.
            if (ChapterMarker::IsMarker(upper.at(at))) {
                chapter = QString::number(ChapterMarker::Number(upper.at(at)));
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

QString OverLimitMessage(int limit)
{
    return QStringLiteral("There were over a ") + QString::number(limit) +
           QStringLiteral(" results for your search,\r\n") +
           QStringLiteral("please narrow it down or use the advanced search feature!");
}
