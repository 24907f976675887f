// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What every table offers beside what its screen does with it, by the right mouse button, the menu key and keys of its
// own: copying with titles, saving as CSV and HTML, finding a text, and sorting where the order of the rows isn't the
// meaning.
#include <QObject>

#include <functional>

class QKeyEvent;
class QPoint;

namespace circuidex {

class Dialogs;
class FindLine;
class Screen;
class Table;
class TableSort;

class TableMenu : public QObject {
public:
    struct Surroundings {
        const Screen &screen;
        Dialogs &dialogs;
        std::function<QString()> season; // on show at this moment
        std::function<char()> decimal; // the user's separator in numbers
    };
    TableMenu(Table &table, Surroundings surroundings);

    static TableMenu *of(const Table &table); // null for a table outside a screen

    void find();
    void allowSorting();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Entry;
    std::vector<Entry> entries(int column);
    void open(const QPoint &at, int column);
    bool onKey(const QKeyEvent &event);
    void copy(bool all);
    void save(const QString &kind);

    Table &m_table;
    Surroundings m_surroundings;
    TableSort *m_sort = nullptr;
    FindLine *m_find = nullptr;
};

// For a table whose rows stand as they were entered or as the calendar has them: it may be sorted by any column.
void allowSorting(Table &table);

}
