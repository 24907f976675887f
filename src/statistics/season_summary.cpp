// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/season_summary.h"

#include "standings/race_places.h"

#include <algorithm>

namespace circuidex::statistics {

using namespace standings;

namespace {

std::string pointsOf(const results::Scale &scale, std::optional<int> finish)
{
    return finish ? scale[*finish] : std::string();
}

std::string unlessZero(std::string points)
{
    return points == "0" ? std::string() : points;
}

}

DriverSummary driverSummary(const Season &season, const results::Scale &scale, std::string_view driver, std::string_view number)
{
    const Numbers &numbers = season.numbers();
    const SeasonPlaces races = seasonPlaces(season);
    DriverSummary summary{season.ecurie(number), {}};
    std::optional<int> gained;
    double points = 0;
    for (std::size_t slot = 0; slot < summary.rows.size(); ++slot) {
        if (races[slot].gp.empty())
            continue;
        DriverSummaryRow &row = summary.rows[slot];
        const DriverPlaces places = races[slot].of(driver, Match::last);
        row.gp = races[slot].gp;
        row.grid = textOf(places.grid);
        row.finish = textOf(places.finish);
        row.gain = toned(places.gained(), numbers);
        if (places.gained())
            gained = gained.value_or(0) + *places.gained();
        row.gainSum = toned(gained, numbers);
        row.points = pointsOf(scale, places.finish);
        points += numbers.value(row.points).value_or(0);
        row.pointsSum = numbers.text(points);
    }
    return summary;
}

TeamDrivers driversOfTeam(const Season &season, std::string_view team, int lastNumber)
{
    TeamDrivers drivers;
    auto free = drivers.begin();
    for (int number = 1; number <= lastNumber && free != drivers.end(); ++number)
        if (season.ecurie(number) == team)
            if (std::string name = season.nom(number); !name.empty())
                *free++ = std::move(name);
    return drivers;
}

TeamSummary teamSummary(const Season &season, const results::Scale &scale, std::string_view team)
{
    const Numbers &numbers = season.numbers();
    const SeasonPlaces races = seasonPlaces(season);
    TeamSummary summary{driversOfTeam(season, team, driverSlots), {}};
    double sum = 0;
    for (std::size_t slot = 0; slot < summary.rows.size(); ++slot) {
        if (races[slot].gp.empty())
            continue;
        TeamSummaryRow &row = summary.rows[slot];
        row.gp = races[slot].gp;
        double points = 0;
        for (std::size_t car = 0; car < summary.drivers.size(); ++car) {
            const auto finish = races[slot].place(Stage::finish, summary.drivers[car], Match::last);
            row.finish[car] = textOf(finish);
            row.points[car] = unlessZero(pointsOf(scale, finish));
            points += numbers.value(row.points[car]).value_or(0);
        }
        row.teamPoints = unlessZero(numbers.text(points));
        row.pointsSum = unlessZero(numbers.text(sum += points));
    }
    return summary;
}

}
