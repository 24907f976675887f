#include "standings/constructor_standings.h"

#include "results/team_list.h"
#include "store/history.h"

#include <algorithm>

namespace circuidex::standings {

namespace {

std::string tyreKey(std::string_view team)
{
    return keys::join("pneuecurie", team);
}

void enter(StandingsRow &row, const TeamLine &team)
{
    row.name = row.name.empty() ? team.name : row.name + " - " + team.name;
    row.points = team.points;
}

}

std::array<TeamLine, driverSlots> teamLines(const Season &season)
{
    const auto names = results::teamsByFirstDriver(season, 1, driverSlots);
    std::array<TeamLine, driverSlots> lines;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        lines[i].name = names[i];
        if (!names[i].empty())
            lines[i].points = season.read(keys::N, keys::ptsecurie(names[i]));
        if (const std::string team = season.ecurie(static_cast<int>(i + 1)); !team.empty())
            lines[i].tyre = season.read(keys::N, tyreKey(team));
    }
    return lines;
}

Standings constructorStandings(const Season &season, std::string_view favourite)
{
    const Numbers &numbers = season.numbers();
    const auto lines = teamLines(season);
    std::vector<Entry> entries;
    for (const TeamLine &line : lines)
        entries.push_back({line.name, numbers.value(line.points)});

    Standings standings;
    standings.rows.resize(teamRows);
    enterRanked(entries, {.ties = Ties::sharedRow}, teamRows,
                [&](std::size_t row, std::size_t i) { enter(standings.rows[row], lines[i]); });
    for (StandingsRow &row : standings.rows)
        if (row.name == keys::Aucune)
            row = {};
    measure(standings, 0, numbers);
    choose(standings, favourite, numbers);
    return standings;
}

std::string steppedTeam(const Season &season, std::string_view number, int by, std::string_view team)
{
    const Numbers &numbers = season.numbers();
    const double first = -1, last = 23;
    const double end = by < 0 ? first : last;
    double at = std::clamp(numbers.value(number).value_or(end), first, last);
    do {
        if ((at - end) * by >= 0)
            return numbers.text(end - by);
        at += by;
    } while (season.ecurie(numbers.text(at)) == team);
    return numbers.text(at);
}

std::string changeTyre(const WritableSeason &season, std::string_view team)
{
    const std::string key = tyreKey(team);
    const std::string make = season.read(keys::N, key);
    if (make != "M" && make != "B")
        return make;
    const Action undoable(season.store(), "pneus de l'écurie " + std::string(team) + " " + season.stem());
    season.write(keys::N, key, make == "M" ? "B" : "M");
    return season.read(keys::N, key);
}

std::vector<TeamDetail> teamDetails(const Season &season)
{
    std::vector<TeamDetail> details;
    for (const std::string &team : results::teamList(season)) {
        TeamDetail detail{team, season.read(keys::N, keys::ptsecurie(team)), {}};
        for (std::size_t slot = 0; slot < detail.races.size(); ++slot) {
            detail.races[slot] = season.read(keys::N, keys::ecuriepts(team, std::to_string(slot)));
            if (detail.races[slot] == "0")
                detail.races[slot].clear();
        }
        details.push_back(std::move(detail));
    }
    return details;
}

}
