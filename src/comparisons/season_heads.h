// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The heads of the seasons that a comparison sets side by side: of each its year, its champion, and where the driver or
// the team that is compared ended.
#include "store/season.h"

#include <array>

namespace circuidex::comparisons {

inline constexpr int seasonsCompared = 4; // a season and the three before it

// Seasons are compared by the name of one driver or one team.
enum class SubjectKind { driver, team };

struct SeasonHead {
    std::string year;
    std::string champion; // driver, or team for a team; empty before the title is won, and when nobody is known
    std::optional<int> subjectPlace; // so far while the season runs; absent for who isn't in its championship
    bool over = false; // the title is won: the place is final
};

// Newest first. A year that is none has no champion and no places.
std::array<SeasonHead, seasonsCompared> seasonHeads(const Store &store, std::string_view newestYear, SubjectKind kind,
                                                    std::string_view subject);

}
