// SPDX-License-Identifier: GPL-3.0-or-later
#include "comparisons/points_charts.h"

#include "comparisons/season_tables.h"

#include <algorithm>

namespace circuidex::comparisons {

namespace {

SeriesCells pointsOf(const Season &season, SubjectKind kind, const Subjects &subjects)
{
    SeriesCells series;
    for (std::size_t s = 0; s < subjects.size(); ++s) {
        if (subjects[s].empty())
            continue;
        const auto points = racePoints(season, kind, subjects[s]);
        std::transform(points.begin(), points.end(), series.cells[s].begin(),
                       [&season](double race) { return season.numbers().text(race); });
    }
    return series;
}

}

SeriesCells pointsOfDrivers(const Season &season, const results::Scale &, const Subjects &names)
{
    return pointsOf(season, SubjectKind::driver, names);
}

SeriesCells pointsOfTeams(const Season &season, const results::Scale &, const Subjects &teams)
{
    return pointsOf(season, SubjectKind::team, teams);
}

}
