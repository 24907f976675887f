// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Who should be on the next podium. A driver among the first four of the last two races gets a step of it by the sum of
// his two places; nothing else counts, and the same two races always give the same podium.
#include "store/season.h"

#include <array>

namespace circuidex::statistics {

using FirstFour = std::array<std::string, 4>; // drivers' numbers, as text; empty for nobody

struct Forecast {
    FirstFour last, before;
    std::array<std::string, 3> steps; // the names on each, every one behind " / "; "X" for a step that nobody gets
};

// From the race in this slot, counted from 0, and the one before it; absent in front of the second.
std::optional<Forecast> forecast(const Season &season, int slot);

}
