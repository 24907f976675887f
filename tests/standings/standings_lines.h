// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Standings as printed lines, and the official tables of 2003 and 2004 in the same form.
#include "results/season_fixture.h"
#include "standings/ranking.h"

namespace circuidex::test {

using namespace standings;

// "1 Michael Schumacher 93 Ferrari 0" for every row that isn't blank; a team's row names no other team.
inline Lines rowsOf(const Standings &standings)
{
    Lines lines;
    int rank = 0;
    for (const StandingsRow &row : standings.rows) {
        ++rank;
        if (!(row.name + row.points + row.team + row.gap).empty())
            lines.push_back(std::to_string(rank) + " " + row.name + " " + row.points + " " +
                            (row.team.empty() ? "" : row.team + " ") + row.gap);
    }
    return lines;
}

// The gap is measured from the best.
inline std::string officialLine(std::size_t rank, const TableRow &row, const std::string &team, const TableRow &best)
{
    return std::to_string(rank) + " " + row.name + " " + row.points + " " + team +
        std::to_string(std::stoi(row.points) - std::stoi(best.points));
}

// "0>1 27>27": a start and where the step leads.
template <class Step>
std::string walked(const std::string &starts, Step step)
{
    std::string all;
    for (const std::string &from : split(starts, ' '))
        all += (all.empty() ? "" : " ") + from + ">" + step(from);
    return all;
}

}
