// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What a screen reader says and presses. Boxes bear no caption of their own: the words before them do, so each box takes
// its name from there. Labels and pictures that answer a click are buttons to it.
#include <QString>

#include <vector>

class QWidget;

namespace circuidex {

void makePressable(); // once for the program

// Names all that takes the keyboard in a screen and lets Tab reach its pictures; the title is for what stands alone.
void nameControls(QWidget &body, const QString &title);

// All widgets of a screen, as the layout has them, and the words that stand for each; none where there are no words.
struct Captioned {
    QWidget *widget;
    QString caption;
};
std::vector<Captioned> captionsIn(const QWidget &body);

}
