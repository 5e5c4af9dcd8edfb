#pragma once

#include <QObject>
#include <QPointer>

class QWidget;

namespace platform {

// For a long piece of work that the user may answer while it runs: its window keeps taking
// clicks and keys, which it is ready for, while the other windows ignore them until the work is
// done, so that nothing the work reads changes under it and no window closes in the middle.
class InputOnlyTo : public QObject
{
public:
    explicit InputOnlyTo(QWidget *window);
    ~InputOnlyTo() override;

    // Lets the windows repaint and this window take the user's input.
    void yield();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QPointer<QWidget> m_window;
};

} // namespace platform
