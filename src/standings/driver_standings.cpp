// SPDX-License-Identifier: GPL-3.0-or-later
#include "standings/driver_standings.h"

namespace circuidex::standings {

std::array<DriverLine, driverSlots> driverLines(const Season &season)
{
    std::array<DriverLine, driverSlots> lines;
    int number = 0;
    for (DriverLine &line : lines) {
        ++number;
        line = {season.nom(number), season.driver("nbpts", number), season.ecurie(number), {}};
        if (!line.team.empty())
            line.teamPoints = season.read(keys::N, keys::ptsecurie(line.team));
    }
    return lines;
}

DriverStandings driverStandings(const Season &season, std::string_view favourite)
{
    const Numbers &numbers = season.numbers();
    const auto lines = driverLines(season);
    std::vector<Entry> entries;
    for (const DriverLine &line : lines)
        entries.push_back({line.name, numbers.value(line.points)});

    DriverStandings standings;
    standings.table.rows.resize(driverSlots);
    enterRanked(entries, {.noFigure = NoFigure::likeTheOneBefore}, driverSlots, [&](std::size_t row, std::size_t i) {
        standings.table.rows[row] = {lines[i].name, lines[i].points, lines[i].team, {}};
        if (row == 0)
            standings.leader = static_cast<int>(i + 1);
    });
    measure(standings.table, 0, numbers);
    choose(standings.table, favourite, numbers);
    return standings;
}

std::string steppedDriver(std::string_view number, int by, const Numbers &numbers)
{
    const double end = by < 0 ? -1 : driverSlots + 1;
    const auto from = numbers.value(number);
    return numbers.text(!from || *from == end ? end : *from + by);
}

}
