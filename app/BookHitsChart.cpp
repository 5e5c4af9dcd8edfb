#include "app/BookHitsChart.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace {
constexpr int kAxisWidth = 34;
constexpr int kMargin = 4;
constexpr int kLongestLabel = 78;

QFont labelFont(const QFont &base)
{
    QFont font = base;
    font.setPixelSize(9);
    return font;
}
} // namespace

BookHitsChart::BookHitsChart(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("picChart"));
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void BookHitsChart::setCounts(const QStringList &books, int oldTestament, const QList<int> &counts)
{
    m_books = books;
    m_oldTestament = std::clamp(oldTestament, 0, int(books.size()));
    m_counts = counts;
    m_counts.resize(books.size());
    m_most = m_counts.isEmpty() ? 0 : *std::max_element(m_counts.cbegin(), m_counts.cend());
    if (m_chosen > m_books.size() || (m_chosen > 0 && m_counts.at(m_chosen - 1) == 0))
        m_chosen = 0;
    update();
}

void BookHitsChart::setChosenBook(int book)
{
    m_chosen = book >= 1 && book <= m_books.size() ? book : 0;
    update();
}

int BookHitsChart::labelHeight() const
{
    const QFontMetrics metrics(labelFont(font()));
    int widest = 0;
    for (const QString &book : m_books)
        widest = std::max(widest, metrics.horizontalAdvance(book));
    return std::min(widest, kLongestLabel) + kMargin;
}

BookHitsChart::Geometry BookHitsChart::geometry() const
{
    const int title = fontMetrics().height() + kMargin;
    const int below = labelHeight();
    Geometry g;
    g.plot = QRect(kAxisWidth, title, std::max(1, width() - kAxisWidth - kMargin),
                   std::max(1, height() - title - below));
    const bool twoParts = m_oldTestament > 0 && m_oldTestament < m_books.size();
    g.gap = twoParts ? 8 : 0;
    g.slot = m_books.isEmpty() ? 0.0 : double(g.plot.width() - g.gap) / double(m_books.size());
    return g;
}

int BookHitsChart::slotLeft(const Geometry &g, int book) const
{
    const int gap = book > m_oldTestament ? g.gap : 0;
    return g.plot.left() + gap + int(std::floor(g.slot * (book - 1)));
}

QRect BookHitsChart::barRect(int book) const
{
    if (book < 1 || book > m_books.size() || m_most == 0 || m_counts.at(book - 1) == 0)
        return {};
    const Geometry g = geometry();
    const int left = slotLeft(g, book);
    const int right =
        g.plot.left() + (book > m_oldTestament ? g.gap : 0) + int(std::floor(g.slot * book));
    const int barWidth = std::max(1, right - left - (g.slot >= 4 ? 1 : 0));
    // The smallest count still shows as a sliver.
    const int barHeight =
        std::max(2, int(std::lround(double(g.plot.height()) * m_counts.at(book - 1) / m_most)));
    return QRect(left, g.plot.bottom() + 1 - barHeight, barWidth, barHeight);
}

int BookHitsChart::bookAt(const QPoint &point) const
{
    if (m_books.isEmpty())
        return 0;
    const Geometry g = geometry();
    if (point.y() < g.plot.top() || point.y() > g.plot.bottom() + labelHeight())
        return 0;
    for (int b = 1; b <= m_books.size(); ++b) {
        const int left = slotLeft(g, b);
        const int right =
            g.plot.left() + (b > m_oldTestament ? g.gap : 0) + int(std::floor(g.slot * b));
        if (point.x() >= left && point.x() < right)
            return b;
    }
    return 0;
}

QSize BookHitsChart::sizeHint() const
{
    return {560, minimumSizeHint().height() + 40};
}

QSize BookHitsChart::minimumSizeHint() const
{
    return {240, fontMetrics().height() + kMargin + 60 + labelHeight()};
}

void BookHitsChart::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    if (m_books.isEmpty())
        return;
    const Geometry g = geometry();
    const QColor text = palette().color(QPalette::Text);
    QColor faint = text;
    faint.setAlpha(90);

    // The testaments' names over their halves.
    painter.setPen(text);
    const int titleTop = kMargin / 2;
    const int titleHeight = fontMetrics().height();
    if (m_oldTestament > 0) {
        const int right = slotLeft(g, m_oldTestament + 1) - g.gap;
        painter.drawText(QRect(g.plot.left(), titleTop, right - g.plot.left(), titleHeight),
                         Qt::AlignCenter, tr("Old Testament"));
    }
    if (m_oldTestament < m_books.size()) {
        const int left = slotLeft(g, m_oldTestament + 1);
        painter.drawText(QRect(left, titleTop, g.plot.right() - left, titleHeight), Qt::AlignCenter,
                         tr("New Testament"));
    }

    // The count axis: the greatest count at the top, 0 at the foot.
    painter.setPen(faint);
    painter.drawLine(g.plot.left() - 2, g.plot.bottom() + 1, g.plot.right(), g.plot.bottom() + 1);
    painter.drawLine(g.plot.left() - 2, g.plot.top(), g.plot.left() - 2, g.plot.bottom() + 1);
    painter.setPen(text);
    painter.setFont(labelFont(font()));
    const QRect topLabel(0, g.plot.top() - 2, kAxisWidth - 5, 12);
    painter.drawText(topLabel, Qt::AlignRight | Qt::AlignTop, QString::number(m_most));
    painter.drawText(QRect(0, g.plot.bottom() - 10, kAxisWidth - 5, 12),
                     Qt::AlignRight | Qt::AlignBottom, QStringLiteral("0"));

    QColor bar = palette().color(QPalette::Highlight);
    QColor dimmed = bar;
    dimmed.setAlpha(80);
    for (int b = 1; b <= m_books.size(); ++b) {
        const QRect r = barRect(b);
        if (!r.isEmpty())
            painter.fillRect(r, m_chosen == 0 || m_chosen == b ? bar : dimmed);
    }

    // The book names hang below their bars, read from the axis downwards. Where the bars stand
    // closer than a line of the names, only the books with hits are named, none over another.
    const QFontMetrics metrics(painter.font());
    const bool crowded = g.slot < metrics.ascent();
    int free = g.plot.left() - metrics.ascent();
    for (int b = 1; b <= m_books.size(); ++b) {
        const int left = slotLeft(g, b);
        const int centre = left + int(g.slot / 2);
        if (crowded && (m_counts.at(b - 1) == 0 || centre - metrics.ascent() / 2 < free))
            continue;
        free = centre + metrics.ascent() / 2 + 1;
        const QString name = metrics.elidedText(m_books.at(b - 1), Qt::ElideRight, kLongestLabel);
        painter.save();
        painter.translate(centre - metrics.ascent() / 2.0, g.plot.bottom() + 4.0);
        painter.rotate(90);
        painter.setPen(m_counts.at(b - 1) > 0 ? text : faint);
        if (b == m_chosen) {
            QFont bold = painter.font();
            bold.setBold(true);
            painter.setFont(bold);
        }
        painter.drawText(0, 0, name);
        painter.restore();
    }
}

void BookHitsChart::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const int book = bookAt(event->position().toPoint());
    if (book > 0 && m_counts.at(book - 1) > 0)
        emit bookClicked(book);
}

bool BookHitsChart::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        auto *help = static_cast<QHelpEvent *>(event);
        const int book = bookAt(help->pos());
        if (book > 0)
            QToolTip::showText(
                help->globalPos(),
                tr("%1: %n verse(s)", nullptr, m_counts.at(book - 1)).arg(m_books.at(book - 1)),
                this);
        else
            QToolTip::hideText();
        return true;
    }
    return QWidget::event(event);
}
