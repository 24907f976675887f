// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The passage to a new season. The champion is crowned, then drivers, careers, teams and the names of the calendar go
// from the old season into the transit file and from there into the new one; results, dates, grids and remarks stay
// behind. The old season is only read, but for the title; all else is written to files that a second try writes anew,
// so a program that is killed on the way has lost nothing. There is no way back and no check that the season is over.
#include "results/main_record.h"

namespace circuidex::results {

inline constexpr int carriedSlots = 24; // numbers 0 to 23: driver 24 and those behind him stay behind

// The driver with the most points, of several level on points the one with the lowest number; absent while nobody has
// any.
std::optional<int> championshipLeader(const Season &season);

// From the season on the main screen to the one after it, with the champion of that number, and the main screen goes
// with it: the same place in the calendar, nothing recorded there; results that stood there are copied before. The user
// is told before and after. An empty number
// crowns nobody. False, and the user is told, when there is no season to pass to, because the season's name is no year,
// or when a file can't be written as a whole: the old season then stays open, without the new title.
bool passToNextSeason(MainRecord &main, const std::string &champion);

// Opens the season of a year, to be entered race by race, and marks it for the next start. One that holds nothing yet
// takes drivers, careers, teams and the calendar's names from the last season before it in the program folder, which is
// only read; without one, or after a gap, the points are those of its time. False, and the user is told, when it is no
// year or can't be written as a whole: the season on the main screen then stays open.
bool beginSeason(MainRecord &main, const std::string &year);

// The last season before that year that has drivers; empty without one.
std::string seasonBefore(const Store &store, const std::string &year);

// Points of drivers and teams back to 0. They come over with the drivers and are cleared a moment after the passage.
void clearTotals(const WritableSeason &season);

}
