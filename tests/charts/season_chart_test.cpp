// A chart on a season: what it draws of real results, and what it keeps of the user's choices.
#include "charts/season_chart.h"
#include "results/season_fixture.h"

using namespace circuidex;
using namespace circuidex::charts;
using namespace circuidex::test;

namespace {

const std::string tables = CIRCUIDEX_TESTDATA "/";

class SeasonCharts : public testing::Test {
protected:
    Season season(const std::string &year = "2003") { return Season(desk.store, year); }
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
    Widths widths(const SeasonChart &chart)
    {
        return {chart.lineWidth(0), chart.lineWidth(1), chart.lineWidth(2), chart.lineWidth(3)};
    }

    Desk desk;
    Scale scale = builtInScale;
};

// The last race run is the sixteenth, and behind it the line goes on flat.
TEST_F(SeasonCharts, EndAtTheOfficialPointsOf2003)
{
    SeasonChart drivers(form8), teams(form41);
    show(drivers);
    show(teams);
    int compared = 0;
    for (const std::string &line : linesOf(tables + "2003.standings.tsv")) {
        const Lines row = split(line, '\t'); // table, place, name, points, wins
        const bool driver = row[0] == "DRIVER";
        SeasonChart &chart = driver ? drivers : teams;
        const double twips = driver ? 50 : 30;
        if (std::stoi(row[1]) > 4)
            continue;
        chart.subjects[0].set(driver ? numberOf(row[2]) : row[2]);
        chart.draw(season(), scale);
        EXPECT_EQ(chart.name(0), row[2]);
        EXPECT_EQ(chart.curve(0).at(15), 10320 - twips * std::stod(row[3])) << row[2];
        EXPECT_EQ(chart.curve(0).at(19), chart.curve(0).at(15));
        EXPECT_EQ(chart.pair(0).totalA, row[3]);
        ++compared;
    }
    EXPECT_EQ(compared, 8);
    EXPECT_EQ(drivers.mask(), 9610);
}

TEST_F(SeasonCharts, FollowTheScaleInUseWhileTheSentenceKeepsWhatWasRecorded)
{
    SeasonChart chart(form8);
    scale[0] = "25";
    show(chart);
    EXPECT_EQ(chart.curve(0).at(15), 10320 - 50 * (93 + 6 * 15));
    EXPECT_EQ(chart.pair(0).totalA, "93");
}

TEST_F(SeasonCharts, CountHalfPoints)
{
    Desk french(Desk::sample, ',');
    SeasonChart chart(form8);
    scale = {"2,5", "0,5", "x", "", "0", "0", "0", "0"};
    const Season races(french.store, "2003");
    chart.open(races);
    chart.draw(races, scale);
    EXPECT_EQ(chart.curve(0).at(15), 10320 - 50 * 6 * 2.5);
    EXPECT_EQ(chart.curve(2).at(15), 10320 - 50 * (2 * 2.5 + 5 * 0.5));
}

TEST_F(SeasonCharts, DrawPlacesAndTheirAverage)
{
    SeasonChart chart(form45);
    show(chart);
    choose(chart, "Michael Schumacher,Kimi Räikkönen,Cliquez ici,Nobody");
    EXPECT_EQ(chart.curve(0).y[0], 4280);
    EXPECT_EQ(chart.curve(0).at(0), 4280);
    EXPECT_EQ(chart.curve(0).at(3), 1880);
    EXPECT_EQ(chart.curve(2).at(7), 8280);
    EXPECT_EQ(chart.average().beginning[0].y1, -500);
    EXPECT_FALSE(chart.averageShown());
    chart.highlight(0, desk.store.numbers()); // 4, 6, 9, 1 ...
    EXPECT_TRUE(chart.averageShown());
    EXPECT_EQ(widths(chart), (Widths{3, 1, 1, 1}));
    EXPECT_EQ(chart.average().beginning[0].y2, 4280);
    EXPECT_EQ(chart.average().beginning[1].y2, 4280 + 800);
    EXPECT_DOUBLE_EQ(chart.average().beginning[2].y2, 8280 - 800 * (9 - 19 / 3.));
    EXPECT_DOUBLE_EQ(chart.average().rest[0].y2, 8280 - 800 * (9 - 16 / 3.));
    chart.draw(season(), scale);
    EXPECT_EQ(chart.average().rest[0].y2, -500);
    EXPECT_EQ(widths(chart), thin);
}

TEST_F(SeasonCharts, MaskInThreeWays)
{
    SeasonChart points(form8), start(form53), teams(form71);
    for (SeasonChart *chart : {&points, &start, &teams})
        show(*chart, "2005");
    EXPECT_EQ(points.mask(), 10690);
    EXPECT_EQ(start.mask(), vertex(8) + 10) << "nobody on the first two places of the grid";
    EXPECT_EQ(teams.mask(), 10) << "nobody chosen";
    choose(teams, "Renault,-,-,-", "2005");
    EXPECT_EQ(teams.mask(), 10690);
    desk.write("2005 [podium] podium1Monaco=");
    desk.write("2005 [podium] podium2Monaco=");
    desk.write("2005 [N°] Espagnegrilledepart-1=");
    desk.write("2005 [N°] Espagnegrilledepart0=");
    desk.write("2005 [N°] Renaultecuriepts/gp2=");
    for (SeasonChart *chart : {&points, &start, &teams})
        chart->draw(season("2005"), scale);
    EXPECT_EQ(points.mask(), vertex(5) + 10);
    EXPECT_EQ(start.mask(), vertex(4) + 10);
    EXPECT_EQ(teams.mask(), vertex(2) + 10);
    SeasonChart none(form8);
    show(none, "1950");
    EXPECT_EQ(none.mask(), 10);
    EXPECT_EQ(none.curve(0).y, flat(10320).y);
    EXPECT_EQ(none.pair(1).sentence, " a le même nombre de points que . Ils ont  points.");
}

struct KeysCase {
    const Instance &chart;
    std::string subjects[4]; // at first
    std::string scale; // at first; none for a chart without
    Lines kept; // after "Personalisée" at 4 and closing with a choice of a to d at a scale of 70
};

class KeptSettings : public testing::TestWithParam<KeysCase> { };

TEST_P(KeptSettings, StandUnderTheirKeys)
{
    const auto &[instance, subjects, firstScale, kept] = GetParam();
    Desk desk(Desk::empty);
    const Season season(desk.store, "2005");
    SeasonChart chart(instance);
    chart.open(season);
    for (std::size_t s = 0; s < 4; ++s)
        EXPECT_EQ(chart.subjects[s].text(), subjects[s]);
    EXPECT_EQ(chart.scale.text(), firstScale);
    EXPECT_EQ(chart.width.text(), "2");
    const Keys before = desk.keys("2005");
    chart.width.set("4");
    chart.drawCustom(season);
    for (std::size_t s = 0; s < 4; ++s)
        chart.subjects[s].set(std::string(1, static_cast<char>('a' + s)));
    chart.scale.set("70");
    chart.close(season);
    EXPECT_EQ(changes(before, desk.keys("2005")), kept);
    SeasonChart again(instance);
    again.open(season);
    EXPECT_EQ(again.subjects[3].text(), "d");
    EXPECT_EQ(again.scale.text(), firstScale.empty() ? "" : "70");
    EXPECT_EQ(again.width.text(), "4");
    EXPECT_EQ(again.lineWidth(2), 4);
}

INSTANTIATE_TEST_SUITE_P(
    Charts, KeptSettings,
    testing::Values(
        KeysCase{form8,
                 {"1", "2", "3", "4"},
                 "50",
                 lines("[bordergraph] bordernumber: - > 2; [bordergraphtxt] epa: - > 4; [plots] echel: - > 70;"
                       "[plots] n1: - > a; [plots] n2: - > b; [plots] n3: - > c; [plots] n4: - > d")},
        KeysCase{form41,
                 {"Cliquez ici", "Cliquez ici", "Cliquez ici", "Cliquez ici"},
                 "30",
                 lines("[bordergraph] ebordernumber: - > 2; [bordergraphtxt] eepa: - > 4; [plots] eechel: - > 70;"
                       "[plots] en1: - > a; [plots] en2: - > b; [plots] en3: - > c; [plots] en4: - > d")},
        KeysCase{form45,
                 {"Cliquez ici", "Cliquez ici", "Cliquez ici", "Cliquez ici"},
                 "",
                 lines("[bordergraph] pbordernumber: - > 2; [bordergraphtxt] pepa: - > 4;"
                       "[plots] pn1: - > a; [plots] pn2: - > b; [plots] pn3: - > c; [plots] pn4: - > d")},
        KeysCase{form53,
                 {"Cliquez ici", "Cliquez ici", "Cliquez ici", "Cliquez ici"},
                 "",
                 lines("[bordergraph] 2pbordernumber: - > 2; [bordergraphtxt] 2pepa: - > 4;"
                       "[plots] 2pn1: - > a; [plots] 2pn2: - > b; [plots] 2pn3: - > c; [plots] 2pn4: - > d")},
        KeysCase{form71,
                 {"Cliquez ici", "Cliquez ici", "Cliquez ici", "Cliquez ici"},
                 "",
                 lines("[bordergraph] 2npbordernumber: - > 2; [bordergraphtxt] 2npepa: - > 4;"
                       "[plots] 2npn1: - > a; [plots] 2npn2: - > b; [plots] 2npn3: - > c; [plots] 2npn4: - > d")}),
    [](const auto &each) { return std::string(each.param.chart.screen); });

TEST_F(SeasonCharts, KeepAWidthThatLinesCannotHave)
{
    SeasonChart chart(form8);
    show(chart);
    chart.width.set("3");
    chart.drawCustom(season());
    for (const char *width : {"0", "épais", ""}) {
        chart.width.set(width);
        chart.drawCustom(season());
        EXPECT_EQ(widths(chart), (Widths{3, 3, 3, 3})) << width;
        EXPECT_EQ(desk.read("2003 [bordergraphtxt] epa"), width);
        EXPECT_EQ(desk.read("2003 [bordergraph] bordernumber"), "2");
    }
    chart.drawNormal(season());
    EXPECT_EQ(widths(chart), thin);
    EXPECT_EQ(desk.read("2003 [bordergraph] bordernumber"), "1");
}

TEST_F(SeasonCharts, OfPlacesAreThinAgainAfterEachDrawing)
{
    desk.write("2003 [bordergraph] pbordernumber=2");
    desk.write("2003 [bordergraphtxt] pepa=5");
    SeasonChart chart(form45);
    chart.open(season());
    EXPECT_EQ(chart.lineWidth(0), 5);
    chart.draw(season(), scale);
    EXPECT_EQ(widths(chart), thin);
    EXPECT_EQ(desk.read("2003 [bordergraph] pbordernumber"), "1");
    SeasonChart totals(form8);
    desk.write("2003 [bordergraph] bordernumber=2");
    show(totals);
    EXPECT_EQ(totals.lineWidth(0), 2);
    desk.write("2003 [bordergraph] bordernumber=3");
    SeasonChart other(form8);
    show(other);
    EXPECT_EQ(widths(other), thin);
}

TEST_F(SeasonCharts, AreFlatWithoutASubjectOrAScale)
{
    SeasonChart chart(form8);
    show(chart);
    choose(chart, "26,27,-,Michael Schumacher");
    for (int s = 0; s < seriesCount; ++s) {
        EXPECT_EQ(chart.curve(s).y, flat(10320).y);
        EXPECT_EQ(chart.name(s), "");
    }
    chart.subjects[0].set("1");
    chart.scale.set("beaucoup");
    chart.draw(season(), scale);
    EXPECT_EQ(chart.curve(0).y, flat(10320).y);
    EXPECT_TRUE(chart.ticks(desk.store.numbers()).empty());
    EXPECT_EQ(chart.pair(0).totalA, "93");
}

}
