#pragma once
// Undoing and redoing the user's last action on the files, with the main screen following. Both tell the user on the
// quiet line what was done, or why not.
#include "results/main_record.h"

namespace circuidex::results {

enum class Turn { undo, redo };

// In French, why it can't be done; empty when nothing stands in the way.
std::string hindrance(MainRecord &main, Turn turn);

// False when it was refused; nothing is changed then. The season, the race and the scale on show are read anew; a
// season that is gone by it gives way to the one before.
bool turnHistory(MainRecord &main, Turn turn);

}
