#pragma once
// Imports seasons from a release of public data without a window, for a terminal or a script (docs/public_data.md).
#include "store/number.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace circuidex {

struct ImportOrder {
    std::string release; // the archive's path
    std::vector<std::string> years; // as typed
    bool replace = false; // also seasons that exist
};

// Tells on `say`, line by line in French, what doesn't fit, what differs from a season that exists, and what is
// recorded. A sentence in French when nothing was imported; empty when all was.
std::string importSeasons(const std::filesystem::path &folder, Numbers numbers, const ImportOrder &order,
                          const std::function<void(const std::string &)> &say);

}
