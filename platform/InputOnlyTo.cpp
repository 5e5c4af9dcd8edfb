#include "platform/InputOnlyTo.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace platform {

namespace {

bool isInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::Close:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
        return true;
    default:
        return false;
    }
}

} // namespace

InputOnlyTo::InputOnlyTo(QWidget *window) : m_window(window)
{
    qApp->installEventFilter(this);
}

InputOnlyTo::~InputOnlyTo()
{
    qApp->removeEventFilter(this);
}

void InputOnlyTo::yield()
{
    QCoreApplication::processEvents();
}

bool InputOnlyTo::eventFilter(QObject *watched, QEvent *event)
{
    if (!m_window || !isInput(event->type()) || !watched->isWidgetType())
        return false;
    // The window itself, its pop-ups and dialogs, and any question a message box asks meanwhile.
    const QWidget *top = static_cast<QWidget *>(watched)->window();
    if (top->isModal() || top == QApplication::activeModalWidget() ||
        top == QApplication::activePopupWidget())
        return false;
    for (const QWidget *w = top; w; w = w->parentWidget()) {
        if (w == m_window)
            return false;
    }
    // A window asked to close stays open; the rest is dropped, as on a window that is busy.
    event->ignore();
    return true;
}

} // namespace platform
