#pragma once

#include "scripture/QuickSearch.h"

#include <QString>

#include <memory>

class clsBible;

// Every verse that carries a Strong's number: a translation tagged with the numbers holds them in
// braces after the words they stand for ("God{H430}"), so the concordance of a number is the quick
// search for the number in braces, with the quick search's result texts, limit and titles.
namespace StrongConcordance {

// "H430" from what a user types: any case, leading zeros and blanks forgiven ("h0430", " G26 ").
// Empty when the text is not a letter H or G followed by a number from 1 up.
QString Normalize(QStringView typed);

// Whether a translation's text carries Strong's numbers (its first book of each testament is
// looked at).
bool CarriesNumbers(const clsBible &store);

// The first installed translation of the program folder, other than the one named, whose text
// carries Strong's numbers; empty when there is none.
QString TaggedTranslation(const QString &programFolder, const QString &except = QString());

// The translation the concordance searches: the open one when its text carries the numbers, else
// the first other installed one that does. That one is opened into `other` (with the separator
// of the open one) and its name is put in `otherName`. Null when no translation carries them.
const clsBible *StoreFor(const clsBible &open, const QString &programFolder,
                         const QString &openFolder, std::unique_ptr<clsBible> &other,
                         QString &otherName);

// Runs the search for a normalized number. otherTranslation names the translation searched when
// it is not the one the reader has open; the final title then says so.
QuickSearch::Result Run(QuickSearch &search, const clsBible &store, const QString &number,
                        int limit, const QString &otherTranslation = QString());

} // namespace StrongConcordance
