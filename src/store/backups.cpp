#include "store/backups.h"

#include "store/disk.h"
#include "store/text.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <filesystem>
#include <vector>

namespace circuidex::backups {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view minuteForm = "dddd-dd-dd_dddd"; // d: a digit

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

bool isDataFile(std::string_view name)
{
    return (name.starts_with("f1") && name.ends_with(".ini")) || name == "Année";
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

std::string backupFolder(const std::string &folder)
{
    return std::string(folder).append("/").append(folderName);
}

// Oldest first.
std::vector<std::string> runsIn(const std::string &backups)
{
    std::vector<std::string> runs = namesIn(backups);
    std::erase_if(runs, [](const std::string &name) { return !isRun(name); });
    return runs;
}

void remove(const std::string &run)
{
    std::error_code ignored; // what can't be removed stays
    fs::remove_all(run, ignored);
}

// A run's own folder below `backups`; empty when there can be none.
std::string makeRun(const std::string &backups)
{
    const std::string first = std::string(backups).append("/").append(minuteNow());
    std::string run = first;
    for (int number = 2; disk::look(run).kind != disk::Kind::missing; ++number) {
        if (number > 99)
            return {};
        run = std::string(first).append(number < 10 ? "-0" : "-").append(std::to_string(number));
    }
    return disk::makeFolder(backups) && disk::makeFolder(run) ? run : std::string();
}

// One file into the folder of a run; false when there is no room. A copy bears the time of its file, so that the next
// run sees at a glance whether it is still the same. A file that changed a moment ago may change again under the same
// time, so its copy bears its own.
bool copy(const std::string &folder, const std::string &name, const std::string &lastRun, const std::string &run)
{
    const auto in = [&name](const std::string &place) { return std::string(place).append("/").append(name); };
    const disk::Stamp stamp = disk::look(in(folder));
    const disk::Stamp known = lastRun.empty() ? disk::Stamp() : disk::look(in(lastRun));
    const bool same = known.kind == disk::Kind::file && known.size == stamp.size && known.modified == stamp.modified;
    if (same && disk::share(in(lastRun), in(run)))
        return true;
    std::string bytes;
    if (disk::read(in(folder), bytes).kind != disk::Kind::file || !isText(bytes))
        return true; // nothing worth a copy
    disk::Stamp after;
    if (!disk::replace(in(run), bytes, false, after))
        return false;
    if (!disk::young(stamp))
        disk::setModified(in(run), stamp.modified);
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

void make(const std::string &folder)
{
    const std::string backups = backupFolder(folder);
    const std::vector<std::string> before = runsIn(backups);
    const std::string last = before.empty() ? std::string() : std::string(backups).append("/").append(before.back());
    std::string run;
    for (const std::string &name : namesIn(folder)) {
        if (!isDataFile(name))
            continue;
        if (run.empty() && (run = makeRun(backups)).empty())
            return;
        if (!copy(folder, name, last, run))
            return remove(run);
    }
    std::error_code kept; // only an empty folder can be removed so
    fs::remove(run, kept);
    std::vector<std::string> runs = runsIn(backups);
    for (std::size_t i = 0; i + runsKept < runs.size(); ++i)
        if (const std::string old = std::string(backups).append("/").append(runs[i]); old != run)
            remove(old);
}

std::optional<Copy> newestGood(const std::string &folder, const std::string &name)
{
    const std::string backups = backupFolder(folder);
    const std::vector<std::string> runs = runsIn(backups);
    std::string bytes;
    for (auto run = runs.rbegin(); run != runs.rend(); ++run) {
        const std::string path = std::string(backups).append("/").append(*run).append("/").append(name);
        if (disk::read(path, bytes).kind != disk::Kind::file || bytes.empty() || !isText(bytes))
            continue;
        const auto part = [&run](std::size_t at, std::size_t size) { return run->substr(at, size); };
        return Copy{path, part(8, 2) + "/" + part(5, 2) + "/" + part(0, 4) + " à " + part(11, 2) + ":" + part(13, 2)};
    }
    return std::nullopt;
}

}
