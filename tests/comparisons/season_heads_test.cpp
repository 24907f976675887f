// SPDX-License-Identifier: GPL-3.0-or-later
#include "comparisons/season_heads.h"

#include "results/season_fixture.h"

using namespace circuidex;
using namespace circuidex::comparisons;
using namespace circuidex::test;

namespace {

// "2004 Michael Schumacher 7": year, champion and the subject's place, "*" behind one that may still change.
Lines heads(const Desk &desk, const std::string &year, SubjectKind kind, const std::string &subject)
{
    Lines told;
    for (const SeasonHead &head : seasonHeads(desk.store, year, kind, subject))
        told.push_back(head.year + " " + head.champion + " " +
                       (head.subjectPlace ? std::to_string(*head.subjectPlace) : "-") + (head.over ? "" : "*"));
    return told;
}

TEST(SeasonHeads, TellTheChampionAndTheSubjectsPlace)
{
    Desk desk;
    EXPECT_EQ(
        heads(desk, "2005", SubjectKind::driver, "Kimi Räikkönen"),
        (Lines{"2005  2*", "2004 Michael Schumacher 7", "2003 Michael Schumacher 2", "2002 Michael Schumacher -"}));
    EXPECT_EQ(heads(desk, "2004", SubjectKind::team, "Williams"),
              (Lines{"2004 Ferrari 4", "2003 Ferrari 2", "2002  -", "2001  -"}));
    for (const char *nobody : {"", "Aucune", "Juan Manuel Fangio"})
        EXPECT_EQ(heads(desk, "2004", SubjectKind::driver, nobody)[0], "2004 Michael Schumacher -");
    EXPECT_EQ(heads(desk, "abc", SubjectKind::team, "Ferrari"), Lines(4, "abc  -*"));
}

// Of the published tables: who is level with another shares the better place.
TEST(SeasonHeads, GiveTheOfficialPlaces)
{
    Desk desk;
    for (const std::string year : {"2003", "2004"})
        for (const std::string championship : {"DRIVER", "TEAM"}) {
            const auto table = officialTable(year, championship);
            ASSERT_GE(table.size(), 10u);
            for (const auto &[name, points, wins] : table) {
                const auto kind = championship == "DRIVER" ? SubjectKind::driver : SubjectKind::team;
                const auto better = std::count_if(table.begin(), table.end(), [&](const TableRow &other) {
                    return std::stod(other.points) > std::stod(points);
                });
                EXPECT_EQ(seasonHeads(desk.store, year, kind, name)[0].subjectPlace, better + 1) << year << name;
            }
        }
}

}
