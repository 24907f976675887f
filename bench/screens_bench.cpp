// How long the large tables take to open on a full season: the screen made, filled and laid out, ready to be painted.
#include "app/driver.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

using namespace circuidex;

namespace {

void openScreen(benchmark::State &state, const char *name, bool painted)
{
    QTemporaryDir folder;
    for (const QString &file : QDir(QStringLiteral(CIRCUIDEX_SAMPLE)).entryList({QStringLiteral("f1*")}))
        QFile::copy(QStringLiteral(CIRCUIDEX_SAMPLE "/") + file, folder.filePath(file));
    Driver driver(folder.path().toStdString(), Numbers(','));
    driver.execute(QStringLiteral("start"));
    driver.execute(QStringLiteral("set Form1.an 2004"));
    Screens &screens = driver.program().screens();
    const QString form = QString::fromUtf8(name);
    for (auto _ : state) {
        Screen *screen = screens.open(form);
        if (painted)
            benchmark::DoNotOptimize(screen->grab());
        state.PauseTiming();
        screens.close(form);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        state.ResumeTiming();
    }
}
BENCHMARK_CAPTURE(openScreen, Form7, "Form7", false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(openScreen, Form7_painted, "Form7", true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(openScreen, Form6, "Form6", false)->Unit(benchmark::kMillisecond);

}
