#include "store/text.h"

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

constexpr char32_t invalid = 0xFFFFFFFF;

// The character at `at`, which moves past it; past one byte only when it isn't valid.
char32_t nextCharacter(std::string_view text, std::size_t &at)
{
    const Unit lead = static_cast<Unit>(text[at++]);
    if (lead < 0x80)
        return lead;
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

void appendUtf8(std::string &text, char32_t character)
{
    const auto put = [&text](char32_t unit) { text += static_cast<char>(static_cast<Unit>(unit)); };
    if (character < 0x800) {
        put(0xC0 | character >> 6);
    } else {
        put(0xE0 | character >> 12);
        put(0x80 | (character >> 6 & 0x3F));
    }
    put(0x80 | (character & 0x3F));
}

}

std::string toUtf8(std::string_view codePage)
{
    if (isAscii(codePage))
        return std::string(codePage);
    std::string text;
    text.reserve(codePage.size() + codePage.size() / 2 + 4);
    for (const char c : codePage) {
        const Unit byte = static_cast<Unit>(c);
        if (byte < 0x80)
            text += c;
        else
            appendUtf8(text, byte < 0xA0 ? special[byte - 0x80u] : byte);
    }
    return text;
}

std::string_view toCodePage(std::string_view utf8, std::string &scratch)
{
    if (isAscii(utf8))
        return utf8;
    scratch.clear();
    for (std::size_t at = 0; at < utf8.size();)
        scratch += byteOf(nextCharacter(utf8, at));
    return scratch;
}

std::string toCodePage(std::string_view utf8)
{
    std::string scratch;
    return std::string(toCodePage(utf8, scratch));
}

}
