// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/open_grand_prix.h"

#include "results/season_fixture.h"

using namespace circuidex;
using namespace circuidex::results;
using namespace circuidex::test;

namespace {

Lines printed(const std::vector<StandingRow> &rows)
{
    Lines lines;
    for (const StandingRow &row : rows)
        lines.push_back(row.name + " " + row.points);
    return lines;
}

TEST(OpenGrandPrix, RanksDriversAfterASlot)
{
    Desk desk;
    const WritableSeason season(desk.store, "2003");
    EXPECT_EQ(printed(driversAfter(season, -1, builtInScale)), Lines{});
    EXPECT_EQ(printed(driversAfter(season, 0, builtInScale)),
              split("David Coulthard 10; Juan Pablo Montoya 8; Kimi Räikkönen 6; Michael Schumacher 5; Jarno Trulli 4; "
                    "Heinz-Harald Frentzen 3; Fernando Alonso 2; Ralf Schumacher 1",
                    ';'));
    const Lines final = printed(driversAfter(season, 15, builtInScale));
    EXPECT_EQ(final.size(), 20u);
    EXPECT_EQ(final[8] + ", " + final[9], "Mark Webber 17, Jenson Button 17"); // level, in the order of their numbers
    EXPECT_EQ(printed(driversAfter(season, 19, builtInScale)), final);
    EXPECT_EQ(printed(driversAfter(Season(desk.store, "2007"), 19, builtInScale)), Lines{});
}

TEST(OpenGrandPrix, RanksTeamsByTheirPointsOfEachRace)
{
    Desk desk;
    const WritableSeason season(desk.store, "2003");
    EXPECT_EQ(printed(teamsAfter(season, -1)), Lines{});
    // Five are level, in the order of their drivers' numbers.
    EXPECT_EQ(printed(teamsAfter(season, 0)),
              split("McLaren 16; Williams 9; Renault 6; Ferrari 5; Sauber 3; Jordan 0; "
                    "Jaguar 0; BAR 0; Minardi 0; Toyota 0",
                    ';'));
    EXPECT_EQ(printed(teamsAfter(season, 15)),
              split("Ferrari 158; Williams 144; McLaren 142; Renault 88; BAR 26; "
                    "Sauber 19; Jaguar 18; Toyota 16; Jordan 13; Minardi 0",
                    ';'));
}

TEST(OpenGrandPrix, CountsWhatCanBeCounted)
{
    Desk desk(Desk::empty, ',');
    const char *const season = "[N°] nom1=Un; [N°] nom2=Deux; [N°] nom26=Dernier; [N°] nom27=Dehors; "
                               "[N°] ecurie1=Aucune; [N°] ecurie2=Jordan; [N°] ecurie26=Osella; "
                               "[gp] namegp0=A; [gp] namegp1=B; [gp] namegp2=A; " // two slots share one result
                               "[podium] podium1A=2; [podium] podium2A=26; [podium] podium3A=27; [podium] podium4A=x; "
                               "[podium] podium5A=1; [podium] podium1B=26; [N°] Aucuneecuriepts/gp0=4; "
                               "[N°] Jordanecuriepts/gp0=2,5; [N°] Jordanecuriepts/gp1=x; [N°] Jordanecuriepts/gp2=2";
    for (const std::string &key : split(season, ';'))
        desk.write("2005 " + key);
    const Scale scale{"10", "7,5", "5", "4", "trois", "2", "1", "0"};
    EXPECT_EQ(printed(driversAfter(desk.main.season(), 0, scale)), (Lines{"Deux 10", "Dernier 7,5"}));
    EXPECT_EQ(printed(driversAfter(desk.main.season(), 2, scale)), (Lines{"Dernier 25", "Deux 20"}));
    EXPECT_EQ(printed(teamsAfter(desk.main.season(), 2)), Lines{"Jordan 4,5"});
}

TEST(OpenGrandPrix, TellsTheTeamsOfAGrid)
{
    Desk desk;
    desk.write("2005 [N°] ecurie6=Aucune");
    desk.write("2005 [N°] nom27=Ricardo Zonta");
    desk.write("2005 [N°] ecurie27=Toyota");
    Grid grid;
    grid[1] = "Fernando Alonso";
    grid[2] = "Giancarlo Fisichella"; // of no team now
    grid[3] = "Ayrton Senna";
    grid[25] = "Ricardo Zonta";
    grid[26] = "Kimi Räikkönen";
    const auto teams = gridTeams(desk.main.season(), grid);
    Lines found;
    for (int place = 1; place <= gridPlaces; ++place)
        if (!teams[place].empty())
            found.push_back(std::to_string(place) + " " + teams[place]);
    EXPECT_EQ(found, (Lines{"1 Renault", "25 Toyota", "26 McLaren"}));
}

TEST(OpenGrandPrix, FindsTheSlotOfAName)
{
    Desk desk;
    desk.write("2005 [gp] namegp19=Australie");
    desk.write("2005 [gp] namegp21=Hors calendrier");
    struct Case {
        const char *name;
        std::optional<int> slot;
    };
    const Case cases[] = {{"Australie", 0},        {"Brésil", 16},          {"Chine", 18},
                          {"chine", std::nullopt}, {"Hors calendrier", 21}, {"Pays-bas", std::nullopt}};
    for (const Case &c : cases)
        EXPECT_EQ(slotNamed(desk.main.season(), c.name), c.slot) << c.name;
}

}
