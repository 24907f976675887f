// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One table for all lists and grids. Its columns bear control names, so that `Text3(4)` is a cell with text, colours, tip
// and place; an index outside the column does nothing. A person can select, copy and read it with a screen reader.
#include "shell/control.h"

#include <QAbstractTableModel>
#include <QTableView>

#include <map>
#include <memory>
#include <vector>

namespace circuidex {

struct Column {
    QString name;             // of the control array; it may run on in a further column
    QString title;            // over the column
    int width = 0;            // pixels; 0 takes what is left
    Qt::Alignment align = Qt::AlignLeft;
    QString tip = {};         // over each cell that has none of its own
    int firstIndex = 0;       // the index of the first row
    bool command = false;     // a click on a cell does something: pointing hand
    QStringList rowNames = {}; // cells that are no array but bear names of their own, row by row
    QColor back = {};          // that its cells begin with; none without
};

class Table;

class Cell : public Control {
public:
    Cell(Table &table, int row, int column) : m_table(table), m_row(row), m_column(column) {}
    QString text() const override { return m_text; }
    void setText(const QString &text) override;
    QString tip() const override;
    void setTip(const QString &tip) { m_tip = tip; }
    void setBold(bool bold);
    bool bold() const { return m_bold; }
    TwipRect geometry() const override;
    void key(const QString &name) override;

protected:
    void coloursChanged() override;
    void doPress() override;
    void doDoubleClick() override;

private:
    Table &m_table;
    int m_row, m_column;
    QString m_text, m_tip;
    bool m_bold = false;
};

class CellModel : public QAbstractTableModel {
    Q_OBJECT
public:
    CellModel(Table &table, std::vector<Column> columns, int rows);
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    Cell &cell(int row, int column) const { return *m_cells[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)]; }
    const std::vector<Column> &columns() const { return m_columns; }
    void changed(int row, int column);
    void setTitle(int column, const QString &title, const QString &tip); // over the column

private:
    std::vector<Column> m_columns;
    std::map<int, QString> m_titleTips;
    std::vector<std::vector<std::unique_ptr<Cell>>> m_cells;
};

class Table : public QTableView {
    Q_OBJECT
public:
    Table(std::vector<Column> columns, int rows, QWidget *parent = nullptr);

    // The cell of a control name and index; null outside.
    Cell *cell(QStringView name, int index) const;
    // The cell with a name of its own; null when there is none.
    Cell *cell(QStringView rowName) const;
    QStringList names() const; // of all cells, as "Text3(4)" or "Text34"

    void set(QStringView name, int index, const QString &text);
    void setBack(QStringView name, int index, std::optional<QColor> colour);
    QString text(QStringView name, int index) const;

    // A click, a double click or the key Delete on a cell; the index is the column's, and of a cell with a name of its own its row.
    std::function<void(const QString &name, int index)> onPress, onDoubleClick, onDelete;

    // All of it as text: a line a row, cells separated by tabs, titles first.
    QString asText() const;

    void setTitleLines(int lines); // a title too wide for its column wraps
    int rowsHigh(int rows) const; // pixels that so many rows and the titles take
    CellModel &model() const { return *m_model; }

    void pressed(int row, int column, bool twice);
    void goTo(int row, int column); // the current cell

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    CellModel *m_model;
};

}
