#pragma once

#include "settings/SettingsRecords.h"

#include <QtGlobal>

// The light or dark look of the program. The looks of the options stay what the user chose;
// only the program's own default colours, unchanged by the user, are shown by dark counterparts
// when the look is dark. Nothing of it is ever written into "display.cfg".
namespace Look {

enum class Scheme
{
    FollowSystem = 0,
    Light = 1,
    Dark = 2,
};

// The scheme a settings value stands for; anything unknown follows the system.
Scheme SchemeFromSetting(int value);
// Dark or not, for a scheme and the desktop's own window colour (0xRRGGBB): following the
// system, a window colour darker than middle grey means a dark desktop.
bool IsDark(Scheme scheme, quint32 systemWindowRgb);

// Whether windows show the dark counterparts now; set as the look is applied.
bool DarkShown();
void SetDarkShown(bool dark);

// The style as a view shows it: under the dark look, a pair of default colours (background and
// text as shipped or built in) becomes its dark counterpart; a pair with a colour the user chose
// stays as it is, both colours, so the two keep the contrast the user gave them.
TextStyle Shown(const TextStyle &style);
TextStyle DarkCounterpart(const TextStyle &style);

// WCAG 2 relative luminance of a 0xRRGGBB colour, from 0 (black) to 1 (white).
double RelativeLuminance(quint32 rgb);

} // namespace Look
