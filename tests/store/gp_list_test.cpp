// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/gp_list.h"

#include "store/season.h"
#include "store/temporary_folder.h"
#include "store/watched_calls.h"

#include <gtest/gtest.h>

#include <random>

using namespace circuidex;
using namespace circuidex::test;

namespace {

using Rows = std::vector<std::string>;

class GpListTest : public testing::Test {
protected:
    void fill(const Rows &rows)
    {
        for (std::size_t row = 0; row < rows.size(); ++row)
            if (!rows[row].empty())
                archive.write(keys::GP, "N" + std::to_string(row), rows[row]);
    }
    Rows rows() const
    {
        Rows held;
        for (int row = 0; row < gpListTidied; ++row)
            held.push_back(archive.read(keys::GP, "N" + std::to_string(row)));
        return held;
    }

    TemporaryFolder folder;
    Store store{folder.path()};
    WritableSeason archive{store, "ARCHIVES"};
};

// The clean-up read row by row and written row by row, as its rule says it.
void tidyRowByRow(Rows &N)
{
    N.resize(67);
    for (std::size_t a = 0; a <= 66; ++a)
        for (std::size_t b = 0; b <= 66; ++b) {
            if (a == b || N[a] != N[b])
                continue;
            N[b] = "";
            for (std::size_t c = b + 1; c <= 65; ++c) {
                N[c - 1] = N[c];
                N[c] = "";
            }
        }
}

// Every row one of so many names, or free with a chance of one in `holes`.
Rows randomRows(std::mt19937 &random, std::size_t length, std::size_t names, std::size_t holes)
{
    Rows rows;
    for (std::size_t row = 0; row < length; ++row)
        rows.push_back(random() % holes == 0 ? "" : "GP " + std::to_string(random() % names));
    return rows;
}

TEST_F(GpListTest, ShowsSixtyRowsWithTheirHoles)
{
    archive.write(keys::GP, "N0", "Brésil");
    archive.write(keys::GP, "N59", "Chine");
    archive.write(keys::GP, "N60", "Corée");
    const Rows shown = gpList(store);
    EXPECT_EQ(shown.size(), 60U);
    EXPECT_EQ(shown.front() + shown.at(1) + shown.back(), "BrésilChine");
}

TEST_F(GpListTest, DeletingLeavesAHole)
{
    struct Case {
        const char *name, *count;
        int row;
        const char *countAfter;
    };
    const Case cases[] = {
        {"in the middle", "10", 3, "10"},
        {"the last name", "10", 9, "10"},
        {"the row of the count", "10", 10, "9"},
        {"the first row", "0", 0, "-1"},
        {"no count", "", 3, ""},
        {"count that is no number", "dix", 3, "dix"},
    };
    for (const Case &c : cases) {
        fill({"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k"});
        archive.write(keys::GP, "NO", c.count);
        archive.write(keys::GP, "d2005", "Alonso");
        Rows expected = rows();
        expected[static_cast<std::size_t>(c.row)].clear();
        deleteListedGp(store, c.row);
        EXPECT_EQ(rows(), expected) << c.name;
        EXPECT_EQ(archive.read(keys::GP, "NO"), c.countAfter) << c.name;
        EXPECT_EQ(archive.read(keys::GP, "d2005"), "Alonso") << c.name;
    }
}

TEST_F(GpListTest, TidyingFollowsTheRuleOnAnyList)
{
    std::mt19937 random(2005);
    for (int i = 0; i < 400; ++i) {
        const Rows given = randomRows(random, 1 + random() % 67, 1 + random() % 70, 1 + random() % 9);
        Rows expected = given;
        tidyRowByRow(expected);
        ASSERT_EQ(tidied(given), expected) << "list " << i;
    }
    EXPECT_EQ(tidied({"Chine", "chine", "Chine"})[1], "chine") << "capitals tell apart";
}

// Each row that changes is written once; the rule taken literally would write some hundred thousand times.
TEST_F(GpListTest, TidyingTheArchiveKeepsTheRest)
{
    std::mt19937 random(7);
    int written = 0;
    const WatchedCalls watched([&](const auto &call) { return written += call.name == "write", 0; });
    for (int i = 0; i < 5; ++i) {
        const Rows given = randomRows(random, 67, 40, 5);
        for (std::size_t row = 0; row < given.size(); ++row)
            archive.write(keys::GP, "N" + std::to_string(row), given[row]);
        archive.write(keys::GP, "N67", "behind");
        archive.write(keys::GP, "NO", "60");
        archive.write(keys::GP, "GP 12005", "Alonso");
        Rows expected = given;
        tidyRowByRow(expected);
        for (const int atMost : {gpListTidied, 0}) { // the second time it is tidy
            written = 0;
            tidyGpList(store);
            EXPECT_LE(written, atMost);
            EXPECT_EQ(rows(), expected) << "list " << i;
        }
        EXPECT_EQ(archive.read(keys::GP, "N67") + archive.read(keys::GP, "NO") + archive.read(keys::GP, "GP 12005"),
                  "behind60Alonso");
    }
}

}
