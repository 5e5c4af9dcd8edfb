#pragma once

#include "settings/SettingsRecords.h"

class QTextEdit;
class QWidget;

// Puts a stored look on a control: background, text colour, then font name, size, bold and
// italic, in that order, through the control's palette and font, so it serves labels, lists,
// drop-down lists and text boxes alike. The font name is used without its padding, and the
// record keeps the trimmed name (padded again to its fixed length).
void ApplyStyle(QWidget *control, TextStyle &style);

// The same for a rich-text view, where the text colour belongs to the text rather than to the
// control: all text present takes the colour, and an empty view is left empty but with the colour
// set for whatever is typed next.
void ApplyRichTextStyle(QTextEdit *view, TextStyle &style);

// Puts the light or dark look (a "look/scheme" value of "window.ini") on the whole program: the
// palette of every window, and whether views show the dark counterparts of the default colours.
// Following the system, the desktop's palette as the program found it decides. True when dark.
bool ApplyLookScheme(int setting);
