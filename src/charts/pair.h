// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Two subjects of a chart beside each other: a bar each, the leader's at full length, and a sentence on who is ahead.
// What can't be computed stays as it was. An empty total ranks above any number.
#include "store/number.h"

#include <string>
#include <string_view>

namespace circuidex::charts {

inline constexpr double fullBar = 11040; // twips

struct Pair {
    double barA = fullBar, barB = fullBar;
    std::string totalA, totalB; // as kept in the season
    std::string sentence;
};

// `leads` stands between the leader's name and his points.
void compare(Pair &pair, const std::string &nameA, const std::string &nameB, std::string_view leads,
             const Numbers &numbers);

}
