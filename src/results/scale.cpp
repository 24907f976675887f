#include "results/scale.h"

namespace circuidex::results {

namespace {

Scale readScale(const Season &season)
{
    Scale scale;
    for (int place = 1; place <= classifiedPlaces; ++place)
        scale[static_cast<std::size_t>(place - 1)] = season.read(keys::bareme, std::to_string(place));
    return scale;
}

}

Scale loadScale(const Season &season)
{
    Scale scale = readScale(season);
    if (scale[0].empty() && scale[1].empty()) {
        if (const auto yearBefore = season.numbers().difference(season.stem(), "1"))
            scale = readScale(Season(season.store(), *yearBefore));
    }
    for (std::size_t i = 0; i < scale.size(); ++i)
        if (scale[i].empty())
            scale[i] = builtInScale[i];
    return scale;
}

void storeScale(const Season &season, const Scale &scale)
{
    for (std::size_t i = 0; i < scale.size(); ++i)
        season.write(keys::bareme, std::to_string(i + 1), scale[i]);
}

}
