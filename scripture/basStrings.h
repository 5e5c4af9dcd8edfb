#pragma once

#include <QString>
#include <QStringView>

// Small string and file helpers shared by every part of the program.
namespace basStrings {

// Non-overlapping occurrences, searching left to right, each search starting after the last match.
int CountOccurrences(QStringView text, QStringView what, bool ignoreCase = false);

// 1-based position of the n-th non-overlapping occurrence; 0 when there are fewer than n.
int NthOccurrence(QStringView text, QStringView what, int n, bool ignoreCase = false);

bool IsDigit(QChar c);

// Folder and name with exactly one separator between them.
QString JoinPath(const QString &folder, const QString &name, const QString &separator = QString());

bool FileExists(const QString &path);

// "major.minor.revision" of the program.
QString VersionText();

// The numeric value of a text's leading digits after leading blanks, as the program reads numbers
// typed in references and written in chapter markers; no digits give 0. Values beyond a 16-bit
// integer are held at 32767 so a long run of digits cannot overflow.
int LeadingNumber(QStringView text);

// Blanks (only spaces, as old files pad with them) removed from both ends.
QStringView TrimBlanks(QStringView text);

// Upper case with a fast path for plain ASCII text, which is most of every book file.
QString UpperCase(const QString &text);

} // namespace basStrings
