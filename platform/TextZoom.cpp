#include "platform/TextZoom.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace platform {

namespace {

TextZoom::Load g_load;
TextZoom::Save g_save;

bool isTextView(QObject *object)
{
    return qobject_cast<QTextEdit *>(object) || qobject_cast<QPlainTextEdit *>(object);
}

// Gives each text view its zoom as it is first polished, before it is shown.
class Installer : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Polish && isTextView(watched))
            TextZoom::of(static_cast<QAbstractScrollArea *>(watched));
        return false;
    }
};

enum class Key
{
    None,
    In,
    Out,
    Reset
};

Key zoomKey(const QKeyEvent *key)
{
    const Qt::KeyboardModifiers mods = key->modifiers() & ~Qt::KeypadModifier;
    if (!(mods & Qt::ControlModifier) || (mods & (Qt::AltModifier | Qt::MetaModifier)))
        return Key::None;
    switch (key->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        return Key::In;
    case Qt::Key_Minus:
        return Key::Out;
    case Qt::Key_0:
        return Key::Reset;
    default:
        return Key::None;
    }
}

} // namespace

void TextZoom::InstallEverywhere(Load load, Save save)
{
    g_load = std::move(load);
    g_save = std::move(save);
    static QPointer<Installer> installer;
    if (!installer && qApp) {
        installer = new Installer(qApp);
        qApp->installEventFilter(installer);
    }
}

TextZoom *TextZoom::of(QAbstractScrollArea *view)
{
    if (!view || !isTextView(view))
        return nullptr;
    if (auto *zoom = view->findChild<TextZoom *>(QString(), Qt::FindDirectChildrenOnly))
        return zoom;
    return new TextZoom(view);
}

const TextZoom *TextZoom::find(const QAbstractScrollArea *view)
{
    return view ? view->findChild<const TextZoom *>(QString(), Qt::FindDirectChildrenOnly)
                : nullptr;
}

TextZoom::TextZoom(QAbstractScrollArea *view)
    : QObject(view), m_view(view), m_viewport(view->viewport()), m_base(view->font())
{
    view->installEventFilter(this);
    view->viewport()->installEventFilter(this);
    const QString remembered = name();
    if (g_load && !remembered.isEmpty())
        m_percent = std::clamp(g_load(remembered), std::begin(Steps)[0], std::end(Steps)[-1]);
    apply();
}

QString TextZoom::name() const
{
    return m_view->objectName().isEmpty() ? m_view->window()->objectName() : m_view->objectName();
}

void TextZoom::setPercent(int percent)
{
    percent = std::clamp(percent, std::begin(Steps)[0], std::end(Steps)[-1]);
    if (percent == m_percent)
        return;
    m_percent = percent;
    apply();
    const QString remembered = name();
    if (g_save && !remembered.isEmpty())
        g_save(remembered, m_percent);
    emit zoomed(m_percent);
}

void TextZoom::zoomIn()
{
    const auto next = std::upper_bound(std::begin(Steps), std::end(Steps), m_percent);
    if (next != std::end(Steps))
        setPercent(*next);
}

void TextZoom::zoomOut()
{
    const auto before = std::lower_bound(std::begin(Steps), std::end(Steps), m_percent);
    if (before != std::begin(Steps))
        setPercent(*std::prev(before));
}

void TextZoom::apply()
{
    QFont zoomed = m_base;
    if (m_base.pointSizeF() > 0)
        zoomed.setPointSizeF(m_base.pointSizeF() * m_percent / 100.0);
    else if (m_base.pixelSize() > 0)
        zoomed.setPixelSize(std::max(1, int(std::lround(m_base.pixelSize() * m_percent / 100.0))));
    if (zoomed == m_view->font())
        return;
    m_applying = true;
    m_view->setFont(zoomed);
    m_applying = false;
}

bool TextZoom::eventFilter(QObject *watched, QEvent *event)
{
    // The type first: while the view is being destroyed only its pointer may be compared.
    switch (event->type()) {
    case QEvent::FontChange:
        // A font the program gave the view: the new base, zoomed as before.
        if (watched == m_view && !m_applying) {
            m_base = m_view->font();
            apply();
        }
        break;
    case QEvent::ShortcutOverride:
        // The view's zoom keys come before any shortcut of the window.
        if (watched == m_view && zoomKey(static_cast<QKeyEvent *>(event)) != Key::None) {
            event->accept();
            return true;
        }
        break;
    case QEvent::KeyPress:
        if (watched != m_view)
            break;
        switch (zoomKey(static_cast<QKeyEvent *>(event))) {
        case Key::In:
            zoomIn();
            return true;
        case Key::Out:
            zoomOut();
            return true;
        case Key::Reset:
            reset();
            return true;
        case Key::None:
            break;
        }
        break;
    case QEvent::Wheel:
        if (watched == m_viewport &&
            (static_cast<QWheelEvent *>(event)->modifiers() & Qt::ControlModifier)) {
            // A notch of the wheel is one step; the small deltas of a touch pad add up to one.
            m_wheel += static_cast<QWheelEvent *>(event)->angleDelta().y();
            for (; m_wheel >= 120; m_wheel -= 120)
                zoomIn();
            for (; m_wheel <= -120; m_wheel += 120)
                zoomOut();
            return true;
        }
        break;
    default:
        break;
    }
    return false;
}

} // namespace platform
