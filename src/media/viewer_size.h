// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The size of the picture viewers, one for both, kept in the season from one opening to the next.
#include "store/season.h"

#include <optional>

namespace circuidex::media {

struct ViewerSize {
    std::optional<double> width, height; // twips; absent when the season holds none that a window can have
};

ViewerSize viewerSize(const Season &season);
void keepViewerSize(const WritableSeason &season, double width, double height);

}
