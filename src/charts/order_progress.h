// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The order of the championship after each Grand Prix, worked out anew from the places and the scale, as 26 lines: one
// a driver's number, one height a rank. A Grand Prix that wasn't run changes nothing.
#include "charts/chart_engine.h"
#include "results/scale.h"
#include "store/season.h"

namespace circuidex::charts {

inline constexpr int orderedSlots = segments + 1; // one more than has a segment still counts for the order at the end

struct Order {
    // By number. A name that stands twice scores twice; a number without a name has no total.
    ByPlace<std::optional<double>, driverSlots> totals;
    // By number. Of equal totals the lower number stands first. A number without a name takes the first rank that is
    // free at its turn and leaves it free.
    ByPlace<int, driverSlots> ranks;
    ByPlace<std::string, driverSlots> holders; // names by rank, empty for a rank that nobody holds
};

struct OrderProgress {
    ByPlace<std::string, driverSlots> names; // by number
    std::array<Order, orderedSlots> after; // by slot of the calendar

    const Order &last() const { return after.back(); }
};

OrderProgress orderProgress(const Season &season, const results::Scale &scale);

constexpr double rankHeight(int rank)
{
    return rank * 360 - 360 + 125 + 480;
}

// Heights by vertex; the line begins level with its first rank.
Curve orderLine(const OrderProgress &progress, int number);

// The number whose line ends at the height of a rank, a driver's before a nameless one; absent for a height without.
std::optional<int> lineEndingAt(const OrderProgress &progress, int rank);

}
