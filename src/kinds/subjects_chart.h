// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The screen of a line chart that compares four drivers or teams of one season Grand Prix by Grand Prix: who they are
// and how to choose another, where told so the subjects two by two in bars and words, and the way to other charts. Each
// such chart is a row of data; one with more of its own derives from this.
#include "kinds/chart_screen.h"
#include "kinds/picker.h"

namespace circuidex {

// What a chart shows beside its lines.
struct SubjectsChartRow {
    ChartControls controls;
    PickList list;
    std::string_view word, wordEnd = {}; // to the list, around the number of the series
    std::string_view explanation = {};
    std::array<EdgeCaption, 9> captions = {};
    std::array<std::pair<std::string_view, std::string_view>, 3> links = {}; // to other charts: caption, screen

    bool hasPairs() const { return !controls.instance.leads.empty(); }
    bool hasLinks() const { return !links[0].first.empty(); }
    bool byNumber() const { return controls.instance.subject == charts::Subject::driverNumber; }
};

class SubjectsChart : public ChartScreen {
public:
    SubjectsChart(Context &context, const QString &name, const QString &title, const SubjectsChartRow &row);

protected:
    // Lays the screen out, with what a derived one adds under the chart, and draws; the last thing that its constructor
    // does.
    void layOut(QWidget *added = nullptr);

    void takeSubjects() override;
    void showSubjects() override;
    QString pictureTitle() const override;
    QString valueText(int series, int slot) const override;
    std::vector<EdgeCaption> edgeCaptions() const override;

private:
    QWidget *subjects();
    QLayout *subject(int series);
    QWidget *pairs();
    QLayout *pair(int index);
    QLayout *foot();
    QLayout *links();
    void registerCells();
    void registerBar(int bar);
    void choose(int series);
    void showPair(int index);
    QString unplacedCaption() const;

    const SubjectsChartRow &m_row;
    std::array<Label *, charts::seriesCount> m_names{};
    std::array<ChartView *, 2> m_bars{};
    std::array<Label *, 2> m_sentences{};
    std::array<Label *, charts::seriesCount> m_points{};
};

}
