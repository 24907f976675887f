// SPDX-License-Identifier: GPL-3.0-or-later
#include "charts/bar_fit.h"

#include <algorithm>

namespace circuidex::charts {

namespace {

constexpr double firstWidth = 100, enoughWidth = 4000;
constexpr int mostDoublings = 11;
constexpr std::size_t measuredGrid = 22;
constexpr double firstHeight = 10, enoughHeight = 1000;

int most(std::span<const int> counts)
{
    return *std::max_element(counts.begin(), counts.end());
}

double unitWidth(int count)
{
    double unit = firstWidth;
    for (int doubled = 0; doubled < mostDoublings && count * unit < enoughWidth; ++doubled)
        unit *= 2;
    return unit;
}

// Any height for counts of nothing: they have their trace.
double unitHeight(int count)
{
    double unit = firstHeight;
    while (count > 0 && count * unit < enoughHeight)
        unit *= 2;
    return 2 * unit;
}

template <int N>
void measure(ByPlace<double, N> &lengths, const ByPlace<int, N> &counts, double unit, double empty)
{
    std::transform(counts.begin(), counts.end(), lengths.begin(),
                   [=](int count) { return count == 0 ? empty : count * unit; });
}

}

BarLengths barWidths(const PlaceCounts &counts)
{
    const int grid = most(std::span(counts.grid.values).first(measuredGrid));
    const double unit = unitWidth(std::max(grid, most(counts.finish.values)));
    BarLengths lengths;
    measure(lengths.grid, counts.grid, unit, 0);
    measure(lengths.finish, counts.finish, unit, 0);
    return lengths;
}

std::vector<BarLengths> barHeights(std::span<const PlaceCounts> seasons, double gridTrace)
{
    int grid = 0, finish = 0;
    for (const PlaceCounts &season : seasons) {
        grid = std::max(grid, most(season.grid.values));
        finish = std::max(finish, most(season.finish.values));
    }
    std::vector<BarLengths> lengths(seasons.size());
    for (std::size_t i = 0; i < seasons.size(); ++i) {
        measure(lengths[i].grid, seasons[i].grid, unitHeight(grid), gridTrace);
        measure(lengths[i].finish, seasons[i].finish, unitHeight(finish), trace);
    }
    return lengths;
}

}
