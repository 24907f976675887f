// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The next race as the user imagines it. It is recorded in the season's file like a real one, so that every screen
// shows what it would change, and is taken back whole.
//
// "f1simulation.ini" names the simulated race from before its first write until after its last one. The season takes
// the start and the stop as a whole each, so a kill leaves a simulation that runs, and can be stopped, or none.
#include "results/main_record.h"

#include <span>

namespace circuidex::results {

// A driver's number, and the points that he is to score: one of the scale, as typed.
struct SimulatedScore {
    std::string driver, points;
};

struct Simulation {
    std::string season, slot, gp;
    bool recorded = true; // false: the slot took no result, for want of a name or because it holds some of one
};

// The simulation that stands in a season's file, whoever began it; absent when there is none.
std::optional<Simulation> runningSimulation(const Store &store);

// Simulates the first race without a winner. Of two drivers with the same points the later one gets the place; points
// that aren't in the scale place nobody. Absent, with a message, in a season without such a race or that is no year, and,
// with a status, where the files can't keep it all; the season then stays as it was.
std::optional<Simulation> startSimulation(MainRecord &main, std::span<const SimulatedScore> scores);

// Amends the race to an empty one: its slot keeps name and date, and all counters are as before. A result that the user
// entered there meanwhile goes too; the season is copied before. The main screen stays on what it shows. False, with a
// status, where the files can't keep it all; the simulation then goes on.
bool stopSimulation(MainRecord &main, const Simulation &simulation);

// At the start of the program: forgets a simulation that a kill ended before the season took it, or after.
void forgetUnrecorded(Store &store);

// A line in French on the simulation that runs; empty when there is none.
std::string simulationNotice(const Store &store);

}
