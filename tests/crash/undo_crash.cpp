// SPDX-License-Identifier: GPL-3.0-or-later
// Kills the program while it records, undoes and redoes, and looks at what is left.
//
//     undo_crash KILLS SAMPLE
//
// A child process on its own copy of the sample folder records a Grand Prix, amends it, saves an article, makes a new
// season and stores a grid; then it undoes all of that and redoes it. It kills itself right before one of its system
// calls or in the middle of a write. The next start, which is killed too each third time, must leave the files as they
// were before or after the very step that the kill met, and undoing everything from there must bring back the folder as
// it was at first, byte for byte. Kills are spread over the undoing and redoing; one in four meets an action.
#include "crash/killing.h"
#include "media/journal.h"
#include "results/amending.h"
#include "results/grid.h"
#include "results/new_season.h"
#include "results/recording.h"
#include "store/history.h"
#include "store/temporary_folder.h"

#include <algorithm>
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

using State = std::map<std::string, std::string>; // every file of the program folder itself

State stateOf(const fs::path &folder)
{
    State state;
    for (const auto &entry : fs::directory_iterator(folder))
        if (const std::string name = entry.path().filename().string(); entry.is_regular_file() && name.front() != '.')
            state[name] = content(entry.path());
    return state;
}

// One sitting: actions, then all undone, then all redone. `step` is told after each of these.
class Sitting {
public:
    explicit Sitting(const fs::path &folder) : m_store(folder), m_main(m_store, m_dialogs)
    {
        m_store.protect();
        m_store.keepHistory();
        m_main.an.set("2005");
    }

    Store &store() { return m_store; }

    void work(const std::function<void()> &step)
    {
        enter("Chine", {"5", "9", "10", "1", "6", "2", "3", "16"});
        m_main.Label40.set("18");
        results::recordGrandPrix(m_main);
        end(step);
        enter("Chine", {"5", "10", "9", "1", "6", "2", "3", "15"});
        results::amendGrandPrix(m_main, results::Amendment::byUser);
        end(step);
        media::saveArticle(m_store, "5", {"Titre", "Texte"});
        end(step);
        results::passToNextSeason(m_main, "5");
        end(step);
        results::enterGrid(m_main.writableSeason(), "Chine", results::loadGrid(Season(m_store, "2005"), "Chine"));
        m_store.EcrireINI("2006", "option", "sans nom", "1");
        end(step);
        while (m_store.undo().empty())
            step();
        while (m_store.redo().empty())
            step();
    }

private:
    void enter(const char *gp, std::array<const char *, 8> places)
    {
        m_main.gp.set(gp);
        for (int place = 1; place <= classifiedPlaces; ++place)
            m_main.number(place).set(places[static_cast<std::size_t>(place - 1)]);
        m_main.Text39.set("6");
    }
    void end(const std::function<void()> &step)
    {
        m_store.settle();
        step();
    }

    Silent m_dialogs;
    Store m_store;
    results::MainRecord m_main;
};

class Workshop {
public:
    explicit Workshop(const fs::path &sample) { fs::copy(sample, path()); }
    ~Workshop() { fs::remove_all(path()); }
    Workshop(const Workshop &) = delete;
    Workshop &operator=(const Workshop &) = delete;

    fs::path path() const { return m_place / "programme"; }

private:
    inline static const TemporaryFolder m_place;
};

// The states after each step of an undisturbed sitting, and at each call how many steps were behind it.
struct Course {
    std::vector<State> states;
    std::vector<std::size_t> atCall;
    std::size_t actions = 0; // steps that are no undo
};

Course undisturbed(const fs::path &sample)
{
    const Workshop folder(sample);
    Course course;
    course.states.push_back(stateOf(folder.path()));
    const WatchedCalls watched([&](const WatchedCalls::Call &call) {
        if (writes(call))
            course.atCall.push_back(course.states.size() - 1);
        return 0;
    });
    Sitting sitting(folder.path());
    sitting.work([&] { course.states.push_back(stateOf(folder.path())); });
    course.actions = (course.states.size() - 1) / 3;
    return course;
}

// What is wrong after a kill at that call; empty when nothing is.
std::string fault(const fs::path &sample, const Course &course, std::size_t call, bool twice)
{
    const Workshop folder(sample);
    if (!WIFSIGNALED(killAt(call, writes, [&] { Sitting(folder.path()).work([] {}); })))
        return "not killed";
    const auto start = [&] {
        Store store(folder.path());
        store.keepHistory();
    };
    if (twice)
        killAt(call % 11, writes, start);
    start();
    const std::size_t step = course.atCall[call];
    const State left = stateOf(folder.path());
    const bool acting = step < course.actions; // cut off in the middle, it is undone as what it became
    if (!acting && left != course.states[step] && left != course.states[std::min(step + 1, course.states.size() - 1)])
        return "neither before nor after the undo";
    Sitting next(folder.path());
    std::string end;
    while ((end = next.store().undo()).empty()) { }
    if (end != "Il n'y a rien à annuler.")
        return end;
    State undone = stateOf(folder.path()), first = course.states.front();
    if (acting) // an article that was cut off leaves a file that the next opening finishes
        return undone == first ? "" : "not as it was before the actions";
    while ((end = next.store().redo()).empty()) { }
    if (end != "Il n'y a rien à rétablir.")
        return end;
    return undone == first && stateOf(folder.path()) == course.states[course.actions] ? "" : "not as it was";
}

}

int main(int argc, char **argv)
{
    const std::size_t kills = argc == 3 ? std::strtoul(argv[1], nullptr, 10) : 0;
    if (kills == 0) {
        std::fprintf(stderr, "usage: undo_crash KILLS SAMPLE\n");
        return 2;
    }
    const Course course = undisturbed(argv[2]);
    const auto turning = std::lower_bound(course.atCall.begin(), course.atCall.end(), course.actions);
    const std::size_t acting = std::size_t(turning - course.atCall.begin()), calls = course.atCall.size();
    std::mt19937 random(20051016);
    int faults = 0;
    for (std::size_t i = 0; i < kills; ++i) {
        const bool onAction = i % 4 == 3;
        const std::size_t call = onAction ? random() % acting : acting + random() % (calls - acting);
        const std::string what = fault(argv[2], course, call, i % 3 == 2);
        if (!what.empty())
            std::printf("FAULT call %zu: %s\n", call, what.c_str());
        faults += !what.empty();
    }
    std::printf("%zu kills at %zu calls, %zu of them in undo and redo; %d faults\n", kills, calls, calls - acting,
                faults);
    return faults == 0 && course.states.size() == 16 ? 0 : 1;
}
