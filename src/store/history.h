#pragma once
// The user's last actions, each with its files as they were before it, so that it can be undone and redone, byte for
// byte. It lies in the folder "Historique" of the program folder and outlives a restart and a kill (docs/undo.md).
//
// An action is what is written, created and deleted under one name, on any number of files. Who starts one says so:
//
//     const Action action(store, "enregistrement de Chine 2005");
//
// The file as it was gets a second name before the first write, which costs some 10 µs. What is written without a name
// (display options, the season marker) is no action; it goes and comes with the action before it on the same file.
//
// Nothing here ever keeps an action from being done: what can't be noted can't be undone, and trouble() says so.
#include "store/history_index.h"

#include <functional>
#include <set>

namespace circuidex {

class Store;

// Names what is written until it ends. Within another one it does nothing: a whole import is one action, whatever it
// calls. It may live over many turns of the event loop. An empty name: what is written within is no action.
class Action {
public:
    Action(Store &store, std::string_view name);
    ~Action();
    Action(const Action &) = delete;
    Action &operator=(const Action &) = delete;

private:
    Store &m_store;
};

class History {
public:
    static constexpr std::size_t kept = 50; // actions
    static constexpr std::uint64_t room = std::uint64_t(256) << 20; // bytes; the newest action may take more

    explicit History(std::string folder) : m_folder(std::move(folder)) { }

    // From now on what is written is noted. Finishes an undo that a kill cut off, and takes what a kill left of an
    // action for the whole of it; so it comes before the first file is read.
    void open();
    bool isOpen() const { return m_open; }

    // The name of what has been written since the program was last at rest and is written until then, for who can't
    // live as long as that. Without effect while an Action is under way.
    void name(std::string_view action);

    // Told before a file of the program folder, given by its path, is written, created or deleted.
    void before(const std::string &path);

    // The program is at rest: unless an Action is under way, what was noted becomes a step.
    void rest();

    struct Item {
        std::string name;
        std::string when; // "22/11/2026 à 21:45", in local time
        bool undone = false;
    };
    std::vector<Item> items() const; // newest first

    // What would be undone and redone next; empty when there is nothing.
    std::string undoable() const;
    std::string redoable() const;

    // In French, why the history lacks something; empty when all is well.
    const std::string &trouble() const { return m_trouble; }

    // Called before an undo: whoever has an Action that only waits for a timer ends it now.
    std::function<void()> finish;

private:
    friend class Action;
    friend class Store;
    struct Burst { // what is written between two rests
        std::string name;
        std::vector<history::Change> changes; // of `before` only whether there was such a file
        std::set<std::string> missed; // files that changed without a copy of what they were
    };
    enum class Turn { undo, redo };

    void begin(std::string_view name);
    std::string path(std::string_view name) const; // in the history's own folder
    std::string copyOf(unsigned step, const history::Change &change) const;
    std::string live(const std::string &file) const;
    bool startBurst();
    bool note(const std::string &line) const;
    bool keep(const history::Change &change) const;
    std::optional<Burst> noted() const;
    void close(Burst burst);
    bool closeNameless(const Burst &burst);
    bool closeNamed(Burst &burst);
    std::vector<history::Step> push(history::Step step);
    bool writeIndex();
    void settle();
    void readIndex();
    void removeOrphans() const;
    std::string hindrance(Turn way) const; // the sentence of refusal; empty when nothing stands in the way
    std::string turn(Turn way); // the same, and it is done when that is empty
    void finishTurn();
    const history::Step *next(Turn way) const;
    std::string refusal(const history::Step &step, Turn way) const;
    bool swap(const history::Step &step, const history::Change &change, Turn way) const;
    bool swapAll(const history::Step &step, Turn way) const;
    bool turned(unsigned id, Turn way);

    std::string m_folder;
    history::Index m_index;
    std::optional<Burst> m_burst;
    std::string m_name; // of the burst, or of the one to come
    std::string m_trouble;
    std::set<std::string> m_missed; // files with a change that couldn't be noted
    int m_depth = 0; // Actions under way, one within the other
    bool m_open = false;
    bool m_indexWaits = false; // the one on the disk is older
    bool m_indexHeld = false; // what the disk surely has of it is held on to
};

}
