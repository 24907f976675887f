#pragma once
// Where the program's files lie.
#include <filesystem>

namespace circuidex {

// The folder of the running executable.
std::filesystem::path executableFolder();

// The folder of the executable when it can be written, otherwise "Circuidex" in the user's data folder, made if need
// be.
std::filesystem::path programFolder();

// Where the example seasons lie that come with the program: "exemples" beside it, or what its build recorded. Empty
// without any.
std::filesystem::path exampleFolder();

}
