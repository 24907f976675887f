#include "standings/form7_full_standings.h"

#include "results/main_screen.h"
#include "standings/driver_standings.h"
#include "standings/points_matrix.h"

namespace circuidex {

namespace {

DetailedGridKind kind()
{
    return {
        driverSlots,
        {QStringLiteral("Text1"), QStringLiteral("Pilote"), 0, Qt::AlignLeft, {}, 1},
        {{{{QStringLiteral("Text2"), QStringLiteral("Pts:"), 48, Qt::AlignRight, QStringLiteral("Points du pilote")}},
          {{QStringLiteral("Text3"), QStringLiteral("Ecurie:"), 78},
           {QStringLiteral("lblpt"), QStringLiteral("Pts:"), 48, Qt::AlignRight, QStringLiteral("Points de l'écurie"),
            1}}}}};
}

}

Form7::Form7(Context &theContext, const QString &name, const QString &title)
    : DetailedGrid(theContext, name, title, kind()), m_season(theContext.main.season())
{
    fill(Poles::unmarked);
    timer(QStringLiteral("pole"), 50, TimerControl::Kind::once, [this] { fill(Poles::marked); });
}

void Form7::fill(Poles poles)
{
    const Waiting waiting(*this);
    PointsMatrix matrix = pointsMatrix(m_season, context.main.scale());
    if (poles == Poles::marked)
        markPoles(matrix, m_season.numbers());
    for (int race = 0; race < races; ++race) {
        setRace(race, matrix.races[static_cast<std::size_t>(race)]);
        for (int number = 1; number <= driverSlots; ++number)
            setCell(number - 1, race, matrix.at(number, race));
    }
    int number = 0;
    for (const DriverLine &line : driverLines(m_season)) {
        set(u"Text2", number, line.points);
        set(u"Text3", number, line.team);
        ++number;
        set(u"Text1", number, line.name);
        set(u"Text1", number + driverSlots, line.name);
        set(u"lblpt", number, line.teamPoints);
    }
}

}
