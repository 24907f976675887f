// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The four colours in which the program draws its title bars and the main action of a screen. The user chooses one; it
// is kept under "couleur" in the gallery file.
#include <array>
#include <string_view>

namespace circuidex {

struct Colour {
    int red, green, blue;
};

struct Skin {
    std::string_view couleur; // the word in the file
    Colour main;              // the bar's colour
    Colour edge;              // its darker edge
};

inline constexpr std::array<Skin, 4> skins{{
    {"bleu", {16, 96, 175}, {15, 64, 127}},
    {"vert", {16, 175, 16}, {15, 127, 22}},
    {"rouge", {175, 16, 23}, {127, 17, 15}},
    {"orange", {175, 95, 16}, {127, 78, 15}},
}};

// Any other word means blue.
constexpr Skin skinNamed(std::string_view couleur)
{
    for (const Skin &skin : skins)
        if (skin.couleur == couleur)
            return skin;
    return skins[0];
}

}
