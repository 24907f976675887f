// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/program_folder.h"

#include <cstdlib>
#include <fstream>

#include <pwd.h>
#include <unistd.h>

namespace circuidex {

namespace fs = std::filesystem;

namespace {

constexpr const char *noteOfChoice = "Dossier";

fs::path userHome()
{
    const char *home = std::getenv("HOME");
    if (const passwd *user = home && *home ? nullptr : ::getpwuid(::getuid()))
        home = user->pw_dir;
    return home && *home ? home : "/";
}

// What the environment names, by a full path alone, otherwise the usual place below the user's home.
fs::path userFolder(const char *variable, const char *usual)
{
    const char *const set = std::getenv(variable);
    return set && *set == '/' ? fs::path(set) : userHome() / usual;
}

// What an installation shares among all its users; not there for a program that runs where it was built.
fs::path sharedFolder(const fs::path &executableFolder)
{
    return (executableFolder / CIRCUIDEX_SHARED).lexically_normal();
}

bool isFolder(const fs::path &path)
{
    std::error_code ignored; // what can't be looked at isn't there
    return fs::is_directory(path, ignored);
}

}

fs::path executableFolder()
{
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).parent_path();
}

fs::path exampleFolder(const fs::path &executableFolder)
{
    for (const fs::path &place : {executableFolder / "exemples", sharedFolder(executableFolder) / "saisons-d-exemple",
                                  executableFolder.parent_path() / "sample"})
        if (isFolder(place))
            return place;
    return {};
}

fs::path exampleFolder()
{
    return exampleFolder(executableFolder());
}

// The installed program's own folder is nobody's to write, even where root may.
fs::path programFolder(const fs::path &executableFolder)
{
    if (!isFolder(sharedFolder(executableFolder)) && ::access(executableFolder.c_str(), W_OK) == 0)
        return executableFolder;
    const fs::path own = userFolder("XDG_DATA_HOME", ".local/share") / "Circuidex";
    std::error_code ignored; // what follows finds no folder then
    fs::create_directories(own, ignored);
    return own;
}

fs::path chosenFolder(const fs::path &own)
{
    std::ifstream file(own / noteOfChoice);
    std::string line;
    std::getline(file, line);
    return line.starts_with('/') ? fs::path(line) : own;
}

bool chooseFolder(const fs::path &own, const fs::path &chosen)
{
    std::error_code error;
    const fs::path note = own / noteOfChoice, written = own / (std::string(noteOfChoice) + ".neuf");
    if (fs::equivalent(own, chosen, error)) {
        fs::remove(note, error);
        return !error;
    }
    if (chosen.string().find('\n') != std::string::npos)
        return false;
    std::ofstream file(written, std::ios::binary | std::ios::trunc);
    file << fs::absolute(chosen).string() << '\n';
    file.close();
    if (file)
        fs::rename(written, note, error); // whole, or as it was
    const bool kept = file && !error;
    if (!kept)
        fs::remove(written, error);
    return kept;
}

fs::path ownFolder()
{
    return programFolder(executableFolder());
}

fs::path missingChoice()
{
    std::error_code ignored; // what can't be looked at isn't there
    const fs::path chosen = chosenFolder(ownFolder());
    return fs::is_directory(chosen, ignored) ? fs::path() : chosen;
}

fs::path programFolder()
{
    std::error_code ignored; // what can't be looked at isn't there
    const fs::path own = ownFolder(), chosen = chosenFolder(own);
    return fs::is_directory(chosen, ignored) ? chosen : own;
}

fs::path stateFolder()
{
    return userFolder("XDG_STATE_HOME", ".local/state") / "circuidex";
}

}
