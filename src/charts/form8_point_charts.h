#pragma once
// The charts that compare four drivers or teams Grand Prix by Grand Prix: points added up (Form8, Form41) with the
// subjects two by two in bars and words, place at the finish (Form45), place on the grid (Form53) and a team's points
// in each race (Form71). Each is a row of one table.
#include "shell/chart_screen.h"

namespace circuidex {

struct PointChartRow;

class PointChart : public ChartScreen {
public:
    // The row is found by the screen's name.
    PointChart(Context &context, const QString &name, const QString &title);

protected:
    void takeSubjects() override;
    void showSubjects() override;
    QString meaning(int series, int slot) const override;
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

    const PointChartRow &m_row;
    std::array<Label *, charts::seriesCount> m_names{};
    std::array<ChartView *, 2> m_bars{};
    std::array<Label *, 2> m_sentences{};
    std::array<Label *, charts::seriesCount> m_points{};
};

}
