// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The kind of all screens that answer a question: at the top the boxes that ask it, with arrows that step through the
// possible ones, below the answer. Enter in a box asks.
#include "kinds/name_entry.h"
#include "shell/screen.h"

class QBoxLayout;
class QKeySequence;

namespace circuidex {

class LookupScreen : public Screen {
public:
    using Screen::Screen;

protected:
    // A box with its caption before it; width in pixels, 0 takes what is left.
    Edit *box(QBoxLayout &row, const QString &caption, const QString &name, Field &field, int width,
              std::function<void()> entered);

    struct Arrow {
        QString control;
        QString tip;
        Qt::Key key; // with Ctrl where the key alone moves the text cursor
        std::function<void()> step;
    };
    // "<" and ">" on both sides of a box that was just added to the row.
    void arrows(QBoxLayout &row, Edit *around, Arrow back, Arrow on);

    Button *list(const QString &name, std::function<void()> open); // "Liste"
    Button *mainButton(const QString &name, const QString &caption, const QString &tip, std::function<void()> ask);
    QLayout *foot(QWidget *atRight = nullptr); // "Imprimer", and what stands at the right of it
    void layOut(QWidget *question, QWidget *answer, QLayout *foot); // the whole screen

    Button *arrow(const QString &sign, Arrow made);

    const NameEntry m_known{context.main};
};

}
