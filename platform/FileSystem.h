#pragma once

#include "platform/TextCodec.h"

#include <QByteArray>
#include <QString>
#include <optional>

// File access for the program folder. Names in the folder match without regard to case on every
// platform, and "\" separates folders as well as "/", because settings files and data written on
// Windows name paths that way.
namespace platform {

// The separator the program puts between a folder and a name.
QString PathSeparator();

// Turns "\" into "/" and finds each component of the path case-blind. When a component does not
// exist in any case the rest is returned as given, so the path still names the missing file.
QString ResolvePath(const QString &path);

// False for an empty path or one holding a NUL, which no file can have.
bool IsUsablePath(const QString &path);

bool FileExists(const QString &path);
bool FolderExists(const QString &path);

// The names of the files in a folder (links to files too), as stored and in no order; none when
// the folder cannot be read.
QStringList FileNames(const QString &folder);

// Whole file, or nothing when it cannot be opened.
std::optional<QByteArray> ReadFileBytes(const QString &path);

struct TextFileContent
{
    QStringList lines;
    TextEncoding encoding = TextEncoding::Utf8;
};
std::optional<TextFileContent> ReadTextLines(const QString &path);

// Writes through a temporary file renamed over the old one: a failure leaves the old file whole
// and no temporary file behind. Returns an empty string on success, else the reason the system
// gives ("No space left on device").
QString WriteFileAtomically(const QString &path, const QByteArray &bytes);

// The same through a temporary file of the caller's choice: the bytes go into it, onto the disk,
// and it is renamed over the file, which keeps its permissions.
QString ReplaceFile(const QString &path, const QString &temporary, const QByteArray &bytes);

// The temporary file WriteFileAtomically writes first: the file's name, the process's number
// and ".temp", so that a save killed halfway leaves a file that can be told for what it is.
QString SaveTemporaryPath(const QString &path);

// Removes what saves killed halfway left in a folder: the temporary files of processes that
// have ended, and other ".temp" files (notes go through "BOOK.temp") not touched for a minute.
void RemoveLeftoverTemporaryFiles(const QString &folder);

// Lines joined with CR LF (a final CR LF after the last line), in the given encoding.
QByteArray JoinLinesCrLf(const QStringList &lines, TextEncoding encoding);

} // namespace platform
