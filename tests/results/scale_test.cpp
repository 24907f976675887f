// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/scale.h"

#include "results/season_fixture.h"

using namespace circuidex;
using namespace circuidex::results;
using namespace circuidex::test;

namespace {

// Places 1 to 8, "-" for a key that isn't there.
void put(Desk &desk, const std::string &year, const std::string &scale)
{
    const Lines points = split(scale, ' ');
    for (std::size_t i = 0; i < points.size(); ++i)
        if (!points[i].empty())
            desk.write(year + " [bareme] " + std::to_string(i + 1) + "=" + points[i]);
}

std::string printed(const Scale &scale)
{
    std::string line;
    for (const std::string &points : scale)
        line += (line.empty() ? "" : " ") + points;
    return line;
}

TEST(Scale, IsInheritedAndCompleted)
{
    struct Case {
        const char *name, *stem;
        const char *twoBefore, *before, *own; // 2003, 2004, 2005
        const char *loaded;
    };
    const Case cases[] = {
        {"no file at all", "2005", "", "", "", "10 8 6 5 4 3 2 1"},
        {"own scale", "2005", "", "9 9 9 9 9 9 9 9", "25 18 15 12 10 8 6 4", "25 18 15 12 10 8 6 4"},
        {"the year before", "2005", "", "9 6 4 3 2 1 0 0", "", "9 6 4 3 2 1 0 0"},
        {"two years before", "2005", "9 6 4 3 2 1 0 0", "", "", "10 8 6 5 4 3 2 1"},
        {"gaps of the year before", "2005", "7 7 7 7 7 7 7 7", "9 - 4 - 2 - - -", "", "9 8 4 5 2 3 2 1"},
        {"own key 3 alone", "2005", "", "9 6 - 3 2 1 0 0", "- - 50", "9 6 6 3 2 1 0 0"},
        {"only key 1 missing", "2005", "", "9 9 9 9 9 9 9 9", "- 7 5 4 3 2 1 0", "10 7 5 4 3 2 1 0"},
        {"only key 2 missing", "2005", "", "9 9 9 9 9 9 9 9", "12 - 5 4 3 2 1 0", "12 8 5 4 3 2 1 0"},
        {"key 8 missing", "2005", "", "9 9 9 9 9 9 9 9", "12 9 7 6 5 4 3", "12 9 7 6 5 4 3 1"},
        {"zero is a value", "2005", "", "9 9 9 9 9 9 9 9", "0 0 0 0 0 0 0 0", "0 0 0 0 0 0 0 0"},
        {"half points and words as they are", "2005", "", "", "5 4 2,5 deux 2 1 0 0", "5 4 2,5 deux 2 1 0 0"},
        {"rising", "2005", "", "", "1 2 3 4 5 6 7 8", "1 2 3 4 5 6 7 8"},
        {"stem that is no year", "essai", "", "", "9 9", "10 8 6 5 4 3 2 1"},
        {"empty stem", "", "", "", "9 9", "10 8 6 5 4 3 2 1"},
    };
    for (const Case &c : cases) {
        Desk desk(Desk::empty);
        put(desk, "2003", c.twoBefore);
        put(desk, "2004", c.before);
        put(desk, "2005", c.own);
        EXPECT_EQ(printed(loadScale(Season(desk.store, c.stem))), c.loaded) << c.name;
    }
}

}
