// SPDX-License-Identifier: GPL-3.0-or-later
// The sample seasons stand on the program's own recording of real races; their totals are compared here with the
// published tables of the championships.
#include "results/open_grand_prix.h"
#include "results/season_fixture.h"
#include "store/archive.h"

#include <set>

using namespace circuidex;
using namespace circuidex::results;
using namespace circuidex::test;

namespace {

const std::string tables = CIRCUIDEX_TESTDATA "/";
const std::string data = CIRCUIDEX_TESTDATA "/../../data/";

class SampleSeasons : public testing::Test {
protected:
    WritableSeason season(const std::string &year) { return WritableSeason(desk.store, year); }

    Desk desk;
};

TEST_F(SampleSeasons, StandAsPublishedAfterEachRoundOf2003)
{
    std::map<int, Lines> published;
    for (const std::string &line : linesOf(tables + "2003.after.tsv")) {
        const Lines row = split(line, '\t'); // round, place, name, points
        if (row[3] != "0")
            published[std::stoi(row[0])].push_back(row[2] + " " + row[3]);
    }
    ASSERT_EQ(published.size(), 16u);
    for (const auto &[round, expected] : published) {
        Lines computed;
        for (const StandingRow &row : driversAfter(season("2003"), round, builtInScale))
            computed.push_back(row.name + " " + row.points);
        EXPECT_EQ(sorted(computed), sorted(expected)) << "after round " << round;
    }
}

TEST_F(SampleSeasons, ArchiveWinnersAndChampions)
{
    Lines expected, archived;
    const auto expectWinner = [&](const std::string &year, const std::string &race, const std::string &winner) {
        expected.push_back(year + " " + race + ": " + winner);
        archived.push_back(year + " " + race + ": " + archivedWinner(desk.store, race, year));
    };
    std::string year, race;
    for (const std::string &line : linesOf(data + "vainqueurs.txt")) {
        if (line.starts_with("saison "))
            year = line.substr(7);
        else if (const Lines row = split(line.substr(3), '|'); line.starts_with("gp "))
            expectWinner(year, row[1], row[3]);
    }
    for (const std::string recorded : {"2003", "2004", "2005"})
        for (const std::string &line : linesOf(data + recorded + ".saison")) {
            if (line.starts_with("gp "))
                race = split(line, '|')[1];
            else if (line.starts_with("arrivee ") && recorded + race != "2005Chine")
                expectWinner(recorded, race, split(line.substr(8), '|')[0]);
        }
    for (const std::string &line : linesOf(data + "champions.txt")) {
        const Lines row = split(line.substr(line.find(' ')), '|');
        expected.push_back("champion " + row[0] + ": " + row[1]);
        archived.push_back("champion " + row[0] + ": " + desk.read("ARCHIVES [GP] championdumd" + row[0]));
    }
    EXPECT_GT(expected.size(), 300u);
    EXPECT_EQ(archived, expected);
    EXPECT_EQ(desk.read("ARCHIVES [GP] championdumd2005"), "");
    EXPECT_EQ(desk.read("ARCHIVES [GP] Chine2005"), "");
}

TEST_F(SampleSeasons, ListEachGrandPrixOnceInTheArchive)
{
    Lines names;
    for (int row = 0; row <= 70; ++row)
        if (const std::string name = desk.read("ARCHIVES [GP] N" + std::to_string(row)); !name.empty())
            names.push_back(name);
    EXPECT_LE(names.size(), 61u);
    EXPECT_EQ(desk.read("ARCHIVES [GP] NO"), std::to_string(names.size()));
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), names.size());
    for (const std::string year : {"2003", "2004", "2005"})
        for (int slot = 0; slot < 16; ++slot)
            EXPECT_NE(std::find(names.begin(), names.end(), season(year).namegp(slot)), names.end()) << year << slot;
}

}
