#include "CliOutput.h"

#include <cstdio>

namespace cli {

void out(const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout);
}

void err(const QString &text)
{
    const QByteArray bytes = (text + u'\n').toUtf8();
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stderr);
}

} // namespace cli
