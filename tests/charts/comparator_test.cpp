// SPDX-License-Identifier: GPL-3.0-or-later
#include "charts/comparator.h"

#include "results/season_fixture.h"
#include "standings/tone_text.h"

using namespace circuidex;
using namespace circuidex::charts;
using namespace circuidex::test;

namespace {

std::string lineOf(const ComparisonRow &row)
{
    return row.gp + "|" + shownAll(row.values) + "|" + shownAll(row.totals) + "|" + shownAll(row.gaps);
}

class Comparator : public testing::Test {
protected:
    std::string drivers(std::size_t slot, int reference, const Compared &names)
    {
        return lineOf(compareDrivers(Season(desk.store, "2005"), builtInScale, names, reference)[slot]);
    }
    std::string teams(std::size_t slot, int reference, const Compared &names)
    {
        return lineOf(compareTeams(Season(desk.store, "2005"), names, reference)[slot]);
    }
    Desk desk;
};

// Worked out by hand from the published results.
TEST_F(Comparator, OfDrivers)
{
    const Compared three{"Fernando Alonso", "Kimi Räikkönen", "Michael Schumacher"};
    EXPECT_EQ(drivers(1, 0, three), "Malaisie|1^ -v 7~|16^ 1v 2~|16 pts^ +15v +14~");
    EXPECT_EQ(drivers(3, 2, three), "Saint-Marin|1^ -v 2~|36^ 7v 10~|-26^ +3v 10 pts~");
    EXPECT_EQ(drivers(8, 1, three), "Etats-unis|-~ -~ 1^|59^ 37~ 34v|-22^ 37 pts~ +3v");
    EXPECT_EQ(drivers(19, 0, three), "|- - -|- - -|- - -");
}

TEST_F(Comparator, OfDriversWhoAreLevelOrUnknown)
{
    EXPECT_EQ(drivers(1, 0, {"Fernando Alonso", "Fernando Alonso", "Juan Manuel Fangio"}),
              "Malaisie|1~ 1~ -v|16~ 16~ 0v|16 pts~ 0~ +16v");
    EXPECT_EQ(drivers(1, 1, {"Pilote 1", "", "Pilote 3"}), "Malaisie|-~ -~ -~|0~ 0~ 0~|0~ 0 pts~ 0~");
    EXPECT_EQ(drivers(1, 3, {"Pilote 1", "", "Fernando Alonso"}), "Malaisie|-~ -~ 1^|0~ 0~ 16^|-~ -~ -^");
}

TEST_F(Comparator, OfTeams)
{
    const Compared three{"Ferrari", "BAR", "Renault"};
    EXPECT_EQ(teams(0, 0, three), "Australie|8~ 0v 16^|8~ 0v 16^|8 pts~ +8v -8^");
    EXPECT_EQ(teams(8, 1, three), "Etats-unis|18^ 0~ 0~|63~ 0v 76^|-63~ 0 ptsv -76^");
    EXPECT_EQ(teams(9, 2, three), "France|6~ 5v 13^|69~ 5v 89^|+20~ +84v 89 pts^");
    EXPECT_EQ(teams(18, 0, three), "Chine|- - -|- - -|- - -") << "still to come";
}

TEST_F(Comparator, OfTeamsThatAreMissing)
{
    desk.write("2005 [N°] ecuriepts/gp0=99"); // of drivers without a team
    EXPECT_EQ(teams(0, 0, {"Ecurie 1", "Ferrari", ""}), "Australie|- 8^ -|- 8^ -|- -^ -");
    EXPECT_EQ(teams(0, 1, {"Ecurie 1", "Ferrari", "Renault"}), "Australie|- 8~ 16^|- 8~ 16^|- 8 pts~ -8^");
}

}
