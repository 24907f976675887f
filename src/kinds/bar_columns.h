// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The kind of the upright bars: how often a driver, or a team, stood at each place of the first so many races, in one
// season or in four side by side. The places of the grid stand on a strip wider than the screen, which runs to the left
// and to the right, stops and turns.
#include "charts/bar_fit.h"
#include "kinds/bar_display.h"
#include "kinds/picker_routes.h"
#include "kinds/season_key.h"

namespace circuidex {

// The bars of one season: arrays of controls, and their colours by place, or one for all.
struct ColumnsOfSeason {
    QString finish, grid;
    std::vector<QColor> finishColours, gridColours;
    QString head = {}; // of the season; none for a single one
};

struct ColumnsKind {
    charts::Counted counted;
    QString subject; // the control of the name
    QString word; // to the list that it is chosen from
    std::vector<ColumnsOfSeason> seasons; // the newest first
    QString print; // the command of that name
    bool leadsToRaces; // a click on a bar lists the races behind it
    bool waits; // a drawing shows the wait pointer
    double gridTrace; // twips, of a place that was never held
    bool passesEnds; // the strip runs past its two ends, or just to them
};

class BarColumns : public BarDisplay {
public:
    BarColumns(Context &context, const QString &name, const QString &title, ColumnsKind kind);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Column {
        Bar bar;
        int season;
    };
    struct Block {
        standings::Stage stage;
        ChartView *view;
        std::vector<Column> columns; // in the order of the places, newest season first
    };
    struct Direction { // of the strip
        Button *button;
        TimerControl *timer;
        QString arrow;
        double step;
    };
    QWidget *question();
    QWidget *finish();
    QWidget *grid();
    QLayout *heads();
    Block block(standings::Stage stage);
    void addColumn(Block &block, int season, int place);
    TwipRect extent(standings::Stage stage, int season, int place) const;
    void registerStrip(QLayout &row);
    Direction direction(const QString &button, const QString &timer, const QString &arrow, const QString &tip,
                        double step);
    void turn(const Direction &own, const Direction &other);
    void tick(const Direction &own);
    void halt();
    void slide(double by); // twips, by hand
    void bringIntoView(int target);
    void stepCount(int by, int end);
    void draw(); // Command1
    bool count(); // false when there is nobody to count
    void tell() const; // counts and tooltips of the bars
    void show(const Block &block) const;
    void addPlaces(ChartPicture &picture, const Block &block) const;
    void listRacesOf(const Column &column) const;
    QString lastRace() const;
    QStringList yearsShown() const; // of the columns

    bool single() const { return m_kind.seasons.size() == 1; }

    ColumnsKind m_kind;
    Field m_subject, m_driver; // nomecurie or nompilote; nompilote beside a nomecurie
    Field m_races, m_year; // noggp, an
    std::vector<std::string> m_years; // of the seasons
    std::vector<charts::PlaceCounts> m_counts, m_shown; // by season: counted, and as the bars' heights show
    std::vector<charts::BarLengths> m_heights;
    Block m_finish, m_grid;
    double m_stripLeft; // twips
    Direction m_back{}, m_on{};
    QLabel *m_lastRace = nullptr;
    std::optional<SeasonKey> m_key; // none to a single season
};

}
