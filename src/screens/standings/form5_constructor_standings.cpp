// SPDX-License-Identifier: GPL-3.0-or-later
// Form5, the constructors' championship: up to 13 rows of teams sorted by points, teams that are level in one row, each
// row with its gap to the favourite.
#include "kinds/standings_screen.h"
#include "results/main_record.h"
#include "shell/screens.h"
#include "standings/constructor_standings.h"

namespace circuidex::screens {

namespace {

StandingsKind constructorsKind()
{
    return {
        u"Ecurie favorite:"_s,
        u"Ecurie précédente (Page préc.)"_s,
        u"Ecurie suivante (Page suiv.)"_s,
        u"Form42"_s,
        u"classlist"_s,
        {{u"Text3"_s, u"Ecurie"_s},
         {u"Text4"_s, u"Points"_s, 70, Qt::AlignRight,
          u"Nombre de point(s) de l'écurie"_s},
         {u"lblpt"_s, u"Ecart"_s, 70, Qt::AlignRight,
          u"Ecart en point(s) par rapport à l'écurie séléctionnée: pour selectionner une écurie, cliquez "
                         "dessus"_s}},
        standings::teamRows,
        standings::teamArrows};
}

class Form5 : public StandingsScreen {
public:
    Form5(Context &context, const QString &name, const QString &title);

protected:
    std::string next(int by) const override;
    std::string nameAt(const std::string &number) const override;
    void closing() override;

private:
    void registerHidden();
};

Form5::Form5(Context &theContext, const QString &name, const QString &title)
    : StandingsScreen(theContext, name, title, constructorsKind())
{
    m_favourite.set(season().read(keys::N, standings::favouriteTeam));
    findFavourite();
    registerHidden();
    fill(standings::constructorStandings(season(), m_favourite.text()));
    resize(560, sizeHint().height());
}

// The teams in the order of the drivers, with the makes of their tyres.
void Form5::registerHidden()
{
    int number = 0;
    for (const standings::TeamLine &line : standings::teamLines(season())) {
        hidden(u"Text1"_s, qt(line.name), {}, number);
        Control &tyre = hidden(u"Label3"_s, qt(line.tyre), {}, number);
        ++number;
        hidden(u"Text2"_s, qt(line.points), {}, number);
        tyre.onPress = [this, &tyre, number] { tyre.setText(qt(standings::changeTyre(writableSeason(), season().ecurie(number)))); };
    }
}

std::string Form5::next(int by) const
{
    return standings::steppedTeam(season(), m_number.text(), by, m_favourite.text());
}

std::string Form5::nameAt(const std::string &number) const
{
    return season().ecurie(number);
}

void Form5::closing()
{
    StandingsScreen::closing();
    standings::keepFavourite(context.main.writableSeason(), standings::favouriteTeam, m_favourite.text());
}

}

ScreenRows form5()
{
    return {screenRow<Form5>(u"Form5"_s, u"Classement Constructeur"_s)};
}

}
