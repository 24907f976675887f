// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/film_file.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <string_view>

namespace circuidex {

namespace {

using namespace std::string_view_literals;

constexpr std::array endings{".avi"sv, ".mpg"sv, ".mpeg"sv, ".m2v"sv, ".vob"sv,  ".wmv"sv, ".asf"sv,
                             ".mp4"sv, ".m4v"sv, ".mov"sv,  ".mkv"sv, ".webm"sv, ".ogv"sv, ".flv"sv,
                             ".3gp"sv, ".ts"sv,  ".m2ts"sv, ".mts"sv, ".divx"sv};

struct Beginning {
    std::size_t at;
    std::string_view bytes;
};
constexpr std::array beginnings{
    Beginning{8, "AVI "sv},
    Beginning{4, "ftyp"sv},
    Beginning{4, "moov"sv},
    Beginning{0, "\x1A\x45\xDF\xA3"sv}, // Matroska and WebM
    Beginning{0, "\0\0\1\xBA"sv},
    Beginning{0, "\0\0\1\xB3"sv}, // MPEG
    Beginning{0, "\x30\x26\xB2\x75"sv},
    Beginning{0, "FLV\1"sv}, // Windows Media
    Beginning{0, "OggS"sv},
};

}

bool isFilm(const std::string &path)
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        return false;
    std::string ending = std::filesystem::path(path).extension().string();
    std::transform(ending.begin(), ending.end(), ending.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? char(c + 32) : c; });
    if (std::find(endings.begin(), endings.end(), ending) != endings.end())
        return true;
    std::array<char, 16> first{};
    std::ifstream(path, std::ios::binary).read(first.data(), first.size());
    const std::string_view held(first.data(), first.size());
    return std::any_of(beginnings.begin(), beginnings.end(),
                       [held](const Beginning &each) { return held.substr(each.at).starts_with(each.bytes); });
}

}
