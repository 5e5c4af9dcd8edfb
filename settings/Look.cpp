#include "settings/Look.h"

#include <cmath>

namespace Look {

namespace {

bool g_darkShown = false;

// Windows colour values (0x00BBGGRR, system colours with the high bit).
constexpr qint32 kWhite = 0x00FFFFFF;
constexpr qint32 kBlack = 0x00000000;
constexpr qint32 kNearBlack = 0x00202020;
constexpr qint32 kCream = 0x00F5FDFF;
constexpr qint32 kInk = 0x001A1A1A;
constexpr qint32 kDarkRed = 0x001A1A8B;
constexpr qint32 kButtonFace = qint32(0x8000000F);
constexpr qint32 kButtonText = qint32(0x80000012);

// From 0xRRGGBB to a Windows colour value.
constexpr qint32 win(quint32 rgb)
{
    return qint32(((rgb >> 16) & 0xFF) | (rgb & 0xFF00) | ((rgb & 0xFF) << 16));
}

struct Counterpart
{
    qint32 back;
    qint32 fore;
    qint32 darkBack;
    qint32 darkFore;
};

// The default pairs of the shipped "display.cfg" and of the built-in defaults, with their dark
// counterparts: the lists, the cream passage, the dark red title on cream, and the built-in
// black on white and button-coloured title.
constexpr Counterpart kCounterparts[] = {
    {kWhite, kNearBlack, win(0x202124), win(0xE3E3E3)},
    {kCream, kInk, win(0x1D1C1A), win(0xE6E1D6)},
    {kCream, kDarkRed, win(0x1D1C1A), win(0xF0A0A0)},
    {kWhite, kBlack, win(0x1D1C1A), win(0xE6E1D6)},
    {kButtonFace, kButtonText, win(0x2B2B2B), win(0xE3E3E3)},
};

double channel(quint32 value)
{
    const double c = double(value & 0xFF) / 255.0;
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

} // namespace

Scheme SchemeFromSetting(int value)
{
    switch (value) {
    case int(Scheme::Light):
        return Scheme::Light;
    case int(Scheme::Dark):
        return Scheme::Dark;
    default:
        return Scheme::FollowSystem;
    }
}

bool IsDark(Scheme scheme, quint32 systemWindowRgb)
{
    if (scheme != Scheme::FollowSystem)
        return scheme == Scheme::Dark;
    return RelativeLuminance(systemWindowRgb) < 0.18;
}

bool DarkShown()
{
    return g_darkShown;
}

void SetDarkShown(bool dark)
{
    g_darkShown = dark;
}

TextStyle DarkCounterpart(const TextStyle &style)
{
    TextStyle dark = style;
    for (const Counterpart &pair : kCounterparts) {
        if (style.BackColor == pair.back && style.ForeColor == pair.fore) {
            dark.BackColor = pair.darkBack;
            dark.ForeColor = pair.darkFore;
            break;
        }
    }
    return dark;
}

TextStyle Shown(const TextStyle &style)
{
    return g_darkShown ? DarkCounterpart(style) : style;
}

double RelativeLuminance(quint32 rgb)
{
    return 0.2126 * channel(rgb >> 16) + 0.7152 * channel(rgb >> 8) + 0.0722 * channel(rgb);
}

} // namespace Look
