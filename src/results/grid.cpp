#include "results/grid.h"

namespace circuidex::results {

Grid loadGrid(const Season &season, std::string_view gpName)
{
    Grid grid;
    for (int place = 1; place <= gridPlaces; ++place)
        grid[place] = season.grille(place, gpName);
    return grid;
}

void storeGrid(const WritableSeason &season, std::string_view gpName, const Grid &grid)
{
    for (int place = 1; place <= gridPlaces; ++place)
        season.write(keys::N, keys::grilledepart(gpName, place), grid[place]);
}

std::optional<int> driverNamed(const Season &season, std::string_view name)
{
    if (name.empty())
        return std::nullopt;
    for (int number = 0; number <= driverSlots + 1; ++number)
        if (season.nom(number) == name)
            return number;
    return std::nullopt;
}

}
