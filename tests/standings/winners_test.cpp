// SPDX-License-Identifier: GPL-3.0-or-later
#include "standings/winners.h"

#include "standings/standings_lines.h"
#include "store/archive.h"

using namespace circuidex;
using namespace circuidex::standings;
using namespace circuidex::test;

namespace {

std::vector<SampleWin> pastWins()
{
    return parsed("vainqueurs.txt", parseSampleWins);
}

Lines rowsOf(const SeasonWinners &winners)
{
    Lines rows;
    for (const RaceWinner &race : winners.races)
        if (!(race.gp + race.winner + race.team).empty())
            rows.push_back(race.gp + "|" + race.winner + "|" + race.team);
    return rows;
}

class Winners : public testing::Test {
protected:
    void list(int row, const std::string &gpName)
    {
        desk.write("ARCHIVES [GP] N" + std::to_string(row) + "=" + gpName);
    }
    void win(const std::string &gpName, const std::string &year, const std::string &driver)
    {
        desk.write("ARCHIVES [GP] " + gpName + year + "=" + driver);
    }
    Desk desk{Desk::empty};
};

// Seasons of the past whose races all bear one of the first 22 names of the list.
TEST(WinnersOfASeason, WithoutAFileComeFromTheArchive)
{
    Desk desk;
    for (const std::string year : {"1985", "1988", "1992"}) {
        Lines published;
        for (const SampleWin &win : pastWins())
            if (win.year == year)
                published.push_back(win.race + "|" + win.name + "|");
        const SeasonWinners winners = seasonWinners(Season(desk.store, year), year);
        EXPECT_EQ(sorted(rowsOf(winners)), sorted(published)) << year;
        EXPECT_FALSE(winners.races[published.size() - 1].winner.empty()) << "packed from the top";
    }
    EXPECT_EQ(seasonWinners(Season(desk.store, "1988"), "1988").champion, "Ayrton Senna");
    EXPECT_EQ(seasonWinners(Season(desk.store, "1988"), "1991").champion, "Ayrton Senna");
    EXPECT_EQ(seasonWinners(Season(desk.store, "1988"), "1986").champion, "Alain Prost");
}

TEST(WinnersOfASeason, AreThoseOfItsFile)
{
    Desk desk;
    desk.write("2003 [N°] ecurie6=Aucune");
    const SeasonWinners winners = seasonWinners(Season(desk.store, "2003"), "2003");
    const Lines rows = rowsOf(winners);
    ASSERT_EQ(rows.size(), 16u);
    EXPECT_EQ(rows[0], "Australie|David Coulthard|McLaren");
    EXPECT_EQ(rows[1], "Malaisie|Kimi Räikkönen|");
    EXPECT_EQ(winners.champion, "Michael Schumacher");
    const Lines open = rowsOf(seasonWinners(Season(desk.store, "2005"), "2005"));
    EXPECT_EQ(open.back(), "Chine||"); // still to come
}

TEST_F(Winners, FillTheRowsOfTheArchive)
{
    for (int row = 0; row < 24; ++row) {
        list(row, "G" + std::to_string(row));
        win("G" + std::to_string(row), "1950", "P" + std::to_string(row));
    }
    win("G1", "1950", "");
    Lines expected;
    for (const int row : {0, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20})
        expected.push_back("G" + std::to_string(row) + "|P" + std::to_string(row) + "|");
    EXPECT_EQ(rowsOf(seasonWinners(Season(desk.store, "1950"), "1950")), expected);

    for (int row = 2; row < 22; ++row)
        win("G" + std::to_string(row), "1950", "");
    EXPECT_EQ(rowsOf(seasonWinners(Season(desk.store, "1950"), "1950")), Lines{"G0|P0|"}) << "row 22 isn't looked at";

    desk.write("1950 [gp] namegp1=Monaco"); // one of the first two names is enough for a season's own file
    EXPECT_EQ(rowsOf(seasonWinners(Season(desk.store, "1950"), "1950")), Lines{"Monaco||"});
}

TEST_F(Winners, OfOneDriverKeepTheLimits)
{
    list(0, "Monaco");
    list(21, "Japon");
    list(22, "Chine");
    for (const char *year : {"2005", "1996", "1995", "1986", "1985", "2006"})
        win("Monaco", year, "A");
    win("Japon", "1999", "A");
    win("Japon", "1998", "a");
    win("Chine", "2004", "A");
    EXPECT_EQ(winsOfDriver(desk.store, "A", "2005"),
              (Lines{"Monaco - 2005", "Monaco - 1996", "Japon - 1999", "Monaco - 1995", "Monaco - 1986"}));
    EXPECT_EQ(winsOfDriver(desk.store, "", "2005"), Lines());
    EXPECT_EQ(winsOfDriver(desk.store, "A", ""), Lines());

    for (int row = 0; row < 22; ++row) {
        list(row, "G" + std::to_string(row));
        for (int year = 1996; year <= 2005; ++year)
            win("G" + std::to_string(row), std::to_string(year), "A");
    }
    const auto wins = winsOfDriver(desk.store, "A", "2005");
    ASSERT_EQ(wins.size(), 140u);
    EXPECT_EQ(wins.back(), "G13 - 1996");
}

// Every past win of a champion under one of the first 22 names, straight from the published results.
TEST(WinsOfADriver, AreThePublishedOnes)
{
    Desk desk;
    Lines listed;
    for (int row = 0; row < searchedNames; ++row)
        listed.push_back(listedName(desk.store, std::to_string(row)));
    for (const char *driver : {"Ayrton Senna", "Damon Hill", "Olivier Panis"}) {
        Lines published;
        for (const SampleWin &win : pastWins())
            if (win.name == driver && win.year >= "1986" && std::count(listed.begin(), listed.end(), win.race) > 0)
                published.push_back(win.race + " - " + win.year);
        EXPECT_EQ(sorted(winsOfDriver(desk.store, driver, "2005")), sorted(published)) << driver;
        EXPECT_FALSE(published.empty());
    }
}

TEST(RacesBehindANumber, AreThoseOfTheSeason)
{
    Desk desk;
    const WritableSeason season(desk.store, "2003");
    struct Case {
        const char *word, *driver;
        Lines races;
    };
    const Case cases[] = {
        {"victoires", "David Coulthard", {"Australie"}},
        {"victoires", "Ralf Schumacher", {"Europe", "France"}},
        {"2", "Fernando Alonso", {"Espagne"}},
        {"8", "Ralf Schumacher", {"Australie"}},
        {"poles", "Fernando Alonso", {"Malaisie", "Hongrie"}},
        {"pod", "Fernando Alonso", {"Malaisie (3ème)", "Brésil (3ème)", "Espagne (2ème)", "Hongrie (1er)"}},
        {"pod", "Nicolas Kiesa", {}},
        {"victoires", "", {}}, // the empty rows of a table have nobody's races
    };
    for (const Case &c : cases)
        EXPECT_EQ(racesWith(season, countedRaces(c.word).value(), c.driver), c.races) << c.word << " " << c.driver;
    for (const char *word : {"pts", "pgp", "t20vic", "1", "9", "", "22"})
        EXPECT_FALSE(countedRaces(word)) << word;
}

TEST(RacesBehindANumber, AreTwentyAtMost)
{
    Desk desk(Desk::empty);
    desk.write("1950 [N°] nom1=A");
    for (int slot = 0; slot < gpSlots; ++slot) {
        desk.write("1950 [gp] namegp" + std::to_string(slot) + "=G" + std::to_string(slot));
        for (const char *place : {"1", "2"})
            desk.write(std::string("1950 [podium] podium") + place + "G" + std::to_string(slot) + "=1");
    }
    const auto races = racesWith(Season(desk.store, "1950"), *countedRaces("pod"), "A");
    ASSERT_EQ(races.size(), 20u);
    EXPECT_EQ(races.back(), "G9 (2ème)");
}

TEST(IndexArrows, StandStillAtTheEnd)
{
    const auto by = [](int step, std::optional<int> end) {
        return [=](const std::string &from) { return Numbers().stepped(from, step, end); };
    };
    EXPECT_EQ(walked("0 1 abc", by(-1, 0)), "0>0 1>0 abc>abc");
    EXPECT_EQ(walked("0 -1", by(-1, -1)), "0>-1 -1>-1");
    EXPECT_EQ(walked("0 -1", by(-1, 1)), "0>1 -1>1");
    EXPECT_EQ(walked("200 199", by(1, 200)), "200>200 199>200");
    EXPECT_EQ(walked("200 -1", by(1, std::nullopt)), "200>201 -1>0");
    EXPECT_EQ(Numbers().stepped("", 1, 200), "");
}

}
