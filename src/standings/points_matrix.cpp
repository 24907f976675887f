// SPDX-License-Identifier: GPL-3.0-or-later
#include "standings/points_matrix.h"

namespace circuidex::standings {

PointsMatrix pointsMatrix(const Season &season, const results::Scale &scale)
{
    PointsMatrix matrix;
    for (int gp = 0; gp < gpSlots; ++gp) {
        const std::string name = season.namegp(gp);
        if (name.empty())
            continue;
        for (int place = 1; place <= classifiedPlaces; ++place)
            if (const auto driver = driverSlot(season.podium(place, name), season.numbers()))
                matrix.cells[PointsMatrix::index(*driver, gp)] = scale[place];
        matrix.races[static_cast<std::size_t>(gp)] = name;
        matrix.poles[static_cast<std::size_t>(gp)] = season.read(keys::N, keys::pol(name));
    }
    return matrix;
}

void markPoles(PointsMatrix &matrix, const Numbers &numbers)
{
    for (int gp = 0; gp < gpSlots; ++gp)
        if (const auto driver = driverSlot(matrix.poles[static_cast<std::size_t>(gp)], numbers))
            matrix.cells[PointsMatrix::index(*driver, gp)] += poleMark;
}

}
