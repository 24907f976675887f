// SPDX-License-Identifier: GPL-3.0-or-later
#include "standings/ranking.h"

#include "results/season_fixture.h"

using namespace circuidex;
using namespace circuidex::standings;
using namespace circuidex::test;

namespace {

// "A 10 | B - | ? 5": name and value; "-" for no figure, "?" for no name.
std::vector<Entry> entriesOf(const std::string &text)
{
    std::vector<Entry> entries;
    for (const std::string &part : split(text, '|')) {
        const Lines words = split(part, ' ');
        entries.push_back({words.at(0) == "?" ? "" : words.at(0), Numbers().value(words.at(1))});
    }
    return entries;
}

std::string printed(const std::vector<std::optional<int>> &rows)
{
    std::string text;
    for (const auto &row : rows)
        text += (text.empty() ? "" : " ") + (row ? std::to_string(*row) : "-");
    return text;
}

TEST(Ranking, GivesEveryEntryItsRow)
{
    constexpr RankingRule next, shared{.ties = Ties::sharedRow}, besides{.noFigure = NoFigure::likeTheOneBefore};
    struct Case {
        const char *name, *entries;
        RankingRule rule;
        const char *rows;
    };
    const Case cases[] = {
        {"all different", "A 1 | B 3 | C 2", next, "3 1 2"},
        {"two level: the first in the list stands first", "A 5 | B 9 | C 5 | D 1", next, "2 1 3 4"},
        {"three level", "A 5 | B 7 | C 5 | D 5 | E 4", next, "2 1 3 4 5"},
        {"all level", "A 0 | B 0 | C 0", next, "1 2 3"},
        {"below zero and halves", "A -1 | B 2.5 | C 2", next, "3 1 2"},
        {"nobody", "? - | ? -", next, "- -"},
        {"a value without a name counts in the ranks", "A 1 | ? 9 | B 2", next, "3 - 2"},
        {"two equal names are two entries", "A 3 | B 2 | A 1", next, "1 2 3"},
        {"two level in one row, the next one free", "A 9 | B 5 | C 5 | D 1", shared, "1 2 2 4"},
        {"all level in one row", "A 0 | B 0 | C 0", shared, "1 1 1"},
        {"no figure, behind all", "A - | B 5 | C - | D 9", next, "3 2 4 1"},
        {"no figure in the shared row behind all", "A - | B 5 | C - | D 9", shared, "3 2 3 1"},
        {"no figure, at the rank of the one before", "A 9 | B - | C 5 | D 1", besides, "1 2 3 4"},
        {"two without in a row", "A 1 | B 9 | C - | D - | E 5", besides, "3 1 2 4 5"},
        {"no figure as the first: behind all", "A - | B 9 | C 5", besides, "3 1 2"},
        {"no figure behind a free number", "A 9 | B 5 | ? - | C -", besides, "1 2 - 3"},
    };
    for (const Case &c : cases)
        EXPECT_EQ(printed(rankedRows(entriesOf(c.entries), c.rule)), c.rows) << c.name;
}

// "A 10 0" a row: name, points, gap, and a star for the favourite; at the end the rank.
Lines shown(const Standings &standings)
{
    Lines lines;
    for (const StandingsRow &row : standings.rows)
        lines.push_back(row.name + " " + row.points + " " + row.gap + (row.favourite ? " *" : ""));
    lines.push_back("rank " + std::to_string(standings.rank));
    return lines;
}

TEST(Favourite, MeasuresAllRows)
{
    const Numbers numbers(',');
    const auto fresh = [&] {
        Standings standings;
        for (const char *row : {"A 12,5", "B 7", "C 7", "B 2", "D -", "- -"})
            standings.rows.push_back({.name = split(row, ' ')[0], .points = split(row, ' ')[1], .team = {}, .gap = {}});
        measure(standings, 0, numbers);
        return standings;
    };
    struct Case {
        const char *name;
        std::vector<std::string> favourites; // one after the other
        Lines rows;
    };
    const Case cases[] = {
        {"nobody chosen", {}, {"A 12,5 0", "B 7 -5,5", "C 7 -5,5", "B 2 -10,5", "D  ", "  ", "rank 1"}},
        {"level ones share the rank", {"C"}, {"A 12,5 5,5", "B 7 0", "C 7 0 *", "B 2 -5", "D  ", "  ", "rank 2"}},
        {"of two names the lower row measures",
         {"B"},
         {"A 12,5 10,5", "B 7 5 *", "C 7 5", "B 2 0 *", "D  ", "  ", "rank 4"}},
        {"a name in no row leaves gaps and rank",
         {"C", "b"},
         {"A 12,5 5,5", "B 7 0", "C 7 0", "B 2 -5", "D  ", "  ", "rank 2"}},
        {"the empty name lights the free rows",
         {""},
         {"A 12,5 0", "B 7 -5,5", "C 7 -5,5", "B 2 -10,5", "D  ", "   *", "rank 1"}},
        {"the empty name after a favourite",
         {"C", ""},
         {"A 12,5 5,5", "B 7 0", "C 7 0", "B 2 -5", "D  ", "   *", "rank 1"}},
        {"a row without points measures nothing",
         {"D"},
         {"A 12,5 0", "B 7 -5,5", "C 7 -5,5", "B 2 -10,5", "D   *", "  ", "rank 1"}},
    };
    for (const Case &c : cases) {
        Standings standings = fresh();
        for (const std::string &favourite : c.favourites)
            choose(standings, favourite, numbers);
        EXPECT_EQ(shown(standings), c.rows) << c.name;
    }
}

}
