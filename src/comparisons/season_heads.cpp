// SPDX-License-Identifier: GPL-3.0-or-later
#include "comparisons/season_heads.h"

#include "standings/constructor_standings.h"
#include "standings/driver_standings.h"
#include "standings/winners.h"
#include "store/names.h"

namespace circuidex::comparisons {

using namespace standings;

namespace {

std::vector<Entry> championship(const Season &season, SubjectKind kind)
{
    std::vector<Entry> entries;
    const auto enter = [&](const auto &lines) {
        for (const auto &line : lines)
            entries.push_back({line.name, season.numbers().value(line.points)});
    };
    if (kind == SubjectKind::driver)
        enter(driverLines(season));
    else
        enter(teamLines(season));
    return entries;
}

// Those level with another share the better place.
std::optional<int> placeOf(std::string_view subject, const std::vector<Entry> &entries)
{
    const auto rows = rankedRows(entries, {.ties = Ties::sharedRow});
    for (std::size_t i = 0; i < entries.size(); ++i)
        if (!subject.empty() && entries[i].name == subject)
            return rows[i];
    return std::nullopt;
}

SeasonHead headOf(const Season &season, std::string year, SubjectKind kind, std::string_view subject)
{
    SeasonHead head{std::move(year), championOf(season.store(), season.stem()), {}, false};
    head.over = !head.champion.empty();
    head.subjectPlace = placeOf(subject, championship(season, kind));
    if (kind == SubjectKind::team && head.over)
        head.champion = constructorStandings(season, {}).rows[0].name;
    return head;
}

}

std::array<SeasonHead, seasonsCompared> seasonHeads(const Store &store, std::string_view newestYear, SubjectKind kind,
                                                    std::string_view subject)
{
    std::array<SeasonHead, seasonsCompared> heads;
    for (int before = 0; SeasonHead & head : heads) {
        std::string year = store.numbers().stepped(newestYear, -before++);
        const Season season(store, seasonStem(year));
        head = headOf(season, std::move(year), kind, subject);
    }
    return heads;
}

}
