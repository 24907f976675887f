// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace circuidex {

namespace {

using Unit = unsigned char;

// What the bytes 80 to 9F stand for.
constexpr std::array<char16_t, 32> special = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                              0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                              0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                              0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

bool isAscii(std::string_view text)
{
    constexpr std::uint64_t highBits = 0x8080808080808080u;
    const char *at = text.data();
    std::size_t left = text.size();
    std::uint64_t seen = 0;
    for (; left >= sizeof seen; left -= sizeof seen, at += sizeof seen) {
        std::uint64_t word;
        std::memcpy(&word, at, sizeof word);
        seen |= word;
    }
    for (; left > 0; --left, ++at)
        seen |= static_cast<Unit>(*at);
    return (seen & highBits) == 0;
}

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
constexpr char32_t invalid = 0xFFFFFFFF;

// The character at `at`, which moves past it; past one byte only when it isn't valid.
char32_t nextCharacter(std::string_view text, std::size_t &at)
{
    const Unit lead = static_cast<Unit>(text[at++]);
    if (lead < 0x80)
        return lead;
    if (lead == 0xC3 && at < text.size() && (static_cast<Unit>(text[at]) & 0xC0u) == 0x80)
        return 0xC0u | (static_cast<Unit>(text[at++]) & 0x3Fu); // nearly all accents
    const std::size_t more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
    if (lead < 0xC2 || lead > 0xF4 || text.size() - at < more)
        return invalid;
    char32_t character = lead & (0x3Fu >> more);
    for (std::size_t i = 0; i < more; ++i) {
        const Unit next = static_cast<Unit>(text[at + i]);
        if ((next & 0xC0u) != 0x80)
            return invalid;
        character = character << 6 | (next & 0x3Fu);
    }
    constexpr std::array<char32_t, 4> least = {0, 0x80, 0x800, 0x10000};
    if (character < least[more] || character > 0x10FFFF || (character >= 0xD800 && character <= 0xDFFF))
        return invalid;
    at += more;
    return character;
}

char byteOf(char32_t character)
{
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF))
        return static_cast<char>(static_cast<Unit>(character));
    for (std::size_t i = 0; i < special.size(); ++i)
        if (special[i] == character)
            return static_cast<char>(static_cast<Unit>(0x80 + i));
    return '?';
}

// Writes the character and gives the place behind it.
char *putUtf8(char *at, char32_t character)
{
    const auto put = [&at](char32_t unit) { *at++ = static_cast<char>(static_cast<Unit>(unit)); };
    if (character < 0x80) {
        put(character);
        return at;
    }
    if (character < 0x800) {
        put(0xC0 | character >> 6);
    } else {
        put(0xE0 | character >> 12);
        put(0x80 | (character >> 6 & 0x3F));
    }
    put(0x80 | (character & 0x3F));
    return at;
}

}

std::string toUtf8(std::string_view codePage)
{
    if (isAscii(codePage))
        return std::string(codePage);
    std::array<char, 3 * 256> room; // most values fit; none takes more than three bytes a byte
    std::string text;
    text.reserve(codePage.size() <= 256 ? 0 : codePage.size() * 2);
    while (!codePage.empty()) {
        char *at = room.data();
        for (const char c : codePage.substr(0, 256)) {
            const Unit byte = static_cast<Unit>(c);
            at = putUtf8(at, byte >= 0x80 && byte < 0xA0 ? special[byte - 0x80u] : byte);
        }
        text.append(room.data(), at);
        codePage.remove_prefix(std::min<std::size_t>(256, codePage.size()));
    }
    return text;
}

std::string_view toCodePage(std::string_view utf8, std::string &scratch)
{
    if (isAscii(utf8))
        return utf8;
    scratch.resize(utf8.size());
    char *out = scratch.data();
    for (std::size_t at = 0; at < utf8.size();) {
        if (static_cast<Unit>(utf8[at]) < 0x80)
            *out++ = utf8[at++];
        else
            *out++ = byteOf(nextCharacter(utf8, at));
    }
    scratch.resize(static_cast<std::size_t>(out - scratch.data()));
    return scratch;
}

std::string toCodePage(std::string_view utf8)
{
    std::string scratch;
    return std::string(toCodePage(utf8, scratch));
}

bool comesBack(std::string_view utf8)
{
    const std::string value = toCodePage(utf8);
    if (value.size() > longestValue || value.find_first_of("\r\n") != value.npos || toUtf8(value) != utf8)
        return false;
    constexpr std::string_view takenOff = " \t\v\f";
    const bool blanks = !value.empty() && (takenOff.find(value.front()) != takenOff.npos ||
                                           takenOff.find(value.back()) != takenOff.npos);
    const bool quotes = value.size() > 1 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
    return !blanks && !quotes;
}

std::string folded(std::string_view utf8)
{
    std::string lower(utf8);
    for (std::size_t i = 0; i < lower.size(); ++i) {
        const Unit c = static_cast<Unit>(lower[i]);
        const bool accented = i > 0 && static_cast<Unit>(lower[i - 1]) == 0xC3 && c >= 0x80 && c <= 0x9E && c != 0x97;
        if (accented || (c >= 'A' && c <= 'Z'))
            lower[i] = static_cast<char>(c + 32);
    }
    return lower;
}

bool isUtf8(std::string_view bytes)
{
    for (std::size_t at = 0; at < bytes.size();)
        if (nextCharacter(bytes, at) == invalid)
            return false;
    return !isAscii(bytes);
}

bool isText(std::string_view bytes)
{
    std::size_t odd = 0;
    for (const char c : bytes) {
        const unsigned byte = static_cast<Unit>(c);
        odd += (byte < ' ' && (byte < '\t' || byte > '\r') && byte != 0x1A) || byte == 0x7F;
    }
    constexpr std::string_view block("\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0", 16);
    return odd * 16 <= bytes.size() && (odd < block.size() || bytes.find(block) == bytes.npos);
}

Coding codingOf(std::string_view bytes)
{
    const bool marked = bytes.starts_with(utf8Mark);
    bool valid = true, nameInUtf8 = false, inName = true;
    for (std::size_t at = 0; valid && at < bytes.size();) {
        const char c = bytes[at];
        if (static_cast<Unit>(c) < 0x80) {
            inName = c == '\n' || c == '\r' || (inName && c != '=');
            ++at;
        } else {
            const bool inMark = marked && at == 0;
            valid = nextCharacter(bytes, at) != invalid;
            nameInUtf8 = nameInUtf8 || (inName && !inMark);
        }
    }
    if (valid)
        return marked || nameInUtf8 ? Coding::utf8 : Coding::codePage;
    constexpr std::string_view drivers = "[N\xC2\xB0]";
    const std::size_t at = bytes.find(drivers);
    const bool onALine = at == 0 || (at == utf8Mark.size() && marked) ||
        (at != bytes.npos && (bytes[at - 1] == '\n' || bytes[at - 1] == '\r'));
    return onALine ? Coding::mixed : Coding::codePage;
}

std::string withoutUtf8(std::string_view bytes)
{
    return toCodePage(bytes.substr(bytes.starts_with(utf8Mark) ? utf8Mark.size() : 0));
}

}
