// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What the extractor leaves for the program that starts after it.
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace circuidex::online {

inline constexpr std::string_view workFolder = ".circuidex-maj";
inline constexpr std::string_view workList = "pret"; // in it: what remains to be moved

// True while files of an archive remain to be moved into place.
bool updateUnfinished(const std::filesystem::path &folder);

// True when the extractor was killed at that, so that the program starts it again and ends. Not when it came to its end
// and left a notice that it could not: the program runs then.
bool extractorMustEnd(const std::filesystem::path &folder);

// Keeps the sentences for the next start; none take away what an earlier run left.
void leaveNotice(const std::filesystem::path &folder, const std::vector<std::string> &sentences);

// The lines for the main screen's quiet line, which are gone then; empty when all went well.
std::string takeNotice(const std::filesystem::path &folder);

}
