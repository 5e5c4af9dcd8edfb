#pragma once

#include "platform/WinColor.h"

#include <QColor>

// Windows colour values as the windows use them.
namespace platform {

// The colour a Windows colour value stands for (see WindowsColorToRgb).
QColor WindowsColorToQColor(qint32 value);
// The 0x00BBGGRR value of a colour (alpha is dropped).
qint32 QColorToWindowsColor(const QColor &color);

} // namespace platform
