#pragma once

#include <QPaintDevice>
#include <algorithm>

// Window positions and sizes are kept in twips (1/1440 inch) in the settings file, as they were
// written on Windows; these convert them for a widget's screen.
namespace platform {

inline int TwipsPerPixelX(const QPaintDevice *device)
{
    const int dpi = device ? device->logicalDpiX() : 96;
    return dpi > 0 ? std::max(1, 1440 / dpi) : 15;
}

inline int TwipsPerPixelY(const QPaintDevice *device)
{
    const int dpi = device ? device->logicalDpiY() : 96;
    return dpi > 0 ? std::max(1, 1440 / dpi) : 15;
}

} // namespace platform
