// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A season beside the three before it: the points of its teams, of its drivers, or of one of them race by race, and how
// far each season is from one taken as the reference. Seasons are matched by the place of a race in the calendar,
// whatever circuit that was, drivers and teams by their names. Each season's points follow its own scale, as its file
// holds it; a season without a file has none.
#include "comparisons/season_heads.h"
#include "standings/tone.h"
#include "store/season.h"

#include <array>
#include <string>
#include <vector>

namespace circuidex::comparisons {

inline constexpr std::size_t currentSeason = seasonsCompared - 1; // the last one

using Seasons = std::array<Season, seasonsCompared>;
Seasons seasonsUpTo(const Store &store, std::string_view year); // oldest first

inline constexpr int racesSearched = 22; // slots 0 to 21 of the calendar: two more than it has

// What one team or driver scored in each race, by slot; 0 where nothing is known of it. A driver at two places of one
// race takes the points of both.
std::array<double, racesSearched> racePoints(const Season &season, SubjectKind kind, std::string_view subject);

// Points as text, by season; "-" for a race that the season hasn't held, empty in a row without a head.
using Points = std::array<std::string, seasonsCompared>;
inline constexpr std::string_view notHeld = "-";

struct SeasonRow {
    std::string head; // team, driver or number of the race; empty for a row without
    Points points;
};

// After the first races of each season, counted by their places in the calendar: the teams on offer in the current
// season by what their races brought, of which the first always counts, and its drivers 1 to 26 by their finishes.
std::vector<SeasonRow> teamField(const Seasons &seasons, int races);
std::vector<SeasonRow> driverField(const Seasons &seasons, int races);

// The races 1 to 20 of one team or driver, each by itself or all up to it. A race counts as held once the team's own
// points are noted for it; for a driver it is the team of driver 1 that tells.
enum class Sum { ofRace, upToRace };
std::vector<SeasonRow> teamRaces(const Seasons &seasons, std::string_view team, Sum sum);
// A driver at two places of one race takes the points of both, in the sum those of the better one.
std::vector<SeasonRow> driverRaces(const Seasons &seasons, std::string_view driver, Sum sum);

// The reference by its own points, "12 pts"; of each other season what the reference has more, "+ 3", or less, "- 3".
// What isn't held can't be compared, and nothing can with a reference that isn't.
using Differences = std::array<standings::Toned, seasonsCompared>;
Differences differences(const Points &points, std::size_t reference, const Numbers &numbers);

// The slot of the first race without a result, and that of a name; 21 when there is none.
int firstRaceToCome(const Season &season);
int slotSearched(const Season &season, std::string_view gpName);

}
