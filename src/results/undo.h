// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Undoing and redoing the user's last action on the files, with the main screen following. Both tell the user on the
// quiet line what was done, or why not.
#include "results/main_record.h"

namespace circuidex::results {

enum class Turn { undo, redo };

// What the main screen shows, asked before its files are changed behind it; afterwards it shows it as they hold it. A
// season that is gone gives way to the one before. What was typed and isn't stored can be taken up again.
struct OnShow {
    bool inCalendar = true; // false: a race that was opened by its name
    bool stored = true; // the season has a file
};
OnShow onShow(const MainRecord &main);
void showAnew(MainRecord &main, OnShow before);

// In French, why it can't be done; empty when nothing stands in the way.
std::string hindrance(MainRecord &main, Turn turn);

// False when it was refused; nothing is changed then. The season, the race and the scale on show are read anew; a
// season that is gone by it gives way to the one before.
bool turnHistory(MainRecord &main, Turn turn);

}
