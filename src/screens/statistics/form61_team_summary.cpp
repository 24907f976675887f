// SPDX-License-Identifier: GPL-3.0-or-later
// Form61, one team's season race by race: places and points of its drivers, and the team's points with their sum. The
// points follow the scale in use, also for another year.
#include "kinds/team_table.h"
#include "results/main_record.h"
#include "shell/screens.h"

#include <algorithm>

namespace circuidex::screens {

namespace {

TeamContent content(const Context &context, const Season &season, std::string_view team)
{
    const statistics::TeamSummary summary = statistics::teamSummary(season, context.main.scale(), team);
    TeamContent content{summary.drivers, {}};
    std::ranges::transform(summary.rows, content.rows.begin(), [](const statistics::TeamSummaryRow &row) {
        return TeamRow{row.gp, row.finish, row.points, row.teamPoints, row.pointsSum};
    });
    return content;
}

}

ScreenRows form61()
{
    return {kindRow<TeamTable>(u"Form61"_s, u"Résumé de Saison par Ecurie"_s,
                               TeamKind{u"Position a l'arrivée P%1:"_s, u"Points gagnés P%1:"_s,
                                        u"Points gagnés par GP:"_s, u"Cumul des Points:"_s, u"resecurie"_s, content})};
}

}
