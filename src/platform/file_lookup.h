// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Finding a file by a stored path. Paths may have been written on another system: with backslashes, in another case
// (`\Photos\Circuits\Monaco.JPG`), from the program folder or from the root.
#include <filesystem>
#include <string>
#include <string_view>

namespace circuidex {

// The file as it stands on disk, in UTF-8; empty when there is none. A path that starts with a slash is looked up from
// the root, and if that fails below the folder. Folders aren't files.
std::string findFile(const std::filesystem::path &folder, std::string_view stored);

}
