#pragma once
// The real results of data/, as text files give them: seasons race by race, the careers before the first of them, past
// champions and past winners. data/README.md describes the lines. Drivers are given by their names; a season's own
// results name only drivers of its list, which the readers check along with every number, date and place.
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace circuidex {

struct SampleDriver {
    int slot = 0; // 1 to 26
    std::string name, team, nationality;
    std::string birth; // dd/mm/yyyy
};

// A driver who changes team: from Grand Prix `gp` on (0 to 19) he drives for `team`.
struct SampleMove {
    int slot = 0;
    std::string team;
    int gp = 0;
};

struct SampleRace {
    std::string name;
    std::string date; // dd/mm
    std::string pole;
    std::array<std::string, 26> grid; // by place less one; empty where no car started
    std::array<std::string, 8> finish;
};

struct SampleSeason {
    std::string year;
    std::array<std::string, 8> scale;
    std::vector<SampleDriver> drivers; // in the order of their slots, which have no gap
    std::vector<SampleMove> moves;
    std::vector<SampleRace> races; // the place in the list is the number of the Grand Prix
};

// Totals before the first season of data/.
struct SampleCareer {
    std::string name;
    int starts = 0, wins = 0, poles = 0, podiums = 0;
    std::string points;
    int seasons = 0;
    std::string firstSeason; // empty for a driver who hasn't started
    std::vector<std::string> titles; // years, in order
};

struct SampleChampion {
    std::string year, name, team;
    std::string points; // with a decimal point
    std::string constructors; // champion team, empty before there was one
};

// A row of an all-time list: "poles", "victoires" or "points".
struct SampleRecord {
    std::string list, name;
    int figure = 0;
};

struct SampleWin {
    std::string year;
    int gp = 0; // from 0
    std::string race, name, team;
    std::string date; // dd/mm
    std::string pole;
};

// The circuit of a Grand Prix.
struct SampleCircuit {
    std::string race, name, place;
    int length = 0, turns = 0; // of a lap, the length in metres
    std::string year; // of the race that the next two are from
    int laps = 0, distance = 0; // metres
    bool clockwise = true;
};

// Each reads the UTF-8 text of one file. On malformed text nothing comes back, and `error` says what is wrong as
// "line 12: ...".
std::optional<SampleSeason> parseSampleSeason(std::string_view text, std::string &error);
std::optional<std::vector<SampleCareer>> parseSampleCareers(std::string_view text, std::string &error);
std::optional<std::vector<SampleChampion>> parseSampleChampions(std::string_view text, std::string &error);
std::optional<std::vector<SampleRecord>> parseSampleRecords(std::string_view text, std::string &error);
std::optional<std::vector<SampleWin>> parseSampleWins(std::string_view text, std::string &error);
std::optional<std::vector<SampleCircuit>> parseSampleCircuits(std::string_view text, std::string &error);

}
