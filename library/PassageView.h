#pragma once

#include <QString>

class clsBible;
namespace platform {
class RichTextBox;
}

// Fetches a reference from the store and shows it, formatted as a passage, in a view of a
// reference window, scrolled to its start.
void ShowReferenceIn(platform::RichTextBox *view, clsBible &bible, const QString &reference);
