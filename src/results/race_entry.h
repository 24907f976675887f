// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What was typed of the race on show and isn't stored: numbers of the places and of the pole-sitter, the remark, and
// the date as long as the race isn't recorded. The name alone is no entry: typing it is how a race is opened.
#include "results/main_record.h"

namespace circuidex::results {

// The fields now hold what the season holds of the race named in gp.
void raceLoaded(MainRecord &main);
void raceStored(MainRecord &main);

bool unsavedRace(const MainRecord &main);
bool recordedRace(const MainRecord &main); // the one on show, whatever name is being typed

// Before the user goes to another race or season.
void leaveRace(MainRecord &main);

// The race on show again, with what was typed.
void resumeRace(MainRecord &main, const LeftEntry &left);

}
