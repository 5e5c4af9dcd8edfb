#pragma once

#include <QString>
#include <QStringList>

// Finding a typed text in the word lists of the reference windows.
namespace ListSearch {

// The first entry whose leading characters, as many as the text has, equal the text in upper
// case; -1 when none does. The text is taken as typed, blanks and all, and an empty text matches
// the first entry. The first match wins, so a sorted list gives the first word in order.
int FirstPrefixMatch(const QStringList &entries, const QString &text);

} // namespace ListSearch
