// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Copies of all data files as they were before the first write of a run, one folder a run:
// "Sauvegardes/2026-11-22_2145/f12005.ini". The ten newest runs are kept, and of older ones each file of which no newer
// run has a copy. Only what is worth restoring is copied; the user restores by copying a file back (docs/restoring.md).
// A file that is unchanged since the run before takes no room again: its copy gets a second name. It isn't read either,
// so many old seasons cost next to nothing.
//
// A set gets its name when it is complete. Which run is newer is told by the number in it, not by the clock, which may
// have been wrong. A "Sauvegardes" that leads out of the program folder is left alone.
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace circuidex::backups {

inline constexpr std::size_t runsKept = 10;
inline constexpr std::string_view folderName = "Sauvegardes";

// What may be wrong with a data file as a whole.
enum class Damage { none, noText, mixedText, emptied };

// Emptied: a key file without any key, or a year marker of no bytes. Another program may have meant it so.
Damage damageOf(std::string_view name, std::string_view bytes);

// The names of the data files in a folder by their name in lower case; of two that differ in case the first.
std::map<std::string, std::string> dataFiles(const std::string &folder);

// Copies the data files of a program folder. A disk without room keeps what it has: the copies of this run go again
// then.
void make(const std::string &folder);

// Copies one data file as it stands, whatever it holds, where it stays until the user deletes it. The path of the copy
// in the program folder, "Sauvegardes/f12006.2026-11-22_2145.ini"; empty when there is no file or no copy can be made.
std::string keep(const std::string &folder, const std::string &name);

struct Copy {
    std::string path;
    std::string when; // "22/11/2026 à 21:45", in local time
};

// The newest copy of a data file ("f12005.ini", "Année") without damage.
std::optional<Copy> newestGood(const std::string &folder, const std::string &name);

// "2026-11-22_2145", the present minute in local time, as it stands in names.
std::string minuteNow();

}
