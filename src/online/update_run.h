// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The five runs of the update screen: which archives they fetch, in which order, and what else happens between two of
// them. No step's result is looked at; the next one follows all the same.
#include <array>
#include <string_view>
#include <vector>

namespace circuidex::online {

struct UpdateArchive {
    std::string_view path; // appended to the server's root
    std::string_view file; // appended to the program folder
};
// As the screen's boxes hold them: Source and Destination, Source2 …, Source3 …
inline constexpr std::array<UpdateArchive, 3> updateArchives{{
    {"/miseajour.zip", "\\miseajour.zip"},
    {"/Circuidex.zip", "\\Circuidex.zip"},
    {"/Photos.zip", "\\Photos.zip"},
}};

enum class UpdateRun { results, program, newSeason, firstStart, full }; // Command1, 3, 4, 5, 6

struct RunStep {
    enum What {
        hideTitleButtons, // out of reach, so that the run isn't closed by chance
        deleteOld, // of this archive, also what is left of a stopped transfer
        download,
        restoreDisplay,
        closeScreen,
        startExtractor,
        restoreDisplayOrFallback, // once more, and the plain fallback where that fails
        endProgram, // at once, without the closing of the main screen
    };
    What what;
    std::size_t archive = 0; // of updateArchives, for the two steps that have one
    bool operator==(const RunStep &) const = default;
};

std::vector<RunStep> stepsOf(UpdateRun run);

}
