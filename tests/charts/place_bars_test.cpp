// SPDX-License-Identifier: GPL-3.0-or-later
// How often places were held, against the published results, and how long the bars of it are.
#include "charts/bar_fit.h"
#include "results/season_fixture.h"

#include <random>

using namespace circuidex;
using namespace circuidex::charts;
using namespace circuidex::test;

namespace {

// The sample's last Grand Prix of 2005 isn't recorded.
PlaceCounts counted(const std::vector<std::string> &years, const Lines &drivers, std::size_t races)
{
    PlaceCounts counts;
    for (const std::string &year : years) {
        const SampleSeason season = published(year);
        for (std::size_t i = 0; i < std::min(races, season.races.size()); ++i)
            for (const std::string &driver : season.races[i].name == "Chine" && year == "2005" ? Lines() : drivers) {
                for (int place = 1; place <= gridPlaces; ++place)
                    counts.grid[place] += season.races[i].grid[std::size_t(place - 1)] == driver;
                for (int place = 1; place <= classifiedPlaces; ++place)
                    counts.finish[place] += season.races[i].finish[std::size_t(place - 1)] == driver;
            }
    }
    return counts;
}

void expectSame(const PlaceCounts &counts, const PlaceCounts &expected, const std::string &of)
{
    EXPECT_EQ(counts.grid.values, expected.grid.values) << of;
    EXPECT_EQ(counts.finish.values, expected.finish.values) << of;
}

TEST(PlaceCountsTest, AgreeWithThePublishedResults)
{
    const Desk desk;
    const Lines drivers{"Michael Schumacher", "Kimi Räikkönen", "Jarno Trulli"};
    const std::pair<const char *, Lines> teams[] = {{"Ferrari", {"Michael Schumacher", "Rubens Barrichello"}},
                                                    {"Renault", {"Fernando Alonso", "Giancarlo Fisichella"}}};
    for (const std::string year : {"2003", "2004", "2005"})
        for (const int races : {1, 7, 22})
            for (const std::string &driver : drivers)
                expectSame(placeCounts(Season(desk.store, year), Counted::driver, driver, races).value(),
                           counted({year}, {driver}, std::size_t(races)), year + ' ' + driver);
    for (const auto &[team, its] : teams)
        for (const int races : {3, 22})
            expectSame(placeCounts(Season(desk.store, "2005"), Counted::team, team, races).value(),
                       counted({"2005"}, its, std::size_t(races)), team);
    for (const std::string &driver : drivers)
        expectSame(placeCountsOver(desk.store, driver, "2005", "2002"), counted({"2003", "2004", "2005"}, {driver}, 22),
                   driver);
    EXPECT_FALSE(placeCounts(Season(desk.store, "2004"), Counted::team, "Brabham", 22).has_value());
    expectSame(placeCounts(Season(desk.store, "2004"), Counted::driver, "", 22).value(), {}, "nobody");
}

TEST(PlaceCountsTest, AskForSomeOfTheRacesRun)
{
    Desk desk;
    const Season season(desk.store, "2005");
    EXPECT_EQ(racesRun(season), 18);
    desk.write("2005 [podium] podium1" + season.namegp(4) + "=");
    EXPECT_EQ(racesRun(season), 4);
    EXPECT_EQ(racesRun(Season(desk.store, "1949")), 0);
    const std::pair<const char *, int> cases[] = {{"3", 3}, {"2.5", 2}, {"-4", 0}, {"99", 22}, {"x", 0}, {"1e300", 22}};
    for (const auto &[text, expected] : cases)
        EXPECT_EQ(slotsAsked(text, desk.store.numbers()), expected) << text;
}

PlaceCounts finishing(std::initializer_list<std::pair<int, int>> counts)
{
    PlaceCounts made;
    for (const auto &[place, count] : counts)
        made.finish[place] = count;
    return made;
}

TEST(BarFit, DoublesWidthsTogether)
{
    EXPECT_EQ(barWidths(finishing({{3, 1}})).finish[3], 6400) << "one result";
    EXPECT_EQ(barWidths(finishing({{1, 5}})).finish[1], 4000) << "just enough";
    PlaceCounts counts = finishing({{1, 3}, {8, 1}});
    counts.grid[26] = 2;
    const BarLengths lengths = barWidths(counts);
    EXPECT_EQ(lengths.finish[1], 4800);
    EXPECT_EQ(lengths.finish[8], 1600);
    EXPECT_EQ(lengths.grid[26], 3200) << "not measured, and doubled with the rest";
    EXPECT_EQ(lengths.grid[1], 0);
    counts = {};
    counts.grid[23] = 1;
    EXPECT_EQ(barWidths(counts).grid[23], 100 * 2048) << "eleven times";
}

// Pass after pass, as a person would do it with the bars.
std::vector<std::vector<double>> doubled(const std::vector<PlaceCounts> &seasons, int places)
{
    std::vector<std::vector<double>> bars;
    for (const PlaceCounts &season : seasons)
        bars.emplace_back(season.finish.begin(), season.finish.begin() + places);
    const auto twice = [&](std::size_t place) {
        for (std::size_t s = 0; s < seasons.size(); ++s)
            bars[s][place] = seasons[s].finish.values[place] == 0 ? 10 : 2 * bars[s][place];
    };
    for (auto &season : bars)
        for (double &bar : season)
            bar *= 10;
    for (int pass = 0; pass < 500; ++pass)
        for (std::size_t place = 0; place < std::size_t(places); ++place) {
            if (std::ranges::any_of(bars, [&](const auto &season) { return season[place] >= 1000; })) {
                for (; place < std::size_t(places); ++place)
                    twice(place);
                return bars;
            }
            twice(place);
        }
    return bars;
}

TEST(BarFit, DoublesHeightsPassByPass)
{
    std::mt19937 random(2003);
    for (int round = 0; round < 200; ++round) {
        std::vector<PlaceCounts> seasons(round % 2 ? 1 : 4);
        for (PlaceCounts &season : seasons)
            for (int &count : season.finish)
                count = round < 4 ? 0 : int(random() % 3 ? 0 : random() % (round < 20 ? 300U : 20U));
        const auto expected = doubled(seasons, classifiedPlaces);
        const auto heights = barHeights(seasons, 0);
        for (std::size_t s = 0; s < seasons.size(); ++s) {
            EXPECT_TRUE(std::ranges::equal(heights[s].finish.values, expected[s])) << round;
            EXPECT_EQ(heights[s].grid[1], 0);
        }
    }
    EXPECT_EQ(barHeights(std::vector(4, PlaceCounts{}), trace)[3].grid[26], 10);
}

}
