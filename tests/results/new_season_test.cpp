// The passage to a new season: what comes over, what stays behind, two real seasons with passages between them, and a
// passage that was cut off.
#include "results/new_season.h"

#include "app/sample_data.h"
#include "publicdata/season_recording.h"
#include "results/drivers.h"
#include "results/season_fixture.h"
#include "store/archive.h"
#include "store/watched_calls.h"

#include <set>

using namespace circuidex;
using namespace circuidex::results;
using namespace circuidex::test;

namespace {

// Two seasons in a folder that was empty, as one user would live through them.
class TwoSeasons : public testing::Test {
protected:
    TwoSeasons()
    {
        desk.main.an.set("2003");
        storeScale(season(), {first.scale});
        PublishedCareers careers;
        for (const SampleDriver &driver : first.drivers)
            publicdata::enterDriver(season(), driver, careers.of(driver.name));
        recordAll(first);
    }
    WritableSeason season() const { return desk.main.writableSeason(); }

    void recordAll(const SampleSeason &sample)
    {
        publicdata::enterCalendar(season(), sample);
        for (std::size_t slot = 0; slot < sample.races.size(); ++slot)
            publicdata::recordRace(desk.main, sample, static_cast<int>(slot));
    }
    void pass()
    {
        const auto leader = championshipLeader(season());
        ASSERT_TRUE(leader);
        ASSERT_TRUE(passToNextSeason(desk.main, std::to_string(*leader)));
        clearTotals(season());
    }
    // Most drivers have another number in the new season: each is looked up by his name, a newcomer is typed in.
    void lineUp(const SampleSeason &sample)
    {
        std::map<std::string, DriverRecord> known;
        for (int number = 1; number <= driverSlots; ++number)
            known[season().nom(number)] = readDriver(season(), std::to_string(number));
        for (const SampleDriver &driver : sample.drivers) {
            DriverRecord record = known[driver.name];
            record[driverField("nom")] = driver.name;
            record[driverField("ecurie")] = driver.team;
            record[driverField("age")] = driver.birth;
            record[driverField("natio")] = driver.nationality;
            storeDriver(season(), std::to_string(driver.slot), completed(record, DriverScreen::profile),
                        DriverScreen::profile);
            if (careerSeasons(season(), driver.name).empty())
                storeCareerSeasons(season(), driver.name, "1");
        }
    }

    const SampleSeason first = published("2003"), second = published("2004");
    Desk desk{Desk::empty};
};

TEST_F(TwoSeasons, CarryEveryCareerOn)
{
    PublishedCareers facts;
    facts.race(first);
    for (int number = 1; number <= 24; ++number)
        EXPECT_EQ(careerLine(season(), number), facts.line(season().nom(number))) << number;
    pass();
    EXPECT_EQ(season().stem(), "2004");
    std::set<std::string> carried;
    for (int number = 1; number < carriedSlots; ++number) {
        const std::string name = season().nom(number);
        EXPECT_EQ(careerLine(season(), number), facts.line(name)) << name;
        EXPECT_EQ(season().driver("nbpts", number), "0") << name;
        carried.insert(name);
    }
    EXPECT_EQ(carried.size(), 23u);

    lineUp(second);
    recordAll(second);
    facts.race(second);
    int stayed = 0;
    for (const SampleDriver &driver : second.drivers)
        if (carried.contains(driver.name)) {
            EXPECT_EQ(careerLine(season(), driver.slot), facts.line(driver.name)) << driver.name;
            ++stayed;
        }
    EXPECT_EQ(stayed, 18);
    pass();
    EXPECT_EQ(season().driver("champion", 1), "-1994-1995-2000-2001-2002-2003-2004");
    EXPECT_EQ(careerSeasons(season(), "Michael Schumacher"), "15"); // 12 before, and his third of ours begins
    EXPECT_EQ(careerSeasons(season(), "Felipe Massa"), "2");
}

TEST(NewSeason, TakesOverAndLeavesBehind)
{
    const std::string same = "[N°] nom1; [N°] nom23; [N°] age5; [N°] natio5; [N°] ecurie5; [N°] vic5; [N°] pol5; [N°] "
                             "podiums5; [N°] ptstot5; [N°] nbgp5; [N°] sitweb5; [N°] path5; [N°] pi5; [N°] champion5; "
                             "[N°] lblecuriERenault; [gp] namegp0; [gp] namegp18; [bareme] 1; [bareme] 8";
    const std::string gone =
        "[N°] nom24; [N°] nom25; [N°] nom26; [N°] N°24; [gp] namegp19; [gp] dategpMonaco; [gp] nogp; "
        "[podium] podium1Monaco; [podium] podium8Monaco; [podium] remMonaco; [N°] polMonaco; [N°] "
        "Monacogrilledepart-1; [N°] Renaultecuriepts/gp5; [N°] pneuecurieRenault; [N°] memnom1";
    const std::string values = "[N°] N°5=5; [gp] nooFernando Alonso=5; [N°] nbpts5=0; [N°] nbpts29=0; [N°] "
                               "ptsecurieRenault=0; [gp] picgpMonaco=\\m.jpg; [N°] champion5=-2005";
    Surroundings allPictures;
    allPictures.findPicture = [](const std::string &path) { return path; };
    Desk desk(Desk::sample, '.', allPictures);
    for (const std::string &line : split(
             "2005 [N°] sitweb5=www.fernandoalonso.com; 2005 [N°] path5=\\Photos\\a.jpg; 2005 [N°] pi5=C:\\b.jpg; 2005 "
             "[N°] lblecuriERenault=\\r26.jpg; 2005 [N°] memnom1=5; galerie [gp] picgpMonaco=\\m.jpg; 2005 [podium] "
             "remMonaco=pluie; 2005 [N°] pneuecurieRenault=M; 2006 [podium] podium1Monaco=7",
             ';'))
        desk.write(line);
    const Keys old = desk.keys("2005");
    ASSERT_TRUE(passToNextSeason(desk.main, "5"));
    clearTotals(desk.main.writableSeason());
    for (const std::string &key : split(same, ';')) {
        EXPECT_NE(desk.read("2005 " + key), "") << key;
        EXPECT_EQ(desk.read("2006 " + key), desk.read("2005 " + key)) << key;
    }
    for (const std::string &key : split(gone, ';'))
        EXPECT_EQ(desk.read("2006 " + key), "") << key;
    for (const std::string &line : split(values, ';'))
        EXPECT_EQ(desk.read("2006 " + split(line, '=')[0]), split(line, '=')[1]) << line;
    EXPECT_EQ(changes(old, desk.keys("2005")), Lines{"champion5: - > -2005"});
    EXPECT_EQ(firstFreeNumber(desk.main.season()), 24);
}

TEST(NewSeason, FillsWhatWasEmpty)
{
    Desk desk(Desk::empty);
    desk.write("2005 [N°] nom1=Nouveau");
    desk.write("transit [N°] nom2=Ancien"); // of an earlier passage
    ASSERT_TRUE(passToNextSeason(desk.main, "1"));
    Keys fresh = desk.keys("2006");
    std::erase_if(fresh, [](const auto &key) { return !key.first.ends_with("1"); });
    EXPECT_EQ(changes({}, fresh),
              lines("N°1: - > 1; champion1: - > -2005; ecurie1: - > Aucune; nbpts1: - > 0; nom1: - > "
                    "Nouveau; podiums1: - > 0; pol1: - > 0; ptstot1: - > 0; vic1: - > 0; ecurie11: - "
                    "> Aucune; ecurie21: - > Aucune; nbpts11: - > 0; nbpts21: - > 0; podiums11: - > 0; "
                    "podiums21: - > 0; pol11: - > 0; pol21: - > 0; ptstot11: - > 0; ptstot21: - > 0; "
                    "vic11: - > 0; vic21: - > 0; [bareme] 1: - > 10"));
    EXPECT_EQ(careerSeasons(desk.main.season(), "Nouveau"), "1");
    EXPECT_EQ(desk.read("2006 [N°] nom2"), "");
    EXPECT_EQ(firstFreeNumber(desk.main.season()), 2);
}

TEST(NewSeason, InheritsTheScaleForGood)
{
    Desk desk;
    storeScale(desk.main.writableSeason(), {"12", "9", "7", "5", "4", "3", "2", "1"});
    ASSERT_TRUE(passToNextSeason(desk.main, "5"));
    storeScale(WritableSeason(desk.store, "2005"), {"1", "1", "1", "1", "1", "1", "1", "1"});
    EXPECT_EQ(loadScale(desk.main.season())[2], "9");
    EXPECT_EQ(desk.main.ptspilot[1].text(), "12");
}

TEST(NewSeason, ProposesTheLeader)
{
    struct Case {
        const char *name, *points; // of numbers 1, 2, 3, "-" for nothing
        int leader; // 0 for nobody
    };
    for (const Case &c : {Case{"clear", "10 30 20", 2}, Case{"level", "10 30 30", 2}, Case{"no race", "0 0 0", 1},
                          Case{"half points", "2 2.5 -", 2}, Case{"below zero", "- -2 -1", 3},
                          Case{"nothing", "- - -", 0}, Case{"words", "beaucoup 1 -", 2}}) {
        Desk desk(Desk::empty);
        for (int number = 1; number <= 3; ++number) {
            desk.write("2005 [N°] nom" + std::to_string(number) + "=Pilote");
            desk.write("2005 [N°] nbpts" + std::to_string(number) + "=" +
                       split(c.points, ' ')[static_cast<std::size_t>(number - 1)]);
        }
        desk.write("2005 [N°] nbpts4=99"); // nobody
        EXPECT_EQ(championshipLeader(desk.main.season()).value_or(0), c.leader) << c.name;
    }
}

// No year, or no room for the transit file: nobody is lost and nothing overwritten.
TEST(NewSeason, StaysWhereItCannotPass)
{
    for (const std::string stem : {"essai", "", "1e20"}) {
        Desk desk(Desk::empty);
        desk.main.an.set(stem);
        EXPECT_FALSE(passToNextSeason(desk.main, "1")) << stem;
        EXPECT_EQ(desk.dialogs.said,
                  Lines{"La saison \"" + stem + "\" n'est pas une année : il n'y a pas de saison suivante."});
        EXPECT_EQ(desk.folder.names(), Lines{}) << stem;
    }
    Desk desk;
    std::filesystem::create_directory(desk.folder / "f1transit.ini");
    desk.write("2006 [N°] nom1=Quelqu'un");
    const Keys before = desk.keys("2006");
    EXPECT_FALSE(passToNextSeason(desk.main, "5"));
    EXPECT_EQ(desk.dialogs.said.back(), "Le fichier de transit ne peut pas être écrit : rien n'a été transféré.");
    EXPECT_EQ(changes(before, desk.keys("2006")), Lines{});
    EXPECT_EQ(desk.main.an.text(), "2005");
    EXPECT_EQ(desk.read("2005 [N°] champion5"), "");
}

// Cut off anywhere: whatever the disk refuses from then on, the old season keeps its results, and a second try comes to
// the same new season.
TEST(NewSeason, ThatWasCutOffCanBeTriedAgain)
{
    const auto fresh = [](const Desk &desk) { // but for the paths of pictures, in which each test's own folder stands
        Keys keys = desk.keys("2006");
        std::erase_if(keys, [](const auto &key) { return key.first.starts_with("[gp] picgp"); });
        return keys;
    };
    const auto pass = [](Desk &desk) {
        desk.main.an.set("2005");
        const bool passed = passToNextSeason(desk.main, "5");
        clearTotals(WritableSeason(desk.store, "2006"));
        return passed;
    };
    Desk whole;
    const Keys old = whole.keys("2005");
    int writes = 0;
    {
        const WatchedCalls watched([&](const auto &call) { return writes += call.name == "write", 0; });
        ASSERT_TRUE(pass(whole));
    }
    const Keys expected = fresh(whole);
    int refused = 0;
    for (int last = 0; last < writes; last += writes / 12) {
        Desk desk;
        {
            int count = 0;
            const WatchedCalls cut([&](const auto &call) { return call.name == "write" && count++ >= last ? EIO : 0; });
            const bool passed = pass(desk);
            EXPECT_EQ(desk.main.an.text(), passed ? "2006" : "2005") << last;
            for (const std::string &line :
                 passed ? changes(expected, fresh(desk)) : Lines{}) // only what comes after it
                EXPECT_TRUE(line.starts_with("nbpts") || line.starts_with("ptsecurie") || line.starts_with("[bareme]"))
                    << last << " " << line;
            refused += !passed;
        }
        for (const std::string &line : changes(old, desk.keys("2005")))
            EXPECT_EQ(line, "champion5: - > -2005");
        desk.write("2005 [N°] champion5=");
        ASSERT_TRUE(pass(desk)) << last;
        EXPECT_EQ(changes(expected, fresh(desk)), Lines{}) << last;
    }
    EXPECT_GT(refused, 8);
}

TEST(NewSeason, OverOneWithResultsKeepsACopy)
{
    Desk desk;
    const std::string before = content(desk.folder / "f12004.ini");
    desk.main.an.set("2003");
    ASSERT_TRUE(passToNextSeason(desk.main, "1"));
    const std::string said = "La saison 2004 avait des résultats, elle est remplacée ; sa copie : ";
    ASSERT_TRUE(desk.main.overwritten.starts_with(said)) << desk.main.overwritten;
    EXPECT_EQ(content(desk.folder / desk.main.overwritten.substr(said.size())), before);
    desk.main.an.set("2005");
    ASSERT_TRUE(passToNextSeason(desk.main, "5"));
    EXPECT_EQ(desk.main.overwritten, "");
}
}
