#include "tools/import/BookFolder.h"

#include "tools/import/ImportLog.h"
#include "tools/import/OutputFiles.h"

namespace importer {

namespace {
const QString TestamentFolder[2] = {QStringLiteral("oldtest"), QStringLiteral("newtest")};
}

int BookFolder::chapterCount() const
{
    int n = 0;
    for (const BookText &book : books)
        n += int(book.chapters.size());
    return n;
}

qsizetype BookFolder::lineCount() const
{
    qsizetype n = 0;
    for (const BookText &book : books) {
        for (const QStringList &chapter : book.chapters)
            n += chapter.size();
    }
    return n;
}

QString BookFolder::mapLine(const BookText &book)
{
    return u'"' + book.name + QStringLiteral("\",") + QString::number(book.chapters.size());
}

QString BookFolder::fileName(const QString &bookName)
{
    return bookName.toUpper() + QStringLiteral(".dat");
}

bool BookFolder::write(const QString &path, ImportLog &log, const QString &work) const
{
    bool ok = true;
    if (!displayName.isEmpty()) {
        ok &= WriteTextFile(path + QStringLiteral("/bible.dat"),
                            {displayName, firstTestament, secondTestament}, log, work);
    }
    for (int testament = 0; testament < 2; ++testament) {
        QStringList map;
        for (const BookText &book : books) {
            if (book.testament == testament)
                map.append(mapLine(book));
        }
        const QString folder = path + u'/' + TestamentFolder[testament] + u'/';
        ok &= WriteTextFile(folder + QStringLiteral("map.dat"), map, log, work);
    }
    for (const BookText &book : books) {
        QStringList lines;
        for (qsizetype c = 0; c < book.chapters.size(); ++c) {
            lines.append(QStringLiteral("CHAPTER ") + QString::number(c + 1));
            lines += book.chapters.at(c);
        }
        const QString file =
            path + u'/' + TestamentFolder[book.testament & 1] + u'/' + fileName(book.name);
        ok &= WriteTextFile(file, lines, log, work);
    }
    return ok;
}

} // namespace importer
