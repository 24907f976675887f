// SPDX-License-Identifier: GPL-3.0-or-later
// Form70, the constructors' championship in full: what each team scored in each Grand Prix.
#include "kinds/detailed_grid.h"
#include "results/main_record.h"
#include "shell/screens.h"
#include "standings/constructor_standings.h"

namespace circuidex::screens {

namespace {

DetailedGridKind teamsGrid()
{
    const auto points = [](int firstIndex) {
        return std::vector<Column>{{u"Text2"_s, u"Pts:"_s, 48, Qt::AlignRight,
                                    u"Points de l'écurie"_s, firstIndex}};
    };
    return {standings::teamRows,
            {u"Text1"_s, u"Ecurie"_s, 0, Qt::AlignLeft, {}, 1},
            {points(0), points(standings::teamRows)}};
}

class Form70 : public DetailedGrid {
public:
    Form70(Context &context, const QString &name, const QString &title);

private:
    void fill();
};

Form70::Form70(Context &theContext, const QString &name, const QString &title)
    : DetailedGrid(theContext, name, title, teamsGrid())
{
    fill();
}

void Form70::fill()
{
    const Waiting waiting(*this);
    const Season season = context.main.season();
    for (int race = 0; race < races; ++race)
        setRace(race, season.namegp(race));
    int row = 0;
    for (const standings::TeamDetail &team : standings::teamDetails(season)) {
        for (int race = 0; race < races; ++race)
            setCell(row, race, team.races[static_cast<std::size_t>(race)]);
        for (const int band : {0, standings::teamRows}) {
            set(u"Text1", 1 + row + band, team.name);
            set(u"Text2", row + band, team.points);
        }
        ++row;
    }
}

}

ScreenRows form70()
{
    return {screenRow<Form70>(u"Form70"_s, u"Classement Constructeur Détaillé"_s)};
}

}
