// SPDX-License-Identifier: GPL-3.0-or-later
// A chart on a season: what it draws of real results, and what it keeps of the user's choices.
#include "charts/season_chart.h"
#include "results/season_fixture.h"

using namespace circuidex;
using namespace circuidex::charts;
using namespace circuidex::test;

namespace {

class SeasonCharts : public testing::Test {
protected:
    WritableSeason season(const std::string &year = "2003") { return WritableSeason(desk.store, year); }
    void show(SeasonChart &chart, const std::string &year = "2003")
    {
        chart.open(season(year));
        chart.draw(season(year), scale);
    }
    // The choice of subjects as a list of names or numbers separated by commas.
    void choose(SeasonChart &chart, const std::string &subjects, const std::string &year = "2003")
    {
        const Lines each = split(subjects, ',');
        for (std::size_t s = 0; s < each.size(); ++s)
            chart.subjects[s].set(each[s]);
        chart.draw(season(year), scale);
    }
    std::string numberOf(const std::string &name)
    {
        for (int n = 1; n <= driverSlots; ++n)
            if (season().nom(n) == name)
                return std::to_string(n);
        return "nobody";
    }
    Desk desk;
    results::Scale scale = results::builtInScale;
};

// The last race run is the sixteenth, and behind it the line goes on flat.
TEST_F(SeasonCharts, EndAtTheOfficialPointsOf2003)
{
    SeasonChart drivers(form8), teams(form41);
    show(drivers);
    show(teams);
    for (const std::string championship : {"DRIVER", "TEAM"}) {
        const bool driver = championship == "DRIVER";
        SeasonChart &chart = driver ? drivers : teams;
        const auto table = officialTable("2003", championship);
        ASSERT_GE(table.size(), 10u);
        for (std::size_t place = 0; place < 4; ++place) {
            const auto &[name, points, wins] = table[place];
            chart.subjects[0].set(driver ? numberOf(name) : name);
            chart.draw(season(), scale);
            EXPECT_EQ(chart.name(0) + " " + chart.pair(0).totalA, name + " " + points);
            EXPECT_EQ(chart.curve(0).at(15), 10320 - (driver ? 50 : 30) * std::stod(points)) << name;
            EXPECT_EQ(chart.curve(0).at(19), chart.curve(0).at(15));
        }
    }
    EXPECT_EQ(drivers.mask(), 9610);
}

TEST_F(SeasonCharts, FollowTheScaleInUseWhileTheSentenceKeepsWhatWasRecorded)
{
    SeasonChart chart(form8);
    scale[1] = "25";
    show(chart);
    EXPECT_EQ(chart.curve(0).at(15), 10320 - 50 * (93 + 6 * 15));
    EXPECT_EQ(chart.pair(0).totalA, "93");
}

TEST_F(SeasonCharts, CountHalfPoints)
{
    Desk french(Desk::sample, ',');
    SeasonChart chart(form8);
    scale = {"2,5", "0,5", "x", "", "0", "0", "0", "0"};
    const WritableSeason races(french.store, "2003");
    chart.open(races);
    chart.draw(races, scale);
    EXPECT_EQ(chart.curve(0).at(15), 10320 - 50 * 6 * 2.5);
    EXPECT_EQ(chart.curve(2).at(15), 10320 - 50 * (2 * 2.5 + 5 * 0.5));
}

TEST_F(SeasonCharts, MaskInThreeWays)
{
    SeasonChart points(form8), start(form53), teams(form71);
    for (SeasonChart *chart : {&points, &start, &teams})
        show(*chart, "2005");
    EXPECT_EQ(points.mask(), 10690);
    EXPECT_EQ(start.mask(), vertex(8) + 10) << "nobody on the first two places of the grid";
    choose(teams, "-,-,-,-", "2005");
    EXPECT_EQ(teams.mask(), 10) << "nobody chosen";
    choose(teams, "Renault,-,-,-", "2005");
    EXPECT_EQ(teams.mask(), 10690);
    SeasonChart none(form8);
    show(none, "1950");
    EXPECT_EQ(none.mask(), 10);
    EXPECT_EQ(none.curve(0).y, flat(10320).y);
    EXPECT_EQ(none.pair(1).sentence, " a le même nombre de points que . Ils ont  points.");
}

// After "Personalisée" at 4 and closing with a choice of a to d at a scale of 70, each chart under keys of its own.
TEST(KeptSettings, StandUnderTheirKeys)
{
    struct Case {
        const Instance &chart;
        std::string prefix, first, scale; // the subject at first, 1 to 4 where it is "1"; no scale for a chart without
    };
    for (const Case &c :
         {Case{form8, "", "1", "50"}, Case{form41, "e", "Cliquez ici", "30"}, Case{form45, "p", "Cliquez ici", ""},
          Case{form53, "2p", "Cliquez ici", ""}, Case{form71, "2np", "Cliquez ici", ""}}) {
        SCOPED_TRACE(c.prefix);
        Desk desk(Desk::empty);
        const WritableSeason season(desk.store, "2005");
        SeasonChart chart(c.chart);
        chart.open(season);
        Lines kept = {"[bordergraph] " + c.prefix + "bordernumber: - > 2",
                      "[bordergraphtxt] " + c.prefix + "epa: - > 4"};
        for (std::size_t s = 0; s < 4; ++s) {
            const std::string number = std::to_string(s + 1);
            EXPECT_EQ(chart.subjects[s].text(), c.first == "1" ? number : c.first);
            kept.push_back("[plots] " + c.prefix + "n" + number + ": - > " + "abcd"[s]);
        }
        if (!c.scale.empty())
            kept.push_back("[plots] " + c.prefix + "echel: - > 70");
        EXPECT_EQ(chart.scale.text() + " " + chart.width.text(), c.scale + " 2");
        chart.width.set("4");
        chart.drawCustom(season);
        for (std::size_t s = 0; s < 4; ++s)
            chart.subjects[s].set(std::string(1, "abcd"[s]));
        chart.scale.set("70");
        chart.close(season);
        EXPECT_EQ(changes({}, desk.keys("2005")), sorted(kept));
        SeasonChart again(c.chart);
        again.open(season);
        EXPECT_EQ(again.subjects[3].text() + " " + again.scale.text() + " " + again.width.text(),
                  c.scale.empty() ? "d  4" : "d 70 4");
        EXPECT_EQ(again.lineWidth(2), 4);
        season.write("bordergraph", c.prefix + "bordernumber", "3"); // neither of the two
        SeasonChart odd(c.chart);
        odd.open(season);
        EXPECT_EQ(odd.lineWidth(2), 1);
    }
}

TEST_F(SeasonCharts, ShowTheAverageOfTheLineInFrontUntilTheNextDrawing)
{
    SeasonChart chart(form45);
    show(chart);
    EXPECT_FALSE(chart.averageShown());
    chart.highlight(0, desk.store.numbers());
    EXPECT_TRUE(chart.averageShown());
    chart.draw(season(), scale);
    EXPECT_FALSE(chart.averageShown());
}

TEST_F(SeasonCharts, AreFlatWithoutASubject)
{
    desk.write("2003 [N°] nbpts=77"); // nobody's
    SeasonChart chart(form8);
    show(chart);
    choose(chart, "1,-");
    EXPECT_EQ(chart.curve(1).y, flat(10320).y);
    EXPECT_EQ(chart.name(1) + chart.pair(0).totalB, "");
}

}
