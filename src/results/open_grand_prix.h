// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A Grand Prix as it was: who started where, for which team, and how the championships stood when it was over.
#include "results/grid.h"
#include "results/scale.h"

#include <vector>

namespace circuidex::results {

struct StandingRow {
    std::string name;
    std::string points; // as text
};

// The drivers with points after the calendar slots 0 to lastSlot, best first, by the season's podiums and the given
// scale. Drivers level on points keep the order of their numbers.
std::vector<StandingRow> driversAfter(const Season &season, int lastSlot, const Scale &scale);

// The teams after the same slots, by their points of each race. A team none of whose races was noted is left out.
std::vector<StandingRow> teamsAfter(const Season &season, int lastSlot);

// The team of each driver of a grid, by his name; empty for nobody, an unknown name and a driver without a team.
ByPlace<std::string, gridPlaces> gridTeams(const Season &season, const Grid &grid);

// The slot of a Grand Prix in the calendar, the first one where two bear the name; absent when it isn't there.
std::optional<int> slotNamed(const Season &season, std::string_view gpName);

}
