// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What the season's file remembers of the favourites of its two championship tables.
#include "store/season.h"

namespace circuidex::standings {

// The driver number that the arrows of a table stand on; "0" at first.
inline constexpr std::string_view driverArrows = "nopilott", teamArrows = "nopilott2";

inline std::string arrowsStand(const Season &season, std::string_view arrows)
{
    const std::string kept = season.read(keys::N, arrows);
    return kept.empty() ? "0" : kept;
}

inline constexpr std::string_view favouriteTeam = "ecuriesauvegardee"; // by name

inline void keepFavourite(const WritableSeason &season, std::string_view what, std::string_view text)
{
    season.write(keys::N, what, text);
}

}
