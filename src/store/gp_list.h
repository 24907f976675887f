// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The all-time list of Grand Prix names in the archive, by which a Grand Prix is picked on all screens: its rows as
// they stand, the removal of a name, and the clean-up that takes repeated names and holes out of the list.
#include "store/store.h"

#include <string>
#include <vector>

namespace circuidex {

inline constexpr int gpListRows = 60; // rows 0 to 59, the ones shown
inline constexpr int gpListTidied = 67; // rows 0 to 66, the ones cleaned up

// The names of rows 0 to 59, empty for a free row.
std::vector<std::string> gpList(const Store &store);

// Empties a row. The list isn't closed up, and the winners noted under the name stay. The count of the list goes down
// only where the row is the one that the count names.
void deleteListedGp(Store &store, int row);

// The clean-up: every row is held against every other one, and a row that equals it goes, the rows behind moving up as
// far as row 65. Free rows equal each other, so holes close too. Row 66 is compared and emptied, never moved.
std::vector<std::string> tidied(std::vector<std::string> rows);

// The same on the archive. Only rows that changed are written; the count of the list stays.
void tidyGpList(Store &store);

}
