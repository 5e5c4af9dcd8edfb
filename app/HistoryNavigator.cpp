#include "app/HistoryNavigator.h"

#include "app/StudyTabs.h"
#include "platform/RichTextBox.h"
#include "scripture/clsBible.h"
#include "settings/WindowSettings.h"

#include <QAbstractTextDocumentLayout>
#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QHBoxLayout>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTabWidget>
#include <QTextBlock>
#include <QTextDocument>
#include <QTimer>
#include <QToolButton>

#include <algorithm>
#include <cmath>

namespace {

// The most places the drop-down and the Go menu list.
constexpr int kRecentShown = 15;

// The text position at the top of a view: it stays right when the view is wider, narrower or
// zoomed, where a scroll bar's value would not.
int topPosition(const platform::RichTextBox *view)
{
    // The first pixel line, not the edge above it, which belongs to the paragraph before.
    return view->textPosition(view->cursorForPosition(QPoint(0, 1)).position());
}

void scrollTo(platform::RichTextBox *view, int textPosition)
{
    const QTextDocument *document = view->document();
    const QTextBlock block = document->findBlock(
        std::clamp(view->documentPosition(textPosition), 0, document->characterCount() - 1));
    // Asking for the paragraph's place lays the text out that far, and the scroll bar reaches
    // it. Rounded up: a top between two pixels would otherwise show the previous paragraph's
    // last pixel line at the top and count it as the top paragraph.
    const qreal y = block == document->firstBlock()
                        ? 0.0
                        : document->documentLayout()->blockBoundingRect(block).top();
    view->verticalScrollBar()->setValue(int(std::ceil(y)));
}

} // namespace

HistoryNavigator::HistoryNavigator(QMainWindow *window, StudyTabs &study,
                                   std::function<bool(const Place &)> go)
    : QObject(window), m_study(study), m_go(std::move(go)), m_window(window)
{
    // The Go menu stands before Help, the last menu.
    QMenuBar *bar = window->menuBar();
    auto *goMenu = new QMenu(tr("&Go"), bar);
    goMenu->setObjectName(QStringLiteral("mnuGo"));
    const QList<QAction *> menus = bar->actions();
    bar->insertMenu(menus.isEmpty() ? nullptr : menus.constLast(), goMenu);
    mnuGoBack = goMenu->addAction(tr("&Back"));
    mnuGoBack->setObjectName(QStringLiteral("mnuGoBack"));
    mnuGoBack->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Left));
    mnuGoForward = goMenu->addAction(tr("&Forward"));
    mnuGoForward->setObjectName(QStringLiteral("mnuGoForward"));
    mnuGoForward->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Right));
    goMenu->addSeparator();
    mnuGoRecent = goMenu->addMenu(tr("&Recent Places"));
    mnuGoRecent->setObjectName(QStringLiteral("mnuGoRecent"));
    connect(mnuGoBack, &QAction::triggered, this, [this] { travel(-1); });
    connect(mnuGoForward, &QAction::triggered, this, [this] { travel(1); });
    connect(mnuGoRecent, &QMenu::aboutToShow, this, &HistoryNavigator::fillRecent);

    // Beside the tabs, where the tab row has room: the lists, the title and the boxes below
    // stay where they are.
    auto *corner = new QWidget(study.tabs());
    corner->setObjectName(QStringLiteral("fraHistory"));
    auto *row = new QHBoxLayout(corner);
    row->setContentsMargins(0, 0, 2, 2);
    row->setSpacing(1);
    const auto button = [corner, row](const char *name, Qt::ArrowType arrow) {
        auto *b = new QToolButton(corner);
        b->setObjectName(QLatin1String(name));
        b->setArrowType(arrow);
        b->setAutoRaise(true);
        // A click goes back without taking the keyboard from the passage or the notes.
        b->setFocusPolicy(Qt::NoFocus);
        row->addWidget(b);
        return b;
    };
    cmdBack = button("cmdBack", Qt::LeftArrow);
    cmdForward = button("cmdForward", Qt::RightArrow);
    // The style's own drop-down mark follows the caption.
    cmdRecent = button("cmdRecent", Qt::NoArrow);
    cmdRecent->setText(tr("Places"));
    cmdRecent->setToolTip(tr("Recent places"));
    cmdRecent->setMenu(mnuGoRecent);
    cmdRecent->setPopupMode(QToolButton::InstantPopup);
    connect(cmdBack, &QToolButton::clicked, mnuGoBack, &QAction::trigger);
    connect(cmdForward, &QToolButton::clicked, mnuGoForward, &QAction::trigger);
    study.tabs()->setCornerWidget(corner, Qt::TopRightCorner);

    // The mouse's back and forward buttons, anywhere in the window.
    qApp->installEventFilter(this);
    refresh();
}

void HistoryNavigator::leaving()
{
    if (m_holds == 0 && !m_away)
        m_places.updateCurrent(m_study.tabs()->currentIndex(), topPosition(m_study.shownView()));
}

void HistoryNavigator::arrived(const QString &translation, const Passage &passage)
{
    if (m_holds > 0)
        return;
    if (!passage.found()) {
        // Where the reader stood was kept as the view was left.
        m_away = true;
        refresh();
        return;
    }
    m_away = false;
    m_places.visit({translation, passage.Standard(), m_study.tabs()->currentIndex(),
                    topPosition(m_study.shownView())});
    refresh();
}

void HistoryNavigator::wentAway()
{
    if (m_holds > 0 || m_away)
        return;
    leaving();
    m_away = true;
    refresh();
}

void HistoryNavigator::travel(int steps)
{
    // Back from what is no place goes first to the place it covered.
    const int move = m_away && steps < 0 ? steps + 1 : steps;
    const int index = m_places.current() + move;
    if (m_places.current() < 0 || index < 0 || index >= m_places.places().size() ||
        (move == 0 && !m_away))
        return;
    const Place target = m_places.places().at(index);
    leaving();
    {
        const Hold hold(*this);
        if (!m_go(target))
            return;
        m_places.step(move);
        showWhereReaderStood(target);
    }
    m_away = false;
    refresh();
}

void HistoryNavigator::showWhereReaderStood(const Place &place)
{
    QTabWidget *tabs = m_study.tabs();
    const int tab = place.tab < tabs->count() && tabs->isTabVisible(place.tab) ? place.tab : 0;
    tabs->setCurrentIndex(tab);
    platform::RichTextBox *view = m_study.shownView();
    scrollTo(view, place.top);
    // A view laid out only now (a tab just brought forward) is scrolled once more when it is.
    QTimer::singleShot(0, view, [view, top = place.top] { scrollTo(view, top); });
}

void HistoryNavigator::refresh()
{
    const std::optional<Place> back = m_away && m_places.current() >= 0
                                          ? m_places.places().at(m_places.current())
                                          : m_places.peek(-1);
    const std::optional<Place> forward = m_places.peek(1);
    mnuGoBack->setEnabled(back.has_value());
    mnuGoForward->setEnabled(forward.has_value());
    cmdBack->setEnabled(back.has_value());
    cmdForward->setEnabled(forward.has_value());
    cmdBack->setToolTip(back ? tr("Back to %1 (Alt+Left)").arg(back->caption()) : tr("Back"));
    cmdForward->setToolTip(forward ? tr("Forward to %1 (Alt+Right)").arg(forward->caption())
                                   : tr("Forward"));
    cmdRecent->setEnabled(!m_places.places().isEmpty());
}

void HistoryNavigator::fillRecent()
{
    // The newest place first; the one on show is ticked.
    mnuGoRecent->clear();
    auto *group = new QActionGroup(mnuGoRecent);
    const QList<Place> &places = m_places.places();
    const int current = m_places.current();
    for (int i = int(places.size()) - 1, shown = 0; i >= 0 && shown < kRecentShown; --i, ++shown) {
        QAction *entry = mnuGoRecent->addAction(
            QString(places.at(i).caption()).replace(u'&', QStringLiteral("&&")));
        entry->setCheckable(true);
        entry->setChecked(i == current);
        group->addAction(entry);
        connect(entry, &QAction::triggered, this, [this, i] { travel(i - m_places.current()); });
    }
}

void HistoryNavigator::restore()
{
    m_places.fromLines(WindowSettings::Get(WindowSettings::HistoryPlaces),
                       WindowSettings::Get(WindowSettings::HistoryCurrent));
    refresh();
}

void HistoryNavigator::save() const
{
    WindowSettings::Set(WindowSettings::HistoryPlaces, m_places.toLines());
    WindowSettings::Set(WindowSettings::HistoryCurrent, m_places.current());
}

bool HistoryNavigator::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonPress && watched->isWidgetType() &&
        static_cast<QWidget *>(watched)->window() == m_window) {
        const Qt::MouseButton button = static_cast<QMouseEvent *>(event)->button();
        if (button == Qt::BackButton || button == Qt::ForwardButton) {
            travel(button == Qt::BackButton ? -1 : 1);
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}
