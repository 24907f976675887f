// SPDX-License-Identifier: GPL-3.0-or-later
#include "standings/driver_standings.h"

#include "standings/standings_lines.h"

using namespace circuidex;
using namespace circuidex::standings;
using namespace circuidex::test;

namespace {

int leaderOf(const DriverStandings &standings)
{
    return standings.leader.value_or(0);
}

class DriverTable : public testing::Test {
protected:
    // "7 Trulli 12 Renault", "-" for an empty key.
    void enter(const Lines &drivers)
    {
        for (const std::string &driver : drivers) {
            const Lines words = split(driver, ' ');
            desk.write("2005 [N°] nom" + words[0] + "=" + words[1]);
            desk.write("2005 [N°] nbpts" + words[0] + "=" + words[2]);
            desk.write("2005 [N°] ecurie" + words[0] + "=" + words.at(3));
        }
    }
    WritableSeason season() { return desk.main.writableSeason(); }

    Desk desk{Desk::empty, ','};
};

TEST(DriverStandings, EqualTheOfficialTables)
{
    Desk desk;
    for (const std::string year : {"2003", "2004"}) {
        const WritableSeason season(desk.store, year);
        std::map<std::string, int> numbers;
        for (int number = 1; number <= driverSlots; ++number)
            numbers.emplace(season.nom(number), number);
        // Drivers that are level stand in the order of their numbers here; the official order counts wins and places.
        auto table = officialTable(year, "DRIVER");
        const auto place = [&](const TableRow &row) { return std::pair(-std::stoi(row.points), numbers.at(row.name)); };
        std::sort(table.begin(), table.end(), [&](const auto &a, const auto &b) { return place(a) < place(b); });
        Lines official;
        for (const TableRow &row : table)
            official.push_back(
                officialLine(official.size() + 1, row, season.ecurie(numbers.at(row.name)) + " ", table[0]));
        const DriverStandings standings = driverStandings(season, "");
        EXPECT_EQ(rowsOf(standings.table), official) << year;
        EXPECT_EQ(leaderOf(standings), 1) << year;
        EXPECT_EQ(standings.table.rows.size(), 26u);
    }
}

TEST_F(DriverTable, RanksDrivers)
{
    struct Case {
        const char *name;
        Lines drivers, rows;
        int leader;
    };
    const Case cases[] = {
        {"three level, in the order of their numbers",
         {"9 Neuf 6 A", "4 Quatre 6 B", "17 Dixsept 6 C", "2 Deux 10 D", "26 Dernier 1 E"},
         {"1 Deux 10 D 0", "2 Quatre 6 B -4", "3 Neuf 6 A -4", "4 Dixsept 6 C -4", "5 Dernier 1 E -9"},
         2},
        {"no race run",
         {"3 Trois 0 A", "5 Cinq 0 A", "8 Huit 0 B"},
         {"1 Trois 0 A 0", "2 Cinq 0 A 0", "3 Huit 0 B 0"},
         3},
        {"halves in the user's writing", {"1 A 2,5 T", "2 B 3 T"}, {"1 B 3 T 0", "2 A 2,5 T -0,5"}, 2},
        {"a name and no points, behind the one before",
         {"1 A 9 T", "2 B - T", "3 C 5 T"},
         {"1 A 9 T 0", "2 B  T ", "3 C 5 T -4"},
         1},
        {"a name and no points, the first",
         {"1 A - T", "2 B 9 T", "3 C 5 T"},
         {"1 B 9 T 0", "2 C 5 T -4", "3 A  T "},
         2},
        {"points that are no number",
         {"1 A 9 T", "2 B beaucoup T", "3 C 10 T"},
         {"1 C 10 T 0", "2 A 9 T -1", "3 B beaucoup T "},
         3},
        {"an emptied number keeps no row",
         {"1 - 0 -", "2 B 0 T", "3 - 0 -", "4 D 1 T"},
         {"1 D 1 T 0", "2 B 0 T -1"},
         4},
        {"a lost driver's points leave his rank free", {"1 - 9 -", "2 B 5 T"}, {"2 B 5 T "}, 0},
        {"nobody", {}, {}, 0},
    };
    for (const Case &c : cases) {
        for (int number = 1; number <= driverSlots; ++number)
            enter({std::to_string(number) + " - - -"});
        enter(c.drivers);
        const DriverStandings standings = driverStandings(season(), "?");
        EXPECT_EQ(rowsOf(standings.table), c.rows) << c.name;
        EXPECT_EQ(leaderOf(standings), c.leader) << c.name;
    }
}

TEST(DriverLines, GiveTeamAndItsPoints)
{
    Desk desk;
    desk.write("2003 [N°] ecurie2=");
    desk.write("2003 [N°] ptsecurie=77"); // left from finishers without a team
    const auto lines = driverLines(Season(desk.store, "2003"));
    EXPECT_EQ(lines[0].name + "|" + lines[0].points + "|" + lines[0].team + "|" + lines[0].teamPoints,
              "Michael Schumacher|93|Ferrari|158");
    EXPECT_EQ(lines[1].teamPoints, "");
    EXPECT_EQ(lines[25].name + lines[25].points + lines[25].team + lines[25].teamPoints, "");
}

TEST(DriverArrows, StopBeyondTheEnds)
{
    const auto by = [](int step) {
        return [step](const std::string &from) { return steppedDriver(from, step, Numbers()); };
    };
    EXPECT_EQ(walked("0 26 27 -1 abc", by(1)), "0>1 26>27 27>27 -1>0 abc>27");
    EXPECT_EQ(walked("27 1 0 -1 99", by(-1)), "27>26 1>0 0>-1 -1>-1 99>98");
    EXPECT_EQ(steppedDriver("", -1, Numbers()), "-1");
}

}
