#include "platform/FileSystem.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

#ifdef Q_OS_WIN
#include <io.h>
#include <windows.h>
#else
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace platform {

QString PathSeparator()
{
#ifdef Q_OS_WIN
    return QStringLiteral("\\");
#else
    return QStringLiteral("/");
#endif
}

QStringList FileNames(const QString &folder)
{
    // Read straight from the folder: one look at each entry, where a listing through QDir also
    // sorts, filters and builds file details the caller does not need.
    QStringList names;
    std::error_code ec;
    for (std::filesystem::directory_iterator it(QFile::encodeName(folder).toStdString(), ec), end;
         !ec && it != end; it.increment(ec)) {
        std::error_code type;
        if (it->is_regular_file(type))
            names.append(
                QFile::decodeName(QByteArray::fromStdString(it->path().filename().string())));
    }
    return names;
}

bool IsUsablePath(const QString &path)
{
    // A NUL cannot stand in a file name; names read from a damaged file may hold one.
    return !path.isEmpty() && !path.contains(QChar(0));
}

namespace {

QStringList folderEntries(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System |
                                  QDir::NoDotAndDotDot);
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

QString SaveTemporaryPath(const QString &path)
{
    return path + u'.' + QString::number(QCoreApplication::applicationPid()) +
           QStringLiteral(".temp");
}

namespace {

QString systemError(int error)
{
    return QString::fromLocal8Bit(std::strerror(error));
}

// "bookmarks.dat.1234.temp" gives 1234; 0 for a name of another shape.
qint64 savingProcess(const QString &name)
{
    static const QRegularExpression shape(QStringLiteral("\\.(\\d+)\\.temp$"));
    const QRegularExpressionMatch match = shape.match(name);
    return match.hasMatch() ? match.captured(1).toLongLong() : 0;
}

bool processRuns(qint64 pid)
{
#ifdef Q_OS_WIN
    Q_UNUSED(pid);
    return true;
#else
    return pid == QCoreApplication::applicationPid() || ::kill(pid_t(pid), 0) == 0 ||
           errno != ESRCH;
#endif
}

bool leftOver(const QFileInfo &file)
{
    const qint64 pid = savingProcess(file.fileName());
    if (pid > 0)
        return !processRuns(pid);
    return file.lastModified().secsTo(QDateTime::currentDateTime()) > 60;
}

} // namespace

void RemoveLeftoverTemporaryFiles(const QString &folder)
{
    QDirIterator it(ResolvePath(folder), {QStringLiteral("*.temp")}, QDir::Files | QDir::Hidden);
    while (it.hasNext()) {
        const QFileInfo file(it.next());
        if (leftOver(file))
            QFile::remove(file.filePath());
    }
}

QString ReplaceFile(const QString &path, const QString &temporary, const QByteArray &bytes)
{
#ifdef Q_OS_WIN
    QFile out(temporary);
    if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return out.errorString();
    QString reason;
    if (out.write(bytes) != bytes.size() || !out.flush())
        reason = out.errorString();
    else if (::_commit(out.handle()) != 0)
        reason = systemError(errno);
    out.close();
    if (reason.isEmpty() && QFileInfo::exists(path))
        QFile::setPermissions(temporary, QFile::permissions(path));
    if (reason.isEmpty() && !MoveFileExW(reinterpret_cast<const wchar_t *>(temporary.utf16()),
                                         reinterpret_cast<const wchar_t *>(path.utf16()),
                                         MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
        reason = QStringLiteral("The file could not be replaced.");
    if (!reason.isEmpty())
        QFile::remove(temporary);
    return reason;
#else
    // Plain system calls, so that the reason of a failure is the system's own, taken at once.
    const QByteArray target = QFile::encodeName(path);
    const QByteArray name = QFile::encodeName(temporary);
    struct stat old
    {
    };
    const bool exists = ::stat(target.constData(), &old) == 0;
    const int fd = ::open(name.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC,
                          exists ? (old.st_mode & 07777) : 0666);
    if (fd < 0)
        return systemError(errno);
    int error = 0;
    for (qsizetype done = 0; done < bytes.size() && error == 0;) {
        const ssize_t n = ::write(fd, bytes.constData() + done, size_t(bytes.size() - done));
        if (n > 0)
            done += n;
        else if (n < 0 && errno != EINTR)
            error = errno;
    }
    if (error == 0 && exists && ::fchmod(fd, old.st_mode & 07777) != 0)
        error = errno;
    if (error == 0 && ::fsync(fd) != 0)
        error = errno;
    if (::close(fd) != 0 && error == 0)
        error = errno;
    if (error == 0 && ::rename(name.constData(), target.constData()) != 0)
        error = errno;
    if (error != 0) {
        ::unlink(name.constData());
        return systemError(error);
    }
    // The rename itself reaches the disk once the folder is synchronised.
    const int folder = ::open(QFile::encodeName(QFileInfo(path).absolutePath()).constData(),
                              O_RDONLY | O_DIRECTORY);
    if (folder >= 0) {
        ::fsync(folder);
        ::close(folder);
    }
    return QString();
#endif
}

QString WriteFileAtomically(const QString &path, const QByteArray &bytes)
{
    if (!IsUsablePath(path))
        return QStringLiteral("The file name is not valid.");
    const QString resolved = ResolvePath(path);
    const QFileInfo info(resolved);
    if (info.isDir())
        return QStringLiteral("There is a folder where the file should be.");
    // What an earlier save of this file left behind goes first.
    QDirIterator it(info.absolutePath(), {info.fileName() + QStringLiteral(".*.temp")},
                    QDir::Files | QDir::Hidden);
    while (it.hasNext()) {
        const QFileInfo file(it.next());
        if (savingProcess(file.fileName()) > 0 && leftOver(file))
            QFile::remove(file.filePath());
    }
    return ReplaceFile(resolved, SaveTemporaryPath(resolved), bytes);
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
