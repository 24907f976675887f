// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The buttons of the main screen that open a side screen and show by "[F] " that it is open; a second press closes it.
#include <algorithm>
#include <array>
#include <string_view>

namespace circuidex::screens {

struct SideScreen {
    std::string_view button, caption, openCaption, screen;
    bool menu; // the six menus exclude each other
};

inline constexpr std::array<SideScreen, 17> sideScreens{{
    {"Command1", "Nouveau Pilote", "[F] Nouveau Pilote", "Form2", false},
    {"Command2", "Ouvrir/Modifier Pilote", "[F] Ouvrir/Modifier Pilote", "Form3", false},
    {"Command3", "Ouvrir GP", "[F] Ouvrir GP", "Form4", false},
    {"Command4", "Classement Constructeur", "[F] Classement Constructeur", "Form5", false},
    {"Command6", "Classement Pilote", "[F] Classement Pilote", "Form6", false},
    {"Command7", "Classement Complet", "[F] Classement Complet", "Form7", false},
    {"Command11", "Courbes et Graphiques", "[F] Courbes et Graphiques", "Form43", true},
    {"Command13", "Galerie Photo", "[F] Galerie Photo", "Form15", false},
    {"Command15", "Vainqueurs / Grille de Départ", "[F] Vainqueurs / Grille de Départ", "Form22", true},
    {"Command16", "Liste", "[F]Liste", "Form25", false},
    {"Command19", "Classement d'un Pilote", "[F] Classement d'un Pilote", "Form31", false},
    {"Command20", "Statistiques", "[F] Statistiques", "Form52", true},
    {"Command22", "Classement Momentané", "[F] Classement Momentané", "Form36", false},
    {"Command24", "Toutes les Fenêtres", "[F] Toutes les Fenêtres", "Form59", false},
    {"Command31", "Comparaison entre Saisons", "[F] Comparaison entre Saisons", "Form84", true},
    {"Command32", "Classement", "[F] Classement", "Form57", true},
    {"Command33", "Multimédia", "[F] Multimédia", "Form58", true},
}};

// The closing of these sets the caption of "Classement d'un Pilote" back too, whether its own screen is open or not.
inline constexpr std::string_view placesButton = "Command19";
inline constexpr std::array<std::string_view, 3> alsoSetBack{"Form56", "Form60", "Form61"};

// Null for a button that opens none.
inline const SideScreen *sideScreenOf(std::string_view button)
{
    const auto found = std::find_if(sideScreens.begin(), sideScreens.end(),
                                    [=](const SideScreen &side) { return side.button == button; });
    return found == sideScreens.end() ? nullptr : &*found;
}

}
