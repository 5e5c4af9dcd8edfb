#pragma once

#include <QString>

// The optional data files of the program folder, in one table: the features that use them look
// them up here, and a feature whose file is missing tells the user with the one message below.
namespace DataFiles {

enum class File
{
    Commentary, // the first book of the commentary decides whether it is there at all
    StrongHebrew,
    StrongHebrewIndex,
    StrongGreek,
    StrongGreekIndex,
    Dictionary,
    Names,
    Topics,
    Stories,
    Parables,
    Miracles,
    Prophecy,
    Units,
    Verses,
    Help,
    Manual, // our own manual, opened when there is no help file
    Credits,
};

// The file's path inside the program folder, as the program has always named it ("\" between
// folders; names match without regard to case).
QString RelativePath(File file);
// Its bare name ("names.dat").
QString Name(File file);
// Its full path in the program folder.
QString Path(File file);
bool Exists(File file);

// "<what> is missing.  Feature will be disabled." CR LF "Reinstall the program to restore it";
// what is the path or the quoted name, as each window shows it.
QString MissingFileMessage(const QString &what);
// The same, shown to the user with the critical icon.
void ReportMissing(const QString &what);

} // namespace DataFiles
