// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Taking a Grand Prix back and correcting it. Totals are kept by adding, so a correction first subtracts exactly what was
// added, at the scale of the moment, and then records anew. The archive is left alone by a cancellation.
#include "results/recording.h"

namespace circuidex::results {

// "Supprimer le GP séléctionné": cancels the Grand Prix in the cursor's slot, whatever was typed on the screen. Its
// name and date stay in the calendar, its grid goes. A slot without a result stays as it is; false then. The status
// says when a write was lost.
bool cancelGrandPrix(MainRecord &main);

// Takes the stored result of a calendar slot out of all totals; grid and archive stay.
void subtractResult(const WritableSeason &season, std::string_view slot, const Scale &scale);

enum class Amendment { byUser, byProgram };

// "Enregistrer les modifications du GP séléctionné": the cursor's slot takes the fields as they stand, under the name
// in gp. By the user, a slot without a result is recorded; the program's own amendments don't make up for its missing
// start. Where the name is that of another race with a result, which goes, the season is copied before. Refuses what a
// recording refuses by the name. The stored result is subtracted at the scale given, or at that of the moment.
Recording amendGrandPrix(MainRecord &main, Amendment amendment, const std::optional<Scale> &countedAt = {});

}
