#include "results/scale.h"

#include "store/history.h"

namespace circuidex::results {

namespace {

Scale readScale(const Season &season)
{
    Scale scale;
    for (int place = 1; place <= classifiedPlaces; ++place)
        scale[place] = season.read(keys::bareme, std::to_string(place));
    return scale;
}

}

Scale loadScale(const Season &season)
{
    Scale scale = readScale(season);
    if (scale[1].empty() && scale[2].empty()) {
        if (const auto yearBefore = season.numbers().difference(season.stem(), "1"))
            scale = readScale(Season(season.store(), *yearBefore));
    }
    for (int place = 1; place <= classifiedPlaces; ++place)
        if (scale[place].empty())
            scale[place] = builtInScale[place];
    return scale;
}

void storeScale(const WritableSeason &season, const Scale &scale)
{
    const Action undoable(season.store(), "barème " + season.stem());
    for (int place = 1; place <= classifiedPlaces; ++place)
        season.write(keys::bareme, std::to_string(place), scale[place]);
}

}
