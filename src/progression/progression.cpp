// SPDX-License-Identifier: GPL-3.0-or-later
#include "progression/progression.h"

#include "standings/race_places.h"

namespace circuidex::progression {

using namespace standings;

namespace {

std::string together(const DriverPlaces &places)
{
    return places.grid || places.finish ? textOf(places.grid) + " / " + textOf(places.finish) : std::string();
}

TeamProgressRow teamRow(const RacePlaces &race, const statistics::TeamDrivers &drivers, int &sum,
                        const Numbers &numbers)
{
    TeamProgressRow row{race.gp, {}, {}, {}, {}};
    int gained = 0;
    for (std::size_t car = 0; car < drivers.size(); ++car) {
        const DriverPlaces places = race.of(drivers[car], Match::last);
        const int gain = places.gained().value_or(0);
        gained += gain;
        row.places[car] = together(places);
        if (!row.places[car].empty())
            row.gains[car] = toned(gain, numbers).text;
    }
    row.team = toned(gained, numbers).text;
    row.sum = toned(sum += gained, numbers).text;
    return row;
}

}

std::array<ProgressRow, driverSlots> raceProgress(const Season &season, std::string_view gpName)
{
    const RacePlaces race = racePlaces(season, std::string(gpName));
    std::array<ProgressRow, driverSlots> rows;
    int number = 0;
    for (ProgressRow &row : rows) {
        row.name = season.nom(++number);
        const DriverPlaces places = race.of(row.name, Match::first);
        row.grid = textOf(places.grid);
        row.finish = textOf(places.finish);
        row.gain = toned(places.gained(), season.numbers());
    }
    return rows;
}

std::array<Toned, driverSlots> progressSums(const Season &season, std::string_view lastSlot)
{
    const SeasonPlaces races = seasonPlaces(season);
    const double last = season.numbers().value(lastSlot).value_or(-1);
    std::array<Toned, driverSlots> sums;
    int number = 0;
    for (Toned &shown : sums) {
        const std::string name = season.nom(++number);
        std::optional<int> sum;
        for (std::size_t slot = 0; slot < races.size() && static_cast<double>(slot) <= last; ++slot)
            if (const auto gained = races[slot].of(name, Match::first).gained())
                sum = sum.value_or(0) + *gained;
        shown = toned(sum, season.numbers());
    }
    return sums;
}

TeamProgress teamProgress(const Season &season, std::string_view team)
{
    const SeasonPlaces races = seasonPlaces(season);
    TeamProgress progress{statistics::driversOfTeam(season, team, lastTeamNumber), {}};
    int sum = 0;
    for (std::size_t slot = 0; slot < progress.rows.size(); ++slot)
        if (!races[slot].gp.empty())
            progress.rows[slot] = teamRow(races[slot], progress.drivers, sum, season.numbers());
    return progress;
}

}
