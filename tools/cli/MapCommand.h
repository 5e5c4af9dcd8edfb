#pragma once

#include "scripture/clsBible.h"

#include <QString>
#include <QStringList>
#include <memory>

namespace cli {

// A translation folder named inside the program folder, or by its own path; nothing, with a
// message, when it is not a translation or its book maps cannot be read.
std::unique_ptr<clsBible> OpenTranslation(const QString &programFolder, const QString &name);

// "map --translations FROM,TO REFERENCE...": each reference, read in FROM's verse numbering, in
// TO's numbering and standard form ("PSALMS 10:1"), one a line. A reference whose book FROM lacks
// gives an empty line, a message and exit status 2; one without a counterpart in TO (TO lacks the
// book or the verse) an empty line, a message and exit status 1.
int MapCommand(const QString &programFolder, const QStringList &args);

} // namespace cli
