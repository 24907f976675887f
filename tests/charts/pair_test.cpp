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

constexpr double before = 777; // of bars that stay

const PairCase cases[] = {
    {"FirstAhead", "40", "10", 11040, 2760,
     "Ann est devant au classement! Il a 40 points alors que Bob n'en a que 10. Il y a donc 30 point(s) qui "
     "les séparent."},
    {"SecondAhead", "9", "10", 9936, 11040,
     "Bob est devant au classement! Il a 10 points alors que Ann n'en a que 9. Il y a donc 1 point(s) qui "
     "les séparent."},
    {"HalfPoints", "2,5", "1", 11040, 4416,
     "Ann est devant au classement! Il a 2,5 points alors que Bob n'en a que 1. Il y a donc 1,5 point(s) "
     "qui les séparent."},
    {"AgainstNone", "3", "0", 11040, 0,
     "Ann est devant au classement! Il a 3 points alors que Bob n'en a que 0. Il y a donc 3 point(s) qui "
     "les séparent."},
    {"Level", "7", "7", 11040, 11040, "Bob a le même nombre de points que Ann. Ils ont 7 points."},
    {"LevelInOtherWords", "7,0", "7", 11040, 11040, "Bob a le même nombre de points que Ann. Ils ont 7,0 points."},
    {"BothWithoutPoints", "0", "0", 11040, 11040, "Bob a le même nombre de points que Ann. Ils ont 0 points."},
    {"BothWithoutTotal", "", "", 11040, 11040, "Bob a le même nombre de points que Ann. Ils ont  points."},
    {"FirstWithoutTotal", "", "10", 11040, before, "Informations"},
    {"SecondWithoutTotal", "10", "", before, 11040, "Informations"},
    {"SecondOfText", "10", "dix", before, 11040, "Informations"},
    {"BelowZero", "5", "-5", 11040, before,
     "Ann est devant au classement! Il a 5 points alors que Bob n'en a que -5. Il y a donc 10 point(s) qui "
     "les séparent."},
    {"ZeroAheadOfLess", "0", "-5", 11040, before,
     "Ann est devant au classement! Il a 0 points alors que Bob n'en a que -5. Il y a donc 5 point(s) qui "
     "les séparent."},
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
