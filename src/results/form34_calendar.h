#pragma once
// Form34, the calendar of the season: the Grand Prix of each slot and its date. Naming a slot anew leaves the results
// under the old name.
#include "results/main_screen.h"
#include "shell/screens.h"

namespace circuidex {

class Form34 : public Screen {
public:
    Form34(Context &context, const QString &name, const QString &title);

protected:
    void closing() override; // the main window comes back in sight
    void keyPressEvent(QKeyEvent *event) override;

private:
    QLayout *rows();
    Edit *box(const char *array, int slot);
    void load();
    void store();
    void stepFocus(int by);

    MainScreen &m_main;
    QLabel *m_heading = nullptr;
    std::array<Edit *, gpSlots> m_names{}, m_dates{};
};

}
