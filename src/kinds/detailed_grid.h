// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The kind of all detailed tables of a season: one row for each driver or team, one cell for each Grand Prix, in two
// bands of ten races one above the other. What stands left and right of the races is given as data.
#include "shell/screen.h"

#include <array>

namespace circuidex {

struct DetailedGridKind {
    int rows = 26; // of each band
    Column name; // at the left; the lower band continues its numbers
    std::array<std::vector<Column>, 2> atRight; // of the upper and the lower band
};

class DetailedGrid : public Screen {
public:
    static constexpr int races = 20, racesOfBand = 10;
    static constexpr int stride = 26; // cell Text5(row + 26 * race), rows from 0, whatever the number of rows is

    DetailedGrid(Context &context, const QString &name, const QString &title, const DetailedGridKind &kind);

protected:
    // Race 0 to 19; the whole name is the tip of a head too narrow for it.
    void setRace(int race, const std::string &name);
    // Row from 0. Text in brackets at the end is a mark, shown small behind the figure.
    void setCell(int row, int race, const std::string &text);
    // A cell of the columns beside the races, or the name.
    void set(QStringView column, int index, const std::string &text);

    std::array<Table *, 2> m_bands{};

private:
    Table *band(const DetailedGridKind &kind, int which, int rowHeight);
    void showHead(int race, const QString &name);
};

}
