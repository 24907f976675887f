#pragma once
// Where the program's files lie.
#include <filesystem>

namespace circuidex {

// The folder of the running executable.
std::filesystem::path executableFolder();

// The folder that the user chose, where it is there. Without a choice, and while that is gone (a stick that isn't in),
// the folder of the executable when it can be written, otherwise "Circuidex" in the user's data folder, made if need
// be.
std::filesystem::path programFolder();

// The same, whatever folder was chosen.
std::filesystem::path ownFolder();

// The folder that the user chose to work in, noted in the file "Dossier" of the program's own one, which is meant when
// none was chosen.
std::filesystem::path chosenFolder(const std::filesystem::path &own);
// False when it can't be noted. The own folder itself takes the choice back.
bool chooseFolder(const std::filesystem::path &own, const std::filesystem::path &chosen);

// The chosen folder while it is gone; empty otherwise.
std::filesystem::path missingChoice();

// Where the example seasons lie that come with the program: "exemples" beside it, or what its build recorded. Empty
// without any.
std::filesystem::path exampleFolder();

}
