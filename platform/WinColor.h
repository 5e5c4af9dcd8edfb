#pragma once

#include <QString>
#include <QtGlobal>

// Colours are kept in settings files and passed to the colour dialog as Windows colour values:
// 0x00BBGGRR, or a system colour (0x80000000 + index) that stands for a colour of the desktop's
// scheme. This is the one place that converts them (WinQColor.h gives them as QColor for the
// windows; this part needs no graphics library, so the command line can name colours too).
namespace platform {

// The colour a Windows colour value stands for, as 0xRRGGBB. System colours (index 0 to 30) give
// the standard Windows palette; an unknown index gives black, as Windows does.
quint32 WindowsColorToRgb(qint32 value);
// The same as "#rrggbb".
QString WindowsColorHexName(qint32 value);
// The name of a system colour ("window", "buttonface", "highlight"); empty for a plain colour and
// for an index that names none.
QString SystemColorName(qint32 value);

} // namespace platform
