#include "app/FoundVerseDelegate.h"

#include <QApplication>
#include <QPainter>

namespace {
constexpr int kPadding = 3;
// How many characters of a verse are kept before the first thing found when the verse is cut at
// the front to show it.
constexpr int kLeadIn = 30;
} // namespace

FoundVerseDelegate::FoundVerseDelegate(QObject *parent) : QStyledItemDelegate(parent) {}

void FoundVerseDelegate::setVerses(const QList<FoundVerse> *verses, SpanFinder finder,
                                   bool showTranslation)
{
    m_verses = verses;
    m_finder = std::move(finder);
    m_showTranslation = showTranslation;
}

QSize FoundVerseDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const
{
    return {option.rect.width(), 2 * option.fontMetrics.lineSpacing() + 2 * kPadding};
}

void FoundVerseDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                               const QModelIndex &index) const
{
    QStyleOptionViewItem look = option;
    initStyleOption(&look, index);
    const QString reference = look.text;
    // The style draws the row's background, selection and focus; the text is drawn here.
    look.text.clear();
    const QStyle *style = look.widget ? look.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &look, painter, look.widget);

    const bool ok = m_verses != nullptr;
    const qsizetype at = index.row();
    const FoundVerse *verse = ok && at >= 0 && at < m_verses->size() ? &m_verses->at(at) : nullptr;

    painter->save();
    const QRect area = option.rect.adjusted(kPadding, kPadding, -kPadding, -kPadding);
    painter->setClipRect(option.rect);
    const bool selected = option.state & QStyle::State_Selected;
    const QColor ink = option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
    const QFontMetrics metrics(option.font);
    const int line = metrics.lineSpacing();

    QFont bold = option.font;
    bold.setBold(true);
    painter->setFont(bold);
    painter->setPen(ink);
    QString head = reference;
    if (verse && m_showTranslation)
        head += QStringLiteral("   ") + verse->translation;
    painter->drawText(QRect(area.left(), area.top(), area.width(), line),
                      Qt::AlignLeft | Qt::AlignVCenter, head);
    if (!verse) {
        painter->restore();
        return;
    }

    // The verse: plain pieces in the row's colour, what was found on the mark colour.
    QString text = verse->text;
    Spans spans = m_finder ? m_finder(text) : Spans();
    // A verse found far along is shown from a little before what was found.
    int shift = 0;
    if (!spans.isEmpty() && spans.first().first > kLeadIn &&
        metrics.horizontalAdvance(text.left(spans.first().first + spans.first().second)) >
            area.width()) {
        shift = int(text.lastIndexOf(u' ', spans.first().first - kLeadIn)) + 1;
        text = QStringLiteral("\u2026") + text.mid(shift);
        shift -= 1; // the ellipsis takes one character's place
    }
    painter->setFont(option.font);
    int x = area.left();
    const int top = area.top() + line;
    qsizetype done = 0;
    const auto draw = [&](qsizetype from, qsizetype to, bool marked) {
        if (to <= from)
            return;
        const QString piece = text.mid(from, to - from);
        const int width = metrics.horizontalAdvance(piece);
        const QRect box(x, top, width, line);
        if (marked) {
            painter->fillRect(box, MarkColor());
            painter->setPen(Qt::black);
        } else {
            painter->setPen(ink);
        }
        painter->drawText(box, Qt::AlignLeft | Qt::AlignVCenter, piece);
        x += width;
    };
    for (const auto &[start, length] : std::as_const(spans)) {
        const qsizetype from = std::max<qsizetype>(start - shift, done);
        const qsizetype to = std::min<qsizetype>(start - shift + length, text.size());
        if (to <= from)
            continue;
        draw(done, from, false);
        draw(from, to, true);
        done = to;
        if (x > area.right())
            break;
    }
    draw(done, text.size(), false);
    painter->restore();
}
