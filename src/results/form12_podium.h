#pragma once
// Form12, the podium: the first three of a Grand Prix with their pictures, and a walk through the podiums of the season.
#include "results/main_screen.h"
#include "shell/screens.h"

namespace circuidex {

class Form12 : public Screen {
public:
    Form12(Context &context, const QString &name, const QString &title);

private:
    QWidget *step(int column, int blockHeight);
    void fill(int column);
    void walk(const QString &mainScreenButton);
    void showLarge(int column);

    MainScreen &m_main;
    std::array<TimerControl *, 3> m_timers{};
    std::array<Picture *, 3> m_second{}; // the drivers' second pictures, hidden while blank
};

}
