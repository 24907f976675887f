// How long the user waits for a chart on full seasons: reading, computing and, on the screen, painting.
#include "app/driver.h"
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

}
