#pragma once
// The second reading: a season as its user entered it, beside the same season in the data, race by race. What the frame
// of a season file can't hold is no difference; where a total differs from the official one, the reasons make up the
// difference to the last point.
#include "publicdata/official_points.h"
#include "store/season.h"

namespace circuidex::publicdata {

enum class DifferenceKind {
    driverName, // of the driver in `slot`
    driverMissing, // the season hasn't got him
    raceName,
    raceMissing, // no slot of the calendar holds it, or it isn't recorded yet
    raceUnknown, // the data has no such race
    date,
    pole,
    place, // of the first eight
    grid, // one place of it
    wholeGrid, // the season has none of that race
    driverTotal,
    teamTotal
};

struct Difference {
    DifferenceKind kind{};
    std::optional<int> gp; // the slot in the season's calendar, where there is one
    int place = 0; // on the grid or at the finish, from 1
    int slot = 0; // the driver's
    std::string subject; // "Monaco", or the driver or team
    std::string held, published; // names, a date or points; drivers under the names that the season gives them
    std::vector<Part> parts; // of a total: what makes up the difference, with slots of the season's calendar
    bool correctable = false;

    std::string sentence() const; // in French, "Monaco, 3e : Rubens Barrichello au lieu de Kimi Räikkönen"
};

struct Comparison {
    std::string year;
    std::vector<Difference> differences; // names, then race by race, then totals
    // How the data's plan lies in the season: its drivers by slot less one, its races by slot.
    PlannedSeason plan;
    std::vector<std::optional<int>> numbers, gps;

    // The driver's name as the season gives it, of one as the plan does; as the plan does for one that it hasn't got.
    std::string nameInSeason(const Season &season, const std::string &planned) const;
};

// Absent for a year that the data doesn't tell of.
std::optional<Comparison> compareSeason(const Season &season, const Data &data);

// What part of the scale's points a recorded race was counted with: 1, or 0.5 where half was given. By the points of
// its slot that the season keeps for its teams and those of the plan.
double shareCounted(const Season &season, const SeasonPlan &plan, int gp);

}
