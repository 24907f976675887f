// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The starting grid of a Grand Prix: 26 places that hold drivers' names, kept apart from the result.
#include "store/by_place.h"
#include "store/season.h"

namespace circuidex::results {

using Grid = ByPlace<std::string, gridPlaces>; // empty for a free place

Grid loadGrid(const Season &season, std::string_view gpName);
void storeGrid(const WritableSeason &season, std::string_view gpName, const Grid &grid);

// The same for what the user entered. A sentence in French and nothing written when a name can't be carried by the
// files.
std::string enterGrid(const WritableSeason &season, std::string_view gpName, Grid grid);

// The number of the driver with this name, the first one where two have it; absent when nobody has. An empty name finds
// nobody.
std::optional<int> driverNamed(const Season &season, std::string_view name);

}
