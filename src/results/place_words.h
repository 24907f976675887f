// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The captions of the places: "1er", "2nd", "3ème" and on to "26ème".
#include <string>

namespace circuidex::results {

inline std::string placeWord(int place)
{
    return place == 1 ? "1er" : place == 2 ? "2nd" : std::to_string(place) + "ème";
}

}
