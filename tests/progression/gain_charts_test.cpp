// SPDX-License-Identifier: GPL-3.0-or-later
// The charts of places gained: heights worked out once more from the published grids and finishes.
#include "progression/gain_charts.h"

#include "charts/season_chart.h"
#include "results/grid.h"
#include "results/season_fixture.h"

using namespace circuidex;
using namespace circuidex::progression;
using namespace circuidex::test;

namespace {

struct Case {
    const Instance &chart;
    double base, unit; // twips, and twips a place at the scale that the chart opens with
    bool ofTeams, summedUp, ofSeasons;
    std::string key = {}; // of its subjects, none where they aren't kept
};

const Case cases[] = {{form101, 8569, 219, false, false, false, "nomprogression"},
                      {form102, 8569, 109.5, false, true, false, "nomprogression2"},
                      {form103, 7320, 219, false, false, true},
                      {form104, 7320, 109.5, false, true, true},
                      {form105, 8569, 109.5, true, false, false, "nomprogressionecu"},
                      {form106, 8569, 109.5, true, true, false, "6nomprogressionecu"},
                      {form107, 8569, 109.5, true, false, true},
                      {form108, 8569, 109.5, true, true, true}};

std::optional<int> placeIn(const auto &places, const std::string &name)
{
    const auto found = std::find(places.begin(), places.end(), name);
    return found == places.end() ? std::nullopt : std::optional(static_cast<int>(found - places.begin()) + 1);
}

// The first four who ended the season in a team, in the order of their numbers.
Lines driversOf(const SampleSeason &season, const std::string &team)
{
    Lines names;
    for (const SampleDriver &driver : season.drivers) {
        std::string drivesFor = driver.team;
        for (const SampleMove &move : season.moves)
            if (move.slot == driver.slot)
                drivesFor = move.team;
        if (drivesFor == team && names.size() < 4)
            names.push_back(driver.name);
    }
    return names;
}

std::vector<double> heights(const Case &c, const SampleSeason &season, const std::string &subject)
{
    std::vector<double> all;
    double sum = 0;
    for (std::size_t slot = 0; slot < 20; ++slot) {
        double gained = 0;
        bool onGrid = false;
        for (const std::string &name : c.ofTeams ? driversOf(season, subject) : Lines{subject}) {
            const auto race = slot < season.races.size() ? season.races[slot] : SampleRace();
            const auto grid = placeIn(race.grid, name), finish = placeIn(race.finish, name);
            onGrid |= grid.has_value();
            if (grid && finish)
                gained += *grid - *finish;
        }
        sum = !c.ofTeams && !onGrid ? 0 : sum + gained;
        all.push_back(c.base - c.unit * (c.summedUp ? sum : gained));
    }
    return all;
}

class GainCharts : public testing::Test {
protected:
    WritableSeason season(const std::string &year = "2004") { return WritableSeason(desk.store, year); }
    void draw(SeasonChart &chart) { chart.draw(season(), builtInScale); }
    // On its first series, at the scale it opens with.
    void show(SeasonChart &chart, const std::string &subject)
    {
        chart.open(season());
        const auto number = driverNamed(season(), subject);
        const bool byNumber = chart.instance().subject == Subject::driverNumber;
        chart.subjects[0].set(byNumber ? std::to_string(number.value_or(0)) : subject);
        draw(chart);
    }
    void expectHeights(const SeasonChart &chart, int series, const std::vector<double> &expected)
    {
        for (int slot = 0; slot < segments; ++slot)
            EXPECT_NEAR(chart.curve(series).at(slot), expected[static_cast<std::size_t>(slot)], 1e-6)
                << chart.instance().screen << " " << series << " " << slot;
        EXPECT_EQ(chart.curve(series).y[0], chart.instance().base);
    }
    Desk desk{Desk::sample, ','};
};

TEST_F(GainCharts, FollowThePublishedGridsAndFinishes)
{
    for (const Case &c : cases)
        for (const std::string &subject :
             c.ofTeams ? Lines{"Renault", "Toyota"} : Lines{"Jenson Button", "Timo Glock"}) {
            SeasonChart chart(c.chart);
            show(chart, subject);
            expectHeights(chart, 0, heights(c, published("2004"), subject));
            EXPECT_EQ(chart.mask(), c.ofSeasons ? outside : 10690) << c.chart.screen;
            if (!c.ofSeasons)
                continue;
            expectHeights(chart, 1, heights(c, published("2003"), subject));
            expectHeights(chart, 3, std::vector<double>(20, c.base)); // 2001 has no file
            EXPECT_EQ(chart.name(0) + chart.name(3), "20042001");
        }
}

TEST_F(GainCharts, BearMissingPlacesAndAFifthDriver)
{
    const std::string monaco = "2004 [N°] Monacogrilledepart";
    SampleSeason changed = published("2004");
    const auto expectAll = [&](const char *what) {
        SCOPED_TRACE(what);
        for (const Case &c : cases) {
            SeasonChart chart(c.chart);
            const std::string subject = c.ofTeams ? "BAR" : "Jenson Button";
            show(chart, subject);
            expectHeights(chart, 0, heights(c, changed, subject));
        }
    };
    SampleRace &race = changed.races[5];
    const int place = *placeIn(race.grid, "Jenson Button");
    desk.write(monaco + std::to_string(place - 2) + "=");
    race.grid[static_cast<std::size_t>(place - 1)] = "";
    expectAll("not on the grid");
    desk.write("2004 [podium] podium" + std::to_string(*placeIn(changed.races[3].finish, "Jenson Button")) +
               changed.races[3].name + "=");
    changed.races[3].finish[static_cast<std::size_t>(*placeIn(changed.races[3].finish, "Jenson Button") - 1)] = "";
    expectAll("not at the finish");
    for (const int slot : {1, 2, 3, 4, 5}) {
        desk.write("2004 [N°] ecurie" + std::to_string(slot) + "=BAR");
        changed.moves.push_back({slot, "BAR", 0});
    }
    ASSERT_EQ(driversOf(changed, "BAR").size(), 4u);
    expectAll("five and more drivers");
    SeasonChart teams(form105);
    show(teams, "BAR");
    EXPECT_EQ(teams.drivers(0)[3], season().nom(4));
}

// The last draw was at the scale of the opening. Slots 0 and 5: gains of Button and of BAR are known in both.
TEST_F(GainCharts, TakeTheScaleAsItIsTyped)
{
    for (const Case &c : cases) {
        SeasonChart chart(c.chart);
        show(chart, c.ofTeams ? "BAR" : "Jenson Button");
        const double first = chart.curve(0).at(0), last = chart.curve(0).at(5);
        ASSERT_NE(first, c.base);
        const bool cleared = c.ofTeams && (c.summedUp || c.ofSeasons);
        const double one = c.summedUp || cleared ? 100 : 1;
        const auto at = [&](const std::string &scale) {
            chart.scale.set(scale);
            draw(chart);
            return std::pair(chart.curve(0).at(0), chart.curve(0).at(5));
        };
        SCOPED_TRACE(c.chart.screen);
        EXPECT_EQ(at("abc"), std::pair(cleared || c.summedUp ? c.base : first, cleared ? c.base : last));
        EXPECT_EQ(at("0"), std::pair(c.base, c.base));
        const auto [halfFirst, halfLast] = at(one == 1 ? "0,5" : "50");
        EXPECT_NEAR(halfFirst, (first + c.base) / 2, 1e-6);
        EXPECT_NEAR(halfLast, (last + c.base) / 2, 1e-6);
    }
}

TEST_F(GainCharts, ShowTheAverageOfTheDrawnHeights)
{
    for (const Case &c : cases) {
        SeasonChart chart(c.chart);
        show(chart, c.ofTeams ? "BAR" : "Jenson Button");
        chart.highlight(0, desk.store.numbers());
        const auto &y = chart.curve(0).y;
        EXPECT_NEAR(chart.average().rest[0].y1, (y[1] + y[2] + y[3]) / 3, 1e-6);
        EXPECT_NEAR(chart.average().rest[16].y2, (y[18] + y[19] + y[20]) / 3, 1e-6);
        EXPECT_EQ(chart.average().beginning[0].y1, 13000);
        EXPECT_EQ(chart.lineWidth(0) * 10 + chart.lineWidth(1), 31);
        draw(chart);
        EXPECT_EQ(chart.average().rest[0].y1, 50000);
        EXPECT_FALSE(chart.averageShown());
    }
}

// A thickness chosen on one is what the drivers' points find; these charts open with thin lines all the same, and the
// drivers' charts over seasons even with the width 2.
TEST_F(GainCharts, KeepSubjectsAndThickness)
{
    for (const Case &c : cases) {
        SCOPED_TRACE(c.chart.screen);
        Desk own(Desk::empty);
        const WritableSeason kept(own.store, "2004");
        own.write("2004 [N°] ecurie2=Ferrari");
        SeasonChart chart(c.chart);
        chart.open(kept);
        if (!c.ofSeasons) {
            EXPECT_EQ(chart.subjects[1].text(), c.ofTeams ? "Ferrari" : "2");
        }
        EXPECT_EQ(chart.width.text(), "2");
        Lines expected = {"[bordergraph] bordernumber: - > 2", "[bordergraphtxt] epa: - > 4", "ecurie2: - > Ferrari"};
        for (std::size_t s = 0; s < 4; ++s) {
            chart.subjects[s].set(std::string(1, "abcd"[s]));
            if (!c.key.empty())
                expected.push_back(c.key + std::to_string(s + 1) + ": - > " + "abcd"[s]);
        }
        chart.width.set("4");
        chart.drawCustom(kept);
        chart.close(kept);
        EXPECT_EQ(changes({}, own.keys("2004")), sorted(expected));
        SeasonChart again(c.chart), points(form8);
        again.open(kept);
        points.open(kept);
        EXPECT_EQ(again.width.text(), c.ofSeasons && !c.ofTeams ? "2" : "4");
        EXPECT_EQ(again.lineWidth(0), 1);
        EXPECT_EQ(points.lineWidth(0), 4);
        chart.drawNormal(kept);
        EXPECT_EQ(own.read("2004 [bordergraph] bordernumber"), "1");
    }
}

}
