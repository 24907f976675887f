// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Where the program's files lie.
#include <filesystem>

namespace circuidex {

// The folder of the running executable.
std::filesystem::path executableFolder();

// Where the program keeps what it writes: the folder that the user chose; without a choice, and while that folder is gone
// (a stick that isn't in), its own.
std::filesystem::path programFolder();

// The own folder of the program, or of one that stands there. Of an installed program, and of one whose folder can't be
// written, that is "Circuidex" in the user's data folder, made if need be; otherwise the folder of the executable.
std::filesystem::path ownFolder();
std::filesystem::path programFolder(const std::filesystem::path &executableFolder);

// The folder that the user chose to work in, noted in the file "Dossier" of the program's own one, which is meant when
// none was chosen.
std::filesystem::path chosenFolder(const std::filesystem::path &own);
// False when it can't be noted. The own folder itself takes the choice back.
bool chooseFolder(const std::filesystem::path &own, const std::filesystem::path &chosen);

// The chosen folder while it is gone; empty otherwise.
std::filesystem::path missingChoice();

// Where the example seasons lie that come with the program: "exemples" beside it, what its installation shares, or what
// its build recorded. Empty without any.
std::filesystem::path exampleFolder();
std::filesystem::path exampleFolder(const std::filesystem::path &executableFolder);

// Where the program notes what only this machine needs to know: "circuidex" in the user's state folder. Isn't made.
std::filesystem::path stateFolder();

}
