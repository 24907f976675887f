// SPDX-License-Identifier: GPL-3.0-or-later
#include "standings/winners.h"

#include "standings/classification.h"
#include "store/archive.h"

#include <algorithm>

namespace circuidex::standings {

namespace {

constexpr int blocks = searchedYears / yearsOfBlock; // of ten years, in which a driver's wins are looked for

std::string podiumRow(const std::string &gpName, int place)
{
    return gpName + (place == 1 ? " (1er)" : place == 2 ? " (2ème)" : " (3ème)");
}

// The rows that one race gives.
std::vector<std::string> rowsOf(const Season &season, const std::string &gpName, CountedRaces what,
                                std::string_view driver)
{
    const auto finished = [&](int place) { return season.nom(season.podium(place, gpName)) == driver; };
    std::vector<std::string> rows;
    switch (what.achievement) {
    case Achievement::place:
        if (finished(what.place))
            rows.push_back(gpName);
        break;
    case Achievement::pole:
        if (season.grille(1, gpName) == driver)
            rows.push_back(gpName);
        break;
    case Achievement::podium:
        for (int place = 1; place <= 3; ++place)
            if (finished(place))
                rows.push_back(podiumRow(gpName, place));
        break;
    }
    return rows;
}

}

std::optional<std::array<WinOfYear, yearsOfBlock>> winsOfGrandPrix(const Store &store, std::string_view gpName,
                                                                   std::string_view newestYear)
{
    std::array<WinOfYear, yearsOfBlock> rows;
    int back = 0;
    for (WinOfYear &row : rows) {
        const auto year = store.numbers().difference(newestYear, std::to_string(back++));
        if (!year)
            return std::nullopt;
        row = {*year, archivedWinner(store, gpName, *year), championOf(store, *year)};
    }
    return rows;
}

SeasonWinners seasonWinners(const Season &season, std::string_view year)
{
    return standings::holdersOfPlace(season, year, standings::Stage::finish, 1);
}

void addArchivedWinners(std::array<RaceWinner, gpSlots> &rows, const Store &store, std::string_view year)
{
    auto row = rows.begin();
    for (int i = 0; i < searchedNames; ++i) {
        row = std::find_if(row, rows.end(), [](const RaceWinner &race) { return race.winner.empty(); });
        if (row == rows.end())
            return;
        const std::string gpName = listedName(store, std::to_string(i));
        const std::string winner = archivedWinner(store, gpName, year);
        if (!gpName.empty() && !winner.empty())
            *row = {gpName, winner, row->team};
    }
}

std::string championOf(const Store &store, std::string_view year)
{
    return store.LireINI(keys::ARCHIVES, keys::GP, keys::champion(year));
}

std::vector<std::string> winsOfDriver(const Store &store, std::string_view driver, std::string_view lastYear)
{
    std::vector<std::string> wins;
    for (int block = 0; block < blocks && !driver.empty(); ++block) {
        const auto newest = store.numbers().difference(lastYear, std::to_string(block * yearsOfBlock));
        for (int i = 0; newest && i < searchedNames; ++i) {
            const std::string gpName = listedName(store, std::to_string(i));
            for (int back = 0; back < yearsOfBlock; ++back) {
                const std::string year = store.numbers().difference(*newest, std::to_string(back)).value_or("");
                if (archivedWinner(store, gpName, year) == driver && wins.size() < shownWins)
                    wins.push_back(gpName + " - " + year);
            }
        }
    }
    return wins;
}

std::optional<CountedRaces> countedRaces(std::string_view word)
{
    if (word == "victoires")
        return CountedRaces{Achievement::place, 1};
    if (word == "pod")
        return CountedRaces{Achievement::podium};
    if (word == "poles")
        return CountedRaces{Achievement::pole};
    if (word.size() == 1 && word[0] >= '2' && word[0] <= '8')
        return CountedRaces{Achievement::place, word[0] - '0'};
    return std::nullopt;
}

std::vector<std::string> racesWith(const Season &season, CountedRaces what, std::string_view driver)
{
    std::vector<std::string> races;
    for (int slot = 0; slot < gpSlots && !driver.empty(); ++slot) {
        const auto rows = rowsOf(season, season.namegp(slot), what, driver);
        races.insert(races.end(), rows.begin(), rows.end());
    }
    races.resize(std::min(races.size(), listedRaces));
    return races;
}

std::string listedName(const Store &store, std::string_view row)
{
    return store.LireINI(keys::ARCHIVES, keys::GP, keys::listed(row));
}

}
