#include "app/PassageFiles.h"

#include "platform/FileSystem.h"
#include "scripture/basStrings.h"

namespace PassageFiles {

QString ExportPath(const QString &programFolder)
{
    return basStrings::JoinPath(programFolder, QStringLiteral("export.txt"));
}

QString SaveFilter()
{
    return QStringLiteral(
        "Text Files (*.txt)|*.txt|Rich Text Format (*.rtf)|*.rtf|All Files (*.*)|*.*");
}

bool SavesRichText(int filterIndex)
{
    return filterIndex == 2;
}

QString SaveName(const QString &chosen, int filterIndex)
{
    const QString ending =
        SavesRichText(filterIndex) ? QStringLiteral(".rtf") : QStringLiteral(".txt");
    return chosen.endsWith(ending, Qt::CaseInsensitive) ? chosen : chosen + ending;
}

QString Write(const QString &path, const QString &text)
{
    return platform::WriteFileAtomically(path, (text + QStringLiteral("\r\n")).toUtf8());
}

} // namespace PassageFiles
