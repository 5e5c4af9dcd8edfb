#include "library/DataFiles.h"

#include "platform/MsgBox.h"
#include "scripture/basStrings.h"
#include "settings/ProgramSettings.h"

namespace DataFiles {

QString RelativePath(File file)
{
    switch (file) {
    case File::Commentary:
        return QStringLiteral("TVC\\Oldtest\\genesis.dat");
    case File::StrongHebrew:
        return QStringLiteral("strong\\hebrew.dat");
    case File::StrongHebrewIndex:
        return QStringLiteral("strong\\hebrew.idx");
    case File::StrongGreek:
        return QStringLiteral("strong\\greek.dat");
    case File::StrongGreekIndex:
        return QStringLiteral("strong\\greek.idx");
    case File::Dictionary:
        return QStringLiteral("Dictionary.dat");
    case File::Names:
        return QStringLiteral("names.dat");
    case File::Topics:
        return QStringLiteral("topics.dat");
    case File::Stories:
        return QStringLiteral("stories.dat");
    case File::Parables:
        return QStringLiteral("parables.dat");
    case File::Miracles:
        return QStringLiteral("miracles.dat");
    case File::Prophecy:
        return QStringLiteral("prophecy.dat");
    case File::Units:
        return QStringLiteral("Units.rtf");
    case File::Verses:
        return QStringLiteral("verses.dat");
    case File::Help:
        return QStringLiteral("help\\bible.chm");
    case File::Manual:
        return QStringLiteral("help\\index.html");
    case File::Credits:
        return QStringLiteral("CREDITS.md");
    }
    return QString();
}

QString Name(File file)
{
    const QString path = RelativePath(file);
    return path.mid(path.lastIndexOf(u'\\') + 1);
}

QString Path(File file)
{
    return basStrings::JoinPath(ProgramSettings::instance().programFolder(), RelativePath(file));
}

bool Exists(File file)
{
    return basStrings::FileExists(Path(file));
}

QString MissingFileMessage(const QString &what)
{
    return what +
           QStringLiteral(
               " is missing.  Feature will be disabled.\r\nReinstall the program to restore it");
}

void ReportMissing(const QString &what)
{
    platform::MsgBox(MissingFileMessage(what), vb::vbCritical | vb::vbOKOnly);
}

} // namespace DataFiles
