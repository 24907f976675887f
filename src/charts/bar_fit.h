// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// How long the bars of counts are, in twips. All bars of a display are doubled together until the longest is long
// enough, so that one time is always worth the same length. A bar that counts nothing has no length, or just a trace.
#include "charts/place_counts.h"

#include <span>

namespace circuidex::charts {

struct BarLengths {
    ByPlace<double, gridPlaces> grid;
    ByPlace<double, classifiedPlaces> finish;
};

// Level bars: doubled, up to 11 times, until one of them reaches 4000. The bars of grid and finish are measured
// together, of the grid the first 22 places; the others grow with them and may leave the paper.
BarLengths barWidths(const PlaceCounts &counts);

// Upright bars of one season or of several side by side: doubled until one of them reaches 1000, and once more. Grid
// and finish each have a measure of their own. The trace is the height of a bar of the grid that counts nothing; at the
// finish it is 10.
std::vector<BarLengths> barHeights(std::span<const PlaceCounts> seasons, double gridTrace);

inline constexpr double trace = 10;

}
