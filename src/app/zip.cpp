// SPDX-License-Identifier: GPL-3.0-or-later
// The extractor: puts the archives of an update in place while the program is away, then starts the program.
//
//     Zip [--folder DIR] [--no-restart]
//
// Status 0 when every archive found was unpacked and taken away, 1 when at least one was refused or can't be put in
// place, for the reasons on standard error, which the next start of the program shows too.
#include "online/unpacking.h"
#include "online/update_notice.h"
#include "platform/folder_lock.h"
#include "platform/program_folder.h"

#include <chrono>
#include <cstdio>
#include <optional>
#include <string>
#include <thread>

#include <spawn.h>
#include <unistd.h>

using namespace circuidex;

namespace {

struct Options {
    std::filesystem::path folder;
    bool restart = true;
};

std::optional<Options> optionsOf(int argc, char **argv)
{
    Options options;
    for (int i = 1; i < argc; ++i) {
        const std::string_view word = argv[i];
        if (word == "--no-restart")
            options.restart = false;
        else if (word == "--folder" && i + 1 < argc)
            options.folder = argv[++i];
        else
            return std::nullopt;
    }
    if (options.folder.empty())
        options.folder = programFolder();
    return options;
}

// The program that started the extractor is still ending. One that stays open is left alone.
bool awaitFree(const std::filesystem::path &folder, std::optional<FolderLock> &lock)
{
    using namespace std::chrono_literals;
    const auto end = std::chrono::steady_clock::now() + 2min;
    do {
        lock.emplace(folder);
        if (!lock->heldElsewhere())
            return true;
        std::this_thread::sleep_for(50ms);
    } while (std::chrono::steady_clock::now() < end);
    return false;
}

void startProgram()
{
    std::string path = (executableFolder() / "circuidex").string();
    char *const words[] = {path.data(), nullptr};
    posix_spawnattr_t attributes;
    ::posix_spawnattr_init(&attributes);
    ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);
    pid_t started = 0;
    if (::posix_spawn(&started, path.c_str(), nullptr, &attributes, words, environ) != 0)
        std::fprintf(stderr, "Circuidex n'a pas pu être relancé : %s\n", path.c_str());
    ::posix_spawnattr_destroy(&attributes);
}

std::vector<std::string> work(const std::filesystem::path &folder)
{
    std::vector<std::string> said;
    try {
        said = online::unpackAll(folder);
    } catch (const std::exception &) { // of the standard library, without memory
        said = {"Mise à jour refusée : la mémoire ne suffit pas."};
    }
    online::leaveNotice(folder, said);
    return said;
}

}

int main(int argc, char **argv)
{
    const auto options = optionsOf(argc, argv);
    if (!options) {
        std::fputs("usage : Zip [--folder DOSSIER] [--no-restart]\n", stderr);
        return 2;
    }
    std::optional<FolderLock> lock;
    if (std::error_code error;
        !std::filesystem::is_directory(options->folder, error) || !awaitFree(options->folder, lock)) {
        std::fprintf(stderr, "Mise à jour impossible : le dossier %s manque ou reste ouvert.\n",
                     options->folder.c_str());
        return 1;
    }
    const std::vector<std::string> said = work(options->folder);
    for (const std::string &sentence : said)
        std::fprintf(stderr, "%s\n", sentence.c_str());
    lock.reset();
    if (options->restart)
        startProgram();
    return said.empty() ? 0 : 1;
}
