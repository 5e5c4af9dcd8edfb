#pragma once

// A control of a window by its object name. A test that asks for a control that is not there
// stops at once with its name, rather than crashing on a null pointer a few lines later.
#include <QLatin1String>
#include <QObject>
#include <QtGlobal>

namespace support {

template <typename T> T *control(const QObject *window, const char *name)
{
    T *found = window ? window->findChild<T *>(QLatin1String(name)) : nullptr;
    if (!found)
        qFatal("no control named %s", name);
    return found;
}

} // namespace support
