// SPDX-License-Identifier: GPL-3.0-or-later
// The last race of 2005 simulated on the sample season: what it records, and that the season is as before when it
// stops, whatever was done, or refused by the disk, meanwhile.
#include "results/simulation.h"

#include "results/amending.h"
#include "results/season_fixture.h"
#include "store/watched_calls.h"

using namespace circuidex;
using namespace circuidex::results;
using namespace circuidex::test;

namespace {

std::optional<Simulation> start(Desk &desk, const std::string &alonso, const std::string &raikkonen)
{
    const SimulatedScore scores[] = {{"5", alonso}, {"9", raikkonen}};
    return startSimulation(desk.main, scores);
}

std::string podium(const Desk &desk, int place)
{
    return desk.read("2005 [podium] podium" + std::to_string(place) + "Chine");
}

// Of the season, the teams' points of the last race aside: those are 0 when it has stopped.
Lines changesOf(const Keys &before, const Desk &desk)
{
    Lines changed = changes(before, desk.keys("2005"));
    take(changed, "ecuriepts/gp1");
    return changed;
}

// What isn't one of the keys that a stopped simulation leaves, to the byte.
std::string bytesBeside(const Desk &desk)
{
    std::string kept;
    for (const std::string &line : split(content(desk.folder / "f12005.ini"), '\n')) {
        const bool place = line.starts_with("podium") && line.ends_with("Chine=\r");
        kept += place || line.starts_with("dategpChine=") || line.ends_with("ecuriepts/gp18=0\r") ? "" : line + "\n";
    }
    return kept;
}

TEST(Simulation, TwoDriversScoreAnyPointsAndThenTheyDont)
{
    Desk desk;
    const std::string before = bytesBeside(desk);
    const auto points = [](int place) { return place == 0 ? std::string("7") : builtInScale[place]; };
    for (int first = 0; first <= classifiedPlaces; ++first)
        for (int second = 0; second <= classifiedPlaces; ++second) {
            desk.show(17); // a race with a result
            const auto running = start(desk, points(first), points(second));
            ASSERT_TRUE(running && running->recorded);
            for (int place = 1; place <= classifiedPlaces; ++place) // the later one takes the place
                EXPECT_EQ(podium(desk, place), place == second ? "9" : place == first ? "5" : "");
            EXPECT_EQ(desk.main.Label40.text() + desk.read("2005 [gp] nogp"), "1819");
            EXPECT_EQ(desk.read("2005 [N°] vic5"), first == 1 && second != 1 ? "8" : "7");
            EXPECT_EQ(desk.main.quietNotice(),
                      "Simulation en cours : Chine 2005. Pour l'arrêter : Graphique des Points Pilote.");
            EXPECT_TRUE(stopSimulation(desk.main, *running));
            ASSERT_EQ(bytesBeside(desk), before);
        }
    EXPECT_EQ(desk.main.quietNotice(), "");
    EXPECT_EQ(desk.read("ARCHIVES [GP] Chine"), "Rubens Barrichello");
}

TEST(Simulation, StopTakesOffWhatIsStillThere)
{
    struct Case {
        const char *name;
        std::function<void(Desk &)> meanwhile;
        const char *left;
    };
    const Case cases[] = {
        {"another season on show", [](Desk &desk) { desk.main.an.set("2004"); }, ""},
        {"another scale", [](Desk &desk) { desk.write("2005 [bareme] 1=25"); }, "[bareme] 1: 10 > 25"},
        {"a spoilt total", [](Desk &desk) { desk.write("2005 [N°] nbpts5=1x"); }, "nbpts5: 123 > 1x"},
        {"another name", [](Desk &desk) { desk.write("2005 [gp] namegp18=Corée"); }, "namegp18: Chine > Corée"},
        {"cancelled by the user", [](Desk &desk) { cancelGrandPrix(desk.main); }, ""},
        {"really run",
         [](Desk &desk) {
             desk.enter(18, "Chine", "9 5 16 6 14 12 7 3", "9");
             amendGrandPrix(desk.main, Amendment::byUser);
         },
         ""},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        Desk desk;
        const Keys before = desk.keys("2005");
        const auto running = start(desk, "10", "8");
        c.meanwhile(desk);
        const std::string season = desk.main.an.text();
        EXPECT_TRUE(stopSimulation(desk.main, *running));
        EXPECT_FALSE(runningSimulation(desk.store));
        EXPECT_EQ(desk.main.an.text(), season);
        EXPECT_EQ(changesOf(before, desk), lines(c.left));
        EXPECT_EQ(desk.main.overwritten.empty(), c.name != std::string("really run")) << "the season is copied";
    }
}

TEST(Simulation, NoRaceTakesIt)
{
    const char *const recorded = "Le grand prix est déja enregistré. Pour pouvoir le modifier cliquez sur le bouton "
                                 "'Enregistrer Modifications'.";
    struct Case {
        std::vector<const char *> season;
        const char *said, *left;
    };
    const Case cases[] = {
        {{"podium] podium1Chine=5", "gp] namegp19=Corée", "podium] podium1Corée=9"},
         "Tous les Grands Prix de la saison ont un vainqueur : il n'en reste aucun à simuler.",
         ""},
        {{"podium] podium1Chine=5"}, "Entrez le nom du grand prix", ""},
        {{"N°] polChine=5"}, "Une pole est déjà enregistrée pour \"Chine\" : rien n'est simulé.", ""},
        {{"podium] podium2Chine=5"},
         recorded, // a stop amends what stands there as well
         "podium2Chine: 5 > -; nbpts5: 123 > 115; ptstot5: 237 > 229; podiums5: 22 > 21; ptsecurieRenault: 176 > 168"},
    };
    for (const auto &[season, said, left] : cases) {
        Desk desk;
        for (const char *key : season)
            desk.write(std::string("2005 [") + key);
        const Keys before = desk.keys("2005");
        const auto running = start(desk, "10", "8");
        EXPECT_EQ(desk.dialogs.said.empty() ? desk.main.said.text() : desk.dialogs.said.front(), said);
        EXPECT_EQ(changes(before, desk.keys("2005")), Lines());
        EXPECT_FALSE(runningSimulation(desk.store)) << "nothing that a closing would take back";
        EXPECT_EQ(running.has_value(), season.size() == 1);
        EXPECT_TRUE(!running || stopSimulation(desk.main, *running));
        EXPECT_EQ(changesOf(before, desk), lines(left));
    }
}

// The disk refuses one call.
TEST(Simulation, StartAndStopAreKeptAsAWholeOrNotAtAll)
{
    int losses = 0;
    for (int refused = 0, calls = refused + 1; refused < calls; ++refused) {
        Desk desk;
        desk.store.protect();
        const Keys before = desk.keys("2005");
        calls = 0;
        bool stopped = false;
        std::optional<Simulation> running;
        {
            const WatchedCalls watched(
                [&](const WatchedCalls::Call &call) { return writes(call) && calls++ == refused ? ENOSPC : 0; });
            running = start(desk, "10", "8");
            EXPECT_TRUE(running ? podium(desk, 2) == "9" : desk.keys("2005") == before) << refused;
            stopped = running && stopSimulation(desk.main, *running);
            EXPECT_EQ(podium(desk, 2), running && !stopped ? "9" : "") << refused;
        }
        losses += !stopped;
        EXPECT_EQ(runningSimulation(desk.store).has_value(), running && !stopped) << refused;
        EXPECT_TRUE(!running || stopped || stopSimulation(desk.main, *running)) << refused;
        EXPECT_EQ(changesOf(before, desk), Lines()) << refused;
    }
    EXPECT_GT(losses, 5);
}

}
