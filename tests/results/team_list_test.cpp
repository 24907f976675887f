// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/team_list.h"

#include "results/season_fixture.h"

using namespace circuidex;
using namespace circuidex::results;
using namespace circuidex::test;

namespace {

// Teams by driver, "-" for none; what the list shows.
TEST(TeamList, StandsInTheOrderOfFirstDrivers)
{
    struct Case {
        const char *name, *teams, *list;
    };
    const Case cases[] = {
        {"nobody", "", ""},
        {"team-mates once", "A A B B A", "A B"},
        {"a driver without a team", "- A - B", "A B"},
        {"no team is a team here", "A Aucune B Aucune", "A Aucune B"},
        {"capitals tell apart", "Bar BAR", "Bar BAR"},
        {"fourteen teams", "A A B B C C D D E E F F G G H I J K L M N", "A B C D E F G H I J K L"},
        {"driver 22", "- - - - - - - - - - - - - - - - - - - - - Z", "Z"},
        {"driver 23", "- - - - - - - - - - - - - - - - - - - - - - Z", ""},
        {"driver 24 behind others", "A A - - - - - - - - - - - - - - - - - - - B - Z", "A B"},
    };
    for (const Case &c : cases) {
        Desk desk(Desk::empty);
        const Lines given = split(c.teams, ' ');
        for (std::size_t i = 0; i < given.size(); ++i)
            if (!given[i].empty())
                desk.write("2005 [N°] ecurie" + std::to_string(i + 1) + "=" + given[i]);
        EXPECT_EQ(teamList(desk.main.season()), split(c.list, ' ')) << c.name;
    }
}

TEST(TeamList, EntriesStayWithTheirDrivers)
{
    Desk desk(Desk::empty);
    desk.write("2005 [N°] ecurie2=A");
    desk.write("2005 [N°] ecurie3=B");
    desk.write("2005 [N°] ecurie4=A");
    desk.write("2005 [N°] ecurie5=C");
    EXPECT_EQ(teamsByFirstDriver(desk.main.season(), 1, 5), (Lines{"", "A", "B", "", "C"}));
    EXPECT_EQ(teamsByFirstDriver(desk.main.season(), 4, 5), (Lines{"A", "C"}));
}
}
