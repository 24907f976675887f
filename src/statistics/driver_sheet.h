// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The ratios of one driver's career: shares of wins, podiums and poles, points a race and a season. They are worked out
// from the figures of his profile as they stand in its boxes. Profile and sheet show one driver: what steps from number
// to number stands here too.
#include "results/main_record.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace circuidex::statistics {

// Texts of the profile's boxes; seasons is the number of seasons of the career, nogp the Grands Prix run this season.
struct DriverFigures {
    std::string wins, podiums, poles, careerPoints, careerRaces, seasonPoints, nogp, seasons;
};

struct RatioRow {
    int index;                  // of Label10 on the sheet
    std::string_view caption;
    std::string_view button;    // "...", the comparison with the whole field
    std::string_view statistic; // the button of the field statistics for the same figure
};

// Top to bottom.
inline constexpr std::array<RatioRow, 10> ratioRows{{
    {0, "Pourcentage de Victoire:", "Command15", "Command11"},
    {8, "Pourcentage de Podiums:", "Command5", "Command13"},
    {1, "Pourcentage de Poles:", "Command4", "Command12"},
    {2, "Nombre de Points Total:", "Command6", "Command3"},
    {3, "Nombre de Points marqués par GP:", "Command7", "Command18"},
    {4, "Nombre de Points marqués par GP (saison courrante):", "Command8", "Command8"},
    {5, "Nombre de Victoires par championnat:", "Command9", "Command14"},
    {9, "Nombre de Podiums par championnat:", "Command11", "Command15"},
    {7, "Nombre de Poles par championnat:", "Command10", "Command17"},
    {6, "Nombre de Points par championnat:", "Command12", "Command16"},
}};

// By the index of Label10. Absent where a figure is missing or a division by zero: the row is then empty.
std::array<std::optional<std::string>, 10> driverRatios(const DriverFigures &figures, const Numbers &numbers);

// Profile and sheet of the number on show, read anew. A career without a count begins with this season.
void openProfile(results::MainRecord &main);
void showRatios(results::MainRecord &main); // the sheet alone

// So many numbers on or back. The seasons of the driver left are kept under his name.
void stepProfile(results::MainRecord &main, int by);
void stepProfileInSeason(results::MainRecord &main, int by); // by one; stops at the first and the last driver

// A change of season: 24 drivers, from the one on show, have one season more.
void countSeason(results::MainRecord &main);

}
