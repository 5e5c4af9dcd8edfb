#pragma once

#include <QString>

// Where the passage on display goes when the reader exports or saves it. Both write the text as
// one piece followed by a line break, through a temporary file renamed into place.
namespace PassageFiles {

// The file the export writes and then opens in the desktop's text editor: "export.txt" in the
// program folder.
QString ExportPath(const QString &programFolder);

// The save dialog's file types, and what each saves: the second is rich text, the others plain.
QString SaveFilter();
bool SavesRichText(int filterIndex);
// The name the text is saved under: the name chosen with the type's ending added, unless the
// name already ends in it in capitals or small letters ("notes" and "notes.txt" both become
// "notes.txt", "NOTES.TXT" stays).
QString SaveName(const QString &chosen, int filterIndex);

// Writes text and a line break (CR LF); an empty string on success, else what went wrong.
QString Write(const QString &path, const QString &text);

} // namespace PassageFiles
