// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/viewer_size.h"

namespace circuidex::media {

namespace {

constexpr std::string_view height13 = "height13", width13 = "width13";
constexpr double largest = 1e6; // twips

std::optional<double> side(const Season &season, std::string_view key)
{
    const auto twips = season.numbers().value(season.read(keys::N, key));
    return twips && *twips > 0 && *twips <= largest ? twips : std::nullopt;
}

}

ViewerSize viewerSize(const Season &season)
{
    return {side(season, width13), side(season, height13)};
}

void keepViewerSize(const WritableSeason &season, double width, double height)
{
    season.write(keys::N, height13, season.numbers().text(height));
    season.write(keys::N, width13, season.numbers().text(width));
}

}
