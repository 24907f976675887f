// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The teams of a season as they are offered for choice. A team has no record of its own: it is there because a driver
// names it, and stands at its first driver.
#include "store/season.h"

#include <string>
#include <vector>

namespace circuidex::results {

inline constexpr int teamListDrivers = 22; // the drivers 1 to 22 whose teams are offered
inline constexpr int teamListTeams = 12; // the most teams offered

// One entry a driver of the numbers first to last: his team, empty where he has none or a driver before him names it.
// "Aucune" counts as a team.
std::vector<std::string> teamsByFirstDriver(const Season &season, int first, int last);

// The teams that those drivers name, each once, in the order of their first driver.
std::vector<std::string> teamsNamed(const Season &season, int first, int last);

// The teams on offer: those of the drivers 1 to 22, the first 12 of them.
std::vector<std::string> teamList(const Season &season);

}
