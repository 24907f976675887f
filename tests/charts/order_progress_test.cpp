// SPDX-License-Identifier: GPL-3.0-or-later
// The order of the championship as lines, against the published tables.
#include "charts/order_progress.h"
#include "results/season_fixture.h"

using namespace circuidex;
using namespace circuidex::charts;
using namespace circuidex::test;

namespace {

// Names by rank: points first, then the lower number, as the table of points by name says.
Lines expectedOrder(const OrderProgress &progress, const std::map<std::string, double> &points)
{
    std::vector<std::pair<double, std::string>> order;
    for (const std::string &name : progress.names)
        if (!name.empty())
            order.emplace_back(points.contains(name) ? points.at(name) : 0, name);
    std::ranges::stable_sort(order, std::greater(), &std::pair<double, std::string>::first);
    Lines names;
    for (const auto &[unused, name] : order)
        names.push_back(name);
    return names;
}

Lines held(const Order &order)
{
    Lines names(order.holders.begin(), order.holders.end());
    std::erase(names, "");
    return names;
}

TEST(OrderProgressTest, EndsInTheOfficialOrder)
{
    const Desk desk;
    for (const std::string year : {"2003", "2004"}) {
        const OrderProgress progress = orderProgress(Season(desk.store, year), builtInScale);
        std::map<std::string, double> points;
        for (const TableRow &row : officialTable(year, "DRIVER"))
            points[row.name] = std::stod(row.points);
        EXPECT_GT(points.size(), 20u);
        EXPECT_EQ(held(progress.last()), expectedOrder(progress, points)) << year;
    }
}

TEST(OrderProgressTest, AgreesAfterEachRoundOf2003)
{
    const Desk desk;
    const OrderProgress progress = orderProgress(Season(desk.store, "2003"), builtInScale);
    std::map<std::size_t, std::map<std::string, double>> rounds;
    for (const std::string &line : linesOf(CIRCUIDEX_TESTDATA "/2003.after.tsv"))
        if (const Lines row = split(line, '\t'); row.size() == 4)
            rounds[std::stoul(row[0])][row[2]] = std::stod(row[3]);
    ASSERT_EQ(rounds.size(), 16u);
    for (const auto &[round, points] : rounds)
        EXPECT_EQ(held(progress.after[round]), expectedOrder(progress, points)) << "after round " << round;
    EXPECT_EQ(held(progress.last()), held(progress.after[15])) << "nothing changes after the last race";
}

// Three names, one of them under number 5, and no race.
TEST(OrderProgressTest, LiesFlatWithoutAResult)
{
    Desk desk(Desk::empty);
    for (const char *name : {"nom1=A", "nom2=B", "nom5=C"})
        desk.write(std::string("1990 [N°] ") + name);
    const OrderProgress progress = orderProgress(Season(desk.store, "1990"), builtInScale);
    const std::array<int, 6> ranks{1, 2, 3, 3, 3, 4}; // a number without a name leaves its rank free
    for (int n = 1; n <= driverSlots; ++n) {
        const Curve curve = orderLine(progress, n);
        EXPECT_EQ(curve.y, flat(rankHeight(ranks[std::size_t(std::min(n, 6) - 1)])).y) << n;
    }
    EXPECT_EQ(lineEndingAt(progress, 3), 5) << "the one with a name";
    EXPECT_EQ(lineEndingAt(progress, 26), std::nullopt);
    EXPECT_EQ(held(progress.last()), (Lines{"A", "B", "C"}));
    EXPECT_FALSE(progress.last().totals[3].has_value());
    EXPECT_EQ(rankHeight(1), 605);
    EXPECT_EQ(rankHeight(26), 9605);
}

}
