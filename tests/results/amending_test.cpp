// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/amending.h"

#include "results/grid.h"
#include "results/season_fixture.h"

#include <random>

using namespace circuidex;
using namespace circuidex::results;
using namespace circuidex::test;

namespace {

const char *const brazil = "10 9 5 1 6 2 3 16"; // the result of slot 16 in 2005, pole 5

TEST(Amending, MovesWhatChanged)
{
    struct Case {
        const char *name, *places, *pole, *changed;
    };
    const Case cases[] = {
        {"nothing", brazil, "5", ""},
        {"third and fourth swapped", "10 9 1 5 6 2 3 16", "5",
         "podium3Brésil: 5 > 1; podium4Brésil: 1 > 5; nbpts1: 62 > 63; ptstot1: 1248 > 1249; podiums1: 142 > 143; "
         "nbpts5: 123 > 122; ptstot5: 237 > 236; podiums5: 22 > 21; ptsecurieFerrari: 100 > 101; "
         "ptsecurieRenault: 176 > 175; Ferrariecuriepts/gp16: 8 > 9; Renaultecuriepts/gp16: 10 > 9"},
        {"another third", "10 9 15 1 6 2 3 16", "5",
         "podium3Brésil: 5 > 15; nbpts15: 43 > 49; ptstot15: 160 > 166; podiums15: 7 > 8; nbpts5: 123 > 117; "
         "ptstot5: 237 > 231; podiums5: 22 > 21; ptsecurieToyota: 82 > 88; ptsecurieRenault: 176 > 170; "
         "Toyotaecuriepts/gp16: 1 > 7; Renaultecuriepts/gp16: 10 > 4"},
        {"winner and second swapped", "9 10 5 1 6 2 3 16", "5",
         "podium1Brésil: 10 > 9; podium2Brésil: 9 > 10; vic9: 9 > 10; vic10: 7 > 6; nbpts9: 104 > 106; "
         "nbpts10: 60 > 58; ptstot9: 273 > 275; ptstot10: 281 > 279"},
        {"eighth place taken away", "10 9 5 1 6 2 3 -", "5",
         "podium8Brésil: 16 > -; nbpts16: 39 > 38; ptstot16: 298 > 297; ptsecurieToyota: 82 > 81; "
         "Toyotaecuriepts/gp16: 1 > 0"},
        {"pole", brazil, "10", "polBrésil: 5 > 10; pol5: 8 > 7; pol10: 13 > 14"},
    };
    for (const Case &c : cases)
        for (const Amendment by : {Amendment::byUser, Amendment::byProgram}) {
            Desk desk;
            const Keys before = desk.keys("2005"), archive = desk.keys("ARCHIVES");
            desk.enter(16, "Brésil", c.places, c.pole);
            desk.main.dat.set("not noted");
            amendGrandPrix(desk.main, by);
            Lines changed = changes(before, desk.keys("2005")), noted = changes(archive, desk.keys("ARCHIVES"));
            EXPECT_EQ(take(changed, "nogp"), lines("nogp: 18 > 17")) << c.name;
            EXPECT_EQ(changed, lines(c.changed)) << c.name;
            take(noted, "[record] ");
            EXPECT_EQ(noted, Lines{}) << c.name; // the archive keeps the old winner
            EXPECT_EQ(desk.main.Label11.text(), "") << c.name;
        }
}

TEST(Amending, MovesTheResultToANewName)
{
    Desk desk;
    const Keys before = desk.keys("2005");
    desk.enter(16, "Rio", brazil, "5");
    amendGrandPrix(desk.main, Amendment::byUser);
    Lines changed = changes(before, desk.keys("2005"));
    EXPECT_EQ(take(changed, "podium").size(), 16u);
    EXPECT_EQ(take(changed, "nbgp").size(), 26u) << "a race never recorded, by its name";
    EXPECT_EQ(changed, lines("namegp16: Brésil > Rio; polBrésil: 5 > -; polRio: - > 5; nogp: 18 > 17"));
}

// A race with a name and no result: everybody has started once more, unless another screen amends.
TEST(Amending, RecordsARaceWithoutResult)
{
    for (const Amendment by : {Amendment::byUser, Amendment::byProgram}) {
        Desk desk;
        const Keys archive = desk.keys("ARCHIVES");
        desk.enter(18, "Chine", "5 - - - - - - -", "");
        amendGrandPrix(desk.main, by);
        EXPECT_EQ(desk.read("2005 [N°] nbpts5") + " " + desk.read("2005 [N°] nbgp9") + " " + desk.read("2005 [gp] nogp"),
                  by == Amendment::byUser ? "133 87 19" : "133 86 19");
        Lines noted = changes(archive, desk.keys("ARCHIVES"));
        EXPECT_EQ(take(noted, "[record] nomvic22"), Lines{"[record] nomvic22: - > Fernando Alonso"});
        take(noted, "[record] ");
        EXPECT_EQ(noted, Lines{});
    }
}

TEST(Amending, TeamPointsOfTheSlotComeFromTheNewResultAlone)
{
    Desk desk;
    desk.write("2005 [N°] Ferrariecuriepts/gp16=77");
    desk.write("2005 [N°] Jordanecuriepts/gp16=77");
    desk.enter(16, "Brésil", brazil, "5");
    amendGrandPrix(desk.main, Amendment::byUser);
    EXPECT_EQ(desk.read("2005 [N°] Ferrariecuriepts/gp16") + " " + desk.read("2005 [N°] Jordanecuriepts/gp16"), "8 0");
}

TEST(Cancelling, TakesTheStoredResultBackWhateverWasTyped)
{
    for (const char *typed : {brazil, "21 22 23 24 25 26 - 8"}) {
        Desk desk;
        desk.write("2005 [podium] remBrésil=Pluie");
        const Keys before = desk.keys("2005"), archive = desk.keys("ARCHIVES");
        desk.enter(16, "Brésil", typed, "5");
        EXPECT_TRUE(cancelGrandPrix(desk.main));
        Lines changed = changes(before, desk.keys("2005"));
        EXPECT_EQ(take(changed, "nbgp").size(), 26u);
        EXPECT_EQ(take(changed, "grilledepart").size(), 20u); // cars that started
        EXPECT_EQ(take(changed, "ecuriepts/gp16: ").size(), 10u);
        EXPECT_EQ(take(changed, "Brésil: ").size(), 10u); // places, pole and remark
        take(changed, "ptstot");
        EXPECT_EQ(changed,
                  lines("nbpts10: 60 > 50; nbpts9: 104 > 96; nbpts5: 123 > 117; nbpts1: 62 > 57; nbpts6: 53 > 49; "
                        "nbpts2: 38 > 35; nbpts3: 36 > 34; nbpts16: 39 > 38; ptsecurieMcLaren: 174 > 156; "
                        "ptsecurieRenault: 176 > 166; ptsecurieFerrari: 100 > 92; ptsecurieBAR: 37 > 35; "
                        "ptsecurieToyota: 82 > 81; vic10: 7 > 6; podiums10: 28 > 27; podiums9: 29 > 28; "
                        "podiums5: 22 > 21; pol5: 8 > 7; nogp: 18 > 17"));
        EXPECT_EQ(changes(archive, desk.keys("ARCHIVES")), Lines{});
        EXPECT_EQ(desk.main.gp.text() + desk.main.number(1).text() + desk.main.Text39.text(), "Brésil");
        EXPECT_EQ(firstFreeSlot(desk.main.season()), 16);
    }
}

TEST(Cancelling, LeavesASlotWithoutResultAlone)
{
    Desk desk;
    const Keys before = desk.keys("2005");
    for (const int slot : {18, 19}) { // named and not recorded; not even named
        desk.show(slot);
        desk.main.number(1).set("5");
        EXPECT_FALSE(cancelGrandPrix(desk.main)) << slot;
        EXPECT_EQ(changes(before, desk.keys("2005")), Lines{}) << slot;
    }
}

TEST(Cancelling, SubtractsTheScaleOfTheMomentAndMayGoBelowZero)
{
    Desk desk;
    for (const char *key : {"[bareme] 1=12", "[N°] nbpts10=5", "[N°] vic10=", "[N°] ptsecurieRenault="})
        desk.write(std::string("2005 ") + key);
    desk.show(16);
    cancelGrandPrix(desk.main);
    EXPECT_EQ(desk.read("2005 [N°] nbpts10"), "-7");
    EXPECT_EQ(desk.read("2005 [N°] ptsecurieMcLaren"), "154"); // the two points of the change stay lost
    EXPECT_EQ(desk.read("2005 [N°] vic10"), "");
    EXPECT_EQ(desk.read("2005 [N°] ptsecurieRenault"), "-10");
}

// What the file holds when the program is killed between the two halves of an amendment.
TEST(Amending, ReadsAsCancelledWhenInterrupted)
{
    Desk amended, cancelled;
    const Keys before = amended.keys("2005");
    amended.main.refreshScale();
    subtractResult(amended.main.writableSeason(), "16", amended.main.scale());
    cancelled.show(16);
    cancelGrandPrix(cancelled.main);
    Lines otherwise = changes(cancelled.keys("2005"), amended.keys("2005"));
    EXPECT_EQ(take(otherwise, "Brésilgrilledepart").size(), 20u);
    EXPECT_EQ(take(otherwise, "ecuriepts/gp16: - > 0").size(), 10u);
    EXPECT_EQ(otherwise, Lines{});

    Store reopened(amended.folder.path());
    MainRecord main(reopened, amended.dialogs);
    openMarkedSeason(main);
    openOnLastRecorded(main);
    EXPECT_EQ(main.Label40.text() + " " + main.gp.text(), "15 Belgique");
    EXPECT_EQ(firstFreeSlot(main.season()), 16);
    EXPECT_FALSE(hasResult(main.season(), "Brésil"));
    amended.show(16);
    amended.enter(16, "Brésil", brazil, "5");
    EXPECT_EQ(recordGrandPrix(amended.main), Recording::done);
    EXPECT_EQ(changes(before, amended.keys("2005")), lines("nogp: 18 > 17"));
}

// Random work on a season, checked after every step against sums over the results that the file then holds.
class RandomSeason : public testing::TestWithParam<const char *> {
protected:
    RandomSeason()
    {
        desk.main.an.set(GetParam());
        for (int n = 1; n <= driverSlots; ++n)
            if (!season().nom(n).empty())
                drivers.push_back(std::to_string(n));
        for (const auto &[key, sum] : sums())
            if (!key.starts_with("nbpts") && key.find("ecurie") == std::string::npos)
                brought[key] = held(key) - sum;
    }

    WritableSeason season() const { return desk.main.writableSeason(); }
    double held(const std::string &key) const
    {
        return season().numbers().value(season().read(keys::N, key)).value_or(0);
    }

    std::map<std::string, double> sums() const
    {
        const double scale[] = {10, 8, 6, 5, 4, 3, 2, 1};
        std::map<std::string, double> sums = brought;
        for (const std::string &n : drivers) {
            sums["ptsecurie" + season().ecurie(n)] += 0;
            for (const char *key : {"nbpts", "ptstot", "vic", "podiums", "pol"})
                sums[key + n] += 0;
        }
        for (int slot = 0; slot < gpSlots; ++slot) {
            const std::string gpName = season().namegp(slot), gp = "ecuriepts/gp" + std::to_string(slot);
            for (const std::string &n : drivers)
                sums[season().ecurie(n) + gp] += 0;
            if (const std::string n = season().read(keys::N, keys::pol(gpName)); !n.empty())
                sums["pol" + n] += 1;
            for (int place = 1; place <= classifiedPlaces; ++place) {
                const std::string n = season().podium(place, gpName);
                if (n.empty())
                    continue;
                const double points = scale[place - 1];
                for (const std::string &key :
                     {"nbpts" + n, "ptstot" + n, "ptsecurie" + season().ecurie(n), season().ecurie(n) + gp})
                    sums[key] += points;
                sums["vic" + n] += place == 1;
                sums["podiums" + n] += place <= 3;
            }
        }
        return sums;
    }

    Lines wrong() const
    {
        Lines lines;
        for (const auto &[key, sum] : sums())
            if (held(key) != sum)
                lines.push_back(key + ": " + season().read(keys::N, key) + ", not " + season().numbers().text(sum));
        return lines;
    }

    int upTo(int last) { return std::uniform_int_distribution<int>(0, last)(random); }
    std::string anyDriver() { return drivers[static_cast<std::size_t>(upTo(static_cast<int>(drivers.size()) - 1))]; }

    // Eight drivers, each once; now and then the last places stay empty.
    std::string anyResult()
    {
        std::shuffle(drivers.begin(), drivers.end(), random);
        const std::size_t taken = upTo(3) ? 8u : static_cast<std::size_t>(1 + upTo(7));
        std::string places;
        for (std::size_t i = 0; i < 8; ++i)
            places += (i < taken ? drivers[i] : "-") + " ";
        return places;
    }

    void exchange(int place, const std::string &driver)
    {
        for (Field &other : desk.main.Text1to8)
            if (other.text() == driver)
                other.set(desk.main.number(place).text());
        desk.main.number(place).set(driver);
    }

    // One piece of work on the slot on show; tells what it was.
    std::string work()
    {
        MainRecord &main = desk.main;
        const int slot = std::stoi(main.Label40.text());
        if (!hasResult(season(), main.gp.text())) {
            desk.enter(slot, main.gp.empty() ? newName() : main.gp.text(), anyResult(), upTo(5) ? anyDriver() : "");
            if (upTo(3)) {
                EXPECT_EQ(recordGrandPrix(main), Recording::done);
                return "recorded";
            }
            amendGrandPrix(main, Amendment::byUser);
            return "recorded by amending";
        }
        switch (upTo(5)) {
        case 0:
        case 1:
            exchange(upTo(1) == 0 ? 1 : 3, anyDriver());
            break;
        case 2:
            main.gp.set(newName());
            break;
        case 3:
            main.Text39.set(anyDriver());
            break;
        default:
            EXPECT_TRUE(cancelGrandPrix(main));
            EXPECT_FALSE(hasResult(season(), main.gp.text()));
            return "cancelled";
        }
        amendGrandPrix(main, Amendment::byUser);
        return "amended";
    }

    std::string newName() { return "Course " + std::to_string(++newNames); }

    Desk desk;
    Lines drivers;
    std::map<std::string, double> brought; // careers at the start of the season
    std::mt19937 random{20031012};
    int newNames = 0;
};

TEST_P(RandomSeason, TotalsStayTheSumsOfTheResults)
{
    ASSERT_EQ(wrong(), Lines{});
    std::map<std::string, int> done;
    for (int i = 0; i < 200 && !HasFailure(); ++i) {
        const int slot = upTo(gpSlots - 1);
        desk.show(slot);
        const std::string what = work();
        ++done[what];
        EXPECT_EQ(wrong(), Lines{}) << "step " << i << ", slot " << slot << ": " << what;
        EXPECT_EQ(desk.main.Label40.text(), std::to_string(slot)) << "step " << i << ": " << what;
    }
    EXPECT_EQ(done.size(), 4u); // each kind of work was met
}

// Seasons in which no driver with points changed team, so that the teams' sums hold too.
INSTANTIATE_TEST_SUITE_P(Of, RandomSeason, testing::Values("2003", "2005"),
                         [](const auto &season) { return std::string(season.param); });

// The other race's result goes as it is told, but the season before it can be found.
TEST(Amending, OntoAnotherRaceKeepsACopy)
{
    Desk desk;
    desk.show(3);
    amendGrandPrix(desk.main, Amendment::byUser);
    EXPECT_EQ(desk.main.overwritten, "") << "under its own name";
    const std::string amended = content(desk.folder / "f12005.ini");
    desk.main.gp.set("Monaco");
    EXPECT_EQ(amendGrandPrix(desk.main, Amendment::byUser), Recording::done);
    const std::string said = "Un autre résultat de \"Monaco\" est remplacé ; la saison d'avant : ";
    ASSERT_TRUE(desk.main.overwritten.starts_with(said)) << desk.main.overwritten;
    EXPECT_EQ(content(desk.folder / desk.main.overwritten.substr(said.size())), amended);
    EXPECT_TRUE(desk.main.quietNotice().starts_with(said));
    desk.main.gp.set("a=b");
    EXPECT_EQ(amendGrandPrix(desk.main, Amendment::byUser), Recording::refused);
}
}
