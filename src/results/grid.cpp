#include "results/grid.h"

#include "store/history.h"
#include "store/names.h"

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

std::string enterGrid(const WritableSeason &season, std::string_view gpName, Grid grid)
{
    const EnteredName race = enteredName(gpName);
    if (!race.fits())
        return race.refusal;
    for (int place = 1; place <= gridPlaces; ++place) {
        EnteredName driver = enteredName(grid[place], season.grille(place, race.name));
        if (!driver.fits())
            return driver.refusal;
        grid[place] = std::move(driver.name);
    }
    const Action undoable(season.store(), "grille " + ofName(race.name) + " " + season.stem());
    storeGrid(season, race.name, grid);
    return {};
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
