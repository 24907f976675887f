// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/first_steps.h"

#include "store/names.h"

#include <algorithm>

namespace circuidex::results {

namespace {

template <class Test>
bool anyDriver(const Season &season, Test test)
{
    for (int number = 1; number <= driverSlots; ++number)
        if (!season.nom(number).empty() && test(number))
            return true;
    return false;
}

template <class Test>
bool anyRace(const Season &season, Test test)
{
    for (int slot = 0; slot < gpSlots; ++slot)
        if (const std::string name = season.namegp(slot); !name.empty() && test(name))
            return true;
    return false;
}

bool has(const Season &season, Need what)
{
    switch (what) {
    case Need::drivers:
        return anyDriver(season, [](int) { return true; });
    case Need::teams:
        return anyDriver(season, [&](int number) {
            const std::string team = season.ecurie(number);
            return !team.empty() && team != "Aucune";
        });
    case Need::calendar:
        return anyRace(season, [](const std::string &) { return true; });
    case Need::race:
        break;
    }
    return hasRace(season);
}

}

std::optional<Need> firstLack(const Season &season, Need need)
{
    for (const Need each : {Need::drivers, Need::teams, Need::calendar, Need::race})
        if (each <= need && !has(season, each))
            return each;
    return std::nullopt;
}

bool isBegun(const Season &season)
{
    return has(season, Need::drivers) || has(season, Need::calendar);
}

bool hasRace(const Season &season)
{
    return anyRace(season, [&](const std::string &name) { return season.recorded(name); });
}

std::vector<std::string> seasonsOf(const Store &store)
{
    namespace fs = std::filesystem;
    std::vector<std::string> years;
    std::error_code error;
    for (fs::directory_iterator at(store.folder(), error), end; !error && at != end; at.increment(error)) {
        const std::string name = at->path().filename().string();
        if (!name.starts_with("f1") || !name.ends_with(".ini"))
            continue;
        if (std::string year = name.substr(2, name.size() - 6); year.size() == 4 && isYear(year))
            years.push_back(std::move(year));
    }
    std::sort(years.begin(), years.end());
    return years;
}

std::optional<FirstSteps> firstSteps(const Season &season)
{
    if (hasRace(season))
        return std::nullopt;
    for (const std::string &year : seasonsOf(season.store()))
        if (year != season.stem() && hasRace(Season(season.store(), year)))
            return std::nullopt;
    return FirstSteps{has(season, Need::calendar), has(season, Need::drivers)};
}

}
