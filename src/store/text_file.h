// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Text files of the program folder that are no key files, as the articles of the journal: read whole and written whole.
// Text is UTF-8 here and in the file a line in the code page of the key files; a text that the code page can't hold, or
// that would be taken for UTF-8 there, is written in UTF-8 with its mark, so that no letter is lost.
#include "store/disk.h"

#include <optional>
#include <string>
#include <string_view>

namespace circuidex::text_file {

// The file that a write to this path replaces. A link is followed in the folder, and out of it to a file of the same
// name only, since the folder may come from a stranger; empty otherwise.
std::string writtenFile(const std::string &folder, const std::string &path);

// What a file's bytes say, and the bytes of a text. The line break at the end is the line's, not the text's.
std::string decoded(std::string_view bytes);
std::string encoded(std::string_view text);

// Absent when there is no such file, when it is no ordinary one, or longer than so many bytes; then it isn't opened.
std::optional<std::string> read(const std::string &folder, const std::string &name, std::size_t most = disk::largest);

// Whether write() would be let: there is no such file, or an ordinary one.
bool mayWrite(const std::string &folder, const std::string &name);

// A kill leaves the old text or the new one. False when the file stayed as it was.
bool write(const std::string &folder, const std::string &name, std::string_view text);

// The same, and then a power cut leaves the new one. False also when the disk doesn't confirm it.
bool writeThrough(const std::string &folder, const std::string &name, std::string_view text);

}
