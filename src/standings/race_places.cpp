// SPDX-License-Identifier: GPL-3.0-or-later
#include "standings/race_places.h"

#include <algorithm>
#include <cmath>

namespace circuidex::standings {

std::optional<int> DriverPlaces::gained() const
{
    if (!grid || !finish)
        return std::nullopt;
    return *grid - *finish;
}

std::optional<int> RacePlaces::place(Stage stage, std::string_view driver, Match match, int places) const
{
    const std::span<const std::string> all = stage == Stage::grid ? std::span<const std::string>(grid) : finish;
    const auto names = all.first(std::min(all.size(), static_cast<std::size_t>(places)));
    std::optional<int> found;
    for (std::size_t i = 0; i < names.size() && !driver.empty(); ++i)
        if (names[i] == driver && !(found && match == Match::first))
            found = static_cast<int>(i) + 1;
    return found;
}

DriverPlaces RacePlaces::of(std::string_view driver, Match match) const
{
    return {place(Stage::grid, driver, match), place(Stage::finish, driver, match)};
}

RacePlaces racePlaces(const Season &season, std::string gpName)
{
    RacePlaces race{std::move(gpName), {}, {}};
    if (race.gp.empty())
        return race;
    for (int place = 1; place <= gridPlaces; ++place)
        race.grid[place] = nameAt(season, Stage::grid, place, race.gp);
    for (int place = 1; place <= classifiedPlaces; ++place)
        race.finish[place] = nameAt(season, Stage::finish, place, race.gp);
    return race;
}

SeasonPlaces seasonPlaces(const Season &season)
{
    SeasonPlaces races;
    int slot = 0;
    for (RacePlaces &race : races)
        race = racePlaces(season, season.namegp(slot++));
    return races;
}

std::string nameAt(const Season &season, Stage stage, int place, std::string_view gpName)
{
    if (stage == Stage::grid)
        return season.grille(place, gpName);
    const std::string number = season.podium(place, gpName);
    return number.empty() ? std::string() : season.nom(number);
}

std::string textOf(std::optional<int> place)
{
    return place ? std::to_string(*place) : std::string();
}

std::optional<int> placeIn(std::string_view text, Stage stage, const Numbers &numbers)
{
    return numbers.whole(text, 1, lastPlace(stage));
}

}
