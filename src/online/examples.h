// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The example seasons that come with the program, for a first start without the network.
#include <filesystem>

namespace circuidex::online {

// Copies all that lies below `from` into the program folder, each file whole or not at all, none over another one. The
// file of a season that holds nothing but what a start of the program notes in it gives way. False when something could
// not be copied.
bool copyExamples(const std::filesystem::path &from, const std::filesystem::path &folder);

}
