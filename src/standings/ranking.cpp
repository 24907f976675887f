// SPDX-License-Identifier: GPL-3.0-or-later
#include "standings/ranking.h"

#include <algorithm>

namespace circuidex::standings {

namespace {

using Size = std::vector<bool>::size_type;

int better(const std::vector<Entry> &entries, double value)
{
    return static_cast<int>(
        std::count_if(entries.begin(), entries.end(), [=](const Entry &e) { return e.value && *e.value > value; }));
}

int withFigure(const std::vector<Entry> &entries)
{
    return static_cast<int>(
        std::count_if(entries.begin(), entries.end(), [](const Entry &e) { return e.value.has_value(); }));
}

}

std::vector<std::optional<int>> rankedRows(const std::vector<Entry> &entries, RankingRule rule)
{
    const int behindAll = 1 + withFigure(entries);
    std::vector<std::optional<int>> rows;
    std::vector<bool> taken(static_cast<Size>(behindAll) + entries.size() + 1);
    int before = behindAll;
    for (const Entry &entry : entries) {
        const int without = rule.noFigure == NoFigure::behindAll ? behindAll : before;
        const int rank = entry.value ? 1 + better(entries, *entry.value) : without;
        before = rank;
        if (entry.name.empty()) {
            rows.push_back(std::nullopt);
            continue;
        }
        int row = rank;
        while (rule.ties == Ties::nextRow && taken[static_cast<Size>(row)])
            ++row;
        taken[static_cast<Size>(row)] = true;
        rows.push_back(row);
    }
    return rows;
}

void enterRanked(const std::vector<Entry> &entries, RankingRule rule, std::size_t rows,
                 const std::function<void(std::size_t row, std::size_t entry)> &enter)
{
    std::size_t entry = 0;
    for (const auto &row : rankedRows(entries, rule)) {
        if (row && static_cast<std::size_t>(*row) <= rows)
            enter(static_cast<std::size_t>(*row - 1), entry);
        ++entry;
    }
}

void measure(Standings &standings, std::size_t row, const Numbers &numbers)
{
    standings.rank = 1;
    const std::string points = standings.rows[row].points;
    for (StandingsRow &other : standings.rows) {
        const auto gap = numbers.difference(other.points, points);
        if (!gap)
            continue;
        other.gap = *gap;
        if (numbers.value(*gap).value_or(0) > 0)
            ++standings.rank;
    }
}

void choose(Standings &standings, std::string_view name, const Numbers &numbers)
{
    for (std::size_t i = 0; i < standings.rows.size(); ++i) {
        standings.rows[i].favourite = standings.rows[i].name == name;
        if (standings.rows[i].favourite)
            measure(standings, i, numbers);
    }
}

}
