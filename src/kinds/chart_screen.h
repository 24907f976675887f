// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The screen of a line chart with four series: the painted chart and its parts as named controls, thickness, scale,
// highlight with the moving average, the settings kept, and the pictures of it for other programs. A derived screen
// says whose lines they are, where its controls stand and what a point means.
#include "charts/season_chart.h"
#include "kinds/paper_screen.h"

namespace circuidex {

// The names of the controls that differ from screen to screen, and what they say.
struct ChartControls {
    const charts::Instance &instance;
    std::array<std::string_view, charts::seriesCount> markers; // "=> ", one a series
    std::string_view markerTip;
    std::string_view custom; // caption of the button for lines of the user's own width
    bool entersWidth = false; // Enter in the box of the width does as that button
    bool waits = false; // a drawing shows the wait pointer
};

// A fixed text at the left edge of the paper. It doesn't stand at the height that it names; a fine line leads there.
struct EdgeCaption {
    std::string_view text;
    double top; // twips
    double value;
};

class ChartScreen : public PaperScreen {
public:
    ChartScreen(Context &context, const QString &name, const QString &title, const ChartControls &controls);

protected:
    // Settings and first drawing; the last thing that a derived constructor does.
    void begin();
    void draw();
    void closing() override;

    virtual void takeSubjects() { } // from the controls into the chart, before a drawing and at closing
    virtual void showSubjects() { } // the other way round, after a drawing
    virtual QString seriesName(int series) const; // beside its line; empty for a series that nobody chose
    virtual QString pictureTitle() const { return title(); }
    virtual QString subjectName(int series) const; // whose value a point is
    virtual QString valueText(int series, int slot) const; // what a point says: points, or places gained
    virtual std::vector<EdgeCaption> edgeCaptions() const { return {}; }

    Label *marker(int series);
    // "Imprimer", thickness and scale at the left; what is added stands at the right.
    QHBoxLayout *settingsRow(bool prints);
    QLayout *driversPanel(int series, const QString &caption); // of the team that a series draws
    Button *drawButton(const QString &caption = u"Traçer courbe"_s);
    QColor colour(int series) const;

    charts::SeasonChart m_chart;

private:
    QLayout *thicknessRow();
    QLayout *scaleRow();
    bool highlighted(int series) const;
    QString raceName(int series, int slot) const;
    QString gainText(int series, int slot) const;
    void showDrivers();
    bool masked() const { return m_chart.instance().ends != charts::Ends::nowhere; }
    void registerLines();
    void registerAverage();
    void showChart();
    table_text::Grid figures() const override;
    QString figure(int series, int slot) const;
    void addSeries(ChartPicture &picture) const;
    void addAverage(ChartPicture &picture) const;
    void addScale(ChartPicture &picture) const;
    void addEdgeCaptions(ChartPicture &picture) const;
    void addHeight(ChartPicture &picture, const QString &caption, double centre, double right) const;
    std::vector<TwipLine> averageLines() const;
    std::pair<QString, int> averageName(int piece) const;
    const Control *averagePiece(int piece) const;
    TwipRect mask() const;

    const ChartControls &m_controls;
};

// Enter in a box, without Shift, Ctrl or Alt.
void onEnter(Edit *edit, std::function<void()> handler);

}
