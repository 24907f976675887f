// SPDX-License-Identifier: GPL-3.0-or-later
// The matrix of a whole season is compared cell by cell with the published results of data/.
#include "standings/points_matrix.h"

#include "results/season_fixture.h"

using namespace circuidex;
using namespace circuidex::standings;
using namespace circuidex::test;

namespace {

double totalPoints(const PointsMatrix &matrix, int driver, const Numbers &numbers)
{
    double total = 0;
    for (int gp = 0; gp < gpSlots; ++gp)
        total += numbers.value(matrix.at(driver, gp)).value_or(0);
    return total;
}

// Slot and points, "103 10(Pole)        ", for every cell that holds something.
Lines cellsOf(const PointsMatrix &matrix)
{
    Lines lines;
    for (std::size_t i = 0; i < matrix.cells.size(); ++i)
        if (!matrix.cells[i].empty())
            lines.push_back(std::to_string(i) + " " + matrix.cells[i]);
    return lines;
}

Lines publishedCells(const SampleSeason &season, bool poles)
{
    std::map<std::string, int> numbers;
    for (const SampleDriver &driver : season.drivers)
        numbers[driver.name] = driver.slot;
    std::map<int, std::string> cells;
    int first = 0; // cell of driver 1 in the race
    for (const SampleRace &race : season.races) {
        for (std::size_t place = 0; place < race.finish.size(); ++place)
            if (!race.finish[place].empty())
                cells[first + numbers.at(race.finish[place]) - 1] = season.scale[place];
        if (poles)
            cells[first + numbers.at(race.pole) - 1] += "(Pole)        ";
        first += 26;
    }
    Lines lines;
    for (const auto &[index, text] : cells)
        lines.push_back(std::to_string(index) + " " + text);
    return lines;
}

TEST(PointsMatrix, EqualsTheResults)
{
    Desk desk;
    for (const std::string year : {"2003", "2004"}) {
        const SampleSeason results = published(year);
        const WritableSeason season(desk.store, year);
        PointsMatrix matrix = pointsMatrix(season, results::loadScale(season));
        EXPECT_EQ(cellsOf(matrix), publishedCells(results, false)) << year;
        for (std::size_t gp = 0; gp < matrix.races.size(); ++gp)
            EXPECT_EQ(matrix.races[gp], gp < results.races.size() ? results.races[gp].name : "") << year;
        for (int driver = 1; driver <= driverSlots; ++driver)
            EXPECT_EQ(totalPoints(matrix, driver, Numbers()),
                      Numbers().value(season.driver("nbpts", driver)).value_or(0));
        markPoles(matrix, Numbers());
        EXPECT_EQ(cellsOf(matrix), publishedCells(results, true)) << year;
    }
}

TEST(PointsMatrix, ReadsWhatStands)
{
    Desk desk(Desk::empty, ',');
    for (const char *line : {"namegp0=Monaco", "namegp1=", "namegp2=Monaco", "namegp19=Chine", "namegp20=Suzuka"})
        desk.write(std::string("2005 [gp] ") + line);
    for (const char *line :
         {"podium1Monaco=26", "podium2Monaco=0", "podium3Monaco=27", "podium4Monaco=abc", "podium5Monaco=1",
          "podium6Monaco=2.5", "podium8Monaco=1", "podium1=3", "podium1Chine=5", "podium1Suzuka=9"})
        desk.write(std::string("2005 [podium] ") + line);
    for (const char *line : {"polMonaco=7", "polChine=99", "pol=4"})
        desk.write(std::string("2005 [N°] ") + line);
    const results::Scale scale{"10", "8", "6", "5", "4,5", "3", "2", "1"};
    PointsMatrix matrix = pointsMatrix(desk.main.season(), scale);
    // Two slots of one name share its result; a driver who stands on two places keeps the later one.
    EXPECT_EQ(cellsOf(matrix), (Lines{"0 1", "25 10", "52 1", "77 10", "498 10"}));
    EXPECT_EQ(totalPoints(matrix, 26, Numbers(',')), 20);
    markPoles(matrix, Numbers(','));
    EXPECT_EQ(cellsOf(matrix),
              (Lines{"0 1", "6 (Pole)        ", "25 10", "52 1", "58 (Pole)        ", "77 10", "498 10"}));
}

}
