// SPDX-License-Identifier: GPL-3.0-or-later
// Kills the program while it works on its files, and looks at what is left.
//
//     crash KILLS SAMPLE
//
// A child process on its own copy of the sample folder records a Grand Prix, amends it, cancels another one, passes to
// the next season and closes, all through the program's own functions, and kills itself right before one of its system
// calls or in the middle of a write, at places spread over the whole work. What is left must be the state of all data
// files that the writes before that place make. Then the next start of the program must read these files, go on writing
// and tidy up.
//
// For every five of these, one other child puts back the copy of a damaged season and is killed so; from the second
// round on the start after it too. The season's name must lead to the damaged file or to the good one all the time, the
// damaged one must be there under some name, and the last start must end with the good one in its place.
//
// Two more are killed at each call of a simulation's start and stop, and once more while the next start stops what it
// finds. The season must be as before or hold the whole simulated race, with the next start knowing which, and as
// before in the end.
#include "crash/killing.h"
#include "results/amending.h"
#include "results/new_season.h"
#include "results/recording.h"
#include "results/simulation.h"
#include "store/temporary_folder.h"

#include <csignal>
#include <cstdio>
#include <functional>
#include <map>
#include <random>

#include <sys/wait.h>
#include <unistd.h>

using namespace circuidex;
using namespace circuidex::test;
namespace fs = std::filesystem;

namespace {

class Silent : public Dialogs {
public:
    void message(const std::string &) override { }
    bool question(const std::string &) override { return true; }
    std::optional<std::string> chooseFile(const std::string &, const std::string &, const std::string &) override
    {
        return std::nullopt;
    }
};

void enter(results::MainRecord &main, const char *slot, const char *name, std::array<const char *, 8> places,
           const char *pole)
{
    main.Label40.set(slot);
    main.gp.set(name);
    for (int place = 1; place <= classifiedPlaces; ++place)
        main.number(place).set(places[static_cast<std::size_t>(place - 1)]);
    main.Text39.set(pole);
}

// A copy of the sample folder, in the same place each time: stored paths begin with the place.
class Workshop {
public:
    explicit Workshop(const fs::path &sample) { fs::copy(sample, path()); }
    ~Workshop() { fs::remove_all(path()); }
    Workshop(const Workshop &) = delete;
    Workshop &operator=(const Workshop &) = delete;

    fs::path path() const { return m_place / "programme"; }
    fs::path operator/(const std::string &name) const { return path() / name; }

private:
    inline static const TemporaryFolder m_place;
};

// What a user does in one sitting; `settle` ends each action, as in the program.
void work(const fs::path &folder)
{
    Store store(folder);
    store.protect();
    Silent dialogs;
    results::MainRecord main(store, dialogs);
    main.an.set("2005");
    enter(main, "18", "Chine", {"5", "9", "10", "1", "6", "2", "3", "16"}, "5");
    results::recordGrandPrix(main);
    results::proposeRecords(main);
    store.settle();
    enter(main, "18", "Chine", {"5", "10", "9", "1", "6", "2", "3", "15"}, "6");
    results::amendGrandPrix(main, results::Amendment::byUser);
    store.settle();
    main.Label40.set("3");
    results::cancelGrandPrix(main);
    store.settle();
    results::passToNextSeason(main, "5");
    results::clearTotals(main.writableSeason());
    store.settle();
    store.setYearMarker(main.an.text());
}

bool isData(const std::string &name)
{
    return name.starts_with("f1") || name == "Année";
}

// Name, size and hash of every data file.
using State = std::map<std::string, std::pair<std::size_t, std::size_t>>;

std::pair<std::size_t, std::size_t> digest(const std::string &bytes)
{
    return {bytes.size(), std::hash<std::string>()(bytes)};
}

State stateOf(const fs::path &folder)
{
    State state;
    for (const auto &entry : fs::directory_iterator(folder))
        if (const std::string name = entry.path().filename().string(); isData(name))
            state[name] = digest(content(entry.path()));
    return state;
}

// An undisturbed run: the states in order, and at each call the number of the last one before it.
struct Course {
    std::vector<State> states;
    std::vector<std::size_t> atCall;
};

Course undisturbed(const fs::path &sample)
{
    const Workshop folder(sample);
    Course course;
    course.states.push_back(stateOf(folder.path()));
    bool changed = false;
    const auto note = [&](const WatchedCalls::Call &call) {
        if (changed)
            if (State now = stateOf(folder.path()); now != course.states.back())
                course.states.push_back(std::move(now));
        changed = replaces(call);
        if (writes(call))
            course.atCall.push_back(course.states.size() - 1);
        return 0;
    };
    {
        const WatchedCalls watched(note);
        work(folder.path());
    }
    course.states.push_back(stateOf(folder.path()));
    return course;
}

// A start on a damaged season, the question answered by "Oui", and what the start then writes.
void putBack(const fs::path &folder)
{
    Store store(folder);
    store.protect();
    store.LireINI("2005", "gp", "nogp");
    store.restore("f12005.ini");
    store.settle();
    store.EcrireINI("2005", "essai", "clef", "1");
}

// A simulation from its start to its stop, of two drivers or of nobody.
void simulate(const fs::path &folder, bool typed)
{
    Store store(folder);
    store.protect();
    Silent dialogs;
    results::MainRecord main(store, dialogs);
    main.an.set("2005");
    const results::SimulatedScore scores[] = {{"5", typed ? "10" : ""}, {"9", typed ? "8" : ""}};
    if (const auto running = results::startSimulation(main, scores))
        results::stopSimulation(main, *running);
    store.settle();
}

// A start after that, which stops what still runs.
void stopSimulated(const fs::path &folder)
{
    Store store(folder);
    store.protect();
    Silent dialogs;
    results::MainRecord main(store, dialogs);
    main.an.set("2005");
    results::forgetUnrecorded(store);
    if (const auto running = results::runningSimulation(store))
        results::stopSimulation(main, *running);
    store.settle();
}

// The season without the traces that a stopped simulation may leave.
std::string withoutTraces(const std::string &season)
{
    std::string kept;
    for (std::size_t at = 0; at < season.size();) {
        const std::string line = season.substr(at, season.find('\n', at) + 1 - at);
        at += line.size();
        if (!line.ends_with("Chine=\r\n") && !line.ends_with("ecuriepts/gp18=0\r\n"))
            kept += line;
    }
    return kept;
}

class Trial {
public:
    Trial(const fs::path &sample, const Course &course) : m_sample(sample), m_course(course) { }

    int faults() const { return m_faults; }
    int killed() const { return m_killed; }
    int found() const { return m_found; } // simulations that still ran after a kill

    void atCall(std::size_t call)
    {
        const Workshop folder(m_sample);
        count(killAt(call, writes, [&] { work(folder.path()); }));
        if (stateOf(folder.path()) != m_course.states[m_course.atCall[call]])
            fault("call " + std::to_string(call) + ": not the state that the writes before it make");
        lookAround(folder, "call " + std::to_string(call));
    }

    // False behind the last call.
    bool restoring(const std::string &damaged, std::size_t call, bool twice)
    {
        const Workshop folder(m_sample);
        fs::create_directories(folder / "Sauvegardes/2005-10-09_2130");
        fs::copy(m_sample / "f12005.ini", folder / "Sauvegardes/2005-10-09_2130");
        layDown(folder / "f12005.ini", damaged);
        const std::string where = "restoring, call " + std::to_string(call) + (twice ? ", twice" : "");
        const int status = killAt(call, writes, [&] { putBack(folder.path()); });
        if (WIFEXITED(status))
            return false;
        count(status);
        lookAtSeason(folder, damaged, where);
        if (twice) {
            count(killAt(call * 7 % 30, writes, [&] { putBack(folder.path()); }));
            lookAtSeason(folder, damaged, where);
        }
        putBack(folder.path());
        lookAtSeason(folder, damaged, where);
        if (content(folder / "f12005.ini") != content(m_sample / "f12005.ini") + written)
            fault(where + ": the season isn't back");
        lookAtCopies(folder, where);
        lookForLeftCopies(folder, where);
        return true;
    }

    // False behind the last call.
    bool simulating(std::size_t call, bool typed)
    {
        const Workshop folder(m_sample);
        const std::string where = "simulation, call " + std::to_string(call);
        const int status = killAt(call, writes, [&] { simulate(folder.path(), typed); });
        if (WIFEXITED(status))
            return false;
        count(status);
        lookAtSimulation(folder, where);
        count(killAt(call * 7 % 60, writes, [&] { stopSimulated(folder.path()); }));
        lookAtSimulation(folder, where + ", twice");
        stopSimulated(folder.path());
        if (withoutTraces(content(folder / "f12005.ini")) != withoutTraces(content(m_sample / "f12005.ini")))
            fault(where + ": the season isn't as before");
        return true;
    }

private:
    static constexpr const char *written = "[essai]\r\nclef=1\r\n";

    void count(int status)
    {
        m_killed += WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
        if (WIFSIGNALED(status) ? WTERMSIG(status) != SIGKILL : WEXITSTATUS(status) != 0)
            fault("the child came to another end");
    }
    void lookAtSimulation(const Workshop &folder, const std::string &where)
    {
        Store store(folder.path());
        results::forgetUnrecorded(store);
        const bool runs = results::runningSimulation(store).has_value();
        if (runs != (store.LireINI("2005", "gp", "nogp") == "19") ||
            (!runs && withoutTraces(content(folder / "f12005.ini")) != withoutTraces(content(m_sample / "f12005.ini"))))
            fault(where + ": the next start is told wrong");
        m_found += runs;
    }
    void lookAtSeason(const Workshop &folder, const std::string &damaged, const std::string &where)
    {
        const std::string held = content(folder / "f12005.ini"), good = content(m_sample / "f12005.ini");
        if (!fs::exists(folder / "f12005.ini") || (held != damaged && held != good && held != good + written))
            fault(where + ": the season's name leads to neither");
        bool there = false;
        for (const auto &entry : fs::directory_iterator(folder.path()))
            there = there || (isData(entry.path().filename().string()) && content(entry.path()) == damaged);
        if (!there)
            fault(where + ": what was damaged is gone");
    }
    void lookAtCopies(const Workshop &folder, const std::string &where)
    {
        std::error_code none;
        for (const auto &entry : fs::recursive_directory_iterator(folder / "Sauvegardes", none))
            if (const std::string name = entry.path().filename().string(); isData(name))
                if (const std::string held = content(entry.path()), whole = content(m_sample / name);
                    held != whole && held != whole + written)
                    fault(where + ": torn copy " + name);
    }
    void lookForLeftCopies(const Workshop &folder, const std::string &where)
    {
        std::error_code none;
        for (const auto &run : fs::directory_iterator(folder / "Sauvegardes", none))
            if (run.path().filename().string().starts_with('.'))
                fault(where + ": a set that isn't complete was left");
    }
    void fault(const std::string &what)
    {
        ++m_faults;
        std::printf("FAULT %s\n", what.c_str());
    }

    // What a next start does: it reads what is there, writes on, and leaves nothing lying about.
    void lookAround(const Workshop &folder, const std::string &where)
    {
        const std::string before = content(folder / "f12005.ini");
        lookAtCopies(folder, where);
        {
            Store store(folder.path());
            store.protect();
            store.EcrireINI("2005", "essai", "clef", "1");
            if (store.writesLost() || !store.damaged().empty())
                fault(where + ": the next start can't write");
        }
        if (content(folder / "f12005.ini") != before + written)
            fault(where + ": the next start doesn't go on from what was left");
        if (fs::exists(folder / ".circuidex-f12005.ini.old"))
            fault(where + ": what was held on to wasn't let go");
        lookForLeftCopies(folder, where);
    }

    fs::path m_sample;
    const Course &m_course;
    int m_faults = 0;
    int m_killed = 0;
    int m_found = 0;
};

}

int main(int argc, char **argv)
{
    const std::size_t kills = argc == 3 ? std::strtoul(argv[1], nullptr, 10) : 0;
    if (kills == 0) {
        std::fprintf(stderr, "usage: crash KILLS SAMPLE\n");
        return 2;
    }
    const Course course = undisturbed(argv[2]);
    Trial trial(argv[2], course);
    // Evenly spread, each time another part of the distance so that all kinds of call come up.
    const std::size_t calls = course.atCall.size();
    std::mt19937 random(20051016);
    for (std::size_t i = 0; i < kills; ++i)
        trial.atCall(std::min((i * calls + random() % calls) / kills, calls - 1));
    std::printf("%d kills at %zu calls of a sitting; %zu states; %d faults\n", trial.killed(), calls,
                course.states.size(), trial.faults());
    const int before = trial.killed();
    const std::string damaged[] = {std::string(30000, '\0'), "", "PK\x03\x04" + std::string(300, '\0'), "[gp]\r\n"};
    std::size_t laps = 0;
    for (std::size_t i = 0, call = 0; i < kills / 5; ++i)
        if (!trial.restoring(damaged[i % std::size(damaged)], call, laps > 0))
            call = 0, ++laps;
        else
            call += i % std::size(damaged) == std::size(damaged) - 1;
    std::printf("%d kills while restoring\n", trial.killed() - before);
    const int restored = trial.killed();
    for (const bool typed : {true, false})
        for (std::size_t call = 0; trial.simulating(call, typed); ++call) { }
    std::printf("%d kills in simulations, which still ran after %d; %d faults in all\n", trial.killed() - restored,
                trial.found(), trial.faults());
    return trial.faults() == 0 && trial.killed() > static_cast<int>(kills) && trial.found() > 0 ? 0 : 1;
}
