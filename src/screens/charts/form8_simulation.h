// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Form8 with the simulation of the next Grand Prix under its chart: the points that each of the four drivers is to
// score there, and how it stands.
#include "kinds/subjects_chart.h"
#include "results/simulation.h"

namespace circuidex::screens {

class SimulatingChart : public SubjectsChart {
public:
    SimulatingChart(Context &context, const QString &name, const QString &title, const SubjectsChartRow &row);

protected:
    void showSubjects() override;
    void closing() override;

private:
    QWidget *zone();
    QLayout *head();
    QLayout *score(int series);
    void takeDrivers();
    void simulate(); // Command4
    void stop(); // Command5
    void showState();
    void stayInFront(bool on);

    std::optional<results::Simulation> m_running;
    Label *m_state = nullptr;
};

}
