// SPDX-License-Identifier: GPL-3.0-or-later
// Starts the benchmarks of the screens on Qt's offscreen platform, in the program's dress.
#include "shell/look.h"

#include <QApplication>

#include <benchmark/benchmark.h>

using namespace circuidex;

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    look::dress(application);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
