// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The screen of a line chart that compares one driver or team over four seasons, a line each: whom and from which year
// back, the key to the seasons, and for a team who drove for it. Each such chart is a row of data.
#include "kinds/chart_screen.h"
#include "kinds/name_entry.h"
#include "kinds/picker.h"
#include "kinds/season_key.h"

namespace circuidex {

struct SeasonsChartRow {
    ChartControls controls;
    std::string_view word; // to the list of drivers or teams
    std::string_view heads; // before the year
    std::string_view draw; // caption of the button
    bool holdsValues = false; // of the season drawn last, the oldest, in Label28

    bool ofTeam() const { return controls.instance.subject == charts::Subject::teamName; }
};

class SeasonsChart : public ChartScreen {
public:
    SeasonsChart(Context &context, const QString &name, const QString &title, const SeasonsChartRow &row);

protected:
    WritableSeason season() const override; // of the screen's own year
    void showSubjects() override;
    QString seriesName(int series) const override;
    QString subjectName(int series) const override;
    QString pictureTitle() const override;

private:
    QWidget *question();
    QLayout *subject();
    QLayout *heads();

    const SeasonsChartRow &m_row;
    const NameEntry m_known{context.main};
    Field m_year; // an
    std::optional<SeasonKey> m_key;
};

}
