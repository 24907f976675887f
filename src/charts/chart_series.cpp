// SPDX-License-Identifier: GPL-3.0-or-later
#include "charts/chart_series.h"

#include "standings/points_matrix.h"
#include "standings/race_places.h"

#include <algorithm>

namespace circuidex::charts {

namespace {

constexpr int slotsSearched = 26; // for the end of the season

// The place where each subject's name stands in each race, the last one where it stands twice.
SeriesCells placesOf(const Season &season, const Subjects &subjects, standings::Stage stage, int places)
{
    const standings::SeasonPlaces races = standings::seasonPlaces(season);
    SeriesCells series;
    for (std::size_t s = 0; s < subjects.size(); ++s)
        for (std::size_t slot = 0; slot < slotsRead; ++slot) {
            const auto place = races[slot].place(stage, subjects[s], standings::Match::last, places);
            series.cells[s][slot] = std::to_string(place.value_or(places + 1));
        }
    return series;
}

std::optional<int> firstSlot(auto &&hasNothing)
{
    for (int slot = 0; slot < slotsSearched; ++slot)
        if (hasNothing(slot))
            return slot;
    return std::nullopt;
}

}

SeriesCells driverPoints(const Season &season, const results::Scale &scale, const Subjects &subjects)
{
    const standings::PointsMatrix matrix = standings::pointsMatrix(season, scale);
    SeriesCells series;
    for (std::size_t s = 0; s < subjects.size(); ++s) {
        const auto driver = driverSlot(subjects[s], season.numbers());
        for (int slot = 0; driver && slot < gpSlots; ++slot)
            series.cells[s][static_cast<std::size_t>(slot)] = matrix.at(*driver, slot);
    }
    return series;
}

SeriesCells teamPoints(const Season &season, const results::Scale &, const Subjects &subjects)
{
    SeriesCells series;
    for (std::size_t s = 0; s < subjects.size(); ++s)
        for (std::size_t slot = 0; slot + 1 < slotsRead && !subjects[s].empty(); ++slot)
            series.cells[s][slot] = season.read(keys::N, keys::ecuriepts(subjects[s], std::to_string(slot)));
    return series;
}

SeriesCells finishPlaces(const Season &season, const results::Scale &, const Subjects &subjects)
{
    return placesOf(season, subjects, standings::Stage::finish, classifiedPlaces);
}

SeriesCells gridPlacesOf(const Season &season, const results::Scale &, const Subjects &subjects)
{
    return placesOf(season, subjects, standings::Stage::grid, gridPlacesRead);
}

Values numbersIn(const Cells &cells, const Numbers &numbers)
{
    Values values;
    std::transform(cells.begin(), cells.begin() + segments, values.begin(),
                   [&](const std::string &cell) { return numbers.value(cell); });
    return values;
}

std::optional<int> firstWithoutResult(const Season &season)
{
    return firstSlot([&](int slot) {
        const std::string gp = season.namegp(slot);
        return season.podium(1, gp).empty() && season.podium(2, gp).empty();
    });
}

std::optional<int> firstWithoutGrid(const Season &season)
{
    return firstSlot([&](int slot) {
        const std::string gp = season.namegp(slot);
        return season.grille(1, gp).empty() && season.grille(2, gp).empty();
    });
}

std::optional<int> firstWithoutPoints(const SeriesCells &series)
{
    for (std::size_t slot = 0; slot + 1 < slotsRead; ++slot)
        if (std::all_of(series.cells.begin(), series.cells.end(),
                        [&](const Cells &cells) { return cells[slot].empty(); }))
            return static_cast<int>(slot);
    return std::nullopt;
}

}
