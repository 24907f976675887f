#pragma once
// A season as it will be recorded: drivers with their numbers, calendar, scale, changes of team and every race, all in
// the frame of a season file. Where it comes from (the sample's text files, a release of F1DB) doesn't matter here.
#include <array>
#include <string>
#include <vector>

namespace circuidex::publicdata {

struct PlannedDriver {
    int slot = 0; // 1 to 26
    std::string name, team, nationality;
    std::string birth; // dd/mm/yyyy
};

// A driver who changes team: from Grand Prix `gp` on (0 to 19) he drives for `team`.
struct PlannedMove {
    int slot = 0;
    std::string team;
    int gp = 0;
};

struct PlannedRace {
    std::string name;
    std::string date; // dd/mm
    std::string pole;
    std::array<std::string, 26> grid; // by place less one; empty where no car started
    std::array<std::string, 8> finish;
    double share = 1; // of the scale's points that it gave: half a race gave 0.5
    std::string remark;
};

struct SeasonPlan {
    std::string year;
    std::array<std::string, 8> scale; // with a decimal point
    std::vector<PlannedDriver> drivers; // in the order of their slots, which have no gap
    std::vector<PlannedMove> moves;
    std::vector<PlannedRace> races; // the place in the list is the number of the Grand Prix
};

// What a driver brings into a season.
struct Career {
    std::string name;
    int starts = 0, wins = 0, poles = 0, podiums = 0;
    std::string points; // with a decimal point
    int seasons = 0;
    std::string firstSeason; // empty for a driver who hasn't started
    std::vector<std::string> titles; // years, in order
};

// The circuit of a Grand Prix.
struct CircuitFacts {
    std::string race, name, place;
    int length = 0, turns = 0; // of a lap, the length in metres
    std::string year; // of the race that the next two are from
    int laps = 0, distance = 0; // metres
    bool clockwise = true;
};

}
