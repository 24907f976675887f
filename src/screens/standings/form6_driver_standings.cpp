// SPDX-License-Identifier: GPL-3.0-or-later
// Form6, the drivers' championship: the season's 26 numbers sorted by points, each with his gap to the favourite.
#include "kinds/standings_screen.h"
#include "shell/screens.h"
#include "standings/driver_standings.h"

namespace circuidex::screens {

namespace {

StandingsKind driversKind()
{
    return {
        u"Pilote favori:"_s,
        u"Pilote précédent (Page préc.)"_s,
        u"Pilote suivant (Page suiv.)"_s,
        u"Form26"_s,
        u"fr6"_s,
        {{u"Text3"_s, u"Pilote"_s, 0, Qt::AlignLeft, u"Nom du pilote"_s},
         {u"Label6"_s, u"Ecurie"_s, 130, Qt::AlignLeft, u"Ecurie du pilote"_s},
         {u"Text4"_s, u"Points"_s, 70, Qt::AlignRight,
          u"Nombre de point(s) du pilote au championnat actuel"_s},
         {u"lblpt"_s, u"Ecart"_s, 70, Qt::AlignRight,
          u"Ecart en point(s) par rapport au pilote séléctionné: pour selectionner un pilote, cliquez "
                         "dessus"_s}},
        driverSlots,
        standings::driverArrows};
}

class Form6 : public StandingsScreen {
public:
    Form6(Context &context, const QString &name, const QString &title);

protected:
    std::string next(int by) const override;
    std::string nameAt(const std::string &number) const override;
};

Form6::Form6(Context &theContext, const QString &name, const QString &title)
    : StandingsScreen(theContext, name, title, driversKind())
{
    findFavourite();
    int number = 0;
    for (const standings::DriverLine &line : standings::driverLines(season())) {
        ++number;
        hidden(u"Text1"_s, qt(line.name), {}, number);
        hidden(u"Text2"_s, qt(line.points), {}, number);
        hidden(u"Label11"_s, qt(line.team), {}, number);
    }
    const standings::DriverStandings standings = standings::driverStandings(season(), m_favourite.text());
    hidden(u"first"_s, standings.leader ? QString::number(*standings.leader) : QString());
    fill(standings.table);
    resize(560, sizeHint().height());
}

std::string Form6::next(int by) const
{
    return standings::steppedDriver(m_number.text(), by, season().numbers());
}

std::string Form6::nameAt(const std::string &number) const
{
    return season().nom(number);
}

}

ScreenRows form6()
{
    return {screenRow<Form6>(u"Form6"_s, u"Classement Pilote"_s)};
}

}
