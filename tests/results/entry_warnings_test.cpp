// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/entry_warnings.h"

#include "results/season_fixture.h"

using namespace circuidex;
using namespace circuidex::test;

namespace {

TEST(EntryWarnings, OfARace)
{
    Desk desk;
    const auto told = [&](const char *places, const char *pole) {
        int place = 1;
        for (const std::string &number : split(places, ','))
            desk.main.number(place++).set(number);
        desk.main.Text39.set(pole);
        return inOneLine(raceWarnings(desk.main, desk.main.season(), desk.main.gp.text()));
    };
    desk.main.gp.set("Chine");
    EXPECT_EQ(told("-,-,-,-,-,-,-,-", ""), "");
    EXPECT_EQ(told("5,6,9,1,2,3,4,7", "5"), "");
    EXPECT_EQ(told("5,-,-,-,-,-,-,-", ""), "Pas de pole-position");
    EXPECT_EQ(told("5,6,5,-,-,-,-,5", "6"), "Fernando Alonso 3 fois : 1er, 3ème et 8ème");
    EXPECT_EQ(told("5,6,6,31,-,-,-,x", "31"),
              "Giancarlo Fisichella deux fois : 2nd et 3ème · Personne n'a le n° \"31\" (4ème et pole) (+1)");
    desk.main.gp.set("Japon"); // recorded
    showGrandPrix(desk.main);
    EXPECT_EQ(raceWarnings(desk.main, desk.main.season(), desk.main.gp.text()), Warnings{});
    desk.main.dat.set("10/10");
    EXPECT_EQ(raceWarnings(desk.main, desk.main.season(), desk.main.gp.text()).size(), 1U);
}

TEST(EntryWarnings, OfAGridAndOfACalendar)
{
    Desk desk;
    const Season season = desk.main.season();
    Grid grid = loadGrid(season, "Japon");
    EXPECT_EQ(gridWarnings(grid, season), Warnings{});
    grid[3] = grid[1];
    grid[4] = "Personne";
    EXPECT_EQ(gridWarnings(grid, season),
              (Warnings{"Ralf Schumacher deux fois : 1er et 3ème", "\"Personne\" ne court pas cette saison (4ème)"}));
    Calendar calendar = loadCalendar(season);
    EXPECT_EQ(calendarWarnings(calendar, season), Warnings{});
    calendar[19] = {"Monaco", "31/02"};
    EXPECT_EQ(calendarWarnings(calendar, season),
              (Warnings{"Monaco deux fois : 6 et 20", "\"31/02\" n'est pas un jour (20)"}));
    calendar[19] = {};
    moveSlot(calendar, 17, 1); // Japon, run, and Chine, to come
    EXPECT_EQ(calendarWarnings(calendar, season),
              (Warnings{"Les points d'écurie de \"Japon\" restent à la course 18"}));
}

TEST(Calendar, SlotsAreInsertedRemovedAndMoved)
{
    Desk desk;
    const Calendar stored = loadCalendar(desk.main.season());
    const auto names = [](const Calendar &calendar) {
        std::string all;
        for (std::size_t slot : {0U, 1U, 2U, 18U, 19U})
            all += calendar[slot].name + " " + calendar[slot].date + ";";
        return all;
    };
    Calendar calendar = stored;
    EXPECT_TRUE(insertSlot(calendar, 1));
    EXPECT_EQ(names(calendar), "Australie 06/03; ;Malaisie 20/03;Japon 09/10;Chine 16/10;");
    EXPECT_FALSE(insertSlot(calendar, 0)); // Chine has the last one
    removeSlot(calendar, 1);
    EXPECT_EQ(names(calendar), names(stored));
    EXPECT_TRUE(moveSlot(calendar, 0, 1));
    EXPECT_EQ(names(calendar), "Malaisie 20/03;Australie 06/03;Bahreïn 03/04;Chine 16/10; ;");
    EXPECT_FALSE(moveSlot(calendar, 0, -1));
    EXPECT_FALSE(moveSlot(calendar, 19, 1));
    for (const char *day : {"06/03", "6/3", "29/02", "16/10/2005"})
        EXPECT_TRUE(dayOf(day)) << day;
    for (const char *none : {"", "31/04", "0/3", "12", "12/13", "aa/bb", "123/4", "1/2x"})
        EXPECT_FALSE(dayOf(none)) << none;
    EXPECT_EQ(dateText(*dayOf("6/3/05")), "06/03");
}

}
