// SPDX-License-Identifier: GPL-3.0-or-later
// How often somebody stood at each place of the first races of a season and of the three before it, in upright bars
// side by side: a driver (Form89), or the drivers of a team together (Form90).
#include "kinds/bar_columns.h"
#include "shell/look.h"
#include "shell/screens.h"

namespace circuidex::screens {

namespace {

std::vector<ColumnsOfSeason> fourSeasons()
{
    std::vector<ColumnsOfSeason> seasons;
    for (int i = 0; i < 4; ++i) {
        const QColor colour = look::seasonBars[i];
        seasons.push_back(
            {u"Label%1"_s.arg(i + 1), u"Label%1"_s.arg(i + 5), {colour}, {colour}, u"Label%1"_s.arg(i + 13)});
    }
    return seasons;
}

}

ScreenRows form89()
{
    ColumnsKind driver{
        charts::Counted::driver, u"nompilote"_s, u"pilotcompaan89"_s, fourSeasons(), u"Labelimprim"_s, true, false,
        charts::trace,           false};
    ColumnsKind team{
        charts::Counted::team, u"nomecurie"_s, u"graphcompasaison90"_s, fourSeasons(), u"Labelimprim"_s, false, true,
        charts::trace,         false};
    return {
        kindRow<BarColumns>(u"Form89"_s, u"Comparaison Graphique entre Saisons du Classement par Place d'un Pilote"_s,
                            std::move(driver)),
        kindRow<BarColumns>(u"Form90"_s, u"Comparaison Graphique entre Saisons du Classement par Place d'une Ecurie"_s,
                            std::move(team))};
}

}
