#include "publicdata/names.h"
#include "publicdata/official_points.h"
#include "publicdata/release.h"
#include "results/season_fixture.h"

#include <cmath>

using namespace circuidex;
using namespace circuidex::publicdata;
using namespace circuidex::test;

namespace {

Lines linesOf(const SeasonPlan &season)
{
    Lines lines;
    for (const std::string &points : season.scale)
        lines.push_back("scale " + points);
    for (const PlannedDriver &each : season.drivers)
        lines.push_back(std::to_string(each.slot) + " " + each.name + " " + each.team + " " + each.nationality + " " +
                        each.birth);
    for (const PlannedMove &each : season.moves)
        lines.push_back(std::to_string(each.slot) + " to " + each.team + " at " + std::to_string(each.gp));
    for (const PlannedRace &race : season.races) {
        lines.push_back(race.name + " " + race.date + " " + race.pole + " " + std::to_string(race.share) + race.remark);
        for (const std::string &name : race.finish)
            lines.push_back(race.name + " finish " + name);
        for (const std::string &name : race.grid)
            lines.push_back(race.name + " grid " + name);
    }
    return lines;
}

TEST(Planning, MakesTheSampleSeasons)
{
    for (const int year : {2003, 2004, 2005, 2006})
        EXPECT_EQ(linesOf(planSeason(release(), year)->season), linesOf(published(std::to_string(year)))) << year;
}

TEST(Planning, TellsWhatDoesNotFit)
{
    using enum Misfit;
    const std::map<int, std::vector<Misfit>> expected{
        {1957, {driverLeftOut, scorerLeftOut, fastestLap, sharedCar, indianapolis, bestResults, constructorRules}},
        {1958, {driverLeftOut, scorerLeftOut, fastestLap, sharedCar, indianapolis, bestResults, constructorRules}},
        {1988, {driverLeftOut, teamsUnseen, bestResults}},
        {1991, {driverLeftOut, scorerLeftOut, reducedPoints}},
        {1997, {driverLeftOut, struckOff}},
        {2003, {}},
        {2004, {}},
        {2005, {driverLeftOut}},
        {2006, {driverLeftOut}},
        {2010, {driverLeftOut, beyondEighth}},
        {2016, {raceLeftOut, beyondEighth}},
        {2024, {raceLeftOut, beyondEighth, sprint, fastestLap}},
    };
    for (const int year : years) {
        std::vector<Misfit> kinds;
        std::string sentences;
        const PlannedSeason plan = *planSeason(release(), year);
        for (const Note &note : plan.notes) {
            kinds.push_back(note.kind);
            sentences += note.sentence + "\n";
        }
        EXPECT_EQ(kinds, expected.at(year)) << year << "\n" << sentences;
    }
}

TEST(Planning, WritesNamesInTheLettersOfTheFiles)
{
    const std::pair<const char *, const char *> cases[] = {{"Kimi Räikkönen", "Kimi Räikkönen"},
                                                           {"Jan Łukasz Čapek", "Jan Lukasz Capek"},
                                                           {"Joško = [X]", "Joško X"},
                                                           {"周冠宇", "???"},
                                                           {"e\u0301", "e"}};
    for (const auto &[published, written] : cases) {
        std::string name = nameForFiles(published);
        name.erase(std::unique(name.begin(), name.end(), [](char a, char b) { return a == ' ' && b == ' '; }),
                   name.end());
        EXPECT_EQ(name, written);
    }
    EXPECT_EQ(plainName("Kimi RÄIKKÖNEN"), "kimiraikkonen");
}

// Every point between what the plan counts and the standings has its reason.
TEST(OfficialPoints, AreExplainedToTheLastPoint)
{
    for (const int year : years) {
        const Championship &championship = *release().championship(year);
        const Accounts accounts = accountsOf(release(), championship, *planSeason(release(), year));
        EXPECT_LE(accounts.drivers.size(), 26u);
        for (const auto *list : {&accounts.drivers, &accounts.teams})
            for (const Account &account : *list) {
                double sum = account.planned;
                for (const Part &part : account.parts) {
                    sum += part.points;
                    EXPECT_NE(part.reason, Reason::unexplained) << year << " " << account.name << " " << part.points;
                }
                EXPECT_LT(std::abs(sum - account.official), 1e-6) << year << " " << account.name;
            }
    }
}

TEST(OfficialPoints, KnowWhoseBestResultsCounted)
{
    const std::map<int, std::size_t> expected{{1957, 5}, {1958, 6}, {1988, 11}};
    for (const int year : years) {
        const auto rule = bestResultsOf(*release().championship(year));
        EXPECT_EQ(rule ? rule->first : 0, expected.contains(year) ? expected.at(year) : 0) << year;
    }
    const auto reasonsOf = [](int year, const std::string &name) {
        Lines lines;
        const Championship &championship = *release().championship(year);
        const Accounts accounts = accountsOf(release(), championship, *planSeason(release(), year));
        for (const auto *list : {&accounts.drivers, &accounts.teams})
            for (const Account &account : *list)
                for (const Part &part : account.parts)
                    if (account.name == name)
                        lines.push_back(inFrench(part.reason) + " " + Numbers().text(part.points));
        return lines;
    };
    EXPECT_EQ(reasonsOf(1988, "Alain Prost"), lines("seuls les meilleurs résultats comptaient -18"));
    EXPECT_EQ(reasonsOf(1958, "Vanwall"),
              (Lines{"point du meilleur tour 1", "point du meilleur tour 1", "point du meilleur tour 1",
                     "une seule voiture par course comptait -11", "seuls les meilleurs résultats comptaient -9"}));
}

}
