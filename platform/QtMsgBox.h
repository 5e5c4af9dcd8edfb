#pragma once

#include <QString>

class QWidget;

namespace platform {

// Makes platform::MsgBox show a real message box: the VB-style buttons and icon, the title, and
// the answer as vb::vbOK, vb::vbYes, ... The box is owned by the active window.
void InstallWidgetMsgBox();

// Shows one box now; what the installed handler calls.
int ShowWidgetMsgBox(const QString &prompt, int buttons, const QString &title,
                     QWidget *parent = nullptr);

} // namespace platform
