// SPDX-License-Identifier: GPL-3.0-or-later
#include "comparisons/season_tables.h"

#include "results/scale.h"
#include "results/team_list.h"
#include "standings/race_places.h"
#include "store/names.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace circuidex::comparisons {

using namespace standings;

namespace {

using Finishers = ByPlace<std::string, classifiedPlaces>; // names, empty for nobody
using OwnScale = ByPlace<double, classifiedPlaces>;

std::string notedPoints(const Season &season, std::string_view team, int slot)
{
    return season.read(keys::N, keys::ecuriepts(team, std::to_string(slot)));
}

// What is no number brings nothing.
double teamPoints(const Season &season, std::string_view team, int slot)
{
    return season.numbers().value(notedPoints(season, team, slot)).value_or(0);
}

// Where the sum would be no number any more, it stays.
void add(double &sum, double points)
{
    if (std::isfinite(sum + points))
        sum += points;
}

// Only what the season's own file says: neither the year before nor the usual scale stands in.
OwnScale ownScale(const Season &season)
{
    OwnScale scale;
    for (int place = 1; place <= classifiedPlaces; ++place)
        scale[place] = season.numbers().value(season.read(keys::bareme, std::to_string(place))).value_or(0);
    return scale;
}

Finishers finishers(const Season &season, int slot)
{
    const std::string gp = season.namegp(slot);
    Finishers names;
    for (int place = 1; place <= classifiedPlaces && !gp.empty(); ++place)
        names[place] = nameAt(season, Stage::finish, place, gp);
    return names;
}

double driverPoints(const Finishers &names, const OwnScale &scale, std::string_view driver, Sum sum)
{
    double points = 0;
    for (int place = 1; place <= classifiedPlaces && !driver.empty(); ++place)
        if (names[place] == driver) {
            add(points, scale[place]);
            if (sum == Sum::upToRace)
                break;
        }
    return points;
}

int searched(int races)
{
    return std::clamp(races, 0, racesSearched);
}

using PointsAt = std::function<double(int slot)>;

void fillColumn(std::vector<SeasonRow> &rows, std::size_t column, const Season &season, std::string_view whoHolds,
                Sum sum, const PointsAt &pointsAt)
{
    double points = 0;
    for (int slot = 0; SeasonRow & row : rows) {
        if (sum == Sum::ofRace)
            points = 0;
        add(points, pointsAt(slot));
        row.points[column] = notedPoints(season, whoHolds, slot++).empty() ? notHeld : season.numbers().text(points);
    }
}

std::vector<SeasonRow> numberedRaces()
{
    std::vector<SeasonRow> rows(gpSlots);
    for (int number = 1; SeasonRow & row : rows)
        row.head = std::to_string(number++);
    return rows;
}

}

Seasons seasonsUpTo(const Store &store, std::string_view year)
{
    const auto before = [&](int years) { return Season(store, seasonStem(store.numbers().stepped(year, -years))); };
    return {before(3), before(2), before(1), before(0)};
}

std::array<double, racesSearched> racePoints(const Season &season, SubjectKind kind, std::string_view subject)
{
    const OwnScale scale = ownScale(season);
    std::array<double, racesSearched> points{};
    for (int slot = 0; double &race : points) {
        race = kind == SubjectKind::team ? teamPoints(season, subject, slot)
                                         : driverPoints(finishers(season, slot), scale, subject, Sum::ofRace);
        ++slot;
    }
    return points;
}

std::vector<SeasonRow> teamField(const Seasons &seasons, int races)
{
    std::vector<SeasonRow> rows;
    for (std::string &team : results::teamList(seasons[currentSeason])) {
        SeasonRow row{std::move(team), {}};
        for (std::size_t column = 0; column < seasonsCompared; ++column) {
            double points = 0;
            for (int slot = 0; slot < std::max(searched(races), 1); ++slot)
                add(points, teamPoints(seasons[column], row.head, slot));
            row.points[column] = seasons[column].numbers().text(points);
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

std::vector<SeasonRow> driverField(const Seasons &seasons, int races)
{
    std::vector<SeasonRow> rows(driverSlots);
    for (int number = 1; SeasonRow & row : rows)
        row.head = seasons[currentSeason].nom(number++);
    for (std::size_t column = 0; column < seasonsCompared; ++column) {
        const Season &season = seasons[column];
        const auto scale = ownScale(season);
        std::array<double, driverSlots> points{};
        for (int slot = 0; slot < searched(races); ++slot) {
            const Finishers names = finishers(season, slot);
            for (std::size_t i = 0; i < rows.size(); ++i)
                add(points[i], driverPoints(names, scale, rows[i].head, Sum::ofRace));
        }
        for (std::size_t i = 0; i < rows.size(); ++i)
            rows[i].points[column] = rows[i].head.empty() ? std::string() : season.numbers().text(points[i]);
    }
    return rows;
}

std::vector<SeasonRow> teamRaces(const Seasons &seasons, std::string_view team, Sum sum)
{
    std::vector<SeasonRow> rows = numberedRaces();
    for (std::size_t column = 0; const Season &season : seasons)
        fillColumn(rows, column++, season, team, sum, [&](int slot) { return teamPoints(season, team, slot); });
    return rows;
}

std::vector<SeasonRow> driverRaces(const Seasons &seasons, std::string_view driver, Sum sum)
{
    std::vector<SeasonRow> rows = numberedRaces();
    for (std::size_t column = 0; const Season &season : seasons)
        fillColumn(rows, column++, season, season.ecurie(1), sum,
                   [&season, scale = ownScale(season), driver, sum](int slot) {
                       return driverPoints(finishers(season, slot), scale, driver, sum);
                   });
    return rows;
}

Differences differences(const Points &points, std::size_t reference, const Numbers &numbers)
{
    Differences cells;
    const auto from = numbers.value(points[reference]);
    for (std::size_t column = 0; column < seasonsCompared; ++column) {
        const auto to = numbers.value(points[column]);
        if (!from || !to)
            cells[column].text = from ? points[column] : points[reference];
        else if (column == reference)
            cells[column] = {points[reference] + " pts", Tone::level};
        else if (const double more = *from - *to; more == 0)
            cells[column] = {"=", Tone::level};
        else
            cells[column] = {(more > 0 ? "+ " : "- ") + numbers.text(std::abs(more)),
                             more > 0 ? Tone::gain : Tone::loss};
    }
    return cells;
}

int firstRaceToCome(const Season &season)
{
    int slot = 0;
    while (slot < racesSearched - 1 && season.recorded(season.namegp(slot)))
        ++slot;
    return slot;
}

int slotSearched(const Season &season, std::string_view gpName)
{
    int slot = 0;
    while (slot < racesSearched - 1 && season.namegp(slot) != gpName)
        ++slot;
    return slot;
}

}
