#pragma once

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QRect>
#include <QString>
#include <QStringList>

class QSplitter;
class QTabWidget;
class QWidget;

// Where a window was left, kept in its own section of "window.ini" in twips: its left and top
// edges, and where it has them its outer size and state, the positions of its splitters and the
// tab it showed. A window names its section and what it keeps, calls restore() once as it loads
// and save() as it closes (a window hidden by the program is saved by itself too); it never
// converts twips itself.
//
// Placement, state and splitters are restored only when the user asked for windows to be
// remembered; the tab always is. Values the user did not change are written back exactly as
// they were read, so a window opened and closed untouched leaves its section as it was.
class WindowPlacement : public QObject
{
    Q_OBJECT

public:
    enum Part
    {
        Position = 0x1, // "left", "top"
        Size = 0x2,     // "width", "height": the outer size, frame included
        State = 0x4,    // "windowstate": 0 normal, 1 minimised, 2 maximised; the placement is
                        // written only for a normal window, so a maximised one keeps the last
                        // normal placement
    };

    WindowPlacement(QWidget *window, const QString &section, int parts = Position);

    // The key the left edge is read under, where old files spell it otherwise ("Left").
    void setLeftReadKey(const QString &key) { m_leftReadKey = key; }

    // Splitter handle positions, twips from the window's inner left edge; keys[i] names handle i
    // (between widget i and widget i + 1).
    void addSplitter(QSplitter *splitter, const QStringList &keys);
    // The index of the tab shown.
    void addTab(QTabWidget *tabs, const QString &key = QStringLiteral("tab"));
    // The smallest the window may be made, in twips, frame included like the saved size.
    void setMinimumOuterSize(int widthTwips, int heightTwips);

    void restore();
    void save();

    // The window's placement on screen: the outer rectangle, in pixels, moved (and if need be
    // shrunk, down to the window's minimum size) so that it lies on the available screen.
    static QRect FitOnScreen(const QRect &outer, const QRect &available, const QSize &minimum);
    // Puts a window that keeps no place of its own, before it is first shown, over the middle of
    // another window and wholly on the screen.
    static void CentreOver(QWidget *window, const QWidget *over);
    // Gives a window its first size, for a user who does not keep placements: the size wanted,
    // as far as the screen allows, and never below the window's minimum.
    static void ResizeOnScreen(QWidget *window, QSize wanted);

signals:
    // The splitters stand where they were saved; they are placed once the window is on screen.
    void splittersRestored();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Remembered
    {
        int twips = 0;
        int pixels = 0;
        bool set = false;
    };
    struct SplitterKeys
    {
        QPointer<QSplitter> splitter;
        QStringList keys;
        QList<Remembered> handles;
    };

    int twipsPerPixelX() const;
    int twipsPerPixelY() const;
    QRect availableScreen(const QRect &near) const;
    QSize frameExtra() const;
    void applyMinimumSize();
    void applyOuterSize();
    void settleFrame();
    void settleNormalSize();
    void restoreSplitters();
    QList<int> handlePositions(const QSplitter *splitter) const;
    int writeBack(const Remembered &value, int pixels, int twipsPerPixel) const;

    QPointer<QWidget> m_window;
    QString m_section;
    int m_parts;
    QString m_leftReadKey = QStringLiteral("left");
    QList<SplitterKeys> m_splitters;
    QPointer<QTabWidget> m_tabs;
    QString m_tabKey;

    Remembered m_left, m_top, m_width, m_height;
    QRect m_wantedOuter;           // outer rectangle asked for at restore, in pixels
    QSize m_minimumOuter;          // smallest outer size, in pixels; invalid when not set
    bool m_fixFrame = false;       // the frame was not known yet when the size was set
    bool m_fixNormal = false;      // ... and the window was maximised when the frame came
    bool m_settlingNormal = false; // ... and it has just been made normal
    QRect m_maximisedOuter;        // where it stood maximised, in pixels
    bool m_splittersPending = false;
    QElapsedTimer m_shown;
};
