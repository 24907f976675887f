// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A small line at the foot of a table that finds a text in its cells: from the current cell on, in the order of the
// view, and round again. Enter goes on, Shift+Enter back, Escape closes it.
#include <QFrame>

class QLabel;
class QLineEdit;

namespace circuidex {

class Table;

class FindLine : public QFrame {
public:
    explicit FindLine(Table &table);

    void open();
    void step(int by); // to the next hit (1) or the one before (-1)
    const QString text() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    bool event(QEvent *event) override;

private:
    struct Place {
        int row, column; // as seen
        auto operator<=>(const Place &) const = default;
    };
    std::vector<Place> hits() const;
    void typed();
    void show(const std::vector<Place> &hits, std::size_t at);
    void settle();
    bool onKey(QKeyEvent &event);
    void leave();

    Table &m_table;
    QLineEdit *m_text;
    QLabel *m_count;
    Place m_from{0, 0}; // the current cell when the line was opened
};

}
