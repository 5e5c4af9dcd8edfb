#include "app/PassageCommands.h"

#include "app/PassageFiles.h"
#include "app/frmPrint.h"
#include "library/DataFiles.h"
#include "platform/CShell.h"
#include "platform/FileSystem.h"
#include "platform/MsgBox.h"
#include "platform/RichTextBox.h"
#include "platform/TextZoom.h"
#include "platform/clsCommonOpenDialog.h"
#include "scripture/basStrings.h"
#include "settings/ProgramSettings.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QDir>
#include <QGuiApplication>
#include <QSignalBlocker>
#include <QTextDocument>

#include <memory>

namespace PassageCommands {

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("PassageCommands", text);
}

// Opens a file or an address with the desktop's handler. When there is none, or the desktop
// refuses, the reader is told what could not be opened rather than left waiting for a window.
void openOnDesktop(const QString &target, const QString &failurePrompt)
{
    CShell shell;
    shell.setFilename(target);
    shell.setWindowState(CShell::SW_SHOWNORMAL);
    if (shell.Execute())
        return;
    const QUrl url = shell.Url();
    platform::MsgBox(failurePrompt +
                         (url.isLocalFile() ? QDir::toNativeSeparators(url.toLocalFile()) : target),
                     vb::vbExclamation);
}

// The characters of a word for the passage's look-ups: any other character ends a word.
const QString kWordCharacters =
    QStringLiteral("AaBbCcDdEeFfGgHhIiJjKkLlMmNnOoPpQqRrSsTtUuVvWwXxYyZz1234567890");

} // namespace

void ExportToEditor(const QString &text)
{
    // 1-2. The passage's text goes to "export.txt" in the program folder.
    const QString path = PassageFiles::ExportPath(ProgramSettings::instance().programFolder());
    const QString failure = PassageFiles::Write(path, text);
    if (!failure.isEmpty()) {
        platform::MsgBox(tr("The passage could not be exported to ") + path +
                             QStringLiteral(":\r\n") + failure,
                         vb::vbCritical);
        return;
    }
    // It opens in the desktop's text editor, and the program goes on at once.
    openOnDesktop(path, tr("The exported passage could not be opened: "));
}

void SaveAs(const platform::RichTextBox *view, QWidget *parent)
{
    // The save dialog. It does not ask before replacing a file itself: the name it gives may
    // still get its type's ending, and the question must be about the file that is written.
    clsCommonOpenDialog dialog;
    dialog.setFilter(PassageFiles::SaveFilter());
    dialog.setFilterIndex(1);
    dialog.setDialogtitle(tr("Filename to save to?"));
    dialog.setOverWritePrompt(false);
    dialog.setPathMustExist(true);
    // Cancel stops here.
    if (!dialog.ShowSave(parent))
        return;
    // 3-4. Rich text for the second type, plain text otherwise; the ending added when missing.
    const bool rich = PassageFiles::SavesRichText(dialog.FilterIndex());
    // Names match case-blind when written, so the question names the file as it is on disk.
    const QString path =
        platform::ResolvePath(PassageFiles::SaveName(dialog.filename(), dialog.FilterIndex()));
    // Asked as the dialog would have asked, under its title.
    if (platform::FileExists(path) &&
        platform::MsgBox(QDir::toNativeSeparators(path) +
                             tr(" already exists.\r\nDo you want to replace it?"),
                         vb::vbYesNo | vb::vbExclamation | vb::vbDefaultButton2,
                         dialog.Dialogtitle()) != vb::vbYes)
        return;
    // One piece of text and a line break.
    const QString failure = PassageFiles::Write(path, rich ? view->TextRTF() : view->Text());
    if (!failure.isEmpty())
        platform::MsgBox(tr("The passage could not be saved to ") + path + QStringLiteral(":\r\n") +
                             failure,
                         vb::vbCritical);
}

void Print(const platform::RichTextBox *view, const QString &title, QWidget *parent)
{
    // The pages get the options' font, whatever zoom the reader has on screen.
    const QTextDocument *document = view->document();
    std::unique_ptr<QTextDocument> unzoomed;
    if (const platform::TextZoom *zoom = platform::TextZoom::find(view);
        zoom && zoom->percent() != 100) {
        unzoomed.reset(document->clone());
        unzoomed->setDefaultFont(zoom->baseFont());
        document = unzoomed.get();
    }
    frmPrint dialog(document, title, parent);
    dialog.exec();
}

void SelectAll(platform::RichTextBox *view)
{
    view->setSelStart(0);
    view->setSelLength(int(view->Text().size()));
}

namespace {
void replaceClipboard(const QString &text)
{
    QGuiApplication::clipboard()->clear();
    QGuiApplication::clipboard()->setText(text);
}
} // namespace

void Copy(const QString &text)
{
    if (!text.isEmpty())
        replaceClipboard(text);
}

void CopyPassage(const platform::RichTextBox *view)
{
    // The last two characters are the final line break, whatever they are.
    const QString text = view->Text();
    if (!text.isEmpty())
        replaceClipboard(text.left(std::max<qsizetype>(0, text.size() - 2)));
}

QString WordAt(platform::RichTextBox *view, const QPoint &at)
{
    // A selection is the word, when the click is on it; a click elsewhere means the word there,
    // or a word selected by the last look-up would be taken again and again.
    const int clicked = view->textPosition(view->cursorForPosition(at).position());
    const bool onSelection =
        clicked >= view->SelStart() && clicked <= view->SelStart() + view->SelLength();
    if (onSelection && !basStrings::TrimBlanks(view->SelText()).isEmpty())
        return view->SelText();
    // Else the run of word characters around the character clicked: forward with the view's
    // span, backward a character at a time.
    const QSignalBlocker still(view);
    view->setSelStart(clicked);
    view->Span(kWordCharacters, true, false);
    const QString text = view->Text();
    int start = view->SelStart();
    int length = view->SelLength();
    while (start > 0 && start <= text.size() && kWordCharacters.contains(text.at(start - 1))) {
        --start;
        ++length;
    }
    view->setSelStart(start);
    view->setSelLength(length);
    return view->SelText();
}

void OpenHelp()
{
    // The help file when there is one, else the manual that comes with the program.
    using DataFiles::File;
    openOnDesktop(DataFiles::Exists(File::Help) ? DataFiles::Path(File::Help)
                                                : DataFiles::Path(File::Manual),
                  tr("The help could not be opened: "));
}

void OpenWebSite(const QString &address)
{
    openOnDesktop(address, tr("The web site could not be opened: "));
}

void AskMailingList(const QString &address)
{
    const int answer = platform::MsgBox(
        tr("The mailinglist is designed to provide updates regarding software releases and updates "
           "to our product line.") +
            QStringLiteral("\r\n") +
            tr("Please visit our site and use the subscription form on there") +
            QStringLiteral("\r\n\r\n") +
            tr("Click yes to visit our site to subscribe (you need to be connected to the internet "
               "to do this)?"),
        vb::vbQuestion | vb::vbYesNo | vb::vbMsgBoxSetForeground, tr("Mailing List"));
    if (answer == vb::vbYes)
        OpenWebSite(address);
}

} // namespace PassageCommands
