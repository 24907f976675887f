// SPDX-License-Identifier: GPL-3.0-or-later
#include "online/manifest.h"

#include <algorithm>
#include <charconv>

namespace circuidex::online {

namespace {

constexpr std::string_view title = "# Circuidex ";
constexpr std::size_t hashSize = 64;

bool readTitle(std::string_view line, Manifest &manifest)
{
    if (!line.starts_with(title))
        return false;
    line.remove_prefix(title.size());
    const std::size_t blank = std::min(line.find(' '), line.size());
    manifest.archive = line.substr(0, blank);
    const char *const end = line.data() + line.size();
    const auto [stopped, problem] =
        std::from_chars(line.data() + std::min(blank + 1, line.size()), end, manifest.number);
    return problem == std::errc() && stopped == end;
}

bool readFile(std::string_view line, Manifest &manifest)
{
    const auto isDigit = [](char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f'); };
    const std::string_view hash = line.substr(0, hashSize);
    return line.size() > hashSize + 2 && std::all_of(hash.begin(), hash.end(), isDigit) &&
        line.substr(hashSize, 2) == "  " && manifest.files.emplace(line.substr(hashSize + 2), hash).second;
}

}

std::optional<Manifest> parseManifest(std::string_view text)
{
    Manifest manifest;
    for (bool first = true; first || !text.empty(); first = false) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        if (!(first ? readTitle(line, manifest) : readFile(line, manifest)))
            return std::nullopt;
    }
    return manifest;
}

std::string manifestText(const Manifest &manifest)
{
    std::string text = std::string(title) + manifest.archive + " " + std::to_string(manifest.number) + "\n";
    for (const auto &[path, hash] : manifest.files)
        text += hash + "  " + path + "\n";
    return text;
}

}
