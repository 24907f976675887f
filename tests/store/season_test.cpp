// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/season.h"

#include "store/temporary_folder.h"

#include <gtest/gtest.h>

using namespace circuidex;

namespace {

TEST(Season, CountsByTheRules)
{
    struct Case {
        const char *name;
        char separator;
        const char *held; // nullptr for a key that was never written
        const char *amount;
        const char *results[4]; // of the steps in their order
    };
    using Step = void (WritableSeason::*)(std::string_view, std::string_view, std::string_view) const;
    constexpr Step steps[] = {&WritableSeason::add, &WritableSeason::subtract, &WritableSeason::addFromZero, &WritableSeason::subtractFromZero};
    const Case cases[] = {
        {"from zero", '.', "0", "10", {"10", "-10", "10", "-10"}},
        {"from some", '.', "12", "3", {"15", "9", "15", "9"}},
        {"never written", '.', nullptr, "10", {"", "", "10", "-10"}},
        {"empty", '.', "", "10", {"", "", "10", "-10"}},
        {"word", '.', "abandon", "10", {"abandon", "abandon", "abandon", "abandon"}},
        {"empty amount", '.', "4", "", {"4", "4", "4", "4"}},
        {"empty both", '.', "", "", {"", "", "", ""}},
        {"negative amount", '.', "4", "-6", {"-2", "10", "-2", "10"}},
        {"decimal comma", ',', "2,5", "5", {"7,5", "-2,5", "7,5", "-2,5"}},
        {"point under comma", ',', "2.5", "5", {"2.5", "2.5", "2.5", "2.5"}},
    };
    for (const Case &c : cases)
        for (std::size_t i = 0; i < std::size(steps); ++i) {
            const circuidex::test::TemporaryFolder folder;
            Store store(folder.path(), Numbers(c.separator));
            const WritableSeason season(store, "2005");
            if (c.held)
                season.write(keys::N, "nbpts7", c.held);
            (season.*steps[i])(keys::N, "nbpts7", c.amount);
            EXPECT_EQ(season.driver("nbpts", 7), c.results[i]) << c.name << ", step " << i;
        }
}

TEST(Season, SkippedStepCreatesNothing)
{
    const circuidex::test::TemporaryFolder folder;
    Store store(folder.path());
    const WritableSeason season(store, "2005");
    season.add(keys::N, "vic7", "1");
    season.subtractFromZero(keys::N, "vic7", "");
    EXPECT_EQ(folder.names(), std::vector<std::string>());
}

}
