// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A screen with a chart on ruled paper: a line for each Grand Prix of the season and its caption below, as named
// controls, and the pictures of the chart for other programs. What is drawn on the paper is the derived screen's.
#include "charts/chart_instances.h"
#include "shell/chart_view.h"
#include "shell/screen.h"

namespace circuidex {

class PaperScreen : public Screen {
protected:
    // The paper outlives the screen.
    PaperScreen(Context &context, const QString &name, const QString &title, const charts::Paper &paper);

    virtual WritableSeason season() const; // whose calendar it is; the main screen's
    QString gpName(int slot) const;

    ChartView *view() { return m_view; }
    const ChartView *view() const { return m_view; }
    const charts::Paper &paper() const { return m_paper; }

    // A piece of a line, asked for whenever it is painted or looked at.
    ShapeControl &registerLine(const QString &name, std::optional<int> index, QColor colour,
                               std::function<TwipLine()> line);

    // The chart in figures: a row for each Grand Prix, a column for each subject.
    virtual table_text::Grid figures() const = 0;
    enum class Races { named, numbered }; // numbered where each subject has a calendar of its own
    table_text::Grid figuresOf(Races races, const QStringList &subjects,
                               const std::function<QString(int subject, int slot)> &figure) const;

    void addPaper(ChartPicture &picture) const;
    void addLevel(ChartPicture &picture, double y) const; // a level line of the paper

private:
    void registerPaper();
    void registerSaving();

    const charts::Paper &m_paper;
    ChartView *m_view;
};

ChartStroke stroke(const TwipLine &line, const QColor &colour);

inline constexpr double axisCaptionHeight = 225; // twips

}
