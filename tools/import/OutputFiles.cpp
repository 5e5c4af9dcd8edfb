#include "tools/import/OutputFiles.h"

#include "platform/FileSystem.h"
#include "platform/TextCodec.h"
#include "tools/import/ImportLog.h"

#include <QDir>
#include <QFileInfo>

namespace importer {

bool WriteTextFile(const QString &path, const QStringList &lines, ImportLog &log,
                   const QString &work)
{
    if (!QDir().mkpath(QFileInfo(path).absolutePath())) {
        log.fail(work, QStringLiteral("cannot create the folder of ") + path);
        return false;
    }
    const QByteArray bytes = platform::JoinLinesCrLf(lines, platform::TextEncoding::Windows1252);
    const QString reason = platform::WriteFileAtomically(path, bytes);
    if (!reason.isEmpty()) {
        log.fail(work, path + QStringLiteral(": ") + reason);
        return false;
    }
    log.count(work, QStringLiteral("files written"));
    log.count(work, QStringLiteral("bytes written"), bytes.size());
    return true;
}

} // namespace importer
