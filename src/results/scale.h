// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The points of the first eight places. Each season may have its own scale; a season without one takes over the scale of
// the year before, one year back and no further, and gaps are filled from the scale in use since 2003.
#include "store/by_place.h"
#include "store/season.h"

#include <string>

namespace circuidex::results {

// Points of places 1 to 8, as text. A text that is no number gives its place no points.
using Scale = ByPlace<std::string, classifiedPlaces>;

inline const Scale builtInScale{"10", "8", "6", "5", "4", "3", "2", "1"};

// Writes nothing, not even an inherited scale.
Scale loadScale(const Season &season);

void storeScale(const WritableSeason &season, const Scale &scale);

}
