// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The charts of places gained in the race: what four drivers or teams gained in a season, or one of them in four, Grand
// Prix by Grand Prix or summed up. All hold their lines against one for zero.
#include "charts/chart_instances.h"

namespace circuidex::progression {

using namespace charts;

// Gains of drivers, given by their numbers or their names; empty where one of the two places is unknown. A sum starts
// anew where a driver has no place on the grid.
SeriesCells gainsOfNumbers(const Season &season, const results::Scale &scale, const Subjects &numbers);
SeriesCells gainsOfDrivers(const Season &season, const results::Scale &scale, const Subjects &names);

// Of teams, given by their names: the sum over the first four of their drivers, empty where none of them has a gain.
// It never starts anew.
SeriesCells gainsOfTeams(const Season &season, const results::Scale &scale, const Subjects &teams);

inline constexpr double twipsAPlace = 219;

// The thickness is that of the drivers' points, but a chart opens with thin lines.
constexpr SettingKeys thicknessKeys(Resumes resumes)
{
    return {.thickness = form8.keys.thickness, .width = form8.keys.width, .subjects = {}, .resumes = resumes};
}

constexpr SettingKeys subjectKeys(std::string_view key)
{
    SettingKeys keys = thicknessKeys(Resumes::width);
    keys.subjects = key;
    keys.subjectsSection = keys::N;
    return keys;
}

constexpr Instance summedUp(Instance chart, std::string_view screen, Clears clears)
{
    chart.screen = screen;
    chart.rule = Rule::cumulatedGain;
    chart.unit = twipsAPlace / 200;
    chart.defaultScale = "100";
    chart.clears = clears;
    return chart;
}

// One subject in four seasons.
constexpr Instance overSeasons(Instance chart, std::string_view screen, const Paper &paper, std::string_view first)
{
    chart.screen = screen;
    chart.paper = paper;
    chart.ends = Ends::nowhere;
    chart.keys = thicknessKeys(Resumes::width);
    chart.leads = {};
    chart.series = Series::ofSeasons;
    chart.firstSubjects = first;
    return chart;
}

// Four drivers, race by race.
inline constexpr Instance form101{.screen = "Form101",
                                  .paper = driverPointsPaper,
                                  .rule = Rule::gain,
                                  .base = 8569,
                                  .unit = twipsAPlace,
                                  .defaultScale = "1",
                                  .ends = Ends::atResults,
                                  .average = AverageOf::curve,
                                  .subject = Subject::driverNumber,
                                  .keys = subjectKeys("nomprogression"),
                                  .read = gainsOfNumbers,
                                  .refreshesScale = true,
                                  .leads = form8.leads,
                                  .zeroLine = 8569};

inline constexpr Instance form102 = [] {
    Instance chart = summedUp(form101, "Form102", Clears::firstRace);
    chart.keys = subjectKeys("nomprogression2");
    chart.refreshesScale = false;
    chart.zeroLine = 8565;
    return chart;
}();

// One driver in four seasons.
inline constexpr Instance form103 = [] {
    Instance chart = overSeasons(form101, "Form103", driverSeasonsPaper, "nom");
    chart.base = 7320;
    chart.zeroLine = 7320;
    chart.subject = Subject::driverName;
    chart.keys = thicknessKeys(Resumes::nothing);
    chart.read = gainsOfDrivers;
    chart.refreshesScale = false;
    return chart;
}();

inline constexpr Instance form104 = summedUp(form103, "Form104", Clears::firstRace);

// Four teams.
inline constexpr Instance form105 = [] {
    Instance chart = form101;
    chart.screen = "Form105";
    chart.unit = twipsAPlace / 2;
    chart.subject = Subject::teamName;
    chart.keys = subjectKeys("nomprogressionecu");
    chart.read = gainsOfTeams;
    chart.leads = {};
    chart.firstSubjects = "ecurie";
    chart.zeroLine = 8565;
    chart.showsDrivers = true;
    return chart;
}();

inline constexpr Instance form106 = [] {
    Instance chart = summedUp(form105, "Form106", Clears::allRaces);
    chart.keys = subjectKeys("6nomprogressionecu");
    return chart;
}();

// One team in four seasons.
inline constexpr Instance form107 = [] {
    Instance chart = overSeasons(form105, "Form107", teamPointsPaper, "ecurie");
    chart.unit = twipsAPlace / 200;
    chart.defaultScale = "100";
    chart.clears = Clears::allRaces;
    return chart;
}();

inline constexpr Instance form108 = summedUp(form107, "Form108", Clears::allRaces);

}
