// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The rows of a table in another order, for the eye alone: a row keeps its number, so that its cells mean the same to
// the program, and a click finds the row that it hit. The order follows when the texts change.
#include <QObject>

class QLabel;

namespace circuidex {

class Table;

// How two texts of a column stand to each other: numbers by their value, dates as day, month and year, names without
// regard to accents and capitals.
bool comesBefore(const QString &a, const QString &b);

class TableSort : public QObject {
public:
    explicit TableSort(Table &table);

    // By this column, upwards at first and then downwards; cells that hold nothing come last.
    void by(int column);
    void back(); // to the table's own order
    bool sorted() const { return m_column >= 0; }

private:
    void arrange();
    void soon();
    void mark();

    Table &m_table;
    QLabel *m_mark; // over the title of the column
    int m_column = -1;
    Qt::SortOrder m_order = Qt::AscendingOrder;
    bool m_arranging = false;
};

}
