#include "scripture/TranslationCheck.h"

#include "platform/FileSystem.h"
#include "platform/VbError.h"
#include "scripture/BookMap.h"
#include "scripture/ChapterMarker.h"
#include "scripture/basStrings.h"

#include <QFileInfo>

namespace TranslationCheck {

namespace {

void checkBook(const QString &folder, const BookMap::Entry &book, QStringList &problems)
{
    const QString name = book.name.trimmed();
    const QString fileName = basStrings::UpperCase(name) + QStringLiteral(".dat");
    const std::optional<platform::TextFileContent> file =
        platform::ReadTextLines(folder + fileName);
    if (!file) {
        problems << name + QStringLiteral(": book file ") + fileName +
                        QStringLiteral(" is missing or unreadable");
        return;
    }
    int expectedChapter = 1;
    int chapter = 0;
    int lastVerse = 0;
    int versesInChapter = 0;
    int markers = 0;
    auto endChapter = [&] {
        if (chapter > 0 && versesInChapter == 0)
            problems << name + u' ' + QString::number(chapter) +
                            QStringLiteral(": chapter has no verses");
    };
    int lineNumber = 0;
    for (const QString &line : file->lines) {
        ++lineNumber;
        const QString where =
            name + u' ' +
            (chapter > 0 ? QString::number(chapter) : QStringLiteral("(before the first chapter)"));
        if (ChapterMarker::IsMarker(line)) {
            endChapter();
            ++markers;
            const int n = ChapterMarker::Number(line);
            if (n <= 0) {
                problems << where + QStringLiteral(": line ") + QString::number(lineNumber) +
                                QStringLiteral(" is a chapter marker without a number: \"") + line +
                                u'"';
                chapter = expectedChapter;
            } else {
                // Passages are found by the whole marker line, so "CHAPTER 03" or "CHAPTER 3a"
                // counts here but can never be shown.
                if (!ChapterMarker::IsMarkerOf(line, n))
                    problems << name + u' ' + QString::number(n) + QStringLiteral(": line ") +
                                    QString::number(lineNumber) + QStringLiteral(": \"") + line +
                                    QStringLiteral("\" is not found as chapter ") +
                                    QString::number(n) + QStringLiteral("; write \"CHAPTER ") +
                                    QString::number(n) + u'"';
                if (n != expectedChapter)
                    problems << name + u' ' + QString::number(n) +
                                    QStringLiteral(": chapter marker ") + QString::number(n) +
                                    QStringLiteral(" where chapter ") +
                                    QString::number(expectedChapter) +
                                    QStringLiteral(" was expected");
                chapter = n;
            }
            expectedChapter = chapter + 1;
            lastVerse = 0;
            versesInChapter = 0;
            continue;
        }
        if (chapter == 0) {
            problems << where + QStringLiteral(": line ") + QString::number(lineNumber) +
                            QStringLiteral(" comes before the first chapter marker");
            continue;
        }
        if (line.isEmpty() || !basStrings::IsDigit(line.at(0))) {
            problems << where + QStringLiteral(": line ") + QString::number(lineNumber) +
                            QStringLiteral(" is neither a chapter marker nor a verse: \"") +
                            line.left(60) + u'"';
            continue;
        }
        ++versesInChapter;
        const int verse = basStrings::LeadingNumber(line);
        if (verse <= lastVerse)
            problems << where + QStringLiteral(": verse ") + QString::number(verse) +
                            QStringLiteral(" is out of order (after verse ") +
                            QString::number(lastVerse) + u')';
        else if (verse == lastVerse + 2)
            problems << where + QStringLiteral(": verse ") + QString::number(lastVerse + 1) +
                            QStringLiteral(" is missing");
        else if (verse > lastVerse + 2)
            problems << where + QStringLiteral(": verses ") + QString::number(lastVerse + 1) +
                            u'-' + QString::number(verse - 1) + QStringLiteral(" are missing");
        lastVerse = verse;
    }
    endChapter();
    if (markers != book.chapters)
        problems << name + QStringLiteral(": map.dat gives ") + QString::number(book.chapters) +
                        QStringLiteral(" chapters, the book file has ") + QString::number(markers) +
                        QStringLiteral(" chapter markers");
}

} // namespace

QStringList Check(const QString &translationFolder)
{
    QStringList problems;
    const QString root = basStrings::JoinPath(translationFolder, QString());
    if (!platform::FolderExists(root))
        return {translationFolder + QStringLiteral(": the folder does not exist")};
    const std::optional<platform::TextFileContent> header =
        platform::ReadTextLines(root + QStringLiteral("bible.dat"));
    if (!header)
        problems << QStringLiteral("bible.dat is missing or unreadable");
    else if (header->lines.size() < 3)
        problems << QStringLiteral(
            "bible.dat should hold three lines: the name and the two testament labels");

    int books = 0;
    const QString testaments[2] = {QStringLiteral("oldtest"), QStringLiteral("newtest")};
    for (const QString &testament : testaments) {
        const QString folder = root + testament + platform::PathSeparator();
        const std::optional<platform::TextFileContent> map =
            platform::ReadTextLines(folder + QStringLiteral("map.dat"));
        if (!map) {
            problems << testament + QStringLiteral("/map.dat is missing or unreadable");
            continue;
        }
        int lineNumber = 0;
        for (const QString &line : map->lines) {
            ++lineNumber;
            if (BookMap::IsBlank(line))
                continue;
            VbError error;
            const std::optional<BookMap::Entry> entry = BookMap::Parse(line, &error);
            if (!entry) {
                problems << testament + QStringLiteral("/map.dat line ") +
                                QString::number(lineNumber) + QStringLiteral(": ") +
                                error.description + QStringLiteral(": \"") + line + u'"';
                continue;
            }
            if (++books > 100)
                problems << testament + QStringLiteral("/map.dat line ") +
                                QString::number(lineNumber) +
                                QStringLiteral(": more than 100 books");
            if (entry->chapters == 0)
                problems << entry->name.trimmed() + QStringLiteral(": map.dat gives no chapters");
            checkBook(folder, *entry, problems);
        }
    }
    return problems;
}

} // namespace TranslationCheck
