// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The points matrix of a season: what each driver scored in each Grand Prix, worked out from the places and a scale. It
// fills the detailed table of the drivers and feeds the charts. The scale may have changed since the races were
// recorded, so the sums can differ from the season's running totals.
#include "results/scale.h"
#include "store/season.h"

#include <array>
#include <string>

namespace circuidex::standings {

struct PointsMatrix {
    std::array<std::string, gpSlots> races; // names; empty for a slot of the calendar without a race
    std::array<std::string, driverSlots * gpSlots> cells; // as text; empty where a driver scored nothing
    std::array<std::string, gpSlots> poles; // number of the driver in pole position, as text

    // Driver 1 to 26, Grand Prix 0 to 19.
    static constexpr std::size_t index(int driver, int gp)
    {
        return static_cast<std::size_t>(driver - 1 + driverSlots * gp);
    }
    const std::string &at(int driver, int gp) const { return cells[index(driver, gp)]; }
};

PointsMatrix pointsMatrix(const Season &season, const results::Scale &scale);

// What stands behind the points of the driver in pole position, once poles are shown. Such a cell is no number.
inline constexpr std::string_view poleMark = "(Pole)        ";
void markPoles(PointsMatrix &matrix, const Numbers &numbers);

}
