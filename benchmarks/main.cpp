// Some benchmarks show windows, on Qt's offscreen platform.

#include "support/TempFolder.h"

#include <benchmark/benchmark.h>

#include <QApplication>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    // What is opened is kept in mind, but not in the home of whoever measures.
    const TempFolder state;
    qputenv("XDG_STATE_HOME", state.Path().c_str());
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
