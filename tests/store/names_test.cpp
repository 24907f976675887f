// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/names.h"

#include <gtest/gtest.h>

using namespace circuidex;

namespace {

const std::string longest(longestName, 'L');

TEST(Names, AreTakenBareOrRefusedWithTheReason)
{
    struct Case {
        std::string typed, name, reason; // part of the sentence; empty for a name that fits
    };
    const Case cases[] = {
        {"Grande bretagne", "Grande bretagne", ""},
        {"Räikkönen", "Räikkönen", ""},
        {"L'Aquila", "L'Aquila", ""},
        {" Monaco", "Monaco", ""},
        {"Singapour \t", "Singapour", ""},
        {"Japon\r\n", "Japon", ""},
        {"\"Chine\"", "Chine", ""},
        {" ' \"Chine\" ' ", "Chine", ""},
        {"\"", "\"", ""},
        {"   ", "", ""},
        {"\"\"", "", ""},
        {longest, longest, ""},
        {longest + "L", longest + "L", "240 caractères"},
        {"a=b", "a=b", "\"a=b\" ne peut pas être enregistré : il contient un des signes"},
        {"[x]", "[x]", "signes"},
        {"x]", "x]", "signes"},
        {"a\nb", "a\nb", "saut de ligne"},
        {"a\x7F", "a\x7F", "caractère de commande"},
        {"a\xC2\x81", "a\xC2\x81", "caractère de commande"},
        {"Żółw", "Żółw", "n'ont pas"},
        {"\xFF", "\xFF", "n'ont pas"},
    };
    for (const Case &c : cases) {
        const EnteredName entered = enteredName(c.typed);
        EXPECT_EQ(entered.name, c.name) << c.typed;
        EXPECT_EQ(entered.fits(), c.reason.empty()) << c.typed << ": " << entered.refusal;
        EXPECT_NE(entered.refusal.find(c.reason), std::string::npos) << entered.refusal;
    }
    EXPECT_TRUE(enteredName("a=b", "a=b").fits()) << "stands in the file already";
    EXPECT_LT(enteredName(std::string(5000, '=')).refusal.size(), 200u);
}

TEST(Names, OnlyFourDigitsAreASeason)
{
    for (const char *year : {"2005", "1950", "0000"})
        EXPECT_EQ(seasonStem(year), year);
    for (const char *other : {"", "205", "20055", "2005/06", "../2005", "galerie", "２００５", "-200", "2e03"})
        EXPECT_TRUE(seasonStem(other).starts_with("/")) << other;
}

}
