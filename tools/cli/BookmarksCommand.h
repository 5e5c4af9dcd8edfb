#pragma once

#include <QString>

class clsBible;

namespace cli {

// One line per bookmark: its name, the reference as stored and the standard form of the passage
// it shows in the translation, separated by tabs. The file is loaded as the program loads it, so
// a missing file is reported and created empty and damaged lines are reported on standard error.
// Exit status 2 when the translation has no book for one of them.
int ListBookmarks(clsBible &bible, const QString &programFolder);

// Adds a bookmark as the Add Bookmark window does, with the same refusals; exit status 1 when it
// was refused or could not be written (the reason on standard error).
int AddBookmark(const QString &programFolder, const QString &name, const QString &reference);

} // namespace cli
