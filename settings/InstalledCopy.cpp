#include "settings/InstalledCopy.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

namespace InstalledCopy {

namespace {

// Files the user changes: copied, never linked.
const QStringList UserFiles = {QStringLiteral("window.ini"), QStringLiteral("general.cfg"),
                               QStringLiteral("display.cfg"), QStringLiteral("bookmarks.dat"),
                               QStringLiteral("verses.dat")};
const QString NotesFolder = QStringLiteral("notes");

// A copy that is whole or absent: written beside its place, then renamed.
bool copyFile(const QString &from, const QString &to)
{
    const QString partial = QFileInfo(to).absolutePath() + QStringLiteral("/.") +
                            QFileInfo(to).fileName() + QStringLiteral(".copying");
    QFile::remove(partial);
    if (!QFile::copy(from, partial))
        return false;
    QFile::setPermissions(partial,
                          QFile::permissions(partial) | QFile::WriteOwner | QFile::ReadOwner);
    return QFile::rename(partial, to);
}

bool copyFolder(const QString &from, const QString &to)
{
    bool ok = QDir().mkpath(to);
    QDirIterator it(from, QDir::Files | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString file = it.next();
        const QString target = to + QDir(from).relativeFilePath(file).prepend(u'/');
        ok = QDir().mkpath(QFileInfo(target).absolutePath()) && ok;
        ok = (QFileInfo::exists(target) || copyFile(file, target)) && ok;
    }
    return ok;
}

} // namespace

QString DataFolder(const QString &executableFolder)
{
    if (executableFolder.isEmpty() ||
        QFileInfo::exists(executableFolder + QStringLiteral("/window.ini")))
        return QString();
    const QString data = QDir::cleanPath(executableFolder + QStringLiteral("/../share/quillstone"));
    return QFileInfo::exists(data + QStringLiteral("/window.ini")) ? data : QString();
}

QString UserFolder()
{
    QString base = qEnvironmentVariable("XDG_DATA_HOME");
    if (base.isEmpty() || QDir::isRelativePath(base))
        base = QDir::homePath() + QStringLiteral("/.local/share");
    return base + QStringLiteral("/quillstone");
}

QString Prepare(const QString &dataFolder, const QString &userFolder)
{
    if (!QDir().mkpath(userFolder))
        return QStringLiteral("cannot create ") + userFolder;
    QStringList problems;
    const QDir data(dataFolder);
    const QDir user(userFolder);
    for (const QFileInfo &entry :
         data.entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name)) {
        const QString name = entry.fileName();
        const QString target = user.filePath(name);
        if (QFileInfo(target).exists() || QFileInfo(target).isSymLink())
            continue;
        bool ok = true;
        if (UserFiles.contains(name))
            ok = copyFile(entry.absoluteFilePath(), target);
        else if (name == NotesFolder)
            ok = copyFolder(entry.absoluteFilePath(), target);
        else
            ok = QFile::link(entry.absoluteFilePath(), target);
        if (!ok)
            problems << target;
    }
    // Works removed from the installed data leave links to nothing.
    for (const QFileInfo &entry :
         user.entryInfoList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)) {
        if (entry.isSymLink() && !entry.exists() &&
            entry.symLinkTarget().startsWith(data.absolutePath()))
            QFile::remove(entry.absoluteFilePath());
    }
    return problems.isEmpty()
               ? QString()
               : QStringLiteral("cannot prepare ") + problems.join(QStringLiteral(", "));
}

} // namespace InstalledCopy
