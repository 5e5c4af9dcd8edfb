#include "platform/CSendMessage.h"

#include <QByteArray>
#include <QMetaObject>
#include <QStringList>
#include <QWindow>

namespace {
void ReleaseCapture()
{
    if (QWidget *grabber = QWidget::mouseGrabber())
        grabber->releaseMouse();
}
} // namespace

bool CSendMessage::invoke(const char *command) const
{
    // Text boxes, rich-text views and plain-text views all offer the edit commands as slots.
    if (!m_hwnd)
        return false;
    const QByteArray signature = QByteArray(command) + "()";
    if (m_hwnd->metaObject()->indexOfMethod(signature.constData()) < 0)
        return false;
    return QMetaObject::invokeMethod(m_hwnd.data(), command, Qt::DirectConnection);
}

bool CSendMessage::Undo() const
{
    return invoke("undo");
}

bool CSendMessage::Cut() const
{
    return invoke("cut");
}

bool CSendMessage::Copy() const
{
    return invoke("copy");
}

bool CSendMessage::Paste() const
{
    return invoke("paste");
}

bool CSendMessage::DragWindow(bool releaseCapture) const
{
    if (!m_hwnd)
        return false;
    if (releaseCapture)
        ReleaseCapture();
    QWindow *window = m_hwnd->window()->windowHandle();
    return window && window->startSystemMove();
}

bool CSendMessage::SizeWindow(const QString &edge, bool releaseCapture) const
{
    if (!m_hwnd)
        return false;
    const QString code = edge.trimmed().toUpper();
    static const QStringList known = {
        QStringLiteral("L"),  QStringLiteral("R"), QStringLiteral("T"),  QStringLiteral("TL"),
        QStringLiteral("TR"), QStringLiteral("B"), QStringLiteral("BL"), QStringLiteral("BR")};
    if (!known.contains(code))
        return false;
    Qt::Edges edges;
    if (code.contains(u'L'))
        edges |= Qt::LeftEdge;
    if (code.contains(u'R'))
        edges |= Qt::RightEdge;
    if (code.contains(u'T'))
        edges |= Qt::TopEdge;
    if (code.contains(u'B'))
        edges |= Qt::BottomEdge;
    if (releaseCapture)
        ReleaseCapture();
    QWindow *window = m_hwnd->window()->windowHandle();
    return window && window->startSystemResize(edges);
}
