#pragma once

#include <QString>
#include <functional>

// Message boxes with the answers and button/icon codes the program's logic is written against.
// The logic never talks to a widget: the window installs a handler that shows a real box, the
// command line prints to standard error, and tests install an answerer.
namespace vb {
enum MsgBoxStyle : int
{
    vbOKOnly = 0,
    vbOKCancel = 1,
    vbAbortRetryIgnore = 2,
    vbYesNoCancel = 3,
    vbYesNo = 4,
    vbRetryCancel = 5,
    vbCritical = 16,
    vbQuestion = 32,
    vbExclamation = 48,
    vbInformation = 64,
    vbDefaultButton2 = 256,
    vbMsgBoxSetForeground = 65536,
};
enum MsgBoxResult : int
{
    vbOK = 1,
    vbCancel = 2,
    vbAbort = 3,
    vbRetry = 4,
    vbIgnore = 5,
    vbYes = 6,
    vbNo = 7
};
} // namespace vb

namespace platform {

// The program's title, used when a message gives none.
QString AppTitle();

using MsgBoxHandler = std::function<int(const QString &prompt, int buttons, const QString &title)>;

// Shows a message through the installed handler and returns its VB-style answer.
int MsgBox(const QString &prompt, int buttons = vb::vbOKOnly, const QString &title = QString());

// Installs a handler and returns the previous one. An empty handler restores the default,
// which writes the message to standard error and answers with the first button.
MsgBoxHandler setMsgBoxHandler(MsgBoxHandler handler);

// The answer a box gives when nobody can be asked: OK, Yes, Abort or Retry.
int DefaultAnswer(int buttons);

// The "Err #n ocurred(description)" text of unexpected failures; the spelling is kept because
// users and their help pages know it.
QString ErrText(int number, const QString &description);

} // namespace platform
