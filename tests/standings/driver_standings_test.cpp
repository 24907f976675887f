#include "standings/driver_standings.h"

#include "results/season_fixture.h"

using namespace circuidex;
using namespace circuidex::test;

namespace {

// "1 Michael Schumacher 93 Ferrari 0" for every row that holds somebody.
Lines rowsOf(const Standings &standings)
{
    Lines lines;
    int rank = 0;
    for (const StandingsRow &row : standings.rows) {
        ++rank;
        if (!row.name.empty() || !row.points.empty() || !row.team.empty() || !row.gap.empty())
            lines.push_back(std::to_string(rank) + " " + row.name + " " + row.points + " " + row.team + " " + row.gap);
    }
    return lines;
}

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
    Season season() { return desk.main.season(); }

    Desk desk{Desk::empty, ','};
};

TEST(DriverStandings, EqualTheOfficialTables)
{
    Desk desk;
    for (const std::string year : {"2003", "2004"}) {
        const Season season(desk.store, year);
        Lines official;
        std::map<std::string, int> numbers;
        for (int number = 1; number <= driverSlots; ++number)
            numbers.emplace(season.nom(number), number);
        // Drivers that are level stand in the order of their numbers here; the official order counts wins and places.
        std::vector<std::tuple<int, int, std::string>> sorted;
        for (const std::string &line : linesOf(CIRCUIDEX_TESTDATA "/" + year + ".standings.tsv"))
            if (const Lines row = split(line, '\t'); row[0] == "DRIVER")
                sorted.emplace_back(-std::stoi(row[3]), numbers.at(row[2]), row[2]);
        std::sort(sorted.begin(), sorted.end());
        const int best = -std::get<0>(sorted.front());
        for (const auto &[points, number, name] : sorted)
            official.push_back(std::to_string(official.size() + 1) + " " + name + " " + std::to_string(-points) + " " +
                               season.ecurie(number) + " " + std::to_string(-points - best));
        const DriverStandings standings = driverStandings(season, "");
        EXPECT_EQ(rowsOf(standings.table), official) << year;
        EXPECT_EQ(leaderOf(standings), 1) << year;
        EXPECT_EQ(standings.table.rows.size(), 26u);
    }
}

TEST_F(DriverTable, ThreeLevelStandInTheOrderOfTheirNumbers)
{
    enter({"9 Neuf 6 A", "4 Quatre 6 B", "17 Dixsept 6 C", "2 Deux 10 D", "26 Dernier 1 E"});
    for (const char *favourite : {"Quatre", "Neuf", "Dixsept"}) {
        const DriverStandings standings = driverStandings(season(), favourite);
        EXPECT_EQ(rowsOf(standings.table),
                  (Lines{"1 Deux 10 D 4", "2 Quatre 6 B 0", "3 Neuf 6 A 0", "4 Dixsept 6 C 0", "5 Dernier 1 E -5"}));
        EXPECT_EQ(standings.table.rank, 2) << favourite;
        EXPECT_EQ(leaderOf(standings), 2);
    }
}

TEST_F(DriverTable, WithoutARaceFollowsTheNumbers)
{
    enter({"3 Trois 0 A", "5 Cinq 0 A", "8 Huit 0 B"});
    const DriverStandings standings = driverStandings(season(), "");
    EXPECT_EQ(rowsOf(standings.table), (Lines{"1 Trois 0 A 0", "2 Cinq 0 A 0", "3 Huit 0 B 0"}));
    EXPECT_EQ(leaderOf(standings), 3);
}

TEST_F(DriverTable, TwentyTwoDriversLeaveFourRowsBlank)
{
    Lines drivers;
    for (int number = 1; number <= 22; ++number)
        drivers.push_back(std::to_string(number) + " P" + std::to_string(number) + " " + std::to_string(number % 7) +
                          " A");
    enter(drivers);
    const DriverStandings standings = driverStandings(season(), "");
    EXPECT_EQ(rowsOf(standings.table).size(), 22u);
    EXPECT_EQ(standings.table.rows[21].name, "P21");
    EXPECT_EQ(standings.table.rows[22].name + standings.table.rows[22].gap + standings.table.rows[22].team, "");
    EXPECT_TRUE(standings.table.rows[22].favourite); // free rows answer to the empty favourite
    EXPECT_EQ(leaderOf(standings), 6);
}

TEST_F(DriverTable, TakesOddPoints)
{
    struct Case {
        const char *name;
        Lines drivers, rows;
        int leader;
    };
    const Case cases[] = {
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

TEST_F(DriverTable, TwoOfOneNameAreBothFavourites)
{
    enter({"1 Schumacher 10 Ferrari", "2 Autre 5 A", "3 Schumacher 2 Williams"});
    const DriverStandings standings = driverStandings(season(), "Schumacher");
    EXPECT_EQ(rowsOf(standings.table),
              (Lines{"1 Schumacher 10 Ferrari 8", "2 Autre 5 A 3", "3 Schumacher 2 Williams 0"}));
    EXPECT_TRUE(standings.table.rows[0].favourite && standings.table.rows[2].favourite);
    EXPECT_FALSE(standings.table.rows[1].favourite);
    EXPECT_EQ(standings.table.rank, 3);
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
    struct Case {
        const char *from;
        int by;
        const char *to;
    };
    for (const auto &[from, by, to] : std::initializer_list<Case>{{"0", 1, "1"},
                                                                  {"26", 1, "27"},
                                                                  {"27", 1, "27"},
                                                                  {"27", -1, "26"},
                                                                  {"1", -1, "0"},
                                                                  {"0", -1, "-1"},
                                                                  {"-1", -1, "-1"},
                                                                  {"-1", 1, "0"},
                                                                  {"99", -1, "98"},
                                                                  {"abc", 1, "27"},
                                                                  {"", -1, "-1"}})
        EXPECT_EQ(steppedDriver(from, by, Numbers()), to) << from << " by " << by;
}

}
