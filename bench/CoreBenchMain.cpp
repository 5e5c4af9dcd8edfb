// The main of the benchmarks without widgets: every message answered at once so that no run waits
// for a user.
#include "platform/MsgBox.h"

#include <benchmark/benchmark.h>

int main(int argc, char **argv)
{
    platform::setMsgBoxHandler(
        [](const QString &, int b, const QString &) { return platform::DefaultAnswer(b); });
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
