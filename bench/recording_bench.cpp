// How long the user waits for a Grand Prix on a full season: recording, amending and cancelling with all their writes
// carried through to the disk, and walking through the calendar.
#include "results/amending.h"
#include "results/navigation.h"
#include "results/recording.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>

using namespace circuidex;

namespace {

namespace fs = std::filesystem;

class Silent : public Dialogs {
public:
    void message(const std::string &) override { ++messages; }
    bool question(const std::string &) override { return false; }
    std::optional<std::string> chooseFile(const std::string &, const std::string &, const std::string &) override { return std::nullopt; }
    int messages = 0;
};

// A copy of the sample folder, on its season 2005 with the last race waiting.
class SampleFolder {
public:
    explicit SampleFolder(bool history = false)
    {
        char name[] = "/tmp/circuidex-bench-XXXXXX";
        m_folder = mkdtemp(name);
        fs::copy(CIRCUIDEX_SAMPLE, m_folder, fs::copy_options::recursive);
        store.emplace(m_folder);
        if (history)
            store->keepHistory();
        screen.emplace(*store, dialogs);
        screen->an.set("2005");
        results::goToFirstFreeSlot(*screen);
    }
    ~SampleFolder()
    {
        store.reset();
        fs::remove_all(m_folder);
    }

    void fill()
    {
        const char *const numbers[] = {"5", "9", "16", "6", "12", "7", "4", "3"};
        for (int place = 1; place <= classifiedPlaces; ++place)
            screen->number(place).set(numbers[place - 1]);
        screen->Text39.set("5");
    }

    Silent dialogs;
    std::optional<Store> store;
    std::optional<results::MainRecord> screen;

private:
    fs::path m_folder;
};

// With 1 the recording can be undone.
void recordOnFullSeason(benchmark::State &state)
{
    SampleFolder sample(state.range(0) == 1);
    for (auto _ : state) {
        sample.fill();
        results::recordGrandPrix(*sample.screen);
        sample.store->settle();
        state.PauseTiming();
        results::cancelGrandPrix(*sample.screen);
        sample.store->settle();
        state.ResumeTiming();
    }
    if (sample.dialogs.messages > 0)
        state.SkipWithError("a recording was refused");
}
BENCHMARK(recordOnFullSeason)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->Iterations(20);

void amendOnFullSeason(benchmark::State &state)
{
    SampleFolder sample;
    sample.fill();
    results::recordGrandPrix(*sample.screen);
    bool swapped = false;
    for (auto _ : state) {
        swapped = !swapped;
        sample.screen->number(3).set(swapped ? "6" : "16");
        sample.screen->number(4).set(swapped ? "16" : "6");
        results::amendGrandPrix(*sample.screen, results::Amendment::byUser);
        sample.store->settle();
    }
}
BENCHMARK(amendOnFullSeason)->Unit(benchmark::kMillisecond)->Iterations(20);

void stepThroughSeason(benchmark::State &state)
{
    SampleFolder sample;
    for (auto _ : state)
        results::nextGrandPrix(*sample.screen);
}
BENCHMARK(stepThroughSeason)->Unit(benchmark::kMicrosecond);

}
