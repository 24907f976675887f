// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The names of the keys of a season file, built in this one place. A driver is given by the text of his number, as the
// results store it ("7"; empty for a place with nobody, which gives a key that nothing holds), a Grand Prix by its
// name, a team by its name.
#include <string>
#include <string_view>

namespace circuidex::keys {

// Sections.
inline constexpr std::string_view N = "N°";
inline constexpr std::string_view gp = "gp";
inline constexpr std::string_view podiums = "podium";
inline constexpr std::string_view bareme = "bareme";
inline constexpr std::string_view GP = "GP";         // of the archive
inline constexpr std::string_view records = "record"; // of the archive

// Stems of the files that aren't seasons.
inline constexpr std::string_view ARCHIVES = "ARCHIVES";
inline constexpr std::string_view galerie = "galerie";

inline constexpr std::string_view Aucune = "Aucune"; // the word for no team

inline std::string join(std::string_view prefix, std::string_view name)
{
    std::string key(prefix);
    return key.append(name);
}

// A driver's record, section N°: "nom" and "7" give "nom7".
inline std::string driver(std::string_view prefix, std::string_view number) { return join(prefix, number); }
inline std::string driver(std::string_view prefix, int number) { return join(prefix, std::to_string(number)); }

// Teams, section N°.
inline std::string ptsecurie(std::string_view team) { return join("ptsecurie", team); }
inline std::string ecuriepts(std::string_view team, std::string_view slot)
{
    return join(team, join("ecuriepts/gp", slot));
}
inline std::string lblecuriE(std::string_view team) { return join("lblecuriE", team); }

// Pole and grid of a Grand Prix, section N°. The place counts from 1; the key counts from -1.
inline std::string pol(std::string_view gpName) { return join("pol", gpName); }
inline std::string grilledepart(std::string_view gpName, int place)
{
    return join(gpName, join("grilledepart", std::to_string(place - 2)));
}

// Calendar, section gp.
inline std::string namegp(std::string_view slot) { return join("namegp", slot); }
inline std::string namegp(int slot) { return join("namegp", std::to_string(slot)); }
inline std::string dategp(std::string_view gpName) { return join("dategp", gpName); }
inline std::string noo(std::string_view driverName) { return join("noo", driverName); }

// Pictures and film of a Grand Prix, section gp of the gallery file.
inline std::string picgp(std::string_view gpName) { return join("picgp", gpName); }
inline std::string img(std::string_view gpName, std::string_view year) { return join("img", join(gpName, year)); }
inline std::string vid(std::string_view gpName, std::string_view year) { return join("vid", join(gpName, year)); }

// Result, section podium. Places 1 to 8.
inline std::string podium(int place, std::string_view gpName)
{
    return join("podium", join(std::to_string(place), gpName));
}
inline std::string rem(std::string_view gpName) { return join("rem", gpName); }

// Archive, section GP: the all-time list of names by its rows, its count, the winners and the champions.
inline constexpr std::string_view listCount = "NO";
inline std::string listed(std::string_view row) { return join("N", row); }
inline std::string listed(int row) { return join("N", std::to_string(row)); }
inline std::string lastWinner(std::string_view gpName) { return std::string(gpName); }
inline std::string winner(std::string_view gpName, std::string_view year) { return join(gpName, year); }
inline std::string champion(std::string_view year) { return join("championdumd", year); }

// Archive, section record: the rows of an all-time list.
inline std::string record(std::string_view prefix, int row) { return join(prefix, std::to_string(row)); }

}
