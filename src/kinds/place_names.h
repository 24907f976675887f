#pragma once
// The captions of the places: "1er", "2nd", "3ème" and on to "26ème".
#include "shell/text.h"

namespace circuidex {

inline QString placeName(int place)
{
    return place == 1 ? u"1er"_s : place == 2 ? u"2nd"_s : u"%1ème"_s.arg(place);
}

}
