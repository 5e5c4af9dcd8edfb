#pragma once

#include "library/StrongsLexicon.h"

#include <QString>

namespace cli {

// The dictionary's look-up: the definition as its window shows it, then one reference a line.
// "Not Found" and exit status 1 when the word is not there; the missing-file message and exit
// status 66 when the file cannot be read.
int DictionaryCommand(const QString &programFolder, const QString &word);

// The names window's look-up: the name's meaning; "Not Found!" and exit status 1 when it is not
// there.
int NamesCommand(const QString &programFolder, const QString &name);

// The line of the entry the Strong's lexicon window shows for a text typed into a tab's word box
// (a number or the beginning of a word). Exit status 1 when no entry is shown.
int StrongCommand(const QString &programFolder, const StrongsLexicon::Typed &typed);

} // namespace cli
