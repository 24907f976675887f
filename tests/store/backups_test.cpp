// SPDX-License-Identifier: GPL-3.0-or-later
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
            if (run.is_directory())
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
    layDown(folder / "f1ARCHIVES.ini", "[GP]\r\nNO=\r\n");
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
    EXPECT_EQ(content(run / "f1ARCHIVES.ini"), "[GP]\r\nNO=\r\n");
    EXPECT_EQ(content(run / "Année"), "2005\r\n");
    EXPECT_EQ(std::distance(fs::directory_iterator(run), {}), 3 + 1); // and its number
}

TEST_F(Protected, TenRunsAreKeptAndNothingOfTheUsers)
{
    for (int day = 10; day < 25; ++day)
        layCopy("2004-01-" + std::to_string(day) + "_1200", season);
    fs::create_directories(folder / "Sauvegardes/2004 en papier");
    fs::create_directories(folder / "Documents");
    layDown(folder / "Documents/lettre.txt", "mine");
    fs::create_directory_symlink("../Documents", folder / "Sauvegardes/2003-01-01_1200");
    layDown(file(), season);
    write("1");
    const Names left = runs();
    ASSERT_EQ(left.size(), 12u);
    EXPECT_EQ(left[1], "2004 en papier");
    EXPECT_EQ(left[2], "2004-01-16_1200");
    EXPECT_EQ(left[10], "2004-01-24_1200");
    EXPECT_EQ(content(folder / "Documents/lettre.txt"), "mine");
}

// Seasons that nobody opens: one becomes damaged, one empty, one is deleted. Meanwhile the clock runs ahead, and is
// set.
TEST_F(Protected, LastGoodCopyOutlivesTenRunsAndAWrongClock)
{
    for (const char *name : {"f12002.ini", "f12003.ini", "f12004.ini"})
        layDown(folder / name, season);
    run("0");
    layDown(folder / "f12002.ini", garbage);
    layDown(folder / "f12003.ini", "");
    fs::remove(folder / "f12004.ini");
    for (int i = 1; i <= 12; ++i)
        run(std::to_string(i));
    const auto good = [this](const char *name) {
        const auto found = backups::newestGood(folder.path().string(), name);
        return found ? content(found->path) : "none";
    };
    for (const char *name : {"f12002.ini", "f12003.ini", "f12004.ini"})
        EXPECT_EQ(good(name), season) << name;
    EXPECT_EQ(good("f12005.ini"), "[a]\r\nk=11\r\n");
    EXPECT_EQ(runs().size(), 11u);
    fs::remove_all(folder / "Sauvegardes");
    layCopy("2099-01-01_0000", season);
    layCopy("2005-10-15_2000", "[a]\r\nk=newer\r\n");
    layDown(folder / "Sauvegardes/2099-01-01_0000/.rang", "7");
    layDown(folder / "Sauvegardes/2005-10-15_2000/.rang", "8");
    EXPECT_EQ(good("f12005.ini"), "[a]\r\nk=newer\r\n");
    for (int i = 13; i <= 15; ++i)
        run(std::to_string(i));
    EXPECT_EQ(good("f12005.ini"), "[a]\r\nk=14\r\n");
}

TEST_F(Protected, HalfMadeSetOfAKilledRunIsNoSet)
{
    layDown(file(), season);
    layCopy(".en-cours-1", "[a]\r\nk=half\r\n");
    layDown(folder / "Sauvegardes/.en-cours-1/f12004.ini", season);
    EXPECT_FALSE(backups::newestGood(folder.path().string(), "f12004.ini"));
    write("1");
    ASSERT_EQ(runs().size(), 1u);
    EXPECT_EQ(content(copy(0, "f12005.ini")), season);
}

TEST_F(Protected, CopyAsItIsStaysAndTellsWhereItLies)
{
    for (const std::string &bytes : {season, garbage}) {
        layDown(folder / "F12006.INI", bytes);
        const std::string where = store.keepCopy("2006");
        EXPECT_TRUE(where.starts_with("Sauvegardes/F12006.20") && where.ends_with(".INI")) << where;
        EXPECT_EQ(content(folder / where), bytes);
    }
    EXPECT_EQ(store.keepCopy("2007") + store.keepCopy("../2006"), "");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder / "Sauvegardes"), {}), 2);
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
    layDown(folder / "f12004.ini", "[b]\r\nc=\r\n"); // smaller, and of now
    fs::remove(file());
    write("4");
    EXPECT_EQ(content(copy(3, "f12004.ini")) + content(copy(2, "f12004.ini")), "[b]\r\nc=\r\n" + season);
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
    const TemporaryFolder elsewhere;
    fs::create_directory_symlink(elsewhere.path(), folder / "Sauvegardes"); // of a stranger: nothing is written there
    write("1");
    EXPECT_EQ(elsewhere.names(), Names());
    EXPECT_EQ(store.keepCopy("2005"), "");
    fs::remove(folder / "Sauvegardes");
    layDown(folder / "Sauvegardes", "a file of the user's");
    run("2");
    EXPECT_EQ(content(file()), season + "[a]\r\nk=2\r\n");
    EXPECT_EQ(content(folder / "Sauvegardes"), "a file of the user's");
}

// Damaged files.

struct Damage {
    const char *name;
    std::string bytes, what;
};
const std::string inTwoCodings = "[N\xC2\xB0]\r\nnom1=R\xC3\xA4ikk\r\n[N\xB0]\r\nnbpts1=8\r\n";
const Damage damages[] = {
    {"no text", garbage, "ce n'est plus un fichier texte"},
    {"zeros", std::string(5000, '\0'), "ce n'est plus un fichier texte"},
    {"emptied", "", "il est vide"},
    {"a section without keys", "[N\xB0]\r\n", "il est vide"},
    {"in two codings", inTwoCodings, "il mêle deux codages de texte"},
};

// The user is asked; until he says yes, whatever is written, the file stays as it is, also for the next start.
TEST_F(Protected, DamagedFileWithACopyTakesNoWritesUntilItIsRestored)
{
    for (const Damage &each : damages)
        for (const bool whileRunning : {false, true}) {
            SCOPED_TRACE(each.name);
            for (const std::string &name : folder.names())
                fs::remove_all(folder / name);
            layCopy("2005-10-15_2000", season);
            layCopy("2005-10-16_0905-02", season + "[b]\r\nk=1\r\n");
            layCopy("2005-10-17_2000", garbage);
            layCopy("2005-10-18_2000", "");
            layDown(file(), season);
            Store damaged(folder.path());
            damaged.protect();
            if (whileRunning)
                damaged.LireINI("2005", "a", "k");
            layDown(file(), each.bytes);
            damaged.newMoment();
            damaged.EcrireINI("2005", "a", "k", "1");
            EXPECT_EQ(content(file()), each.bytes);
            EXPECT_EQ(asides(), Names());
            EXPECT_TRUE(damaged.writesLost());
            EXPECT_EQ(damaged.notice(), "f12005.ini est abîmé : " + each.what + " ; il reste tel quel.");
            ASSERT_EQ(damaged.damaged().size(), 1u);
            EXPECT_EQ(damaged.damaged()[0].copy->when, "16/10/2005 à 09:05");
            EXPECT_TRUE(damaged.restore("f12005.ini"));
            EXPECT_EQ(content(file()), season + "[b]\r\nk=1\r\n");
            EXPECT_EQ(damaged.LireINI("2005", "N°", "nom1"), "Räikkönen");
            EXPECT_FALSE(damaged.writesLost());
            ASSERT_EQ(asides().size(), 1u);
            EXPECT_EQ(aside(), each.bytes);
            EXPECT_EQ(damaged.notice(), "f12005.ini : copie du 16/10/2005 à 09:05 remise ; l'ancien : " + asides()[0]);
            EXPECT_FALSE(damaged.restore("f12005.ini")); // nothing left to mend
            damaged.EcrireINI("2005", "b", "k", "2");
            EXPECT_EQ(content(file()), season + "[b]\r\nk=2\r\n");
            EXPECT_EQ(content(folder / "Sauvegardes/2005-10-16_0905-02/f12005.ini"), season + "[b]\r\nk=1\r\n");
        }
}

TEST_F(Protected, DamageThatTheUserMendsIsForgotten)
{
    layCopy("2005-10-15_2000", season);
    for (const bool removed : {false, true}) {
        layDown(file(), "");
        store.newMoment();
        EXPECT_EQ(store.LireINI("2005", "N°", "nom1"), "");
        if (removed)
            fs::remove(file());
        else
            layDown(file(), season);
        EXPECT_TRUE(removed || store.restore("f12005.ini")); // there is nothing to do
        write("1");
        EXPECT_EQ(content(file()), (removed ? "" : season) + "[a]\r\nk=1\r\n");
        EXPECT_EQ(store.notice(), "");
        layDown(file(), "");
    }
}

TEST_F(Protected, WithoutACopyNothingIsRestoredAndNothingOverwritten)
{
    for (const Damage &each : damages) {
        SCOPED_TRACE(each.name);
        const TemporaryFolder place;
        const fs::path damaged = place / "f12005.ini";
        layDown(damaged, each.bytes);
        Store held(place.path());
        held.protect();
        EXPECT_EQ(held.LireINI("2005", "N°", "nbpts1"), "");
        EXPECT_FALSE(held.restore("f12005.ini"));
        EXPECT_EQ(content(damaged), each.bytes);
        {
            const test::WatchedCalls full(
                [](const test::WatchedCalls::Call &call) { return call.name == "write" ? ENOSPC : 0; });
            held.EcrireINI("2005", "a", "k", "1");
        }
        held.settle();
        EXPECT_EQ(place.names().back(), "f12005.ini"); // behind "Sauvegardes"
        EXPECT_EQ(content(damaged), each.bytes);
        held.EcrireINI("2005", "a", "k", "1");
        const bool moved = each.what.starts_with("ce"), refused = each.what.starts_with("il mêle");
        EXPECT_EQ(content(damaged), refused ? each.bytes : moved ? "[a]\r\nk=1\r\n" : each.bytes + "[a]\r\nk=1\r\n");
        EXPECT_EQ(held.writesLost(), refused);
        if (moved) {
            const std::string aside = held.damaged().at(0).aside;
            EXPECT_EQ(content(place / aside), each.bytes);
            EXPECT_TRUE(aside.starts_with("f12005.ini.20") && aside.ends_with(".abime")) << aside;
            EXPECT_EQ(held.notice(), "f12005.ini était abîmé ; mis de côté : " + aside);
        }
    }
}

TEST_F(Protected, YearMarkerIsJudgedToo)
{
    layDown(folder / "Année", garbage);
    store.yearMarker();
    store.setYearMarker("2005");
    EXPECT_EQ(content(folder / "Année"), "2005\r\n");
    ASSERT_EQ(store.damaged().size(), 1u);
    EXPECT_EQ(content(folder / store.damaged()[0].aside), garbage);
    store.settle();
    run("1"); // copies it
    layDown(folder / "Année", "");
    Store next(folder.path());
    next.protect();
    EXPECT_EQ(next.yearMarker(), "");
    next.setYearMarker("2004");
    EXPECT_EQ(content(folder / "Année"), "");
    EXPECT_TRUE(next.restore("Année"));
    EXPECT_EQ(next.yearMarker(), "2005");
}

// Read right, and written in the code page, with what an editor left kept as it is.
TEST_F(Protected, SeasonThatAnEditorSavedAsUtf8IsRead)
{
    const std::string saved = "\xEF\xBB\xBF[N\xC2\xB0]\r\nnom1=R\xC3\xA4ikk\xC3\xB6nen\r\n";
    layDown(file(), saved);
    EXPECT_EQ(store.LireINI("2005", "N°", "nom1"), "Räikkönen");
    EXPECT_EQ(content(file()), saved);
    store.EcrireINI("2005", "N°", "nom2", "é");
    EXPECT_EQ(content(file()), season + "nom2=\xE9\r\n");
    Names copies;
    for (const auto &each : fs::directory_iterator(folder / "Sauvegardes"))
        if (each.is_regular_file())
            copies.push_back(content(each.path()));
    EXPECT_EQ(copies, Names({saved}));
    store.EcrireINI("x", "a", "k", "Ã©"); // our own, by chance
    store.newMoment();
    EXPECT_EQ(store.LireINI("x", "a", "k"), "Ã©");
}

// Reading only.

TEST_F(Protected, ReadOnlyChangesNothingInTheFolder)
{
    layDown(file(), season);
    layDown(folder / "f12004.ini", garbage);
    layDown(folder / "f12003.ini", "");
    layDown(folder / ".circuidex-f12003.ini.old", season);
    layCopy("2005-10-15_2000", season);
    const Names before = folder.names();
    store.setReadOnly();
    EXPECT_EQ(store.LireINI("2005", "N°", "nom1"), "Räikkönen");
    for (const char *stem : {"2003", "2004", "2005", "2006"})
        store.EcrireINI(stem, "a", "k", "1");
    store.setYearMarker("2005");
    store.settle();
    EXPECT_FALSE(store.restore("f12004.ini"));
    EXPECT_EQ(store.keepCopy("2005"), "");
    EXPECT_EQ(store.LireINI("2005", "a", "k"), "");
    EXPECT_EQ(folder.names(), before);
    EXPECT_EQ(content(file()), season);
    EXPECT_EQ(content(folder / "f12004.ini"), garbage);
    EXPECT_TRUE(store.writesLost());
    EXPECT_EQ(store.notice(), "Lecture seule : les modifications ne sont pas conservées.");
}

}
