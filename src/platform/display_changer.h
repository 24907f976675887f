// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Another mode for the display, and the user's own again: with a note kept in between, so that the old mode comes back
// also after a program that died.
#include "platform/display_note.h"

#include <functional>
#include <memory>

namespace circuidex {

class DisplayChanger {
public:
    // `output` gives the display, or null where its mode can't be changed.
    using Finder = std::function<std::unique_ptr<DisplayOutput>()>;
    DisplayChanger(Finder output, std::filesystem::path noteFolder);

    // The mode at this moment; absent where it can't be changed.
    std::optional<OutputMode> present() const;

    // A mode of this very size at the rate that is nearest; but the user's own size comes at his own rate. False, and
    // all as it was, when the display hasn't it or refuses.
    bool change(int width, int height, int hertz);

    // The mode that is nearest in size, whatever its rate.
    void changePlainly(int width, int height);

    // What a start does first: when an earlier program died with the display changed, and it still is, the old mode.
    void putBack();

private:
    int rateFor(const DisplayOutput &output, const OutputMode &size, int hertz) const;
    bool set(DisplayOutput &output, const OutputMode &mode);
    void note(const NotedDisplay &noted);

    Finder m_output;
    DisplayNote m_note;
    std::optional<NotedDisplay> m_noted;
};

}
