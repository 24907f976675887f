// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/field_statistics.h"

#include <algorithm>

namespace circuidex::statistics {

namespace {

std::string figure(const Season &season, std::string_view key, int driver)
{
    if (key == teamKey)
        return season.read(keys::N, keys::ptsecurie(season.ecurie(driver)));
    if (key == seasonsKey)
        return season.read(keys::gp, keys::noo(season.nom(driver)));
    return season.driver(key, driver);
}

std::string value(const Season &season, const FieldStatistic &statistic, int driver)
{
    const std::string whole = figure(season, statistic.key, driver);
    if (statistic.per == Per::nothing)
        return whole;
    const Numbers &numbers = season.numbers();
    const auto dividend = numbers.value(whole);
    const auto divisor = numbers.value(figure(season, statistic.per == Per::season ? seasonsKey : "nbgp", driver));
    if (!dividend || !divisor || *divisor == 0)
        return {};
    return numbers.fixed(*dividend / *divisor * (statistic.per == Per::hundredRaces ? 100 : 1), 1);
}

// What is no number is less than any number.
bool less(const std::optional<double> &a, const std::optional<double> &b)
{
    return b && (!a || *a < *b);
}

int rankOf(const FieldEntry &entry, const FieldEntries &entries, const Numbers &numbers)
{
    if (entry.value.empty())
        return 1;
    const auto own = numbers.value(entry.value);
    return 1 + static_cast<int>(std::count_if(entries.begin(), entries.end(), [&](const FieldEntry &other) {
               return less(own, numbers.value(other.value));
           }));
}

}

FieldEntries fieldEntries(const Season &season, const FieldStatistic &statistic)
{
    FieldEntries entries;
    for (int driver = 1; driver <= driverSlots; ++driver) {
        const std::string name = statistic.key == teamKey ? season.ecurie(driver) : season.nom(driver);
        const bool repeated = statistic.key == teamKey &&
            std::any_of(entries.begin(), entries.end(), [&](const FieldEntry &e) { return e.name == name; });
        if (!name.empty() && !repeated)
            entries[static_cast<std::size_t>(driver - 1)] = {name, value(season, statistic, driver)};
    }
    return entries;
}

RankedField rankField(const FieldEntries &entries, const Numbers &numbers)
{
    RankedField made;
    for (const FieldEntry &entry : entries) {
        made.rank = rankOf(entry, entries, numbers);
        auto row = made.rows.begin() + (made.rank - 1);
        while (!row->points.empty())
            ++row;
        *row = {entry.name, entry.value, {}, {}};
    }
    made.bars = barsOf(made.rows, numbers);
    return made;
}

}
