#include "platform/FileSystem.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace platform {

QString PathSeparator()
{
#ifdef Q_OS_WIN
    return QStringLiteral("\\");
#else
    return QStringLiteral("/");
#endif
}

bool IsUsablePath(const QString &path)
{
    // A NUL cannot stand in a file name; names read from a damaged file may hold one.
    return !path.isEmpty() && !path.contains(QChar(0));
}

namespace {

QStringList folderEntries(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

} // namespace

QString ResolvePath(const QString &path)
{
    if (!IsUsablePath(path))
        return path;
    QString normal = path;
    normal.replace(u'\\', u'/');
    if (normal.isEmpty() || QFileInfo::exists(normal))
        return normal;

    // Mostly only the file's own name differs in case: its folder is there as written.
    const qsizetype slash = normal.lastIndexOf(u'/');
    if (slash > 0 && slash + 1 < normal.size()) {
        const QString folder = normal.left(slash);
        const QStringView name = QStringView(normal).mid(slash + 1);
        if (name != u"." && name != u".." && QFileInfo(folder).isDir()) {
            for (const QString &entry : folderEntries(folder)) {
                if (entry.compare(name, Qt::CaseInsensitive) == 0)
                    return folder + u'/' + entry;
            }
            return normal;
        }
    }

    const bool absolute = normal.startsWith(u'/');
    const QStringList parts = normal.split(u'/', Qt::SkipEmptyParts);
    QString current = absolute ? QStringLiteral("/") : QString();
    for (qsizetype i = 0; i < parts.size(); ++i) {
        const QString &part = parts.at(i);
        const QString base = current.isEmpty() ? QStringLiteral(".") : current;
        QString found;
        if (part == u"." || part == u".." || QFileInfo::exists(base + u'/' + part)) {
            found = part;
        } else {
            const QStringList entries = folderEntries(base);
            for (const QString &entry : entries) {
                if (entry.compare(part, Qt::CaseInsensitive) == 0) {
                    found = entry;
                    break;
                }
            }
        }
        if (found.isEmpty()) {
            // Nothing matches: keep the rest as written so messages name the file asked for.
            QStringList rest = parts.mid(i);
            return (current.isEmpty() || current.endsWith(u'/') ? current : current + u'/') +
                   rest.join(u'/') + (normal.endsWith(u'/') ? QStringLiteral("/") : QString());
        }
        if (!current.isEmpty() && !current.endsWith(u'/'))
            current += u'/';
        current += found;
    }
    if (normal.endsWith(u'/') && !current.endsWith(u'/'))
        current += u'/';
    return current;
}

bool FileExists(const QString &path)
{
    if (!IsUsablePath(path))
        return false;
    const QFileInfo info(ResolvePath(path));
    return info.exists() && info.isFile();
}

bool FolderExists(const QString &path)
{
    if (!IsUsablePath(path))
        return false;
    return QFileInfo(ResolvePath(path)).isDir();
}

std::optional<QByteArray> ReadFileBytes(const QString &path)
{
    if (!IsUsablePath(path))
        return std::nullopt;
    QFile file(ResolvePath(path));
    if (!QFileInfo(file.fileName()).isFile() || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return file.readAll();
}

std::optional<TextFileContent> ReadTextLines(const QString &path)
{
    const std::optional<QByteArray> bytes = ReadFileBytes(path);
    if (!bytes)
        return std::nullopt;
    DecodedText decoded = DecodeText(*bytes);
    return TextFileContent{SplitLines(decoded.text), decoded.encoding};
}

QString WriteFileAtomically(const QString &path, const QByteArray &bytes)
{
    if (!IsUsablePath(path))
        return QStringLiteral("The file name is not valid.");
    QSaveFile file(ResolvePath(path));
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    if (file.write(bytes) != bytes.size()) {
        const QString reason = file.errorString();
        file.cancelWriting();
        return reason;
    }
    if (!file.commit())
        return file.errorString();
    return QString();
}

QByteArray JoinLinesCrLf(const QStringList &lines, TextEncoding encoding)
{
    QString text;
    for (const QString &line : lines) {
        text += line;
        text += QStringLiteral("\r\n");
    }
    return EncodeText(text, encoding);
}

} // namespace platform
