// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The whole field of a season ranked by one of sixteen figures: the two championships, the careers, shares of the races
// and figures a season. All stands on what the season keeps of each driver; no race is counted anew.
#include "statistics/bars.h"

namespace circuidex::statistics {

enum class FieldGroup { championships, careers, shares, perSeason };

// What a figure is divided by: the driver's Grands Prix, a hundredth of them, or the seasons of his career.
enum class Per { nothing, race, hundredRaces, season };

struct FieldStatistic {
    std::string_view button, caption; // on the screen
    std::string_view title;
    FieldGroup group;
    std::string_view key; // what the figure's key begins with; behind it the driver's number, his name or his team's
    Per per = Per::nothing;
};

inline constexpr std::string_view seasonsKey = "noo", teamKey = "ptsecurie"; // by the driver's name, by the team's

// In the order of their buttons.
inline constexpr std::array<FieldStatistic, 16> fieldStatistics{{
    {"Command8", "Classement Pilote", "Nombre de points dans le championnat pilote", FieldGroup::championships,
     "nbpts"},
    {"Command10", "Classement Constructeur", "Nombre de points dans le championnat constructeur",
     FieldGroup::championships, teamKey},
    {"Command2", "Nombre de Grands-Prix", "Nombre de GP disputés", FieldGroup::careers, "nbgp"},
    {"Command3", "Nombre de Points Total", "Nombre de points total", FieldGroup::careers, "ptstot"},
    {"Command4", "Nombre de Victoires", "Nombre de victoires", FieldGroup::careers, "vic"},
    {"Command5", "Nombre de Podiums", "Nombre de podiums", FieldGroup::careers, "podiums"},
    {"Command6", "Nombre de Poles", "Nombre de poles", FieldGroup::careers, "pol"},
    {"Command7", "Nombre de Saisons en F1", "Nombre de saisons en F1", FieldGroup::careers, seasonsKey},
    {"Command18", "Nombre de Points par GP", "Nombre de points par Grand-Prix", FieldGroup::careers, "ptstot",
     Per::race},
    {"Command11", "Pourcentage de Victoires", "Pourcentage de Victoires", FieldGroup::shares, "vic", Per::hundredRaces},
    {"Command12", "Pourcentage de Poles", "Pourcentage de Poles", FieldGroup::shares, "pol", Per::hundredRaces},
    {"Command13", "Pourcentage de Podiums", "Pourcentage de Podiums", FieldGroup::shares, "podiums", Per::hundredRaces},
    {"Command14", "Victoires par Saison", "Nombre de Victoires par Championnat", FieldGroup::perSeason, "vic",
     Per::season},
    {"Command15", "Podiums par Saison", "Nombre de Podiums par Championnat", FieldGroup::perSeason, "podiums",
     Per::season},
    {"Command16", "Points par Saison", "Nombre de Points par Championnat", FieldGroup::perSeason, "ptstot",
     Per::season},
    {"Command17", "Poles par Saison", "Nombre de Poles par Championnat", FieldGroup::perSeason, "pol", Per::season},
}};

struct FieldEntry {
    std::string name;
    std::string value; // empty for none: also where it can't be divided, by no race or no season
};

// Driver 1 in element 0. A team stands with the first of its drivers, in the place of his name; of the others the
// entries are empty.
using FieldEntries = std::array<FieldEntry, driverSlots>;

FieldEntries fieldEntries(const Season &season, const FieldStatistic &statistic);

struct RankedField {
    std::vector<standings::StandingsRow> rows{driverSlots}; // best first
    Bars bars;
    int rank = 1; // of the last entry
};

// Each entry takes the first row from its rank down that holds no value yet. So an entry without a value keeps no row
// from those that have one; what is seen of it in the end is the last such name, behind the others.
RankedField rankField(const FieldEntries &entries, const Numbers &numbers);

}
