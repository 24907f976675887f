#pragma once
// Form4, a Grand Prix as it was: result, grid with teams, and both championships at that moment. It opens on the Grand Prix
// of the main screen and then walks on its own, through Grands Prix and seasons.
#include "results/main_screen.h"
#include "results/open_grand_prix.h"
#include "shell/screens.h"

namespace circuidex {

class Form4 : public Screen {
public:
    Form4(Context &context, const QString &name, const QString &title);

private:
    void registerHidden();
    QLayout *head();
    QWidget *resultCard();
    QWidget *gridCard();
    QWidget *standingsCard();

    Season season() const { return Season(context.store, m_year.text()); }
    void showResultOnly(); // the fields and the grid, without teams and standings
    void showGrid(const Grid &grid);
    void load();           // all but the standings
    void showStandings();
    void open(); // all at once, by the cursor
    void openNamed();
    void step(double by, int last);
    void stepAndShow(double by);
    void changeYear(double by);
    void findSlot();
    void supp();
    void unlight();
    void light(int place);
    void showPodium();

    MainScreen &m_main;
    RaceFields m_race;
    Field m_cursor; // Label40
    Field m_year;   // Text9
    Table *m_result = nullptr, *m_grid = nullptr, *m_drivers = nullptr, *m_teams = nullptr;
    TimerControl *m_delay = nullptr;
};

}
