#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

// One place the reader went to: the translation folder, the passage's standard reference in that
// translation, the tab on show and the text position at the top of its view.
struct Place
{
    QString translation;
    QString reference;
    int tab = 0;
    int top = 0;

    // The same passage in the same translation, wherever the reader stood in it.
    bool samePassage(const Place &other) const;
    // What a menu or a drop-down shows: "JOHN 3 (KJV)".
    QString caption() const;
    // One line of the settings file: "KJV|JOHN 3|0|120". A line that is not one gives nothing.
    QString toText() const;
    static std::optional<Place> fromText(const QString &text);
};

// The places the main window showed, oldest first, and the one on show: Back walks towards the
// oldest, Forward towards the newest, and a new move drops the places ahead, as a web browser
// does. The oldest places go once there are more than Capacity.
class PlaceHistory
{
public:
    static constexpr int Capacity = 100;

    // A move to a place. The same passage as the one on show only updates where the reader
    // stands in it.
    void visit(const Place &place);
    // Where the reader stands now on the place on show (its tab and scroll), kept for a return.
    void updateCurrent(int tab, int top);

    // The place `steps` away from the one on show (negative: back), without going there.
    std::optional<Place> peek(int steps) const;
    // Makes that place the one on show, once the window has gone there.
    void step(int steps);

    const QList<Place> &places() const { return m_places; }
    // Index of the place on show in places(); -1 when there is none.
    int current() const { return m_current; }
    void clear();

    // The places as settings lines, and back. Lines that do not read as a place are left out,
    // and a current index out of range falls to the newest place.
    QStringList toLines() const;
    void fromLines(const QStringList &lines, int current);

private:
    QList<Place> m_places;
    int m_current = -1;
};
