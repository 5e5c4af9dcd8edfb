#pragma once

#include <QString>
#include <QStringList>

namespace importer {

class ImportLog;

// Writes one text file of the program folder: lines ended by CR LF, Windows-1252 when every
// character fits it (the single-byte files older installations have), else UTF-8, written through
// a temporary file so that a failed run leaves the old file whole. Folders are created as needed.
// Returns false, after logging the reason under the work, when the file could not be written.
bool WriteTextFile(const QString &path, const QStringList &lines, ImportLog &log,
                   const QString &work);

} // namespace importer
