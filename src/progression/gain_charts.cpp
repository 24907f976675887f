// SPDX-License-Identifier: GPL-3.0-or-later
#include "progression/gain_charts.h"

#include "standings/race_places.h"
#include "statistics/season_summary.h"

namespace circuidex::progression {

using namespace standings;

namespace {

// What a team's drivers gained in a race; absent when none of them has both places.
std::optional<int> gainOf(const statistics::TeamDrivers &drivers, const RacePlaces &race)
{
    std::optional<int> sum;
    for (const std::string &driver : drivers)
        if (const auto gained = race.of(driver, Match::first).gained())
            sum = sum.value_or(0) + *gained;
    return sum;
}

}

SeriesCells gainsOfNumbers(const Season &season, const results::Scale &scale, const Subjects &numbers)
{
    Subjects names;
    for (std::size_t s = 0; s < numbers.size(); ++s)
        if (const auto driver = driverSlot(numbers[s], season.numbers()))
            names[s] = season.nom(*driver);
    return gainsOfDrivers(season, scale, names);
}

SeriesCells gainsOfDrivers(const Season &season, const results::Scale &, const Subjects &names)
{
    const SeasonPlaces races = seasonPlaces(season);
    SeriesCells series;
    for (std::size_t s = 0; s < names.size(); ++s)
        for (std::size_t slot = 0; slot < races.size(); ++slot) {
            const DriverPlaces places = races[slot].of(names[s], Match::first);
            series.cells[s][slot] = textOf(places.gained());
            if (slot < segments)
                series.restarts[s][slot] = !places.grid;
        }
    return series;
}

SeriesCells gainsOfTeams(const Season &season, const results::Scale &, const Subjects &teams)
{
    const SeasonPlaces races = seasonPlaces(season);
    SeriesCells series;
    for (std::size_t s = 0; s < teams.size(); ++s) {
        if (teams[s].empty())
            continue;
        const auto drivers = statistics::driversOfTeam(season, teams[s], driverSlots);
        for (std::size_t slot = 0; slot < races.size(); ++slot)
            series.cells[s][slot] = textOf(gainOf(drivers, races[slot]));
    }
    return series;
}

}
