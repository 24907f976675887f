#pragma once
// What a championship becomes in the frame of a season file: 20 races, 26 drivers, the first eight, one scale. Pure: a
// release and a year give a plan and the notes on all that doesn't fit, before anything is written.
#include "publicdata/data.h"
#include "publicdata/season_plan.h"

#include <map>

namespace circuidex::publicdata {

// Why something of a championship is written otherwise than it was, or not at all.
enum class Misfit {
    raceLeftOut, // the 21st race and those behind it
    driverLeftOut, // the 27th driver and those behind him
    scorerLeftOut, // one of them with points, a pole or a place in the first eight
    teamsUnseen, // more teams than the tables show
    beyondEighth, // points of the ninth place and behind
    sprint,
    fastestLap,
    sharedCar,
    indianapolis, // the 500 miles counted for the title
    reducedPoints, // of a race that gave half or double
    struckOff, // a driver or a team without place or points in the standings
    bestResults, // only the best ones counted
    constructorRules, // one car a race counted, or a race didn't, or there was no such title
    spelling, // a letter that the data files don't have
    archiveFull, // no room for the winner of a new Grand Prix
};

struct Note {
    Misfit kind{};
    std::string sentence; // in French
};

struct PlannedSeason {
    SeasonPlan season;
    std::vector<Career> careers; // before the season, of its drivers, in the order of their slots
    std::vector<CircuitFacts> circuits; // of its races
    std::string champion; // empty when he isn't among the drivers, or before the title was won
    std::vector<Note> notes; // in the order of Misfit
    std::vector<int> drivers; // which of the release's, by slot less one

    std::optional<int> slotOf(int driver) const;
};

// Absent for a year that the release doesn't tell of.
std::optional<PlannedSeason> planSeason(const Data &data, int year);

// The points that a place gave in most races of the championship, from the first place on.
std::vector<double> pointsByPlace(const Championship &championship);

// How a race's points stand to those of most races: 1, or 0.5 where half was given.
double shareOf(const Race &race, const std::vector<double> &byPlace);

// What a driver scored in the sprint beside a race, where the release says so, or by what the standings grew more than
// the race gave. By driver, without those who scored nothing.
std::map<int, double> sprintPointsOf(const Championship &championship, std::size_t race);

// Totals from all races of the release before that year, of all drivers.
std::vector<Career> careersBefore(const Data &data, int year);

// An all-time list of the release: the twenty best, best first.
struct AllTimeEntry {
    std::string name;
    double figure = 0;
};
struct AllTime {
    std::vector<AllTimeEntry> poles, wins, points;
};
AllTime allTimeOf(const Data &data);

// Of all races and all championships of the release, in order.
struct PastWinner {
    std::string year, race, name;
};
std::vector<PastWinner> winnersOf(const Data &data);
std::vector<PastWinner> championsOf(const Data &data); // without races

}
