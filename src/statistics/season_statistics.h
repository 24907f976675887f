// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The statistics of a season, one figure of all drivers at a time, and the three all-time lists of the archive, as a
// ranked table with bars. Ranking is also what keeps the all-time lists in order: a recording leaves its newcomers in
// row 22, and the sorted list is written back.
#include "standings/winners.h"
#include "statistics/bars.h"

namespace circuidex::statistics {

// A list of the archive: the keys of its names and its figures.
struct AllTimeList {
    std::string_view nameKey, figureKey;
};

struct Statistic {
    std::string_view button, caption; // on the screen
    std::string_view word; // by which the screens know it
    std::string_view title;
    std::optional<AllTimeList> allTime;
};

// Twelve of the season, then three of all time, in the order of their buttons.
inline constexpr std::array<Statistic, 15> seasonStatistics{{
    {"Command17", "Nb de points", "pts", "Nombre de points dans le championnat actuel", {}},
    {"Command2", "Victoires", "victoires", "Vicoires", {}},
    {"Command3", "Poles", "poles", "Poles", {}},
    {"Command4", "2ème ", "2", "Seconde Place", {}},
    {"Command5", "3ème", "3", "3ème Place", {}},
    {"Command6", "4ème", "4", "4ème Place", {}},
    {"Command7", "5ème", "5", "5ème Place", {}},
    {"Command8", "6ème", "6", "6ème Place", {}},
    {"Command9", "7ème", "7", "7ème Place", {}},
    {"Command10", "8ème", "8", "8ème Place", {}},
    {"Command11", "Podiums", "pod", "Podiums", {}},
    {"Command12", "Pts/GP", "pgp", "Nombre de points par GP", {}},
    {"Command15", "TOP20 Points", "t20pts", "TOP 20 Points", AllTimeList{"nompts", "ptstot"}},
    {"Command14", "TOP20 Victoires", "t20vic", "TOP 20 Vicoires", AllTimeList{"nomvic", "vic"}},
    {"Command13", "TOP20 Poles", "t20pol", "TOP 20 Poles", AllTimeList{"nompol", "pol"}},
}};

// Null for a word that none bears.
const Statistic *statisticNamed(std::string_view word);

struct StatisticTable {
    // What was ranked, driver 1 or entry 1 in element 0. An absent figure is empty; a repeated name is emptied, its
    // figure "0".
    std::array<std::string, driverSlots> names, figures;
    standings::Standings table; // 26 rows, best first; drivers without a figure behind the others
    Bars bars;
    std::optional<int> first; // the driver or entry in the first row
};

// Of the season, or of the archive beside it.
StatisticTable statisticTable(const Season &season, const Statistic &statistic);

// Writes the rows of an all-time list to the archive in the order of the table; nothing for a season's figure.
void keepAllTimeList(Store &store, const Statistic &statistic, const standings::Standings &table);

// All three lists: poles, wins, points. To be done after every recording.
void sortAllTimeLists(Store &store);

}
