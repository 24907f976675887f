// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/driver_sheet.h"

#include "results/driver_screens.h"

namespace circuidex::statistics {

namespace {

std::optional<double> divided(const std::string &a, const std::string &b, const Numbers &numbers)
{
    const auto x = numbers.value(a);
    const auto y = numbers.value(b);
    if (!x || !y || *y == 0)
        return std::nullopt;
    return *x / *y;
}

}

std::array<std::optional<std::string>, 10> driverRatios(const DriverFigures &figures, const Numbers &numbers)
{
    const auto ratio = [&](const std::string &a, const std::string &b) -> std::optional<std::string> {
        const auto value = divided(a, b, numbers);
        return value ? std::optional(numbers.fixed(*value, 2)) : std::nullopt;
    };
    const auto share = [&](const std::string &a) -> std::optional<std::string> {
        const auto value = divided(a, figures.careerRaces, numbers);
        return value ? std::optional(numbers.fixed(*value * 100, 2) + "%") : std::nullopt;
    };
    std::array<std::optional<std::string>, 10> rows;
    rows[0] = share(figures.wins);
    rows[8] = share(figures.podiums);
    rows[1] = share(figures.poles);
    if (const auto points = numbers.value(figures.careerPoints))
        rows[2] = numbers.fixed(*points, 0);
    rows[3] = ratio(figures.careerPoints, figures.careerRaces);
    rows[4] = ratio(figures.seasonPoints, figures.nogp);
    rows[5] = ratio(figures.wins, figures.seasons);
    rows[9] = ratio(figures.podiums, figures.seasons);
    rows[7] = ratio(figures.poles, figures.seasons);
    rows[6] = ratio(figures.careerPoints, figures.seasons);
    return rows;
}

void showRatios(results::MainRecord &main)
{
    results::DriverProfile &profile = main.profile;
    const std::string &name = profile.box("nom").text();
    const std::string kept = results::careerSeasons(main.season(), name);
    profile.seasons.set(kept.empty() ? "1" : kept);
    results::keepSeasons(main);
    profile.ratiosOf.set(name);
    const auto figure = [&profile](std::string_view prefix) { return profile.box(prefix).text(); };
    const auto rows = driverRatios({figure("vic"), figure("podiums"), figure("pol"), figure("ptstot"), figure("nbgp"),
                                    figure("nbpts"), main.season().read(keys::gp, "nogp"), profile.seasons.text()},
                                   main.store.numbers());
    for (std::size_t i = 0; i < rows.size(); ++i)
        profile.ratios[i].set(rows[i].value_or(""));
}

void openProfile(results::MainRecord &main)
{
    results::readProfile(main);
    showRatios(main);
}

void stepProfile(results::MainRecord &main, int by)
{
    results::keepSeasons(main);
    main.profile.nopilot.set(main.store.numbers().stepped(main.profile.nopilot.text(), by));
    openProfile(main);
}

void stepProfileInSeason(results::MainRecord &main, int by)
{
    const auto number = driverSlot(main.profile.nopilot.text(), main.store.numbers());
    const bool stop = number && (*number + by < 1 || *number + by > driverSlots);
    stepProfile(main, stop ? 0 : by);
}

void countSeason(results::MainRecord &main)
{
    for (int pass = 0; pass < 24; ++pass) {
        main.profile.seasons.set(main.store.numbers().stepped(main.profile.seasons.text(), 1));
        stepProfile(main, 1);
    }
}

}
