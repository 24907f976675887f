// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Three drivers or three teams side by side, Grand Prix by Grand Prix: what each did in the race, his points so far,
// and the gaps in points to the one that the user measures by. The tone compares the three: gain for the strictly best,
// loss for the strictly worst, level for whoever stands between them or beside another.
#include "results/scale.h"
#include "standings/tone.h"
#include "store/season.h"

#include <array>

namespace circuidex::charts {

// Names; one that the season doesn't know has no results.
using Compared = std::array<std::string, 3>;

using ComparedCells = std::array<standings::Toned, 3>;

struct ComparisonRow {
    std::string gp; // empty for a slot of the calendar without a race
    ComparedCells values; // of drivers the place at the finish, empty behind the eighth; of teams the points
    ComparedCells totals; // points so far
    // In the tones of the totals. Of the reference "32 pts"; of another his distance behind it, "+12", "-4" or "0".
    ComparedCells gaps;
};

using Comparison = std::array<ComparisonRow, gpSlots>; // by slot of the calendar

// The lower place is the better one, and none the worst. Points follow the scale given. The row of a slot without a
// race is empty. `reference` is 0 to 2; any other has no gaps.
Comparison compareDrivers(const Season &season, const results::Scale &scale, const Compared &drivers, int reference);

// Points as recorded. A total is the one before it plus the points of the race; where one of them is missing it is
// missing too. What is missing is empty, without a tone, and behind what is there.
Comparison compareTeams(const Season &season, const Compared &teams, int reference);

}
