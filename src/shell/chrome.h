// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Where the parts of the standard title bar and the window's edges stand, in twips (15 to the pixel), for a window of a
// given size. The bar is the same on all screens; only its colour is the user's.
#include "shell/twips.h"

namespace circuidex::chrome {

inline constexpr double barHeight = 30 * twipsPerPixel;
inline constexpr double leftEnd = 15 * twipsPerPixel;
inline constexpr double rightEnd = 22 * twipsPerPixel;
inline constexpr double closeSize = 13 * twipsPerPixel;
inline constexpr double dragWidth = 100000; // wider than any screen

inline TwipRect image1apa() { return {0, 0, leftEnd, barHeight}; }
inline TwipRect image2apa() { return {leftEnd, 0, 1082 * twipsPerPixel, barHeight}; }
inline TwipRect image3apa(double width) { return {width - rightEnd, 0, rightEnd, barHeight}; }
inline TwipRect image4apa(double width) { return {width - rightEnd, 8 * twipsPerPixel, closeSize, closeSize}; }
inline TwipRect label1apa() { return {0, 0, dragWidth, barHeight}; }
inline TwipRect label2apa() { return {leftEnd, 6 * twipsPerPixel, dragWidth, 18 * twipsPerPixel}; }

inline TwipLine line1apa(double height) { return {10, barHeight, 10, height, 1}; }
inline TwipLine line2apa(double width, double height) { return {width - 10, barHeight, width - 10, height, 1}; }
inline TwipLine line3apa(double width, double height) { return {0, height - 10, width, height - 10, 1}; }

}
