// SPDX-License-Identifier: GPL-3.0-or-later
// The ratios of a career, against values worked out by hand from the results.
#include "statistics/driver_sheet.h"

#include "results/driver_screens.h"
#include "results/season_fixture.h"

using namespace circuidex;
using namespace circuidex::statistics;
using namespace circuidex::test;

namespace {

// In the order of the rows on the sheet; a row that keeps its text is "-".
std::string sheet(const DriverFigures &figures, char decimal = '.')
{
    const auto ratios = driverRatios(figures, Numbers(decimal));
    std::string text;
    for (const RatioRow &row : ratioRows)
        text += (text.empty() ? "" : " ") + ratios[static_cast<std::size_t>(row.index)].value_or("-");
    return text;
}

TEST(DriverSheet, RatiosOfACareer)
{
    struct Case {
        const char *who;
        DriverFigures figures;
        const char *rows;
    };
    // wins, podiums, poles, career points, career races, season points, races run, seasons
    const Case cases[] = {
        {"no race yet", {"0", "0", "0", "0", "0", "0", "0", "1"}, "- - - 0 - - 0.00 0.00 0.00 0.00"},
        {"no season counted", {"1", "1", "1", "10", "4", "10", "4", "0"}, "25.00% 25.00% 25.00% 10 2.50 2.50 - - - -"},
        {"figures missing", {"", "", "", "", "", "", "", ""}, "- - - - - - - - - -"},
        {"text for a figure", {"beaucoup", "2", "0", "7", "8", "x", "3", "1"}, "- 25.00% 0.00% 7 0.88 - - 2.00 0.00 7.00"},
        {"halves go up", {"1", "1", "1", "0", "800", "1", "8", "8"}, "0.13% 0.13% 0.13% 0 0.00 0.13 0.13 0.13 0.13 0.00"},
        {"below zero", {"-1", "0", "0", "-3", "8", "-1", "8", "8"}, "-12.50% 0.00% 0.00% -3 -0.38 -0.13 -0.13 0.00 0.00 -0.38"},
    };
    for (const Case &driver : cases)
        EXPECT_EQ(sheet(driver.figures), driver.rows) << driver.who;
    EXPECT_EQ(sheet({"1", "3", "0", "20,5", "8", "20,5", "8", "2"}, ','),
              "12,50% 37,50% 0,00% 21 2,56 2,56 0,50 1,50 0,00 10,25");
}

// Number, name, seasons and what the sheet says of whom.
std::string onShow(MainRecord &main)
{
    DriverProfile &profile = main.profile;
    return profile.nopilot.text() + " " + profile.box("nom").text() + ", " + profile.seasons.text() + " seasons; " +
        profile.ratiosOf.text() + " " + profile.ratios[6].text();
}

TEST(DriverProfile, StepsAndKeepsTheSeasonsOfWhomItLeaves)
{
    Desk desk;
    MainRecord &main = desk.main;
    desk.write("2005 [gp] nooRubens Barrichello="); // nobody counted them
    main.profile.nopilot.set("1");
    openProfile(main);
    EXPECT_EQ(onShow(main), "1 Michael Schumacher, 15 seasons; Michael Schumacher 83.20");
    stepProfileInSeason(main, -1);
    EXPECT_EQ(onShow(main), "1 Michael Schumacher, 15 seasons; Michael Schumacher 83.20");
    main.profile.seasons.set("16");
    stepProfileInSeason(main, 1);
    EXPECT_EQ(desk.read("2005 [gp] nooMichael Schumacher"), "16");
    EXPECT_EQ(desk.read("2005 [gp] nooRubens Barrichello"), "1");
    EXPECT_EQ(main.profile.seasons.text(), "1");
    main.profile.nopilot.set("26");
    openProfile(main);
    stepProfileInSeason(main, 1);
    EXPECT_EQ(main.profile.nopilot.text(), "26");
    stepProfile(main, 1); // nobody there: no seasons are kept
    EXPECT_EQ(onShow(main), "27 , 1 seasons;  ");
    EXPECT_EQ(desk.read("2005 [gp] noo"), "");
}

TEST(DriverProfile, GivesTheNumberToANewDriver)
{
    Desk desk;
    DriverProfile &profile = desk.main.profile;
    profile.nopilot.set("20");
    openProfile(desk.main);
    emptyProfile(profile);
    profile.box("nom").set("Chanoch Nissany");
    storeProfile(desk.main);
    EXPECT_EQ(onShow(desk.main), "20 Chanoch Nissany, 1 seasons; Christijan Albers 4.00");
    EXPECT_EQ(desk.read("2005 [gp] nooChristijan Albers") + desk.read("2005 [gp] nooChanoch Nissany"), "11");
    EXPECT_EQ(desk.read("2005 [N°] sitweb20"), "http://");
}

TEST(DriverProfile, CountsASeasonMoreForTwentyFour)
{
    Desk desk;
    desk.main.profile.nopilot.set("1");
    openProfile(desk.main);
    const Season season = desk.main.season();
    const std::string inFirst = careerSeasons(season, season.nom(1)), outside = careerSeasons(season, season.nom(25));
    countSeason(desk.main);
    EXPECT_EQ(careerSeasons(season, season.nom(1)), season.numbers().sum(inFirst, "1"));
    EXPECT_EQ(careerSeasons(season, season.nom(24)), "2");
    EXPECT_EQ(careerSeasons(season, season.nom(25)), outside);
}

}
