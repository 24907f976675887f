#pragma once
// Corrects one difference of a second reading by the program's own amendment, as if the user had typed what the data
// says.
#include "publicdata/comparison.h"
#include "store/dialogs.h"

namespace circuidex::publicdata {

// The season takes the correction as a whole or not at all. Empty when it is done; else a sentence in French.
std::string correct(Store &store, const Comparison &comparison, const Difference &difference);

}
