// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The other end of the update: the archives and the list of videos that a server holds, made from folders and a text.
#include "online/signature.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace circuidex::online {

struct Edition {
    std::string archive; // "miseajour.zip"
    std::uint64_t number = 0;
    std::optional<SecretKey> key; // without one the archive is made unsigned
};

// The present time as a number that rises: 20261123104500, in universal time.
std::uint64_t numberNow();

// Packs all files below the folder, with their manifest, to the archive of that name in `place`. What the extractor
// would refuse is not made. What went wrong, in French; empty when the archive stands there whole.
std::string pack(const std::filesystem::path &folder, const Edition &edition, const std::filesystem::path &place);

struct VideoList {
    std::string bytes; // of "f1galerievideo.ini"
    std::string fault; // in French; empty for a list that fits
};

// Of lines in UTF-8, "Monaco2005.avi | Grand Prix de Monaco 2005", the newest first, at most twenty. Blank lines and
// those that begin with '#' don't count.
VideoList videoList(std::string_view lines);

}
