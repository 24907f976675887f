// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The charts of one driver's or one team's points in four seasons, summed up or race by race. Each season counts by its
// own scale alone: what its file doesn't give is worth nothing.
#include "charts/chart_instances.h"

namespace circuidex::comparisons {

using namespace charts;

// Of drivers or teams, given by their names; "0" where one scored nothing and where no race was held.
SeriesCells pointsOfDrivers(const Season &season, const results::Scale &scale, const Subjects &names);
SeriesCells pointsOfTeams(const Season &season, const results::Scale &scale, const Subjects &teams);

// A driver's points added up.
inline constexpr Instance form85{.screen = "Form85",
                                 .paper = driverSeasonsPaper,
                                 .rule = Rule::runningTotal,
                                 .base = 9240,
                                 .defaultScale = "50",
                                 .ends = Ends::nowhere,
                                 .subject = Subject::driverName,
                                 .keys = {.thickness = {},
                                          .width = "graphsaison",
                                          .subjects = {},
                                          .scale = "echellecompasaisonpilot",
                                          .scaleSection = keys::gp,
                                          .resumes = Resumes::widthKeptAtClosing},
                                 .read = pointsOfDrivers,
                                 .series = Series::ofSeasons,
                                 .firstSubjects = "nom"};

// Race by race.
inline constexpr Instance form86 = [] {
    Instance chart = form85;
    chart.screen = "Form86";
    chart.rule = Rule::level;
    chart.unit = 750;
    chart.defaultScale = {};
    chart.average = AverageOf::curve;
    chart.keys.width = "graphsaison2";
    chart.keys.scale = {};
    chart.axis = " pts";
    return chart;
}();

// A team's points added up.
inline constexpr Instance form87 = [] {
    Instance chart = form85;
    chart.screen = "Form87";
    chart.defaultScale = "25";
    chart.subject = Subject::teamName;
    chart.keys.width = "graphsaison3";
    chart.keys.scale = "echellecompasaisonpilot3";
    chart.read = pointsOfTeams;
    chart.firstSubjects = "ecurie";
    return chart;
}();

inline constexpr Instance form88 = [] {
    Instance chart = form86;
    chart.screen = "Form88";
    chart.base = 9120;
    chart.unit = 415;
    chart.subject = Subject::teamName;
    chart.keys.width = form87.keys.width; // one thickness for both
    chart.read = pointsOfTeams;
    chart.firstSubjects = "ecurie";
    return chart;
}();

}
