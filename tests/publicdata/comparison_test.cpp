#include "publicdata/correction.h"
#include "publicdata/import.h"
#include "publicdata/release.h"
#include "publicdata/season_recording.h"
#include "results/amending.h"
#include "results/grid.h"
#include "results/season_fixture.h"

#include <random>

using namespace circuidex;
using namespace circuidex::publicdata;
using namespace circuidex::test;

namespace {

class SecondReading : public testing::Test {
protected:
    void import(int year)
    {
        Import import(desk.store, release(), {{*planSeason(release(), year), false}});
        while (import.step()) { }
        ASSERT_EQ(import.failure(), "");
        desk.store.newMoment();
        desk.main.an.set(std::to_string(year));
    }
    Comparison compared() { return *compareSeason(desk.main.season(), release()); }

    Desk desk{Desk::empty};
};

TEST_F(SecondReading, ExplainsEveryTotalOfASeasonThatWasImported)
{
    for (const int year : years) {
        import(year);
        std::size_t totals = 0;
        for (const Difference &each : compared().differences) {
            EXPECT_TRUE(each.kind == DifferenceKind::driverTotal || each.kind == DifferenceKind::teamTotal)
                << year << each.sentence();
            double sum = Numbers().value(each.held).value();
            for (const Part &part : each.parts) {
                sum += part.points;
                EXPECT_LT(part.reason, Reason::otherResult) << year << " " << each.sentence();
            }
            EXPECT_DOUBLE_EQ(sum, Numbers().value(each.published).value()) << year << " " << each.sentence();
            EXPECT_FALSE(each.parts.empty());
            ++totals;
        }
        const bool alike = year == 1991 || (year >= 2003 && year <= 2006);
        EXPECT_EQ(totals == 0, alike) << year << " " << totals;
    }
}

// A user's slips: each is found, and the program's own amendment brings the season back to the byte.
TEST_F(SecondReading, FindsAndCorrectsTwentyChanges)
{
    std::mt19937 chance(2026);
    const auto upTo = [&](int most) { return std::uniform_int_distribution(1, most)(chance); };
    for (const int year : {1991, 2004}) {
        import(year);
        const Keys before = desk.keys(std::to_string(year));
        const WritableSeason season = desk.main.writableSeason();
        std::set<std::string> made;
        for (int change = 0; made.size() < 20; ++change) {
            const int gp = upTo(16) - 1, place = upTo(8), driver = upTo(20);
            const std::string race = season.namegp(gp), name = season.nom(driver);
            Difference difference;
            difference.subject = race;
            difference.place = place;
            if (change % 4 == 0) {
                difference.kind = DifferenceKind::date;
                season.write(keys::gp, keys::dategp(race), "31/12");
            } else if (change % 4 == 1) {
                difference.kind = DifferenceKind::grid;
                if (season.grille(place, race) == name)
                    continue;
                season.write(keys::N, keys::grilledepart(race, place), name);
            } else {
                difference.kind = change % 4 == 2 ? DifferenceKind::pole : DifferenceKind::place;
                desk.show(gp);
                Field &field = change % 4 == 2 ? desk.main.Text39 : desk.main.number(place);
                if (field.text() == std::to_string(driver) ||
                    shareCounted(season, planSeason(release(), year)->season, gp) != 1)
                    continue;
                field.set(std::to_string(driver));
                ASSERT_EQ(amendGrandPrix(desk.main, Amendment::byUser), Recording::done);
            }
            if (difference.kind == DifferenceKind::date || difference.kind == DifferenceKind::pole)
                difference.place = 0;
            made.insert(std::to_string(static_cast<int>(difference.kind)) + race + std::to_string(difference.place));
        }
        std::set<std::string> found;
        for (int round = 0; round < 100; ++round) {
            const Comparison comparison = compared();
            const auto next = std::find_if(comparison.differences.begin(), comparison.differences.end(),
                                           [](const Difference &each) { return each.correctable; });
            if (round == 0)
                for (const Difference &each : comparison.differences)
                    found.insert(std::to_string(static_cast<int>(each.kind)) + each.subject +
                                 std::to_string(each.place));
            if (next == comparison.differences.end())
                break;
            ASSERT_EQ(correct(desk.store, comparison, *next), "") << next->sentence();
        }
        for (const std::string &each : made)
            EXPECT_TRUE(found.contains(each)) << year << " " << each;
        EXPECT_EQ(changes(before, desk.keys(std::to_string(year))), Lines{}) << year;
    }
}

TEST_F(SecondReading, FindsOtherSpellingsAndCorrectsThem)
{
    import(2004);
    const Keys before = desk.keys("2004");
    const WritableSeason season = desk.main.writableSeason();
    desk.show(10);
    ASSERT_EQ(desk.main.gp.text(), "Grande bretagne");
    const Grid grid = loadGrid(season, "Grande bretagne");
    desk.main.gp.set("Grande-Bretagne");
    ASSERT_EQ(amendGrandPrix(desk.main, Amendment::byProgram), Recording::done);
    storeGrid(season, "Grande-Bretagne", grid);
    season.write(keys::gp, keys::dategp("Grande-Bretagne"), "11/07");
    season.write(keys::N, "nom6", "Kimi Raikkonen");
    Lines sentences;
    Comparison comparison = compared();
    for (const Difference &each : comparison.differences)
        if (each.kind != DifferenceKind::grid && each.kind != DifferenceKind::driverTotal)
            sentences.push_back(each.sentence());
    EXPECT_EQ(sentences,
              (Lines{"Pilote 6 : Kimi Raikkonen s'écrit Kimi Räikkönen", "Grande-Bretagne s'écrit Grande bretagne"}));
    for (int round = 0; round < 40 && !comparison.differences.empty(); ++round, comparison = compared())
        ASSERT_EQ(correct(desk.store, comparison, comparison.differences.front()), "");
    EXPECT_TRUE(comparison.differences.empty());
    Lines left = changes(before, desk.keys("2004"));
    take(left, "nogp");
    EXPECT_EQ(left, Lines{});
}

TEST_F(SecondReading, TellsWhereATotalComesFrom)
{
    import(2004);
    const WritableSeason season = desk.main.writableSeason();
    season.write(keys::N, "nbpts1", "151");
    desk.show(17);
    ASSERT_TRUE(cancelGrandPrix(desk.main));
    Lines lines;
    for (const Difference &each : compared().differences) {
        std::string line = each.sentence();
        for (const Part &part : each.parts)
            line += " (" + inFrench(part.reason) + " " + Numbers().text(part.points) + ")";
        lines.push_back(line);
    }
    ASSERT_GE(lines.size(), 2u);
    EXPECT_EQ(lines[0], "Brésil n'est pas enregistré");
    EXPECT_EQ(
        lines[1],
        "Michael Schumacher : 149 points, officiellement 148 (un autre résultat est enregistré 2) (le total n'est "
        "pas celui des résultats enregistrés -3)");
}

}
