// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/store.h"

#include "store/temporary_folder.h"
#include "store/text.h"
#include "store/watched_calls.h"

#include <gtest/gtest.h>

#include <chrono>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

using namespace circuidex;
using circuidex::test::content;
using circuidex::test::layDown;
using circuidex::test::TemporaryFolder;
using circuidex::test::WatchedCalls;
namespace fs = std::filesystem;
using Names = std::vector<std::string>;

namespace {

const std::string one = "[N\xB0]\r\nk=1\r\n", two = "[N\xB0]\r\nk=2\r\n";

std::string numbered(std::string text, int number)
{
    return text.append(std::to_string(100 + number));
}

class StoreTest : public testing::Test {
protected:
    std::string read(std::string_view key) { return store.LireINI("2005", "N°", key); }
    void write(std::string_view key, std::string_view value) { store.EcrireINI("2005", "N°", key, value); }
    fs::path file() const { return folder / "f12005.ini"; }

    // The names in the folder when nothing is under way.
    Names settledNames()
    {
        store.settle();
        return folder.names();
    }

    TemporaryFolder folder;
    Store store{folder.path()};
};

TEST_F(StoreTest, MissingFileReadsEmptyAndIsNotCreated)
{
    EXPECT_EQ(read("nom1"), "");
    EXPECT_EQ(store.yearMarker(), "");
    EXPECT_EQ(settledNames(), Names());
}

TEST_F(StoreTest, WriteIsInTheFileAtOnce)
{
    write("nom1", "Räikkönen");
    EXPECT_EQ(content(file()), "[N\xB0]\r\nnom1=R\xE4ikk\xF6nen\r\n");
    EXPECT_EQ(read("NOM1"), "Räikkönen");
    store.EcrireINI("2006", "N°", "rem", ""); // empty text creates the file too
    EXPECT_EQ(content(folder / "f12006.ini"), "[N\xB0]\r\nrem=\r\n");
    EXPECT_EQ(settledNames(), Names({"f12005.ini", "f12006.ini"}));
}

TEST_F(StoreTest, ValueIsCutTo254CharactersOnReadingOnly)
{
    std::string accents;
    for (int i = 0; i < 300; ++i)
        accents += "é";
    write("plain", std::string(300, 'x'));
    write("accents", accents);
    EXPECT_EQ(read("plain"), std::string(254, 'x'));
    EXPECT_EQ(read("accents"), accents.substr(0, 2 * 254));
    EXPECT_NE(content(file()).find(std::string(300, 'x')), std::string::npos);
}

TEST_F(StoreTest, LineBreaksAndControlsBecomeBlanks)
{
    write("rem\nMonaco", std::string("a\r\nb\nc\rd\n\ne\0\x1B\tf", 15));
    EXPECT_EQ(read("rem\nMonaco"), "a b c d  e  \tf");
    EXPECT_EQ(content(file()), "[N\xB0]\r\nrem Monaco=a b c d  e  \tf\r\n");
}

TEST_F(StoreTest, StemThatLeavesTheFolderReadsEmptyAndLosesItsWrites)
{
    const fs::path inner = folder / "inner";
    fs::create_directories(inner / "f1a");
    layDown(folder / "x.ini", "[a]\r\nk=1\r\n");
    layDown(inner / "f1a" / "b.ini", "[a]\r\nk=1\r\n");
    Store held(inner);
    for (const std::string &stem : {std::string("../x"), std::string("/../../x"), std::string("a/b"),
                                    std::string("a\\b"), std::string(".."), std::string("x\0y", 3)}) {
        EXPECT_EQ(held.LireINI(stem, "a", "k"), "") << stem;
        held.EcrireINI(stem, "a", "k", "2");
        EXPECT_EQ(held.lostWrites(stem), 1u) << stem;
    }
    EXPECT_EQ(content(folder / "x.ini"), "[a]\r\nk=1\r\n");
    EXPECT_EQ(content(inner / "f1a" / "b.ini"), "[a]\r\nk=1\r\n");
    EXPECT_EQ(std::distance(fs::recursive_directory_iterator(inner), {}), 2);
}

TEST_F(StoreTest, AnyOtherStemIsTakenUpToTheLengthOfAFileName)
{
    const std::string fits(255 - 6, '9'), tooLong(300, '9');
    for (const std::string &stem : {std::string(), std::string("2005"), std::string("année"), std::string("a b"), fits})
        for (const char *value : {"1", "2"}) {
            store.EcrireINI(stem, "a", "k", value);
            EXPECT_EQ(store.LireINI(stem, "a", "k"), value) << stem;
        }
    EXPECT_FALSE(store.writesLost());
    store.EcrireINI(tooLong, "a", "k", "1");
    EXPECT_TRUE(store.writesLost());
    EXPECT_EQ(store.LireINI(tooLong, "a", "k"), "");
    EXPECT_EQ(settledNames(), Names({"f1.ini", "f12005.ini", "f1" + fits + ".ini", "f1a b.ini", "f1année.ini"}));
}

// As they come from a disk that knows no case.
TEST_F(StoreTest, FileInAnotherCaseIsTheFileUnlessThereIsOneInItsOwn)
{
    layDown(folder / "F12005.INI", one);
    layDown(folder / "ANNÉE", "2004\r\n");
    EXPECT_EQ(read("k") + store.yearMarker(), "12004");
    write("k", "2");
    store.setYearMarker("2005");
    EXPECT_EQ(settledNames(), Names({"ANNÉE", "F12005.INI"}));
    EXPECT_EQ(content(folder / "F12005.INI") + content(folder / "ANNÉE"), two + "2005\r\n");
    layDown(file(), one);
    EXPECT_EQ(Store(folder.path()).LireINI("2005", "N°", "k"), "1");
}

// Changes from outside.

TEST_F(StoreTest, OutsideChangeOfTheSameSizeIsSeen)
{
    for (int i = 0; i < 200; ++i) {
        write("k", numbered("a", i));
        layDown(file(), numbered("[N\xB0]\r\nk=b", i) + "\r\n");
        store.newMoment();
        ASSERT_EQ(read("k"), numbered("b", i));
    }
}

TEST_F(StoreTest, MomentEndsByItself)
{
    write("k", "mine");
    EXPECT_EQ(read("k"), "mine");
    layDown(file(), "[N\xB0]\r\nk=other\r\n");
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(2);
    while (read("k") == "mine" && std::chrono::steady_clock::now() < limit)
        std::this_thread::yield();
    EXPECT_EQ(read("k"), "other");
}

TEST_F(StoreTest, OutsideChangeAndRemovalAreSeenAndNotOverwritten)
{
    write("k", "mine");
    layDown(file(), "[N\xB0]\r\nk=other\r\nx=1\r\n");
    write("j", "two");
    EXPECT_EQ(content(file()), "[N\xB0]\r\nk=other\r\nx=1\r\nj=two\r\n");
    EXPECT_EQ(read("k"), "other");
    fs::remove(file());
    store.newMoment();
    EXPECT_EQ(read("k"), "");
    write("j", "new");
    EXPECT_EQ(content(file()), "[N\xB0]\r\nj=new\r\n");
}

// Failures.

TEST_F(StoreTest, FolderThatIsMissingOrAFileLosesTheWrite)
{
    layDown(folder / "plain", "text");
    for (const char *name : {"gone", "plain"}) {
        Store lost(folder / name);
        EXPECT_EQ(lost.LireINI("2005", "a", "k") + lost.yearMarker(), "");
        lost.EcrireINI("2005", "a", "k", "1");
        EXPECT_TRUE(lost.writesLost());
        EXPECT_EQ(lost.LireINI("2005", "a", "k"), "");
        fs::remove(folder / name);
        fs::create_directory(folder / name);
        lost.EcrireINI("2005", "a", "k", "2");
        EXPECT_FALSE(lost.writesLost());
        EXPECT_EQ(content(folder / name / "f12005.ini"), "[a]\r\nk=2\r\n");
    }
}

// Root may write everything, so a test run as root becomes nobody for a while.
class OrdinaryUser {
public:
    explicit OrdinaryUser(const fs::path &folder)
    {
        if (::geteuid() == 0)
            m_changed = ::chown(folder.c_str(), nobody, nobody) == 0 && ::seteuid(nobody) == 0;
    }
    ~OrdinaryUser()
    {
        if (m_changed && ::seteuid(0) != 0)
            ADD_FAILURE() << "still an ordinary user";
    }

private:
    static constexpr uid_t nobody = 65534;
    bool m_changed = false;
};

// A season that may not be written, beside files that may.
TEST_F(StoreTest, LostWriteIsForgottenOnlyWithItsKey)
{
    const OrdinaryUser user(folder.path());
    layDown(file(), one);
    fs::permissions(file(), fs::perms::owner_read);
    write("K", "2");
    write("j", "2");
    store.EcrireINI("ARCHIVES", "a", "k", "1");
    store.setYearMarker("2005");
    EXPECT_EQ(store.notice(), "Attention : les modifications ne sont pas conservées (f12005.ini).");
    EXPECT_EQ(store.lostWrites(), 2u);
    EXPECT_EQ(store.lostWrites("2005"), 2u);
    EXPECT_EQ(store.lostWrites("ARCHIVES"), 0u);
    fs::permissions(file(), fs::perms::owner_all);
    write("x", "3");
    write("k", "4");
    EXPECT_TRUE(store.writesLost());
    write("j", "");
    EXPECT_EQ(store.notice(), "");
    const std::string before = content(file());
    fs::permissions(file(), fs::perms::owner_read);
    write("j", "5");
    EXPECT_TRUE(store.writesLost());
    fs::permissions(file(), fs::perms::owner_write); // not even to be read
    Store blind(folder.path());
    EXPECT_EQ(blind.LireINI("2005", "N°", "k"), "");
    blind.EcrireINI("2005", "N°", "k", "5");
    EXPECT_TRUE(blind.writesLost());
    fs::permissions(file(), fs::perms::owner_all);
    EXPECT_EQ(content(file()), before);
    fs::remove(file());
    layDown(file(), two); // the user mends the file himself
    store.newMoment();
    EXPECT_EQ(read("j"), "");
    EXPECT_FALSE(store.writesLost());
}

TEST_F(StoreTest, WhatIsNoFileOfOursStaysAndLosesTheWrite)
{
    fs::create_directory(folder / "f1folder.ini");
    ASSERT_EQ(::mkfifo((folder / "f1pipe.ini").c_str(), 0600), 0); // would block
    layDown(folder / "f1huge.ini", one);
    fs::resize_file(folder / "f1huge.ini", 65u << 20); // takes no room: the rest is a hole
    fs::create_symlink("f1circle.ini", folder / "f1round.ini");
    fs::create_symlink("f1round.ini", folder / "f1circle.ini");
    const Names names = folder.names();
    for (const std::string stem : {"folder", "pipe", "huge", "round"}) {
        SCOPED_TRACE(stem);
        std::error_code none;
        const fs::path laid = folder / ("f1" + stem + ".ini");
        const auto kind = fs::symlink_status(laid).type();
        const auto size = fs::file_size(laid, none);
        EXPECT_EQ(store.LireINI(stem, "N°", "k"), "");
        store.EcrireINI(stem, "N°", "k", "2");
        EXPECT_EQ(store.lostWrites(stem), 1u);
        EXPECT_EQ(store.LireINI(stem, "N°", "k"), "");
        EXPECT_EQ(fs::symlink_status(laid).type(), kind);
        EXPECT_EQ(fs::file_size(laid, none), size);
    }
    EXPECT_EQ(settledNames(), names);
}

// What belongs to a file.

TEST_F(StoreTest, AccessModeIsKept)
{
    layDown(file(), one);
    ASSERT_EQ(::chmod(file().c_str(), 0640), 0);
    write("k", "2");
    EXPECT_EQ(fs::status(file()).permissions(), fs::perms(0640));
    EXPECT_EQ(read("k"), "2");
}

TEST_F(StoreTest, LinkIsFollowedInTheFolderOrToAFileOfItsName)
{
    struct Case {
        const char *name, *link, *target;
        bool written;
    };
    const Case cases[] = {
        {"in the folder, over a step", "step", "inner/below/season", true},
        {"that leads nowhere yet", "season", nullptr, true},
        {"to a season kept elsewhere", "../elsewhere/f12005.ini", "elsewhere/f12005.ini", true},
        {"to another file", "../.profile", ".profile", false},
        {"to another file, through dots", "below/../../.profile", ".profile", false},
        {"to a file that isn't there yet", "../new", nullptr, false},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        const TemporaryFolder outer;
        const fs::path inner = outer / "inner", file = inner / "f12005.ini";
        fs::create_directories(inner / "below");
        fs::create_directory(outer / "elsewhere");
        fs::create_symlink("below/season", inner / "step");
        if (c.target)
            layDown(outer / c.target, one);
        fs::create_symlink(c.link, file);
        Store linked(inner);
        EXPECT_EQ(linked.LireINI("2005", "N°", "k"), c.target ? "1" : "");
        linked.EcrireINI("2005", "N°", "k", "2");
        linked.settle();
        EXPECT_TRUE(fs::is_symlink(file));
        EXPECT_EQ(linked.writesLost(), !c.written);
        EXPECT_EQ(content(file), c.written ? two : c.target ? one : "");
        EXPECT_FALSE(fs::exists(outer / "new"));
        EXPECT_FALSE(fs::exists(outer / ".circuidex-.profile.old"));
    }
}

// What a race's name may lead to.
TEST_F(StoreTest, OnlyAFileInTheFolderMayBeDeleted)
{
    const TemporaryFolder outer;
    const fs::path inner = outer / "inner";
    fs::create_directories(inner / "below");
    for (const char *name : {"Vacances2005.avi", "inner/Japon2005.avi", "inner/below/Monaco2005.avi"})
        layDown(outer / name, "x");
    fs::create_symlink("../Vacances2005.avi", inner / "lien.avi");
    fs::create_symlink("..", inner / "haut");
    Store program(inner);
    const std::pair<const char *, bool> cases[] = {
        {"Japon2005.avi", true},
        {"below/../Japon2005.avi", true},
        {"haut/inner/below/Monaco2005.avi", true},
        {"../Vacances2005.avi", false},
        {"haut/Vacances2005.avi", false},
        {"lien.avi", false},
        {"below", false},
        {"gone.avi", false},
    };
    for (const bool readOnly : {false, true}) {
        for (const auto &[path, may] : cases)
            EXPECT_EQ(program.mayDelete((inner / path).string()), may && !readOnly) << path;
        program.setReadOnly();
    }
}

// After a kill and after a power cut.

TEST_F(StoreTest, LeftoverOfAKilledWriteDoesNoHarmAndGoes)
{
    layDown(file(), one);
    layDown(folder / ".circuidex-1-1.new", "[N\xB0]\r\nk=hal");
    layDown(folder / ".circuidex-1-2.new", "of a program that runs now");
    layDown(folder / "notes.new", "of the user");
    fs::last_write_time(folder / ".circuidex-1-1.new", fs::file_time_type::clock::now() - std::chrono::hours(1));
    fs::last_write_time(folder / "notes.new", fs::file_time_type::clock::now() - std::chrono::hours(1));
    EXPECT_EQ(read("k"), "1");
    write("k", "2");
    EXPECT_EQ(settledNames(), Names({".circuidex-1-2.new", "f12005.ini", "notes.new"}));
}

TEST_F(StoreTest, StoreSettlesAtItsEnd)
{
    layDown(file(), one);
    Store(folder.path()).EcrireINI("2005", "N°", "k", "2");
    EXPECT_EQ(folder.names(), Names({"f12005.ini"}));
}

// A disk without room: the write stops half way.
int fullDisk(const WatchedCalls::Call &call)
{
    if (call.name != "write")
        return 0;
    call.writePart(call.size / 2);
    return ENOSPC;
}

// The content that was held before a write and the file as it was found: a hollow file comes back.
TEST_F(StoreTest, HeldContentStandsInForAHollowFileOnly)
{
    const std::string settled = "[N\xB0]\r\nk=settled\r\nj=1\r\n", newer = "[N\xB0]\r\nk=newer\r\n";
    struct Case {
        const char *name;
        std::string found, held;
        const char *value;
        std::string seen, written; // by other programs, before and after a write
    };
    const Case cases[] = {
        {"empty", "", settled, "settled", settled, "[N\xB0]\r\nk=2\r\nj=1\r\n"},
        {"zeros", std::string(5000, '\0'), settled, "settled", settled, "[N\xB0]\r\nk=2\r\nj=1\r\n"},
        {"an empty file of the user's", "", "", "", "", two},
        {"held by a program that was killed", newer, settled, "newer", newer, two},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        layDown(file(), c.found);
        layDown(folder / ".circuidex-f12005.ini.old", c.held);
        Store next(folder.path());
        EXPECT_EQ(next.LireINI("2005", "N°", "k"), c.value);
        next.newMoment();
        {
            const WatchedCalls full(fullDisk);
            next.EcrireINI("2005", "N°", "k", "a new value");
        }
        EXPECT_EQ(next.LireINI("2005", "N°", "k"), c.value);
        EXPECT_EQ(content(file()), c.seen);
        next.EcrireINI("2005", "N°", "k", "2");
        EXPECT_EQ(content(file()), c.written);
        next.settle();
        EXPECT_EQ(folder.names(), Names({"f12005.ini"}));
    }
}

// The year marker.

TEST_F(StoreTest, YearMarkerIsTheFirstItemOfTheFirstLine)
{
    const std::pair<const char *, const char *> cases[] = {
        {"2005\r\n", "2005"},
        {"2005", "2005"},
        {"", ""},
        {"\r\n2005\r\n", ""},
        {"2005\n2006\n", "2005"},
        {"2005,2006\r\n", "2005"},
        {"\"2005\"\r\n", "2005"},
        {"\"a,b\",c\r\n", "a,b"},
        {"\"2005\r\n", "2005"}, // a quote without end
        {"\"", ""},
        {" 2005 \t\r\n", "2005"},
        {"ann\xE9\x65\r\n", "année"},
        {"\xEF\xBB\xBF"
         "2005\r\n",
         "2005"},
    };
    for (const auto &[bytes, year] : cases) {
        layDown(folder / "Année", bytes);
        EXPECT_EQ(Store(folder.path()).yearMarker(), year) << bytes;
    }
}

TEST_F(StoreTest, YearMarkerIsOneLineAndReplacesTheFile)
{
    layDown(folder / "Année", "1999\r\nand more\r\n");
    store.setYearMarker("2005");
    EXPECT_EQ(content(folder / "Année"), "2005\r\n");
    store.setYearMarker("été\n2006");
    EXPECT_EQ(content(folder / "Année"), "\xE9t\xE9 2006\r\n");
    EXPECT_EQ(store.yearMarker(), "été 2006");
    EXPECT_EQ(settledNames(), Names({"Année"}));
    fs::remove(folder / "Année");
    fs::create_directory(folder / "Année");
    store.setYearMarker("2005");
    EXPECT_EQ(store.yearMarker(), "");
    EXPECT_TRUE(store.writesLost());
}

// Held, a file takes all that is written meanwhile or nothing.
TEST_F(StoreTest, HeldFileIsWrittenAsAWhole)
{
    write("k", "1");
    for (const auto &[refused, kept] : {std::pair(-1, true), std::pair(0, false), std::pair(1, false)}) {
        store.hold("2005");
        int writes = 0;
        const WatchedCalls watched([&](const WatchedCalls::Call &) { return writes == refused ? EIO : 0; });
        for (; writes < 2; ++writes) {
            store.newMoment();
            write(writes == 0 ? "k" : "j", "2");
        }
        store.settle();
        EXPECT_EQ(content(file()), one);
        writes = refused == 1 ? 1 : 2;
        EXPECT_EQ(store.release("2005"), kept);
        writes = 2;
        EXPECT_EQ(read("k") + read("j"), kept ? "22" : "1");
        fs::remove(file());
        layDown(file(), one);
    }
}

// A large file is written once an action; until then it is the one before the action, and reads show the new values.
TEST_F(StoreTest, LargeFileIsWrittenAsAWholeAtTheEndOfAnAction)
{
    const std::string rest = "[notes]\r\nn=" + std::string(Store::large, 'x') + "\r\n";
    const std::string before = "[N°]\r\nk=1\r\n" + rest;
    layDown(file(), toCodePage(before));
    write("k", "2");
    write("j", "3");
    EXPECT_EQ(content(file()), toCodePage(before));
    EXPECT_EQ(read("k") + read("j"), "23");
    store.flush();
    EXPECT_EQ(content(file()), toCodePage("[N°]\r\nk=2\r\nj=3\r\n" + rest));
    write("j", "4");
    fs::remove(file());
    layDown(file(), toCodePage("[N°]\r\nk=another program\r\n" + rest));
    store.settle();
    EXPECT_EQ(content(file()), toCodePage("[N°]\r\nk=another program\r\nj=4\r\n" + rest));
    {
        const WatchedCalls full([](const WatchedCalls::Call &call) { return call.name == "write" ? ENOSPC : 0; });
        write("j", "5");
        write("k", "5");
        EXPECT_EQ(store.lostWrites("2005"), 0u);
        store.flush();
        EXPECT_EQ(store.lostWrites("2005"), 2u);
        EXPECT_TRUE(store.writesLost());
    }
    EXPECT_EQ(read("j") + read("k"), "4another program");
    write("j", "6");
    write("k", "6");
    store.flush();
    EXPECT_FALSE(store.writesLost());
}
}
