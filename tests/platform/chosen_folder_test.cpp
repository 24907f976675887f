// SPDX-License-Identifier: GPL-3.0-or-later
// The folder that the user chose to work in, noted in the program's own.
#include "platform/program_folder.h"

#include "store/temporary_folder.h"

#include <gtest/gtest.h>

using namespace circuidex;
using namespace circuidex::test;

namespace {

TEST(ChosenFolder, IsKeptUntilItIsTakenBack)
{
    const TemporaryFolder own, other;
    const std::filesystem::path there = other / "Mes saisons d'été";
    std::filesystem::create_directory(there);
    EXPECT_EQ(chosenFolder(own.path()), own.path());
    ASSERT_TRUE(chooseFolder(own.path(), there));
    EXPECT_EQ(chosenFolder(own.path()), there);
    std::filesystem::remove(there);
    EXPECT_EQ(chosenFolder(own.path()), there); // it may come back
    ASSERT_TRUE(chooseFolder(own.path(), own.path()));
    EXPECT_EQ(chosenFolder(own.path()), own.path());
    EXPECT_EQ(own.names(), std::vector<std::string>{});
}

TEST(ChosenFolder, ANoteThatNamesNoneIsNone)
{
    const TemporaryFolder own;
    for (const char *note : {"", "\n", "saisons", "./ici"}) {
        layDown(own / "Dossier", note);
        EXPECT_EQ(chosenFolder(own.path()), own.path()) << note;
    }
    EXPECT_FALSE(chooseFolder(own / "nowhere", own.path()));
    EXPECT_FALSE(chooseFolder(own.path(), "/tmp/a\nb"));
}

}
