#include "app/screens.h"

#include "charts/form8_point_charts.h"
#include "results/form12_podium.h"
#include "results/form1_main.h"
#include "results/form2_drivers.h"
#include "results/form26_pickers.h"
#include "results/form30_scale.h"
#include "results/form34_calendar.h"
#include "results/form38_driver_list.h"
#include "results/form39_new_season.h"
#include "results/form3_driver_profile.h"
#include "results/form48_grid.h"
#include "results/form49_assistants.h"
#include "results/form4_open_grand_prix.h"
#include "shell/form57_menus.h"
#include "shell/form59_window_list.h"
#include "standings/form20_wins_by_grand_prix.h"
#include "standings/form21_wins_by_season.h"
#include "standings/form23_wins_by_driver.h"
#include "standings/form24_winner_search.h"
#include "standings/form33_race_list.h"
#include "standings/form5_constructor_standings.h"
#include "standings/form6_driver_standings.h"
#include "standings/form70_team_detail.h"
#include "standings/form7_full_standings.h"
#include "statistics/form14_driver_sheet.h"
#include "statistics/form32_season_statistics.h"

namespace circuidex {

namespace {

template <class S>
Screen *make(Context &context, const QString &name, const QString &title)
{
    return new S(context, name, title);
}

}

std::vector<ScreenRow> screenRows()
{
    const auto text = [](const char *utf8) { return QString::fromUtf8(utf8); };
    std::vector<ScreenRow> rows = {
        {text("Form1"), text(" .:Circuidex:. "), make<Form1>},
        {text("Form2"), text("Pilotes"), make<Form2>},
        {text("Form3"), text("Profil Pilote"), make<Form3>},
        {text("Form4"), text("Ouverture de Grand-Prix"), make<Form4>},
        {text("Form5"), text("Classement Constructeur"), make<Form5>},
        {text("Form6"), text("Classement Pilote"), make<Form6>},
        {text("Form7"), text("Classement Pilote Détaillé"), make<Form7>},
        {text("Form8"), text("Graphique des Points Pilote"), make<PointChart>},
        {text("Form12"), text("Podium"), make<Form12>},
        {text("Form14"), text("Statistiques"), make<Form14>},
        {text("Form20"), text("Victoires par Grand-prix"), make<Form20>},
        {text("Form21"), text("Victoires par Saison"), make<Form21>},
        {text("Form23"), text("Victoires par Pilote"), make<Form23>},
        {text("Form24"), text("Recherche d'un Vainqueur"), make<Form24>},
        {text("Form25"), text("Liste des Grands-Prix"), make<Form25>},
        {text("Form26"), text("Liste des Pilotes"), make<Form26>},
        {text("Form30"), text("Barème d'attribution des points des 8 premiers"), make<Form30>},
        {text("Form32"), text("Statistiques de la Saison"), make<Form32>,
         [](Screen &screen) { screen.press(QStringLiteral("Command17")); }},
        {text("Form33"), text("Liste des Grands-Prix"), make<Form33>},
        {text("Form34"), text("Calendrier de la Saison"), make<Form34>},
        {text("Form38"), text("Liste des pilotes"), make<Form38>},
        {text("Form39"), text("Créer une nouvelle saison"), make<Form39>},
        {text("Form40"), text("Eenregistrement de Grand-Prix"), make<Form40>},
        {text("Form41"), text("Graphique des Points Ecurie"), make<PointChart>},
        {text("Form42"), text("Liste des Ecuries"), make<Form42>},
        {text("Form45"), text("Classement Pilote à l'Arrivée"), make<PointChart>},
        {text("Form48"), text("Grille de Départ"), make<Form48>},
        {text("Form49"), text("Enregistrement de la Grille de Départ"), make<Form49>},
        {text("Form53"), text("Grille de Départ par Pilote"), make<PointChart>},
        {text("Form59"), text("Liste des Fenêtres de Circuidex"), make<Form59>},
        {text("Form70"), text("Classement Constructeur Détaillé"), make<Form70>},
        {text("Form71"), text("Nombre de Points par GP par Ecurie"), make<PointChart>},
    };
    for (const menus::Menu &menu : menus::all())
        rows.push_back({qt(menu.name), qt(menu.heading), make<DropDown>});
    return rows;
}

}
