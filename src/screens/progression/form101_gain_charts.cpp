// SPDX-License-Identifier: GPL-3.0-or-later
// The charts of places gained in the race: of four drivers (Form101) or four teams (Form105) through the season, of one
// driver (Form103) or one team (Form107) over four seasons, and each of them summed up (Form102, Form106, Form104,
// Form108).
#include "kinds/seasons_chart.h"
#include "kinds/subjects_chart.h"
#include "progression/gain_charts.h"
#include "shell/screens.h"

namespace circuidex::screens {

using namespace progression;

namespace {

constexpr std::string_view driverTip = "Cliquez ici pour mettre en valeur ce pilote";
constexpr std::string_view teamTip = "Cliquez ici pour mettre en valeur cette écurie";
constexpr std::string_view seasonTip = "Cliquez ici pour mettre en valeur cette saison";

constexpr ChartControls controls(const Instance &instance, std::string_view tip, bool waits = false)
{
    return {.instance = instance,
            .markers = {"Label46", "Label47", "Label48", "Label49"},
            .markerTip = tip,
            .custom = "Personalisée:",
            .entersWidth = true,
            .waits = waits};
}

constexpr SubjectsChartRow drivers{
    .controls = controls(form101, driverTip), .list = PickList::drivers, .word = "nprog"};
constexpr SubjectsChartRow driversSummed{
    .controls = controls(form102, driverTip), .list = PickList::drivers, .word = "nprog2"};
constexpr SubjectsChartRow teams{
    .controls = controls(form105, teamTip, true), .list = PickList::teams, .word = {}, .wordEnd = "graphecuprogr105"};
constexpr SubjectsChartRow teamsSummed{
    .controls = controls(form106, teamTip, true), .list = PickList::teams, .word = {}, .wordEnd = "graphecuprogr106"};

constexpr SeasonsChartRow driverSeasons{
    .controls = controls(form103, seasonTip), .word = "progressioncompasaison103", .heads = {}, .draw = "Ok"};
constexpr SeasonsChartRow driverSeasonsSummed{
    .controls = controls(form104, seasonTip), .word = "progressioncompasaison104", .heads = {}, .draw = "Ok"};
constexpr SeasonsChartRow teamSeasons{
    .controls = controls(form107, teamTip, true), .word = "graphecuprogr107", .heads = {}, .draw = "Ok"};
constexpr SeasonsChartRow teamSeasonsSummed{
    .controls = controls(form108, teamTip, true), .word = "graphecuprogr108", .heads = {}, .draw = "Ok"};

class GainChart : public SubjectsChart {
public:
    GainChart(Context &theContext, const QString &name, const QString &title, const SubjectsChartRow &row)
        : SubjectsChart(theContext, name, title, row)
    {
        layOut();
    }
};

template <class Screen, class Row>
ScreenRow chart(const Row &row, const QString &title)
{
    return kindRow<Screen>(qt(row.controls.instance.screen), title, std::cref(row));
}

}

ScreenRows form101()
{
    const QString between = u"Comparaison Graphique entre Saisons "_s;
    return {chart<GainChart>(drivers, u"Graphique des Progressions en Course des Pilotes"_s),
            chart<GainChart>(driversSummed, u"Graphique du Cumul des Progressions en Course des Pilotes"_s),
            chart<GainChart>(teams, u"Graphique des Progressions en Course des Ecuries"_s),
            chart<GainChart>(teamsSummed, u"Graphique du Cumul des Progressions en Course des Ecuries"_s),
            chart<SeasonsChart>(driverSeasons, between + u"de la Progression en Course d'un Pilote"_s),
            chart<SeasonsChart>(driverSeasonsSummed, between + u"du Cumul des Progressions en Course d'un Pilote"_s),
            chart<SeasonsChart>(teamSeasons, between + u"des Progressions en Course d'une Ecurie"_s),
            chart<SeasonsChart>(teamSeasonsSummed, between + u"du Cumul des Progressions en Course d'une Ecurie"_s)};
}

}
