// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Telling films from other files, before one is handed to a player.
#include <string>

namespace circuidex {

// True for an ordinary file that has the name of a film (".avi", ".mkv" …) or begins as one of the usual kinds does.
bool isFilm(const std::string &path);

}
