// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The drivers' championship of a season: its 26 numbers sorted by points, and the same drivers in the order of their
// numbers with what the detailed table shows beside the races. The points are the season's running totals; they aren't
// worked out anew.
#include "standings/ranking.h"
#include "store/season.h"

#include <array>

namespace circuidex::standings {

struct DriverLine {
    std::string name, points, team;
    std::string teamPoints; // empty for a driver without a team
};

std::array<DriverLine, driverSlots> driverLines(const Season &season); // number 1 in element 0

struct DriverStandings {
    Standings table; // 26 rows
    std::optional<int> leader; // number of the driver in the first row; absent while nobody has points
};

// A driver with a name but no points stands at the rank of the number before him, or behind all if he is the first.
DriverStandings driverStandings(const Season &season, std::string_view favourite);

// The number before (-1) or after (+1) one, kept between -1 and 27: at the ends there is no driver. A text that is no
// number goes to the end.
std::string steppedDriver(std::string_view number, int by, const Numbers &numbers);

}
