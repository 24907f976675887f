// SPDX-License-Identifier: GPL-3.0-or-later
// What a season lacks, step by step from an empty folder to its first race, and the season that the start page begins.
#include "results/first_steps.h"

#include "results/new_season.h"
#include "results/scale.h"
#include "results/season_fixture.h"

#include <fstream>

using namespace circuidex;
using namespace circuidex::results;
using namespace circuidex::test;

namespace {

std::string told(const std::optional<FirstSteps> &steps)
{
    return !steps ? "gone" : std::string(steps->calendar ? "calendar " : "") + (steps->drivers ? "drivers" : "");
}

TEST(FirstSteps, LeadToTheFirstRace)
{
    struct Stage {
        const char *written;
        std::optional<Need> lack;
        const char *steps;
    };
    const Stage stages[]{
        {"2005 [ecran] resolutionX=1024", Need::drivers, ""},
        {"2005 [gp] dategp=3", Need::drivers, ""},
        {"2005 [N°] nom3=Jim Clark", Need::teams, "drivers"},
        {"2005 [N°] ecurie3=Aucune", Need::teams, "drivers"},
        {"2005 [N°] ecurie4=BRM", Need::teams, "drivers"}, // of nobody
        {"2005 [N°] ecurie3=Lotus", Need::calendar, "drivers"},
        {"2005 [podium] podium1=3", Need::calendar, "drivers"}, // of a slot without a name
        {"2005 [gp] namegp19=Monaco", Need::race, "calendar drivers"},
        {"2005 [podium] podium2Monaco=3", Need::race, "calendar drivers"},
        {"2005 [podium] podium1Monaco=3", std::nullopt, "gone"},
    };
    Desk desk(Desk::empty);
    for (const Stage &stage : stages) {
        desk.write(stage.written);
        const Season season = desk.main.season();
        EXPECT_EQ(firstLack(season, Need::race), stage.lack) << stage.written;
        EXPECT_EQ(told(firstSteps(season)), stage.steps) << stage.written;
    }
    EXPECT_EQ(told(firstSteps(Season(desk.store, "2031"))), "gone"); // with a race in another season
    EXPECT_EQ(firstLack(Season(desk.store, "2031"), Need::drivers), Need::drivers);
}

TEST(FirstSteps, SeasonsAreThoseOfTheFolder)
{
    Desk desk;
    for (const char *name : {"f12031.ini", "f1ARCHIVES.ini", "f199.ini", "f11999.ini.abime", "2001.ini"})
        std::ofstream(desk.folder / name) << "[gp]\n";
    EXPECT_EQ(seasonsOf(desk.store), (Lines{"2003", "2004", "2005", "2031"}));
}

TEST(FirstSteps, ASeasonBeginsWithWhatTheLastOneHad)
{
    Desk desk;
    const Keys old = desk.keys("2005");
    EXPECT_EQ(seasonBefore(desk.store, "2005"), "2004");
    ASSERT_TRUE(beginSeason(desk.main, "2026"));
    const Season begun(desk.store, "2026"), last(desk.store, "2005");
    for (int number = 1; number < carriedSlots; ++number) {
        EXPECT_EQ(begun.nom(number), last.nom(number));
        EXPECT_EQ(begun.ecurie(number), last.ecurie(number));
        EXPECT_EQ(begun.driver("nbpts", number), "0");
    }
    EXPECT_EQ(desk.main.an.text() + ' ' + desk.main.gp.text() + ' ' + desk.store.yearMarker(),
              "2026 " + last.namegp(0) + " 2026");
    EXPECT_EQ(desk.main.ptspilot[1].text(), "25"); // its time's, 21 years on
    EXPECT_EQ(changes(old, desk.keys("2005")), Lines{});
    ASSERT_TRUE(beginSeason(desk.main, "2006"));
    EXPECT_EQ(loadScale(desk.main.season())[1], "10"); // the year before passes it on
    // One that holds something is opened as it is.
    const Keys held = desk.keys("2004");
    ASSERT_TRUE(beginSeason(desk.main, "2004"));
    EXPECT_EQ(changes(held, desk.keys("2004")), Lines{});
    EXPECT_EQ(desk.dialogs.said, Lines{});
}

TEST(FirstSteps, ASeasonBeginsWholeOrNotAtAll)
{
    for (const char *inTheWay : {"f12026.ini", "f1transit.ini", "Année"}) {
        Desk desk;
        std::filesystem::remove(desk.folder / inTheWay);
        std::filesystem::create_directory(desk.folder / inTheWay);
        desk.main.an.set("2005");
        EXPECT_FALSE(beginSeason(desk.main, "2026")) << inTheWay;
        EXPECT_EQ(desk.main.an.text(), "2005") << inTheWay;
        EXPECT_EQ(desk.dialogs.said.size(), 1u) << inTheWay;
    }
    Desk desk(Desk::empty);
    EXPECT_FALSE(beginSeason(desk.main, "20 26"));
    EXPECT_EQ(desk.folder.names(), Lines{});
    ASSERT_TRUE(beginSeason(desk.main, "2026"));
    EXPECT_EQ(desk.main.ptspilot[8].text(), "4");
}

}
