#include "statistics/driver_sheet.h"

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

}
