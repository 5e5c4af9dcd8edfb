#pragma once

#include <QString>
#include <QStringList>

class QTextStream;

namespace importer {

struct ModuleImportRequest
{
    QString module;        // the module's name, any case
    QStringList libraries; // folders holding mods.d and modules/, searched in order
    QString programFolder; // where the translation folder goes
    QString folder;        // its name; the module's name when empty
};

// Exit statuses of a module import, as the command reports them.
enum ModuleImportStatus
{
    Imported = 0,
    NotInstalled = 66, // no module of that name
    NotReadable = 65,  // not a Bible, or its data is missing or damaged
    Locked = 77,       // enciphered, without a key that opens it
    CannotWrite = 73   // the translation folder could not be written
};

// Imports one installed Bible module into a translation folder of the program folder: its books
// with their names in the module's language, its own verse numbering, and the numbering file that
// ties it to the KJV's. The folder is written beside its place under a temporary name and renamed
// into place at the end, so a failed import leaves nothing behind and an earlier import whole.
// A progress line goes to err while the books are read.
int ImportModule(const ModuleImportRequest &request, QTextStream &out, QTextStream &err);

} // namespace importer
