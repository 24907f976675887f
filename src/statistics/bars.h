// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The bars of a ranked table: as long as a row's figure is large beside the best one. A bar bears as much of the name
// and the figure as it has room for.
#include "standings/ranking.h"
#include "store/season.h"

#include <array>

namespace circuidex::statistics {

struct Bar {
    double width = 0; // twips
    std::string caption;
};

inline constexpr double fullBar = 8055; // twips, of the first row

using Bars = std::array<Bar, driverSlots>; // by row

// Of 26 rows, best first. Without a figure in the first row, or with 0 there, no row has a bar.
Bars barsOf(const std::vector<standings::StandingsRow> &rows, const Numbers &numbers);

}
