// SPDX-License-Identifier: GPL-3.0-or-later
// How often somebody stood at each place of the first races of a season, in upright bars: the drivers of a team
// together (Form91), or a driver (Form92).
#include "kinds/bar_columns.h"
#include "shell/look.h"
#include "shell/screens.h"

namespace circuidex::screens {

namespace {

ColumnsOfSeason byPlace()
{
    return {u"Label1"_s, u"Label5"_s, look::finishShades(), look::gridShades()};
}

}

ScreenRows form91()
{
    ColumnsKind team{charts::Counted::team,
                     u"nomecurie"_s,
                     u"graphcompasaison91"_s,
                     {byPlace()},
                     u"Label12"_s,
                     false,
                     false,
                     0,
                     true};
    ColumnsKind driver{
        charts::Counted::driver, u"nomecurie"_s, u"pilotcompaan92"_s, {byPlace()}, u"Label12"_s, true, false, 0, true};
    return {kindRow<BarColumns>(u"Form91"_s, u"Graphique du Classement par GP d'une Ecurie"_s, std::move(team)),
            kindRow<BarColumns>(u"Form92"_s, u"Graphique du Classement par GP d'un Pilote"_s, std::move(driver))};
}

}
