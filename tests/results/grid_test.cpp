// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/grid.h"

#include "results/season_fixture.h"

using namespace circuidex;
using namespace circuidex::results;
using namespace circuidex::test;

namespace {

TEST(Grid, KeysCountFromMinusOne)
{
    Desk desk(Desk::empty);
    Grid grid;
    grid[1] = "Premier";
    grid[2] = "Deuxième";
    grid[26] = "Dernier";
    storeGrid(desk.main.writableSeason(), "Grande bretagne", grid);
    EXPECT_EQ(changes({}, desk.keys("2005")),
              lines("Grande bretagnegrilledepart-1: - > Premier; Grande bretagnegrilledepart0: - > Deuxième; "
                    "Grande bretagnegrilledepart24: - > Dernier"));
    EXPECT_EQ(loadGrid(desk.main.season(), "Grande bretagne"), grid);
    EXPECT_EQ(loadGrid(desk.main.season(), "Brésil"), Grid{});
}

TEST(Grid, StoringAgainFreesPlacesAndLeavesOtherRacesAlone)
{
    Desk desk;
    const Keys before = desk.keys("2005");
    Grid grid = loadGrid(desk.main.season(), "Etats-unis");
    grid[5].clear();
    storeGrid(desk.main.writableSeason(), "Etats-unis", grid);
    EXPECT_EQ(changes(before, desk.keys("2005")), lines("Etats-unisgrilledepart3: Michael Schumacher > -"));
}

TEST(Grid, FindsTheFirstDriverOfAName)
{
    Desk desk;
    desk.write("2005 [N°] nom27=Ricardo Zonta");
    desk.write("2005 [N°] nom20=Robert Doornbos"); // so is 25
    const std::pair<const char *, std::optional<int>> cases[] = {
        {"Michael Schumacher", 1},
        {"Antônio Pizzonia", 26},
        {"Ricardo Zonta", 27},
        {"Robert Doornbos", 20},
        {"michael schumacher", {}},
        {"Schumacher", {}},
        {"", {}},
    };
    for (const auto &[name, number] : cases)
        EXPECT_EQ(driverNamed(desk.main.season(), name), number) << name;
}

}
