#include "platform/Version.h"

namespace platform {

QString VersionText()
{
    return QStringLiteral("%1.%2.%3")
        .arg(QS_VERSION_MAJOR)
        .arg(QS_VERSION_MINOR)
        .arg(QS_VERSION_PATCH);
}

} // namespace platform
