// SPDX-License-Identifier: GPL-3.0-or-later
// The field of 2004 by each of its sixteen figures, worked out by hand from the published results and careers; and who
// gets which row.
#include "statistics/field_statistics.h"

#include "results/season_fixture.h"

using namespace circuidex;
using namespace circuidex::statistics;
using namespace circuidex::test;

namespace {

// The rows that hold anything, "Name value".
std::string rowsOf(const Season &season, std::string_view button, std::size_t most = driverSlots)
{
    const auto of =
        std::find_if(fieldStatistics.begin(), fieldStatistics.end(), [=](const auto &s) { return s.button == button; });
    const RankedField field = rankField(fieldEntries(season, *of), season.numbers());
    std::string text;
    for (std::size_t row = 0; row < most; ++row)
        if (const auto &[name, value, team, gap, favourite] = field.rows[row]; !(name + value).empty())
            text += (text.empty() ? "" : ", ") + name + " " + value;
    return text;
}

TEST(FieldStatistics, LeadersOf2004)
{
    const Desk desk;
    const std::pair<const char *, const char *> leaders[] = {
        {"Command8", "Michael Schumacher 148, Rubens Barrichello 114, Jenson Button 85"},
        {"Command10", "Ferrari 262, BAR 119, Renault 105"},
        {"Command2", "Michael Schumacher 211, Rubens Barrichello 195, David Coulthard 175"},
        {"Command3", "Michael Schumacher 1186, David Coulthard 475, Rubens Barrichello 451"},
        {"Command4", "Michael Schumacher 83, David Coulthard 13, Jacques Villeneuve 11"},
        {"Command5", "Michael Schumacher 137, David Coulthard 60, Rubens Barrichello 57"},
        {"Command6", "Michael Schumacher 63, Rubens Barrichello 13, Jacques Villeneuve 13"},
        {"Command7", "Michael Schumacher 14, Rubens Barrichello 12, David Coulthard 11"},
        {"Command18", "Michael Schumacher 5.6, Juan Pablo Montoya 3.3, David Coulthard 2.7"},
        {"Command11", "Michael Schumacher 39.3, David Coulthard 7.4, Jacques Villeneuve 7.3"},
        {"Command12", "Michael Schumacher 29.9, Juan Pablo Montoya 16.2, Jacques Villeneuve 8.7"},
        {"Command13", "Michael Schumacher 64.9, David Coulthard 34.3, Juan Pablo Montoya 33.8"},
        {"Command14", "Michael Schumacher 5.9, David Coulthard 1.2, Jacques Villeneuve 1.2"},
        {"Command15", "Michael Schumacher 9.8, Juan Pablo Montoya 5.8, David Coulthard 5.5"},
        {"Command16", "Michael Schumacher 84.7, Juan Pablo Montoya 55.3, David Coulthard 43.2"},
        {"Command17", "Michael Schumacher 4.5, Juan Pablo Montoya 2.8, Jacques Villeneuve 1.4"},
    };
    static_assert(std::size(leaders) == fieldStatistics.size());
    for (const auto &[button, rows] : leaders)
        EXPECT_EQ(rowsOf(Season(desk.store, "2004"), button, 3), rows) << button;
}

// Drivers by number, "Name | team | points | wins | races", keys of section N° besides, and the rows of a figure.
TEST(FieldStatistics, WhoStandsInWhichRow)
{
    const Lines shares{"Neuf|A|0|0|0", "Un|A|0|1|8", "Nul|B|0|0|", "Deux|B|0|2|8", "Texte|B|0|1|x"};
    const struct {
        Lines drivers, keys;
        const char *button, *rows;
    } cases[] = {
        // level ones in the order of their numbers
        {{"Un|A|5", "Mot|A|loin", "Deux|B|9", "Trois|B|5"}, {}, "Command8", "Deux 9, Un 5, Trois 5, Mot loin"},
        // who has no value keeps no row from the others; the last such name of all is seen behind them
        {shares, {}, "Command11", "Deux 25,0, Un 12,5"},
        {shares, {"nom26=Dernier"}, "Command11", "Deux 25,0, Un 12,5, Dernier "},
        {shares, {}, "Command14", ""}, // nobody's seasons are counted
        {{"Un|Zonda", "Deux|Alfa", "Trois|Zonda", "Quatre|Aucune", "Cinq|", "Six|Alfa", "Sept|Bert"},
         {"ptsecurieZonda=7", "ptsecurieAlfa=7", "ptsecurieAucune=2", "ptsecurieBert=70"},
         "Command10",
         "Bert 70, Zonda 7, Alfa 7, Aucune 2"},
    };
    const Lines prefixes{"nom", "ecurie", "nbpts", "vic", "nbgp"};
    for (const auto &c : cases) {
        Desk desk(Desk::empty, ',');
        for (std::size_t number = 1; number <= c.drivers.size(); ++number)
            for (std::size_t i = 0; const std::string &value : split(c.drivers[number - 1], '|'))
                desk.write("2005 [N°] " + prefixes[i++] + std::to_string(number) + "=" + value);
        for (const std::string &key : c.keys)
            desk.write("2005 [N°] " + key);
        EXPECT_EQ(rowsOf(desk.main.season(), c.button), c.rows);
    }
}

}
