#include "platform/program_folder.h"

#include <cstdlib>
#include <fstream>

#include <pwd.h>
#include <unistd.h>

namespace circuidex {

namespace fs = std::filesystem;

namespace {

constexpr const char *noteOfChoice = "Dossier";

fs::path userData()
{
    const char *const set = std::getenv("XDG_DATA_HOME");
    if (set && *set == '/')
        return set;
    const char *home = std::getenv("HOME");
    if (const passwd *user = home && *home ? nullptr : ::getpwuid(::getuid()))
        home = user->pw_dir;
    return fs::path(home && *home ? home : "/") / ".local/share";
}

}

fs::path executableFolder()
{
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).parent_path();
}

fs::path exampleFolder()
{
    std::error_code ignored; // what can't be looked at isn't there
    for (const fs::path &place : {executableFolder() / "exemples", executableFolder().parent_path() / "sample"})
        if (fs::is_directory(place, ignored))
            return place;
    return {};
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

fs::path ownFolder()
{
    const fs::path beside = executableFolder();
    if (::access(beside.c_str(), W_OK) == 0)
        return beside;
    const fs::path own = userData() / "Circuidex";
    std::error_code ignored; // what follows finds no folder then
    fs::create_directories(own, ignored);
    return own;
}

}
