// How long each screen takes to open on a full season: made, filled and laid out, and then painted as well.
#include "app/driver.h"
#include "app/screens.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

using namespace circuidex;

namespace {

void openScreen(benchmark::State &state, const QString &form, bool painted)
{
    QTemporaryDir folder;
    for (const QString &file : QDir(QStringLiteral(CIRCUIDEX_SAMPLE)).entryList({QStringLiteral("f1*")}))
        QFile::copy(QStringLiteral(CIRCUIDEX_SAMPLE "/") + file, folder.filePath(file));
    Driver driver(folder.path().toStdString(), Numbers(','));
    driver.execute(QStringLiteral("start"));
    driver.execute(QStringLiteral("set Form1.an 2004"));
    Screens &screens = driver.program().screens();
    for (auto _ : state) {
        screens.openFromMenu(form);
        if (painted)
            if (Screen *screen = screens.find(form))
                benchmark::DoNotOptimize(screen->grab());
        state.PauseTiming();
        screens.close(form);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        state.ResumeTiming();
    }
}

// A place that a driver never had, so that all 77 seasons are searched: the first time each file is opened and parsed, then all are at hand.
void searchSeasons(benchmark::State &state, bool first)
{
    QTemporaryDir folder;
    for (int year = 1950; year < 2027; ++year)
        QFile::copy(QStringLiteral(CIRCUIDEX_SAMPLE "/f12004.ini"), folder.filePath(QStringLiteral("f1%1.ini").arg(year)));
    std::optional<Driver> driver;
    const auto begin = [&] {
        driver.emplace(folder.path().toStdString(), Numbers(','));
        for (const char *command : {"start", "set Form1.an 2026", "open Form76", "set Form76.Text2 8", "set Form76.Text3 1950"})
            driver->execute(QString::fromLatin1(command));
    };
    begin();
    const Screen *screen = driver->program().screens().find(QStringLiteral("Form76"));
    screen->press(QStringLiteral("Command1"));
    for (auto _ : state) {
        if (first) {
            state.PauseTiming();
            begin();
            screen = driver->program().screens().find(QStringLiteral("Form76"));
            state.ResumeTiming();
        }
        screen->press(QStringLiteral("Command1"));
    }
}
BENCHMARK_CAPTURE(searchSeasons, first, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(searchSeasons, again, false)->Unit(benchmark::kMillisecond);

// As the menus open it; the main screen is open all the time.
const bool allScreens = [] {
    for (const ScreenRow &row : screenRows())
        for (const bool painted : {false, true})
            if (row.name != u"Form1")
                benchmark::RegisterBenchmark((row.name.toStdString() + (painted ? "/painted" : "/opened")).c_str(),
                                             openScreen, row.name, painted)
                    ->Unit(benchmark::kMillisecond);
    return true;
}();

}
