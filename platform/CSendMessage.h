#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>

// Edit commands for a text box or rich-text view, and moving or sizing a window from a mouse-down
// handler as if its caption or border had been grabbed.
class CSendMessage
{
public:
    CSendMessage() = default;
    explicit CSendMessage(QWidget *hwnd) : m_hwnd(hwnd) {}

    QWidget *hwnd() const { return m_hwnd; }
    void setHwnd(QWidget *widget) { m_hwnd = widget; }

    // Each is false when the widget has no such command.
    bool Undo() const;
    bool Cut() const;
    bool Copy() const;
    bool Paste() const;

    // Releases the mouse grab first unless told not to, then lets the window system move the
    // window, or size it by the edge "L", "R", "T", "TL", "TR", "B", "BL" or "BR".
    bool DragWindow(bool releaseCapture = true) const;
    bool SizeWindow(const QString &edge, bool releaseCapture = true) const;

private:
    bool invoke(const char *command) const;

    QPointer<QWidget> m_hwnd;
};
