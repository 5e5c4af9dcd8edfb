#pragma once

// Shared set-up for the fuzz targets: messages are swallowed, and a scratch translation folder is
// written once per process.
#include "platform/MsgBox.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

namespace fuzz {

inline void quietMessages()
{
    static const bool once = [] {
        platform::setMsgBoxHandler([](const QString &, int buttons, const QString &) {
            return platform::DefaultAnswer(buttons);
        });
        return true;
    }();
    (void)once;
}

inline QTemporaryDir &scratch()
{
    static QTemporaryDir dir;
    return dir;
}

inline void write(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(path.left(path.lastIndexOf(u'/')));
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(bytes);
}

} // namespace fuzz
