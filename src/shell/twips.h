// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Twips, the unit of layout: 1440 to the inch, 15 to the pixel, Y downward.

namespace circuidex {

inline constexpr double twipsPerPixel = 15;

// A control or a window further off than this is out of sight: it stays open and can't be reached with the mouse. The
// largest display the screens are made for ends at 15360.
inline constexpr double outOfSight = 20000;

struct TwipRect {
    double left = 0, top = 0, width = 0, height = 0;
};

struct TwipLine {
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    int width = 1; // pixels
};

}
