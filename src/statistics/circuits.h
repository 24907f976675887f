// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One Grand Prix across the years: what its circuit is like, and what a driver and his team did there in the last ten
// seasons. A circuit has no record of its own; the name of the Grand Prix leads to its texts, pictures and results.
#include "results/main_record.h"

#include <array>

namespace circuidex::statistics {

inline constexpr int yearsAtCircuit = 10;

// The description of a circuit, a file beside the program. It is read item by item, and an item ends at a line end or
// at a comma; each stands behind a line break (CR LF), so that the text begins with an empty line. Empty without a
// file, and for one that is no text. At most the first 64 KB are taken.
std::string circuitDescription(const results::MainRecord &main, const std::string &gpName);

// The items of such a file, its bytes in the code page of the data files, as they are shown.
std::string itemsInLines(std::string_view bytes);

// Newest first; all but the year is empty where nothing is known.
struct YearAtCircuit {
    std::string year;
    std::string grid, finish; // the driver's places
    std::string teamPoints; // of the team at this Grand Prix; only of seasons that he drove in
    std::string winner; // of the race, from the archive
};

struct CircuitRecord {
    std::string number, team; // of the driver in the newest season; empty for a driver who isn't in it
    std::array<YearAtCircuit, yearsAtCircuit> years;
};

// The team of the newest season stands for all years, whoever he drove for. Absent when the year is no number.
std::optional<CircuitRecord> recordAtCircuit(const Store &store, const std::string &driver, const std::string &gpName,
                                             const std::string &newestYear);

}
