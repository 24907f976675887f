// SPDX-License-Identifier: GPL-3.0-or-later
// The charts that compare four drivers or teams Grand Prix by Grand Prix: points added up (Form8, Form41) with the
// subjects two by two in bars and words, place at the finish (Form45), place on the grid (Form53) and a team's points
// in each race (Form71). Form8 simulates the next race, too.
#include "screens/charts/form8_simulation.h"
#include "shell/screens.h"

namespace circuidex::screens {

using namespace charts;

namespace {

constexpr std::string_view driverTip = "Cliquez ici pour mettre en valeur ce pilote";
constexpr std::string_view teamTip = "Cliquez ici pour mettre en valeur cette écurie";
constexpr std::string_view driverAverageTip =
    "Cliquez ici pour mettre en valeur ce pilote et montrer sa moyenne mobile";
constexpr std::string_view teamAverageTip =
    "Cliquez ici pour mettre en valeur cette écurie et montrer sa moyenne mobile";
constexpr std::array<std::string_view, seriesCount> averageMarkers{"Label13", "Label17", "Label18", "Label21"};

constexpr SubjectsChartRow driverPointsRow{
    .controls = {.instance = form8,
                 .markers = {"Label46", "Label47", "Label48", "Label49"},
                 .markerTip = driverTip,
                 .custom = "Personalisée:",
                 .entersWidth = true,
                 .waits = true},
    .list = PickList::drivers,
    .word = "n",
    .links = {
        {{"Progression Ecurie", "Form41"}, {"Progression Classement", "Form45"}, {"Progression Grille", "Form53"}}}};

constexpr SubjectsChartRow teamPointsRow{.controls = {.instance = form41,
                                                      .markers = {"Label46", "Label22", "Label23", "Label24"},
                                                      .markerTip = teamTip,
                                                      .custom = "Personalisée:"},
                                         .list = PickList::teams,
                                         .word = "en"};

constexpr SubjectsChartRow finishPlacesRow{
    .controls = {.instance = form45,
                 .markers = averageMarkers,
                 .markerTip = driverAverageTip,
                 .custom = "Personalisée :"},
    .list = PickList::drivers,
    .word = "pn",
    .explanation = "Ce graphique correspond a l'évolution du classement des pilotes a l'arrivée de chaque GP, elle "
                   "traduit donc l'évolution et les tendences des pilotes.",
    .captions = {{{"1er", 1920, 1},
                  {"2nd", 2640, 2},
                  {"3ème", 3360, 3},
                  {"4ème", 4200, 4},
                  {"5ème", 5040, 5},
                  {"6ème", 5880, 6},
                  {"7ème", 6720, 7},
                  {"8ème", 7440, 8},
                  {"9 et +", 8040, unplaced}}}};

constexpr SubjectsChartRow gridPlacesRow{
    .controls = {.instance = form53,
                 .markers = averageMarkers,
                 .markerTip = driverAverageTip,
                 .custom = "Personalisée :"},
    .list = PickList::drivers,
    .word = "2pn",
    .explanation = "Ce graphique correspond a l'évolution du classement des pilotes sur la Grille de Départ de chaque "
                   "GP, elle traduit donc l'évolution et les tendences des pilotes.",
    .captions = {{{"1er", 1800, 1},
                  {"3ème", 2520, 3},
                  {"6ème", 3240, 6},
                  {"9ème", 4080, 9},
                  {"12ème", 4920, 12},
                  {"15ème", 5760, 15},
                  {"18ème", 6600, 18},
                  {"20ème", 7320, 20},
                  {"22-26ème", 8040, notOnGrid}}}};

constexpr SubjectsChartRow teamPointsByRaceRow{
    .controls = {.instance = form71,
                 .markers = averageMarkers,
                 .markerTip = teamAverageTip,
                 .custom = "Personalisée :",
                 .waits = true},
    .list = PickList::teams,
    .word = "ptsgpecu",
    .explanation = "Ce graphique correspond a l'évolution du nombre de points que marquent chaque écurie au cours des "
                   "différents Grands Prix de la saison.",
    .captions = {{{"18 pts", 1800, 18},
                  {"16 pts", 2520, 16},
                  {"14 pts", 3240, 14},
                  {"12 pts", 4080, 12},
                  {"10 pts", 4920, 10},
                  {"8 pts", 5760, 8},
                  {"6 pts", 6600, 6},
                  {"4 pts", 7320, 4},
                  {"0 - 2 pts", 8040, 0}}}};

class PointChart : public SubjectsChart {
public:
    PointChart(Context &theContext, const QString &name, const QString &title, const SubjectsChartRow &row)
        : SubjectsChart(theContext, name, title, row)
    {
        layOut();
    }
};

template <class S = PointChart>
ScreenRow chart(const SubjectsChartRow &row, const QString &title)
{
    return kindRow<S>(qt(row.controls.instance.screen), title, std::cref(row));
}

}

ScreenRows form8()
{
    return {chart<SimulatingChart>(driverPointsRow, u"Graphique des Points Pilote"_s),
            chart(teamPointsRow, u"Graphique des Points Ecurie"_s),
            chart(finishPlacesRow, u"Classement Pilote à l'Arrivée"_s),
            chart(gridPlacesRow, u"Grille de Départ par Pilote"_s),
            chart(teamPointsByRaceRow, u"Nombre de Points par GP par Ecurie"_s)};
}

}
