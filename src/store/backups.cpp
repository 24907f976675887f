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
    std::string run, bytes;
    for (const std::string &name : namesIn(folder)) {
        const std::string path = std::string(folder).append("/").append(name);
        if (!isDataFile(name) || disk::read(path, bytes).kind != disk::Kind::file || !isText(bytes))
            continue;
        if (run.empty() && (run = makeRun(backups)).empty())
            return;
        disk::Stamp after;
        if (!disk::replace(std::string(run).append("/").append(name), bytes, false, after))
            return remove(run);
    }
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
