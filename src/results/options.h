#pragma once
// What the user sets for the program itself: the colour of the title bars, the picture that it opens with, and whether
// the display takes the mode that the screens are made for.
#include "store/season.h"

namespace circuidex::results {

std::string chosenSkin(const Store &store); // the word for its colour; empty without a choice
void keepSkin(Store &store, std::string_view couleur);

std::string openingPicture(const Store &store); // path; empty: the program's own
void keepOpeningPicture(Store &store, std::string_view path);

// The mode that the display had when the program started, in pixels and bits of a pixel, as the season keeps it. Absent
// when the user didn't ask for the change, and for what is no mode.
struct SavedDisplay {
    int width, height, depth;
};
std::optional<SavedDisplay> displayToRestore(const Season &season);

}
