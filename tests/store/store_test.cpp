#include "store/store.h"

#include "store/temporary_folder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace circuidex;
using circuidex::test::content;
using circuidex::test::layDown;
namespace fs = std::filesystem;
using Names = std::vector<std::string>;

namespace {

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

    circuidex::test::TemporaryFolder folder;
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
    EXPECT_EQ(settledNames(), Names({"f12005.ini"}));
}

TEST_F(StoreTest, FirstWriteOfEmptyTextCreatesTheFile)
{
    write("rem", "");
    EXPECT_EQ(content(file()), "[N\xB0]\r\nrem=\r\n");
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

TEST_F(StoreTest, LineBreaksBecomeBlanks)
{
    write("rem\nMonaco", "a\r\nb\nc\rd\n\ne");
    EXPECT_EQ(read("rem\nMonaco"), "a b c d  e");
    EXPECT_EQ(content(file()), "[N\xB0]\r\nrem Monaco=a b c d  e\r\n");
}

TEST_F(StoreTest, SameValueWritesNothing)
{
    layDown(file(), "[N\xB0]\nnom1=Alonso");
    struct stat before, after;
    ASSERT_EQ(::stat(file().c_str(), &before), 0);
    write("nom1", "Alonso");
    ASSERT_EQ(::stat(file().c_str(), &after), 0);
    EXPECT_EQ(before.st_ino, after.st_ino);
    EXPECT_EQ(folder.names(), Names({"f12005.ini"}));
}

TEST_F(StoreTest, StemThatLeavesTheFolderReadsEmptyAndWritesNothing)
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
        EXPECT_FALSE(held.writesLost()) << stem;
    }
    EXPECT_EQ(content(folder / "x.ini"), "[a]\r\nk=1\r\n");
    EXPECT_EQ(content(inner / "f1a" / "b.ini"), "[a]\r\nk=1\r\n");
    EXPECT_EQ(std::distance(fs::recursive_directory_iterator(inner), {}), 2);
}

TEST_F(StoreTest, AnyOtherStemIsTaken)
{
    for (const char *stem : {"", "2005", "année", "a b"}) {
        store.EcrireINI(stem, "a", "k", "1");
        EXPECT_EQ(store.LireINI(stem, "a", "k"), "1") << stem;
    }
    EXPECT_EQ(settledNames(), Names({"f1.ini", "f12005.ini", "f1a b.ini", "f1année.ini"}));
}

TEST_F(StoreTest, StemLongerThanAFileNameLosesTheWrite)
{
    const std::string stem(300, '9');
    EXPECT_EQ(store.LireINI(stem, "a", "k"), "");
    store.EcrireINI(stem, "a", "k", "1");
    EXPECT_TRUE(store.writesLost());
    EXPECT_EQ(settledNames(), Names());
}

TEST_F(StoreTest, LongestStemThatFitsWorks)
{
    const std::string stem(255 - 6, '9');
    store.EcrireINI(stem, "a", "k", "1");
    store.EcrireINI(stem, "a", "k", "2");
    EXPECT_FALSE(store.writesLost());
    EXPECT_EQ(settledNames(), Names({"f1" + stem + ".ini"}));
}

// Changes from outside.

TEST_F(StoreTest, OutsideChangeIsSeenInTheNextMoment)
{
    write("k", "mine");
    layDown(file(), "[N\xB0]\r\nk=other\r\n");
    store.newMoment();
    EXPECT_EQ(read("k"), "other");
}

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

TEST_F(StoreTest, OutsideChangeIsNotOverwritten)
{
    write("k", "mine");
    layDown(file(), "[N\xB0]\r\nk=other\r\nx=1\r\n");
    write("j", "two");
    EXPECT_EQ(content(file()), "[N\xB0]\r\nk=other\r\nx=1\r\nj=two\r\n");
    EXPECT_EQ(read("k"), "other");
}

TEST_F(StoreTest, OutsideRemovalIsSeen)
{
    write("k", "mine");
    fs::remove(file());
    store.newMoment();
    EXPECT_EQ(read("k"), "");
    write("j", "new");
    EXPECT_EQ(content(file()), "[N\xB0]\r\nj=new\r\n");
}

TEST_F(StoreTest, TwoStoresSeeEachOther)
{
    Store other(folder.path());
    for (int i = 0; i < 50; ++i) {
        write(numbered("k", i), "1");
        other.EcrireINI("2005", "N°", numbered("o", i), "2");
    }
    store.newMoment();
    other.newMoment();
    EXPECT_EQ(read("o149") + other.LireINI("2005", "N°", "k149"), "21");
    EXPECT_EQ(read("o100") + other.LireINI("2005", "N°", "k100"), "21");
}

// Another program that reads while we write never finds half a file.
TEST_F(StoreTest, ReaderNeverSeesHalfAFile)
{
    write("head", std::string(20'000, 'x'));
    write("tail", "0");
    std::atomic<bool> stop = false;
    std::atomic<int> torn = 0, reads = 0;
    std::thread reader([&] {
        while (!stop) {
            const std::string bytes = content(file());
            torn += bytes.size() < 20'000 || !bytes.ends_with("\r\n");
            ++reads;
        }
    });
    for (int i = 0; i < 500 || reads < 20; ++i)
        write("tail", std::to_string(i));
    stop = true;
    reader.join();
    EXPECT_EQ(torn, 0);
}

// Failures.

TEST_F(StoreTest, MissingFolderLosesTheWriteAndTheNextGoodOneClearsIt)
{
    Store lost(folder / "gone");
    EXPECT_EQ(lost.LireINI("2005", "a", "k"), "");
    lost.EcrireINI("2005", "a", "k", "1");
    EXPECT_TRUE(lost.writesLost());
    EXPECT_EQ(lost.LireINI("2005", "a", "k"), "");
    fs::create_directory(folder / "gone");
    lost.EcrireINI("2005", "a", "k", "2");
    EXPECT_FALSE(lost.writesLost());
    EXPECT_EQ(content(folder / "gone" / "f12005.ini"), "[a]\r\nk=2\r\n");
}

TEST_F(StoreTest, FolderThatIsAFileLosesTheWrite)
{
    layDown(folder / "plain", "text");
    Store lost(folder / "plain");
    EXPECT_EQ(lost.LireINI("2005", "a", "k") + lost.yearMarker(), "");
    lost.EcrireINI("2005", "a", "k", "1");
    EXPECT_TRUE(lost.writesLost());
    EXPECT_EQ(content(folder / "plain"), "text");
}

TEST_F(StoreTest, DirectoryInPlaceOfTheFile)
{
    fs::create_directory(file());
    EXPECT_EQ(read("k"), "");
    write("k", "1");
    EXPECT_TRUE(store.writesLost());
    EXPECT_EQ(read("k"), "");
    EXPECT_TRUE(fs::is_directory(file()));
    EXPECT_EQ(settledNames(), Names({"f12005.ini"}));
}

TEST_F(StoreTest, PipeInPlaceOfTheFileDoesNotBlock)
{
    ASSERT_EQ(::mkfifo(file().c_str(), 0600), 0);
    EXPECT_EQ(read("k"), "");
    write("k", "1");
    EXPECT_TRUE(store.writesLost());
    EXPECT_TRUE(fs::is_fifo(file()));
}

TEST_F(StoreTest, HugeFileReadsEmptyAndIsNotWritten)
{
    layDown(file(), "[N\xB0]\r\nk=1\r\n");
    fs::resize_file(file(), 65u << 20); // takes no room: the rest is a hole
    EXPECT_EQ(read("k"), "");
    write("k", "2");
    EXPECT_TRUE(store.writesLost());
    EXPECT_EQ(fs::file_size(file()), 65u << 20);
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

TEST_F(StoreTest, ReadOnlyFileIsNotReplaced)
{
    const OrdinaryUser user(folder.path());
    layDown(file(), "[N\xB0]\r\nk=1\r\n");
    fs::permissions(file(), fs::perms::owner_read);
    write("k", "2");
    EXPECT_TRUE(store.writesLost());
    EXPECT_EQ(read("k"), "1");
    EXPECT_EQ(settledNames(), Names({"f12005.ini"}));
}

TEST_F(StoreTest, UnreadableFileReadsEmptyAndIsNotReplaced)
{
    const OrdinaryUser user(folder.path());
    layDown(file(), "[N\xB0]\r\nk=1\r\n");
    fs::permissions(file(), fs::perms::owner_write);
    EXPECT_EQ(read("k"), "");
    write("k", "2");
    EXPECT_TRUE(store.writesLost());
    fs::permissions(file(), fs::perms::owner_read);
    EXPECT_EQ(content(file()), "[N\xB0]\r\nk=1\r\n");
}

TEST_F(StoreTest, ReadOnlyFolderLosesTheWrite)
{
    const OrdinaryUser user(folder.path());
    layDown(file(), "[N\xB0]\r\nk=1\r\n");
    fs::permissions(folder.path(), fs::perms::owner_read | fs::perms::owner_exec);
    write("k", "2");
    store.EcrireINI("2006", "N°", "k", "2");
    EXPECT_TRUE(store.writesLost());
    EXPECT_EQ(read("k"), "1");
    fs::permissions(folder.path(), fs::perms::owner_all);
    EXPECT_EQ(settledNames(), Names({"f12005.ini"}));
    write("k", "3");
    EXPECT_FALSE(store.writesLost());
}

// A file that may not grow beyond some bytes stands for a disk without room: the write stops half way.
class RoomFor {
public:
    explicit RoomFor(rlim_t bytes)
    {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = {bytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~RoomFor()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    rlimit m_before = {};
    void (*m_handler)(int) = nullptr;
};

TEST_F(StoreTest, FullDiskLeavesTheOldFileAndReadsShowIt)
{
    write("k", "old");
    store.settle();
    const std::string before = content(file());
    {
        const RoomFor few(10);
        write("k", "a new value");
        EXPECT_TRUE(store.writesLost());
        EXPECT_EQ(content(file()), before);
        EXPECT_EQ(read("k"), "old");
        store.setYearMarker("2005 and more");
        EXPECT_TRUE(store.writesLost());
    }
    EXPECT_EQ(folder.names(), Names({"f12005.ini"}));
    write("k", "newer");
    EXPECT_FALSE(store.writesLost());
    EXPECT_EQ(read("k"), "newer");
}

// What belongs to a file.

TEST_F(StoreTest, AccessModeIsKept)
{
    layDown(file(), "[N\xB0]\r\nk=1\r\n");
    ASSERT_EQ(::chmod(file().c_str(), 0640), 0);
    write("k", "2");
    EXPECT_EQ(fs::status(file()).permissions(), fs::perms(0640));
    EXPECT_EQ(read("k"), "2");
}

TEST_F(StoreTest, LinkStaysAndItsTargetIsReplaced)
{
    fs::create_directory(folder / "elsewhere");
    const fs::path real = folder / "elsewhere/season";
    layDown(real, "[N\xB0]\r\nk=1\r\n");
    fs::create_symlink("elsewhere/season", folder / "step");
    fs::create_symlink("step", file());
    write("k", "2");
    EXPECT_EQ(content(real), "[N\xB0]\r\nk=2\r\n");
    EXPECT_TRUE(fs::is_symlink(file()));
    EXPECT_EQ(settledNames(), Names({"elsewhere", "f12005.ini", "step"}));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder / "elsewhere"), {}), 1);
}

TEST_F(StoreTest, LinkThatLeadsNowhereYetGetsItsTarget)
{
    fs::create_symlink("season", file());
    write("k", "1");
    EXPECT_TRUE(fs::is_symlink(file()));
    EXPECT_EQ(content(folder / "season"), "[N\xB0]\r\nk=1\r\n");
}

TEST_F(StoreTest, LinksInACircleLoseTheWrite)
{
    fs::create_symlink("f12006.ini", file());
    fs::create_symlink("f12005.ini", folder / "f12006.ini");
    EXPECT_EQ(read("k"), "");
    write("k", "1");
    EXPECT_TRUE(store.writesLost());
    EXPECT_TRUE(fs::is_symlink(file()));
}

// After a kill and after a power cut.

TEST_F(StoreTest, LeftoverOfAKilledWriteDoesNoHarmAndGoes)
{
    layDown(file(), "[N\xB0]\r\nk=1\r\n");
    layDown(folder / ".circuidex-1-1.new", "[N\xB0]\r\nk=hal");
    layDown(folder / ".circuidex-1-2.new", "of a program that runs now");
    layDown(folder / "notes.new", "of the user");
    fs::last_write_time(folder / ".circuidex-1-1.new", fs::file_time_type::clock::now() - std::chrono::hours(1));
    fs::last_write_time(folder / "notes.new", fs::file_time_type::clock::now() - std::chrono::hours(1));
    EXPECT_EQ(read("k"), "1");
    write("k", "2");
    EXPECT_EQ(settledNames(), Names({".circuidex-1-2.new", "f12005.ini", "notes.new"}));
}

TEST_F(StoreTest, SettledContentIsHeldUntilTheNextSettle)
{
    write("k", "settled");
    store.settle();
    write("k", "1");
    write("k", "2");
    EXPECT_EQ(content(folder / ".circuidex-f12005.ini.old"), "[N\xB0]\r\nk=settled\r\n");
    store.settle();
    EXPECT_EQ(folder.names(), Names({"f12005.ini"}));
}

TEST_F(StoreTest, StoreSettlesAtItsEnd)
{
    layDown(file(), "[N\xB0]\r\nk=1\r\n");
    Store(folder.path()).EcrireINI("2005", "N°", "k", "2");
    EXPECT_EQ(folder.names(), Names({"f12005.ini"}));
}

TEST_F(StoreTest, FileLeftHollowByAPowerCutComesBack)
{
    for (const std::string &hollow : {std::string(), std::string(5000, '\0')}) {
        layDown(file(), hollow);
        layDown(folder / ".circuidex-f12005.ini.old", "[N\xB0]\r\nk=settled\r\nj=1\r\n");
        Store next(folder.path());
        EXPECT_EQ(next.LireINI("2005", "N°", "k"), "settled");
        next.newMoment();
        EXPECT_EQ(next.LireINI("2005", "N°", "k"), "settled");
        EXPECT_EQ(content(file()), "[N\xB0]\r\nk=settled\r\nj=1\r\n") << "other programs see it too";
        next.EcrireINI("2005", "N°", "k", "new");
        EXPECT_EQ(content(file()), "[N\xB0]\r\nk=new\r\nj=1\r\n");
        next.settle();
        EXPECT_EQ(folder.names(), Names({"f12005.ini"}));
    }
}

TEST_F(StoreTest, HeldContentSurvivesAFailedWriteOverAHollowFile)
{
    layDown(file(), "");
    layDown(folder / ".circuidex-f12005.ini.old", "[N\xB0]\r\nk=settled\r\n");
    {
        const RoomFor few(10);
        write("k", "a new value");
        EXPECT_TRUE(store.writesLost());
    }
    EXPECT_EQ(read("k"), "settled");
    EXPECT_EQ(content(file()), "[N\xB0]\r\nk=settled\r\n");
}

TEST_F(StoreTest, EmptyFileOfTheUserStaysEmpty)
{
    layDown(file(), "");
    layDown(folder / ".circuidex-f12005.ini.old", "");
    EXPECT_EQ(read("k"), "");
    write("k", "1");
    EXPECT_EQ(content(file()), "[N\xB0]\r\nk=1\r\n");
    EXPECT_EQ(settledNames(), Names({"f12005.ini"}));
}

TEST_F(StoreTest, ContentHeldByAKilledProgramGivesWayToTheFile)
{
    layDown(file(), "[N\xB0]\r\nk=newer\r\n");
    layDown(folder / ".circuidex-f12005.ini.old", "[N\xB0]\r\nk=older\r\n");
    EXPECT_EQ(read("k"), "newer");
    write("k", "newest");
    EXPECT_EQ(content(folder / ".circuidex-f12005.ini.old"), "[N\xB0]\r\nk=newer\r\n");
}

// A child writes a and b in turns and is killed at some instruction: the file then is whole, and is the state after
// some prefix of the writes.
TEST_F(StoreTest, KillAtAnyInstructionLeavesAPrefixOfTheWrites)
{
    for (int round = 0; round < 60; ++round) {
        fs::remove(file());
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            Store writer(folder.path());
            for (int i = 1;; ++i) {
                writer.EcrireINI("2005", "N°", "a", std::to_string(i));
                writer.EcrireINI("2005", "N°", "padding", std::string(static_cast<std::size_t>(i) % 9000, 'x'));
                writer.EcrireINI("2005", "N°", "b", std::to_string(i));
                if (i % 5 == 0)
                    writer.settle();
            }
        }
        std::this_thread::sleep_for(std::chrono::microseconds(500 + 397 * round));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        store.newMoment();
        const std::string bytes = content(file()), a = read("a"), b = read("b");
        if (bytes.empty())
            continue; // killed before the first write
        ASSERT_TRUE(bytes.ends_with("\r\n"));
        const int ahead = std::stoi(a) - (b.empty() ? 0 : std::stoi(b));
        ASSERT_TRUE(ahead == 0 || ahead == 1) << bytes.substr(0, 20);
        std::string expected = "[N\xB0]\r\na=" + a + "\r\n";
        if (const auto padding = bytes.find("padding="); padding != bytes.npos)
            expected += bytes.substr(padding, bytes.find("\r\n", padding) + 2 - padding);
        if (!b.empty())
            expected += "b=" + b + "\r\n";
        ASSERT_EQ(bytes, expected);
    }
}

// The year marker.

struct YearCase {
    const char *name, *bytes, *year;
};

class YearMarker : public testing::TestWithParam<YearCase> { };

TEST_P(YearMarker, IsTheFirstItemOfTheFirstLine)
{
    const circuidex::test::TemporaryFolder folder;
    layDown(folder / "Année", GetParam().bytes);
    EXPECT_EQ(Store(folder.path()).yearMarker(), GetParam().year);
}

constexpr YearCase years[] = {
    {"Plain", "2005\r\n", "2005"},
    {"WithoutEnd", "2005", "2005"},
    {"Empty", "", ""},
    {"EmptyLine", "\r\n2005\r\n", ""},
    {"SecondLine", "2005\n2006\n", "2005"},
    {"Comma", "2005,2006\r\n", "2005"},
    {"Quotes", "\"2005\"\r\n", "2005"},
    {"CommaInQuotes", "\"a,b\",c\r\n", "a,b"},
    {"QuoteWithoutEnd", "\"2005\r\n", "2005"},
    {"QuoteAlone", "\"", ""},
    {"Blanks", " 2005 \t\r\n", "2005"},
    {"Accent", "ann\xE9\x65\r\n", "année"},
};

INSTANTIATE_TEST_SUITE_P(Store, YearMarker, testing::ValuesIn(years),
                         [](const auto &each) { return std::string(each.param.name); });

TEST_F(StoreTest, YearMarkerIsOneLineAndReplacesTheFile)
{
    layDown(folder / "Année", "1999\r\nand more\r\n");
    store.setYearMarker("2005");
    EXPECT_EQ(content(folder / "Année"), "2005\r\n");
    store.setYearMarker("été\n2006");
    EXPECT_EQ(content(folder / "Année"), "\xE9t\xE9 2006\r\n");
    EXPECT_EQ(store.yearMarker(), "été 2006");
    EXPECT_EQ(settledNames(), Names({"Année"}));
}

TEST_F(StoreTest, YearMarkerThatIsAFolderLosesTheWrite)
{
    fs::create_directory(folder / "Année");
    EXPECT_EQ(store.yearMarker(), "");
    store.setYearMarker("2005");
    EXPECT_TRUE(store.writesLost());
}

}
