// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// From a season to what its charts draw: points and places of up to four drivers or teams, Grand Prix by Grand Prix,
// and how far the season has got. Read anew for each drawing.
#include "charts/chart_engine.h"
#include "results/scale.h"
#include "store/season.h"

namespace circuidex::charts {

inline constexpr int slotsRead = 22; // some readers look past the last Grand Prix that can be drawn

// Driver numbers or names, as the user chose them. An empty one stands for nobody.
using Subjects = std::array<std::string, seriesCount>;

// What one series has at each slot, as text; empty where it has nothing.
using Cells = std::array<std::string, slotsRead>;

struct SeriesCells {
    std::array<Cells, seriesCount> cells;
    std::array<Slots, seriesCount> restarts; // where a sum of gains starts anew, for want of a place on the grid
};

// Points of drivers, given by their numbers, from their places and the scale; empty where a driver scored none.
SeriesCells driverPoints(const Season &season, const results::Scale &scale, const Subjects &subjects);

// Points of teams, given by their names, as recorded.
SeriesCells teamPoints(const Season &season, const results::Scale &scale, const Subjects &subjects);

// Places of drivers, given by their names: 1 to 8 at the finish, otherwise 9; 1 to 22 on the grid, otherwise 23.
inline constexpr int unplaced = classifiedPlaces + 1, gridPlacesRead = 22, notOnGrid = gridPlacesRead + 1;
SeriesCells finishPlaces(const Season &season, const results::Scale &scale, const Subjects &subjects);
SeriesCells gridPlacesOf(const Season &season, const results::Scale &scale, const Subjects &subjects);

Values numbersIn(const Cells &cells, const Numbers &numbers);

// The first slot where a chart ends; absent when it goes on to the end of the season. A Grand Prix counts as run, or
// its grid as known, when the first or the second place is held.
std::optional<int> firstWithoutResult(const Season &season);
std::optional<int> firstWithoutGrid(const Season &season);
std::optional<int> firstWithoutPoints(const SeriesCells &series); // where none of the four has a value

}
