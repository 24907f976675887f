// SPDX-License-Identifier: GPL-3.0-or-later
// The charts of the points of one driver (Form85, Form86) or one team (Form87, Form88) over four seasons: added up, and
// race by race.
#include "comparisons/points_charts.h"
#include "kinds/seasons_chart.h"
#include "shell/screens.h"

namespace circuidex::screens {

using namespace comparisons;

namespace {

constexpr ChartControls controls(const Instance &instance)
{
    return {.instance = instance,
            .markers = {"Label46", "Label47", "Label48", "Label49"},
            .markerTip = "Cliquez ici pour mettre en valeur cette saison",
            .custom = "Personalisée:"};
}

constexpr SeasonsChartRow row(const Instance &instance, std::string_view word)
{
    return {
        .controls = controls(instance), .word = word, .heads = "Saison ", .draw = "Traçer courbe", .holdsValues = true};
}

constexpr SeasonsChartRow driver = row(form85, "pilotcompaan85"), driverByRace = row(form86, "pilotcompaan86"),
                          team = row(form87, "graphcompasaison87"), teamByRace = row(form88, "graphcompasaison88");

ScreenRow chart(const SeasonsChartRow &row, const QString &compared)
{
    return kindRow<SeasonsChart>(qt(row.controls.instance.screen),
                                 u"Comparaison Graphique entre Saisons du "_s + compared, std::cref(row));
}

}

ScreenRows form85()
{
    return {chart(driver, u"Cumul de Points Pilote"_s), chart(driverByRace, u"Nombre de Points Pilote par GP"_s),
            chart(team, u"Cumul de Points Ecurie"_s), chart(teamByRace, u"de Points Ecurie"_s)};
}

}
