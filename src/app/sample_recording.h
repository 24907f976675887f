#pragma once
// Brings the real seasons of data/ into a program folder by the program's own recording: the drivers with what they
// bring along, the calendar, and race after race.
#include "app/sample_data.h"
#include "results/main_record.h"

namespace circuidex {

// Without points, with one season more than his career has.
void enterSampleDriver(const WritableSeason &season, const SampleDriver &driver, const SampleCareer &career);

void enterSampleCalendar(const WritableSeason &season, const SampleSeason &sample);

// The race of a slot, with the changes of team that happened before it and its grid, into the season that is open.
void recordSampleRace(results::MainRecord &main, const SampleSeason &sample, int slot);

// What stands in the description of a circuit, in French, lines ended by CR LF. It has no comma: each would end a line
// where it is shown, so lengths are whole metres.
std::string sampleDescription(const SampleCircuit &circuit);

// The first four of the championships as the subjects of each chart of one season, as its user would leave it.
void chooseSampleSubjects(const WritableSeason &season);

}
