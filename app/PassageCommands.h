#pragma once

#include <QString>

class QPoint;
class QWidget;
namespace platform {
class RichTextBox;
}

// What the File, Edit and Help menus do with the views of the main window, apart from the
// window itself.
namespace PassageCommands {

// The passage's text into "export.txt" in the program folder, opened in the desktop's editor.
void ExportToEditor(const QString &text);
// The passage saved as plain or rich text under a name the reader chooses.
void SaveAs(const platform::RichTextBox *view, QWidget *parent);
// The view's document printed under a title, through the print window.
void Print(const platform::RichTextBox *view, const QString &title, QWidget *parent);

void SelectAll(platform::RichTextBox *view);
// Text onto the clipboard, replacing what was there; nothing happens for empty text.
void Copy(const QString &text);
// The passage view's text without its final line break.
void CopyPassage(const platform::RichTextBox *view);

// The word a right click is on: the selection when the click is on it, else the run of letters
// and digits around the character clicked, which becomes the selection.
QString WordAt(platform::RichTextBox *view, const QPoint &at);

// The help, the web site, and the mailing list's invitation to the web site.
void OpenHelp();
void OpenWebSite(const QString &address);
void AskMailingList(const QString &address);

} // namespace PassageCommands
