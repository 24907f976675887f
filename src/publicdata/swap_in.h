#pragma once
// Puts files that were made in a folder of their own into the program folder as one: a kill leaves all of them or none,
// or the next start ends the work. Until all are on the disk nothing is moved; from then on a list of what remains to
// be moved stands in that folder.
#include "store/store.h"

#include <string>
#include <vector>

namespace circuidex::publicdata {

inline constexpr std::string_view importFolder = ".circuidex-import"; // in the program folder

struct SwapResult {
    std::string failure; // in French; empty when all is in its place
    std::vector<std::string> copies; // of what was replaced, in "Sauvegardes"
};

// The files stand in the import folder under the paths that they get in the program folder. What they replace is copied
// before. All of it is one action of the user's, under this name.
SwapResult swapIn(Store &store, std::string_view action, const std::vector<std::string> &files);

// At the start of the program, before the history is opened, and by whoever works on the folder without it: ends the
// moves of an import that was killed while it swapped its files in, takes back one that was killed before. The caller
// holds the folder's lock. True when moves were ended.
bool finishImport(const std::filesystem::path &folder);

}
