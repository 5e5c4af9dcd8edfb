#pragma once

#include "scripture/VerseNumbering.h"

#include <QString>
#include <QStringList>

namespace importer {

// The numbering file of a translation imported from a module of the named versification, whose
// folder holds the books of these OSIS ids: for every verse the SWORD library numbers otherwise
// in the KJV, where it is there, and back. Asked of the library's own versification tables, with
// fresh keys for each verse (a key left in an error state would carry it into the next look-up).
// Nothing when the library does not know the versification.
std::optional<VerseNumbering> ModuleNumbering(const QString &versification,
                                              const QStringList &books);

// Whether the SWORD library knows a versification of that name ("Synodal", "Vulg").
bool IsKnownVersification(const QString &name);

// The module's book names in its language as the library's locale for it gives them, by position
// in CanonBooks(), written as the translation folders want them ("1. Царств" becomes "1Царств");
// an empty name where the locale has none.
QStringList LocalBookNames(const QString &language);

} // namespace importer
