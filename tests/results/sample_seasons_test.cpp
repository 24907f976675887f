// The sample seasons stand on the program's own recording of real races; their totals are compared here with the
// published tables of the championships.
#include "results/open_grand_prix.h"
#include "results/season_fixture.h"
#include "store/archive.h"

#include <set>

using namespace circuidex;
using namespace circuidex::test;

namespace {

const std::string tables = CIRCUIDEX_TESTDATA "/";
const std::string data = CIRCUIDEX_TESTDATA "/../../data/";

Lines sorted(Lines lines)
{
    std::sort(lines.begin(), lines.end());
    return lines;
}

class SampleSeasons : public testing::Test {
protected:
    Season season(const std::string &year) { return Season(desk.store, year); }

    // How often each driver stands on one of these places, by name.
    std::map<std::string, int> onPlaces(const std::string &year, int first, int last)
    {
        std::map<std::string, int> counts;
        for (int slot = 0; slot < gpSlots; ++slot)
            for (int place = first; place <= last; ++place)
                ++counts[season(year).nom(season(year).podium(place, season(year).namegp(slot)))];
        return counts;
    }

    Desk desk;
};

TEST_F(SampleSeasons, EndWithTheChampionshipTables)
{
    for (const std::string year : {"2003", "2004"}) {
        Lines published, kept;
        for (const std::string &line : linesOf(tables + year + ".standings.tsv")) {
            const Lines row = split(line, '\t'); // table, place, name, points, wins
            published.push_back(row[0] + " " + row[2] + " " + row[3] + (row[0] == "DRIVER" ? " wins " + row[4] : ""));
        }
        auto wins = onPlaces(year, 1, 1);
        std::set<std::string> teams;
        for (int n = 1; n <= driverSlots; ++n) {
            const std::string name = season(year).nom(n);
            if (name.empty())
                continue;
            kept.push_back("DRIVER " + name + " " + season(year).driver("nbpts", n) + " wins " +
                           std::to_string(wins[name]));
            teams.insert(season(year).ecurie(n));
        }
        for (const std::string &team : teams)
            kept.push_back("TEAM " + team + " " + season(year).read(keys::N, keys::ptsecurie(team)));
        EXPECT_EQ(sorted(kept), sorted(published)) << year;
    }
}

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

// What a driver brought into 2003 and what that season's results gave him, from the text of the two data files.
TEST_F(SampleSeasons, CarryCareersThrough2003)
{
    struct Career {
        int wins = 0, poles = 0, podiums = 0, points = 0;
    };
    std::map<std::string, Career> careers;
    for (const std::string &line : linesOf(data + "carrieres.txt")) {
        const Lines row = split(line.substr(line.find(' ')), '|'); // name, starts, wins, poles, podiums, points
        careers[row[0]] = {std::stoi(row[2]), std::stoi(row[3]), std::stoi(row[4]), std::stoi(row[5])};
    }
    const int scale[] = {10, 8, 6, 5, 4, 3, 2, 1};
    for (const std::string &line : linesOf(data + "2003.saison")) {
        if (line.starts_with("pole "))
            ++careers[line.substr(5)].poles;
        if (!line.starts_with("arrivee "))
            continue;
        const Lines finish = split(line.substr(8), '|');
        for (std::size_t i = 0; i < finish.size(); ++i) {
            careers[finish[i]].points += scale[i];
            careers[finish[i]].podiums += i < 3;
            careers[finish[i]].wins += i == 0;
        }
    }
    Lines expected, kept;
    for (const auto &[name, career] : careers)
        expected.push_back(name + " " + std::to_string(career.wins) + " " + std::to_string(career.poles) + " " +
                           std::to_string(career.podiums) + " " + std::to_string(career.points));
    for (int n = 1; n <= 24; ++n) {
        const auto total = [&](const char *key) { return " " + season("2003").driver(key, n); };
        kept.push_back(season("2003").nom(n) + total("vic") + total("pol") + total("podiums") + total("ptstot"));
    }
    EXPECT_EQ(sorted(kept), sorted(expected));
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

TEST_F(SampleSeasons, LeaveTheLastRaceOf2005ToTheUser)
{
    EXPECT_EQ(desk.store.yearMarker(), "2005");
    EXPECT_EQ(firstFreeSlot(season("2003")), 16);
    EXPECT_EQ(firstFreeSlot(season("2004")), 18);
    EXPECT_EQ(firstFreeSlot(season("2005")), 18);
    EXPECT_EQ(season("2005").namegp(18), "Chine");
    EXPECT_EQ(season("2005").namegp(19), "");
    EXPECT_EQ(season("2005").read(keys::gp, "nogp"), "18");
}

}
