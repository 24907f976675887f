// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Classification by place, three questions each asked of the grid and of the finish: where one driver stood in each
// race of a season, who stood at one place in each race of a season, and in which races of many seasons one driver
// stood at one place.
#include "standings/race_places.h"
#include "standings/winners.h"
#include "store/field.h"

#include <vector>

namespace circuidex::standings {

struct PlaceRow {
    std::string gp;
    std::string place; // " 3 : Troisième", " X : Inconnu" without one; empty where the calendar has no race
};

// One driver in one season, by slot of the calendar.
std::array<PlaceRow, gpSlots> placesOfDriver(const Season &season, Stage stage, std::string_view driver);

// Who held one place in each race of a season, and the champion of the year. The team of a starter is that of the
// number that bears his name; a starter whom the season doesn't know stands beside the team of the one before him. A
// season whose first two slots have no name has no file: the winners of the year then come from the archive, whatever
// the place. An absent place is held by nobody.
SeasonWinners holdersOfPlace(const Season &season, std::string_view year, Stage stage, std::optional<int> place);

// The year of a screen that shows one season's holders of a place: what is typed, and the season that the rows come
// from. A typed year shows its champion, or the archive's winners, at once, but the rows of its season only when it is
// opened again.
struct LaggingYear {
    explicit LaggingYear(const std::string &year) : typed(year), shown(year) { }

    // Shows the rows, and lets the season catch up with what is typed. A place that is none is held by nobody.
    SeasonWinners open(Store &store, Stage stage, std::string_view place);

    // One year on ("1") or back ("-1"), without a lag. A text that is no number stays.
    void step(int by, const Numbers &numbers);

    Field typed, shown;
};

struct PlaceQuestion {
    Stage stage;
    std::string driver, place;
    std::string firstYear, lastYear; // the season of the last year is looked at in any case
};

inline constexpr std::size_t listedPlaces = 140;
inline constexpr int longestSpan = 1000; // seasons; two years that never meet don't keep the program busy

// From the last year down to the first; the last one in any case, also when it comes before the first.
std::vector<std::string> seasonsBack(const std::string &lastYear, const std::string &firstYear,
                                     const Numbers &numbers);

struct PlaceList {
    std::vector<std::string> races; // "Monaco - 2004", newest season first, in it by the calendar; 140 at most
    std::string sentence;
};

// Absent for the empty name: what was listed then stays on show.
std::optional<PlaceList> racesAtPlace(Store &store, const PlaceQuestion &question);

}
