// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Text is UTF-8 inside the program and Windows-1252 in the data files. All 256 bytes survive the way to UTF-8 and back:
// the five that the code page leaves open (81 8D 8F 90 9D) stand for the control characters of the same number.
#include <cstddef>
#include <string>
#include <string_view>

namespace circuidex {

std::string toUtf8(std::string_view codePage);

// A character that the code page lacks becomes '?', and so does each byte that isn't valid UTF-8.
std::string toCodePage(std::string_view utf8);

// The same without a copy: ASCII comes back as it is, other text as a view of the scratch string.
std::string_view toCodePage(std::string_view utf8, std::string &scratch);

// The longest value that is read from a file, in characters.
inline constexpr std::size_t longestValue = 254;

// True when a value comes back from a file as it was written: each character is in the code page, none ends a line, no
// blanks or quotes stand around it, which a reader takes off, and it isn't too long.
bool comesBack(std::string_view utf8);

// Lower case for ASCII and for the accented letters of French, of text in UTF-8.
std::string folded(std::string_view utf8);

// True for text that means more in UTF-8 than in ASCII and nothing else: it has characters beyond ASCII, and no byte that
// UTF-8 doesn't allow.
bool isUtf8(std::string_view bytes);

// False for bytes that nobody wrote as a text file: more than one in sixteen is a control character without a meaning
// in text (of chance bytes it is one in ten), or sixteen zeros stand in a row, as in a block that never reached the
// disk. A few odd bytes, and no bytes at all, are text.
bool isText(std::string_view bytes);

// How a key file is written. An editor may have saved it as UTF-8: it has a byte-order mark, or names of sections and
// keys that make sense as UTF-8 only, and no byte that doesn't. Mixed: [N°] is UTF-8, other lines aren't.
enum class Coding { codePage, utf8, mixed };
Coding codingOf(std::string_view bytes);

// Text in UTF-8, with or without its mark, in the code page.
std::string withoutUtf8(std::string_view bytes);

}
