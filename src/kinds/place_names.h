// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The captions of the places, as the screens show them.
#include "results/place_words.h"
#include "shell/text.h"

namespace circuidex {

inline QString placeName(int place)
{
    return qt(results::placeWord(place));
}

}
