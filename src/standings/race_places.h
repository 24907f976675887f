// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Who stood where in the races of a season, on the grid and at the finish, by name: read from the season once and then
// asked as often as a table or a chart likes. The grid has the places 1 to 26, the finish 1 to 8; whoever finished
// behind the eighth has no place at the finish.
#include "store/by_place.h"
#include "store/season.h"

#include <array>
#include <span>

namespace circuidex::standings {

enum class Stage { grid, finish };

constexpr int lastPlace(Stage stage)
{
    return stage == Stage::grid ? gridPlaces : classifiedPlaces;
}

inline constexpr int slotsRead = 22; // of the calendar: two more than a table shows still count

// Which of his places a driver has where his name stands twice in one race.
enum class Match { first, last };

// A place is absent for a driver who has none. The empty name is nobody's and has no places.
struct DriverPlaces {
    std::optional<int> grid, finish;

    // Places gained in the race, negative when he lost some; absent unless both places are known.
    std::optional<int> gained() const;
};

struct RacePlaces {
    std::string gp; // empty for a slot of the calendar without a race, where nobody has a place
    ByPlace<std::string, gridPlaces> grid; // names; empty for a free place
    ByPlace<std::string, classifiedPlaces> finish;

    // Among the first so many places.
    std::optional<int> place(Stage stage, std::string_view driver, Match match, int places = gridPlaces) const;
    DriverPlaces of(std::string_view driver, Match match) const;
};

using SeasonPlaces = std::array<RacePlaces, slotsRead>; // by slot of the calendar

RacePlaces racePlaces(const Season &season, std::string gpName);
SeasonPlaces seasonPlaces(const Season &season);

// The name at one place of one race, empty for nobody.
std::string nameAt(const Season &season, Stage stage, int place, std::string_view gpName);

// A place as text, empty for none.
std::string textOf(std::optional<int> place);

// The place that a text is; absent for a text that is no place of the grid or the finish.
std::optional<int> placeIn(std::string_view text, Stage stage, const Numbers &numbers);

}
