#include "scripture/TranslationList.h"

#include "platform/FileSystem.h"
#include "scripture/basStrings.h"

#include <QDir>
#include <algorithm>

namespace TranslationList {

Header ReadHeader(const QString &translationFolder)
{
    Header header;
    const std::optional<platform::TextFileContent> file = platform::ReadTextLines(
        basStrings::JoinPath(translationFolder, QStringLiteral("bible.dat")));
    if (!file)
        return header;
    header.found = true;
    header.name = file->lines.value(0);
    header.firstTestament = file->lines.value(1);
    header.secondTestament = file->lines.value(2);
    return header;
}

bool IsTranslation(const QString &folderPath)
{
    return basStrings::FileExists(basStrings::JoinPath(folderPath, QStringLiteral("bible.dat")));
}

QList<InstalledTranslation> List(const QString &programFolder)
{
    QDir dir(platform::ResolvePath(programFolder));
    QStringList folders = dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    // Listed in name order whatever the file system returns, as users saw them on Windows.
    std::sort(folders.begin(), folders.end(), [](const QString &a, const QString &b) {
        return a.compare(b, Qt::CaseInsensitive) < 0;
    });
    QList<InstalledTranslation> list;
    for (const QString &folder : std::as_const(folders)) {
        const Header header = ReadHeader(dir.filePath(folder));
        // A translation without a name on its first line is still one; a blank entry could not
        // be told apart or chosen with confidence, so it goes by its folder's name.
        if (header.found)
            list.append(
                {folder, basStrings::TrimBlanks(header.name).isEmpty() ? folder : header.name});
    }
    return list;
}

} // namespace TranslationList
