#pragma once
// Where the program's files lie.
#include <filesystem>

namespace circuidex {

// The folder of the running executable.
std::filesystem::path executableFolder();

// Where the program keeps what it writes. Of an installed program, and of one whose folder can't be written, that is
// "Circuidex" in the user's data folder, made if need be; otherwise the folder of the executable.
std::filesystem::path programFolder();
std::filesystem::path programFolder(const std::filesystem::path &executableFolder);

// Where the example seasons lie that come with the program: "exemples" beside it, what its installation shares, or what
// its build recorded. Empty without any.
std::filesystem::path exampleFolder();
std::filesystem::path exampleFolder(const std::filesystem::path &executableFolder);

// Where the program notes what only this machine needs to know: "circuidex" in the user's state folder. Isn't made.
std::filesystem::path stateFolder();

}
