// SPDX-License-Identifier: GPL-3.0-or-later
// What is told of a circuit, and how a driver and his team did there: against the published results at Monaco.
#include "statistics/circuits.h"

#include "platform/file_lookup.h"
#include "results/season_fixture.h"

using namespace circuidex;
using namespace circuidex::statistics;
using namespace circuidex::test;

namespace {

TEST(CircuitDescription, BreaksAtLineEndsAndCommas)
{
    const std::pair<std::string, std::string> cases[] = {
        {"", ""},
        {"Long de 3,34 km\nvite", "\r\nLong de 3\r\n34 km\r\nvite"},
        {"a,,b\r\n\r\nc,", "\r\na\r\n\r\nb\r\n\r\nc"},
        {"ancien\rMac", "\r\nancien\r\nMac"},
        {"\xE9t\xE9\t\x01", "\r\nété  "},
        {"\xEF\xBB\xBFété", "\r\nété"},
    };
    for (const auto &[bytes, lines] : cases)
        EXPECT_EQ(itemsInLines(bytes), lines) << bytes;
}

TEST(CircuitDescription, IsFoundByTheNameOfTheRace)
{
    Desk desk{Desk::empty};
    desk.main.surroundings.findFile = [&](const std::string &path) { return findFile(desk.folder.path(), path); };
    const auto file = desk.folder / "photos/DescriptionCircuits";
    std::filesystem::create_directories(file);
    layDown(file / "Brésil.TXT", "propre");
    EXPECT_EQ(circuitDescription(desk.main, "Brésil"), "\r\npropre");
    layDown(file / "BRESIL.txt", "sans accent");
    EXPECT_EQ(circuitDescription(desk.main, "Brésil"), "\r\nsans accent");
    layDown(file / "Monaco.txt", std::string(200'000, 'm'));
    EXPECT_EQ(circuitDescription(desk.main, "Monaco").size(), 2 + 65536u);
    layDown(file / "Japon.txt", std::string(1000, '\0'));
    EXPECT_EQ(circuitDescription(desk.main, "Japon") + circuitDescription(desk.main, "France"), "");
}

// Every race of the sample seasons has one, in six lines: no comma breaks it.
TEST(CircuitDescription, OfTheSampleSeasons)
{
    Desk desk;
    desk.main.surroundings.findFile = [&](const std::string &path) {
        return findFile(CIRCUIDEX_SAMPLE, path.substr(desk.main.folder().size()));
    };
    for (const std::string year : {"2003", "2004", "2005"})
        for (const SampleRace &race : published(year).races)
            EXPECT_EQ(split(circuitDescription(desk.main, race.name), '\n').size(), 7u) << race.name;
}

TEST(RecordAtCircuit, AtMonaco)
{
    const Desk desk;
    const auto of = [&](const char *driver, const char *year) { // grid, finish, points of the team in three years
        const auto record = recordAtCircuit(desk.store, driver, "Monaco", year);
        std::string text = record ? record->number + " " + record->team : "nothing";
        for (std::size_t i = 0; record && i < 3; ++i)
            for (const std::string &cell :
                 {"; " + record->years[i].year, record->years[i].grid, record->years[i].finish,
                  record->years[i].teamPoints, record->years[i].winner})
                text += cell.starts_with(';') ? cell : cell.empty() ? " -" : " " + cell;
        return text;
    };
    EXPECT_EQ(of("Michael Schumacher", "2005"),
              "1 Ferrari; 2005 8 7 3 Kimi Räikkönen; 2004 4 - 6 Jarno Trulli; 2003 5 3 7 Juan Pablo Montoya");
    // Another number and another team each year: his team of 2005 counts.
    EXPECT_EQ(of("Jarno Trulli", "2005"),
              "15 Toyota; 2005 5 - 3 Kimi Räikkönen; 2004 1 1 4 Jarno Trulli; 2003 4 6 0 Juan Pablo Montoya");
    EXPECT_EQ(of("Felipe Massa", "2004"),
              "12 Sauber; 2004 16 5 4 Jarno Trulli; 2003 - - - Juan Pablo Montoya; 2002 - - - David Coulthard");
    EXPECT_EQ(of("Jarno Trulli", "ARCHIVES"), "nothing");
}

}
