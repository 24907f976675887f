// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/season_statistics.h"

#include "results/season_fixture.h"

#include <set>

using namespace circuidex;
using namespace circuidex::statistics;
using namespace circuidex::test;

namespace {

StatisticTable tableOf(Desk &desk, const std::string &year, std::string_view word)
{
    return statisticTable(Season(desk.store, year), *statisticNamed(word));
}

Lines rowsOf(const StatisticTable &made)
{
    Lines rows;
    for (const standings::StandingsRow &row : made.table.rows)
        if (!(row.name + row.points).empty())
            rows.push_back(row.name + " " + row.points);
    return rows;
}

// The figures of 2003 by driver, counted in the published results.
class Published2003 {
public:
    std::map<std::string, double> figures(const std::string &word) const
    {
        std::map<std::string, double> counts;
        for (const SampleRace &race : m_season.races)
            for (std::size_t place = 1; place <= race.finish.size(); ++place) {
                const std::string &driver = race.finish[place - 1];
                if (word == "pts" || word == "pgp")
                    counts[driver] += std::stod(m_season.scale[place - 1]);
                else if (word == "pod" ? place <= 3 : word == "victoires" ? place == 1 : word == std::to_string(place))
                    ++counts[driver];
            }
        for (const SampleRace &race : m_season.races)
            if (word == "poles")
                ++counts[race.pole];
        for (auto &[driver, count] : counts)
            if (word == "pgp")
                count /= static_cast<double>(m_season.races.size());
        return counts;
    }

    Lines table(const std::string &word) const
    {
        const auto counts = figures(word);
        std::vector<std::tuple<double, int, std::string>> ranked, rest;
        for (const SampleDriver &driver : m_season.drivers) {
            const auto found = counts.find(driver.name);
            const double count = found == counts.end() ? 0 : found->second;
            const bool counted = found != counts.end() || word == "pts" || word == "pgp";
            (counted ? ranked : rest).emplace_back(counted ? -count : 0, driver.slot, driver.name);
        }
        std::sort(ranked.begin(), ranked.end());
        Lines rows;
        for (const auto &[count, slot, name] : ranked)
            rows.push_back(name + " " + (word == "pgp" ? Numbers().fixed(-count, 2) : Numbers().text(-count)));
        for (const auto &[count, slot, name] : rest)
            rows.push_back(name + " ");
        return rows;
    }

private:
    const SampleSeason m_season = published("2003");
};

TEST(SeasonStatistics, EqualTheCountsOf2003)
{
    Desk desk;
    const Published2003 results;
    for (const Statistic &statistic : seasonStatistics) {
        if (statistic.allTime)
            continue;
        const std::string word(statistic.word);
        const StatisticTable made = tableOf(desk, "2003", word);
        EXPECT_EQ(rowsOf(made), results.table(word)) << word;
        EXPECT_EQ(made.table.rows.size(), 26u);
        EXPECT_EQ(made.bars[0].width, 8055) << word;
        for (std::size_t row = 1; row < made.bars.size(); ++row)
            EXPECT_LE(made.bars[row].width, made.bars[row - 1].width) << word << row;
    }
    EXPECT_EQ(tableOf(desk, "2003", "pts").first, 1);
    EXPECT_EQ(tableOf(desk, "2003", "8").table.rows[0].name,
              desk.read("2003 [N°] nom" + std::to_string(*tableOf(desk, "2003", "8").first)));
}

class Statistics : public testing::Test {
protected:
    void driver(int number, const std::string &name, const std::string &points)
    {
        desk.write("2005 [N°] nom" + std::to_string(number) + "=" + name);
        desk.write("2005 [N°] nbpts" + std::to_string(number) + "=" + points);
    }
    void entry(int row, const std::string &name, const std::string &wins)
    {
        desk.write("ARCHIVES [record] nomvic" + std::to_string(row) + "=" + name);
        desk.write("ARCHIVES [record] vic" + std::to_string(row) + "=" + wins);
    }
    Lines wins() { return rowsOf(tableOf(desk, "2005", "t20vic")); }

    Desk desk{Desk::empty, ','};
};

TEST_F(Statistics, DrawBarsInTwips)
{
    driver(1, "Un", "1000");
    driver(2, "Demi", "500");
    driver(3, "Juste", "187"); // 1506,3 twips
    driver(4, "Peu", "186"); // 1498,2
    driver(5, "Mince", "94"); // 757,2
    driver(6, "Nu", "93"); // 749,1
    driver(7, "Rien", "0");
    driver(8, "Vide", "");
    const StatisticTable made = tableOf(desk, "2005", "pts");
    const std::pair<double, const char *> expected[] = {{8055, "Un (1000)"},
                                                        {4027.5, "Demi (500)"},
                                                        {1506.285, "Juste (187)"},
                                                        {1498.23, "Peu"},
                                                        {757.17, "Mince"},
                                                        {749.115, ""},
                                                        {0, ""},
                                                        {0, ""}};
    for (std::size_t row = 0; row < std::size(expected); ++row) {
        EXPECT_NEAR(made.bars[row].width, expected[row].first, 1e-6) << row;
        EXPECT_EQ(made.bars[row].caption, expected[row].second) << row;
    }
}

TEST_F(Statistics, DivideByNothing)
{
    driver(1, "Un", "0");
    driver(2, "Deux", "0");
    EXPECT_EQ(rowsOf(tableOf(desk, "2005", "pts")), (Lines{"Un 0", "Deux 0"}));
    EXPECT_EQ(tableOf(desk, "2005", "pts").bars[0].width, 0);
    driver(2, "Deux", "7");
    for (const char *races : {"", "0", "beaucoup"}) {
        desk.write(std::string("2005 [gp] nogp=") + races);
        EXPECT_EQ(rowsOf(tableOf(desk, "2005", "pgp")), (Lines{"Un ", "Deux "})) << races;
        EXPECT_EQ(tableOf(desk, "2005", "pgp").bars[0].width, 0);
    }
    desk.write("2005 [gp] nogp=2");
    EXPECT_EQ(rowsOf(tableOf(desk, "2005", "pgp")), (Lines{"Deux 3,50", "Un 0,00"}));
    EXPECT_EQ(rowsOf(tableOf(desk, "1066", "pgp")), Lines());
}

// A figure stays empty without a count; such drivers stand behind, in their order, with no hole before them.
TEST_F(Statistics, PutDriversWithoutACountBehind)
{
    for (int number = 1; number <= 20; ++number)
        driver(number, "P" + std::to_string(number), "0");
    desk.write("2005 [gp] namegp0=Monaco");
    desk.write("2005 [gp] namegp1=Japon");
    desk.write("2005 [podium] podium1Monaco=20");
    desk.write("2005 [podium] podium1Japon=99");
    const Lines rows = rowsOf(tableOf(desk, "2005", "victoires"));
    ASSERT_EQ(rows.size(), 20u);
    EXPECT_EQ(rows[0] + "," + rows[1] + "," + rows[19], "P20 1,P1 ,P19 ");
    EXPECT_EQ(tableOf(desk, "2005", "victoires").table.rows[1].name, "P1");
}

TEST_F(Statistics, TakeRepeatsOut)
{
    entry(3, "Senna", "41");
    entry(9, "Senna", "40");
    entry(10, "Prost", "51");
    entry(12, "", "77");
    EXPECT_EQ(wins(), (Lines{"Prost 51", "Senna 41"}));
    entry(22, "Senna", "42"); // the newcomer isn't compared yet
    EXPECT_EQ(wins(), (Lines{"Prost 51", "Senna 42", "Senna 41"}));
    sortAllTimeLists(desk.store);
    sortAllTimeLists(desk.store);
    EXPECT_EQ(wins(), (Lines{"Prost 51", "Senna 42"}));
    EXPECT_EQ(desk.read("ARCHIVES [record] nomvic1") + desk.read("ARCHIVES [record] vic2"), "Prost42");
    for (const int row : {3, 9, 10, 12, 22})
        EXPECT_EQ(desk.read("ARCHIVES [record] nomvic" + std::to_string(row)), "") << row;
}

TEST_F(Statistics, KeepANewcomerOutOfAFullList)
{
    for (int row = 1; row <= 21; ++row)
        entry(row, "P" + std::to_string(row), std::to_string(31 - row));
    entry(22, "Neuf", "3");
    entry(23, "P23", "5");
    sortAllTimeLists(desk.store);
    EXPECT_EQ(desk.read("ARCHIVES [record] nomvic22"), "P23");
    EXPECT_EQ(desk.read("ARCHIVES [record] nomvic23"), "Neuf");
    entry(22, "Dix", "12");
    sortAllTimeLists(desk.store);
    EXPECT_EQ(desk.read("ARCHIVES [record] nomvic20"), "Dix");
    EXPECT_EQ(desk.read("ARCHIVES [record] nomvic22"), "P21");
}

TEST_F(Statistics, WriteOnlyAllTimeLists)
{
    driver(1, "Un", "3");
    const Keys before = desk.keys("2005");
    for (const Statistic &statistic : seasonStatistics)
        if (!statistic.allTime)
            keepAllTimeList(desk.store, statistic, statisticTable(desk.main.season(), statistic).table);
    EXPECT_EQ(desk.keys("2005"), before);
    EXPECT_FALSE(std::filesystem::exists(desk.folder / "f1ARCHIVES.ini"));
    sortAllTimeLists(desk.store); // a missing archive stays empty
    EXPECT_EQ(wins(), Lines());
    EXPECT_EQ(statisticNamed("t20"), nullptr);
}

// The lists of the sample folder against the records before 2003 and the careers that went on since.
class SampleArchive : public testing::Test {
protected:
    SampleArchive()
    {
        for (const SampleRecord &record : parsed("records.txt", parseSampleRecords))
            truth[record.list][record.name] = record.figure;
        PublishedCareers careers;
        std::set<std::string> names;
        for (const std::string year : {"2003", "2004", "2005"}) {
            SampleSeason season = published(year);
            if (year == "2005")
                season.races.pop_back(); // the user's own
            careers.race(season);
            for (const SampleDriver &driver : season.drivers)
                names.insert(driver.name);
        }
        for (const std::string &name : names) {
            truth["poles"][name] = careers.of(name).poles;
            truth["victoires"][name] = careers.of(name).wins;
            truth["points"][name] = std::stoi("0" + careers.of(name).points);
        }
    }

    // Who stands in the first twenty rows with another figure than his own, or is missing there.
    Lines odd(const std::string &list, std::string_view word) const
    {
        Lines lines;
        std::map<std::string, int> rest = truth.at(list);
        const auto rows = statisticTable(desk.main.season(), *statisticNamed(word)).table.rows;
        for (std::size_t row = 0; row < 20; ++row) {
            const std::string figure = std::to_string(rest[rows[row].name]);
            if (figure != rows[row].points)
                lines.push_back(rows[row].name + " " + rows[row].points + ", not " + figure);
            rest.erase(rows[row].name);
        }
        for (const auto &[name, figure] : rest)
            if (figure > std::stoi(rows[19].points))
                lines.push_back(name + " missing with " + std::to_string(figure));
        return lines;
    }

    Desk desk;
    std::map<std::string, std::map<std::string, int>> truth;
};

TEST_F(SampleArchive, ReadsTrueAfterThreeSeasons)
{
    EXPECT_EQ(odd("poles", "t20pol"), Lines());
    EXPECT_EQ(odd("victoires", "t20vic"), Lines());
    // They scored after their last win, like Ralf Schumacher since 2003; nobody else's points are proposed to the list.
    EXPECT_EQ(odd("points", "t20pts"), (Lines{"Michael Schumacher 1220, not 1248", "Rubens Barrichello 445, not 489",
                                              "David Coulthard 410, not 499", "Ralf Schumacher missing with 298"}));
}

}
