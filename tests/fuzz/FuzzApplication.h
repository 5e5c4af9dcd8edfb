#pragma once

// Text documents and widgets need an application object. A fuzz target makes one on its first run
// and keeps it, on the offscreen platform unless another is asked for.
#include <QByteArray>
#include <QtGlobal>

namespace fuzz {

template <typename Application> void ensureApplication()
{
    static Application *app = [] {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        static int argc = 1;
        static char name[] = "fuzz";
        static char *argv[] = {name, nullptr};
        return new Application(argc, argv);
    }();
    (void)app;
}

} // namespace fuzz
