// SPDX-License-Identifier: GPL-3.0-or-later
// What the charts read of a season: points, places, and how far the season has got.
#include "charts/chart_series.h"
#include "results/season_fixture.h"

using namespace circuidex;
using namespace circuidex::charts;
using namespace circuidex::test;

namespace {

// The first cells, joined by blanks; "-" for an empty one.
std::string first(const SeriesCells &series, std::size_t subject, int count)
{
    std::string text;
    for (int slot = 0; slot < count; ++slot) {
        const std::string &cell = series.cells[subject][static_cast<std::size_t>(slot)];
        text += (slot ? " " : "") + (cell.empty() ? "-" : cell);
    }
    return text;
}

class ChartSeries : public testing::Test {
protected:
    WritableSeason season(const std::string &year) { return WritableSeason(desk.store, year); }
    std::string nameOf(const std::string &year, int number) { return season(year).nom(number); }
    Desk desk;
};

TEST_F(ChartSeries, GivesTheRacesOfRealDrivers)
{
    const Subjects names{"Michael Schumacher", "Kimi Räikkönen", "Cliquez ici", ""};
    const SeriesCells finish = finishPlaces(season("2003"), results::builtInScale, names);
    EXPECT_EQ(first(finish, 0, 17), "4 6 9 1 1 1 3 1 5 3 4 7 8 1 1 8 9");
    EXPECT_EQ(first(finish, 1, 17), "3 1 2 2 9 2 2 6 9 4 3 9 2 4 2 2 9");
    EXPECT_EQ(first(finish, 2, 22), "9 9 9 9 9 9 9 9 9 9 9 9 9 9 9 9 9 9 9 9 9 9");
    EXPECT_EQ(first(finish, 3, 3), "9 9 9");
    const SeriesCells start = gridPlacesOf(season("2003"), results::builtInScale, names);
    EXPECT_EQ(first(start, 0, 17), "1 3 7 1 1 1 5 3 2 3 5 6 8 1 7 14 23");
    EXPECT_EQ(first(start, 3, 3), "23 23 23");
}

TEST_F(ChartSeries, TakesPointsFromPlacesAndTheScale)
{
    results::Scale doubled = results::builtInScale;
    for (std::string &points : doubled)
        points = desk.store.numbers().sum(points, points).value();
    const Subjects numbers{"1", "27", "", "1,5"};
    EXPECT_EQ(first(driverPoints(season("2003"), results::builtInScale, numbers), 0, 17),
              "5 3 - 10 10 10 6 10 4 6 5 2 1 10 10 1 -");
    const SeriesCells twice = driverPoints(season("2003"), doubled, numbers);
    EXPECT_EQ(first(twice, 0, 4), "10 6 - 20");
    for (const std::size_t nobody : {1u, 2u, 3u})
        EXPECT_EQ(first(twice, nobody, 4), "- - - -");
}

TEST_F(ChartSeries, TakesPointsOfTeamsAsRecorded)
{
    desk.write("2003 [N°] ecuriepts/gp0=99");
    const SeriesCells series = teamPoints(season("2003"), results::builtInScale, {"Ferrari", "Cliquez ici", "", "Minardi"});
    EXPECT_EQ(first(series, 0, 5), "5 11 0 16 16");
    EXPECT_EQ(first(series, 1, 3), "- - -");
    EXPECT_EQ(first(series, 2, 3), "- - -") << "the points of drivers without a team belong to nobody";
    EXPECT_EQ(first(series, 3, 17), "0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 -");
}

TEST_F(ChartSeries, TakesTheLastOfTwoPlaces)
{
    const std::string name = nameOf("2003", 1), gp = season("2003").namegp(0);
    desk.write("2003 [podium] podium8" + gp + "=1");
    desk.write("2003 [N°] " + gp + "grilledepart19=" + name);
    desk.write("2003 [N°] " + gp + "grilledepart21=" + name); // place 23: not read
    EXPECT_EQ(first(finishPlaces(season("2003"), results::builtInScale, {name, "", "", ""}), 0, 1), "8");
    EXPECT_EQ(first(gridPlacesOf(season("2003"), results::builtInScale, {name, "", "", ""}), 0, 1), "21");
}

// One season changed in one way at a time, and where its charts then end.
struct EndCase {
    const char *name;
    const char *year;
    std::vector<std::string> writes;
    std::optional<int> results, grids;
};

std::vector<std::string> twentyFiveRaces()
{
    std::vector<std::string> writes;
    for (int slot = 0; slot < 26; ++slot)
        writes.push_back("1990 [gp] namegp" + std::to_string(slot) + "=Monaco");
    writes.insert(writes.end(), {"1990 [podium] podium1Monaco=1", "1990 [N°] Monacogrilledepart-1=A"});
    return writes;
}

TEST(ChartsEnd, AtTheFirstRaceWithNothingToShow)
{
    const EndCase cases[] = {
        {"full", "2003", {}, 16, 16},
        {"six cars on the grid of the ninth", "2005", {}, 18, 8}, // the first of them in fifth place
        {"half run", "2005", {"2005 [N°] Etats-unisgrilledepart0=A"}, 18, 18},
        {"without a file", "1950", {}, 0, 0},
        {"second is enough", "2003", {"2003 [podium] podium1Monaco=", "2003 [N°] Monacogrilledepart-1="}, 16, 16},
        {"missing in the middle", "2003", {"2003 [podium] podium1Monaco=", "2003 [podium] podium2Monaco="}, 6, 16},
        {"grid missing", "2003", {"2003 [N°] Brésilgrilledepart-1=", "2003 [N°] Brésilgrilledepart0="}, 16, 2},
        {"gap in the calendar", "2003", {"2003 [gp] namegp4="}, 4, 4},
        {"longer than the paper", "1990", twentyFiveRaces(), std::nullopt, std::nullopt},
    };
    for (const EndCase &c : cases) {
        Desk desk;
        for (const std::string &line : c.writes)
            desk.write(line);
        const WritableSeason season(desk.store, c.year);
        EXPECT_EQ(firstWithoutResult(season), c.results) << c.name;
        EXPECT_EQ(firstWithoutGrid(season), c.grids) << c.name;
    }
}

TEST_F(ChartSeries, EndsForTeamsWhereNoneOfTheFourHasPoints)
{
    const auto end = [&](const Subjects &teams) {
        return firstWithoutPoints(teamPoints(season("2003"), results::builtInScale, teams));
    };
    EXPECT_EQ(end({"Ferrari", "Cliquez ici", "Cliquez ici", "Cliquez ici"}), 16);
    EXPECT_EQ(end({"Cliquez ici", "Cliquez ici", "Cliquez ici", "Cliquez ici"}), 0);
    desk.write("2003 [N°] Ferrariecuriepts/gp5=");
    EXPECT_EQ(end({"Ferrari", "", "", ""}), 5);
    EXPECT_EQ(end({"Ferrari", "", "", "Minardi"}), 16) << "a team with 0 points has raced";
}

}
