#include "standings/form70_team_detail.h"

#include "results/main_screen.h"
#include "standings/constructor_standings.h"

namespace circuidex {

namespace {

DetailedGridKind kind()
{
    const auto points = [](int firstIndex) {
        return std::vector<Column>{{QStringLiteral("Text2"), QStringLiteral("Pts:"), 48, Qt::AlignRight,
                                    QStringLiteral("Points de l'écurie"), firstIndex}};
    };
    return {teamRows,
            {QStringLiteral("Text1"), QStringLiteral("Ecurie"), 0, Qt::AlignLeft, {}, 1},
            {points(0), points(teamRows)}};
}

}

Form70::Form70(Context &theContext, const QString &name, const QString &title)
    : DetailedGrid(theContext, name, title, kind())
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
    for (const TeamDetail &team : teamDetails(season)) {
        for (int race = 0; race < races; ++race)
            setCell(row, race, team.races[static_cast<std::size_t>(race)]);
        for (const int band : {0, teamRows}) {
            set(u"Text1", 1 + row + band, team.name);
            set(u"Text2", row + band, team.points);
        }
        ++row;
    }
}

}
