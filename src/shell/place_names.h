#pragma once
// The captions of the places: "1er", "2nd", "3ème" and on to "26ème".
#include <QString>

namespace circuidex {

inline QString placeName(int place)
{
    return place == 1 ? QStringLiteral("1er") : place == 2 ? QStringLiteral("2nd") : QStringLiteral("%1ème").arg(place);
}

}
