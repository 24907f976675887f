// The computed podium: the step of each pair of places, and races of which less than four finishers are known.
#include "statistics/forecast.h"

#include "results/season_fixture.h"

using namespace circuidex;
using namespace circuidex::statistics;
using namespace circuidex::test;

namespace {

// Two races of a season of their own, given by the numbers of the first four, "-" for nobody.
std::string podium(const std::string &before, const std::string &last, int slot = 1)
{
    Desk desk(Desk::empty);
    for (const char *line : {"2005 [gp] namegp0=Japon", "2005 [gp] namegp1=Chine"})
        desk.write(line);
    for (int driver = 1; driver <= 9; ++driver)
        desk.write("2005 [N°] nom" + std::to_string(driver) + "=" + std::string(1, char('A' + driver - 1)));
    for (const auto &[gpName, drivers] : {std::pair("Japon", before), std::pair("Chine", last)})
        for (std::size_t i = 0; const std::string &driver : split(drivers, ' '))
            desk.write("2005 [podium] podium" + std::to_string(++i) + gpName + "=" + driver);
    const auto found = forecast(desk.main.season(), slot);
    return found ? found->steps[0] + "," + found->steps[1] + "," + found->steps[2] : "none";
}

TEST(Forecast, EachPairOfPlacesHasItsStep)
{
    const char *const steps[] = {"1112", "1122", "1223", "2233"}; // by the last place, then by the one before
    for (int last = 0; last < 4; ++last)
        for (int before = 0; before < 4; ++before) {
            std::string drivers[] = {"1 2 3 4", "5 6 7 8"};
            drivers[0][std::size_t(2 * before)] = drivers[1][std::size_t(2 * last)] = '9';
            const char step = steps[last][before];
            EXPECT_EQ(podium(drivers[0], drivers[1]),
                      step == '1'       ? " / I,X,X"
                          : step == '2' ? "X, / I,X"
                                        : "X,X, / I")
                << last + 1 << " after " << before + 1;
        }
}

TEST(Forecast, NamesStandInTheOrderOfThePairs)
{
    const std::string cases[][3] = {
        {"1 2 3 4", "1 2 3 4", " / A / B, / C, / D"},
        {"2 1 4 3", "1 2 3 4", " / A / B,X, / C / D"},
        {"1 2 3 4", "5 6 7 8", "X,X,X"},
        {"1 2 - -", "1 3 - -", " / A, / , /  /  / "}, // nobody twice is a pair as well: (3,3), (3,4), (4,3), (4,4)
        {"1 2 3 -", "4 4 1 1", " / A, / A,X"}, // one driver at two places
        {"22 2 3 4", "22 5 6 7", " / ,X,X"}, // a number without a name
    };
    for (const auto &[before, last, expected] : cases)
        EXPECT_EQ(podium(before, last), expected) << before << " then " << last;
}

TEST(Forecast, BeginsWithTheSecondRace)
{
    EXPECT_EQ(podium("1 2 3 4", "1 2 3 4", 0), "none");
    EXPECT_EQ(podium("1 2 3 4", "1 2 3 4", 1), " / A / B, / C, / D");
}

}
