// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/forecast.h"

#include "results/season_fixture.h"

using namespace circuidex;
using namespace circuidex::test;

namespace {

// The three steps after two races, given by the numbers of the first four, "-" for nobody.
std::string podium(const std::string &before, const std::string &last, int slot = 1)
{
    Desk desk(Desk::empty);
    for (int driver = 1; driver <= 9; ++driver)
        desk.write("2005 [N°] nom" + std::to_string(driver) + "=" + std::string(1, char('A' + driver - 1)));
    for (int race = 0; race < 2; ++race) {
        desk.write("2005 [gp] namegp" + std::to_string(race) + "=GP" + std::to_string(race));
        for (int place = 0; const std::string &driver : split(race == 0 ? before : last, ' '))
            desk.write("2005 [podium] podium" + std::to_string(++place) + "GP" + std::to_string(race) + "=" + driver);
    }
    const auto found = statistics::forecast(desk.main.season(), slot);
    return found ? found->steps[0] + "," + found->steps[1] + "," + found->steps[2] : "none";
}

TEST(Forecast, EachPairOfPlacesHasItsStep)
{
    const char *const steps[] = {"1112", "1122", "1223", "2233"}; // by the last place, then by the one before
    for (std::size_t last = 0; last < 4; ++last)
        for (std::size_t before = 0; before < 4; ++before) {
            std::string drivers[] = {"1 2 3 4", "5 6 7 8"};
            drivers[0][2 * before] = drivers[1][2 * last] = '9';
            const char step = steps[last][before];
            EXPECT_EQ(podium(drivers[0], drivers[1]), step == '1' ? " / I,X,X" : step == '2' ? "X, / I,X" : "X,X, / I");
        }
}

TEST(Forecast, NamesStandInTheOrderOfThePairs)
{
    EXPECT_EQ(podium("1 2 3 4", "1 2 3 4"), " / A / B, / C, / D");
    EXPECT_EQ(podium("1 2 3 4", "1 2 3 4", 0), "none") << "before the second race";
    EXPECT_EQ(podium("1 2 - -", "1 3 - -"), " / A, / , /  /  / ") << "nobody twice is a pair as well";
    EXPECT_EQ(podium("22 2 3 4", "22 5 6 7"), " / ,X,X") << "a number without a name";
}

}
