// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The names that the user has met, offered where one is typed: of the season, of the other seasons of the folder and of
// the archive. A name is the key of all results, so one letter more or less makes another race or another driver.
#include "store/season.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace circuidex::results {

struct KnownNames {
    std::vector<std::string> grandsPrix, drivers, teams; // each name once
};

// The season's own names first, then those of the other seasons, the nearest year first, then the archive's. Reads
// every season near enough to matter: once for a screen, when a name is first typed there.
KnownNames knownNames(const Season &season);

// The names of the season's drivers in the order of their numbers.
std::vector<std::string> driversOf(const Season &season);

// How a name is heard: small letters without accents, and one blank for whatever separates its words.
std::string heard(std::string_view name);

// The known name that was probably meant, "Bahreïn" by "Bahrein" or "Bharein". Absent when the name is known as it is,
// when nothing is near enough or two names are equally near. Another figure in a name is another name, no slip.
std::optional<std::string> knownSpelling(const std::vector<std::string> &known, std::string_view typed);

}
