// SPDX-License-Identifier: GPL-3.0-or-later
// Two subjects beside each other: bars and sentence, word by word.
#include "charts/pair.h"

#include <gtest/gtest.h>

using namespace circuidex;
using namespace circuidex::charts;

namespace {

struct PairCase {
    const char *name;
    std::string a, b; // totals
    double barA, barB;
    std::string sentence;
};

std::string ahead(const std::string &first, const std::string &points, const std::string &fewer, const std::string &gap)
{
    const std::string second = first == "Ann" ? "Bob" : "Ann";
    return first + " est devant au classement! Il a " + points + " points alors que " + second + " n'en a que " + fewer +
        ". Il y a donc " + gap + " point(s) qui les séparent.";
}

constexpr double before = 777; // of bars that stay

const PairCase cases[] = {
    {"FirstAhead", "40", "10", 11040, 2760, ahead("Ann", "40", "10", "30")},
    {"SecondAhead", "9", "10", 9936, 11040, ahead("Bob", "10", "9", "1")},
    {"HalfPoints", "2,5", "1", 11040, 4416, ahead("Ann", "2,5", "1", "1,5")},
    {"AgainstNone", "3", "0", 11040, 0, ahead("Ann", "3", "0", "3")},
    {"Level", "7", "7", 11040, 11040, "Bob a le même nombre de points que Ann. Ils ont 7 points."},
    {"LevelInOtherWords", "7,0", "7", 11040, 11040, "Bob a le même nombre de points que Ann. Ils ont 7,0 points."},
    {"BothWithoutPoints", "0", "0", 11040, 11040, "Bob a le même nombre de points que Ann. Ils ont 0 points."},
    {"BothWithoutTotal", "", "", 11040, 11040, "Bob a le même nombre de points que Ann. Ils ont  points."},
    {"FirstWithoutTotal", "", "10", 11040, before, "Informations"},
    {"SecondWithoutTotal", "10", "", before, 11040, "Informations"},
    {"SecondOfText", "10", "dix", before, 11040, "Informations"},
    {"BelowZero", "5", "-5", 11040, before, ahead("Ann", "5", "-5", "10")},
    {"ZeroAheadOfLess", "0", "-5", 11040, before, ahead("Ann", "0", "-5", "5")},
};

TEST(Pair, IsMeasuredAndTold)
{
    for (const auto &[name, a, b, barA, barB, sentence] : cases) {
        Pair pair{before, before, a, b, "Informations"};
        compare(pair, "Ann", "Bob", " est devant au classement! Il a ", Numbers(','));
        EXPECT_DOUBLE_EQ(pair.barA, barA) << name;
        EXPECT_DOUBLE_EQ(pair.barB, barB) << name;
        EXPECT_EQ(pair.sentence, sentence) << name;
    }
}

}
