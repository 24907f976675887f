// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/season_statistics.h"

#include <algorithm>

namespace circuidex::statistics {

namespace {

constexpr int comparedEntries = 21; // rows 1 to 21 of a list are searched for repeats; the newcomer stands behind them
constexpr int countedSlots = 30; // of the calendar, 20 of which are in use

using Texts = std::array<std::string, driverSlots>;

std::string &of(Texts &texts, int number)
{
    return texts[static_cast<std::size_t>(number - 1)];
}

void countFor(Texts &figures, const std::string &driver, const Numbers &numbers)
{
    if (const auto number = driverSlot(driver, numbers)) {
        std::string &figure = of(figures, *number);
        figure = numbers.sum(figure.empty() ? "0" : figure, "1").value_or(figure);
    }
}

Texts counted(const Season &season, standings::CountedRaces what)
{
    Texts figures;
    for (int slot = 0; slot < countedSlots; ++slot) {
        const std::string gpName = season.namegp(slot);
        if (what.achievement == standings::Achievement::pole)
            countFor(figures, season.read(keys::N, keys::pol(gpName)), season.numbers());
        if (what.achievement == standings::Achievement::place)
            countFor(figures, season.podium(what.place, gpName), season.numbers());
        for (int place = 1; what.achievement == standings::Achievement::podium && place <= 3; ++place)
            countFor(figures, season.podium(place, gpName), season.numbers());
    }
    return figures;
}

std::string pointsPerRace(const std::string &points, const Season &season)
{
    const auto scored = season.numbers().value(points);
    const auto races = season.numbers().value(season.read(keys::gp, "nogp"));
    return scored && races && *races != 0 ? season.numbers().fixed(*scored / *races, 2) : std::string();
}

void collect(StatisticTable &made, const Season &season, const Statistic &statistic)
{
    const Season source = statistic.allTime ? Season(season.store(), std::string(keys::ARCHIVES)) : season;
    for (int n = 1; n <= driverSlots; ++n) {
        if (statistic.allTime) {
            of(made.names, n) = source.read(keys::records, keys::record(statistic.allTime->nameKey, n));
            of(made.figures, n) = source.read(keys::records, keys::record(statistic.allTime->figureKey, n));
        } else {
            of(made.names, n) = source.nom(n);
            const std::string points = source.driver("nbpts", n);
            of(made.figures, n) = statistic.word == "pgp" ? pointsPerRace(points, source) : points;
        }
    }
    if (const auto what = standings::countedRaces(statistic.word))
        made.figures = counted(source, *what);
}

// Of two entries with one name the first stays.
void removeRepeats(Texts &names, Texts &figures)
{
    for (int a = 1; a <= comparedEntries; ++a) {
        for (int b = 1; b <= comparedEntries; ++b)
            if (a != b && of(names, a) == of(names, b)) {
                of(names, b).clear();
                of(figures, b) = "0";
            }
        if (of(names, a).empty())
            of(figures, a) = "0";
    }
}

// An entry that was emptied has nothing to rank by, so that it holds no row before the drivers without a figure.
std::vector<standings::Entry> entriesOf(const StatisticTable &made, const Numbers &numbers)
{
    std::vector<standings::Entry> entries;
    for (std::size_t i = 0; i < made.names.size(); ++i) {
        auto figure = numbers.value(made.figures[i]);
        if (made.names[i].empty() && figure == 0)
            figure.reset();
        entries.push_back({made.names[i], figure});
    }
    return entries;
}

void place(StatisticTable &made, const Numbers &numbers)
{
    made.table.rows.resize(driverSlots);
    standings::enterRanked(entriesOf(made, numbers), {}, driverSlots, [&](std::size_t row, std::size_t i) {
        made.table.rows[row] = {made.names[i], made.figures[i], {}, {}};
        if (row == 0)
            made.first = static_cast<int>(i + 1);
    });
    measure(made.table, 0, numbers);
}

}

const Statistic *statisticNamed(std::string_view word)
{
    const auto found =
        std::find_if(seasonStatistics.begin(), seasonStatistics.end(), [=](const Statistic &s) { return s.word == word; });
    return found == seasonStatistics.end() ? nullptr : &*found;
}

StatisticTable statisticTable(const Season &season, const Statistic &statistic)
{
    StatisticTable made;
    collect(made, season, statistic);
    removeRepeats(made.names, made.figures);
    place(made, season.numbers());
    made.bars = barsOf(made.table.rows, season.numbers());
    return made;
}

void keepAllTimeList(Store &store, const Statistic &statistic, const standings::Standings &table)
{
    if (!statistic.allTime)
        return;
    const WritableSeason archive(store, std::string(keys::ARCHIVES));
    const auto keep = [&](std::string_view prefix, int row, const std::string &text) {
        const std::string key = keys::record(prefix, row);
        if (archive.read(keys::records, key) != text)
            archive.write(keys::records, key, text);
    };
    int row = 0;
    for (const standings::StandingsRow &entry : table.rows) {
        ++row;
        keep(statistic.allTime->nameKey, row, entry.name);
        keep(statistic.allTime->figureKey, row, entry.points);
    }
}

void sortAllTimeLists(Store &store)
{
    const Season archive(store, std::string(keys::ARCHIVES));
    for (const std::string_view word : {"t20pol", "t20vic", "t20pts"})
        if (const Statistic *list = statisticNamed(word))
            keepAllTimeList(store, *list, statisticTable(archive, *list).table);
}

}
