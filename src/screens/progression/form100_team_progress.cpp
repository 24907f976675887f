// SPDX-License-Identifier: GPL-3.0-or-later
// Form100, the places that a team's drivers gained in each race of a season, and the team's gain with its sum.
#include "kinds/team_table.h"
#include "progression/progression.h"
#include "shell/screens.h"

#include <algorithm>

namespace circuidex::screens {

namespace {

TeamContent content(const Context &, const Season &season, std::string_view team)
{
    const progression::TeamProgress progress = progression::teamProgress(season, team);
    TeamContent content{progress.drivers, {}};
    std::ranges::transform(progress.rows, content.rows.begin(), [](const progression::TeamProgressRow &row) {
        return TeamRow{row.gp, row.places, row.gains, row.team, row.sum};
    });
    return content;
}

}

ScreenRows form100()
{
    return {kindRow<TeamTable>(u"Form100"_s, u"Progression en Course d'une Ecurie"_s,
                               TeamKind{u"Grille/Course P%1:"_s, u"Progession en Course P%1:"_s,
                                        u"Progression de l'Ecurie:"_s, u"Cumul des Progressions:"_s, u"resecurie100"_s,
                                        content})};
}

}
