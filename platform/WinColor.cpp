#include "platform/WinColor.h"

#include <array>

namespace {

// The standard Windows palette of the system colours, by index (GetSysColor on a fresh system).
constexpr quint32 qRgb(quint32 r, quint32 g, quint32 b)
{
    return (r << 16) | (g << 8) | b;
}

constexpr std::array<quint32, 31> SystemColors = {
    qRgb(200, 200, 200), // 0 scroll bar
    qRgb(0, 0, 0),       // 1 desktop
    qRgb(153, 180, 209), // 2 active caption
    qRgb(191, 205, 219), // 3 inactive caption
    qRgb(240, 240, 240), // 4 menu
    qRgb(255, 255, 255), // 5 window
    qRgb(100, 100, 100), // 6 window frame
    qRgb(0, 0, 0),       // 7 menu text
    qRgb(0, 0, 0),       // 8 window text
    qRgb(0, 0, 0),       // 9 caption text
    qRgb(180, 180, 180), // 10 active border
    qRgb(244, 247, 252), // 11 inactive border
    qRgb(171, 171, 171), // 12 application workspace
    qRgb(0, 120, 215),   // 13 highlight
    qRgb(255, 255, 255), // 14 highlight text
    qRgb(240, 240, 240), // 15 button face
    qRgb(160, 160, 160), // 16 button shadow
    qRgb(109, 109, 109), // 17 grey text
    qRgb(0, 0, 0),       // 18 button text
    qRgb(0, 0, 0),       // 19 inactive caption text
    qRgb(255, 255, 255), // 20 button highlight
    qRgb(105, 105, 105), // 21 3D dark shadow
    qRgb(227, 227, 227), // 22 3D light
    qRgb(0, 0, 0),       // 23 tooltip text
    qRgb(255, 255, 225), // 24 tooltip background
    qRgb(0, 0, 0),       // 25 unused
    qRgb(0, 102, 204),   // 26 hot-tracked item
    qRgb(185, 209, 234), // 27 active caption gradient
    qRgb(215, 228, 242), // 28 inactive caption gradient
    qRgb(0, 120, 215),   // 29 menu highlight
    qRgb(240, 240, 240), // 30 menu bar
};

// The names of the same system colours, as colour schemes name them; 25 has none.
constexpr std::array<const char *, 31> SystemColorNames = {
    "scrollbar",
    "desktop",
    "activecaption",
    "inactivecaption", // 0-3
    "menu",
    "window",
    "windowframe",
    "menutext", // 4-7
    "windowtext",
    "captiontext",
    "activeborder",
    "inactiveborder", // 8-11
    "appworkspace",
    "highlight",
    "highlighttext",
    "buttonface", // 12-15
    "buttonshadow",
    "graytext",
    "buttontext",
    "inactivecaptiontext", // 16-19
    "buttonhighlight",
    "3ddarkshadow",
    "3dlight",
    "infotext", // 20-23
    "infobackground",
    "",
    "hotlight",
    "gradientactivecaption", // 24-27
    "gradientinactivecaption",
    "menuhighlight",
    "menubar", // 28-30
};

} // namespace

namespace platform {

quint32 WindowsColorToRgb(qint32 value)
{
    const auto bits = static_cast<quint32>(value);
    if (bits & 0x80000000u) {
        const quint32 index = bits & 0x00FFFFFFu;
        return index < SystemColors.size() ? SystemColors[index] : 0;
    }
    return qRgb(bits & 0xFF, (bits >> 8) & 0xFF, (bits >> 16) & 0xFF);
}

QString WindowsColorHexName(qint32 value)
{
    return QStringLiteral("#%1").arg(WindowsColorToRgb(value), 6, 16, QLatin1Char('0'));
}

QString SystemColorName(qint32 value)
{
    const auto bits = static_cast<quint32>(value);
    if (!(bits & 0x80000000u))
        return QString();
    const quint32 index = bits & 0x00FFFFFFu;
    return index < SystemColorNames.size() ? QString::fromLatin1(SystemColorNames[index])
                                           : QString();
}

} // namespace platform
