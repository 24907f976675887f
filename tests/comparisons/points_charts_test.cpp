// SPDX-License-Identifier: GPL-3.0-or-later
// The charts of points over seasons, against the published tables.
#include "comparisons/points_charts.h"

#include "charts/season_chart.h"
#include "results/season_fixture.h"

using namespace circuidex;
using namespace circuidex::comparisons;
using namespace circuidex::test;

namespace {

class PointsOverSeasons : public testing::Test {
protected:
    WritableSeason season(const std::string &year = "2004") { return WritableSeason(desk.store, year); }
    void draw(SeasonChart &chart, const std::string &subject)
    {
        chart.subjects[0].set(subject);
        chart.draw(season(), results::Scale());
    }
    Desk desk;
};

TEST_F(PointsOverSeasons, EndAtTheOfficialTotals)
{
    struct Case {
        const Instance &summedUp, &byRace;
        const char *championship;
        double scale, base, unit;
    };
    for (const Case &c : {Case{form85, form86, "DRIVER", 50, 9240, 750}, Case{form87, form88, "TEAM", 25, 9120, 415}}) {
        SeasonChart summedUp(c.summedUp), byRace(c.byRace);
        for (SeasonChart *chart : {&summedUp, &byRace})
            chart->open(season());
        EXPECT_EQ(summedUp.subjects[0].text(), c.scale == 50 ? season().nom(1) : season().ecurie(1));
        for (int series = 0; series < 2; ++series)
            for (const auto &[name, points, wins] : officialTable(series == 0 ? "2004" : "2003", c.championship)) {
                draw(summedUp, name);
                draw(byRace, name);
                EXPECT_EQ(summedUp.curve(series).at(19), 9240 - c.scale * std::stod(points)) << name;
                double sum = 0;
                for (int slot = 0; slot < segments; ++slot)
                    sum += (c.base - byRace.curve(series).at(slot)) / c.unit;
                EXPECT_NEAR(sum, std::stod(points), 1e-9) << name;
                EXPECT_EQ(byRace.curve(series).at(18), c.base) << "no race was held";
                EXPECT_EQ(byRace.curve(series).y[0], byRace.curve(series).y[1]);
                EXPECT_EQ(byRace.curve(3).y, flat(c.base).y) << "no file";
            }
        EXPECT_EQ(byRace.mask(), outside);
        EXPECT_EQ(byRace.lineWidth(0), 1);
    }
}

TEST_F(PointsOverSeasons, CountEachSeasonByItsOwnScaleAlone)
{
    desk.write("2003 [bareme] 1=25");
    desk.write("2004 [bareme] 1=");
    desk.write("2004 [bareme] 2=viel");
    SeasonChart chart(form85);
    chart.open(season());
    draw(chart, "Michael Schumacher");
    EXPECT_EQ(chart.curve(1).at(19), 9240 - 50 * (93 + 6 * 15));
    EXPECT_EQ(chart.curve(0).at(19), 9240 - 50 * (148 - 13 * 10 - 2 * 8));
}

TEST(PointsOverSeasonsKept, StandUnderTheirKeys)
{
    struct Case {
        const Instance &chart;
        std::string scaleKey, widthKey, defaultScale;
    };
    for (const Case &c :
         {Case{form85, "echellecompasaisonpilot", "graphsaison", "50"}, Case{form86, "", "graphsaison2", ""},
          Case{form87, "echellecompasaisonpilot3", "graphsaison3", "25"}, Case{form88, "", "graphsaison3", ""}}) {
        SCOPED_TRACE(c.chart.screen);
        Desk desk(Desk::empty);
        const WritableSeason season(desk.store, "2005");
        SeasonChart chart(c.chart);
        chart.open(season);
        EXPECT_EQ(chart.scale.text() + " " + chart.width.text(), c.defaultScale + " 2");
        chart.scale.set("70");
        chart.width.set("4");
        chart.drawCustom(season);
        EXPECT_EQ(chart.lineWidth(3), 4);
        chart.drawNormal(season);
        EXPECT_EQ(desk.keys("2005"), Keys()) << "kept at closing alone";
        chart.close(season);
        Lines kept = {"[bordergraphtxt] " + c.widthKey + ": - > 4"};
        if (!c.scaleKey.empty())
            kept.push_back(c.scaleKey + ": - > 70");
        EXPECT_EQ(changes({}, desk.keys("2005")), sorted(kept));
        SeasonChart shared(form88);
        shared.open(season);
        EXPECT_EQ(shared.width.text(), c.widthKey == "graphsaison3" ? "4" : "2");
        EXPECT_EQ(shared.lineWidth(0), 1);
    }
}

}
