// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One INI file as it stands on disk: Windows-1252 bytes with [section] and key=value lines. Order, comments, blank and
// unknown lines are kept as found; a write touches its own line only. Lookup goes through a hash of the folded section
// and key names, so that a read of a parsed file costs next to nothing.
//
// Names are compared without regard to case, accented letters included, and without the blanks around them. Of a
// section or key that stands twice the first counts. A line ends with CR LF, LF or CR.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace circuidex {

class KeyFile {
public:
    static constexpr std::size_t largest = std::size_t(1) << 30; // bytes; a file beyond that has no keys and takes none

    KeyFile() = default;
    explicit KeyFile(std::string bytes);

    // The value without the blanks around it and without one pair of quotes, uncut; absent when there is no such key.
    // The view lives until the next write.
    std::optional<std::string_view> value(std::string_view section, std::string_view key) const;

    // Replaces the value where it stands; a new key goes to the end of its section, a new section to the end of the
    // file. False when the bytes are the same as before. The text is stored as it is: a name that isn't one in a file
    // (with '=' or a line break, or like a section) is written and never found again.
    bool set(std::string_view section, std::string_view key, std::string_view value);

    // False for a text that isn't found again as a key of a file.
    static bool isKey(std::string_view text)
    {
        const std::size_t first = text.find_first_not_of(" \t\v\f");
        return text.find('=') == text.npos && (first == text.npos || text[first] != '[');
    }

    const std::string &bytes() const { return m_bytes; }

private:
    using Offset = std::uint32_t;
    static constexpr Offset none = ~Offset(0);

    // A section, or a key of one. Later sections and keys of the same name have no item: nothing reaches them.
    struct Item {
        Offset name;
        Offset nameLength;
        Offset value; // behind the '='; none without one. Of a section: where its next new key goes
        Offset valueLength; // to the end of the line
        Offset owner; // the item of the section; none for a section
        std::uint32_t hash;
    };

    void parse();
    void parseLine(std::size_t begin, std::size_t end, std::size_t next, Offset &section);
    std::string_view name(const Item &item) const;
    Offset find(Offset owner, std::string_view name) const;
    Offset find(Offset owner, std::string_view name, std::uint32_t hash) const;
    Offset add(Offset owner, std::size_t nameAt, std::size_t nameLength, std::uint32_t hash);
    void enter(Offset item);
    void growTable();
    std::string_view lineEnd() const;
    void finishLastLine();
    void splice(std::size_t at, std::size_t removed, std::string_view text);
    bool replaceValue(Item &item, std::string_view value);
    void insertKey(Offset section, std::string_view key, std::string_view value);
    void appendSection(std::string_view section, std::string_view key, std::string_view value);

    std::string m_bytes;
    std::vector<Item> m_items;
    std::vector<Offset> m_table; // open addressing; a power of two, at most half full
    unsigned m_lineEnds = 0; // the kinds of line ends seen
};

}
