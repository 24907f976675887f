#pragma once
// What the user sets for the program itself: the colour of the title bars and the picture that it opens with.
#include "store/store.h"

namespace circuidex::results {

std::string chosenSkin(const Store &store); // the word for its colour; empty without a choice
void keepSkin(Store &store, std::string_view couleur);

std::string openingPicture(const Store &store); // path; empty: the program's own
void keepOpeningPicture(Store &store, std::string_view path);

}
