// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/key_file.h"

#include <algorithm>
#include <array>
#include <bit>
#include <chrono>
#include <cstring>

namespace circuidex {

namespace {

using Unit = unsigned char;

constexpr unsigned crlf = 1, lf = 2, cr = 4;

// Windows-1252 in lower case. The letters outside ASCII fold too; a sign without its other case in the code page
// stands for itself.
constexpr std::array<Unit, 256> makeFolding()
{
    std::array<Unit, 256> fold = {};
    for (unsigned c = 0; c < 256; ++c) {
        const bool shifted = (c >= 'A' && c <= 'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7);
        fold[c] = static_cast<Unit>(shifted ? c + 0x20 : c);
    }
    for (const unsigned c : {0x8Au, 0x8Cu, 0x8Eu})
        fold[c] = static_cast<Unit>(c + 0x10);
    fold[0x9F] = 0xFF;
    return fold;
}

constexpr std::array<Unit, 256> folding = makeFolding();

constexpr Unit folded(char c)
{
    return folding[static_cast<Unit>(c)];
}

bool sameName(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
        return false;
    if (a == b)
        return true;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (folded(a[i]) != folded(b[i]))
            return false;
    return true;
}

constexpr std::uint64_t mixed(std::uint64_t h)
{
    h ^= h >> 31;
    h *= 0x9E3779B97F4A7C15u;
    h ^= h >> 29;
    h *= 0xD6E8FEB86659FD93u;
    return h ^ h >> 32;
}

// Differs from run to run, so that no file can be made whose names all fall on one place of the table.
std::uint64_t seed()
{
    static const std::uint64_t value = [] {
        const int here = 0;
        const auto time = std::chrono::high_resolution_clock::now().time_since_epoch().count();
        return mixed(static_cast<std::uint64_t>(time)) ^ reinterpret_cast<std::uintptr_t>(&here);
    }();
    return value;
}

// Up to eight bytes of a name, folded. Words of ASCII are folded all at once.
std::uint64_t foldedWord(const char *at, std::size_t count)
{
    constexpr std::uint64_t each = 0x0101010101010101u, high = each * 0x80;
    std::array<char, 8> bytes = {};
    if (count == 8)
        std::memcpy(bytes.data(), at, 8);
    else
        std::copy_n(at, count, bytes.begin());
    auto word = std::bit_cast<std::uint64_t>(bytes);
    if ((word & high) == 0) {
        const std::uint64_t fromA = word + each * (0x80 - 'A'), behindZ = word + each * (0x7F - 'Z');
        return word | (((fromA ^ behindZ) & high) >> 2); // 0x80 of a capital becomes its 0x20
    }
    for (char &c : bytes)
        c = static_cast<char>(folded(c));
    return std::bit_cast<std::uint64_t>(bytes);
}

// A name of eight bytes or more is taken in words of which the last two may overlap.
std::uint32_t hashOf(std::uint32_t owner, std::string_view name)
{
    std::uint64_t h = mixed(seed() + owner + (std::uint64_t(name.size()) << 32));
    if (name.size() < 8)
        return static_cast<std::uint32_t>(mixed(h ^ foldedWord(name.data(), name.size())));
    for (std::size_t at = 0; at + 8 < name.size(); at += 8)
        h = mixed(h ^ foldedWord(name.data() + at, 8));
    return static_cast<std::uint32_t>(mixed(h ^ foldedWord(name.data() + name.size() - 8, 8)));
}

constexpr bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\v' || c == '\f' || c == '\r' || c == '\n';
}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

bool hasLineBreak(std::string_view text)
{
    return text.find('\n') != text.npos || text.find('\r') != text.npos;
}

// Steps through the line breaks of one kind; looks at each byte once, however the two kinds are mixed.
class BreakFinder {
public:
    BreakFinder(std::string_view text, char sign) : m_text(text), m_sign(sign), m_next(text.find(sign)) { }
    std::size_t from(std::size_t at)
    {
        if (m_next < at)
            m_next = m_text.find(m_sign, at);
        return std::min(m_next, m_text.size());
    }

private:
    std::string_view m_text;
    char m_sign;
    std::size_t m_next; // npos behind the last
};

}

KeyFile::KeyFile(std::string bytes) : m_bytes(std::move(bytes))
{
    parse();
}

void KeyFile::parse()
{
    m_items.clear();
    m_table.clear();
    m_lineEnds = 0;
    if (m_bytes.size() > largest)
        return;
    m_items.reserve(m_bytes.size() / 24); // a guess
    const std::string_view text = m_bytes;
    BreakFinder lineFeeds(text, '\n'), returns(text, '\r');
    Offset section = none;
    for (std::size_t at = text.starts_with("\xEF\xBB\xBF") ? 3 : 0; at < text.size();) {
        const std::size_t feed = lineFeeds.from(at), back = returns.from(at);
        const std::size_t end = std::min(feed, back);
        std::size_t next = end;
        if (end < text.size()) {
            const bool both = feed == back + 1 && feed < text.size();
            next = end + (both ? 2 : 1);
            m_lineEnds |= both ? crlf : back < feed ? cr : lf;
        }
        parseLine(at, end, next, section);
        at = next;
    }
}

void KeyFile::parseLine(std::size_t begin, std::size_t end, std::size_t next, Offset &section)
{
    const std::string_view line = trimmed({m_bytes.data() + begin, end - begin});
    if (line.empty())
        return;
    const auto offsetOf = [this](std::string_view part) {
        return static_cast<std::size_t>(part.data() - m_bytes.data());
    };
    const std::size_t close = line.front() == '[' ? line.find(']') : line.npos;
    if (close != line.npos) {
        const std::string_view title = trimmed(line.substr(1, close - 1));
        const std::uint32_t hash = hashOf(none, title);
        section = find(none, title, hash) == none ? add(none, offsetOf(title), title.size(), hash) : none;
    } else if (section != none) {
        const std::size_t equals = line.find('=');
        const std::string_view key = trimmed(line.substr(0, equals));
        const std::uint32_t hash = hashOf(section, key);
        if (find(section, key, hash) == none) {
            const std::size_t value = equals == line.npos ? offsetOf(key) + key.size() : offsetOf(line) + equals + 1;
            Item &item = m_items[add(section, offsetOf(key), key.size(), hash)];
            item.value = equals == line.npos ? none : static_cast<Offset>(value);
            item.valueLength = static_cast<Offset>(end - value);
        }
    }
    if (section != none)
        m_items[section].value = static_cast<Offset>(next);
}

std::string_view KeyFile::name(const Item &item) const
{
    return {m_bytes.data() + item.name, item.nameLength};
}

KeyFile::Offset KeyFile::find(Offset owner, std::string_view wanted) const
{
    return find(owner, wanted, hashOf(owner, wanted));
}

KeyFile::Offset KeyFile::find(Offset owner, std::string_view wanted, std::uint32_t hash) const
{
    if (m_table.empty())
        return none;
    const std::size_t mask = m_table.size() - 1;
    for (std::size_t place = hash & mask; m_table[place] != none; place = (place + 1) & mask) {
        const Item &item = m_items[m_table[place]];
        if (item.hash == hash && item.owner == owner && sameName(name(item), wanted))
            return m_table[place];
    }
    return none;
}

KeyFile::Offset KeyFile::add(Offset owner, std::size_t nameAt, std::size_t nameLength, std::uint32_t hash)
{
    const Offset index = static_cast<Offset>(m_items.size());
    m_items.push_back({static_cast<Offset>(nameAt), static_cast<Offset>(nameLength), none, 0, owner, hash});
    if (m_items.size() * 2 > m_table.size())
        growTable();
    else
        enter(index);
    return index;
}

void KeyFile::enter(Offset item)
{
    const std::size_t mask = m_table.size() - 1;
    std::size_t place = m_items[item].hash & mask;
    while (m_table[place] != none)
        place = (place + 1) & mask;
    m_table[place] = item;
}

void KeyFile::growTable()
{
    const std::size_t size = std::max<std::size_t>(1024, m_table.size() * 4);
    m_table.assign(size, none);
    for (Offset i = 0; i < m_items.size(); ++i)
        enter(i);
}

std::optional<std::string_view> KeyFile::value(std::string_view section, std::string_view key) const
{
    const Offset owner = find(none, trimmed(section));
    const Offset index = owner == none ? none : find(owner, trimmed(key));
    if (index == none)
        return std::nullopt;
    const Item &item = m_items[index];
    if (item.value == none)
        return std::string_view();
    std::string_view text = trimmed({m_bytes.data() + item.value, item.valueLength});
    const bool quoted =
        text.size() >= 2 && text.front() == text.back() && (text.front() == '"' || text.front() == '\'');
    return quoted ? text.substr(1, text.size() - 2) : text;
}

bool KeyFile::set(std::string_view section, std::string_view key, std::string_view value)
{
    section = trimmed(section);
    key = trimmed(key);
    if (m_bytes.size() + section.size() + key.size() + value.size() + 16 > largest)
        return false;
    const Offset owner = find(none, section);
    const Offset index = owner == none ? none : find(owner, key);
    // What doesn't read back as one line of its kind may change the meaning of any other line.
    const bool odd = key.starts_with('[') || key.find('=') != key.npos || hasLineBreak(key) || hasLineBreak(value) ||
        (owner == none && (section.find(']') != section.npos || hasLineBreak(section)));
    if (index != none) {
        if (!replaceValue(m_items[index], value))
            return false;
    } else if (owner != none) {
        insertKey(owner, key, value);
    } else {
        appendSection(section, key, value);
    }
    if (odd)
        parse();
    return true;
}

// The line end that the file uses throughout; CR LF in a mixed or new one.
std::string_view KeyFile::lineEnd() const
{
    return m_lineEnds == lf ? "\n" : m_lineEnds == cr ? "\r" : "\r\n";
}

// The items that begin at or behind the removed part move with their text.
void KeyFile::splice(std::size_t at, std::size_t removed, std::string_view text)
{
    m_bytes.replace(at, removed, text);
    const Offset from = static_cast<Offset>(at + removed);
    const Offset shift = static_cast<Offset>(text.size() - removed); // modulo 2^32 when the text shrinks
    if (shift == 0)
        return;
    for (Item &item : m_items) {
        if (item.name >= from)
            item.name += shift;
        if (item.value != none && item.value >= from)
            item.value += shift;
    }
}

bool KeyFile::replaceValue(Item &item, std::string_view value)
{
    if (item.value == none) { // a line of nothing but the name
        const Offset at = item.name + item.nameLength;
        splice(at, item.valueLength, std::string("=").append(value));
        item.value = at + 1;
    } else {
        if (std::string_view(m_bytes).substr(item.value, item.valueLength) == value)
            return false;
        const Offset at = item.value;
        splice(at, item.valueLength, value);
        item.value = at;
    }
    item.valueLength = static_cast<Offset>(value.size());
    return true;
}

// Gives the last line its end, which belongs to the section that the line belongs to.
void KeyFile::finishLastLine()
{
    if (m_bytes.empty() || m_bytes.back() == '\n' || m_bytes.back() == '\r')
        return;
    const std::size_t before = m_bytes.size();
    m_bytes.append(lineEnd());
    for (Item &item : m_items)
        if (item.owner == none && item.value == before)
            item.value = static_cast<Offset>(m_bytes.size());
}

// Behind the last line of the section that isn't blank.
void KeyFile::insertKey(Offset section, std::string_view key, std::string_view value)
{
    const std::string_view end = lineEnd();
    const std::string line = std::string(key).append("=").append(value).append(end);
    const std::size_t length = key.size(), valueLength = value.size();
    if (m_items[section].value == m_bytes.size())
        finishLastLine();
    const std::size_t at = m_items[section].value;
    splice(at, 0, line); // moves the end of the section too
    const std::uint32_t hash = hashOf(section, {m_bytes.data() + at, length});
    Item &item = m_items[add(section, at, length, hash)];
    item.value = static_cast<Offset>(at + length + 1);
    item.valueLength = static_cast<Offset>(valueLength);
    m_lineEnds |= end == "\n" ? lf : end == "\r" ? cr : crlf;
}

void KeyFile::appendSection(std::string_view section, std::string_view key, std::string_view value)
{
    const std::string header = std::string("[").append(section).append("]").append(lineEnd());
    const std::string keyCopy(key), valueCopy(value); // they may be views of this file
    const std::size_t length = section.size();
    finishLastLine();
    const std::size_t at = m_bytes.size();
    m_bytes.append(header);
    const Offset owner = add(none, at + 1, length, hashOf(none, {m_bytes.data() + at + 1, length}));
    m_items[owner].value = static_cast<Offset>(m_bytes.size());
    insertKey(owner, keyCopy, valueCopy);
}

}
