// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/folder_lock.h"

#include "store/temporary_folder.h"

#include <csignal>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace circuidex;
using circuidex::test::TemporaryFolder;

namespace {

// Another program that has the folder open until it is killed.
class OtherProgram {
public:
    explicit OtherProgram(const std::filesystem::path &folder)
    {
        int ready[2] = {};
        if (::pipe(ready) != 0)
            return;
        m_child = ::fork();
        if (m_child == 0) {
            const FolderLock lock(folder);
            const char sign = lock.heldElsewhere() ? 'n' : 'y';
            if (::write(ready[1], &sign, 1) == 1)
                ::pause();
            ::_exit(0);
        }
        m_hasIt = ::read(ready[0], &m_sign, 1) == 1 && m_sign == 'y';
        ::close(ready[0]);
        ::close(ready[1]);
    }
    ~OtherProgram() { crash(); }
    OtherProgram(const OtherProgram &) = delete;
    OtherProgram &operator=(const OtherProgram &) = delete;

    bool hasIt() const { return m_hasIt; }
    void crash()
    {
        if (m_child <= 0)
            return;
        ::kill(m_child, SIGKILL);
        ::waitpid(m_child, nullptr, 0);
        m_child = 0;
    }

private:
    pid_t m_child = 0;
    char m_sign = 0;
    bool m_hasIt = false;
};

TEST(FolderLock, IsHeldByOneProgramAtATime)
{
    const TemporaryFolder folder;
    OtherProgram other(folder.path());
    ASSERT_TRUE(other.hasIt());
    EXPECT_TRUE(FolderLock(folder.path()).heldElsewhere());
    other.crash();
    const FolderLock lock(folder.path());
    EXPECT_FALSE(lock.heldElsewhere());
    EXPECT_FALSE(OtherProgram(folder.path()).hasIt());
}

TEST(FolderLock, IsFreeAgainAfterAnEnd)
{
    const TemporaryFolder folder;
    for (int round = 0; round < 3; ++round)
        EXPECT_FALSE(FolderLock(folder.path()).heldElsewhere());
}

TEST(FolderLock, FolderThatTakesNoneIsFree)
{
    const TemporaryFolder folder;
    EXPECT_FALSE(FolderLock(folder / "gone").heldElsewhere());
    std::filesystem::create_directory(folder / ".circuidex-verrou"); // there, and not to be opened
    EXPECT_TRUE(FolderLock(folder.path()).heldElsewhere());
}

}
