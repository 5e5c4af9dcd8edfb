#pragma once

#include <QString>

namespace cli {

// "general.cfg" and "display.cfg" of the program folder as key=value lines: the general options,
// then font, size, bold, italic and colours of each display area, then the right-click colour.
// Colours are #rrggbb, or the name of the system colour the file stores. A missing or short file
// gives the defaults the program would use, with a note on standard error.
int SettingsCommand(const QString &programFolder);

} // namespace cli
