#include "scripture/PlaceHistory.h"

#include <algorithm>

namespace {
const QChar kSeparator = u'|';
} // namespace

bool Place::samePassage(const Place &other) const
{
    return translation.compare(other.translation, Qt::CaseInsensitive) == 0 &&
           reference.compare(other.reference, Qt::CaseInsensitive) == 0;
}

QString Place::caption() const
{
    return reference + QStringLiteral(" (") + translation + u')';
}

QString Place::toText() const
{
    return translation + kSeparator + reference + kSeparator + QString::number(tab) + kSeparator +
           QString::number(top);
}

std::optional<Place> Place::fromText(const QString &text)
{
    const QStringList fields = text.split(kSeparator);
    if (fields.size() != 4)
        return std::nullopt;
    Place place{fields.at(0).trimmed(), fields.at(1).trimmed(), 0, 0};
    bool tabRead = false;
    bool topRead = false;
    place.tab = fields.at(2).toInt(&tabRead);
    place.top = fields.at(3).toInt(&topRead);
    if (place.translation.isEmpty() || place.reference.isEmpty() || !tabRead || !topRead ||
        place.tab < 0 || place.top < 0)
        return std::nullopt;
    return place;
}

void PlaceHistory::visit(const Place &place)
{
    if (m_current >= 0 && m_places.at(m_current).samePassage(place)) {
        m_places[m_current] = place;
        return;
    }
    m_places.erase(m_places.begin() + (m_current + 1), m_places.end());
    m_places.append(place);
    if (m_places.size() > Capacity)
        m_places.erase(m_places.begin(), m_places.begin() + (m_places.size() - Capacity));
    m_current = int(m_places.size()) - 1;
}

void PlaceHistory::updateCurrent(int tab, int top)
{
    if (m_current < 0)
        return;
    m_places[m_current].tab = std::max(0, tab);
    m_places[m_current].top = std::max(0, top);
}

std::optional<Place> PlaceHistory::peek(int steps) const
{
    const qsizetype target = qsizetype(m_current) + steps;
    if (m_current < 0 || steps == 0 || target < 0 || target >= m_places.size())
        return std::nullopt;
    return m_places.at(target);
}

void PlaceHistory::step(int steps)
{
    if (peek(steps))
        m_current += steps;
}

void PlaceHistory::clear()
{
    m_places.clear();
    m_current = -1;
}

QStringList PlaceHistory::toLines() const
{
    QStringList lines;
    lines.reserve(m_places.size());
    for (const Place &place : m_places)
        lines.append(place.toText());
    return lines;
}

void PlaceHistory::fromLines(const QStringList &lines, int current)
{
    clear();
    int kept = 0;
    int currentKept = -1;
    // The newest places are the ones worth keeping when a file holds more than the capacity.
    const qsizetype first = std::max<qsizetype>(0, lines.size() - Capacity);
    for (qsizetype i = first; i < lines.size(); ++i) {
        if (const std::optional<Place> place = Place::fromText(lines.at(i))) {
            m_places.append(*place);
            if (i == current)
                currentKept = kept;
            ++kept;
        }
    }
    m_current = currentKept >= 0 ? currentKept : int(m_places.size()) - 1;
}
