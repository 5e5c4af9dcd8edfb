#pragma once

#include "scripture/PlaceHistory.h"

#include <QObject>
#include <QString>

#include <functional>

class QAction;
class QMainWindow;
class QMenu;
class QToolButton;
class StudyTabs;
struct Passage;

// Back and Forward over the places the main window showed. The main window tells it when it is
// about to leave a place and when it has arrived at a passage; it keeps where the reader stood
// (tab and scroll) and offers the way back: Alt+Left and Alt+Right, the mouse's back and forward
// buttons, two buttons and a drop-down of recent places beside the tabs, and the Go menu. The
// move itself is the main window's (`go`), which asks about unsaved notes as any move does.
class HistoryNavigator : public QObject
{
    Q_OBJECT

public:
    // go: shows the place's passage in its translation; false when the reader stayed.
    HistoryNavigator(QMainWindow *window, StudyTabs &study, std::function<bool(const Place &)> go);

    // While held, leaving and arriving record nothing (a translation opening, a step back).
    class Hold
    {
    public:
        explicit Hold(HistoryNavigator &history) : m_history(history) { ++m_history.m_holds; }
        ~Hold() { --m_history.m_holds; }
        Hold(const Hold &) = delete;
        Hold &operator=(const Hold &) = delete;

    private:
        HistoryNavigator &m_history;
    };

    // Before the view changes: where the reader stands on the place on show.
    void leaving();
    // A passage of the translation folder shown; one that was not found is no place.
    void arrived(const QString &translation, const Passage &passage);
    // The passage view shows what is no place (search results, a topic, a reference not found):
    // Back returns to the place it covers first, and its scroll is not taken for the place's.
    void wentAway();

    // Back (negative) or forward by that many places.
    void travel(int steps);

    const PlaceHistory &places() const { return m_places; }
    // The last session's places from "window.ini", and this session's back to it.
    void restore();
    void save() const;

    QAction *mnuGoBack = nullptr;
    QAction *mnuGoForward = nullptr;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void refresh();
    void fillRecent();
    void showWhereReaderStood(const Place &place);

    StudyTabs &m_study;
    std::function<bool(const Place &)> m_go;
    PlaceHistory m_places;
    int m_holds = 0;
    bool m_away = false;
    QMainWindow *m_window;
    QMenu *mnuGoRecent = nullptr;
    QToolButton *cmdBack = nullptr;
    QToolButton *cmdForward = nullptr;
    QToolButton *cmdRecent = nullptr;
};
