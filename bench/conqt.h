#pragma once
// The main of a Google Benchmark program whose benchmarks need a
// QApplication: offscreen, so that it runs on a machine with no display.
#include <QApplication>
#include <benchmark/benchmark.h>

inline int EseguiConQt(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
