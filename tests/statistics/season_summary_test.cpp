// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/season_summary.h"

#include "results/season_fixture.h"
#include "standings/tone_text.h"

#include <numeric>

using namespace circuidex;
using namespace circuidex::statistics;
using namespace circuidex::test;

namespace {

std::string lineOf(const DriverSummaryRow &row)
{
    return row.gp + "|" + row.grid + "|" + row.finish + "|" + shown(row.gain) + "|" + shown(row.gainSum) + "|" +
        row.points + "|" + row.pointsSum;
}

template <class Cells>
std::string joined(const Cells &cells)
{
    return std::accumulate(cells.begin() + 1, cells.end(), *cells.begin(),
                           [](const std::string &all, const std::string &cell) { return all + "," + cell; });
}

std::string lineOf(const TeamSummaryRow &row)
{
    return row.gp + "|" + joined(row.finish) + "|" + joined(row.points) + "|" + row.teamPoints + "|" + row.pointsSum;
}

class SeasonSummary : public testing::Test {
protected:
    WritableSeason season(const std::string &year) { return WritableSeason(desk.store, year); }
    DriverSummary driver(const std::string &year, const std::string &name)
    {
        return driverSummary(season(year), builtInScale, name, "1");
    }
    Desk desk;
};

TEST_F(SeasonSummary, OfADriverEndsWithHisOfficialPoints)
{
    for (const std::string year : {"2003", "2004"}) {
        const std::size_t last = published(year).races.size() - 1;
        for (const TableRow &row : officialTable(year, "DRIVER"))
            EXPECT_EQ(driver(year, row.name).rows[last].pointsSum, row.points) << row.name;
    }
}

TEST_F(SeasonSummary, OfADriverTellsRaceByRace)
{
    const DriverSummary alonso = driverSummary(season("2003"), builtInScale, "Fernando Alonso", "8");
    EXPECT_EQ(alonso.team, "Renault");
    Lines rows;
    for (std::size_t slot : {0u, 1u, 2u, 5u, 15u, 16u})
        rows.push_back(lineOf(alonso.rows[slot]));
    EXPECT_EQ(rows,
              (Lines{"Australie|10|7|+3^|+3^|2|2", "Malaisie|1|3|-2v|+1^|6|8", "Brésil|10|3|+7^|+8^|6|14",
                     "Autriche|22||-|+11^||25", "Japon|5||-|+34^||55", "|||-|-||"}));
}

TEST_F(SeasonSummary, OfADriverKeepsWhatIsMissing)
{
    desk.write("2003 [N°] Malaisiegrilledepart-1=");
    desk.write("2003 [podium] podium3Malaisie=8");
    desk.write("2003 [gp] namegp2=");
    for (int j = -1; j <= 24; ++j)
        desk.write("2003 [N°] Australiegrilledepart" + std::to_string(j) + "=");
    const auto rows = driver("2003", "Fernando Alonso").rows;
    EXPECT_EQ(lineOf(rows[0]), "Australie||7|-|-|2|2") << "no grid, and nothing summed yet";
    EXPECT_EQ(lineOf(rows[1]), "Malaisie||3|-|-|6|8");
    EXPECT_EQ(lineOf(rows[2]), "|||-|-||");
    EXPECT_EQ(lineOf(rows[3]), "Saint-Marin|8|6|+2^|+2^|3|11");
    EXPECT_EQ(lineOf(driver("2003", "Juan Manuel Fangio").rows[15]), "Japon|||-|-||0");
    EXPECT_EQ(lineOf(driver("2003", "").rows[15]), "Japon|||-|-||0");
    EXPECT_EQ(lineOf(driver("1949", "Fernando Alonso").rows[0]), "|||-|-||");
    EXPECT_EQ(driver("2005", "Michael Schumacher").rows[18].gp, "Chine") << "still to come";

    Scale broken = builtInScale;
    broken[1] = "dix";
    EXPECT_EQ(driverSummary(season("2003"), broken, "David Coulthard", "5").rows[0].pointsSum, "0");
}

TEST_F(SeasonSummary, OfATeamIsTheSumOfItsDrivers)
{
    for (const std::string year : {"2003", "2004", "2005"}) {
        const std::size_t races = published(year).races.size();
        for (const std::string team : {"Jaguar", "Toyota", "McLaren", "BAR"}) {
            const TeamSummary summary = teamSummary(season(year), builtInScale, team);
            int sum = 0;
            for (const std::string &name : summary.drivers)
                if (!name.empty())
                    sum += std::stoi(driver(year, name).rows[races - 1].pointsSum);
            EXPECT_EQ(summary.rows[races - 1].pointsSum, sum ? std::to_string(sum) : "") << year << team;
        }
    }
}

TEST_F(SeasonSummary, OfATeamShowsItsDriversSideBySide)
{
    const TeamSummary jaguar = teamSummary(season("2003"), builtInScale, "Jaguar");
    EXPECT_EQ(joined(jaguar.drivers), "Mark Webber,Antônio Pizzonia,Justin Wilson,");
    EXPECT_EQ(lineOf(jaguar.rows[0]), "Australie|,,,|,,,||") << "zero is blank, in the sum too";
    EXPECT_EQ(lineOf(jaguar.rows[4]), "Espagne|7,,,|2,,,|2|2");
    EXPECT_EQ(lineOf(jaguar.rows[14]), "Etats-unis|,,8,|,,1,|1|18");
    EXPECT_EQ(lineOf(jaguar.rows[16]), "|,,,|,,,||");
    desk.write("2003 [N°] nom25=A");
    desk.write("2003 [N°] nom26=B");
    desk.write("2003 [N°] ecurie25=Jaguar");
    desk.write("2003 [N°] ecurie26=Jaguar");
    EXPECT_EQ(joined(teamSummary(season("2003"), builtInScale, "Jaguar").drivers),
              "Mark Webber,Antônio Pizzonia,Justin Wilson,A")
        << "no room for a fifth";
    EXPECT_EQ(lineOf(teamSummary(season("2003"), builtInScale, "Lotus").rows[0]), "Australie|,,,|,,,||");
}

}
