// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The note of a changed display: which mode the user had and which the program gave him. It outlives a program that
// dies before it has put the old mode back, so that the next start can do so. While the program runs the note is
// locked; another program leaves it alone.
#include "platform/display_output.h"

#include <filesystem>
#include <string_view>

namespace circuidex {

struct NotedDisplay {
    std::string output; // the display's name
    OutputMode own, changed; // the user's mode; what the program set
    bool operator==(const NotedDisplay &) const = default;
};

// One line. What isn't such a line, or tells of modes that no display has, reads as absent.
std::string noteText(const NotedDisplay &noted);
std::optional<NotedDisplay> readNote(std::string_view text);

class DisplayNote {
public:
    explicit DisplayNote(std::filesystem::path folder); // made when it is first needed
    ~DisplayNote();
    DisplayNote(const DisplayNote &) = delete;
    DisplayNote &operator=(const DisplayNote &) = delete;

    // What a program left that has ended meanwhile. A note that can't be read is removed.
    std::optional<NotedDisplay> leftBehind();
    // In place of what it holds. False when it can't be written, or is another running program's.
    bool write(const NotedDisplay &noted);
    void remove();

private:
    bool open(int flags);
    void close();

    std::filesystem::path m_folder, m_file;
    int m_open = -1; // locked
};

}
