// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/import_command.h"
#include "platform/folder_lock.h"
#include "publicdata/comparison.h"
#include "publicdata/import.h"
#include "publicdata/release.h"
#include "publicdata/season_recording.h"
#include "publicdata/swap_in.h"
#include "results/season_fixture.h"
#include "statistics/season_statistics.h"
#include "store/history.h"

using namespace circuidex;
using namespace circuidex::publicdata;
using namespace circuidex::test;

namespace {

std::string imported(Store &store, const std::vector<int> &chosen, bool replace = false)
{
    std::vector<ImportedSeason> seasons;
    for (const int year : chosen)
        seasons.push_back({*planSeason(release(), year), replace});
    Import import(store, release(), std::move(seasons));
    while (import.step()) { }
    EXPECT_EQ(import.done(), import.failure().empty());
    store.newMoment();
    return import.failure();
}

// All files of a folder with their content.
std::map<std::string, std::string> filesOf(const TemporaryFolder &folder)
{
    std::map<std::string, std::string> files;
    for (const auto &entry : std::filesystem::recursive_directory_iterator(folder.path()))
        if (entry.is_regular_file())
            files[entry.path().string()] = content(entry.path());
    return files;
}

bool isCareer(const std::string &key)
{
    for (const char *const prefix :
         {"[N°] nbgp", "[N°] vic", "[N°] ptstot", "[N°] podiums", "[N°] champion", "[gp] noo"})
        if (key.starts_with(prefix))
            return true;
    return key.starts_with("[N°] pol") && std::isdigit(static_cast<unsigned char>(key.back()));
}

TEST(Import, RecordsWhatTheSampleSeasonsHold)
{
    Desk sample, desk(Desk::empty);
    ASSERT_EQ(imported(desk.store, {2003, 2004}), "");
    for (const std::string year : {"2003", "2004"}) {
        Keys expected = sample.keys(year), held = desk.keys(year);
        for (Keys *keys : {&expected, &held}) // the sample's careers know the seasons that the small release hasn't got
            std::erase_if(*keys, [](const auto &each) { return isCareer(each.first); });
        EXPECT_GT(expected.size(), 800u);
        EXPECT_EQ(changes(expected, held), Lines{}) << year;
    }
    EXPECT_EQ(content(desk.folder / "Photos/descriptioncircuits/Chine.txt"),
              content(std::filesystem::path(CIRCUIDEX_SAMPLE) / "Photos/descriptioncircuits/Chine.txt"));
    EXPECT_EQ(desk.read("ARCHIVES [GP] Monaco2004"), "Jarno Trulli");
    EXPECT_EQ(desk.read("ARCHIVES [GP] Monaco1957"), "Juan Manuel Fangio");
    EXPECT_EQ(desk.read("ARCHIVES [GP] Monaco"), "Charles Leclerc"); // of the last year that is known
    EXPECT_EQ(desk.read("ARCHIVES [GP] championdumd2024"), "Max Verstappen");
    EXPECT_EQ(desk.read("ARCHIVES [record] nomvic1") + desk.read("ARCHIVES [record] vic1"), "Michael Schumacher32");
    EXPECT_FALSE(std::filesystem::exists(desk.folder / std::string(importFolder)));
}

// The points of all drivers after every round, as the championship published them.
TEST(Import, GivesTheOfficialPointsAfterEveryRound)
{
    for (const int year : {1991, 1997, 2003, 2004, 2005, 2006}) {
        const PlannedSeason plan = *planSeason(release(), year);
        const Championship &championship = *release().championship(year);
        Desk desk(Desk::empty, ',');
        desk.main.an.set(std::to_string(year));
        const WritableSeason season = desk.main.writableSeason();
        season.store().hold(season.stem());
        season.store().hold("ARCHIVES");
        storeScale(season, scaleOf(plan.season, 1, season.numbers()));
        for (std::size_t i = 0; i < plan.drivers.size(); ++i)
            enterDriver(season, plan.season.drivers[i], plan.careers[i]);
        for (std::size_t race = 0; race < plan.season.races.size(); ++race) {
            ASSERT_TRUE(recordRace(desk.main, plan.season, static_cast<int>(race)));
            for (const DriverPoints &each : championship.races[race].standings)
                if (const auto slot = plan.slotOf(each.driver)) {
                    EXPECT_EQ(desk.store.numbers().value(season.driver("nbpts", *slot)), each.points)
                        << year << " " << race << " " << season.nom(*slot);
                }
        }
    }
}

// Each season begins with the totals of all races before it, and a race more counts as the program counts it.
TEST(Import, ChainsCareers)
{
    Desk desk(Desk::empty);
    for (const int year : {1991, 1997, 2003, 2004, 2005})
        ASSERT_EQ(imported(desk.store, {year}), "");
    int compared = 0;
    for (const int year : {1997, 2003, 2004, 2005}) {
        const std::vector<Career> before = careersBefore(release(), year), after = careersBefore(release(), year + 1);
        const PlannedSeason plan = *planSeason(release(), year);
        const WritableSeason season(desk.store, std::to_string(year));
        for (std::size_t i = 0; i < plan.drivers.size(); ++i) {
            const int slot = static_cast<int>(i) + 1;
            const Career &was = before[static_cast<std::size_t>(plan.drivers[i])],
                         &is = after[static_cast<std::size_t>(plan.drivers[i])];
            const std::string starts = std::to_string(was.starts + static_cast<int>(plan.season.races.size()));
            EXPECT_EQ(careerLine(season, slot),
                      starts + " GP, " + std::to_string(is.wins) + " wins, " + std::to_string(is.poles) + " poles, " +
                          std::to_string(is.podiums) + " podiums, " + is.points)
                << year << " " << is.name;
            EXPECT_EQ(careerSeasons(season, is.name), std::to_string(was.seasons + 1));
            ++compared;
        }
    }
    EXPECT_EQ(compared, 101);
    EXPECT_EQ(desk.read("2005 [N°] champion5"), "-2005");
    EXPECT_EQ(desk.read("2005 [N°] champion1"), "-2003-2004");
}

TEST(Import, IsOneUndo)
{
    Desk desk;
    desk.store.keepHistory();
    const auto files = [&] {
        auto all = filesOf(desk.folder);
        std::erase_if(all, [](const auto &each) {
            return each.first.find("Sauvegardes") != std::string::npos ||
                each.first.find("Historique") != std::string::npos;
        });
        return all;
    };
    const auto before = files();
    ASSERT_EQ(imported(desk.store, {1991, 2004}, true), "");
    const auto after = files();
    desk.store.settle();
    EXPECT_EQ(desk.store.history().undoable(), "import de 1991, 2004");
    EXPECT_EQ(desk.store.undo(), "");
    EXPECT_EQ(files(), before);
    EXPECT_EQ(desk.store.redo(), "");
    EXPECT_EQ(files(), after);
}

TEST(Import, TakesADamagedSeasonForOneThatExists)
{
    const TemporaryFolder folder;
    layDown(folder / "f11991.ini", "[ecran]\r\nresolutionX=1280\r\n"); // of a start
    layDown(folder / "f11997.ini", std::string("PK\x03\x04") + std::string(300, '\0'));
    Store store(folder.path());
    store.protect();
    EXPECT_FALSE(seasonExists(store, 1991));
    EXPECT_TRUE(seasonExists(store, 1997));
    EXPECT_FALSE(seasonExists(store, 2004));
}

TEST(Import, ReplacesNothingUnasked)
{
    Desk desk;
    desk.write("ARCHIVES [GP] Monaco1957=Quelqu'un");
    desk.store.settle();
    const auto before = filesOf(desk.folder);
    EXPECT_NE(imported(desk.store, {1991, 2004}).find("existe déjà"), std::string::npos);
    {
        Import import(desk.store, release(), {{*planSeason(release(), 1991), false}});
        for (int i = 0; i < 9; ++i)
            EXPECT_TRUE(import.step());
        EXPECT_EQ(import.doing(), "1991 : Grande bretagne");
        import.cancel();
        EXPECT_FALSE(import.step());
    }
    EXPECT_EQ(filesOf(desk.folder), before);
    ASSERT_EQ(imported(desk.store, {2004}, true), "");
    const TemporaryFolder &folder = desk.folder;
    int copies = 0;
    for (const auto &entry : std::filesystem::directory_iterator(folder / "Sauvegardes"))
        copies += content(entry.path()) == before.at((folder / "f12004.ini").string());
    EXPECT_EQ(copies, 1);
    EXPECT_EQ(desk.read("ARCHIVES [GP] Monaco1957"), "Quelqu'un");
}

TEST(Import, TakesNothingFromAFullDisk)
{
    Desk desk;
    const auto before = filesOf(desk.folder);
    static int left;
    left = 5;
    const auto kept = disk::calls.write;
    disk::calls.write = [](int file, const void *bytes, std::size_t size) -> ssize_t {
        errno = ENOSPC;
        return --left < 0 ? -1 : ::write(file, bytes, size);
    };
    const std::string failure = imported(desk.store, {1991, 1997});
    disk::calls.write = kept;
    EXPECT_NE(failure, "");
    EXPECT_EQ(filesOf(desk.folder), before);
    EXPECT_EQ(imported(desk.store, {1991, 1997}), "");
}

TEST(ImportCommand, TellsAndImports)
{
    Desk desk;
    Lines told;
    const auto ordered = [&](const Lines &chosen, bool replace = false, const std::string &file = releaseFile) {
        told.clear();
        return importSeasons(desk.folder.path(), Numbers(), {file, chosen, replace},
                             [&](const std::string &line) { told.push_back(line); });
    };
    const auto before = filesOf(desk.folder);
    EXPECT_NE(ordered({"2004"}).find("existe déjà"), std::string::npos);
    EXPECT_NE(ordered({"1992"}).find("n'ont pas de saison"), std::string::npos);
    EXPECT_NE(ordered({"1991", "1991"}).find("deux fois"), std::string::npos);
    EXPECT_NE(ordered({"1991"}, false, "/rien").find("pas lisible"), std::string::npos);
    {
        const FolderLock lock(desk.folder.path());
        EXPECT_NE(ordered({"1991"}).find("est ouvert"), std::string::npos);
    }
    std::filesystem::remove(desk.folder / ".circuidex-verrou");
    EXPECT_EQ(filesOf(desk.folder), before);
    ASSERT_EQ(ordered({"1991", "2004"}, true), "");
    EXPECT_EQ(told.front(), "1991 : 16 courses, 26 pilotes");
    EXPECT_EQ(std::count(told.begin(), told.end(), "2004 : Monaco"), 1);
    desk.store.newMoment();
    EXPECT_EQ(desk.read("1991 [N°] nbpts1"), "96");
}

}
