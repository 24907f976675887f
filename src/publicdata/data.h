#pragma once
// The championships as F1DB publishes them: what a release says of races, results, grids and standings, with drivers,
// teams, Grands Prix and circuits by their place in the lists below. Names are as published, in UTF-8; points as given.
#include <optional>
#include <string>
#include <vector>

namespace circuidex::publicdata {

struct Driver {
    std::string name;
    std::string birth; // yyyy-mm-dd, empty when not known
    int country = -1; // -1: not known
};

struct Circuit {
    std::string name, place;
};

struct Country {
    std::string id, demonym; // "germany", "German"
};

struct GrandPrix {
    std::string id, name; // "great-britain", "Great Britain"
};

// A driver in the table of a race. One who changed cars stands in it more than once, and two who shared a car both
// stand at its place.
struct Entry {
    int driver = -1, team = -1, engine = -1;
    int order = 0; // in the table, from 1
    std::optional<int> car; // its number
    std::optional<int> place; // absent when not classified
    bool started = false;
    bool shared = false; // the car
    bool fromPits = false; // at the start
    bool pole = false, fastestLap = false;
    double points = 0;
};

struct GridCar {
    int driver = -1;
    int order = 0; // in the table, from 1
    std::optional<int> place; // absent: from the pit lane
};

struct DriverPoints {
    int driver = -1;
    double points = 0;
    bool placed = true; // false: struck from the standings
    bool champion = false;
};

// Engines apart: "Cooper-Climax" and "Cooper-Maserati" are two constructors.
struct TeamPoints {
    int team = -1, engine = -1;
    double points = 0;
    bool placed = true;
    bool champion = false;
};

struct Race {
    int id = 0;
    int year = 0, round = 0; // from 1
    std::string date; // yyyy-mm-dd
    int grandPrix = -1, circuit = -1;
    int length = 0, distance = 0; // metres
    int turns = 0, laps = 0;
    bool clockwise = true;
    bool sprint = false; // one was held beside it
    std::vector<Entry> entries; // in the order of the table
    std::vector<GridCar> grid; // likewise
    std::vector<DriverPoints> sprintPoints; // empty also where the release doesn't say
    std::vector<DriverPoints> standings; // after it
    std::vector<TeamPoints> teamStandings;
};

struct Championship {
    int year = 0;
    std::vector<Race> races; // in their order
    std::vector<DriverPoints> standings; // at its end, best first
    std::vector<TeamPoints> teamStandings; // empty before there was one
};

struct Data {
    std::vector<Driver> drivers;
    std::vector<std::string> teams; // names
    std::vector<GrandPrix> grandsPrix;
    std::vector<Circuit> circuits;
    std::vector<Country> countries;
    std::vector<Championship> championships; // by year

    // Null for a year that isn't told of.
    const Championship *championship(int year) const;
};

}
