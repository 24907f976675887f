// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/ranked_screen.h"

#include "kinds/empty_note.h"
#include "kinds/place_names.h"

namespace circuidex {

Table *RankedScreen::rankedTable(std::vector<Column> columns, int rows, std::function<void(int row)> chosen)
{
    for (Column &column : columns) {
        column.firstIndex = 1;
        column.command = static_cast<bool>(chosen);
    }
    const QString names = columns.front().name;
    columns.insert(columns.begin(), Column{{}, u"Rang"_s, 62, Qt::AlignRight});
    Table *made = table(std::move(columns), rows);
    made->setSelectionBehavior(QAbstractItemView::SelectRows);
    made->setFixedHeight(made->rowsHigh(rows));
    for (int row = 1; row <= rows; ++row)
        made->model().cell(row - 1, 0).setText(placeName(row));
    made->onPress = [made, chosen = std::move(chosen)](const QString &column, int row) {
        made->clearSelection(); // what is lit now tells it
        if (chosen && !column.isEmpty())
            chosen(row);
    };
    add(emptyNote, noteOver(*made, names, context, results::Need::race));
    return made;
}

void RankedScreen::light(const Table &table, int row, std::optional<QColor> colour)
{
    for (int column = 1; column < table.model().columnCount(); ++column)
        table.model().cell(row - 1, column).setBack(colour);
}

}
