#include "settings/WindowPlacement.h"

#include "platform/Twips.h"
#include "settings/ProgramSettings.h"

#include <QElapsedTimer>
#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QSplitter>
#include <QTabWidget>
#include <QTimer>
#include <QWidget>

#include <algorithm>

namespace {

const QString kState = QStringLiteral("windowstate");
const QString kLeft = QStringLiteral("left");
const QString kTop = QStringLiteral("top");
const QString kWidth = QStringLiteral("width");
const QString kHeight = QStringLiteral("height");

// The frame the window manager put around the last window shown. A window's own frame is known
// only once it is on screen; until then the last one seen is the best guess, and before any was
// seen, none. (A default QSize is -1 by -1, which would make every first window a pixel larger.)
QSize &lastFrameExtra()
{
    static QSize extra(0, 0);
    return extra;
}

// How long after a window first shows the window manager may still be adding its frame.
constexpr int kFrameSettleMs = 1000;

// What the frame adds to a window's inner size. A maximised window may have no side borders, so
// one of the two may be 0; a window not framed yet has neither.
QSize frameOf(const QWidget *window)
{
    return window->frameGeometry().size() - window->geometry().size();
}

bool isFramed(const QSize &extra)
{
    return extra.width() >= 0 && extra.height() >= 0 && !extra.isNull();
}

} // namespace

WindowPlacement::WindowPlacement(QWidget *window, const QString &section, int parts)
    : QObject(window), m_window(window), m_section(section), m_parts(parts)
{
    window->installEventFilter(this);
}

void WindowPlacement::addSplitter(QSplitter *splitter, const QStringList &keys)
{
    m_splitters.append({splitter, keys, QList<Remembered>(keys.size())});
}

void WindowPlacement::addTab(QTabWidget *tabs, const QString &key)
{
    m_tabs = tabs;
    m_tabKey = key;
}

void WindowPlacement::setMinimumOuterSize(int widthTwips, int heightTwips)
{
    // Rounded up, so that the window is never smaller than asked.
    const int tx = twipsPerPixelX();
    const int ty = twipsPerPixelY();
    m_minimumOuter = QSize((widthTwips + tx - 1) / tx, (heightTwips + ty - 1) / ty);
    applyMinimumSize();
}

int WindowPlacement::twipsPerPixelX() const
{
    return platform::TwipsPerPixelX(m_window);
}

int WindowPlacement::twipsPerPixelY() const
{
    return platform::TwipsPerPixelY(m_window);
}

QRect WindowPlacement::availableScreen(const QRect &near) const
{
    QScreen *screen = QGuiApplication::screenAt(near.center());
    if (!screen)
        screen =
            m_window && m_window->screen() ? m_window->screen() : QGuiApplication::primaryScreen();
    return screen ? screen->availableGeometry() : QRect();
}

QSize WindowPlacement::frameExtra() const
{
    // A maximised window's frame is not the one it has when normal.
    if (m_window && m_window->isVisible() && !m_window->isMaximized() && !m_window->isMinimized()) {
        const QSize extra = frameOf(m_window);
        if (isFramed(extra))
            return extra;
    }
    return lastFrameExtra();
}

void WindowPlacement::applyMinimumSize()
{
    // Qt holds the inner size to the minimum; the frame's share is left out of it.
    if (m_window && m_minimumOuter.isValid())
        m_window->setMinimumSize((m_minimumOuter - frameExtra()).expandedTo(QSize(0, 0)));
}

QRect WindowPlacement::FitOnScreen(const QRect &outer, const QRect &available, const QSize &minimum)
{
    if (!available.isValid())
        return outer;
    QRect fitted = outer;
    fitted.setWidth(std::max(std::min(fitted.width(), available.width()), minimum.width()));
    fitted.setHeight(std::max(std::min(fitted.height(), available.height()), minimum.height()));
    if (fitted.right() > available.right())
        fitted.moveRight(available.right());
    if (fitted.bottom() > available.bottom())
        fitted.moveBottom(available.bottom());
    if (fitted.left() < available.left())
        fitted.moveLeft(available.left());
    if (fitted.top() < available.top())
        fitted.moveTop(available.top());
    return fitted;
}

void WindowPlacement::ResizeOnScreen(QWidget *window, QSize wanted)
{
    if (const QScreen *screen = QGuiApplication::primaryScreen())
        wanted = wanted.boundedTo(screen->availableGeometry().size() - QSize(40, 80));
    window->resize(wanted.expandedTo(window->minimumSize()));
}

void WindowPlacement::CentreOver(QWidget *window, const QWidget *over)
{
    if (!window || !over)
        return;
    // The frame is not known before the window manager has framed the window: allow for a
    // title bar.
    const int titleBar = over->frameGeometry().height() - over->height();
    QRect outer(QPoint(), window->size() + QSize(0, qMax(titleBar, 0)));
    outer.moveCenter(over->frameGeometry().center());
    QScreen *screen = QGuiApplication::screenAt(outer.center());
    if (!screen)
        screen = over->screen();
    const QRect fitted =
        FitOnScreen(outer, screen ? screen->availableGeometry() : QRect(), window->minimumSize());
    window->resize(fitted.width(), fitted.height() - qMax(titleBar, 0));
    window->move(fitted.topLeft());
}

void WindowPlacement::restore()
{
    if (!m_window)
        return;
    clsIni &ini = ProgramSettings::instance().Ini();
    if (m_tabs) {
        const int tab = ini.Data(m_section, m_tabKey);
        if (tab >= 0 && tab < m_tabs->count())
            m_tabs->setCurrentIndex(tab);
    }
    if (!ProgramSettings::instance().rememberWindows)
        return;
    m_fixNormal = m_settlingNormal = false;

    // A window kept maximised still gets its normal placement, to return to when it is restored.
    const int state = (m_parts & State) ? ini.Data(m_section, kState) : 0;
    if ((m_parts & (Position | Size)) && (state == 0 || state == 2)) {
        const int tx = twipsPerPixelX();
        const int ty = twipsPerPixelY();
        const auto read = [&](Remembered &value, const QString &key, int twipsPerPixel) {
            value.twips = ini.Data(m_section, key);
            value.pixels = value.twips / twipsPerPixel;
            value.set = true;
        };
        QRect outer = m_window->frameGeometry();
        if (m_parts & Position) {
            read(m_left, m_leftReadKey, tx);
            read(m_top, kTop, ty);
            outer.moveTopLeft(QPoint(m_left.pixels, m_top.pixels));
        }
        if (m_parts & Size) {
            read(m_width, kWidth, tx);
            read(m_height, kHeight, ty);
            outer.setSize(QSize(m_width.pixels, m_height.pixels));
        }
        const QRect fitted =
            FitOnScreen(outer, availableScreen(outer), m_window->minimumSize() + frameExtra());
        // What had to move to fit on screen is written back as it is now, not as it was read.
        m_left.set = m_left.set && fitted.left() == m_left.pixels;
        m_top.set = m_top.set && fitted.top() == m_top.pixels;
        m_width.set = m_width.set && fitted.width() == m_width.pixels;
        m_height.set = m_height.set && fitted.height() == m_height.pixels;
        m_wantedOuter = fitted;
        m_window->move(fitted.topLeft());
        if (m_parts & Size)
            applyOuterSize();
    }
    if (state == 2)
        m_window->setWindowState(m_window->windowState() | Qt::WindowMaximized);

    if (!m_splitters.isEmpty()) {
        m_splittersPending = true;
        if (m_window->isVisible())
            QTimer::singleShot(0, this, &WindowPlacement::restoreSplitters);
    }
}

void WindowPlacement::applyOuterSize()
{
    // The saved size is the outer one, frame included; the window is given its inner size.
    const bool shown = m_window->isVisible();
    const QSize extra = shown ? frameOf(m_window) : lastFrameExtra();
    m_window->resize((m_wantedOuter.size() - extra).expandedTo(m_window->minimumSize()));
    // Until the window manager has framed the window, its frame may still change the outer size.
    m_fixFrame = !shown || !isFramed(extra);
}

QList<int> WindowPlacement::handlePositions(const QSplitter *splitter) const
{
    QList<int> positions;
    const QList<int> sizes = splitter->sizes();
    int x = splitter->mapTo(m_window, QPoint(0, 0)).x();
    for (qsizetype i = 0; i + 1 < sizes.size(); ++i) {
        x += sizes.at(i);
        positions.append(x);
        x += splitter->handleWidth();
    }
    return positions;
}

void WindowPlacement::restoreSplitters()
{
    if (!m_splittersPending || !m_window)
        return;
    // A frame still to come would resize the window under the splitters: they wait for it.
    if (m_fixFrame)
        return;
    m_splittersPending = false;
    clsIni &ini = ProgramSettings::instance().Ini();
    const int tx = twipsPerPixelX();
    for (SplitterKeys &entry : m_splitters) {
        QSplitter *splitter = entry.splitter;
        if (!splitter)
            continue;
        const int offset = splitter->mapTo(m_window, QPoint(0, 0)).x();
        const int handle = splitter->handleWidth();
        const int count = splitter->count();
        QList<int> edges; // left edge of each handle, in the splitter's own coordinates
        for (const int position : handlePositions(splitter))
            edges.append(position - offset);
        for (qsizetype i = 0; i < entry.keys.size() && i < edges.size(); ++i) {
            entry.handles[i].twips = ini.Data(m_section, entry.keys.at(i));
            entry.handles[i].pixels = entry.handles[i].twips / tx;
            entry.handles[i].set = true;
        }
        // The last handle is placed first, then the ones before it, each held between the
        // smallest widths of the widgets on either side.
        for (qsizetype i = std::min(entry.keys.size(), edges.size()) - 1; i >= 0; --i) {
            const int leftEdge = i == 0 ? 0 : edges.at(i - 1) + handle;
            const int rightBound = i + 1 < edges.size() ? edges.at(i + 1) : splitter->width();
            const int low = leftEdge + splitter->widget(int(i))->minimumWidth();
            const int high = rightBound - handle - splitter->widget(int(i) + 1)->minimumWidth();
            edges[i] = std::max(low, std::min(entry.handles.at(i).pixels - offset, high));
        }
        QList<int> sizes;
        int start = 0;
        for (int i = 0; i < count; ++i) {
            const int end = i < edges.size() ? edges.at(i) : splitter->width();
            sizes.append(std::max(0, end - start));
            start = end + handle;
        }
        splitter->setSizes(sizes);
        const QList<int> placed = handlePositions(splitter);
        for (qsizetype i = 0; i < entry.handles.size() && i < placed.size(); ++i) {
            Remembered &value = entry.handles[i];
            value.set = value.pixels == placed.at(i);
            value.pixels = placed.at(i);
        }
    }
    emit splittersRestored();
}

int WindowPlacement::writeBack(const Remembered &value, int pixels, int twipsPerPixel) const
{
    // A value that still stands where it was read goes back exactly as it was, so that rounding
    // twips to pixels never moves an untouched window.
    return value.set && value.pixels == pixels ? value.twips : pixels * twipsPerPixel;
}

void WindowPlacement::save()
{
    if (!m_window)
        return;
    clsIni &ini = ProgramSettings::instance().Ini();
    const int tx = twipsPerPixelX();
    const int ty = twipsPerPixelY();
    int state = 0;
    if (m_parts & State) {
        state = m_window->isMinimized() ? 1 : m_window->isMaximized() ? 2 : 0;
        ini.setData(m_section, kState, state);
    }
    if (state == 0) {
        const QRect outer = m_window->frameGeometry();
        if (m_parts & Position) {
            ini.setData(m_section, kLeft, writeBack(m_left, outer.left(), tx));
            ini.setData(m_section, kTop, writeBack(m_top, outer.top(), ty));
        }
        if (m_parts & Size) {
            ini.setData(m_section, kWidth, writeBack(m_width, outer.width(), tx));
            ini.setData(m_section, kHeight, writeBack(m_height, outer.height(), ty));
        }
    }
    for (const SplitterKeys &entry : std::as_const(m_splitters)) {
        if (!entry.splitter)
            continue;
        const QList<int> positions = handlePositions(entry.splitter);
        for (qsizetype i = 0; i < entry.keys.size() && i < positions.size(); ++i) {
            const Remembered &value = entry.handles.at(i);
            // Splitters not laid out yet stand where they were read.
            const int twips = m_splittersPending && value.set
                                  ? value.twips
                                  : writeBack(value, positions.at(i), tx);
            ini.setData(m_section, entry.keys.at(i), twips);
        }
    }
    if (m_tabs)
        ini.setData(m_section, m_tabKey, m_tabs->currentIndex());
}

void WindowPlacement::settleFrame()
{
    if (!m_fixFrame || !m_window || !m_window->isVisible())
        return;
    const QSize extra = frameOf(m_window);
    if (!isFramed(extra)) {
        // No frame yet; after a while, none is coming.
        if (m_shown.isValid() && m_shown.elapsed() >= kFrameSettleMs) {
            m_fixFrame = false;
            QTimer::singleShot(0, this, &WindowPlacement::restoreSplitters);
        }
        return;
    }
    // Framed now: the inner size is what is left of the outer size asked for.
    m_fixFrame = false;
    QTimer::singleShot(0, this, &WindowPlacement::restoreSplitters);
    if (m_window->isMaximized() || m_window->isMinimized()) {
        // The window system gives the window back the inner size it was first shown with, which
        // may not have taken the frame into account: it is put right when the window is normal.
        m_fixNormal = true;
        m_maximisedOuter = m_window->frameGeometry();
        return;
    }
    lastFrameExtra() = extra;
    if (m_window->frameGeometry() != m_wantedOuter) {
        m_window->resize((m_wantedOuter.size() - extra).expandedTo(m_window->minimumSize()));
        m_window->move(m_wantedOuter.topLeft());
    }
}

void WindowPlacement::settleNormalSize()
{
    if (!m_fixNormal || !m_window || !m_window->isVisible())
        return;
    if (m_window->isMaximized() || m_window->isMinimized()) {
        m_maximisedOuter = m_window->frameGeometry();
        return;
    }
    // The window system gives the normal place, size and frame back in steps, and may say the
    // window is normal before the first: for a short while each step is put right.
    if (!m_settlingNormal) {
        m_settlingNormal = true;
        QTimer::singleShot(kFrameSettleMs, this,
                           [this] { m_fixNormal = m_settlingNormal = false; });
    }
    const QSize extra = frameOf(m_window);
    if (m_window->frameGeometry() == m_maximisedOuter || !isFramed(extra))
        return;
    lastFrameExtra() = extra;
    if (m_window->frameGeometry() != m_wantedOuter) {
        m_window->resize((m_wantedOuter.size() - extra).expandedTo(m_window->minimumSize()));
        m_window->move(m_wantedOuter.topLeft());
    }
}

bool WindowPlacement::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_window)
        return QObject::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::Show:
        if (!m_shown.isValid())
            m_shown.start();
        if (m_splittersPending)
            QTimer::singleShot(0, this, &WindowPlacement::restoreSplitters);
        if (m_minimumOuter.isValid())
            QTimer::singleShot(0, this, &WindowPlacement::applyMinimumSize);
        // The window system may frame the window at once or a little later.
        if (m_fixFrame) {
            QTimer::singleShot(0, this, &WindowPlacement::settleFrame);
            QTimer::singleShot(kFrameSettleMs, this, &WindowPlacement::settleFrame);
        }
        break;
    case QEvent::Hide:
        // Closing, or the program hiding the window (Escape on a dialog); minimising is a hide
        // that the window system sends, and is not an end of the window.
        if (!event->spontaneous())
            save();
        break;
    case QEvent::Move:
    case QEvent::Resize:
        // A frame that came or changed is taken out of the minimum size too.
        applyMinimumSize();
        settleFrame();
        settleNormalSize();
        break;
    case QEvent::WindowStateChange:
        // The window system may have given the normal size back before it said so.
        if (m_fixNormal)
            QTimer::singleShot(0, this, &WindowPlacement::settleNormalSize);
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}
