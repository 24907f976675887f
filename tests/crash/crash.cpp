// Kills the program while it works on its files, and looks at what is left.
//
//     crash KILLS SAMPLE
//
// A child process on its own copy of the sample folder records a Grand Prix, amends it, cancels another one, passes to
// the next season and closes, all through the program's own functions. Three in four of the kills come from the child
// itself, right before one of its system calls or in the middle of a write, at places spread over the whole work; the
// others from outside after a time by chance. Whatever is left must be the state of all data files after some prefix of
// the writes, as an undisturbed run went through them; where the child chose the place, exactly the state of that
// place. Then the next start of the program must read these files, go on writing and tidy up.
#include "results/amending.h"
#include "results/new_season.h"
#include "results/recording.h"
#include "store/temporary_folder.h"
#include "store/watched_calls.h"

#include <csignal>
#include <cstdio>
#include <chrono>
#include <map>
#include <random>
#include <set>
#include <thread>

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
    std::optional<std::string> chooseFile(const std::string &, const std::string &) override { return std::nullopt; }
};

void enter(results::MainRecord &main, const char *slot, const char *name, std::array<const char *, 8> places, const char *pole)
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
    results::clearTotals(main.season());
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

// Works until the call of that number, then ends without another instruction. In a write, half of it is done.
[[noreturn]] void workAndDieAt(const fs::path &folder, std::size_t last)
{
    std::size_t count = 0;
    const WatchedCalls watched([&](const WatchedCalls::Call &call) {
        if (writes(call) && count++ == last) {
            if (call.writePart)
                call.writePart(call.size / 2);
            ::kill(::getpid(), SIGKILL);
        }
        return 0;
    });
    work(folder);
    ::_exit(0);
}

class Trial {
public:
    Trial(const fs::path &sample, const Course &course) : m_sample(sample), m_course(course) { }

    int faults() const { return m_faults; }
    int killed() const { return m_killed; }

    void atCall(std::size_t call)
    {
        const Workshop folder(m_sample);
        const pid_t child = ::fork();
        if (child == 0)
            workAndDieAt(folder.path(), call);
        wait(child);
        if (stateOf(folder.path()) != m_course.states[m_course.atCall[call]])
            fault("call " + std::to_string(call) + ": not the state that the writes before it make");
        lookAround(folder, "call " + std::to_string(call));
    }

    void after(std::chrono::microseconds time)
    {
        const Workshop folder(m_sample);
        const pid_t child = ::fork();
        if (child == 0) {
            work(folder.path());
            ::_exit(0);
        }
        std::this_thread::sleep_for(time);
        ::kill(child, SIGKILL);
        wait(child);
        const State left = stateOf(folder.path());
        if (std::find(m_course.states.begin(), m_course.states.end(), left) == m_course.states.end())
            fault(std::to_string(time.count()) + " us: the state of no prefix of the writes");
        lookAround(folder, std::to_string(time.count()) + " us");
    }

private:
    void wait(pid_t child)
    {
        int status = 0;
        ::waitpid(child, &status, 0);
        m_killed += WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
        if (WIFSIGNALED(status) ? WTERMSIG(status) != SIGKILL : WEXITSTATUS(status) != 0)
            fault("the child came to another end");
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
        std::error_code none;
        for (const auto &entry : fs::recursive_directory_iterator(folder / "Sauvegardes", none))
            if (const std::string name = entry.path().filename().string(); isData(name))
                if (content(entry.path()) != content(m_sample / name))
                    fault(where + ": torn copy " + name);
        {
            Store store(folder.path());
            store.protect();
            store.EcrireINI("2005", "essai", "clef", "1");
            if (store.writesLost() || !store.damaged().empty())
                fault(where + ": the next start can't write");
        }
        if (content(folder / "f12005.ini") != before + "[essai]\r\nclef=1\r\n")
            fault(where + ": the next start doesn't go on from what was left");
        if (fs::exists(folder / ".circuidex-f12005.ini.old"))
            fault(where + ": what was held on to wasn't let go");
    }

    fs::path m_sample;
    const Course &m_course;
    int m_faults = 0;
    int m_killed = 0;
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
    // At calls: evenly spread, each time another part of the distance so that all kinds of call come up.
    const std::size_t chosen = kills - kills / 4, calls = course.atCall.size();
    std::mt19937 random(20051016);
    std::set<std::size_t> places;
    for (std::size_t i = 0; i < chosen; ++i)
        places.insert((i * calls + random() % calls) / chosen);
    for (const std::size_t place : places)
        trial.atCall(std::min(place, calls - 1));
    const auto start = std::chrono::steady_clock::now();
    {
        const Workshop folder(argv[2]);
        work(folder.path());
    }
    const auto whole = std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - start);
    for (std::size_t i = places.size(); i < kills; ++i)
        trial.after(std::chrono::microseconds(random() % static_cast<unsigned>(whole.count() + 1)));
    std::printf("%zu runs, %d killed under way, %zu of them at one of %zu calls; %zu states; %d faults\n", kills,
                trial.killed(), places.size(), calls, course.states.size(), trial.faults());
    return trial.faults() == 0 && trial.killed() > static_cast<int>(places.size()) / 2 ? 0 : 1;
}
