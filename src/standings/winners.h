// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Who won: one Grand Prix over the years, one season race by race, one driver over twenty years, and the races behind
// a driver's count of wins, places, podiums or poles. All but the seasons' own races comes from the archive, which
// knows winners by their names, also those of the years before the first season file.
#include "store/season.h"

#include <array>

namespace circuidex::standings {

inline constexpr int yearsOfBlock = 10; // of one Grand Prix, newest first
inline constexpr int searchedYears = 2 * yearsOfBlock; // for the wins of a driver
inline constexpr int searchedNames = 22; // of the all-time list: rows 0 to 21
inline constexpr int shownWins = 140;

struct WinOfYear {
    std::string year, winner, champion;
};

// The given year and the nine before it. Absent when the year is no number.
std::optional<std::array<WinOfYear, yearsOfBlock>> winsOfGrandPrix(const Store &store, std::string_view gpName,
                                                                   std::string_view newestYear);

struct RaceWinner {
    std::string gp;
    std::string winner; // or who held the place asked for
    std::string team; // empty for none, and for a winner from the archive
};

struct SeasonWinners {
    std::array<RaceWinner, gpSlots> races; // by slot of the calendar
    std::string champion;
};

// The winners of a season, and the champion of the year. A season whose first two slots have no name has no file: the
// year's winners then come from the archive, packed from the top in the order of the all-time list.
SeasonWinners seasonWinners(const Season &season, std::string_view year);

std::string championOf(const Store &store, std::string_view year); // empty when none is known

// Fills the rows that have no winner yet with the archive's winners of a year, the first names of the all-time list.
// What finds no row is left out.
void addArchivedWinners(std::array<RaceWinner, gpSlots> &rows, const Store &store, std::string_view year);

// A driver's wins in the twenty years that end with the given one, as "Monaco - 2004": ten years, and in them by the
// all-time list, then the ten before. 140 at most.
std::vector<std::string> winsOfDriver(const Store &store, std::string_view driver, std::string_view lastYear);

// What a count of a season stands for.
enum class Achievement { place, podium, pole };

struct CountedRaces {
    Achievement achievement;
    int place = 0; // 1 to 8, of the achievement "place"
};

// By the word of the season statistics: "victoires", "2" to "8", "pod", "poles". Absent for the figures that no list of
// races stands behind.
std::optional<CountedRaces> countedRaces(std::string_view word);

inline constexpr std::size_t listedRaces = 20;

// The races of a season in which a driver achieved it, in the order of the calendar; a podium with its place behind the
// name, "Monaco (2ème)". A pole is the first place of the grid. 20 at most.
std::vector<std::string> racesWith(const Season &season, CountedRaces what, std::string_view driver);

// A name of the all-time list, empty for a free row or a text that is no row.
std::string listedName(const Store &store, std::string_view row);

}
