// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A figure that says better or worse: its text, with the sign that the tables show, and the tone in which the cell
// stands. A screen turns the tone into a colour: gain, loss and level have theirs, a cell without a tone is white.
#include "store/number.h"

namespace circuidex::standings {

enum class Tone { none, gain, loss, level };

struct Toned {
    std::string text;
    Tone tone = Tone::none;
};

// "+3" or "-3"; the given word for 0.
std::string signedText(double value, std::string_view zero, const Numbers &numbers);

// What was gained: "+3", "-3" or "=", in the tone of its sign. Absent: empty and without a tone.
Toned toned(std::optional<double> gained, const Numbers &numbers);

}
