// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The progression of a driver in a race: his place on the grid less the one at the finish, so that a gain of places is
// positive. It exists where both are known, that is for the first eight who stand in the grid. Two tables: all drivers
// of one Grand Prix with their sums since the start of the season, and one team through the season.
#include "standings/tone.h"
#include "statistics/season_summary.h"
#include "store/season.h"

#include <array>

namespace circuidex::progression {

struct ProgressRow {
    std::string name; // empty for a free number
    std::string grid, finish; // places, empty without one
    standings::Toned gain; // empty unless both places are known
};

// By driver number, 1 in element 0. Of two places under one name the first counts. The Grand Prix needn't stand in the
// calendar.
std::array<ProgressRow, driverSlots> raceProgress(const Season &season, std::string_view gpName);

// What each driver gained from slot 0 of the calendar to the given one, as text; empty for a driver without any
// progression, and for all when the text is no number.
std::array<standings::Toned, driverSlots> progressSums(const Season &season, std::string_view lastSlot);

// The last number whose driver a team's table looks at.
inline constexpr int lastTeamNumber = 25;

// Texts only: the cells of this table have the colours of their columns. The row of a slot without a race is empty.
struct TeamProgressRow {
    std::string gp;
    std::array<std::string, 4> places; // grid and finish of each driver: "5 / 2", "5 / " or " / 2"
    std::array<std::string, 4> gains; // "+3"; "=" also where one place is missing
    std::string team, sum; // of the drivers' gains, in this race and so far; a missing gain counts 0
};

struct TeamProgress {
    statistics::TeamDrivers drivers;
    std::array<TeamProgressRow, gpSlots> rows; // by slot of the calendar
};

TeamProgress teamProgress(const Season &season, std::string_view team);

}
