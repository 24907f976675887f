// SPDX-License-Identifier: GPL-3.0-or-later
#include "online/examples.h"

#include "online/servers.h"
#include "store/disk.h"

#include <algorithm>
#include <array>
#include <sstream>

namespace circuidex::online {

namespace {

namespace fs = std::filesystem;

// A start of the program writes these few keys into a season that has nothing else yet.
bool holdsNothing(const std::string &path)
{
    constexpr std::array<std::string_view, 4> atStart{"nogp", "resolutionX", "resolutiony", "nbcouleurs"};
    std::string bytes;
    if (disk::read(path, bytes).kind != disk::Kind::file)
        return false;
    std::istringstream lines(bytes);
    for (std::string line; std::getline(lines, line);) {
        const bool section = line.starts_with('[') || line.find_first_not_of("\r \t") == line.npos;
        if (!section && std::find(atStart.begin(), atStart.end(), line.substr(0, line.find('='))) == atStart.end())
            return false;
    }
    return true;
}

bool bring(const fs::path &from, const fs::path &to)
{
    std::error_code error;
    const bool season = to.extension() == ".ini";
    if (fs::exists(fs::symlink_status(to, error)) && !(season && holdsNothing(to.string())))
        return true;
    fs::create_directories(to.parent_path(), error);
    std::string bytes;
    disk::Stamp after;
    return disk::read(from.string(), bytes).kind == disk::Kind::file &&
        disk::replace(to.string(), bytes, false, after) && disk::syncFile(to.string());
}

}

bool copyExamples(const fs::path &from, const fs::path &folder)
{
    bool all = true;
    std::error_code error;
    for (fs::recursive_directory_iterator at(from, error), end; !error && at != end; at.increment(error)) {
        std::error_code unknown;
        const fs::path name = at->path().lexically_relative(from);
        if (at->is_regular_file(unknown) && !name.filename().string().starts_with('.'))
            all = bring(at->path(), folder / onDisk(folder, name.string())) && all;
    }
    return all && !error;
}

}
