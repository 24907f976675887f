// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Walking through Grands Prix and seasons on the main screen, and what the start of the program finds out.
#include "results/main_record.h"

namespace circuidex::results {

// Shows the Grand Prix named in gp, without moving the cursor: result, pictures and film. A name that no result bears
// gives empty fields. The path of a film found beside the program is noted in the season.
void showGrandPrix(MainRecord &main);

// One slot on or back in the calendar of 20, in a circle, and shows the Grand Prix there.
void nextGrandPrix(MainRecord &main);
void previousGrandPrix(MainRecord &main);

// The season after or before; the cursor keeps its place in the calendar. A season that is no year stays.
void nextSeason(MainRecord &main);
void previousSeason(MainRecord &main);

// The season that was typed, at the same place in its calendar.
void showSeason(MainRecord &main);

// After the calendar was changed behind the screen: the slot on show, which bore that name before, under its new one. A
// Grand Prix that was opened by its name stays, and where the name is the old one, all that was typed but the date.
void showCalendarAnew(MainRecord &main, const std::string &nameBefore);

// After drivers were changed behind the screen: their names beside the numbers as they stand.
void showNamesAnew(MainRecord &main);

// The first slot, counted from 0, whose Grand Prix isn't recorded; 20 when all are.
int firstFreeSlot(const Season &season);

// "Nouveau GP": shows the first free slot; in a season with all 20 recorded, the last one.
void goToFirstFreeSlot(MainRecord &main);

// "nogp" of a season: the Grands Prix recorded one behind the other from the first slot, whatever the key held before.
void rebuildNogp(const WritableSeason &season);

// The start on a season: shows the last Grand Prix before the first free slot, refreshes the scale, rebuilds "nogp".
void openOnLastRecorded(MainRecord &main);

// The year marker into the season box; "2005" where there is none. True when there was none: a first start.
bool openMarkedSeason(MainRecord &main);

// Two ways out of a first start: the year marker with the season that the first update opens on, and none, so that the
// next start is a first one again.
void markFirstSeason(Store &store);
void forgetMarkedSeason(MainRecord &main);

}
