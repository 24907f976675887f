// SPDX-License-Identifier: GPL-3.0-or-later
// Kills an import of seasons, and looks at what is left.
//
//     import_crash KILLS SAMPLE
//
// Two seasons are imported into a folder with the sample seasons, one of them in the place of one that is there. The
// import is killed right before one of its system calls or in the middle of a write, at places spread over the whole
// work, and as often at moments spread over its running time, every other time again while the next start ends or takes
// back the work. After that next start the folder must be as before, or the import whole, with a copy of what it
// replaced; and nothing may lie about.
#include "crash/killing.h"
#include "publicdata/import.h"
#include "publicdata/reading.h"
#include "publicdata/swap_in.h"
#include "store/history.h"
#include "store/temporary_folder.h"

#include <chrono>
#include <csignal>
#include <cstdio>
#include <map>
#include <random>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

using namespace circuidex;
using namespace circuidex::test;
using namespace circuidex::publicdata;
namespace fs = std::filesystem;

namespace {

using Files = std::map<std::string, std::string>;

const Data &release()
{
    static const ReadData read = readPublicData(CIRCUIDEX_TESTDATA "/f1db-json-splitted.zip");
    return read.data;
}

void import(const fs::path &folder)
{
    Store store(folder);
    store.keepHistory();
    Import import(store, release(), {{*planSeason(release(), 1991), false}, {*planSeason(release(), 2004), true}});
    while (import.step()) { }
    if (!import.done())
        ::_exit(3);
}

class Workshop {
public:
    explicit Workshop(const char *sample) { fs::copy(sample, m_folder.path(), fs::copy_options::recursive); }
    const fs::path &path() const { return m_folder.path(); }

    // The user's files; copies and history apart.
    Files files() const
    {
        Files all;
        for (const auto &entry : fs::recursive_directory_iterator(path()))
            if (const std::string name = entry.path().lexically_relative(path()).string();
                entry.is_regular_file() && !name.starts_with("Sauvegardes") && !name.starts_with("Historique"))
                all[name] = content(entry.path());
        return all;
    }
    bool hasCopyOf(const std::string &bytes) const
    {
        std::error_code none;
        for (const auto &entry : fs::directory_iterator(path() / "Sauvegardes", none))
            if (content(entry.path()) == bytes)
                return true;
        return false;
    }

private:
    TemporaryFolder m_folder;
};

class Trial {
public:
    explicit Trial(const char *sample)
    {
        const Workshop folder(sample);
        m_before = folder.files();
        import(folder.path());
        m_after = folder.files();
    }
    int faults = 0, kills = 0, whole = 0;

    void look(const Workshop &folder, const std::string &where)
    {
        const Files now = folder.files();
        const bool done = now == m_after;
        whole += done;
        if (!done && now != m_before)
            fault(where + ": neither as before nor whole");
        if (done && !folder.hasCopyOf(m_before.at("f12004.ini")))
            fault(where + ": replaced without a copy");
        if (fs::exists(folder.path() / std::string(importFolder)))
            fault(where + ": left over");
        if (done)
            undo(folder, where);
    }

private:
    // The next start takes what a kill left of the import for the whole of it.
    void undo(const Workshop &folder, const std::string &where)
    {
        Store store(folder.path());
        store.keepHistory();
        if (const std::string refusal = store.undo(); !refusal.empty())
            fault(where + ": " + refusal);
        else if (folder.files() != m_before)
            fault(where + ": the undo doesn't bring back what was before");
    }
    void fault(const std::string &what)
    {
        ++faults;
        std::printf("FAULT %s\n", what.c_str());
    }
    Files m_before, m_after;
};

bool counts(const WatchedCalls::Call &call)
{
    return writes(call) || call.name == "open";
}

// Never killed when the time is 0, or when it ends before. How long it took.
template <typename Work>
std::chrono::microseconds runFor(std::chrono::microseconds time, Trial &trial, Work work)
{
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = ::fork();
    if (child == 0) {
        work();
        ::_exit(0);
    }
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
        std::fprintf(stderr, "usage: import_crash KILLS SAMPLE\n");
        return 2;
    }
    Trial trial(argv[2]);
    std::mt19937 random(19910303);
    std::size_t calls = 0;
    {
        const Workshop folder(argv[2]);
        const WatchedCalls watched([&](const WatchedCalls::Call &call) { return calls += counts(call), 0; });
        import(folder.path());
    }
    for (std::size_t i = 0; i < kills; ++i) {
        const Workshop folder(argv[2]);
        const std::size_t call = std::min((i * calls + random() % calls) / kills, calls - 1);
        trial.kills += WIFSIGNALED(killAt(call, counts, [&] { import(folder.path()); }));
        if (i % 2 == 1)
            trial.kills += WIFSIGNALED(killAt(random() % 12, counts, [&] { finishImport(folder.path()); }));
        finishImport(folder.path());
        trial.look(folder, "call " + std::to_string(call));
    }
    std::printf("%d kills at %zu calls, %d imports whole; %d faults\n", trial.kills, calls, trial.whole, trial.faults);
    const int atCalls = trial.kills;
    std::chrono::microseconds whole(0);
    {
        const Workshop folder(argv[2]);
        whole = runFor(whole, trial, [&] { import(folder.path()); });
    }
    for (std::size_t i = 0; i < kills; ++i) {
        const Workshop folder(argv[2]);
        const auto time = std::chrono::microseconds(1 + random() % static_cast<unsigned>(whole.count()));
        runFor(time, trial, [&] { import(folder.path()); });
        if (i % 2 == 1)
            runFor(std::chrono::microseconds(1 + random() % 3000), trial, [&] { finishImport(folder.path()); });
        finishImport(folder.path());
        trial.look(folder, "after " + std::to_string(time.count()) + " us");
    }
    std::printf("%d kills within %lld us, %d imports whole; %d faults in all\n", trial.kills - atCalls,
                static_cast<long long>(whole.count()), trial.whole, trial.faults);
    return trial.faults == 0 && atCalls >= static_cast<int>(kills) ? 0 : 1;
}
