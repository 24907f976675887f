#pragma once
// Brings a planned season into a program folder by the program's own recording: the drivers with what they bring along,
// the calendar, and race after race. The sample seasons and what comes from public data are made by this one road.
#include "publicdata/season_plan.h"
#include "results/main_record.h"

namespace circuidex::publicdata {

// Without points, with one season more than his career has.
void enterDriver(const WritableSeason &season, const PlannedDriver &driver, const Career &career);

void enterCalendar(const WritableSeason &season, const SeasonPlan &plan);

// The scale's points times a race's share of them.
results::Scale scaleOf(const SeasonPlan &plan, double share, const Numbers &numbers);

// The race of a slot, with the changes of team that happened before it and its grid, into the season that is open. The
// season's own scale stands in it before and after. False when the program refused it or a write was lost.
bool recordRace(results::MainRecord &main, const SeasonPlan &plan, int slot);

// The title of the season for the driver of a slot, in his record and in the archive.
void crown(const WritableSeason &season, int slot);

// What stands in the description of a circuit, in French, lines ended by CR LF. It has no comma: each would end a line
// where it is shown, so lengths are whole metres.
std::string circuitDescription(const CircuitFacts &circuit);

// Where the screen of the circuits looks for it, in the program folder: "Photos/descriptioncircuits/Monaco.txt".
std::string circuitDescriptionFile(const std::string &race);

// The first four of the championships as the subjects of each chart of one season, as its user would leave it.
void chooseChartSubjects(const WritableSeason &season);

}
