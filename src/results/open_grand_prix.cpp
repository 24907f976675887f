// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/open_grand_prix.h"

#include "results/race_fields.h"

#include <algorithm>

namespace circuidex::results {

namespace {

struct Total {
    std::string name;
    double points;
};

// Best first; who is level keeps the order he came in.
std::vector<StandingRow> ranked(std::vector<Total> totals, const Numbers &numbers)
{
    std::stable_sort(totals.begin(), totals.end(), [](const Total &a, const Total &b) { return a.points > b.points; });
    std::vector<StandingRow> rows;
    for (Total &total : totals)
        rows.push_back({std::move(total.name), numbers.text(total.points)});
    return rows;
}

}

std::vector<StandingRow> driversAfter(const Season &season, int lastSlot, const Scale &scale)
{
    std::array<std::optional<double>, driverSlots + 1> points;
    for (int slot = 0; slot <= lastSlot; ++slot) {
        const std::string gpName = season.namegp(slot);
        for (int place = 1; place <= classifiedPlaces; ++place) {
            const auto driver = driverSlot(season.podium(place, gpName), season.numbers());
            const auto value = season.numbers().value(scale[place]);
            if (!driver || !value)
                continue;
            auto &total = points[static_cast<std::size_t>(*driver)];
            total = total.value_or(0) + *value;
        }
    }
    std::vector<Total> totals;
    for (int driver = 1; driver <= driverSlots; ++driver)
        if (const auto total = points[static_cast<std::size_t>(driver)])
            totals.push_back({season.nom(driver), *total});
    return ranked(std::move(totals), season.numbers());
}

std::vector<StandingRow> teamsAfter(const Season &season, int lastSlot)
{
    std::vector<Total> totals;
    for (const std::string &team : teams(season)) {
        std::optional<double> points;
        for (int slot = 0; slot <= lastSlot && team != keys::Aucune; ++slot)
            if (const auto race = season.numbers().value(season.read(keys::N, keys::ecuriepts(team, std::to_string(slot)))))
                points = points.value_or(0) + *race;
        if (points)
            totals.push_back({team, *points});
    }
    return ranked(std::move(totals), season.numbers());
}

ByPlace<std::string, gridPlaces> gridTeams(const Season &season, const Grid &grid)
{
    ByPlace<std::string, gridPlaces> found;
    for (int place = 1; place <= gridPlaces; ++place)
        if (const auto number = driverNamed(season, grid[place]))
            if (std::string team = season.ecurie(*number); team != keys::Aucune)
                found[place] = std::move(team);
    return found;
}

std::optional<int> slotNamed(const Season &season, std::string_view gpName)
{
    for (int slot = -1; slot <= 21 && !gpName.empty(); ++slot)
        if (season.namegp(slot) == gpName)
            return slot;
    return std::nullopt;
}

}
