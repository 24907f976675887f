#include "standings/form5_constructor_standings.h"

#include "results/main_screen.h"
#include "standings/constructor_standings.h"

namespace circuidex {

namespace {

constexpr std::string_view favouriteKey = "ecuriesauvegardee";

StandingsKind kind()
{
    return {
        QStringLiteral("Ecurie favorite:"),
        QStringLiteral("Ecurie précédente (Page préc.)"),
        QStringLiteral("Ecurie suivante (Page suiv.)"),
        QStringLiteral("Form42"),
        QStringLiteral("classlist"),
        {{QStringLiteral("Text3"), QStringLiteral("Ecurie")},
         {QStringLiteral("Text4"), QStringLiteral("Points"), 70, Qt::AlignRight,
          QStringLiteral("Nombre de point(s) de l'écurie")},
         {QStringLiteral("lblpt"), QStringLiteral("Ecart"), 70, Qt::AlignRight,
          QStringLiteral("Ecart en point(s) par rapport à l'écurie séléctionnée: pour selectionner une écurie, cliquez "
                         "dessus")}},
        teamRows,
        "nopilott2"};
}

}

Form5::Form5(Context &theContext, const QString &name, const QString &title)
    : StandingsScreen(theContext, name, title, kind())
{
    m_favourite.set(season().read(keys::N, favouriteKey));
    findFavourite();
    registerHidden();
    fill(constructorStandings(season(), m_favourite.text()));
    resize(560, sizeHint().height());
}

// The teams in the order of the drivers, with the makes of their tyres.
void Form5::registerHidden()
{
    int number = 0;
    for (const TeamLine &line : teamLines(season())) {
        hidden(QStringLiteral("Text1"), qt(line.name), {}, number);
        Control &tyre = hidden(QStringLiteral("Label3"), qt(line.tyre), {}, number);
        ++number;
        hidden(QStringLiteral("Text2"), qt(line.points), {}, number);
        tyre.onPress = [this, &tyre, number] { tyre.setText(qt(changeTyre(season(), season().ecurie(number)))); };
    }
}

std::string Form5::next(int by) const
{
    return steppedTeam(season(), m_number.text(), by, m_favourite.text());
}

std::string Form5::nameAt(const std::string &number) const
{
    return season().ecurie(number);
}

void Form5::closing()
{
    StandingsScreen::closing();
    context.main.season().write(keys::N, favouriteKey, m_favourite.text());
}

}
