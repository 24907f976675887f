// SPDX-License-Identifier: GPL-3.0-or-later
#include "charts/chart_engine.h"

#include <cmath>

namespace circuidex::charts {

namespace {

constexpr double widestLine = 8192; // pixels

// Takes the height if it is one.
void set(double &y, std::optional<double> height)
{
    if (height && std::isfinite(*height))
        y = *height;
}

std::optional<double> times(std::optional<double> a, std::optional<double> b)
{
    return a && b ? std::optional(*a * *b) : std::nullopt;
}

std::optional<double> below(double y, std::optional<double> rise)
{
    return rise ? std::optional(y - *rise) : std::nullopt;
}

// The mean of so many values from a slot on; absent when one of them is, or lies outside the calendar.
std::optional<double> mean(const Values &values, int first, int count)
{
    double sum = 0;
    for (int slot = first; slot < first + count; ++slot) {
        if (slot < 0 || slot >= segments || !values[static_cast<std::size_t>(slot)])
            return std::nullopt;
        sum += *values[static_cast<std::size_t>(slot)];
    }
    return sum / count;
}

}

Curve flat(double y)
{
    Curve curve;
    curve.y.fill(y);
    return curve;
}

Curve runningTotal(double base, std::optional<double> unit, const Values &values)
{
    Curve curve = flat(base);
    for (std::size_t k = 0; k < values.size(); ++k) {
        curve.y[k + 1] = curve.y[k];
        set(curve.y[k + 1], below(curve.y[k], times(values[k], unit)));
    }
    return curve;
}

Curve levels(const Level &level, const Values &values)
{
    Curve curve = flat(level.base);
    for (std::size_t k = 0; k < values.size(); ++k) {
        curve.y[k + 1] = curve.y[k];
        if (values[k])
            set(curve.y[k + 1], level.at(*values[k]));
        if (k == 0)
            curve.y[0] = curve.y[1];
    }
    return curve;
}

void drawGains(Curve &curve, double base, std::optional<double> unit, const Values &gains)
{
    curve.y[0] = base;
    for (std::size_t k = 0; k < gains.size(); ++k)
        set(curve.y[k + 1], gains[k] ? below(base, times(gains[k], unit)) : base);
}

void drawCumulatedGains(Curve &curve, double base, std::optional<double> unit, const Values &gains,
                        const Slots &restarts)
{
    curve.y[0] = base;
    for (std::size_t k = 0; k < gains.size(); ++k) {
        const double before = curve.y[k];
        if (restarts[k])
            curve.y[k + 1] = base;
        else
            set(curve.y[k + 1], gains[k] ? below(before, times(gains[k], unit)) : before);
    }
}

double maskLeft(std::optional<int> firstEmptySlot)
{
    return firstEmptySlot && *firstEmptySlot < segments ? vertex(*firstEmptySlot) + 10 : outside;
}

Widths highlighted(int series)
{
    Widths widths = thin;
    widths[static_cast<std::size_t>(series)] = 3;
    return widths;
}

std::optional<int> lineWidth(std::optional<double> number)
{
    if (!number || !(*number > 0.5) || *number > widestLine)
        return std::nullopt;
    return static_cast<int>(std::nearbyint(*number)); // halves to the even width
}

Average parked(double beginning, double rest)
{
    Average average;
    average.beginning.fill({beginning, beginning});
    average.rest.fill({rest, rest});
    return average;
}

void averageOfValues(Average &average, const Level &level, const Values &values)
{
    const auto height = [&](int first, int count) -> std::optional<double> {
        const auto value = mean(values, first, count);
        return value ? std::optional(level.at(*value)) : std::nullopt;
    };
    for (int i = 0; i < 3; ++i) {
        auto &piece = average.beginning[static_cast<std::size_t>(i)];
        set(piece.y1, height(0, std::max(i, 1)));
        set(piece.y2, height(0, i + 1));
    }
    for (int i = 0; i < static_cast<int>(average.rest.size()); ++i) {
        auto &piece = average.rest[static_cast<std::size_t>(i)];
        set(piece.y1, height(i, 3));
        set(piece.y2, height(i + 1, 3));
    }
}

void averageOfCurve(Average &average, const Curve &curve)
{
    const auto height = [&](std::size_t vertex) {
        return (curve.y[vertex] + curve.y[vertex + 1] + curve.y[vertex + 2]) / 3;
    };
    for (std::size_t i = 0; i < average.rest.size(); ++i) {
        set(average.rest[i].y1, height(i + 1));
        set(average.rest[i].y2, height(i + 2));
    }
}

std::vector<Tick> axisTicks(double base, std::optional<double> unit, double top, double bottom)
{
    constexpr double apart = 700; // twips, at least
    std::vector<Tick> ticks;
    if (!unit || !(*unit > 0) || !std::isfinite(apart / *unit))
        return ticks;
    const double power = std::pow(10, std::floor(std::log10(apart / *unit)));
    double step = power;
    for (const double factor : {1., 2., 5., 10.}) {
        step = factor * power;
        if (step * *unit >= apart)
            break;
    }
    for (double k = std::ceil((base - bottom) / (step * *unit)); base - k * step * *unit >= top; ++k)
        ticks.push_back({k * step, base - k * step * *unit});
    return ticks;
}

}
