// SPDX-License-Identifier: GPL-3.0-or-later
#include "standings/constructor_standings.h"

#include "standings/standings_lines.h"

using namespace circuidex;
using namespace circuidex::standings;
using namespace circuidex::test;

namespace {

// A season of the drivers' teams, "A A B - C" from number 1 on, and of the teams' points, "A 10 | B 5".
class TeamTable : public testing::Test {
protected:
    void enter(const std::string &teams, const std::string &points)
    {
        int number = 0;
        for (const std::string &team : split(teams, ' '))
            desk.write("2005 [N°] ecurie" + std::to_string(++number) + "=" + team);
        while (number < driverSlots)
            desk.write("2005 [N°] ecurie" + std::to_string(++number) + "=");
        for (const std::string &entry : split(points, '|'))
            if (const Lines words = split(entry, ' '); words.size() == 2)
                desk.write("2005 [N°] ptsecurie" + words[0] + "=" + words[1]);
    }
    WritableSeason season() { return desk.main.writableSeason(); }

    Desk desk{Desk::empty};
};

TEST(ConstructorStandings, EqualTheOfficialTables)
{
    Desk desk;
    for (const std::string year : {"2003", "2004"}) {
        Lines official;
        const auto table = officialTable(year, "TEAM");
        for (const TableRow &row : table)
            official.push_back(officialLine(official.size() + 1, row, "", table[0]));
        const Standings standings = constructorStandings(Season(desk.store, year), "");
        EXPECT_EQ(rowsOf(standings), official) << year;
        EXPECT_EQ(official.size(), 10u) << year;
        EXPECT_EQ(standings.rows.size(), 13u);
    }
}

TEST_F(TeamTable, RanksTeams)
{
    struct Case {
        const char *name, *teams, *points, *favourite;
        Lines rows;
        int rank;
    };
    const Case cases[] = {
        {"two level in second place leave the third row free",
         "A B C D",
         "A 1 | B 5 | C 9 | D 5",
         "A",
         {"1 C 9 8", "2 B - D 5 4", "4 A 1 0"},
         3}, // the rank counts rows
        {"a shared row is a favourite under its joined names",
         "A B C",
         "A 5 | B 5 | C 9",
         "A - B",
         {"1 C 9 4", "2 A - B 5 0"},
         2},
        {"a team in a shared row isn't found", "A B C", "A 5 | B 5 | C 9", "A", {"1 C 9 0", "2 A - B 5 -4"}, 1},
        {"no race run: one row", "A B B C", "A 0 | B 0 | C 0", "", {"1 A - B - C 0 0"}, 1},
        {"Aucune leaves a hole", "A Aucune B", "A 9 | Aucune 5 | B 1", "B", {"1 A 9 8", "3 B 1 0"}, 2},
        {"Aucune in the lead leaves nothing to measure by", "A Aucune", "A 5 | Aucune 9", "", {"2 A 5 "}, 1},
        {"Aucune in a shared row stays", "A Aucune B", "A 5 | Aucune 5 | B 1", "B", {"1 A - Aucune 5 4", "3 B 1 0"}, 2},
        {"a team without points stands behind all", "A B C", "B 1 | C 2", "B", {"1 C 2 1", "2 B 1 0", "3 A  "}, 2},
        {"repeats and free numbers", "A - A B A", "A 1 | B 2", "B", {"1 B 2 0", "2 A 1 -1"}, 1},
        {"names that differ by case are two teams with one key", "Bar BAR", "BAR 2", "", {"1 Bar - BAR 2 0"}, 1},
        {"nobody", "- -", "", "", {}, 1},
    };
    for (const Case &c : cases) {
        desk.write("2005 [N°] ptsecurieA=");
        desk.write("2005 [N°] ptsecurie=99"); // of finishers without a team: belongs to nobody
        enter(c.teams, c.points);
        const Standings standings = constructorStandings(season(), c.favourite);
        EXPECT_EQ(rowsOf(standings), c.rows) << c.name;
        EXPECT_EQ(standings.rank, c.rank) << c.name;
    }
}

TEST_F(TeamTable, AFourteenthTeamIsLeftOut)
{
    std::string teams, points;
    for (int team = 1; team <= 14; ++team) {
        teams += "T" + std::to_string(team) + " ";
        points += "T" + std::to_string(team) + " " + std::to_string(100 - team) + "|";
    }
    enter(teams, points);
    const Standings standings = constructorStandings(season(), "T13");
    EXPECT_EQ(rowsOf(standings).size(), 13u);
    EXPECT_EQ(standings.rows.back().name, "T13");
    EXPECT_EQ(standings.rank, 13);

    enter(teams, "T1 1"); // the rank decides, not the order of the teams
    EXPECT_EQ(constructorStandings(season(), "").rows.back().name, "T14");
    enter(teams, "T2 1");
    EXPECT_EQ(constructorStandings(season(), "").rows.back().name, "T1 - T2");
}

TEST_F(TeamTable, ArrowsPassOverTeamMates)
{
    enter("A A B B - C D D D E F F G G H H I I J J K K L M N N", "");
    const auto walk = [this](std::string number, std::string team, int by, int steps) {
        std::string seen;
        for (int i = 0; i < steps; ++i) {
            number = steppedTeam(season(), number, by, team);
            team = season().ecurie(number);
            seen += number + team + " ";
        }
        return seen;
    };
    EXPECT_EQ(walk("2", "A", 1, 6), "3B 5 6C 7D 10E 11F ");
    EXPECT_EQ(walk("11", "F", -1, 6), "10E 9D 6C 5 4B 2A ");
    EXPECT_EQ(walk("21", "K", 1, 4), "23L 22K 23L 22K "); // 24 to 26 can't be reached
    EXPECT_EQ(walk("2", "A", -1, 4), "0 0 0 0 ");
    EXPECT_EQ(walk("1", "?", -1, 4), "0 0 0 0 ");
    EXPECT_EQ(walk("nix", "?", 1, 2), "22K 23L ");
    EXPECT_EQ(walk("1e300", "?", -1, 1), "22K ");
    enter("-", "");
    EXPECT_EQ(walk("0", "", 1, 2), "22 22 "); // no team at all: comes to rest
    EXPECT_EQ(walk("22", "", -1, 2), "0 0 ");
}

TEST_F(TeamTable, KeepsTheTyreMake)
{
    enter("A B C", "");
    desk.write("2005 [N°] pneuecurieA=B");
    desk.write("2005 [N°] pneuecurieB=Pirelli");
    EXPECT_EQ(changeTyre(season(), "A"), "M");
    EXPECT_EQ(desk.read("2005 [N°] pneuecurieA"), "M");
    EXPECT_EQ(changeTyre(season(), "A"), "B");
    EXPECT_EQ(changeTyre(season(), "B"), "Pirelli");
    EXPECT_EQ(changeTyre(season(), "C"), "");
    EXPECT_EQ(desk.keys("2005").count("[N°] pneuecurieC"), 0u);
    EXPECT_EQ(teamLines(season())[0].tyre + teamLines(season())[1].tyre, "BPirelli");
}

TEST_F(TeamTable, DetailsTakeTheTeamsOnOffer)
{
    enter("A B C D E F G H I J K L M N A A A A A A A A O P Q R", "");
    std::string names;
    for (const TeamDetail &team : teamDetails(season()))
        names += team.name;
    EXPECT_EQ(names, "ABCDEFGHIJKL"); // twelve at most
    enter("A A A A A A A A A A A A A A A A A A A A A B C D", "C 9");
    EXPECT_EQ(teamDetails(season()).size(), 2u); // numbers 23 on don't count
    EXPECT_EQ(constructorStandings(season(), "").rows[0].name, "C");
}

}
