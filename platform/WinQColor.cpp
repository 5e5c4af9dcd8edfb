#include "platform/WinQColor.h"

namespace platform {

QColor WindowsColorToQColor(qint32 value)
{
    return QColor(QRgb(WindowsColorToRgb(value)));
}

qint32 QColorToWindowsColor(const QColor &color)
{
    const QColor rgb = color.toRgb();
    return qint32(rgb.red()) | (qint32(rgb.green()) << 8) | (qint32(rgb.blue()) << 16);
}

} // namespace platform
