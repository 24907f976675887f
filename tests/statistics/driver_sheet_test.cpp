// The ratios of a career, against values worked out by hand from the results.
#include "statistics/driver_sheet.h"

#include <gtest/gtest.h>

using namespace circuidex;
using namespace circuidex::statistics;

namespace {

// In the order of the rows on the sheet; a row that keeps its text is "-".
std::string sheet(const DriverFigures &figures, char decimal = '.')
{
    const auto ratios = driverRatios(figures, Numbers(decimal));
    std::string text;
    for (const RatioRow &row : ratioRows)
        text += (text.empty() ? "" : " ") + ratios[static_cast<std::size_t>(row.index)].value_or("-");
    return text;
}

TEST(DriverSheet, RatiosOfACareer)
{
    struct Case {
        const char *who;
        DriverFigures figures;
        const char *rows;
    };
    // wins, podiums, poles, career points, career races, season points, races run, seasons
    const Case cases[] = {
        {"no race yet", {"0", "0", "0", "0", "0", "0", "0", "1"}, "- - - 0 - - 0.00 0.00 0.00 0.00"},
        {"no season counted", {"1", "1", "1", "10", "4", "10", "4", "0"}, "25.00% 25.00% 25.00% 10 2.50 2.50 - - - -"},
        {"figures missing", {"", "", "", "", "", "", "", ""}, "- - - - - - - - - -"},
        {"text for a figure", {"beaucoup", "2", "0", "7", "8", "x", "3", "1"}, "- 25.00% 0.00% 7 0.88 - - 2.00 0.00 7.00"},
        {"halves go up", {"1", "1", "1", "0", "800", "1", "8", "8"}, "0.13% 0.13% 0.13% 0 0.00 0.13 0.13 0.13 0.13 0.00"},
        {"below zero", {"-1", "0", "0", "-3", "8", "-1", "8", "8"}, "-12.50% 0.00% 0.00% -3 -0.38 -0.13 -0.13 0.00 0.00 -0.38"},
    };
    for (const Case &driver : cases)
        EXPECT_EQ(sheet(driver.figures), driver.rows) << driver.who;
    EXPECT_EQ(sheet({"1", "3", "0", "20,5", "8", "20,5", "8", "2"}, ','),
              "12,50% 37,50% 0,00% 21 2,56 2,56 0,50 1,50 0,00 10,25");
}

}
