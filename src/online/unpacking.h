// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What the extractor does with a program folder: each archive that lies there is checked whole, unpacked into a folder
// of the extractor's own, moved into place file by file, and taken away.
//
// A kill at any moment leaves each file old or new. Until all of an archive is unpacked and on the disk nothing is
// moved; from then on a list of what remains to be moved stands in the folder, and the next run ends the work.
#include <filesystem>
#include <string>
#include <vector>

namespace circuidex::online {

// A sentence in French for each archive that was refused or that could not be put in place, in the order worked on.
// Nothing of a refused one was unpacked, and it stays where it is. The caller holds the folder's lock.
std::vector<std::string> unpackAll(const std::filesystem::path &folder);

}
