// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The kind of all ranked tables: the ranks' fixed names at the left, and behind them columns given as data. A rank's
// name belongs to its row, whoever stands there. Rows count from 1.
#include "shell/screen.h"

namespace circuidex {

class RankedScreen : public Screen {
public:
    using Screen::Screen;

protected:
    // A click on a row, in any of the columns, or Enter on it gives its number.
    Table *rankedTable(std::vector<Column> columns, int rows, std::function<void(int row)> chosen);

    // The back colour of a row, but for the rank's name; none takes it away.
    static void light(const Table &table, int row, std::optional<QColor> colour);
};

}
