#pragma once

// Shared set-up for the fuzz targets: messages are swallowed, files go to a scratch folder, and the
// input can be cut into several files.
#include "platform/MsgBox.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QList>
#include <QString>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

// Stops the fuzzer with the file and line of the broken promise.
#define FUZZ_CHECK(condition)                                                                      \
    do {                                                                                           \
        if (!(condition)) {                                                                        \
            std::fprintf(stderr, "%s:%d: %s\n", __FILE__, __LINE__, #condition);                   \
            std::abort();                                                                          \
        }                                                                                          \
    } while (false)

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

// An empty folder of the scratch folder: whatever an earlier run wrote there is gone, so no run
// reads a file that only an earlier input made.
inline QString freshFolder(const QString &name)
{
    const QString path = scratch().path() + u'/' + name;
    QDir(path).removeRecursively();
    QDir().mkpath(path);
    return path;
}

// The input cut at each NUL-NUL into at most count parts; the last part keeps any further cuts.
inline QList<QByteArray> parts(const uint8_t *data, size_t size, int count)
{
    QByteArray rest(reinterpret_cast<const char *>(data), qsizetype(size));
    QList<QByteArray> result;
    while (result.size() + 1 < count) {
        const qsizetype cut = rest.indexOf(QByteArray("\0\0", 2));
        if (cut < 0)
            break;
        result.append(rest.left(cut));
        rest.remove(0, cut + 2);
    }
    result.append(rest);
    return result;
}

inline QByteArray read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline void write(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(path.left(path.lastIndexOf(u'/')));
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(bytes);
}

} // namespace fuzz
