#include "store/season.h"

#include "store/temporary_folder.h"

#include <gtest/gtest.h>

using namespace circuidex;

namespace {

class SeasonTest : public testing::Test {
protected:
    circuidex::test::TemporaryFolder folder;
    Store store{folder.path()};
    Season season{store, "2005"};
};

struct CountCase {
    const char *name;
    char separator;
    const char *held; // nullptr for a key that was never written
    const char *amount;
    const char *added, *subtracted, *addedFromZero, *subtractedFromZero;
};

class Counting : public testing::TestWithParam<CountCase> {
protected:
    using Step = void (Season::*)(std::string_view, std::string_view, std::string_view) const;

    std::string after(Step step) const
    {
        const circuidex::test::TemporaryFolder folder;
        Store store(folder.path(), Numbers(GetParam().separator));
        const Season season(store, "2005");
        if (GetParam().held)
            season.write(keys::N, "nbpts7", GetParam().held);
        (season.*step)(keys::N, "nbpts7", GetParam().amount);
        return season.driver("nbpts", 7);
    }
};

TEST_P(Counting, FollowsTheRules)
{
    EXPECT_EQ(after(&Season::add), GetParam().added);
    EXPECT_EQ(after(&Season::subtract), GetParam().subtracted);
    EXPECT_EQ(after(&Season::addFromZero), GetParam().addedFromZero);
    EXPECT_EQ(after(&Season::subtractFromZero), GetParam().subtractedFromZero);
}

constexpr CountCase counts[] = {
    {"FromZero", '.', "0", "10", "10", "-10", "10", "-10"},
    {"FromSome", '.', "12", "3", "15", "9", "15", "9"},
    {"NeverWritten", '.', nullptr, "10", "", "", "10", "-10"},
    {"Empty", '.', "", "10", "", "", "10", "-10"},
    {"Word", '.', "abandon", "10", "abandon", "abandon", "abandon", "abandon"},
    {"EmptyAmount", '.', "4", "", "4", "4", "4", "4"},
    {"EmptyBoth", '.', "", "", "", "", "", ""},
    {"NegativeAmount", '.', "4", "-6", "-2", "10", "-2", "10"},
    {"DecimalComma", ',', "2,5", "5", "7,5", "-2,5", "7,5", "-2,5"},
    {"PointUnderComma", ',', "2.5", "5", "2.5", "2.5", "2.5", "2.5"},
};

INSTANTIATE_TEST_SUITE_P(Season, Counting, testing::ValuesIn(counts),
                         [](const auto &each) { return std::string(each.param.name); });

TEST_F(SeasonTest, SkippedStepCreatesNothing)
{
    season.add(keys::N, "vic7", "1");
    season.subtractFromZero(keys::N, "vic7", "");
    EXPECT_EQ(folder.names(), std::vector<std::string>());
}

TEST_F(SeasonTest, ReadersKnowTheirKeys)
{
    circuidex::test::layDown(folder / "f12005.ini",
                             "[N\xB0]\r\nnom7=Fisichella\r\necurie7=Renault\r\n"
                             "Monacogrilledepart-1=Alonso\r\nMonacogrilledepart0=R\xE4ikk\xF6nen\r\n"
                             "[gp]\r\nnamegp4=Monaco\r\n[podium]\r\npodium1Monaco=9\r\n");
    EXPECT_EQ(season.nom(7), "Fisichella");
    EXPECT_EQ(season.nom("7"), "Fisichella");
    EXPECT_EQ(season.ecurie(7), "Renault");
    EXPECT_EQ(season.namegp(4), "Monaco");
    EXPECT_EQ(season.grille(1, "Monaco"), "Alonso");
    EXPECT_EQ(season.grille(2, "Monaco"), "Räikkönen");
    EXPECT_EQ(season.grille(3, "Monaco"), "");
    EXPECT_EQ(season.podium(1, "Monaco"), "9");
    EXPECT_TRUE(season.recorded("Monaco"));
    EXPECT_FALSE(season.recorded("Brésil"));
}

TEST_F(SeasonTest, TwoSeasonsOfOneStoreAreApart)
{
    const Season other(store, "2006");
    season.write(keys::N, "nom1", "Schumacher");
    other.write(keys::N, "nom1", "Alonso");
    EXPECT_EQ(season.nom(1) + " " + other.nom(1), "Schumacher Alonso");
}

}
