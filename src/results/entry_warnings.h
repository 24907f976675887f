// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What looks wrong in an entry, in short French sentences that are shown beside it and hold nothing up: the user may
// mean it. They are gone as soon as the entry is corrected.
#include "results/calendar.h"
#include "results/grid.h"
#include "results/race_fields.h"

namespace circuidex::results {

using Warnings = std::vector<std::string>; // the gravest first

// A driver at two places, a number that nobody has, places without a pole, and a date typed for the race on show when
// it is recorded: only the calendar still stores that.
Warnings raceWarnings(const RaceFields &entry, const Season &season, std::string_view gpOnShow);

// A driver at two places of the grid, and a name that none of the season's drivers has.
Warnings gridWarnings(const Grid &grid, const Season &season);

// A race entered twice, a date that is no day, and a recorded race at another rank than `season` has it at: the teams'
// points of a race stay with the rank.
Warnings calendarWarnings(const Calendar &calendar, const Season &season);

// In one line: the first two, and how many there are besides.
std::string inOneLine(const Warnings &warnings);

}
