// SPDX-License-Identifier: GPL-3.0-or-later
#include "comparisons/season_tables.h"

#include "results/season_fixture.h"
#include "results/team_list.h"
#include "standings/tone_text.h"
#include "statistics/season_summary.h"

using namespace circuidex;
using namespace circuidex::comparisons;
using namespace circuidex::test;

namespace {

std::string lineOf(const SeasonRow &row)
{
    std::string line = row.head + ":";
    for (const std::string &points : row.points)
        line += " " + points;
    return line;
}

class SeasonTables : public testing::Test {
protected:
    Seasons seasons(const std::string &year) { return seasonsUpTo(desk.store, year); }
    std::string line(const std::vector<SeasonRow> &rows, const std::string &head)
    {
        const auto row = std::find_if(rows.begin(), rows.end(), [&](const SeasonRow &r) { return r.head == head; });
        return row == rows.end() ? "" : lineOf(*row);
    }

    Desk desk;
};

TEST_F(SeasonTables, OfAFieldEndWithTheOfficialTables)
{
    std::map<std::string, std::string> before; // of 2003, by name; 2002 and the years before have no file
    for (const std::string year : {"2003", "2004"}) {
        const int races = firstRaceToCome(Season(desk.store, year));
        EXPECT_EQ(races, static_cast<int>(published(year).races.size()));
        for (const auto &[championship, rows] : {std::pair("DRIVER", driverField(seasons(year), races)),
                                                 std::pair("TEAM", teamField(seasons(year), races))})
            for (const TableRow &official : officialTable(year, championship)) {
                const std::string last = before.contains(official.name) ? before[official.name] : "0";
                EXPECT_EQ(line(rows, official.name), official.name + ": 0 0 " + last + " " + official.points);
                before[official.name] = official.points;
            }
    }
}

TEST_F(SeasonTables, AddUpAsTheSummariesDo)
{
    for (std::size_t column = 1; column < seasonsCompared; ++column) {
        const Season season = seasons("2005")[column];
        const auto check = [&](const std::string &who, const SeasonRow &row, const std::string &sum) {
            if (row.points[column] != notHeld) {
                EXPECT_EQ(row.points[column], sum.empty() ? "0" : sum) << who << season.stem() << " race " << row.head;
            }
        };
        for (int number = 1; number <= driverSlots; ++number) {
            const std::string name = season.nom(number);
            const auto summary =
                statistics::driverSummary(season, results::loadScale(season), name, std::to_string(number));
            for (std::size_t slot = 0; const SeasonRow &row : driverRaces(seasons("2005"), name, Sum::upToRace))
                check(name, row, summary.rows[slot++].pointsSum);
        }
        for (const std::string &team : results::teamList(season)) {
            if (season.stem() == "2004" && (team == "Renault" || team == "Toyota"))
                continue; // the summary has a driver, who went from one to the other, with his last team throughout
            const auto summary = statistics::teamSummary(season, results::loadScale(season), team);
            for (std::size_t slot = 0; const SeasonRow &row : teamRaces(seasons("2005"), team, Sum::upToRace))
                check(team, row, summary.rows[slot++].pointsSum);
        }
    }
}

TEST_F(SeasonTables, TellRaceByRaceFromAReference)
{
    const auto ferrari = teamRaces(seasons("2005"), "Ferrari", Sum::ofRace);
    struct Case {
        std::size_t row, reference;
        const char *points, *differences;
    };
    const Case cases[] = {
        {0, 3, "1: - 5 18 8", "- + 3^ - 10v 8 pts~"},
        {0, 2, "1: - 5 18 8", "- + 13^ 18 pts~ + 10^"},
        {0, 0, "1: - 5 18 8", "- - - -"},
        {1, 1, "2: - 11 15 2", "- 11 pts~ - 4v + 9^"},
        {2, 3, "3: - 0 18 0", "- =~ - 18v 0 pts~"},
        {16, 2, "17: - - 10 8", "- - 10 pts~ + 2^"},
        {18, 3, "19: - - - -", "- - - -"},
    };
    for (const Case &c : cases) {
        EXPECT_EQ(lineOf(ferrari[c.row]), c.points);
        EXPECT_EQ(shownAll(differences(ferrari[c.row].points, c.reference, Numbers())), c.differences) << c.points;
    }
    EXPECT_EQ(shownAll(differences({}, 3, Numbers())), "- - - -") << "a row without a head: empty cells";
    EXPECT_EQ(shownAll(differences({"2,5", "0", "0,1", "2,5"}, 0, Numbers(','))), "2,5 pts~ + 2,5^ + 2,4^ =~");
}

TEST_F(SeasonTables, GoByNameAndByEachSeasonsOwnScale)
{
    EXPECT_EQ(line(teamField(seasons("2005"), 18), "Red Bull"), "Red Bull: 0 0 0 30") << "Jaguar until 2004";
    EXPECT_EQ(lineOf(teamRaces(seasons("2005"), "Red Bull", Sum::upToRace)[1]), "2: - - - 11");
    desk.write("2003 [bareme] 1=20");
    desk.write("2004 [bareme] 1=");
    desk.write("2005 [podium] podium8Australie=6"); // the winner too
    const auto line = [&](Sum sum) { return lineOf(driverRaces(seasons("2005"), "Giancarlo Fisichella", sum)[2]); };
    EXPECT_EQ(this->line(driverField(seasons("2005"), 3), "Giancarlo Fisichella"), "Giancarlo Fisichella: 0 20 0 11");
    EXPECT_EQ(line(Sum::upToRace), "3: - 20 0 10");
    EXPECT_EQ(line(Sum::ofRace), "3: - 20 0 0");
    EXPECT_EQ(lineOf(driverRaces(seasons("2005"), "", Sum::upToRace)[0]), "1: - 0 0 0");
}

TEST_F(SeasonTables, KeepToTheirBounds)
{
    for (int number = 1; number <= driverSlots; ++number)
        desk.write("2006 [N°] ecurie" + std::to_string(number) + "=E" + std::to_string(number / 2));
    desk.write("2006 [N°] E1ecuriepts/gp0=2.5");
    desk.write("2006 [N°] E1ecuriepts/gp1=beaucoup");
    desk.write("2006 [N°] E1ecuriepts/gp21=1");
    const auto rows = teamField(seasons("2006"), 0);
    EXPECT_EQ(rows.size(), 12u) << "of the first 22 drivers";
    EXPECT_EQ(lineOf(rows[1]), "E1: 0 0 0 2.5") << "no race counts as one";
    EXPECT_EQ(lineOf(teamField(seasons("2006"), 1 << 30)[1]), "E1: 0 0 0 3.5");
    EXPECT_EQ(lineOf(teamRaces(seasons("2006"), "E1", Sum::ofRace)[1]), "2: - - - 0");
    EXPECT_EQ(lineOf(driverField(seasons("2006"), 9)[0]), ":    ") << "nobody under the number";
    EXPECT_TRUE(teamField(seasons(""), 5).empty());
    for (const auto &[gp, slot] : {std::pair("Monaco", 5), std::pair("Suisse", 21), std::pair("", 19)})
        EXPECT_EQ(slotSearched(Season(desk.store, "2005"), gp), slot) << gp;
    EXPECT_EQ(firstRaceToCome(Season(desk.store, "2005")), 18);
    EXPECT_EQ(firstRaceToCome(Season(desk.store, "1949")), 0);
}

}
