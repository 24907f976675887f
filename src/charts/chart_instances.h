// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The line charts of the program as rows of data: paper, rule, scale, where each ends, its average, and the keys under
// which a season keeps what the user chose.
#include "charts/chart_series.h"

#include <cstdint>
#include <string_view>

namespace circuidex::charts {

enum class Rule { runningTotal, level, gain, cumulatedGain };
enum class Ends { nowhere, atResults, atGrids, atPoints };
enum class AverageOf { nothing, values, curve };

// Twips. The paper is as wide as the segments; the grid's lines run past its lower edge, between the captions.
struct Paper {
    double top, bottom;
    double gridFrom, gridTo;
    std::uint32_t gridColour; // 0xRRGGBB
    double left = 0, beyond = 0; // of white paper on both sides of the segments

    constexpr double vertex(int k) const { return left + charts::vertex(k); }
    constexpr double width() const { return charts::vertex(segments); }
    constexpr double right() const { return left + width(); }
    constexpr double sheet() const { return right() + beyond; } // all of the white, from 0 on
};

// A chart's subjects are driver numbers, or names of drivers or teams.
enum class Subject { driverNumber, driverName, teamName };

// Four subjects in the season of the chart, or one in that season and in the three before it.
enum class Series { ofSubjects, ofSeasons };

// What an opening takes up of the thickness last chosen. It is kept when the user chooses it, but by a chart that keeps
// only the width, at its closing.
enum class Resumes { thickness, width, nothing, widthKeptAtClosing };

// What a drawing puts back on the base before it begins. It shows where nothing can be computed.
enum class Clears { nothing, firstRace, allRaces };

// Without a key, a setting isn't kept. The subjects' key is followed by 1 to 4.
struct SettingKeys {
    std::string_view thickness, width; // sections bordergraph and bordergraphtxt
    std::string_view subjects, scale = {};
    std::string_view subjectsSection = "plots", scaleSection = "plots";
    Resumes resumes = Resumes::thickness;
};

struct Instance {
    std::string_view screen;
    Paper paper;
    Rule rule;
    double base; // the height of 0, or of the place counted down from
    double unit = 1; // twips a point or a place; for 1 of the scale box where there is one
    std::optional<double> downFrom = {};
    std::string_view defaultScale = {}; // none without a scale box
    Ends ends;
    AverageOf average = AverageOf::nothing;
    Subject subject;
    SettingKeys keys;
    SeriesCells (*read)(const Season &, const results::Scale &, const Subjects &); // names, or numbers for driverPoints
    bool refreshesScale = false; // the points of the places, at opening
    std::string_view leads = {}; // words of the pair sentences; none without pairs
    Series series = Series::ofSubjects;
    std::string_view firstSubjects = {}; // what drivers 1 to 4 have under this prefix are the subjects at first
    Clears clears = Clears::nothing;
    std::optional<double> zeroLine = {}; // its height
    std::string_view axis = {}; // what follows the figures beside the paper where the scale is fixed; none without
    bool showsDrivers = false; // of the teams

    constexpr bool scaled() const { return !defaultScale.empty(); }
    constexpr bool ofSeasons() const { return series == Series::ofSeasons; }
    constexpr Level level() const { return {base, unit, downFrom}; }
};

// A subject that nobody chose yet, where drivers aren't given by number.
inline constexpr std::string_view clickHere = "Cliquez ici";

// Line1 to Line4.
inline constexpr std::array<std::uint32_t, seriesCount> seriesColours{0xFF0000, 0x00FF00, 0x0000FF, 0xC0C000};

inline constexpr Paper driverPointsPaper{2760, 10455, 10680, 2760, 0xEFFEEF};
inline constexpr Paper teamPointsPaper{2760, 10575, 10800, 2760, 0xEFFEEF};
inline constexpr Paper driverSeasonsPaper{1560, 9375, 9600, 1560, 0xEFFEEF};
inline constexpr Paper placesPaper{1440, 8415, 8645, 1485, 0xE0E0E0};

// A driver's points added up.
inline constexpr Instance form8{.screen = "Form8",
                                .paper = driverPointsPaper,
                                .rule = Rule::runningTotal,
                                .base = 10320,
                                .defaultScale = "50",
                                .ends = Ends::atResults,
                                .subject = Subject::driverNumber,
                                .keys = {"bordernumber", "epa", "n", "echel"},
                                .read = driverPoints,
                                .refreshesScale = true,
                                .leads = " est devant au classement! Il a "};

// A team's points added up.
inline constexpr Instance form41{.screen = "Form41",
                                 .paper = teamPointsPaper,
                                 .rule = Rule::runningTotal,
                                 .base = 10320,
                                 .defaultScale = "30",
                                 .ends = Ends::atResults,
                                 .subject = Subject::teamName,
                                 .keys = {"ebordernumber", "eepa", "en", "eechel"},
                                 .read = teamPoints,
                                 .refreshesScale = true,
                                 .leads = " est devant au classement! Cette écurie a "};

// A driver's place at the finish.
inline constexpr Instance form45{.screen = "Form45",
                                 .paper = placesPaper,
                                 .rule = Rule::level,
                                 .base = 8280,
                                 .unit = 800,
                                 .downFrom = unplaced,
                                 .ends = Ends::atResults,
                                 .average = AverageOf::values,
                                 .subject = Subject::driverName,
                                 .keys = {"pbordernumber", "pepa", "pn"},
                                 .read = finishPlaces};

// A driver's place on the grid.
inline constexpr Instance form53{.screen = "Form53",
                                 .paper = placesPaper,
                                 .rule = Rule::level,
                                 .base = 8280,
                                 .unit = 313,
                                 .downFrom = notOnGrid,
                                 .ends = Ends::atGrids,
                                 .average = AverageOf::values,
                                 .subject = Subject::driverName,
                                 .keys = {"2pbordernumber", "2pepa", "2pn"},
                                 .read = gridPlacesOf};

// A team's points in each race.
inline constexpr Instance form71{.screen = "Form71",
                                 .paper = placesPaper,
                                 .rule = Rule::level,
                                 .base = 8280,
                                 .unit = 350,
                                 .ends = Ends::atPoints,
                                 .average = AverageOf::values,
                                 .subject = Subject::teamName,
                                 .keys = {"2npbordernumber", "2npepa", "2npn"},
                                 .read = teamPoints,
                                 .refreshesScale = true};

}
