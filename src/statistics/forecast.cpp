// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/forecast.h"

namespace circuidex::statistics {

namespace {

FirstFour firstFour(const Season &season, int slot)
{
    const std::string gpName = season.namegp(slot);
    FirstFour drivers;
    for (int place = 1; place <= 4; ++place)
        drivers[static_cast<std::size_t>(place - 1)] = season.podium(place, gpName);
    return drivers;
}

std::size_t stepOf(std::size_t sumOfPlaces)
{
    return sumOfPlaces <= 4 ? 0 : sumOfPlaces <= 6 ? 1 : 2;
}

}

// Two places that nobody took count as the same driver, who has no name.
std::optional<Forecast> forecast(const Season &season, int slot)
{
    if (slot < 1)
        return std::nullopt;
    Forecast result{firstFour(season, slot), firstFour(season, slot - 1), {}};
    for (std::size_t i = 0; i < 4; ++i)
        for (std::size_t j = 0; j < 4; ++j)
            if (result.last[i] == result.before[j])
                result.steps[stepOf(i + 1 + j + 1)] += " / " + season.nom(result.last[i]);
    for (std::string &step : result.steps)
        if (step.empty())
            step = "X";
    return result;
}

}
