#include "platform/file_lookup.h"

#include "store/text.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace circuidex {

namespace fs = std::filesystem;

namespace {

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

std::optional<fs::path> entryNamed(const fs::path &folder, const std::string &name)
{
    std::error_code error;
    if (fs::exists(folder / name, error))
        return folder / name;
    const std::string wanted = folded(name);
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error))
        if (folded(it->path().filename().string()) == wanted)
            return it->path();
    return std::nullopt;
}

std::string below(fs::path at, const std::vector<std::string> &names)
{
    for (const std::string &name : names) {
        const auto next = entryNamed(at, name);
        if (!next)
            return {};
        at = *next;
    }
    std::error_code error;
    return fs::is_regular_file(at, error) ? at.string() : std::string();
}

}

std::string findFile(const fs::path &folder, std::string_view stored)
{
    if (stored.empty() || stored.size() > 4000 || stored.find('\0') != std::string_view::npos)
        return {};
    const std::vector<std::string> names = parts(stored);
    if (names.empty())
        return {};
    if (stored.front() == '/') {
        std::string found = below("/", names);
        if (!found.empty())
            return found;
    }
    return below(folder, names);
}

}
