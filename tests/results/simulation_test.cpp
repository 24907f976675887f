// The simulation of the last race of 2005, for which eight drivers' points can be imagined: what it records, and that
// the season is as before when it stops, whatever the user or a kill did meanwhile.
#include "results/simulation.h"

#include "results/amending.h"
#include "results/season_fixture.h"
#include "store/watched_calls.h"

#include <optional>

using namespace circuidex;
using namespace circuidex::results;
using namespace circuidex::test;

namespace {

const std::string season = "f12005.ini";

// Alonso, Räikkönen, Michael Schumacher and Montoya score what is typed, "-" for nothing.
std::optional<Simulation> start(Desk &desk, const std::string &points)
{
    const Lines typed = split(points, ' ');
    const SimulatedScore scores[] = {{"5", typed[0]}, {"9", typed[1]}, {"1", typed[2]}, {"10", typed[3]}};
    return startSimulation(desk.main, scores);
}

std::string places(const Desk &desk, const std::string &gpName = "Chine")
{
    std::string all;
    for (int place = 1; place <= classifiedPlaces; ++place)
        all += (place > 1 ? " " : "") + desk.read("2005 [podium] podium" + std::to_string(place) + gpName);
    return all;
}

// What a stop may leave behind: keys of the race without a value, and the teams' points of its slot.
std::string withoutTraces(const Desk &desk)
{
    std::string kept;
    for (const std::string &line : split(content(desk.folder / season), '\n'))
        if (!line.ends_with("Chine=\r") && line.find("ecuriepts/gp18=0\r") == line.npos)
            kept += line + "\n";
    return kept;
}

TEST(Simulation, EveryScoreOfTheScaleForTwoDriversAndBack)
{
    Desk desk;
    const std::string before = withoutTraces(desk);
    const Keys archive = desk.keys("ARCHIVES");
    for (int first = 0; first <= classifiedPlaces; ++first)
        for (int second = 0; second <= classifiedPlaces; ++second) {
            const auto points = [](int place) { return place == 0 ? std::string("7") : builtInScale[place]; };
            std::array<std::string, 9> at;
            at[std::size_t(first)] = "5";
            at[std::size_t(second)] = "9"; // the later row takes the place of the other
            std::string expected = at[1];
            for (std::size_t place = 2; place <= 8; ++place)
                expected += " " + at[place];
            const auto running = start(desk, points(first) + " " + points(second) + " - -");
            ASSERT_TRUE(running && running->recorded);
            EXPECT_EQ(places(desk), expected);
            EXPECT_EQ(desk.main.Label40.text(), "18");
            EXPECT_EQ(desk.read("2005 [gp] nogp"), "19");
            EXPECT_EQ(desk.read("2005 [N°] vic5"), at[1] == "5" ? "8" : "7");
            EXPECT_TRUE(stopSimulation(desk.main, *running));
            ASSERT_EQ(withoutTraces(desk), before);
        }
    EXPECT_EQ(changes(archive, desk.keys("ARCHIVES")), Lines());
    EXPECT_TRUE(desk.dialogs.said.empty());
}

TEST(Simulation, ARaceCountsForEverybodyWhileItRuns)
{
    Desk desk;
    const Keys before = desk.keys("2005");
    const auto running = start(desk, "10 8 - -");
    Lines changed = changes(before, desk.keys("2005"));
    EXPECT_EQ(take(changed, "nbgp").size(), 26u);
    EXPECT_EQ(take(changed, "ecuriepts/gp18").size(), 10u);
    EXPECT_EQ(changed,
              lines("nbpts5: 123 > 133; nbpts9: 104 > 112; ptstot5: 237 > 247; ptstot9: 273 > 281; "
                    "vic5: 7 > 8; podiums5: 22 > 23; podiums9: 29 > 30; ptsecurieRenault: 176 > 186; "
                    "ptsecurieMcLaren: 174 > 182; podium1Chine: - > 5; podium2Chine: - > 9; nogp: 18 > 19"));
    EXPECT_EQ(desk.main.quietNotice(),
              "Simulation en cours : Chine 2005. Pour l'arrêter : Graphique des Points Pilote.");
    EXPECT_EQ(runningSimulation(desk.store)->gp, "Chine");
    stopSimulation(desk.main, *running);
    EXPECT_EQ(desk.main.quietNotice(), "");
}

// What the user may do while it runs, and what the season then lacks or holds besides when it has stopped.
TEST(Simulation, StopTakesOffWhatIsStillThere)
{
    struct Case {
        const char *name, *points;
        std::function<void(Desk &)> meanwhile;
        const char *left; // of the changes, "nbgp" and "gp18" aside
        int starts; // more or less of every driver
        bool copied;
    };
    const Case cases[] = {
        {"another race is on show", "10 8 - -",
         [](Desk &desk) {
             desk.main.an.set("2004");
             desk.show(3);
         },
         "", 0, false},
        {"the scale changes", "10 8 - -", [](Desk &desk) { desk.write("2005 [bareme] 1=25"); }, "[bareme] 1: 10 > 25",
         0, false},
        {"a driver of few words", "10 - - -", [](Desk &desk) { desk.write("2005 [N°] nbpts5=1x"); }, "nbpts5: 123 > 1x",
         0, false},
        {"the calendar has another name", "10 8 - -", [](Desk &desk) { desk.write("2005 [gp] namegp18=Corée"); },
         "namegp18: Chine > Corée", 0, false},
        {"an older race is cancelled", "- - - -",
         [](Desk &desk) {
             desk.main.Label40.set("17");
             cancelGrandPrix(desk.main);
         },
         nullptr, -1, false},
        {"the simulated race is cancelled", "10 8 - -", [](Desk &desk) { cancelGrandPrix(desk.main); }, "", 0, false},
        {"the real result comes in", "10 8 - -",
         [](Desk &desk) {
             desk.enter(18, "Chine", "9 5 16 6 14 12 7 3", "9");
             amendGrandPrix(desk.main, Amendment::byUser);
         },
         "", 0, true},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        Desk desk;
        const Keys before = desk.keys("2005");
        desk.show(17);
        const auto running = start(desk, c.points);
        c.meanwhile(desk);
        const std::string slot = desk.main.Label40.text(), year = desk.main.an.text();
        EXPECT_TRUE(stopSimulation(desk.main, *running));
        EXPECT_FALSE(runningSimulation(desk.store));
        EXPECT_EQ(desk.main.Label40.text() + desk.main.an.text(), slot + year);
        EXPECT_EQ(!desk.main.overwritten.empty(), c.copied) << desk.main.overwritten;
        Lines left = changes(before, desk.keys("2005"));
        EXPECT_EQ(take(left, "nbgp").size(), c.starts == 0 ? 0u : 26u);
        take(left, "ecuriepts/gp18: - > 0");
        EXPECT_EQ(left, c.left ? lines(c.left) : left);
    }
}

TEST(Simulation, RefusesAndSaysSo)
{
    struct Case {
        const char *name;
        std::vector<std::string> season;
        const char *message, *slot;
        bool started;
    };
    std::vector<std::string> full, named{"2005 [podium] podium1Chine=5"}, second{"2005 [podium] podium2Chine=5"};
    for (const char *line :
         {"2005 [podium] podium1Chine=5", "2005 [gp] namegp19=Corée", "2005 [podium] podium1Corée=9"})
        full.push_back(line);
    const Case cases[] = {
        {"twenty winners", full, "Tous les Grands Prix de la saison ont un vainqueur : il n'en reste aucun à simuler.",
         "0", false},
        {"no name", named, "Entrez le nom du grand prix", "19", true},
        {"a second without a winner", second,
         "Le grand prix est déja enregistré. Pour pouvoir le modifier cliquez sur le bouton 'Enregistrer "
         "Modifications'.",
         "18", true},
        {"a pole", {"2005 [N°] polChine=5"}, nullptr, "18", true},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        Desk desk;
        for (const std::string &line : c.season)
            desk.write(line);
        const Keys before = desk.keys("2005");
        const auto running = start(desk, "10 8 - -");
        EXPECT_EQ(running.has_value(), c.started);
        EXPECT_EQ(desk.main.Label40.text(), c.slot);
        EXPECT_EQ(desk.dialogs.said, c.message ? Lines{c.message} : Lines{});
        EXPECT_EQ(desk.main.said.empty(), c.message != nullptr);
        EXPECT_EQ(changes(before, desk.keys("2005")), Lines());
        EXPECT_FALSE(runningSimulation(desk.store)) << "nothing that a closing would take back";
        EXPECT_TRUE(!running || stopSimulation(desk.main, *running));
        Lines left = changes(before, desk.keys("2005"));
        take(left, "ecuriepts/gp");
        // What stood there was taken for counted, and the season copied.
        EXPECT_EQ(left,
                  lines(c.season == second ? "podium2Chine: 5 > -; nbpts5: 123 > 115; ptstot5: 237 > 229; "
                                             "podiums5: 22 > 21; ptsecurieRenault: 176 > 168"
                                           : ""));
        EXPECT_EQ(desk.main.overwritten.empty(), c.season != second);
    }
}

// With a result under the cursor the search goes on to the first race without one.
TEST(Simulation, StartsAtTheFirstRaceWithoutAWinner)
{
    for (const int slot : {0, 5, 17}) {
        Desk desk;
        desk.main.Label40.set("7");
        cancelGrandPrix(desk.main);
        desk.show(slot);
        const auto running = start(desk, "10 - - -");
        EXPECT_EQ(running->slot, "7");
        EXPECT_EQ(places(desk, running->gp), "5       ");
    }
}

// A disk that refuses the nth call: either it runs or the season is as before, and the same of the stop.
TEST(Simulation, IsKeptAsAWholeOrNotAtAll)
{
    int losses = 0;
    for (int refused = 0, calls = refused + 1; refused < calls; ++refused) {
        Desk desk;
        desk.store.protect();
        const Keys before = desk.keys("2005");
        std::optional<Simulation> running;
        bool stopped = false;
        calls = 0;
        {
            const WatchedCalls watched(
                [&](const WatchedCalls::Call &call) { return writes(call) && calls++ == refused ? ENOSPC : 0; });
            running = start(desk, "10 8 - -");
            EXPECT_EQ(places(desk), running ? "5 9      " : "       ") << refused;
            EXPECT_TRUE(running || desk.keys("2005") == before) << refused;
            stopped = running && stopSimulation(desk.main, *running);
            EXPECT_EQ(places(desk), running && !stopped ? "5 9      " : "       ") << refused;
        }
        losses += !stopped;
        EXPECT_EQ(runningSimulation(desk.store).has_value(), running && !stopped) << refused;
        EXPECT_TRUE(!running || stopped || stopSimulation(desk.main, *running)) << refused;
        Lines left = changes(before, desk.keys("2005"));
        take(left, "ecuriepts/gp18: - > 0");
        EXPECT_EQ(left, Lines()) << refused;
    }
    EXPECT_GT(losses, 5);
}

}
