// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What the window systems do each in its way: a borderless window that moves, grows and belongs to another. On X a
// window may place itself; a Wayland compositor moves it for us, and places menus beside the window they belong to.
#include <QWidget>

#include <vector>

namespace circuidex {

bool onWayland();

bool canGrow(const QWidget &window); // a screen of fixed size can't
void toggleMaximised(QWidget &window);

// Before it is shown: it stays above its owner, and a menu opens beside it. Nothing is done on X.
void attach(QWidget &window, const QWidget *owner);

// Narrow strips along the left, right and lower edge of a window and in its lower corners, by which it is resized.
class EdgeGrips {
public:
    explicit EdgeGrips(QWidget &window);
    void place(); // after each change of the window's size

private:
    QWidget &m_window;
    std::vector<QWidget *> m_grips;
};

}
