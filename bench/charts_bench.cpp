// SPDX-License-Identifier: GPL-3.0-or-later
// How long the user waits for a chart on full seasons: reading, computing and, on the screen, painting.
#include "app/driver.h"
#include "charts/bar_fit.h"
#include "charts/order_progress.h"
#include "charts/season_chart.h"
#include "comparisons/points_charts.h"
#include "progression/gain_charts.h"
#include "shell/chart_view.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>

using namespace circuidex;

namespace {

namespace fs = std::filesystem;

// A copy of the sample folder with four seasons in a row, gone when the bench is.
class SampleFolder {
public:
    SampleFolder() : m_folder(makeFolder())
    {
        fs::copy(CIRCUIDEX_SAMPLE, m_folder, fs::copy_options::recursive);
        fs::copy_file(m_folder / "f12004.ini", m_folder / "f12002.ini");
    }
    ~SampleFolder() { fs::remove_all(m_folder); }
    const fs::path &path() const { return m_folder; }

private:
    static fs::path makeFolder()
    {
        char name[] = "/tmp/circuidex-bench-XXXXXX";
        return mkdtemp(name);
    }
    fs::path m_folder;
};

const charts::Instance *const instances[] = {
    &charts::form8,        &charts::form41,       &charts::form45,       &charts::form53,       &charts::form71,
    &progression::form101, &progression::form102, &progression::form105, &progression::form106, &progression::form103,
    &progression::form104, &progression::form107, &progression::form108, &comparisons::form85,  &comparisons::form86,
    &comparisons::form87,  &comparisons::form88};
constexpr int lastInstance = std::size(instances) - 1;

// Our own code: what a drawing reads and computes, in a moment of its own as each click is.
void drawOnFullSeason(benchmark::State &state)
{
    const SampleFolder folder;
    Store store(folder.path());
    const WritableSeason season(store, "2005");
    charts::SeasonChart chart(*instances[state.range(0)]);
    chart.open(season);
    for (auto _ : state) {
        store.newMoment();
        chart.draw(season, results::builtInScale);
    }
    state.SetLabel(std::string(chart.instance().screen));
}
BENCHMARK(drawOnFullSeason)->DenseRange(0, lastInstance)->Unit(benchmark::kMicrosecond);

// A press on "Traçer courbe" until the picture stands.
void pressAndPaint(benchmark::State &state)
{
    const SampleFolder folder;
    Driver driver(folder.path(), Numbers(','));
    const QString screen = QString::fromUtf8(instances[state.range(0)]->screen.data());
    driver.execute(QStringLiteral("start"));
    driver.execute(QStringLiteral("set Form1.an 2005"));
    driver.execute(QStringLiteral("open ") + screen);
    Screen *chart = driver.program().screens().find(screen);
    for (auto _ : state) {
        driver.execute(QStringLiteral("press %1.Command1").arg(screen));
        benchmark::DoNotOptimize(chart->grab());
    }
    state.SetLabel(screen.toStdString());
}
BENCHMARK(pressAndPaint)->DenseRange(0, lastInstance)->Unit(benchmark::kMillisecond);

// Twenty seasons of twenty races: the sample's 2004, its first races run once more at its end.
void makeSeasons(const fs::path &folder)
{
    {
        Store store(folder);
        const WritableSeason season(store, "2004");
        for (int slot = 18; slot < gpSlots; ++slot) {
            const std::string from = season.namegp(slot - 18), to = from + " bis";
            season.write(keys::gp, keys::namegp(slot), to);
            for (int place = 1; place <= classifiedPlaces; ++place)
                season.write(keys::podiums, keys::podium(place, to), season.podium(place, from));
            for (int place = 1; place <= gridPlaces; ++place)
                season.write(keys::N, keys::grilledepart(to, place), season.grille(place, from));
        }
        store.settle();
    }
    for (int year = 1986; year < 2006; ++year)
        if (year != 2004)
            fs::copy_file(folder / "f12004.ini", folder / ("f1" + std::to_string(year) + ".ini"),
                          fs::copy_options::overwrite_existing);
}

// Our own code of the displays of places: what a press reads and computes.
void countPlaces(benchmark::State &state, charts::Counted counted, const char *name)
{
    const SampleFolder folder;
    Store store(folder.path());
    for (auto _ : state) {
        store.newMoment();
        const auto counts = charts::placeCounts(Season(store, "2004"), counted, name, standings::slotsRead);
        benchmark::DoNotOptimize(charts::barHeights(std::span(&*counts, 1), 0));
    }
}
BENCHMARK_CAPTURE(countPlaces, driver, charts::Counted::driver, "Michael Schumacher")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(countPlaces, team, charts::Counted::team, "Ferrari")->Unit(benchmark::kMicrosecond);

void countPlacesOverTwentySeasons(benchmark::State &state)
{
    const SampleFolder folder;
    makeSeasons(folder.path());
    Store store(folder.path());
    for (auto _ : state) {
        store.newMoment();
        benchmark::DoNotOptimize(charts::placeCountsOver(store, "Michael Schumacher", "2005", "1986"));
    }
}
BENCHMARK(countPlacesOverTwentySeasons)->Unit(benchmark::kMicrosecond);

void followTheOrder(benchmark::State &state)
{
    const SampleFolder folder;
    Store store(folder.path());
    for (auto _ : state) {
        store.newMoment();
        benchmark::DoNotOptimize(charts::orderProgress(Season(store, "2004"), results::builtInScale));
    }
}
BENCHMARK(followTheOrder)->Unit(benchmark::kMicrosecond);

// A press on the button that counts until the bars stand, with twenty such seasons in the folder, all of them asked for
// where a span can be.
void pressAndPaintBars(benchmark::State &state, const char *form)
{
    const SampleFolder folder;
    makeSeasons(folder.path());
    Driver driver(folder.path(), Numbers(','));
    const QString screen = QString::fromLatin1(form);
    for (const QString &command : {QStringLiteral("start"), QStringLiteral("set Form1.an 2005"),
                                   QStringLiteral("open ") + screen, QStringLiteral("set Form77.Text2 1986")})
        driver.execute(command);
    Screen *bars = driver.program().screens().find(screen);
    for (auto _ : state) {
        driver.execute(QStringLiteral("press %1.Command1").arg(screen));
        benchmark::DoNotOptimize(bars->grab());
    }
}
BENCHMARK_CAPTURE(pressAndPaintBars, Form51, "Form51")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(pressAndPaintBars, Form77, "Form77")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(pressAndPaintBars, Form89, "Form89")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(pressAndPaintBars, Form90, "Form90")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(pressAndPaintBars, Form91, "Form91")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(pressAndPaintBars, Form92, "Form92")->Unit(benchmark::kMillisecond);

}
