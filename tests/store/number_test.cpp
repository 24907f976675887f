// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/number.h"

#include <gtest/gtest.h>

using circuidex::Numbers;

namespace {

constexpr const char *noResult = "(none)";

struct SumCase {
    const char *name;
    char separator;
    const char *a, *b, *sum, *difference;
};

constexpr SumCase sums[] = {
    {"NotJoined", '.', "12", "3", "15", "9"},
    {"Halves", '.', "2.5", "2", "4.5", "0.5"},
    {"DecimalComma", ',', "2,5", "2", "4,5", "0,5"},
    {"NoTrailingZeros", '.', "1.50", "0.50", "2", "1"},
    {"Negative", '.', "-1", "0", "-1", "-1"},
    {"NeverMinusZero", '.', "-0", "0", "0", "0"},
    {"Blanks", '.', " 7 ", "\t1", "8", "6"},
    {"PlusSign", '.', "+4", "1", "5", "3"},
    {"TenthsAddUp", '.', "0.1", "0.2", "0.3", "-0.1"},
    {"NoThousandsSeparator", '.', "999999", "1", "1000000", "999998"},
    {"EmptyLeft", '.', "", "10", noResult, noResult},
    {"EmptyRight", '.', "10", "", noResult, noResult},
    {"BlankOnly", '.', " ", "1", noResult, noResult},
    {"Word", '.', "Aucune", "1", noResult, noResult},
    {"TextBehind", '.', "12 pts", "1", noResult, noResult},
    {"PointUnderComma", ',', "2.5", "1", noResult, noResult},
    {"CommaUnderPoint", '.', "2,5", "1", noResult, noResult},
    {"Infinity", '.', "inf", "1", noResult, noResult},
    {"NotANumber", '.', "nan", "1", noResult, noResult},
    {"TwoSigns", '.', "--1", "1", noResult, noResult},
    {"PlusMinus", '.', "+-1", "1", noResult, noResult},
    {"BeyondDouble", '.', "1e999", "1", noResult, noResult},
    {"SumBeyondDouble", '.', "1.7e308", "1.7e308", noResult, "0"},
};

TEST(Numbers, SumsAreTextOfTheNumber)
{
    for (const SumCase &c : sums) {
        const Numbers numbers(c.separator);
        EXPECT_EQ(numbers.sum(c.a, c.b).value_or(noResult), c.sum) << c.name;
        EXPECT_EQ(numbers.difference(c.a, c.b).value_or(noResult), c.difference) << c.name;
    }
}

TEST(NumbersText, IsGeneralForm)
{
    const Numbers french(',');
    EXPECT_EQ(french.text(15), "15");
    EXPECT_EQ(french.text(2.5), "2,5");
    EXPECT_EQ(french.text(-1), "-1");
    EXPECT_EQ(french.text(-0.0), "0");
    EXPECT_EQ(french.text(1e20), "1E+20");
}

TEST(NumbersValue, OfAVeryLongTextIsAbsent)
{
    EXPECT_FALSE(Numbers().value(std::string(100'000, '9')));
    EXPECT_EQ(Numbers().value(std::string(300, '0') + "7"), 7);
}

}
