// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A display as the machine gives it, with the modes that it offers, and the choice among them.
#include <optional>
#include <string>
#include <vector>

namespace circuidex {

// As the user sees it: of a display turned on its side, width and height are turned, too.
struct OutputMode {
    int width = 0, height = 0; // in pixels
    int rate = 0; // pictures in a thousand seconds
    bool operator==(const OutputMode &) const = default;
    bool hasSizeOf(const OutputMode &other) const { return width == other.width && height == other.height; }
};

class DisplayOutput {
public:
    virtual ~DisplayOutput() = default;

    virtual std::string name() const = 0;
    virtual OutputMode present() const = 0; // at this moment
    virtual std::vector<OutputMode> offered() const = 0;
    // False when the display didn't take it; then it stays as it was.
    virtual bool set(const OutputMode &mode) = 0;
};

// The offered mode of this very size whose rate is nearest; absent when the size isn't offered.
std::optional<OutputMode> modeOfSize(const std::vector<OutputMode> &offered, const OutputMode &wanted);

// The offered mode whose size is nearest, the first of several; absent without any.
std::optional<OutputMode> nearestMode(const std::vector<OutputMode> &offered, int width, int height);

}
