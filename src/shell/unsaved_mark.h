// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The mark on what stores an entry, as long as something was typed and isn't stored: a small dot at its right end. The
// caption stays what it is, and nothing moves.
#include <QWidget>

namespace circuidex {

class UnsavedMark : public QWidget {
public:
    explicit UnsavedMark(QWidget *saver); // belongs to it
    void setOn(bool on);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void place();
};

}
