// SPDX-License-Identifier: GPL-3.0-or-later
// The order of the system calls that a write and its settling consist of. What a power cut may take is argued from it
// in docs/durability.md.
#include "store/store.h"
#include "store/temporary_folder.h"
#include "store/watched_calls.h"

#include <gtest/gtest.h>

using namespace circuidex;
using namespace circuidex::test;
using Lines = std::vector<std::string>;

namespace {

// "write 1.new", "exchange 1.new f12005.ini": the file names without their folder, the new ones numbered.
class Notes {
public:
    WatchedCalls::Hook hook()
    {
        return [this](const WatchedCalls::Call &call) {
            if (writes(call) && call.name != "mayWrite")
                lines.push_back(std::string(call.name) + " " + shown(call.path) +
                                (call.to.empty() ? "" : " " + shown(call.to)));
            return m_refuse && m_refuse(call) ? EXDEV : 0;
        };
    }
    void refuse(std::function<bool(const WatchedCalls::Call &)> refused) { m_refuse = std::move(refused); }
    Lines taken() { return std::exchange(lines, {}); }

    Lines lines;

private:
    std::string shown(const std::string &path)
    {
        const std::string name = path.substr(path.find_last_of('/') + 1);
        if (name.ends_with(".new"))
            return "new";
        return name.starts_with(".circuidex-") ? "old" : name.starts_with("f1") ? name : "folder";
    }

    std::function<bool(const WatchedCalls::Call &)> m_refuse;
};

class Durability : public testing::Test {
protected:
    Durability() { layDown(folder / "f12005.ini", "[a]\r\nk=0\r\n"); }
    void write(const char *value) { store.EcrireINI("2005", "a", "k", value); }

    TemporaryFolder folder;
    Store store{folder.path()};
    Notes notes;
};

TEST_F(Durability, FirstWriteHoldsTheOldContentAndTheLastSyncLetsItGo)
{
    const WatchedCalls watched(notes.hook());
    write("1");
    EXPECT_EQ(notes.taken(),
              Lines({"link f12005.ini old", "unlink new", "write new", "exchange new f12005.ini", "unlink new"}));
    write("1"); // which is there already
    EXPECT_EQ(notes.taken(), Lines());
    write("2"); // the old content is held already
    EXPECT_EQ(notes.taken(), Lines({"unlink new", "write new", "exchange new f12005.ini", "unlink new"}));
    store.settle();
    EXPECT_EQ(notes.taken(), Lines({"sync f12005.ini", "syncFolder folder", "unlink old"}));
    store.settle();
    EXPECT_EQ(notes.taken(), Lines());
    write("3");
    EXPECT_EQ(notes.taken().front(), "link f12005.ini old");
}

TEST_F(Durability, AllFilesAreOnTheDiskBeforeAnyOldContentIsLetGo)
{
    const WatchedCalls watched(notes.hook());
    write("1");
    store.EcrireINI("ARCHIVES", "a", "k", "1");
    notes.taken();
    store.settle();
    EXPECT_EQ(notes.taken(),
              Lines({"sync f12005.ini", "sync f1ARCHIVES.ini", "syncFolder folder", "unlink old", "unlink old"}));
}

TEST_F(Durability, ContentHeldSinceAKillIsOnlyReplacedByContentOnTheDisk)
{
    layDown(folder / ".circuidex-f12005.ini.old", "[a]\r\nk=held\r\n");
    const WatchedCalls watched(notes.hook());
    write("1");
    const Lines done = notes.taken();
    EXPECT_EQ(Lines(done.begin(), done.begin() + 4),
              Lines({"link f12005.ini old", "sync f12005.ini", "unlink old", "link f12005.ini old"}));
}

TEST_F(Durability, ContentStaysHeldWhenTheDiskRefusesToKeepTheNewOne)
{
    const WatchedCalls watched(notes.hook());
    for (const char *refused : {"sync", "syncFolder"}) {
        layDown(folder / "f12005.ini", "[a]\r\nk=0\r\n");
        write(refused);
        notes.refuse([=](const auto &call) { return call.name == refused; });
        store.settle();
        EXPECT_EQ(content(folder / ".circuidex-f12005.ini.old"), "[a]\r\nk=0\r\n") << refused;
        notes.refuse(nullptr);
        write("2");
        store.settle();
        EXPECT_EQ(folder.names(), Lines({"f12005.ini"})) << refused;
    }
}

// On a file system without hard links, a rename over the file makes the usual ones send the new content to the disk.
TEST_F(Durability, WithoutAnExchangeOrALinkTheNewNameReplacesTheOldOne)
{
    const std::pair<const char *, Lines> cases[] = {
        {"exchange",
         {"link f12005.ini old", "unlink new", "write new", "exchange new f12005.ini", "rename new f12005.ini"}},
        {"link", {"link f12005.ini old", "unlink new", "write new", "rename new f12005.ini"}},
    };
    const WatchedCalls watched(notes.hook());
    for (const auto &[refused, calls] : cases) {
        notes.refuse([name = refused](const auto &call) { return call.name == name; });
        write(refused);
        EXPECT_EQ(notes.taken(), calls);
        EXPECT_EQ(content(folder / "f12005.ini"), std::string("[a]\r\nk=") + refused + "\r\n");
        store.settle();
        notes.taken();
    }
}

}
