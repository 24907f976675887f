// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/bars.h"

#include <algorithm>

namespace circuidex::statistics {

namespace {

constexpr double namedBar = 750, figuredBar = 1500; // twips from which a bar bears the name, and the figure too

Bar bar(const standings::StandingsRow &row, const std::string &best, const Numbers &numbers)
{
    const auto figure = numbers.value(row.points), full = numbers.value(best);
    if (!figure || !full || *full == 0)
        return {};
    Bar made{std::clamp(*figure / *full, 0.0, 1.0) * fullBar, {}};
    if (made.width >= figuredBar)
        made.caption = row.name + " (" + row.points + ")";
    else if (made.width >= namedBar)
        made.caption = row.name;
    return made;
}

}

Bars barsOf(const std::vector<standings::StandingsRow> &rows, const Numbers &numbers)
{
    Bars bars;
    for (std::size_t row = 0; row < std::min(bars.size(), rows.size()); ++row)
        bars[row] = bar(rows[row], rows[0].points, numbers);
    return bars;
}

}
