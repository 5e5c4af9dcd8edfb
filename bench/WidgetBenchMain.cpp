// The main of the benchmarks that need widgets: offscreen, and every message answered at once so
// that no box waits for a user.
#include "platform/MsgBox.h"

#include <QApplication>
#include <benchmark/benchmark.h>

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    platform::setMsgBoxHandler(
        [](const QString &, int b, const QString &) { return platform::DefaultAnswer(b); });
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
