// SPDX-License-Identifier: GPL-3.0-or-later
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

// Twenty full seasons of twenty races, made of the one of 2004; its last races are those of its beginning again.
void makeSeasons(const QTemporaryDir &folder, int lastYear)
{
    QFile::copy(QStringLiteral(CIRCUIDEX_SAMPLE "/f1ARCHIVES.ini"), folder.filePath(QStringLiteral("f1ARCHIVES.ini")));
    QFile::copy(QStringLiteral(CIRCUIDEX_SAMPLE "/f12004.ini"), folder.filePath(QStringLiteral("f1%1.ini").arg(lastYear)));
    Store store(folder.path().toStdString());
    const WritableSeason season(store, std::to_string(lastYear));
    for (int slot = 18; slot < gpSlots; ++slot) {
        const std::string from = season.namegp(slot - 18), name = "Essai " + std::to_string(slot);
        season.write(keys::gp, keys::namegp(slot), name);
        for (int place = 1; place <= classifiedPlaces; ++place)
            season.write(keys::podiums, keys::podium(place, name), season.podium(place, from));
        for (int number = 1; number <= driverSlots; ++number)
            season.write(keys::N, keys::ecuriepts(season.ecurie(number), std::to_string(slot)), "1");
    }
    for (int year = lastYear - 19; year < lastYear; ++year)
        QFile::copy(folder.filePath(QStringLiteral("f1%1.ini").arg(lastYear)), folder.filePath(QStringLiteral("f1%1.ini").arg(year)));
}

// The tables of four seasons: opened and painted, the first time with their files still to be parsed.
void compareSeasons(benchmark::State &state, const QString &form, bool first)
{
    QTemporaryDir folder;
    makeSeasons(folder, 2026);
    std::optional<Driver> driver;
    const auto begin = [&] {
        driver.emplace(folder.path().toStdString(), Numbers(','));
        driver->execute(QStringLiteral("start"));
        driver->execute(QStringLiteral("set Form1.an 2026"));
    };
    begin();
    for (auto _ : state) {
        driver->program().screens().openFromMenu(form);
        benchmark::DoNotOptimize(driver->program().screens().find(form)->grab());
        state.PauseTiming();
        driver->program().screens().close(form);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (first)
            begin();
        state.ResumeTiming();
    }
}

const bool seasonTables = [] {
    for (int form = 78; form <= 83; ++form)
        for (const bool first : {true, false})
            benchmark::RegisterBenchmark(("compareSeasons/Form" + std::to_string(form) + (first ? "/first" : "/again")).c_str(),
                                         compareSeasons, QStringLiteral("Form%1").arg(form), first)
                ->Unit(benchmark::kMillisecond);
    return true;
}();

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
