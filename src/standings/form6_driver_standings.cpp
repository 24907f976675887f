#include "standings/form6_driver_standings.h"

#include "standings/driver_standings.h"

namespace circuidex {

namespace {

StandingsKind kind()
{
    return {
        QStringLiteral("Pilote favori:"),
        QStringLiteral("Pilote précédent (Page préc.)"),
        QStringLiteral("Pilote suivant (Page suiv.)"),
        QStringLiteral("Form26"),
        QStringLiteral("fr6"),
        {{QStringLiteral("Text3"), QStringLiteral("Pilote"), 0, Qt::AlignLeft, QStringLiteral("Nom du pilote")},
         {QStringLiteral("Label6"), QStringLiteral("Ecurie"), 130, Qt::AlignLeft, QStringLiteral("Ecurie du pilote")},
         {QStringLiteral("Text4"), QStringLiteral("Points"), 70, Qt::AlignRight,
          QStringLiteral("Nombre de point(s) du pilote au championnat actuel")},
         {QStringLiteral("lblpt"), QStringLiteral("Ecart"), 70, Qt::AlignRight,
          QStringLiteral("Ecart en point(s) par rapport au pilote séléctionné: pour selectionner un pilote, cliquez "
                         "dessus")}},
        driverSlots,
        "nopilott"};
}

}

Form6::Form6(Context &theContext, const QString &name, const QString &title)
    : StandingsScreen(theContext, name, title, kind())
{
    findFavourite();
    int number = 0;
    for (const DriverLine &line : driverLines(season())) {
        ++number;
        hidden(QStringLiteral("Text1"), qt(line.name), {}, number);
        hidden(QStringLiteral("Text2"), qt(line.points), {}, number);
        hidden(QStringLiteral("Label11"), qt(line.team), {}, number);
    }
    const DriverStandings standings = driverStandings(season(), m_favourite.text());
    hidden(QStringLiteral("first"), standings.leader ? QString::number(*standings.leader) : QString());
    fill(standings.table);
    resize(560, sizeHint().height());
}

std::string Form6::next(int by) const
{
    return steppedDriver(m_number.text(), by, season().numbers());
}

std::string Form6::nameAt(const std::string &number) const
{
    return season().nom(number);
}

}
