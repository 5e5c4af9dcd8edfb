#pragma once

#include <QString>

namespace platform {

// The program's version as major.minor.revision, e.g. "1.0.0".
QString VersionText();

} // namespace platform
