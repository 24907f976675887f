// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// How often a driver, or all drivers of a team, stood at each place of the grid and of the finish: up to one race of a
// season, or in a row of seasons.
#include "standings/race_places.h"

#include <vector>

namespace circuidex::charts {

struct PlaceCounts {
    ByPlace<int, gridPlaces> grid;
    ByPlace<int, classifiedPlaces> finish;

    void add(const PlaceCounts &more);
};

// Adds the places that a driver held in the first so many slots of the calendar. The empty name is nobody's.
void addPlaces(PlaceCounts &counts, const standings::SeasonPlaces &races, std::string_view driver, int count);

// Whose places are counted: a driver's by his name, or those of all drivers whom the season's numbers 0 to 27 have
// under a team, each once for each of his numbers.
enum class Counted { driver, team };

std::vector<std::string> driversCounted(const Season &season, Counted who, std::string_view name);

// In the first so many slots of a season. Absent for a team that no number of the season has.
std::optional<PlaceCounts> placeCounts(const Season &season, Counted who, std::string_view name, int count);

// A driver's, from the newest year down to the oldest; the newest one counts in any case.
PlaceCounts placeCountsOver(const Store &store, std::string_view driver, const std::string &newest,
                            const std::string &oldest);

// The races of a season in which a driver held a place, in the order of the calendar.
std::vector<std::string> racesHeld(const standings::SeasonPlaces &races, standings::Stage stage, int place,
                                   std::string_view driver);

// The slots that come before the first one without a winner, 0 to 21.
int racesRun(const Season &season);

// The slots that a number typed by the user asks for; none for a text that is no number.
int slotsAsked(std::string_view number, const Numbers &numbers);

}
