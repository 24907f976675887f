// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The ranking rule of all tables: an entry's rank is one more than the number of entries with a strictly greater value,
// and it takes the first free row at or below its rank, the entries in their given order. So of two that are level the
// one with the lower driver number stands first; nothing but the value decides.
#include "store/number.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace circuidex::standings {

struct Entry {
    std::string name; // an entry without a name takes no row, but its value counts in the ranks of the others
    std::optional<double> value; // absent for an entry without a figure
};

enum class Ties { nextRow, sharedRow };

// Where an entry without a figure goes: behind all that have one, or to the rank of the entry before it in the list.
enum class NoFigure { behindAll, likeTheOneBefore };

struct RankingRule {
    Ties ties = Ties::nextRow;
    NoFigure noFigure = NoFigure::behindAll;
};

// The row of each entry, counted from 1, in the order of the entries; absent for an entry without a name.
std::vector<std::optional<int>> rankedRows(const std::vector<Entry> &entries, RankingRule rule = {});

// Calls `enter` for each entry that finds one of so many rows, in the order of the entries; both count from 0.
void enterRanked(const std::vector<Entry> &entries, RankingRule rule, std::size_t rows,
                 const std::function<void(std::size_t row, std::size_t entry)> &enter);

// A row of a championship table. A free row is empty.
struct StandingsRow {
    std::string name; // or the names of the teams that share the row
    std::string points; // as text
    std::string team; // in a table of drivers
    std::string gap; // points of this row less those of the row that all are measured against
    bool favourite = false;
};

struct Standings {
    std::vector<StandingsRow> rows; // rank 1 in element 0
    int rank = 1; // of the favourite: rows level with him share the better one
};

// Gaps and rank by the points of one row, counted from 0. A gap that can't be worked out stays as it was.
void measure(Standings &standings, std::size_t row, const Numbers &numbers);

// Makes the row of that very name the favourite and measures by it. Of several rows with the name all are favourites
// and the last one measures; with none, gaps and rank stay. The empty name makes the free rows the favourites.
void choose(Standings &standings, std::string_view name, const Numbers &numbers);

}
