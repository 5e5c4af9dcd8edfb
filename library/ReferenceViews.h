#pragma once

#include "platform/ListRows.h"

#include <QString>

class QListWidget;
class clsBible;
namespace platform {
class RichTextBox;
}

// What the reference windows do alike with their views.

// Fetches a reference from the store and shows it, formatted as a passage, in a view of a
// reference window, scrolled to its start.
void ShowReferenceIn(platform::RichTextBox *view, const clsBible &bible, const QString &reference);

// Widens a list of names so that its longest name shows whole, up to a limit in pixels.
void FitListToNames(QListWidget *list, int limit = 380);

using platform::ChosenRow;
