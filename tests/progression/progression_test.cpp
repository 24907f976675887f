// SPDX-License-Identifier: GPL-3.0-or-later
#include "progression/progression.h"

#include "results/season_fixture.h"
#include "standings/tone_text.h"

#include <cmath>

using namespace circuidex;
using namespace circuidex::progression;
using namespace circuidex::test;

namespace {

class Progression : public testing::Test {
protected:
    WritableSeason season(const std::string &year) { return WritableSeason(desk.store, year); }
    std::string row(const std::string &gp, std::size_t number)
    {
        const ProgressRow found = raceProgress(season("2003"), gp)[number - 1];
        return found.name + "|" + found.grid + "|" + found.finish + "|" + shown(found.gain);
    }
    Desk desk;
};

std::string lineOf(const TeamProgressRow &row)
{
    std::string line = row.gp;
    for (std::size_t car = 0; car < row.places.size(); ++car)
        line += "|" + row.places[car] + ":" + row.gains[car];
    return line + "|" + row.team + "|" + row.sum;
}

TEST_F(Progression, OfOneRace)
{
    EXPECT_EQ(row("Australie", 8), "Fernando Alonso|10|7|+3^");
    EXPECT_EQ(row("Malaisie", 8), "Fernando Alonso|1|3|-2v");
    EXPECT_EQ(row("Autriche", 1), "Michael Schumacher|1|1|=~");
    EXPECT_EQ(row("Brésil", 1), "Michael Schumacher|7||-");
    EXPECT_EQ(row("Australie", 26), "|||-");
    EXPECT_EQ(row("Luxembourg", 8), "Fernando Alonso|||-");
    for (int j = -1; j <= 24; ++j)
        desk.write("2003 [N°] Australiegrilledepart" + std::to_string(j) + "=");
    EXPECT_EQ(row("Australie", 8), "Fernando Alonso||7|-") << "a result without a grid";
    desk.write("2003 [N°] nom26=Fernando Alonso");
    desk.write("2003 [podium] podium8Malaisie=26");
    EXPECT_EQ(row("Malaisie", 26), "Fernando Alonso|1|3|-2v") << "one man, two numbers";
}

TEST_F(Progression, SumsAreThoseOfTheDriversSummary)
{
    for (const std::string year : {"2003", "2004"}) {
        const std::size_t last = published(year).races.size() - 1;
        const auto sums = progressSums(season(year), std::to_string(last));
        for (int number = 1; number <= driverSlots; ++number) {
            const std::string name = season(year).nom(number);
            const auto summary = statistics::driverSummary(season(year), builtInScale, name, "1");
            EXPECT_EQ(shown(sums[static_cast<std::size_t>(number - 1)]), shown(summary.rows[last].gainSum)) << name;
        }
        EXPECT_NE(shown(sums[0]), "-");
    }
    EXPECT_EQ(shown(progressSums(season("2003"), "0")[7]), "+3^") << "the first race alone";
    EXPECT_EQ(shown(progressSums(season("2003"), "1")[7]), "+1^");
    for (const char *none : {"", "abc", "-1"})
        EXPECT_EQ(shown(progressSums(season("2003"), none)[7]), "-");
    EXPECT_EQ(shown(progressSums(season("1949"), "20")[7]), "-");
}

TEST_F(Progression, OfATeamIsTheSumOfItsDrivers)
{
    for (const std::string team : {"Ferrari", "Jaguar", "Toyota"}) {
        const TeamProgress progress = teamProgress(season("2004"), team);
        const auto sums = progressSums(season("2004"), "17");
        int sum = 0;
        for (const std::string &name : progress.drivers)
            for (int number = 1; number <= driverSlots && !name.empty(); ++number)
                if (const std::string text = sums[static_cast<std::size_t>(number - 1)].text;
                    season("2004").nom(number) == name && !text.empty() && text != "=")
                    sum += std::stoi(text);
        EXPECT_EQ(progress.rows[17].sum, sum ? (sum > 0 ? "+" : "") + std::to_string(sum) : "=") << team;
    }
}

TEST_F(Progression, OfATeamRaceByRace)
{
    const auto jaguar = teamProgress(season("2003"), "Jaguar");
    EXPECT_EQ(jaguar.drivers[2], "Justin Wilson");
    EXPECT_EQ(lineOf(jaguar.rows[4]), "Espagne|12 / 7:+5|16 / :=|18 / :=|:|+5|+5");
    EXPECT_EQ(lineOf(jaguar.rows[16]), "|:|:|:|:||");
    desk.write("2003 [N°] Espagnegrilledepart10=");
    EXPECT_EQ(lineOf(teamProgress(season("2003"), "Jaguar").rows[4]), "Espagne| / 7:=|16 / :=|18 / :=|:|=|=");
    EXPECT_EQ(lineOf(teamProgress(season("2003"), "Lotus").rows[0]), "Australie|:|:|:|:|=|=");
    EXPECT_EQ(teamProgress(season("2005"), "Williams").drivers,
              (statistics::TeamDrivers{"Mark Webber", "Nick Heidfeld"}))
        << "number 26 isn't looked at";
}

}
