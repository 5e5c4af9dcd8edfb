#pragma once

#include <QApplication>
#include <QCoreApplication>
#include <QEventLoop>

namespace platform {

// The wait cursor for as long as a long piece of work runs, put back however the work ends.
class BusyCursor
{
public:
    BusyCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyCursor() { QApplication::restoreOverrideCursor(); }
    BusyCursor(const BusyCursor &) = delete;
    BusyCursor &operator=(const BusyCursor &) = delete;
};

// Lets the windows repaint (a progress bar move, a title change) in the middle of long work,
// without taking the user's clicks and keys, which could start the work again.
inline void YieldToEvents()
{
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

} // namespace platform
