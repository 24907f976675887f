// SPDX-License-Identifier: GPL-3.0-or-later
// Kills the extractor while it puts an update in place, and looks at what is left.
//
//     update_crash KILLS ZIP
//
// Two archives lie in a program folder, one that replaces and adds files and one with pictures. The extractor's work is
// killed right before one of its system calls or in the middle of a write, at places spread over the whole work; then
// the program ZIP itself is killed as often at moments spread over its running time, and every other time killed again
// while it ends the work. After each kill every file must be the old or the new one, whole, and a new one of an archive
// only when all of that archive was unpacked. A last undisturbed run must end with all new, the archives gone, copies
// of what was replaced, and nothing lying about.
#include "crash/killing.h"
#include "online/archives.h"
#include "online/unpacking.h"
#include "store/temporary_folder.h"

#include <chrono>
#include <csignal>
#include <cstdio>
#include <map>
#include <random>
#include <thread>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace circuidex;
using namespace circuidex::test;
namespace fs = std::filesystem;

namespace {

using Files = std::map<std::string, std::string>;

// Large enough for several writes each.
std::string bytesOf(unsigned seed, std::size_t size)
{
    std::mt19937 random(seed);
    std::string bytes(size, '\0');
    for (char &c : bytes)
        c = static_cast<char>('a' + random() % 26);
    return bytes;
}

const Files before{{"f12005.ini", "[gp]\r\nnogp=" + bytesOf(1, 30'000)},
                   {"f1ARCHIVES.ini", "[GP]\r\na=" + bytesOf(2, 15'000)},
                   {"A1.txt", "mon article"},
                   {"photos/Circuits/Monaco.jpg", bytesOf(3, 90'000)}};
const Files results{{"f12005.ini", "[gp]\r\nnogp=" + bytesOf(4, 31'000)},
                    {"f12006.ini", "[gp]\r\nnogp=" + bytesOf(5, 30'000)},
                    {"f1ARCHIVES.ini", "[GP]\r\na=" + bytesOf(6, 16'000)}};
const Files pictures{{"photos/Circuits/Monaco.jpg", bytesOf(7, 200'000)},
                     {"photos/Actu/a.jpg", bytesOf(8, 150'000)},
                     {"photos/Pilotes/b.jpg", bytesOf(9, 10'000)},
                     {"descriptions/Monaco.txt", "texte"}};

std::string packed(const Files &files)
{
    Members members;
    for (const auto &[name, bytes] : files)
        members.push_back({name, bytes});
    return zipOf(members);
}

class Workshop {
public:
    Workshop()
    {
        static const std::string first = packed(results), second = packed(pictures);
        for (const auto &[name, bytes] : before) {
            fs::create_directories((m_folder / name).parent_path());
            layDown(m_folder / name, bytes);
        }
        layDown(m_folder / "miseajour.zip", first);
        layDown(m_folder / "Photos.zip", second);
    }
    const fs::path &path() const { return m_folder.path(); }

    // The user's files: what is neither the extractor's nor a copy nor an archive.
    Files files() const
    {
        Files all;
        for (const auto &entry : fs::recursive_directory_iterator(path()))
            if (const std::string name = entry.path().lexically_relative(path()).string(); entry.is_regular_file() &&
                !name.starts_with(".circuidex-") && !name.starts_with("Sauvegardes") && !name.ends_with(".zip"))
                all[name] = content(entry.path());
        return all;
    }
    std::size_t goodCopies(const std::string &name) const
    {
        std::size_t count = 0;
        std::error_code none;
        for (const auto &entry : fs::directory_iterator(path() / "Sauvegardes", none))
            count += content(entry.path()) == before.at(name);
        return count;
    }

private:
    TemporaryFolder m_folder;
};

class Trial {
public:
    int faults = 0, kills = 0;

    void look(const Workshop &folder, const std::string &where)
    {
        const Files now = folder.files();
        for (const auto &[name, bytes] : now)
            if (bytes != valueOf(before, name) && bytes != valueOf(results, name) && bytes != valueOf(pictures, name))
                fault(where + ": " + name + " is neither old nor new");
        for (const auto &[name, bytes] : before)
            if (!now.contains(name))
                fault(where + ": " + name + " is gone");
        for (const auto &[name, bytes] : results)
            if (now.contains(name) && now.at(name) == bytes && before.contains(name) && folder.goodCopies(name) == 0)
                fault(where + ": " + name + " was replaced without a copy");
    }

    void lookAtEnd(const Workshop &folder, const std::string &where)
    {
        Files expected = before;
        for (const Files *news : {&results, &pictures})
            for (const auto &[name, bytes] : *news)
                expected[name] = bytes;
        if (folder.files() != expected)
            fault(where + ": the next run doesn't end the work");
        for (const auto &entry : fs::directory_iterator(folder.path()))
            if (const std::string name = entry.path().filename().string();
                name.ends_with(".zip") || (name.starts_with(".circuidex-") && name != ".circuidex-verrou"))
                fault(where + ": left over: " + name);
        look(folder, where);
    }

private:
    static std::string valueOf(const Files &files, const std::string &name)
    {
        const auto at = files.find(name);
        return at == files.end() ? std::string() : at->second;
    }
    void fault(const std::string &what)
    {
        ++faults;
        std::printf("FAULT %s\n", what.c_str());
    }
};

bool counts(const WatchedCalls::Call &call)
{
    return writes(call) || call.name == "open";
}

std::size_t callsOfARun()
{
    const Workshop folder;
    std::size_t count = 0;
    const WatchedCalls watched([&](const WatchedCalls::Call &call) { return count += counts(call), 0; });
    online::unpackAll(folder.path());
    return count;
}

// The program itself, killed after so long; never when it ends before. How long it took.
std::chrono::microseconds runFor(const Workshop &folder, const std::string &zip, std::chrono::microseconds time,
                                 Trial &trial)
{
    std::string words[] = {zip, "--no-restart", "--folder", folder.path().string()};
    char *const list[] = {words[0].data(), words[1].data(), words[2].data(), words[3].data(), nullptr};
    pid_t child = 0;
    const auto start = std::chrono::steady_clock::now();
    if (::posix_spawn(&child, zip.c_str(), nullptr, nullptr, list, environ) != 0)
        std::exit(2);
    if (time.count() > 0) {
        std::this_thread::sleep_for(time);
        ::kill(child, SIGKILL);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    trial.kills += WIFSIGNALED(status);
    return std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - start);
}

}

int main(int argc, char **argv)
{
    const std::size_t kills = argc == 3 ? std::strtoul(argv[1], nullptr, 10) : 0;
    if (kills == 0) {
        std::fprintf(stderr, "usage: update_crash KILLS ZIP\n");
        return 2;
    }
    Trial trial;
    std::mt19937 random(20061022);
    const std::size_t calls = callsOfARun();
    for (std::size_t i = 0; i < kills; ++i) {
        const Workshop folder;
        const std::size_t call = std::min((i * calls + random() % calls) / kills, calls - 1);
        const std::string where = "call " + std::to_string(call);
        trial.kills += WIFSIGNALED(killAt(call, counts, [&] { online::unpackAll(folder.path()); }));
        trial.look(folder, where);
        online::unpackAll(folder.path());
        trial.lookAtEnd(folder, where);
    }
    std::printf("%d kills at %zu calls; %d faults\n", trial.kills, calls, trial.faults);
    const int atCalls = trial.kills;

    const Workshop undisturbed;
    const auto whole = runFor(undisturbed, argv[2], {}, trial);
    trial.lookAtEnd(undisturbed, "undisturbed");
    for (std::size_t i = 0; i < kills; ++i) {
        const Workshop folder;
        for (std::size_t round = 0; round <= i % 2; ++round) {
            const auto time = std::chrono::microseconds(1 + random() % static_cast<unsigned>(whole.count()));
            const std::string where = "after " + std::to_string(time.count()) + " us";
            runFor(folder, argv[2], time, trial);
            trial.look(folder, where);
        }
        runFor(folder, argv[2], {}, trial);
        trial.lookAtEnd(folder, "after kills of the program");
    }
    std::printf("%d kills of the program within %lld us; %d faults in all\n", trial.kills - atCalls,
                static_cast<long long>(whole.count()), trial.faults);
    return trial.faults == 0 && atCalls == static_cast<int>(kills) ? 0 : 1;
}
