// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Names as archives and servers give them, before anything is done with them. A name that the program folder takes on
// any system has one form: parts separated by '/', none of them leading out of the folder or meaning a device.
#include <string>
#include <string_view>

namespace circuidex::online {

inline constexpr std::string_view resultsArchive = "miseajour.zip";
inline constexpr std::string_view programArchive = "Circuidex.zip";
inline constexpr std::string_view picturesArchive = "Photos.zip";

// What the extractor keeps for itself in the program folder begins so.
inline constexpr std::string_view ownPrefix = ".circuidex-";

struct CleanName {
    std::string path; // empty for a folder that is the program folder itself
    std::string refusal; // in French, to follow the quoted name; empty for a name that fits
    bool fits() const { return refusal.empty(); }
};

// Backslashes count as slashes, "." and double slashes are dropped.
CleanName cleanName(std::string_view stored);

// Two names with the same fold are one file on a system that doesn't tell case apart.
std::string foldedName(std::string_view path);

// A name for a message: without control characters, in quotes, cut when long.
std::string shownName(std::string_view stored);

// What an archive without a signature may bring, by a clean path: seasons, the archive of records, the year marker,
// texts, pictures and films. Never what some system would run or the program takes its servers from.
bool isData(std::string_view path);

// True when a replaced file is copied to the user's copies before: data files, texts and settings in the program folder
// itself.
bool isKept(std::string_view path);

// One name, no path, that ends as films do: all that a server's list of videos may name.
bool isFilmName(std::string_view name);

}
