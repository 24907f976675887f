// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What the user sets for the program itself: the colour of the title bars, the picture that it opens with, and whether
// the display takes the mode that the screens are made for.
#include "store/dialogs.h"
#include "store/season.h"

namespace circuidex::results {

std::string chosenSkin(const Store &store); // the word for its colour; empty without a choice
void keepSkin(Store &store, std::string_view couleur);

std::string openingPicture(const Store &store); // path; empty: the program's own
// Asks for another one; cancelling goes back to the program's own.
void chooseOpeningPicture(Store &store, Dialogs &dialogs);

// The mode that the display had when the program started, in pixels and bits of a pixel, as the season keeps it. Absent
// for what is no mode.
struct SavedDisplay {
    int width, height, depth;
};
std::optional<SavedDisplay> savedDisplay(const Season &season);
void saveDisplay(const WritableSeason &season, const SavedDisplay &display);

// Whether the display takes the mode that the screens are made for, as long as the program runs.
bool adaptsDisplay(const Season &season);
void setAdaptsDisplay(const WritableSeason &season, bool on);

}
