#pragma once

#include <QString>

// An installed copy of the program: executables in "<prefix>/bin", the shipped data in
// "<prefix>/share/quillstone", which an ordinary user cannot write. Such a copy keeps each user's
// program folder in their own data folder, prepared from the installed data at the first start.
namespace InstalledCopy {

// The installed data folder of an executable in that folder, when the folder is not a program
// folder itself (it has no "window.ini", as a build's program folder has); empty otherwise.
QString DataFolder(const QString &executableFolder);

// $XDG_DATA_HOME/quillstone, else ~/.local/share/quillstone.
QString UserFolder();

// Makes userFolder a program folder over the installed data: the translations and reference works
// are linked, not copied, so every user shares one copy and an upgrade reaches them all; the
// user's own files (settings, bookmarks, the verse list, the notes) are copied once, when missing,
// and are theirs from then on. Links to works the installed data no longer has are removed.
// Returns an empty string, or what went wrong.
QString Prepare(const QString &dataFolder, const QString &userFolder);

} // namespace InstalledCopy
