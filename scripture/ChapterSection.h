#pragma once

#include <QString>

// One chapter's lines of a book file, read and replaced on their own: the notes the user keeps
// for a chapter live between its marker and the next one, in a file that holds the whole book.
namespace ChapterSection {

// The lines after the line that is chapter `chapter`'s marker, up to the next marker line, each
// followed by CR LF. Empty when the file or the chapter's marker is missing. The path is that of
// the book file without ".dat", found case-blind.
QString Read(const QString &pathWithoutDat, int chapter);

// Replaces chapter `chapter`'s lines with the lines of `text` (split at CR LF, LF or CR; each
// written with CR LF; a final line break adds no empty line). Every other byte of the file stays
// as it was, whatever its encoding and line ends, except in a Windows-1252 file that cannot hold
// the text (or would read as UTF-8 afterwards): that file becomes UTF-8, keeping every character.
// A missing file (and folder) is created and a missing marker inserted in chapter order. The file
// is replaced in one step through pathWithoutDat + ".temp", so a crash or a full disk leaves
// either the old or the new file. Returns an empty string on success, else the reason in plain
// words (such as the system's "Permission denied"); the caller names the file.
//
// The caller makes sure no line of `text` reads as a marker (NotesStore::Storable does).
QString Rewrite(const QString &pathWithoutDat, int chapter, const QString &text);

} // namespace ChapterSection
