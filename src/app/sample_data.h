#pragma once
// The real results of data/, as text files give them: seasons race by race, the careers before the first of them, past
// champions and past winners. data/README.md describes the lines. Drivers are given by their names; a season's own
// results name only drivers of its list, which the readers check along with every number, date and place.
#include "publicdata/season_plan.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace circuidex {

using SampleDriver = publicdata::PlannedDriver;
using SampleMove = publicdata::PlannedMove;
using SampleRace = publicdata::PlannedRace;
using SampleSeason = publicdata::SeasonPlan;
using SampleCareer = publicdata::Career; // totals before the first season of data/
using SampleCircuit = publicdata::CircuitFacts;

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

// Each reads the UTF-8 text of one file. On malformed text nothing comes back, and `error` says what is wrong as
// "line 12: ...".
std::optional<SampleSeason> parseSampleSeason(std::string_view text, std::string &error);
std::optional<std::vector<SampleCareer>> parseSampleCareers(std::string_view text, std::string &error);
std::optional<std::vector<SampleChampion>> parseSampleChampions(std::string_view text, std::string &error);
std::optional<std::vector<SampleRecord>> parseSampleRecords(std::string_view text, std::string &error);
std::optional<std::vector<SampleWin>> parseSampleWins(std::string_view text, std::string &error);
std::optional<std::vector<SampleCircuit>> parseSampleCircuits(std::string_view text, std::string &error);

}
