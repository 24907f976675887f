// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/file_lookup.h"

#include "store/text.h"

#include <algorithm>
#include <vector>

namespace circuidex {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t mostAlike = 16; // paths that differ by case alone

std::vector<std::string> parts(std::string_view stored)
{
    std::vector<std::string> names(1);
    for (const char c : stored) {
        if (c != '\\' && c != '/')
            names.back() += c;
        else if (!names.back().empty())
            names.emplace_back();
    }
    if (names.back().empty())
        names.pop_back();
    return names;
}

// Adds what lies in the folder under that name in any case, the name as it stands first.
void addEntries(std::vector<fs::path> &found, const fs::path &folder, const std::string &name)
{
    std::error_code error;
    if (fs::exists(folder / name, error))
        found.push_back(folder / name);
    const std::string wanted = folded(name);
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error))
        if (it->path().filename() != name && folded(it->path().filename().string()) == wanted)
            found.push_back(it->path());
}

bool isFile(const fs::path &path)
{
    std::error_code error;
    return fs::is_regular_file(path, error);
}

// Of "Photos" and "photos", where both are there, either may hold it.
std::string below(const fs::path &folder, const std::vector<std::string> &names)
{
    fs::path asWritten = folder;
    for (const std::string &name : names)
        asWritten /= name;
    if (isFile(asWritten))
        return asWritten.string();
    std::vector<fs::path> reached{folder};
    for (const std::string &name : names) {
        std::vector<fs::path> next;
        for (const fs::path &at : reached)
            addEntries(next, at, name);
        next.resize(std::min(next.size(), mostAlike));
        reached = std::move(next);
    }
    const auto file = std::find_if(reached.begin(), reached.end(), isFile);
    return file == reached.end() ? std::string() : file->string();
}

}

std::string findFile(const fs::path &folder, std::string_view stored)
{
    if (stored.empty() || stored.size() > 4000 || stored.find('\0') != std::string_view::npos)
        return {};
    const std::vector<std::string> names = parts(stored);
    if (names.empty())
        return {};
    const std::string own = folder.string();
    if (stored.starts_with(own) && stored.find_first_of("\\/", own.size()) == own.size())
        return below(folder, parts(stored.substr(own.size())));
    if (stored.front() == '/') {
        std::string found = below("/", names);
        if (!found.empty())
            return found;
    }
    return below(folder, names);
}

}
