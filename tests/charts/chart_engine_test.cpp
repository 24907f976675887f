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

TEST(Vertices, AreWideForSeventeenRacesAndNarrowForThree)
{
    EXPECT_EQ(vertex(0), 0);
    EXPECT_EQ(vertex(1), 600);
    EXPECT_EQ(vertex(17), 10200);
    EXPECT_EQ(vertex(18), 10680);
    EXPECT_EQ(vertex(20), 11640);
}

struct TotalCase {
    const char *name;
    std::optional<double> scale;
    Values points;
    Heights heights;
};

class RunningTotal : public testing::TestWithParam<TotalCase> { };

TEST_P(RunningTotal, AddsUp)
{
    const auto &[name, scale, points, heights] = GetParam();
    EXPECT_EQ(start(runningTotal(10320, scale, points), heights.size() - 1), heights);
}

INSTANTIATE_TEST_SUITE_P(
    Points, RunningTotal,
    testing::Values(TotalCase{"Plain", 50, values({10, 8, 6}), {10320, 9820, 9420, 9120}},
                    TotalCase{"GapsAreFlat", 50, values({10, none, none, 1}), {10320, 9820, 9820, 9820, 9770}},
                    TotalCase{"HalfPoints", 30, values({2.5, 0.5}), {10320, 10245, 10230}},
                    TotalCase{"NegativePointsFall", 50, values({10, -4}), {10320, 9820, 10020}},
                    TotalCase{"ScaleOfText", none, values({10, 8}), {10320, 10320, 10320}},
                    TotalCase{"ScaleOfZero", 0, values({10, 8}), {10320, 10320, 10320}},
                    TotalCase{"OutOfTheFrame", 100, values({100}), {10320, 320}},
                    TotalCase{"NobodyAtAll", 50, {}, {10320, 10320, 10320}},
                    TotalCase{"BeyondAllNumbers", 1e300, values({1e300, 1}), {10320, 10320, -1e300}}),
    [](const auto &each) { return each.param.name; });

TEST(RunningTotal, GoesOnFlatToTheEndOfThePaper)
{
    EXPECT_EQ(runningTotal(10320, 50, values({10})).at(19), 9820);
}

struct LevelCase {
    const char *name;
    Level level;
    Values values;
    Heights heights;
};

constexpr Level arrival{8280, 800, 9}, grid{8280, 313, 23}, points{8280, 350, none};

class Levels : public testing::TestWithParam<LevelCase> { };

TEST_P(Levels, DrawEachValueByItself)
{
    const auto &[name, level, given, heights] = GetParam();
    EXPECT_EQ(start(levels(level, given), heights.size() - 1), heights);
}

INSTANTIATE_TEST_SUITE_P(
    Charts, Levels,
    testing::Values(LevelCase{"FirstThenAbsent", arrival, values({1, 9}), {1880, 1880, 8280}},
                    LevelCase{"StartsLevel", arrival, values({4, 8}), {4280, 4280, 7480}},
                    LevelCase{"PoleThenNotOnGrid", grid, values({1, 23}), {1394, 1394, 8280}},
                    LevelCase{"Points", points, values({18, 0, 2.5}), {1980, 1980, 8280, 7405}},
                    LevelCase{"EmptyIsFlat", points, values({4, none, 6}), {6880, 6880, 6880, 6180}},
                    LevelCase{"EmptyAtFirstIsOnTheBase", points, values({none, 10}), {8280, 8280, 4780}},
                    LevelCase{"NobodyAtAll", points, {}, {8280, 8280, 8280}}),
    [](const auto &each) { return each.param.name; });

TEST(Gains, StartFromTheBaseEach)
{
    Curve curve = flat(500);
    drawGains(curve, 8569, 219, values({3, none, -2, 0}));
    EXPECT_EQ(start(curve, 4), (Heights{8569, 7912, 8569, 9007, 8569}));
    EXPECT_EQ(curve.at(19), 8569);
}

TEST(Gains, KeepTheLastHeightUnderAScaleOfText)
{
    Curve curve = flat(500);
    drawGains(curve, 8569, none, values({3, none, 0}));
    EXPECT_EQ(start(curve, 3), (Heights{8569, 500, 8569, 500}));
}

TEST(CumulatedGains, AddUpAndStartAnewWithoutAPlaceOnTheGrid)
{
    Curve curve = flat(0);
    Slots restarts;
    restarts.set(3);
    drawCumulatedGains(curve, 8569, 109.5, values({2, none, -1, none, 4}), restarts);
    EXPECT_EQ(start(curve, 5), (Heights{8569, 8350, 8350, 8459.5, 8569, 8131}));
}

TEST(CumulatedGains, KeepTheLastHeightUnderAScaleOfText)
{
    Curve curve = flat(500);
    drawCumulatedGains(curve, 8569, none, values({2, none}), {});
    EXPECT_EQ(start(curve, 2), (Heights{8569, 500, 500}));
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

TEST(Highlight, ThickensOneLine)
{
    EXPECT_EQ(highlighted(0), (Widths{3, 1, 1, 1}));
    EXPECT_EQ(highlighted(3), (Widths{1, 1, 1, 3}));
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

struct TickCase {
    const char *name;
    double base;
    std::optional<double> unit;
    Heights values;
};

class AxisTicks : public testing::TestWithParam<TickCase> { };

TEST_P(AxisTicks, AreRoundAndInsideTheFrame)
{
    const auto &[name, base, unit, expected] = GetParam();
    Heights found;
    for (const Tick &tick : axisTicks(base, unit, 2760, 10455)) {
        found.push_back(tick.value);
        EXPECT_EQ(tick.y, base - tick.value * *unit);
    }
    EXPECT_EQ(found, expected);
}

INSTANTIATE_TEST_SUITE_P(Scales, AxisTicks,
                         testing::Values(TickCase{"Usual", 10320, 50, {0, 20, 40, 60, 80, 100, 120, 140}},
                                         TickCase{"Large", 10320, 1000, {0, 1, 2, 3, 4, 5, 6, 7}},
                                         TickCase{"BothWays", 8569, 219, {-5, 0, 5, 10, 15, 20, 25}},
                                         TickCase{"OfText", 10320, none, {}}, TickCase{"Zero", 10320, 0, {}},
                                         TickCase{"Negative", 10320, -50, {}},
                                         TickCase{"TooSmallToCount", 10320, 1e-320, {}}),
                         [](const auto &each) { return each.param.name; });

}
