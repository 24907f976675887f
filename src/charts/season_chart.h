// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One chart as its screen shows it: what the user chose, and what the last drawing made of it. A season gives the
// values anew at each drawing and keeps the choices under the chart's keys. A chart of seasons draws this season as its
// first series and the three years before it as the others, each from its own file, all for the first subject.
#include "charts/chart_instances.h"
#include "charts/pair.h"
#include "statistics/season_summary.h"
#include "store/field.h"

namespace circuidex::charts {

class SeasonChart {
public:
    explicit SeasonChart(const Instance &instance);

    const Instance &instance() const { return m_instance; }

    std::array<Field, seriesCount> subjects; // numbers or names; a chart of seasons has only the first
    Field scale;
    Field width{"2"}; // of the lines, when the user sets one

    void open(const WritableSeason &season); // takes thickness, subjects and scale from their keys; draw() comes next
    void draw(const WritableSeason &season, const results::Scale &points);
    void drawNormal(const WritableSeason &season);
    void drawCustom(const WritableSeason &season); // a width that lines can't have is kept and leaves them as they are
    void highlight(int series, const Numbers &numbers);
    void close(const WritableSeason &season) const; // keeps subjects and scale

    Season seasonOf(int series, const Season &season) const; // the one whose values a series draws

    const Curve &curve(int series) const { return m_curves[static_cast<std::size_t>(series)]; }
    int lineWidth(int series) const { return m_widths[static_cast<std::size_t>(series)]; }
    double mask() const { return m_mask; }
    const Average &average() const { return m_average; }
    bool averageShown() const { return m_averageShown; }
    const std::string &name(int series) const { return m_names[static_cast<std::size_t>(series)]; } // subject, or year
    const std::string &cell(int series, int slot) const; // the value at a slot, as text
    bool restartsAt(int series, int slot) const; // a sum of gains is back at 0 there
    double sumTo(int series, int slot, const Numbers &numbers) const; // of the values so far, this slot's included
    void setCell(int series, int slot, const std::string &text);
    const Pair &pair(int index) const { return m_pairs[static_cast<std::size_t>(index)]; } // 0: the first two subjects
    const statistics::TeamDrivers &drivers(int series) const { return m_drivers[static_cast<std::size_t>(series)]; }
    std::vector<Tick> ticks(const Numbers &numbers) const; // of a chart with a scale or an axis

private:
    const std::string &subject(int series) const;
    std::string firstSubject(int series, const Season &season) const;
    void resumeThickness(const WritableSeason &season);
    void readValues(const Season &season, const results::Scale &points);
    void nameSeries(const Season &season);
    std::optional<int> end(const Season &season) const;
    void drawSeries(int series, const Numbers &numbers);
    void drawPair(int index, const Season &season);
    std::string total(int series, const Season &season) const;
    std::optional<double> unit(const Numbers &numbers) const;
    void parkAverage();

    const Instance &m_instance;
    std::array<Curve, seriesCount> m_curves;
    Widths m_widths = thin;
    double m_mask = outside;
    Average m_average;
    bool m_averageShown = false;
    Subjects m_names;
    std::array<statistics::TeamDrivers, seriesCount> m_drivers;
    SeriesCells m_values;
    std::array<Pair, 2> m_pairs;
};

}
