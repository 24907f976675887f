#include "platform/program_folder.h"

#include <cstdlib>

#include <pwd.h>
#include <unistd.h>

namespace circuidex {

namespace fs = std::filesystem;

namespace {

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

fs::path programFolder()
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
