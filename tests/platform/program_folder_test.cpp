// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/program_folder.h"

#include "store/temporary_folder.h"

#include <cstdlib>
#include <optional>

#include <gtest/gtest.h>

using namespace circuidex;
namespace fs = std::filesystem;
using circuidex::test::TemporaryFolder;

namespace {

// A variable of the environment, as it was again at the end.
class Variable {
public:
    Variable(const char *name, const std::string &value) : m_name(name)
    {
        if (const char *before = std::getenv(name))
            m_before = before;
        ::setenv(name, value.c_str(), 1);
    }
    ~Variable() { m_before ? ::setenv(m_name, m_before->c_str(), 1) : ::unsetenv(m_name); }
    Variable(const Variable &) = delete;
    Variable &operator=(const Variable &) = delete;

private:
    const char *m_name;
    std::optional<std::string> m_before;
};

TEST(ProgramFolder, TheBuiltProgramKeepsItsFilesBesideItAndFindsTheSampleOfItsBuild)
{
    const TemporaryFolder root;
    fs::create_directories(root / "release/bin");
    EXPECT_EQ(programFolder(root / "release/bin"), root / "release/bin");
    EXPECT_EQ(exampleFolder(root / "release/bin"), "");
    fs::create_directories(root / "release/sample");
    EXPECT_EQ(exampleFolder(root / "release/bin"), root / "release/sample");
}

// Also for root, who may write beside the program.
TEST(ProgramFolder, TheInstalledProgramKeepsItsFilesWithTheUserAndFindsTheSharedExamples)
{
    const TemporaryFolder root;
    const Variable data("XDG_DATA_HOME", root / "user/data");
    fs::create_directories(root / "usr/libexec/circuidex");
    fs::create_directories(root / "usr/share/circuidex/saisons-d-exemple");
    EXPECT_EQ(programFolder(root / "usr/libexec/circuidex"), root / "user/data/Circuidex");
    EXPECT_TRUE(fs::is_directory(root / "user/data/Circuidex"));
    EXPECT_EQ(exampleFolder(root / "usr/libexec/circuidex"), root / "usr/share/circuidex/saisons-d-exemple");
}

TEST(ProgramFolder, ARelativeDataFolderOfTheEnvironmentIsPassedOver)
{
    const TemporaryFolder root;
    const Variable data("XDG_DATA_HOME", "data"), home("HOME", root.path());
    fs::create_directories(root / "usr/libexec/circuidex");
    fs::create_directories(root / "usr/share/circuidex");
    EXPECT_EQ(programFolder(root / "usr/libexec/circuidex"), root / ".local/share/Circuidex");
}

}
