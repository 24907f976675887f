// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A cell with its tone in one printed text: "+3^" a gain, "-3v" a loss, "=~" level, the text alone without a tone, "-"
// for an empty cell.
#include "standings/tone.h"

namespace circuidex::test {

inline std::string shown(const standings::Toned &cell)
{
    constexpr std::array<const char *, 4> marks{"", "^", "v", "~"};
    return (cell.text.empty() ? "-" : cell.text) + marks[static_cast<std::size_t>(cell.tone)];
}

template <class Cells>
std::string shownAll(const Cells &cells)
{
    std::string all;
    for (const standings::Toned &cell : cells)
        all += (all.empty() ? "" : " ") + shown(cell);
    return all;
}

}
