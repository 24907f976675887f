// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The first evening with the program: what a season still lacks before it can tell anything, and how far a newcomer has
// come on the way to his first race.
#include "store/season.h"

#include <optional>
#include <string>
#include <vector>

namespace circuidex::results {

// In the order in which a season is entered: its drivers, the teams they drive for, the calendar, a race.
enum class Need { drivers, teams, calendar, race };

// The first of these up to `need` that the season has none of; absent when it has them all.
std::optional<Need> firstLack(const Season &season, Need need);

bool hasRace(const Season &season); // one at least is recorded

// A driver or a race of the calendar: more than a start of the program leaves in the file of a season.
bool isBegun(const Season &season);

// The years that have a file in the program folder, the oldest first.
std::vector<std::string> seasonsOf(const Store &store);

struct FirstSteps {
    bool calendar, drivers; // done
    bool operator==(const FirstSteps &) const = default;
};

// Absent once any season of the program folder has a race.
std::optional<FirstSteps> firstSteps(const Season &season);

}
