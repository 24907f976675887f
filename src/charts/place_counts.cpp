// SPDX-License-Identifier: GPL-3.0-or-later
#include "charts/place_counts.h"

#include "standings/classification.h"

#include <algorithm>
#include <cmath>

namespace circuidex::charts {

using namespace standings;

namespace {

constexpr int lastNumberRead = driverSlots + 1, mostRaces = 21;

template <std::size_t N>
auto &operator+=(std::array<int, N> &sums, const std::array<int, N> &more)
{
    std::transform(sums.begin(), sums.end(), more.begin(), sums.begin(), std::plus());
    return sums;
}

template <class Sums, class Names>
void addNamed(Sums &sums, const Names &names, std::string_view name)
{
    for (std::size_t i = 0; i < names.values.size(); ++i)
        sums.values[i] += names.values[i] == name;
}

}

void PlaceCounts::add(const PlaceCounts &more)
{
    grid.values += more.grid.values;
    finish.values += more.finish.values;
}

void addPlaces(PlaceCounts &counts, const SeasonPlaces &races, std::string_view driver, int count)
{
    for (int slot = 0; slot < std::min(count, standings::slotsRead) && !driver.empty(); ++slot) {
        const RacePlaces &race = races[static_cast<std::size_t>(slot)];
        addNamed(counts.grid, race.grid, driver);
        addNamed(counts.finish, race.finish, driver);
    }
}

std::vector<std::string> driversCounted(const Season &season, Counted who, std::string_view name)
{
    if (who == Counted::driver)
        return {std::string(name)};
    std::vector<std::string> drivers;
    for (int number = 0; number <= lastNumberRead; ++number)
        if (season.ecurie(number) == name)
            drivers.push_back(season.nom(number));
    return drivers;
}

std::optional<PlaceCounts> placeCounts(const Season &season, Counted who, std::string_view name, int count)
{
    const std::vector<std::string> drivers = driversCounted(season, who, name);
    if (drivers.empty())
        return std::nullopt;
    const SeasonPlaces races = seasonPlaces(season);
    PlaceCounts counts;
    for (const std::string &driver : drivers)
        addPlaces(counts, races, driver, count);
    return counts;
}

PlaceCounts placeCountsOver(const Store &store, std::string_view driver, const std::string &newest,
                            const std::string &oldest)
{
    PlaceCounts counts;
    for (const std::string &year : seasonsBack(newest, oldest, store.numbers()))
        counts.add(*placeCounts(Season(store, year), Counted::driver, driver, standings::slotsRead));
    return counts;
}

std::vector<std::string> racesHeld(const SeasonPlaces &races, Stage stage, int place, std::string_view driver)
{
    std::vector<std::string> held;
    for (const RacePlaces &race : races)
        if (!driver.empty() && (stage == Stage::grid ? race.grid[place] : race.finish[place]) == driver)
            held.push_back(race.gp);
    return held;
}

int racesRun(const Season &season)
{
    int slot = 0;
    while (slot < mostRaces && season.recorded(season.namegp(slot)))
        ++slot;
    return slot;
}

int slotsAsked(std::string_view number, const Numbers &numbers)
{
    return static_cast<int>(
        std::clamp(std::floor(numbers.value(number).value_or(0)), 0.0, double{standings::slotsRead}));
}

}
