// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A picture in a window of its own, at its own size or stretched to the window: Form13 beside the main screen, Form16
// beside the photo gallery. The window comes back as large as it was closed.
#include "shell/screens.h"

class QScrollArea;

namespace circuidex {

class Viewer : public Screen {
protected:
    // What the screen adds: what stands between the arrows, and a heading beside them; null for none.
    Viewer(Context &context, const QString &name, const QString &title, QWidget *between = nullptr,
           QWidget *heading = nullptr);

    virtual void step(int by) = 0; // the next picture, or the one before
    virtual void said(bool stretched) { (void)stretched; } // after each of the two buttons

    void showAsLarge(); // at its own size, the window around it
    void stretch();
    void closing() override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void place(const TwipRect &picture);
    QLayout *foot(QWidget *between, QWidget *heading);

    Picture *m_picture;
    QScrollArea *m_area;
    bool m_fitting = false; // the window takes the picture's size
};

}
