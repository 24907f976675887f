// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What the history of the user's actions writes down: its steps with the files of each, as they were and as they
// became, in one small text with a checksum. The files' contents lie beside it (store/history.h).
#include <cstdint>
#include <ctime>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace circuidex::history {

// What tells one content of a file from another, or its absence. Of a file too large to be read (a film), size and
// time.
struct Digest {
    bool there = false;
    std::uint64_t size = 0;
    std::uint64_t sum = 0;
    bool operator==(const Digest &) const = default;
};

std::uint64_t sumOf(std::string_view bytes);
Digest digestOf(const std::string &path);

struct Change {
    unsigned copy = 0; // names the other content's file, with the step's number
    std::string file; // in the program folder: "f12005.ini"
    Digest before, after;
};

struct Step {
    unsigned id = 0;
    bool undone = false;
    std::time_t when = 0;
    std::string name; // "enregistrement de Chine 2005"
    std::vector<Change> changes;
};

struct Index {
    unsigned next = 1; // the number of the next step; none is given twice
    unsigned turning = 0; // the step that is being undone or redone, 0 for none
    std::vector<Step> steps; // oldest first; the undone ones last
};

// A file's name as it may stand in an index: it leads nowhere but into the program folder.
bool isInnerName(std::string_view file);

std::string written(const Index &index);
std::optional<Index> parsed(std::string_view bytes); // absent for what written() didn't write

}
