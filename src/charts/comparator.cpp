// SPDX-License-Identifier: GPL-3.0-or-later
#include "charts/comparator.h"

#include "standings/race_places.h"

#include <algorithm>
#include <functional>
#include <limits>

namespace circuidex::charts {

using namespace standings;

namespace {

constexpr double nothing = -std::numeric_limits<double>::infinity();
constexpr int behindTheEighth = classifiedPlaces + 1;

using Figures = std::array<double, 3>; // higher is better

Tone toneAmong(const Figures &all, std::size_t one)
{
    const auto others = [&](auto &&than) {
        return std::count_if(all.begin(), all.end(), [&](double figure) { return than(all[one], figure); }) == 2;
    };
    return others(std::greater<>()) ? Tone::gain : others(std::less<>()) ? Tone::loss : Tone::level;
}

void tone(ComparedCells &cells, const Figures &figures)
{
    for (std::size_t i = 0; i < cells.size(); ++i)
        cells[i].tone = toneAmong(figures, i);
}

// By the numbers in the cells; an empty one stays without a tone.
void toneByNumber(ComparedCells &cells, const Numbers &numbers)
{
    Figures figures{};
    std::transform(cells.begin(), cells.end(), figures.begin(),
                   [&](const Toned &cell) { return numbers.value(cell.text).value_or(nothing); });
    tone(cells, figures);
    for (Toned &cell : cells)
        if (cell.text.empty())
            cell.tone = Tone::none;
}

void measure(ComparisonRow &row, int reference, const Numbers &numbers)
{
    for (std::size_t i = 0; i < row.gaps.size(); ++i)
        row.gaps[i].tone = row.totals[i].tone;
    if (reference < 0 || reference > 2)
        return;
    const auto by = static_cast<std::size_t>(reference);
    const auto total = numbers.value(row.totals[by].text);
    for (std::size_t i = 0; i < row.gaps.size() && total; ++i)
        if (const auto other = numbers.value(row.totals[i].text))
            row.gaps[i].text = i == by ? row.totals[i].text + " pts" : signedText(*total - *other, "0", numbers);
}

}

Comparison compareDrivers(const Season &season, const results::Scale &scale, const Compared &drivers, int reference)
{
    const Numbers &numbers = season.numbers();
    const SeasonPlaces races = seasonPlaces(season);
    Comparison rows;
    Figures points{}, places{};
    for (std::size_t slot = 0; slot < rows.size(); ++slot) {
        if (races[slot].gp.empty())
            continue;
        ComparisonRow &row = rows[slot];
        row.gp = races[slot].gp;
        for (std::size_t i = 0; i < drivers.size(); ++i) {
            const auto place = races[slot].place(Stage::finish, drivers[i], Match::last);
            places[i] = -place.value_or(behindTheEighth);
            row.values[i].text = textOf(place);
            if (place)
                points[i] += numbers.value(scale[*place]).value_or(0);
            row.totals[i].text = numbers.text(points[i]);
        }
        tone(row.values, places);
        tone(row.totals, points);
        measure(row, reference, numbers);
    }
    return rows;
}

Comparison compareTeams(const Season &season, const Compared &teams, int reference)
{
    const Numbers &numbers = season.numbers();
    Comparison rows;
    Compared before{"0", "0", "0"};
    int slot = 0;
    for (ComparisonRow &row : rows) {
        row.gp = season.namegp(slot);
        for (std::size_t i = 0; i < teams.size(); ++i) {
            if (!teams[i].empty())
                row.values[i].text = season.read(keys::N, keys::ecuriepts(teams[i], std::to_string(slot)));
            before[i] = row.totals[i].text = numbers.sum(before[i], row.values[i].text).value_or("");
        }
        toneByNumber(row.values, numbers);
        toneByNumber(row.totals, numbers);
        measure(row, reference, numbers);
        ++slot;
    }
    return rows;
}

}
