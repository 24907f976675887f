// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/season.h"

namespace circuidex {

std::string Season::driver(std::string_view prefix, std::string_view number) const
{
    return read(keys::N, keys::driver(prefix, number));
}

std::string Season::driver(std::string_view prefix, int number) const
{
    return read(keys::N, keys::driver(prefix, number));
}

std::string Season::namegp(int slot) const
{
    return read(keys::gp, keys::namegp(slot));
}

std::string Season::podium(int place, std::string_view gpName) const
{
    return read(keys::podiums, keys::podium(place, gpName));
}

std::string Season::grille(int place, std::string_view gpName) const
{
    return read(keys::N, keys::grilledepart(gpName, place));
}

void WritableSeason::add(std::string_view section, std::string_view key, std::string_view amount) const
{
    if (const auto total = numbers().sum(read(section, key), amount))
        write(section, key, *total);
}

void WritableSeason::subtract(std::string_view section, std::string_view key, std::string_view amount) const
{
    if (const auto total = numbers().difference(read(section, key), amount))
        write(section, key, *total);
}

void WritableSeason::addFromZero(std::string_view section, std::string_view key, std::string_view amount) const
{
    const std::string held = read(section, key);
    if (const auto total = numbers().sum(held.empty() ? "0" : held, amount))
        write(section, key, *total);
}

void WritableSeason::subtractFromZero(std::string_view section, std::string_view key, std::string_view amount) const
{
    const std::string held = read(section, key);
    if (const auto total = numbers().difference(held.empty() ? "0" : held, amount))
        write(section, key, *total);
}

}
