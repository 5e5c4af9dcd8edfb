#pragma once

#include <QColor>
#include <QString>
#include <QtGlobal>

// Colours are kept in settings files and passed to the colour dialog as Windows colour values:
// 0x00BBGGRR, or a system colour (0x80000000 + index) that stands for a colour of the desktop's
// scheme. This is the one place that converts them.
namespace platform {

// The colour a Windows colour value stands for. System colours (index 0 to 30) give the standard
// Windows palette; an unknown index gives black, as Windows does.
QColor WindowsColorToQColor(qint32 value);
// The 0x00BBGGRR value of a colour (alpha is dropped).
qint32 QColorToWindowsColor(const QColor &color);
// The name of a system colour ("window", "buttonface", "highlight"); empty for a plain colour and
// for an index that names none.
QString SystemColorName(qint32 value);

} // namespace platform
