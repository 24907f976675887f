// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What all line charts share: where a Grand Prix stands on the paper, how a value becomes a height, where a chart ends,
// how thick its lines are, and the moving averages. All lengths are twips, Y growing downward; nothing here is scaled
// to the data. A step with a value that is no number, or whose result would be none, leaves the height it was to set.
#include <array>
#include <bitset>
#include <optional>
#include <vector>

namespace circuidex::charts {

inline constexpr int segments = 20; // one a Grand Prix, in the order of the calendar
inline constexpr int seriesCount = 4;
inline constexpr double outside = 150000; // far off the paper: where a mask waits

// The left end of segment k, which is the right end of segment k - 1; k from 0 to 20. The last three are narrower.
constexpr double vertex(int k)
{
    return k <= 17 ? 600.0 * k : 10200 + 480.0 * (k - 17);
}

// The heights of a line at the vertices: y[0] where it starts, y[k + 1] for the Grand Prix of slot k.
struct Curve {
    std::array<double, segments + 1> y{};

    double at(int slot) const { return y[static_cast<std::size_t>(slot + 1)]; }
};

Curve flat(double y);

// By slot; absent where a series has no number.
using Values = std::array<std::optional<double>, segments>;
using Slots = std::bitset<segments>;

// Each value adds to the ones before; without one the line goes on flat. `unit` is twips a point.
Curve runningTotal(double base, std::optional<double> unit, const Values &values);

// Each value at a height of its own: `unit` twips above the base for each point or, counted down from the place that
// lies on the base, for each place better.
struct Level {
    double base, unit;
    std::optional<double> downFrom;

    double at(double value) const { return base - (downFrom ? *downFrom - value : value) * unit; }
};

// The line begins level with its first value; without one it goes on flat, at first on the base.
Curve levels(const Level &level, const Values &values);

// Places gained, each from the base; without a gain the line is on the base. What can't be computed keeps the height
// that the curve had.
void drawGains(Curve &curve, double base, std::optional<double> unit, const Values &gains);

// The same summed up. Without a gain the line goes on flat; where the sum starts anew it falls back to the base.
void drawCumulatedGains(Curve &curve, double base, std::optional<double> unit, const Values &gains,
                        const Slots &restarts);

// The left edge of the mask that hides a chart from its first slot without anything to show.
double maskLeft(std::optional<int> firstEmptySlot);

// Thickness of the four lines, pixels.
using Widths = std::array<int, seriesCount>;

inline constexpr Widths thin{1, 1, 1, 1};
Widths highlighted(int series);
// The width that a number means, in whole pixels; absent when lines can't be drawn so.
std::optional<int> lineWidth(std::optional<double> number);

// A mean of three Grands Prix as a line. Its first three pieces, up to V(3), bear another name than the rest.
struct Average {
    struct Piece {
        double y1 = 0, y2 = 0;
    };
    std::array<Piece, 3> beginning; // Line13(1) to (3): piece i from V(i - 1) to V(i)
    std::array<Piece, 17> rest; // Line10(1) to (17): piece i from V(i + 2) to V(i + 3)
};

// Where an average that isn't shown waits.
inline constexpr double aboveFrame = -500, belowFrame = 13000, farBelow = 50000;
Average parked(double beginning, double rest);

// Of the values, over fewer of them for the first two Grands Prix.
void averageOfValues(Average &average, const Level &level, const Values &values);
// Of the drawn heights, from the third Grand Prix on; the beginning stays parked.
void averageOfCurve(Average &average, const Curve &curve);

// Round values whose heights lie inside a frame, for the captions of its axis; none without a unit above 0.
struct Tick {
    double value, y;
};
std::vector<Tick> axisTicks(double base, std::optional<double> unit, double top, double bottom);

}
