#include "comparisons/points_charts.h"

#include "standings/race_places.h"

namespace circuidex::comparisons {

using namespace standings;

namespace {

results::Scale ownScale(const Season &season)
{
    results::Scale scale;
    for (int place = 1; place <= classifiedPlaces; ++place)
        scale[place] = season.read(keys::bareme, std::to_string(place));
    return scale;
}

Cells pointsOfDriver(const Season &season, std::string_view driver)
{
    const Numbers &numbers = season.numbers();
    const results::Scale scale = ownScale(season);
    const SeasonPlaces races = seasonPlaces(season);
    Cells cells;
    for (std::size_t slot = 0; slot < cells.size(); ++slot) {
        double points = 0;
        for (int place = 1; place <= classifiedPlaces && !driver.empty(); ++place)
            if (races[slot].finish[place] == driver)
                points += numbers.value(scale[place]).value_or(0);
        cells[slot] = numbers.text(points);
    }
    return cells;
}

Cells pointsOfTeam(const Season &season, std::string_view team)
{
    Cells cells;
    for (std::size_t slot = 0; slot < cells.size(); ++slot) {
        if (!team.empty())
            cells[slot] = season.read(keys::N, keys::ecuriepts(team, std::to_string(slot)));
        if (cells[slot].empty())
            cells[slot] = "0";
    }
    return cells;
}

SeriesCells pointsOfAll(const Season &season, SubjectKind kind, const Subjects &subjects)
{
    SeriesCells series;
    for (std::size_t s = 0; s < subjects.size(); ++s)
        series.cells[s] = pointsBySlot(season, kind, subjects[s]);
    return series;
}

}

Cells pointsBySlot(const Season &season, SubjectKind kind, std::string_view subject)
{
    return kind == SubjectKind::driver ? pointsOfDriver(season, subject) : pointsOfTeam(season, subject);
}

SeriesCells pointsOfDrivers(const Season &season, const results::Scale &, const Subjects &names)
{
    return pointsOfAll(season, SubjectKind::driver, names);
}

SeriesCells pointsOfTeams(const Season &season, const results::Scale &, const Subjects &teams)
{
    return pointsOfAll(season, SubjectKind::team, teams);
}

}
