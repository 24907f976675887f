// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The constructors' championship of a season. A team is there because a driver names it; its points are the season's
// running totals. Teams that are level share one row, so that the team behind them stands on its true rank.
#include "standings/ranking.h"
#include "store/season.h"

#include <array>

namespace circuidex::standings {

inline constexpr int teamRows = 13;

struct TeamLine {
    std::string name, points; // at the first driver of the team; empty at its other drivers
    std::string tyre; // its make, of the team of every driver: "M" or "B", empty where nobody noted it
};

std::array<TeamLine, driverSlots> teamLines(const Season &season); // of driver number 1 in element 0

// 13 rows; a team whose rank is beyond them is left out. The row of the drivers without a team ("Aucune") stays blank,
// unless a team shares it. A team without points stands behind all others.
Standings constructorStandings(const Season &season, std::string_view favourite);

// The next driver number down (-1) or up (+1) whose team isn't the given one, between -1 and 23; from an end the step
// turns back by one, so that drivers 24 to 26 can't be reached. A text that is no number counts as the end.
std::string steppedTeam(const Season &season, std::string_view number, int by, std::string_view team);

// Changes a team's tyre make to the other one. What is neither "M" nor "B" stays. Gives the make that now stands.
std::string changeTyre(const WritableSeason &season, std::string_view team);

// The teams in the order of their first driver, with what they scored race by race.
struct TeamDetail {
    std::string name, points;
    std::array<std::string, gpSlots> races; // empty for a race without points
};

// As many as the choice of teams offers, 12 at most: a team of the drivers 23 to 26 alone is missing.
std::vector<TeamDetail> teamDetails(const Season &season);

}
