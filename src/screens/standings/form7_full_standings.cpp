// SPDX-License-Identifier: GPL-3.0-or-later
// Form7, the drivers' championship in full: what each driver scored in each Grand Prix, in the order of their numbers.
// A moment after it opened the poles are marked; who wants the bare numbers stops that timer.
#include "kinds/detailed_grid.h"
#include "results/main_record.h"
#include "shell/screens.h"
#include "standings/driver_standings.h"
#include "standings/points_matrix.h"
#include "store/season.h"

namespace circuidex::screens {

namespace {

DetailedGridKind driversGrid()
{
    return {
        driverSlots,
        {u"Text1"_s, u"Pilote"_s, 0, Qt::AlignLeft, {}, 1},
        {{{{u"Text2"_s, u"Pts:"_s, 48, Qt::AlignRight, u"Points du pilote"_s}},
          {{u"Text3"_s, u"Ecurie:"_s, 78},
           {u"lblpt"_s, u"Pts:"_s, 48, Qt::AlignRight, u"Points de l'écurie"_s,
            1}}}}};
}

class Form7 : public DetailedGrid {
public:
    Form7(Context &context, const QString &name, const QString &title);

private:
    enum class Poles { unmarked, marked };
    void fill(Poles poles);

    Season m_season; // the one that was open when the screen was
};

Form7::Form7(Context &theContext, const QString &name, const QString &title)
    : DetailedGrid(theContext, name, title, driversGrid()), m_season(theContext.main.season())
{
    fill(Poles::unmarked);
    timer(u"pole"_s, 50, TimerControl::Kind::once, [this] { fill(Poles::marked); });
}

void Form7::fill(Poles poles)
{
    const Waiting waiting(*this);
    standings::PointsMatrix matrix = standings::pointsMatrix(m_season, context.main.scale());
    if (poles == Poles::marked)
        standings::markPoles(matrix, m_season.numbers());
    for (int race = 0; race < races; ++race) {
        setRace(race, matrix.races[static_cast<std::size_t>(race)]);
        for (int number = 1; number <= driverSlots; ++number)
            setCell(number - 1, race, matrix.at(number, race));
    }
    int number = 0;
    for (const standings::DriverLine &line : standings::driverLines(m_season)) {
        set(u"Text2", number, line.points);
        set(u"Text3", number, line.team);
        ++number;
        set(u"Text1", number, line.name);
        set(u"Text1", number + driverSlots, line.name);
        set(u"lblpt", number, line.teamPoints);
    }
}

}

ScreenRows form7()
{
    return {screenRow<Form7>(u"Form7"_s, u"Classement Pilote Détaillé"_s)};
}

}
