#pragma once
// Form48, the starting grid of a Grand Prix as a table. Changing exactly one place moves the pole with it.
#include "results/main_screen.h"
#include "shell/screens.h"

namespace circuidex {

class Form48 : public Screen {
public:
    Form48(Context &context, const QString &name, const QString &title);

private:
    void load();
    void step(std::string_view stop, std::string_view beside, double by);
    void pick(int row);
    void store();
    void movePole();
    void countEdits(int edits);

    MainScreen &m_main;
    Field m_cursor; // Label40
    Field m_gp;     // Text5
    Table *m_grid = nullptr;
    int m_edits = 0; // clicks on places since the screen was loaded
};

}
