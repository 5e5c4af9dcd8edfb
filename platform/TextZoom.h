#pragma once

#include <QFont>
#include <QObject>
#include <QString>

#include <functional>

class QAbstractScrollArea;

namespace platform {

// The zoom of a text view: Ctrl+Plus, Ctrl+Minus, Ctrl+0 and Ctrl with the mouse wheel make its
// text larger or smaller in steps over the font the program gave it. That font stays the base: a
// later font (new options) becomes the new base with the zoom put over it. The zoom is the
// view's font only, never its text, so what a view saves or copies is the same at every zoom.
class TextZoom : public QObject
{
    Q_OBJECT

public:
    // Per cent of the base size, from the smallest step to the largest.
    static constexpr int Steps[] = {50, 67, 75, 80, 90, 100, 110, 125, 150, 175, 200, 250, 300};

    // How zooms are remembered: by the view's name (its object name, else its window's).
    using Load = std::function<int(const QString &view)>;
    using Save = std::function<void(const QString &view, int percent)>;
    // From now on every text view of the program (rich or plain) zooms, and one with a name
    // starts at the zoom remembered for it.
    static void InstallEverywhere(Load load, Save save);
    // The zoom of a view, made on first request; nullptr for a widget that is not a text view.
    static TextZoom *of(QAbstractScrollArea *view);
    // The zoom a view has; nullptr when it has none.
    static const TextZoom *find(const QAbstractScrollArea *view);

    int percent() const { return m_percent; }
    // Clamped to the steps' range; remembered when the view has a name.
    void setPercent(int percent);
    void zoomIn();
    void zoomOut();
    void reset() { setPercent(100); }
    // The font without the zoom.
    QFont baseFont() const { return m_base; }

signals:
    void zoomed(int percent);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit TextZoom(QAbstractScrollArea *view);
    void apply();
    QString name() const;

    // The zoom is the view's child and goes with it.
    QAbstractScrollArea *const m_view;
    const QObject *m_viewport;
    QFont m_base;
    int m_percent = 100;
    int m_wheel = 0;
    bool m_applying = false;
};

} // namespace platform
