// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The fields in which a screen shows one Grand Prix: its name, the first eight, the pole-sitter and the remark.
#include "results/scale.h"
#include "store/field.h"
#include "store/season.h"

#include <array>
#include <string>
#include <vector>

namespace circuidex::results {

struct RaceFields {
    Field gp;                                        // the name of the Grand Prix, the key of its results
    Field dat;                                       // its date, free text
    ByPlace<Field, classifiedPlaces> Text1to8;    // driver numbers of places 1 to 8, empty for nobody
    ByPlace<Field, classifiedPlaces> Text31to38;  // their names
    Field Text39;                                    // the number of the driver in pole position
    Field Text41;                                    // the remark

    Field &number(int place) { return Text1to8[place]; }
    Field &name(int place) { return Text31to38[place]; }
};

// Fills the fields with what the season holds for the Grand Prix named in gp; the date is left alone.
void showResult(RaceFields &fields, const Season &season);

// A race's remark and the number of its pole-sitter. An empty one leaves no key behind where there was none.
void storeRemark(const WritableSeason &season, std::string_view gpName, const std::string &remark);
void storePole(const WritableSeason &season, std::string_view gpName, const std::string &driver);

// Season steps that a recording counts in one direction and a cancellation in the other.
enum class Count { add, takeBack };

// Points of the eight places to the teams' season totals. A team with two drivers among them is credited twice.
void countTeams(RaceFields &fields, const WritableSeason &season, const Scale &scale, Count count);

// The pole to the career of the pole-sitter.
void countPole(RaceFields &fields, const WritableSeason &season, Count count);

// Points, win and podiums to the drivers; shows their names. A counter that is missing stays missing.
void countDrivers(RaceFields &fields, const WritableSeason &season, const Scale &scale, Count count);

// One Grand Prix more or less for every driver of the season, whether he started or not.
void countStarts(const WritableSeason &season, Count count);

// The teams that the season's drivers name, each once, in the order of their first driver. Drivers entered when all 26
// numbers were taken stand behind them and count here.
std::vector<std::string> teams(const Season &season);

// What finishers without a team left behind, back to 0.
void clearTeamlessPoints(const WritableSeason &season);

// Puts one text into every team's points of a calendar slot.
void resetTeamPoints(const WritableSeason &season, std::string_view slot, std::string_view text);

}
