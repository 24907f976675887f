#pragma once
// From the points that a planned season counts to the official ones: what each rule of the championship added or took.
// A remainder that no rule of the data explains is told as such.
#include "publicdata/planning.h"

namespace circuidex::publicdata {

enum class Reason {
    raceLeftOut, // of the 21st race and behind
    driverLeftOut,
    beyondEighth,
    fastestLap,
    sharedCar, // two drivers at one place
    sprint,
    bestResults, // only the best ones counted
    bestCar, // of a team only the best placed car of a race counted
    raceNotCounted, // for the constructors
    noConstructors, // there was no such title
    struckOff,
    otherResult, // the season has another result of that race
    otherShare, // the season gave a race's points whole, or in part, where the data doesn't
    otherTotal, // the total isn't that of the recorded results
    unknownDriver, // the season hasn't got him
    unexplained
};

// In French, without a full stop: "points au-delà de la huitième place".
std::string inFrench(Reason reason);

// Points that are official and not in the season, negative for those that are in the season only.
struct Part {
    Reason reason = Reason::unexplained;
    double points = 0;
    std::optional<int> gp; // the slot of the race, where it lies in one
};

struct Account {
    std::string name; // as in the plan
    std::vector<double> byRace; // that the plan counts, by slot
    double planned = 0; // sum of them
    double official = 0; // planned and all parts
    bool placed = true; // false: without a place in the standings
    std::vector<Part> parts;
};

struct Accounts {
    std::vector<Account> drivers; // in the order of their slots
    std::vector<Account> teams; // that the plan names, and those with points that it doesn't
};

Accounts accountsOf(const Data &data, const Championship &championship, const PlannedSeason &plan);

// Only the best results counted: so many, or so many of the first races and so many of the others.
struct BestResults {
    std::size_t first = 0; // results that count of the first `split` races
    std::size_t split = 0; // races; 0: of all
    std::size_t second = 0; // of the races behind
};

// The rule that makes the official points of all drivers out of their results; absent when all results counted, or when
// no such rule does.
std::optional<BestResults> bestResultsOf(const Championship &championship);

}
