#pragma once

#include <QPointer>
#include <QWidget>

// Holds one tool window of the main window: the first request creates it (parented to the main
// window as a window of its own), later requests bring the same window forward. A closed window
// that deleted itself is created afresh on the next request.
template<typename Window>
class ToolWindowSlot
{
public:
    template<typename Make>
    Window *open(Make make)
    {
        if (!m_window) {
            m_window = make();
            if (!m_window)
                return nullptr;
            m_window->setWindowFlag(Qt::Window, true);
        }
        m_window->show();
        if (m_window->isMinimized())
            m_window->showNormal();
        m_window->raise();
        m_window->activateWindow();
        return m_window;
    }

    Window *window() const { return m_window; }

private:
    QPointer<Window> m_window;
};
