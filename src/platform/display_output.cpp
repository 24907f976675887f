// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/display_output.h"

#include <algorithm>
#include <cstdlib>

namespace circuidex {

std::optional<OutputMode> modeOfSize(const std::vector<OutputMode> &offered, const OutputMode &wanted)
{
    std::optional<OutputMode> best;
    for (const OutputMode &mode : offered)
        if (mode.hasSizeOf(wanted) && (!best || std::abs(mode.rate - wanted.rate) < std::abs(best->rate - wanted.rate)))
            best = mode;
    return best;
}

std::optional<OutputMode> nearestMode(const std::vector<OutputMode> &offered, int width, int height)
{
    const auto distance = [&](const OutputMode &mode) {
        const long across = mode.width - long(width), down = mode.height - long(height);
        return across * across + down * down;
    };
    const auto best = std::min_element(offered.begin(), offered.end(), [&](const auto &one, const auto &other) {
        return distance(one) < distance(other);
    });
    return best == offered.end() ? std::nullopt : std::optional(*best);
}

}
