#pragma once
// Copies of all data files as they were before the first write of a run, one folder a run:
// "Sauvegardes/2026-11-22_2145/f12005.ini". The ten newest runs are kept. Only text is copied, so that what stands
// there is worth restoring; the user restores by copying a file back (docs/restoring.md). A file that is unchanged
// since the run before takes no room again: its copy gets a second name. It isn't read either, so many old seasons cost
// next to nothing.
#include <optional>
#include <string>
#include <string_view>

namespace circuidex::backups {

inline constexpr std::size_t runsKept = 10;
inline constexpr std::string_view folderName = "Sauvegardes";

// Copies the data files of a program folder. A disk without room keeps what it has: the copies of this run go again
// then.
void make(const std::string &folder);

struct Copy {
    std::string path;
    std::string when; // "22/11/2026 à 21:45", in local time
};

// The newest copy of a data file ("f12005.ini", "Année") that is text and not empty.
std::optional<Copy> newestGood(const std::string &folder, const std::string &name);

// "2026-11-22_2145", the present minute in local time, as it stands in names.
std::string minuteNow();

}
