// SPDX-License-Identifier: GPL-3.0-or-later
// The geometry of the line charts, in twips: paper, rules, mask, widths and averages.
#include "charts/chart_engine.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace circuidex::charts;

namespace {

using Heights = std::vector<double>;

constexpr std::nullopt_t none = std::nullopt;

Values values(std::initializer_list<std::optional<double>> first)
{
    Values all;
    std::size_t slot = 0;
    for (const auto &value : first)
        all.at(slot++) = value;
    return all;
}

// The start of a curve and its heights at so many Grands Prix.
Heights start(const Curve &curve, std::size_t count)
{
    Heights heights;
    for (std::size_t k = 0; k <= count; ++k)
        heights.push_back(curve.y.at(k));
    return heights;
}

Heights pieces(const auto &part, std::size_t count)
{
    Heights heights;
    for (std::size_t i = 0; i < count; ++i) {
        heights.push_back(part[i].y1);
        heights.push_back(part[i].y2);
    }
    return heights;
}

TEST(RunningTotal, AddsUp)
{
    struct Case {
        const char *name;
        std::optional<double> scale;
        Values points;
        Heights heights;
    };
    const Case cases[] = {
        {"plain", 50, values({10, 8, 6}), {10320, 9820, 9420, 9120}},
        {"gaps are flat", 50, values({10, none, none, 1}), {10320, 9820, 9820, 9820, 9770}},
        {"half points", 30, values({2.5, 0.5}), {10320, 10245, 10230}},
        {"negative points fall", 50, values({10, -4}), {10320, 9820, 10020}},
        {"scale of text", none, values({10, 8}), {10320, 10320, 10320}},
        {"scale of zero", 0, values({10, 8}), {10320, 10320, 10320}},
        {"out of the frame", 100, values({100}), {10320, 320}},
        {"nobody at all", 50, {}, {10320, 10320, 10320}},
        {"beyond all numbers", 1e300, values({1e300, 1}), {10320, 10320, -1e300}},
    };
    for (const Case &c : cases)
        EXPECT_EQ(start(runningTotal(10320, c.scale, c.points), c.heights.size() - 1), c.heights) << c.name;
    EXPECT_EQ(runningTotal(10320, 50, values({10})).at(19), 9820) << "flat to the end of the paper";
}

constexpr Level arrival{8280, 800, 9}, grid{8280, 313, 23}, points{8280, 350, none};

TEST(Levels, DrawEachValueByItself)
{
    struct Case {
        const char *name;
        Level level;
        Values values;
        Heights heights;
    };
    const Case cases[] = {
        {"first, then absent", arrival, values({1, 9}), {1880, 1880, 8280}},
        {"starts level", arrival, values({4, 8}), {4280, 4280, 7480}},
        {"pole, then not on the grid", grid, values({1, 23}), {1394, 1394, 8280}},
        {"points", points, values({18, 0, 2.5}), {1980, 1980, 8280, 7405}},
        {"empty is flat", points, values({4, none, 6}), {6880, 6880, 6880, 6180}},
        {"empty at first is on the base", points, values({none, 10}), {8280, 8280, 4780}},
        {"nobody at all", points, {}, {8280, 8280, 8280}},
    };
    for (const Case &c : cases)
        EXPECT_EQ(start(levels(c.level, c.values), c.heights.size() - 1), c.heights) << c.name;
}

TEST(Gains, StartFromTheBaseEach)
{
    Curve curve = flat(500), ofText = flat(500);
    drawGains(curve, 8569, 219, values({3, none, -2, 0}));
    EXPECT_EQ(start(curve, 4), (Heights{8569, 7912, 8569, 9007, 8569}));
    EXPECT_EQ(curve.at(19), 8569);
    drawGains(ofText, 8569, none, values({3, none, 0})); // under such a scale the last height stays
    EXPECT_EQ(start(ofText, 3), (Heights{8569, 500, 8569, 500}));
}

TEST(CumulatedGains, AddUpAndStartAnewWithoutAPlaceOnTheGrid)
{
    Curve curve = flat(0), ofText = flat(500);
    Slots restarts;
    restarts.set(3);
    drawCumulatedGains(curve, 8569, 109.5, values({2, none, -1, none, 4}), restarts);
    EXPECT_EQ(start(curve, 5), (Heights{8569, 8350, 8350, 8459.5, 8569, 8131}));
    drawCumulatedGains(ofText, 8569, none, values({2, none}), {});
    EXPECT_EQ(start(ofText, 2), (Heights{8569, 500, 500}));
}

TEST(Mask, StandsJustBehindTheLastRaceThatCounts)
{
    EXPECT_EQ(maskLeft(0), 10);
    EXPECT_EQ(maskLeft(17), 10210);
    EXPECT_EQ(maskLeft(18), 10690);
    EXPECT_EQ(maskLeft(19), 11170);
    EXPECT_EQ(maskLeft(20), outside);
    EXPECT_EQ(maskLeft(none), outside);
}

TEST(LineWidth, TakesWholePixels)
{
    const std::pair<std::optional<double>, std::optional<int>> cases[] = {
        {1, 1},      {3, 3},    {2.5, 2},   {3.5, 4},    {0.6, 1},    {8192, 8192},
        {0.5, none}, {0, none}, {-2, none}, {1e9, none}, {none, none}};
    for (const auto &[number, width] : cases)
        EXPECT_EQ(lineWidth(number), width) << number.value_or(-999);
    EXPECT_EQ(lineWidth(std::numeric_limits<double>::quiet_NaN()), none);
}

TEST(AverageOfValues, GoesThroughFewerRacesAtFirst)
{
    Average average = parked(aboveFrame, aboveFrame);
    averageOfValues(average, arrival, values({1, 2, 6, 1, 2}));
    EXPECT_EQ(pieces(average.beginning, 3), (Heights{1880, 1880, 1880, 2280, 2280, 3480}));
    EXPECT_EQ(pieces(average.rest, 2), (Heights{3480, 3480, 3480, 3480}));
}

TEST(AverageOfValues, EndsAtTheLastRace)
{
    Values season;
    season.fill(9);
    season[17] = season[18] = 9;
    season[19] = 3;
    Average average = parked(aboveFrame, aboveFrame);
    averageOfValues(average, arrival, season);
    EXPECT_EQ(average.rest[15].y2, 8280);
    EXPECT_EQ(average.rest[16].y1, 8280);
    EXPECT_EQ(average.rest[16].y2, arrival.at(7));
}

// A race without a value leaves the ends of pieces that need it where they were.
TEST(AverageOfValues, StaysParkedWhereAValueIsMissing)
{
    Average average = parked(aboveFrame, aboveFrame);
    averageOfValues(average, points, values({3, 3, none, 9, 9, 9, 9}));
    EXPECT_EQ(pieces(average.beginning, 3), (Heights{7230, 7230, 7230, 7230, 7230, -500}));
    EXPECT_EQ(pieces(average.rest, 5), (Heights{-500, -500, -500, -500, -500, 5130, 5130, 5130, 5130, -500}));
}

TEST(AverageOfCurve, IsTakenOfTheHeightsAndBeginsWithTheThirdRace)
{
    Average average = parked(belowFrame, farBelow);
    Curve curve = flat(0);
    for (int slot = 0; slot < segments; ++slot)
        curve.y[static_cast<std::size_t>(slot + 1)] = slot * slot;
    averageOfCurve(average, curve);
    EXPECT_EQ(pieces(average.beginning, 3), Heights(6, belowFrame));
    EXPECT_DOUBLE_EQ(average.rest[0].y1, (0 + 1 + 4) / 3.);
    EXPECT_DOUBLE_EQ(average.rest[0].y2, (1 + 4 + 9) / 3.);
    EXPECT_DOUBLE_EQ(average.rest[16].y2, (17 * 17 + 18 * 18 + 19 * 19) / 3.);
}

TEST(AxisTicks, AreRoundAndInsideTheFrame)
{
    struct Case {
        const char *name;
        double base;
        std::optional<double> unit;
        Heights values;
    };
    const Case cases[] = {
        {"usual", 10320, 50, {0, 20, 40, 60, 80, 100, 120, 140}},
        {"large", 10320, 1000, {0, 1, 2, 3, 4, 5, 6, 7}},
        {"both ways", 8569, 219, {-5, 0, 5, 10, 15, 20, 25}},
        {"of text", 10320, none, {}},
        {"zero", 10320, 0, {}},
        {"negative", 10320, -50, {}},
        {"too small to count", 10320, 1e-320, {}},
    };
    for (const Case &c : cases) {
        Heights found;
        for (const Tick &tick : axisTicks(c.base, c.unit, 2760, 10455)) {
            found.push_back(tick.value);
            EXPECT_EQ(tick.y, c.base - tick.value * *c.unit) << c.name;
        }
        EXPECT_EQ(found, c.values) << c.name;
    }
}

}
