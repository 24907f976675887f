// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The kind of all lists of races over many seasons, "Monaco - 2004": a panel of seven columns, three of which are seen
// at a time, so that it stands in one of five positions. A double click on a race opens it.
#include "kinds/lookup_screen.h"

#include <vector>

namespace circuidex {

class RaceList : public LookupScreen {
public:
    static constexpr int rows = 20, columns = 7, seenColumns = 3;

    RaceList(Context &context, const QString &name, const QString &title);

protected:
    // The cells `Label11`, the panel `Picture1` and its arrows, under a heading that the screen keeps.
    QWidget *racePanel(Label *heading);
    void showRaces(const std::vector<std::string> &races); // 140 at most

private:
    void scroll(double by); // twips
    void openRace(int index);

    Table *m_races = nullptr;
    Control *m_panel = nullptr;
};

}
