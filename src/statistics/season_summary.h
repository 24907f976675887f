// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A season race by race, a row a Grand Prix: one driver with his places on the grid and at the finish, the places he
// gained and his points, or one team with up to four of its drivers. Points follow the scale given, not the totals
// kept. Rows are by slot of the calendar; the row of a slot without a race is empty throughout, and sums pass over it.
#include "results/scale.h"
#include "standings/tone.h"
#include "store/season.h"

#include <array>

namespace circuidex::statistics {

struct DriverSummaryRow {
    std::string gp;
    std::string grid, finish; // places, empty without one
    standings::Toned gain; // places gained in the race; empty unless both places are known
    standings::Toned gainSum; // so far; empty before the first gain
    std::string points; // empty without a place at the finish
    std::string pointsSum; // so far, from "0" on
};

struct DriverSummary {
    std::string team; // of the number
    std::array<DriverSummaryRow, gpSlots> rows;
};

// Places are found by the name; the number, as text, only tells the team.
DriverSummary driverSummary(const Season &season, const results::Scale &scale, std::string_view driver, std::string_view number);

// The names of a team's drivers in the order of their numbers; a fifth one is left out.
using TeamDrivers = std::array<std::string, 4>;

// Of the drivers 1 to the last number.
TeamDrivers driversOfTeam(const Season &season, std::string_view team, int lastNumber);

// Points of 0 are empty, the team's sum too before its first points.
struct TeamSummaryRow {
    std::string gp;
    std::array<std::string, 4> finish, points; // of each driver; a place is empty without one
    std::string teamPoints, pointsSum;
};

struct TeamSummary {
    TeamDrivers drivers;
    std::array<TeamSummaryRow, gpSlots> rows;
};

TeamSummary teamSummary(const Season &season, const results::Scale &scale, std::string_view team);

}
