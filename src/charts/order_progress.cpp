// SPDX-License-Identifier: GPL-3.0-or-later
#include "charts/order_progress.h"

#include "standings/race_places.h"

namespace circuidex::charts {

namespace {

using Totals = ByPlace<std::optional<double>, driverSlots>;

void addRace(Totals &totals, const ByPlace<std::string, driverSlots> &names, const standings::RacePlaces &race,
             const results::Scale &scale, const Numbers &numbers)
{
    for (int place = 1; place <= classifiedPlaces; ++place)
        if (const auto points = numbers.value(scale[place]))
            for (int n = 1; n <= driverSlots; ++n)
                if (totals[n] && names[n] == race.finish[place])
                    *totals[n] += *points;
}

int firstRank(const Totals &totals, int number)
{
    int rank = 1;
    for (const auto &other : totals)
        rank += totals[number] && other && *totals[number] < *other;
    return rank;
}

Order ordered(const Totals &totals, const ByPlace<std::string, driverSlots> &names)
{
    Order order{totals, {}, {}};
    for (int n = 1; n <= driverSlots; ++n) {
        int rank = firstRank(totals, n);
        while (rank < driverSlots && !order.holders[rank].empty())
            ++rank;
        order.ranks[n] = rank;
        if (!names[n].empty())
            order.holders[rank] = names[n];
    }
    return order;
}

}

OrderProgress orderProgress(const Season &season, const results::Scale &scale)
{
    const standings::SeasonPlaces races = standings::seasonPlaces(season);
    OrderProgress progress;
    Totals totals;
    for (int n = 1; n <= driverSlots; ++n) {
        progress.names[n] = season.nom(n);
        if (!progress.names[n].empty())
            totals[n] = 0;
    }
    for (std::size_t slot = 0; slot < progress.after.size(); ++slot) {
        addRace(totals, progress.names, races[slot], scale, season.numbers());
        progress.after[slot] = ordered(totals, progress.names);
    }
    return progress;
}

Curve orderLine(const OrderProgress &progress, int number)
{
    Curve curve = flat(rankHeight(progress.after.front().ranks[number]));
    for (std::size_t slot = 0; slot < segments; ++slot)
        curve.y[slot + 1] = rankHeight(progress.after[slot].ranks[number]);
    return curve;
}

std::optional<int> lineEndingAt(const OrderProgress &progress, int rank)
{
    const Order &shown = progress.after[segments - 1];
    std::optional<int> found;
    for (int n = 1; n <= driverSlots; ++n)
        if (shown.ranks[n] == rank && (!found || progress.names[*found].empty()))
            found = n;
    return found;
}

}
