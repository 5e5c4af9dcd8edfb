#pragma once

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

// The row the reader chose in a list, or -1. A list that takes the focus marks its first row as
// current without choosing it, so the reference windows act on the list's selection, which only
// the reader's click or keys change, and read the chosen row here: while the selection changes,
// the current row is still the old one.
int ChosenRow(const QListWidget *list);
