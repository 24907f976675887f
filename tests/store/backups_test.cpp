// What becomes of files that aren't text, of the copies made before the first write, and of a folder opened for
// reading.
#include "store/backups.h"

#include "store/store.h"
#include "store/temporary_folder.h"
#include "store/text.h"
#include "store/watched_calls.h"

#include <gtest/gtest.h>

#include <random>

using namespace circuidex;
using circuidex::test::content;
using circuidex::test::layDown;
using circuidex::test::TemporaryFolder;
namespace fs = std::filesystem;
using Names = std::vector<std::string>;

namespace {

std::string chance(std::size_t size)
{
    std::mt19937 random(1950);
    std::string bytes(size, '\0');
    for (char &byte : bytes)
        byte = static_cast<char>(random());
    return bytes;
}

std::string repeated(std::string_view part, int times)
{
    std::string text;
    for (int i = 0; i < times; ++i)
        text += part;
    return text;
}

const std::string season = "[N\xB0]\r\nnom1=R\xE4ikk\xF6nen\r\n";
const std::string garbage = chance(4000);

TEST(IsText, TellsFilesFromChanceBytes)
{
    struct Case {
        const char *name;
        std::string bytes;
        bool text;
    };
    const Case cases[] = {
        {"nothing", "", true},
        {"a season", season, true},
        {"accents only", repeated("\xE9\xE8\xFF", 500), true},
        {"tabs, breaks and the old end sign", "\t\r\n\f\v\x1A", true},
        {"a few odd bytes in many", season + std::string(2, '\0') + "\x01\x81" + repeated(season, 3), true},
        {"one zero in sixteen bytes", std::string(15, 'a') + '\0', true},
        {"one zero in fifteen bytes", std::string(14, 'a') + '\0', false},
        {"chance", garbage, false},
        {"UTF-16", repeated(std::string("a\0", 2), 50), false},
        {"zeros", std::string(3, '\0'), false},
        {"a block that was never written", repeated(season, 5000) + std::string(512, '\0'), false},
        {"fifteen zeros in a row", repeated(season, 5000) + std::string(15, '\0') + "x", true},
    };
    for (const Case &c : cases)
        EXPECT_EQ(isText(c.bytes), c.text) << c.name;
}

class Protected : public testing::Test {
protected:
    Protected() { store.protect(); }
    fs::path file() const { return folder / "f12005.ini"; }
    void write(const std::string &value) { store.EcrireINI("2005", "a", "k", value); }
    Names asides() const
    {
        Names names = folder.names();
        std::erase_if(names, [](const std::string &name) { return !name.starts_with("f12005.ini."); });
        return names;
    }
    // What the files aside hold, one behind the other.
    std::string aside() const
    {
        std::string all;
        for (const std::string &name : asides())
            all += content(folder / name);
        return all;
    }
    Names runs() const
    {
        Names names;
        std::error_code none;
        for (const auto &run : fs::directory_iterator(folder / "Sauvegardes", none))
            names.push_back(run.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }
    // The program started anew, with one write.
    void run(const std::string &value)
    {
        Store each(folder.path());
        each.protect();
        each.EcrireINI("2005", "a", "k", value);
    }
    fs::path copy(std::size_t run, const char *name) const
    {
        return folder / ("Sauvegardes/" + runs().at(run) + "/" + name);
    }
    void layCopy(const std::string &run, const std::string &bytes)
    {
        fs::create_directories(folder / ("Sauvegardes/" + run));
        layDown(folder / ("Sauvegardes/" + run + "/f12005.ini"), bytes);
    }

    TemporaryFolder folder;
    Store store{folder.path()};
};

// Copies.

TEST_F(Protected, FirstWriteOfARunCopiesAllDataFilesOnce)
{
    layDown(file(), season);
    layDown(folder / "f1ARCHIVES.ini", "[GP]\r\n");
    layDown(folder / "Année", "2005\r\n");
    layDown(folder / "notes.txt", "mine");
    EXPECT_EQ(store.LireINI("2005", "N°", "nom1"), "Räikkönen");
    EXPECT_EQ(runs(), Names()); // reading copies nothing
    write("1");
    write("2");
    store.EcrireINI("ARCHIVES", "a", "k", "1");
    ASSERT_EQ(runs().size(), 1u);
    const fs::path run = folder / "Sauvegardes" / runs()[0];
    EXPECT_EQ(content(run / "f12005.ini"), season);
    EXPECT_EQ(content(run / "f1ARCHIVES.ini"), "[GP]\r\n");
    EXPECT_EQ(content(run / "Année"), "2005\r\n");
    EXPECT_EQ(std::distance(fs::directory_iterator(run), {}), 3);
}

TEST_F(Protected, TenRunsAreKeptAndNothingOfTheUsers)
{
    for (int day = 10; day < 25; ++day)
        layCopy("2004-01-" + std::to_string(day) + "_1200", season);
    fs::create_directories(folder / "Sauvegardes/2004 en papier");
    layDown(file(), season);
    write("1");
    const Names left = runs();
    ASSERT_EQ(left.size(), 11u);
    EXPECT_EQ(left[0], "2004 en papier");
    EXPECT_EQ(left[1], "2004-01-16_1200");
    EXPECT_EQ(left[9], "2004-01-24_1200");
}

// Three runs of one minute have folders of their own; a file that didn't change is in all of them, and stored once.
TEST_F(Protected, UnchangedFileIsCopiedOnceAndAChangedOneAgain)
{
    layDown(folder / "f12004.ini", season);
    fs::last_write_time(folder / "f12004.ini", fs::file_time_type::clock::now() - std::chrono::hours(1));
    for (const char *value : {"1", "2", "3"})
        run(value);
    ASSERT_EQ(runs().size(), 3u);
    EXPECT_TRUE(fs::equivalent(copy(0, "f12004.ini"), copy(2, "f12004.ini")));
    EXPECT_FALSE(fs::equivalent(copy(2, "f12004.ini"), folder / "f12004.ini"));
    EXPECT_EQ(content(copy(1, "f12005.ini")) + content(copy(2, "f12005.ini")), "[a]\r\nk=1\r\n[a]\r\nk=2\r\n");
    EXPECT_EQ(backups::newestGood(folder.path().string(), "f12005.ini")->path, copy(2, "f12005.ini"));
    layDown(folder / "f12004.ini", "[b]\r\n"); // smaller, and of now
    fs::remove(file());
    write("4");
    EXPECT_EQ(content(copy(3, "f12004.ini")) + content(copy(2, "f12004.ini")), "[b]\r\n" + season);
}

// Old seasons are on the disk for years; a start reads the files it shows and no other one.
TEST_F(Protected, ManySeasonsCostNothingUntilTheyAreRead)
{
    for (int year = 1950; year <= 2026; ++year) {
        const fs::path old = folder / ("f1" + std::to_string(year) + ".ini");
        layDown(old, season);
        fs::last_write_time(old, fs::file_time_type::clock::now() - std::chrono::hours(1));
    }
    const auto readsOf = [this](bool writing) {
        int reads = 0;
        Store start(folder.path());
        start.protect();
        const test::WatchedCalls watched(
            [&reads](const test::WatchedCalls::Call &call) { return reads += call.name == "read", 0; });
        EXPECT_EQ(start.LireINI("2005", "N°", "nom1"), "Räikkönen");
        if (writing)
            start.EcrireINI("2005", "a", "k", "1");
        return reads;
    };
    EXPECT_LE(readsOf(false), 2); // the file, and its end
    write("0"); // the first run of all copies the 77
    EXPECT_LE(readsOf(true), 8);
}

TEST_F(Protected, CopyThatCannotBeMadeStopsNoWrite)
{
    layDown(file(), season);
    layDown(folder / "Sauvegardes", "a file of the user's");
    write("1");
    EXPECT_FALSE(store.writesLost());
    EXPECT_EQ(content(file()), season + "[a]\r\nk=1\r\n");
    EXPECT_EQ(content(folder / "Sauvegardes"), "a file of the user's");
}

// Files that aren't text.

TEST_F(Protected, FileThatIsNoTextIsMovedAsideByTheFirstWrite)
{
    layDown(file(), garbage);
    EXPECT_EQ(store.LireINI("2005", "a", "k"), "");
    EXPECT_EQ(content(file()), garbage); // reading moves nothing
    EXPECT_EQ(store.notice(), "f12005.ini n'est pas un fichier texte ; il reste tel quel.");
    write("1");
    write("2");
    EXPECT_EQ(content(file()), "[a]\r\nk=2\r\n");
    ASSERT_EQ(asides().size(), 1u);
    EXPECT_TRUE(asides()[0].starts_with("f12005.ini.20") && asides()[0].ends_with(".abime")) << asides()[0];
    EXPECT_EQ(aside(), garbage);
    EXPECT_EQ(store.notice(), "f12005.ini n'était pas un fichier texte ; mis de côté : " + asides()[0]);
    EXPECT_FALSE(store.writesLost());
    EXPECT_EQ(runs(), Names()); // what is no text is no copy worth having
}

TEST_F(Protected, FileSpoiltWhileTheProgramRunsIsMovedAsideToo)
{
    layDown(file(), season);
    for (const char *value : {"1", "2", "3"}) {
        write(value);
        layDown(file(), garbage);
    }
    write("4");
    EXPECT_EQ(content(file()), "[a]\r\nk=4\r\n");
    EXPECT_EQ(aside(), garbage + garbage + garbage); // in the same minute or not
}

TEST_F(Protected, FailedWriteLeavesTheDamagedFileInItsPlace)
{
    layDown(file(), garbage);
    const auto genuine = disk::calls;
    disk::calls.write = [](int, const void *, std::size_t) -> ssize_t { return errno = ENOSPC, -1; };
    write("1");
    disk::calls = genuine;
    EXPECT_TRUE(store.writesLost());
    EXPECT_EQ(content(file()), garbage);
    EXPECT_EQ(asides(), Names());
}

TEST_F(Protected, YearMarkerThatIsNoTextIsMovedAside)
{
    layDown(folder / "Année", garbage);
    store.yearMarker();
    store.setYearMarker("2005");
    EXPECT_EQ(content(folder / "Année"), "2005\r\n");
    ASSERT_EQ(store.damaged().size(), 1u);
    EXPECT_EQ(content(folder / store.damaged()[0].aside), garbage);
}

// Restoring.

TEST_F(Protected, NewestGoodCopyIsFoundAndRestored)
{
    layCopy("2005-10-15_2000", season);
    layCopy("2005-10-16_0905-02", season + "[b]\r\n");
    layCopy("2005-10-17_2000", garbage);
    layCopy("2005-10-18_2000", "");
    layDown(file(), garbage);
    store.LireINI("2005", "a", "k");
    ASSERT_EQ(store.damaged().size(), 1u);
    ASSERT_TRUE(store.damaged()[0].copy);
    EXPECT_EQ(store.damaged()[0].copy->when, "16/10/2005 à 09:05");
    EXPECT_TRUE(store.restore("f12005.ini"));
    EXPECT_EQ(content(file()), season + "[b]\r\n");
    EXPECT_EQ(store.LireINI("2005", "N°", "nom1"), "Räikkönen");
    ASSERT_EQ(asides().size(), 1u);
    EXPECT_EQ(aside(), garbage);
    EXPECT_EQ(store.notice(), "f12005.ini : copie du 16/10/2005 à 09:05 remise ; l'ancien : " + asides()[0]);
    EXPECT_FALSE(store.restore("f12005.ini")); // nothing left to mend
    EXPECT_TRUE(fs::exists(folder / "Sauvegardes/2005-10-16_0905-02/f12005.ini"));
}

TEST_F(Protected, RestoringAfterAWriteKeepsWhatWasWrittenAside)
{
    layCopy("2005-10-15_2000", season);
    layDown(file(), garbage);
    write("1");
    EXPECT_TRUE(store.restore("f12005.ini"));
    EXPECT_EQ(content(file()), season);
    EXPECT_EQ(aside(), garbage + "[a]\r\nk=1\r\n");
    EXPECT_TRUE(asides().back().ends_with(".remplace"));
}

TEST_F(Protected, WithoutAGoodCopyNothingIsRestored)
{
    layDown(file(), garbage);
    store.LireINI("2005", "a", "k");
    EXPECT_FALSE(store.damaged().at(0).copy);
    EXPECT_FALSE(store.restore("f12005.ini"));
    EXPECT_FALSE(store.restore("f12004.ini"));
    EXPECT_EQ(content(file()), garbage);
}

// Reading only.

TEST_F(Protected, ReadOnlyChangesNothingInTheFolder)
{
    layDown(file(), season);
    layDown(folder / "f12004.ini", garbage);
    layDown(folder / "f12003.ini", "");
    layDown(folder / ".circuidex-f12003.ini.old", season);
    const Names before = folder.names();
    store.setReadOnly();
    EXPECT_EQ(store.LireINI("2005", "N°", "nom1"), "Räikkönen");
    for (const char *stem : {"2003", "2004", "2005", "2006"})
        store.EcrireINI(stem, "a", "k", "1");
    store.setYearMarker("2005");
    store.settle();
    EXPECT_EQ(store.LireINI("2005", "a", "k"), "");
    EXPECT_EQ(folder.names(), before);
    EXPECT_EQ(content(file()), season);
    EXPECT_EQ(content(folder / "f12004.ini"), garbage);
    EXPECT_TRUE(store.writesLost());
    EXPECT_EQ(store.notice(), "Lecture seule : les modifications ne sont pas conservées.");
}

}
