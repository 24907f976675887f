#pragma once
// The notes of a planned season: one sentence in French for each kind of thing that its frame can't hold as it was.
#include "publicdata/planning.h"

namespace circuidex::publicdata {

std::vector<Note> notesOn(const Data &data, const Championship &championship, const PlannedSeason &plan);

}
