// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/backups.h"

#include "store/disk.h"
#include "store/text.h"

#include <algorithm>
#include <array>
#include <compare>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <span>
#include <vector>

#include <unistd.h>

namespace circuidex::backups {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view minuteForm = "dddd-dd-dd_dddd"; // d: a digit
constexpr std::string_view unfinished = ".en-cours-"; // a set of copies that isn't complete
constexpr std::string_view rankFile = ".rang"; // in a set of copies: how many were made before it

// Names in a folder, sorted; none of a folder that can't be listed.
std::vector<std::string> namesIn(const fs::path &folder)
{
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error))
        names.push_back(at->path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

constexpr std::string_view yearMarker = "année";

bool isDataFile(const std::string &name)
{
    const std::string lower = folded(name);
    return (lower.starts_with("f1") && lower.ends_with(".ini")) || lower == yearMarker;
}

// The folder of a run: the minute, and a number when it isn't the first one of that minute.
bool isRun(std::string_view name)
{
    if (name.size() < minuteForm.size())
        return false;
    for (std::size_t i = 0; i < minuteForm.size(); ++i)
        if (minuteForm[i] == 'd' ? name[i] < '0' || name[i] > '9' : name[i] != minuteForm[i])
            return false;
    return name.size() == minuteForm.size() || (name.size() == minuteForm.size() + 3 && name[minuteForm.size()] == '-');
}

// Empty when it leads elsewhere.
std::string backupFolder(const std::string &folder)
{
    const std::string backups = std::string(folder).append("/").append(folderName);
    return disk::inside(folder, disk::target(backups)) ? backups : std::string();
}

std::string in(const std::string &place, std::string_view name)
{
    return std::string(place).append("/").append(name);
}

bool isLink(const std::string &path)
{
    return disk::target(path) != path;
}

// 0 for a set that somebody else laid down.
unsigned long rankOf(const std::string &run)
{
    std::string text;
    disk::read(in(run, rankFile), text);
    return std::strtoul(text.c_str(), nullptr, 10);
}

struct Run {
    unsigned long rank;
    std::string name;
    auto operator<=>(const Run &) const = default;
};

// Oldest first. The clock may have been wrong, so the name counts among those without a rank only.
std::vector<Run> runsIn(const std::string &backups)
{
    std::vector<Run> runs;
    for (const std::string &name : namesIn(backups))
        if (isRun(name) && !isLink(in(backups, name)))
            runs.push_back({rankOf(in(backups, name)), name});
    std::sort(runs.begin(), runs.end());
    return runs;
}

void remove(const std::string &run)
{
    std::error_code ignored; // what can't be removed stays
    fs::remove_all(run, ignored);
}

// What a killed program left of its copies goes; then an empty folder for those of this run, or none.
std::string makeUnfinished(const std::string &backups)
{
    for (const std::string &name : namesIn(backups))
        if (name.starts_with(unfinished))
            remove(in(backups, name));
    const std::string run = in(backups, unfinished) + std::to_string(::getpid());
    return disk::makeFolder(backups) && disk::makeNewFolder(run) ? run : std::string();
}

// Gives the complete set its rank and its name, as the newest of the runs.
bool finish(const std::string &backups, std::vector<Run> &runs, const std::string &run)
{
    const std::string path = disk::freeName(in(backups, minuteNow()), {});
    const unsigned long rank = runs.empty() ? 1 : runs.back().rank + 1;
    runs.push_back({rank, path.substr(path.find_last_of('/') + 1)});
    disk::Stamp after;
    return !path.empty() && disk::replace(in(run, rankFile), std::to_string(rank), false, after) &&
        disk::calls.rename(run.c_str(), path.c_str()) == 0;
}

// Of a run that isn't kept: the files of which a newer run has a copy, and its folder when that was all.
void removeSuperseded(const std::string &backups, const std::string &run, std::span<const Run> newer)
{
    bool empty = true;
    for (const std::string &name : namesIn(in(backups, run))) {
        const auto hasCopy = [&](const Run &each) {
            const disk::Stamp stamp = disk::look(in(in(backups, each.name), name));
            return stamp.kind == disk::Kind::file && stamp.size > 0;
        };
        if (!isDataFile(name))
            continue;
        if (std::any_of(newer.rbegin(), newer.rend(), hasCopy))
            remove(in(in(backups, run), name));
        else
            empty = false;
    }
    if (empty)
        remove(in(backups, run));
}

// One file into the folder of a run; false when there is no room. A copy bears the time of its file, so that the next
// run sees at a glance whether it is still the same. A file that changed a moment ago may change again under the same
// time, so its copy bears its own.
bool copy(const std::string &folder, const std::string &name, const std::string &lastRun, const std::string &run)
{
    const disk::Stamp stamp = disk::look(in(folder, name));
    const disk::Stamp known = lastRun.empty() ? disk::Stamp() : disk::look(in(lastRun, name));
    const bool same = known.kind == disk::Kind::file && known.size == stamp.size && known.modified == stamp.modified;
    if (same && disk::share(in(lastRun, name), in(run, name)))
        return true;
    std::string bytes;
    if (disk::read(in(folder, name), bytes).kind != disk::Kind::file || damageOf(name, bytes) != Damage::none)
        return true; // nothing worth a copy
    disk::Stamp after;
    if (!disk::replace(in(run, name), bytes, false, after))
        return false;
    if (!disk::young(stamp))
        disk::setModified(in(run, name), stamp.modified);
    return true;
}

}

std::string minuteNow()
{
    const std::time_t now = std::time(nullptr);
    std::tm local = {};
    ::localtime_r(&now, &local);
    std::array<char, 32> text = {};
    return std::string(text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d_%H%M", &local));
}

Damage damageOf(std::string_view name, std::string_view bytes)
{
    if (!isText(bytes))
        return Damage::noText;
    if (folded(name) == yearMarker)
        return bytes.empty() ? Damage::emptied : Damage::none;
    if (bytes.find('=') == bytes.npos)
        return Damage::emptied;
    return codingOf(bytes) == Coding::mixed ? Damage::mixedText : Damage::none;
}

std::map<std::string, std::string> dataFiles(const std::string &folder)
{
    std::map<std::string, std::string> files;
    for (const std::string &name : namesIn(folder))
        if (isDataFile(name))
            files.emplace(folded(name), name);
    return files;
}

void make(const std::string &folder)
{
    const std::string backups = backupFolder(folder);
    std::vector<std::string> names = namesIn(folder);
    std::erase_if(names, [](const std::string &name) { return !isDataFile(name); });
    if (backups.empty() || names.empty())
        return;
    std::vector<Run> runs = runsIn(backups);
    const std::string last = runs.empty() ? std::string() : in(backups, runs.back().name);
    const std::string run = makeUnfinished(backups);
    if (run.empty())
        return;
    const bool whole =
        std::all_of(names.begin(), names.end(), [&](const std::string &name) { return copy(folder, name, last, run); });
    if (!whole || namesIn(run).empty() || !finish(backups, runs, run))
        return remove(run);
    for (std::size_t i = 0; i + runsKept < runs.size(); ++i)
        removeSuperseded(backups, runs[i].name, std::span(runs).subspan(i + 1));
}

std::string keep(const std::string &folder, const std::string &name)
{
    const std::string backups = backupFolder(folder);
    const std::size_t stem = folded(name).ends_with(".ini") ? name.size() - 4 : name.size();
    std::string bytes;
    if (backups.empty() || disk::read(in(folder, name), bytes).kind != disk::Kind::file || !disk::makeFolder(backups))
        return {};
    const std::string path = disk::freeName(in(backups, name.substr(0, stem)) + "." + minuteNow(), name.substr(stem));
    disk::Stamp after;
    const bool kept =
        !path.empty() && disk::replace(path, bytes, false, after) && disk::syncFile(path) && disk::syncFolder(backups);
    return kept ? path.substr(folder.size() + 1) : std::string();
}

std::optional<Copy> newestGood(const std::string &folder, const std::string &name)
{
    const std::string backups = backupFolder(folder);
    const std::vector<Run> runs = runsIn(backups);
    std::string bytes;
    for (auto run = runs.rbegin(); run != runs.rend(); ++run) {
        const std::string path = in(in(backups, run->name), name);
        if (disk::read(path, bytes).kind != disk::Kind::file || damageOf(name, bytes) != Damage::none)
            continue;
        const auto part = [&run](std::size_t at, std::size_t size) { return run->name.substr(at, size); };
        return Copy{path, part(8, 2) + "/" + part(5, 2) + "/" + part(0, 4) + " à " + part(11, 2) + ":" + part(13, 2)};
    }
    return std::nullopt;
}

}
