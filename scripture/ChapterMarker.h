#pragma once

#include <QStringView>

// The one rule for chapter marker lines in book files ("CHAPTER 3" in any case). The store, both
// searches, the translation check and the notes writer all ask here, so a line is a marker to all
// of them or to none.
namespace ChapterMarker {

// A line whose first seven characters, trimmed and upper-cased, are "CHAPTER".
bool IsMarker(QStringView line);

// The whole line, trimmed and upper-cased, is "CHAPTER " and the number in decimal: "chapter 3"
// is chapter 3, "CHAPTER 03" and "CHAPTER  3" are not.
bool IsMarkerOf(QStringView line, int chapter);

// The value of the digits from the eighth character on (after blanks), as headings show it.
int Number(QStringView line);

// Whether a line, once its leading blanks are trimmed, begins with "CHAPTER": the store could take
// it for a marker, either as one (IsMarker) or as the marker of some chapter (IsMarkerOf). Text
// stored between markers must never hold such a line.
bool MayReadAsMarker(QStringView line);

} // namespace ChapterMarker
