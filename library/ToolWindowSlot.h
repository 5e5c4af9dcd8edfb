#pragma once

#include <QPointer>
#include <QWidget>

// Holds one tool window of the main window: the first request creates it (parented to the main
// window as a window of its own), later requests bring the same window forward. A closed window
// that deleted itself is created afresh on the next request.
// Shows a tool window as a window of its own and brings it forward, restored if it was minimised.
inline void BringToolWindowForward(QWidget *window)
{
    window->setWindowFlag(Qt::Window, true);
    window->show();
    if (window->isMinimized())
        window->showNormal();
    window->raise();
    window->activateWindow();
}

template <typename Window> class ToolWindowSlot
{
public:
    template <typename Make> Window *open(Make make)
    {
        if (!m_window) {
            m_window = make();
            if (!m_window)
                return nullptr;
        }
        BringToolWindowForward(m_window);
        return m_window;
    }

    Window *window() const { return m_window; }

private:
    QPointer<Window> m_window;
};
