#pragma once

#include <QStringList>

namespace cli {

// "modules [--sword DIR]": the installed SWORD modules, one a line: name, type, language,
// versification and description, tab-separated. The libraries are ~/.sword and /usr/share/sword
// unless one is named.
int ModulesCommand(const QStringList &args);

} // namespace cli
