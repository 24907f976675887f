// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/menus.h"

#include <algorithm>

namespace circuidex::menus {

namespace {

using enum Standing;

constexpr Entry toSeasonStatistics{.caption = "Saison ", .screen = "Form32", .press = "Command17", .season = true};
constexpr Entry toFieldStatistics{.caption = "Plateau ", .screen = "Form69", .season = true};

// clang-format off
constexpr Menu tree[] = {
    {"Form57", "Classement", atButton,
     {{"General", "Form111"},
      {"Représentations Graphiques", "Form112"},
      {"Pilote", "Form113"}},
     "Command32"},
    {"Form52", "Statistiques", atButton,
     {{"Statistiques", "Form114"},
      {"Resumé de Saison", "Form115"},
      {"Comparaisons ", "Form116"},
      {"Progressions en Course", "Form117"},
      {"Circuits", "Form118"}},
     "Command20"},
    {"Form43", "Courbes et Graphiques", atButton,
     {{"Points / Classements", "Form119"},
      {"Progression en Course", "Form109"},
      {"Graphiques existants ailleur"},
      {"Statistiques / Classements", "Form120"},
      {"Comparaison entre Saisons", "Form95"},
      {.caption = "Comparaison entre Saisons des Progression en Course", .screen = "Form110", .tag = "2"}},
     "Command11", "Text8"},
    {"Form84", "Comparaison entre Saisons", atButton,
     {{"Pilote", "Form121"},
      {"Ecurie", "Form122"},
      {"Graphiques"},
      {"Pilote", "Form123"},
      {"Ecurie", "Form124"},
      {"Progression en Course", "Form110"}},
     "Command31"},
    {"Form22", "Vainqueurs / Grille de Départ", atButton,
     {{"Vainqueurs", "Form126"},
      {"Grille de Départ", "Form127"}},
     "Command15"},
    {"Form58", "Galeries", atButton,
     {{"Journal", "Form28"},
      {"Photo", "Form15"},
      {.caption = "Vidéo", .screen = "frmmain", .insteadOfMain = true},
      {"Voir Catalogue de Vidéos en Ligne", "Form96"}},
     "Command33"},

    {"Form111", "Classement General", nearTop,
     {{"Pilote", "Form6"},
      {"Pilote Détaillé", "Form7"},
      {"Constructeur", "Form5"},
      {"Constructeur Détaillé", "Form70"}}},
    {"Form112", "Représentations Graphiques", nearBottom,
     {{"Classement d'un Pilote (GP par GP)", "Form92"},
      {"Classement d'un Pilote (Sur la Saison)", "Form51"},
      {"Classement d'un Pilote (Sur plusieurs Saisons)", "Form77"},
      {"Classement d'une Ecurie", "Form91"}}},
    {"Form113", "Pilote", nearBottom,
     {{"Tous les Pilotes par Place", "Form63"},
      {"Un Pilote par Place", "Form76"},
      {"Un Pilote par Grand Prix", "Form31"}}},

    {"Form114", "Statistiques", nearTop, {toFieldStatistics, toSeasonStatistics}},
    {"Form115", "Résumés de Saisons", levelWithEntry, {{"Pilote", "Form60"}, {"Ecurie", "Form61"}}},
    {"Form116", "Comparaisons", levelWithEntry, {{"Pilotes", "Form36"}, {"Ecuries", "Form73"}}},
    {"Form117", "Progressions en Course", levelWithEntry, {{"Pilotes", "Form50"}, {"D'une Ecurie", "Form100"}}},
    {"Form118", "Circuits", nearBottom,
     {{"Caractéristiques", "Form68"},
      {"Résultats d'un Pilote sur un Circuit", "Form94"}}},

    {"Form119", "Points / Classement", nearTop,
     {{"Cumul des Points Pilote", "Form8"},
      {"Classement par GP par Pilote", "Form45"},
      {"Grille de Départ Pilote", "Form53"},
      {"Progression du Classement Pilote", "Form72"},
      {"Cumul des Points Ecurie", "Form41"},
      {"Points par GP par Ecurie", "Form71"}}},
    {"Form109", "Progression en Course", nearTop,
     {{"Progression en Course des Pilotes", "Form101"},
      {"Cumul des Progressions en Course des Pilotes", "Form102"},
      {"Progression en Course des Ecuries", "Form105"},
      {"Cumul des Progressions en Course des Ecuries", "Form106"}}},
    {"Form120", "Statistiques / Classements", nearBottom,
     {toSeasonStatistics,
      toFieldStatistics,
      {"Classement d'un Pilote (GP par GP)", "Form92"},
      {"Classement d'un Pilote (Sur la Saison)", "Form51"},
      {"Classement d'un Pilote (Sur plusieurs Saisons)", "Form77"},
      {"Classement d'une Ecurie", "Form91"}}},
    {"Form95", "Comparaison entre Saisons", nearBottom,
     {{"Classement par Place d'un Pilote", "Form89"},
      {"Classement par Place d'une Ecurie", "Form90"},
      {"Nombre de Points Pilote", "Form86"},
      {"Nombre de Points Pilote Cumulé", "Form85"},
      {"Nombre de Points Ecurie", "Form88"},
      {"Nombre de Points Ecurie Cumulé", "Form87"}}},
    {"Form110", "Progression en Course", nearBottom,
     {{"Progression en Course d'un Pilote", "Form103"},
      {"Cumul des Progressions en Course d'un Pilote", "Form104"},
      {"Progression en Course d'une Ecurie", "Form107"},
      {"Cumul des Progressions en Course d'une Ecurie", "Form108"}}},

    {"Form121", "Pilote", nearTop,
     {{"Nombre de Points Plateau", "Form79"},
      {"Nombre de Points", "Form81"},
      {"Nombre de Points Cumulés", "Form83"}}},
    {"Form122", "Ecurie", nearTop,
     {{"Nombre de Points Plateau", "Form78"},
      {"Nombre de Points", "Form80"},
      {"Nombre de Points Cumulés", "Form82"}}},
    {"Form123", "Pilote", nearBottom,
     {{"Classement par Place", "Form89"},
      {"Nombre de Points", "Form86"},
      {"Nombre de Points Cumulés", "Form85"}}},
    {"Form124", "Ecurie", nearBottom,
     {{"Classement par Place", "Form90"},
      {"Nombre de Points", "Form88"},
      {"Nombre de Points Cumulés", "Form87"}}},

    {"Form126", "Vainqueurs", inTheMiddle,
     {{"Grand Prix", "Form20"},
      {"Saison", "Form21"},
      {"Pilotes", "Form23"},
      {"Rechercher Vainqueur", "Form24"}}},
    {"Form127", "Grille de Départ", inTheMiddle,
     {{"Grand Prix", "Form4"},
      {"Saison", "Form55"},
      {"Pilote par GP", "Form56"},
      {"Pilote par Place", "Form75"}}},
};

constexpr Group list[] = {
    {0, "Classements",
     {{"Graphique par Pilote sur la Saison", "Form51"},
      {"Par Saison", "Form63"},
      {"D'un Pilote par GP", "Form31"},
      {"Pilote Détaillé", "Form7"},
      {"Constructeur", "Form5"},
      {"Pilote", "Form6"},
      {"Constructeur Détaillé", "Form70"},
      {"Graphique par Pilote a Long Terme", "Form77"},
      {"D'un Pilote par Place", "Form76"},
      {"Graphique d'un Pilote par GP", "Form92"},
      {"Graphique d'une Ecurie par GP", "Form91"}}},
    {0, "Statistiques",
     {{.caption = "Saison ", .screen = "Form32", .press = "Command17", .season = true, .control = "Label7"},
      {"Comparer Pilotes", "Form36"},
      {"Saison par Pilote", "Form60"},
      {"Saison par Ecurie", "Form61"},
      {"Progression en Course Pilotes", "Form50"},
      {"Caractéristiques Circuits", "Form68"},
      {.caption = "Plateau ", .screen = "Form69", .season = true, .control = "Label41"},
      {"Comparer Ecuries", "Form73"},
      {"Résultats d'un Pilote sur un Circuit", "Form94"},
      {"Progression en Course d'une Ecurie", "Form100"}}},
    {1, "Courbes et Graphiques",
     {{"Classement par GP par Pilote", "Form45"},
      {"Grille de Départ Pilote", "Form53"},
      {"Points Ecuries", "Form41"},
      {"Points Pilotes", "Form8"},
      {"Points par GP par Ecurie", "Form71"},
      {"Progression du Classement Pilote", "Form72"}}},
    {1, "Progression en Course",
     {{"Progression en Course des Pilotes", "Form101"},
      {"Cumul des Progressions en Course des Pilotes", "Form102"},
      {"Progression en Course des Ecuries", "Form105"},
      {"Cumul des Progressions en Course des Ecuries", "Form106"}}},
    {1, "Multimédia",
     {{"Journal", "Form28"},
      {.caption = "Galerie Vidéo", .screen = "frmmain", .insteadOfMain = true},
      {"Galerie Photo", "Form15"},
      {"Voir Catalogue de Vidéos en Ligne", "Form96"}}},
    {1, "Grille de Départ",
     {{"Par Grand-prix", "Form4"},
      {"Pilote par GP", "Form56"},
      {"Par Saison", "Form55"},
      {"Pilote par Place", "Form75"}}},
    {1, "Vainqueurs",
     {{"Recherche Vainqueur", "Form24"},
      {"Par Grand-prix", "Form20"},
      {"Par Pilote", "Form23"},
      {"Par Saison", "Form21"}}},
    {2, "Comparaison entre Saisons",
     {{"Nombre de Points Ecurie Cumulé", "Form82"},
      {"Nombre de Points Pilote", "Form81"},
      {"Nombre de Points Plateau Pilote", "Form79"},
      {"Nombre de Points Ecurie", "Form80"},
      {"Nombre de Points Pilote Cumulé", "Form83"},
      {"Nombre de Points Plateau Ecurie", "Form78"}}},
    {2, "Graphiques Comparaison",
     {{"Nombre de Points Pilote", "Form86"},
      {"Classement par Place d'une Ecurie", "Form90"},
      {"Classement par Place d'un Pilote", "Form89"},
      {"Nombre de Points Ecurie Cumulé", "Form87"},
      {"Nombre de Points Ecurie", "Form88"},
      {"Nombre de Points Pilote Cumulé", "Form85"}}},
    {2, "Progression en Course",
     {{"Progression en Course d'un Pilote", "Form103"},
      {"Cumul des Progressions en Course d'un Pilote", "Form104"},
      {"Progression en Course d'une Ecurie", "Form107"},
      {"Cumul des Progressions en Course d'une Ecurie", "Form108"}}},
    {2, "Autres",
     {{"Liste des Pilotes", "Form38"},
      {"Ouvrir un Grand-prix", "Form4"},
      {"Profil Pilote", "Form3"},
      {"Calendrier", "Form34"},
      {"Pronostics", "Form11"}}},
};

// clang-format on

template <std::size_t N>
std::span<const Entry> used(const Entry (&rows)[N])
{
    const auto end = std::find_if(std::begin(rows), std::end(rows), [](const Entry &e) { return e.caption.empty(); });
    return {std::begin(rows), end};
}

// Twips between the edge of a drop-down and that of its side screen.
constexpr double sideOverlap = 10, sideMargin = 100;
constexpr double buttonGap = 4 * twipsPerPixel;

}

std::span<const Entry> Menu::entries() const
{
    return used(rows);
}

std::span<const Entry> Group::entries() const
{
    return used(rows);
}

std::span<const Menu> all()
{
    return tree;
}

const Menu *find(std::string_view name)
{
    const auto found = std::ranges::find(tree, name, &Menu::name);
    return found == std::end(tree) ? nullptr : found;
}

const Menu *parentOf(std::string_view side, std::string_view tag)
{
    for (const Menu &menu : tree)
        for (const Entry &entry : menu.entries())
            if (entry.screen == side && entry.tag == tag)
                return &menu;
    return nullptr;
}

std::span<const Group> windowList()
{
    return list;
}

TwipRect besideParent(Standing standing, const TwipRect &parent, const TwipRect &own, double entryTop)
{
    TwipRect place = own;
    place.left = parent.left + parent.width - sideOverlap;
    switch (standing) {
    case atButton:
    case nearTop:
        place.top = parent.top + sideMargin;
        break;
    case levelWithEntry:
        place.top = parent.top + entryTop;
        break;
    case inTheMiddle:
        place.top = parent.top + parent.height / 2 - own.height / 2;
        break;
    case nearBottom:
        place.top = parent.top + parent.height - own.height - sideMargin;
        break;
    }
    return place;
}

TwipRect besideButton(const TwipRect &button, const TwipRect &own, const TwipRect &display, double sideWidth)
{
    const double lastLeft = display.left + display.width - own.width - std::max(0.0, sideWidth - sideOverlap);
    const double lastTop = display.top + display.height - own.height;
    TwipRect place = own;
    place.left = std::max(display.left, std::min(button.left - own.width - buttonGap, lastLeft));
    place.top = std::max(display.top, std::min(button.top, lastTop));
    return place;
}

}
