#include "store/history.h"

#include "store/disk.h"
#include "store/store.h"
#include "store/text_file.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <utility>

namespace circuidex {

using history::Change;
using history::Digest;
using history::digestOf;
using history::Step;

namespace {

constexpr std::string_view folderName = "Historique", indexFile = "index", noteFile = "en-cours";
constexpr std::string_view swapped = ".autre"; // the content that takes the copy's place

bool exists(const std::string &path)
{
    return disk::look(path).kind != disk::Kind::missing;
}

bool isLink(const std::string &path)
{
    return disk::target(path) != path;
}

std::string oneLine(std::string_view text)
{
    std::string line(text);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
    return line;
}

std::string inGuillemets(const std::string &name)
{
    return "« " + name + " »";
}

std::string shown(std::time_t when)
{
    std::tm local = {};
    ::localtime_r(&when, &local);
    std::array<char, 64> text = {};
    return std::string(text.data(), std::strftime(text.data(), text.size(), "%d/%m/%Y à %H:%M", &local));
}

// A link, or a copy where there are none; what a kill left under the name gives way.
bool keepAs(const std::string &path, const std::string &name)
{
    return disk::keepAs(path, name) || (exists(name) && (disk::removeName(name), disk::keepAs(path, name)));
}

// One content in the place of another, in one step; through a copy where they lie on two disks.
bool put(const std::string &from, const std::string &to)
{
    if (disk::rename(from, to))
        return true;
    std::string bytes;
    disk::Stamp after;
    const bool there = disk::read(from, bytes).kind == disk::Kind::file && disk::replace(to, bytes, false, after) &&
        disk::syncFile(to);
    if (there)
        disk::removeName(from);
    return there;
}

}

Action::Action(Store &store, std::string_view name) : m_store(store)
{
    History &history = store.history();
    if (history.m_depth == 0) {
        store.flush();
        history.rest();
    }
    history.begin(name);
}

Action::~Action()
{
    History &history = m_store.history();
    if (history.m_depth == 1)
        m_store.flush();
    --history.m_depth;
    history.rest();
}

void History::begin(std::string_view name)
{
    if (m_depth++ == 0)
        m_name = oneLine(name);
}

void History::name(std::string_view action)
{
    if (m_depth > 0 || !m_open)
        return;
    m_name = oneLine(action);
    if (m_burst)
        note("=" + m_name);
}

std::string History::path(std::string_view name) const
{
    return std::string(m_folder).append("/").append(folderName).append("/").append(name);
}

std::string History::copyOf(unsigned step, const Change &change) const
{
    return path(std::to_string(step) + "-" + std::to_string(change.copy));
}

// Where the file lies, empty when a link leads away from the program folder.
std::string History::live(const std::string &file) const
{
    const std::string path = std::string(m_folder).append("/").append(file);
    const bool ours = file.find('/') == file.npos || disk::inside(m_folder, disk::folderOf(path));
    return ours ? text_file::writtenFile(m_folder, path) : std::string();
}

// The note tells a start after a kill which files were touched, and under which name. Each file is in it before its
// copy is made, and its copy is made before the file changes.
bool History::note(const std::string &line) const
{
    return disk::append(path(noteFile), line + "\n");
}

bool History::startBurst()
{
    const std::string folder = std::string(m_folder).append("/").append(folderName);
    if (!disk::makeFolder(folder) || isLink(folder) || (m_indexWaits && !writeIndex()))
        return false;
    disk::removeName(path(noteFile));
    return note("#" + std::to_string(m_index.next) + (m_name.empty() ? "" : "\n=" + m_name));
}

bool History::keep(const Change &change) const
{
    return history::isInnerName(change.file) && note((change.before.there ? "+" : "-") + change.file) &&
        (!change.before.there || keepAs(live(change.file), copyOf(m_index.next, change)));
}

void History::before(const std::string &path)
{
    if (!m_open || path.size() <= m_folder.size() || !path.starts_with(m_folder))
        return;
    Change change;
    change.file = path.substr(m_folder.size() + 1);
    const bool first = !m_burst;
    Burst &burst = first ? m_burst.emplace() : *m_burst;
    const auto known = [&](const Change &each) { return each.file == change.file; };
    if (burst.missed.contains(change.file) || std::any_of(burst.changes.begin(), burst.changes.end(), known))
        return;
    change.copy = static_cast<unsigned>(burst.changes.size());
    change.before.there = exists(live(change.file));
    const bool started = first ? startBurst() : !burst.changes.empty();
    if (started && keep(change))
        burst.changes.push_back(std::move(change));
    else
        burst.missed.insert(change.file);
}

void History::rest()
{
    if (m_depth > 0)
        return;
    if (m_burst) {
        m_burst->name = m_name;
        close(*std::exchange(m_burst, std::nullopt));
    }
    m_name.clear();
}

// The index is written before the copies that it needs no more go, and the note goes last: a kill in between leaves
// what the next start can go on from.
void History::close(Burst burst)
{
    const unsigned id = m_index.next;
    for (Change &change : burst.changes) {
        if (change.before.there)
            change.before = digestOf(copyOf(id, change));
        change.after = digestOf(live(change.file));
    }
    const bool whole = burst.missed.empty();
    if (!whole && !burst.name.empty())
        m_trouble = inGuillemets(burst.name) + " ne peut pas être annulé : l'historique n'a pas pu le noter.";
    m_missed.merge(burst.missed);
    const bool written = whole && !burst.name.empty() ? closeNamed(burst) : closeNameless(burst);
    for (const Change &change : burst.changes)
        if (change.before.there)
            disk::removeName(copyOf(id, change));
    if (written)
        disk::removeName(path(noteFile));
}

// There is no step: those that stand before and behind it in the history of a file go on from its new content.
bool History::closeNameless(const Burst &burst)
{
    bool changed = false;
    const auto follow = [&changed](Digest &expected, const Change &change) {
        const bool follows = expected == change.before && change.before != change.after;
        if (follows)
            expected = change.after;
        changed = changed || follows;
    };
    for (const Change &change : burst.changes) {
        Digest *last = nullptr, *next = nullptr;
        for (Step &step : m_index.steps)
            for (Change &each : step.changes)
                if (each.file == change.file && !step.undone)
                    last = &each.after;
                else if (each.file == change.file && !next)
                    next = &each.before;
        for (Digest *expected : {last, next})
            if (expected)
                follow(*expected, change);
    }
    return !changed || writeIndex();
}

// What stays in the burst are the files that the step has no use for.
bool History::closeNamed(Burst &burst)
{
    Step step{m_index.next, false, std::time(nullptr), burst.name, {}};
    for (const Change &change : burst.changes)
        if (change.before != change.after)
            step.changes.push_back(change);
    std::erase_if(burst.changes, [](const Change &each) { return each.before != each.after; });
    if (step.changes.empty())
        return true;
    const std::vector<Step> dropped = push(std::move(step));
    m_trouble.clear();
    if (!writeIndex())
        return false;
    for (const Step &each : dropped)
        for (const Change &change : each.changes)
            disk::removeName(copyOf(each.id, change));
    return true;
}

// What was undone can't be redone any more, and of the oldest ones goes what is too much. The steps that went.
std::vector<Step> History::push(Step step)
{
    std::vector<Step> &steps = m_index.steps, dropped;
    const auto drop = [&](std::vector<Step>::iterator from, std::vector<Step>::iterator to) {
        dropped.insert(dropped.end(), std::move_iterator(from), std::move_iterator(to));
        steps.erase(from, to);
    };
    drop(std::find_if(steps.begin(), steps.end(), [](const Step &each) { return each.undone; }), steps.end());
    steps.push_back(std::move(step));
    ++m_index.next;
    std::uint64_t size = 0;
    std::size_t keeps = 0;
    while (keeps < std::min(steps.size(), kept)) {
        for (const Change &change : steps[steps.size() - 1 - keeps].changes)
            size += change.before.size;
        if (keeps > 0 && size > room)
            break;
        ++keeps;
    }
    drop(steps.begin(), steps.end() - static_cast<std::ptrdiff_t>(keeps));
    return dropped;
}

// The disk isn't waited for. The index that it surely has is held on to until settle(), as that of a data file is.
bool History::writeIndex()
{
    const std::string file = path(indexFile);
    disk::Stamp after;
    if (!m_indexHeld)
        m_indexHeld = disk::keepOld(file);
    m_indexWaits = !disk::replace(file, history::written(m_index), m_indexHeld, after);
    return !m_indexWaits;
}

void History::settle()
{
    if (m_indexHeld && disk::syncFile(path(indexFile)) && disk::syncFolder(path({}))) {
        disk::dropOld(path(indexFile));
        m_indexHeld = false;
    }
}

void History::readIndex()
{
    std::string bytes;
    if (disk::repairAndRead(path(indexFile), bytes).kind == disk::Kind::missing)
        return;
    if (auto index = history::parsed(bytes)) {
        m_index = *std::move(index);
        return;
    }
    m_trouble = "L'historique était illisible : il recommence.";
    disk::rename(path(indexFile), path("index.abime"));
}

// The burst that a kill cut off; absent when there was none, or when it already is a step.
std::optional<History::Burst> History::noted() const
{
    std::string text;
    disk::read(path(noteFile), text);
    Burst burst;
    std::string step;
    for (std::size_t at = 0, end = text.find('\n'); end != text.npos; at = end + 1, end = text.find('\n', at)) {
        std::string line = text.substr(at + 1, end - at - 1);
        const char kind = text[at];
        Change change{static_cast<unsigned>(burst.changes.size()), line, {kind == '+', 0, 0}, {}};
        if (kind == '#')
            step = std::move(line);
        else if (kind == '=')
            burst.name = oneLine(line);
        else if ((kind == '+' || kind == '-') && history::isInnerName(line))
            burst.changes.push_back(std::move(change));
    }
    const auto untouched = [this](const Change &each) { // the kill came before its copy
        const std::string copy = copyOf(m_index.next, each);
        return each.before.there && (!exists(copy) || isLink(copy));
    };
    std::erase_if(burst.changes, untouched);
    return step == std::to_string(m_index.next) ? std::optional(std::move(burst)) : std::nullopt;
}

void History::removeOrphans() const
{
    std::vector<std::string> known;
    for (const Step &step : m_index.steps)
        for (const Change &change : step.changes)
            known.push_back(copyOf(step.id, change));
    namespace fs = std::filesystem;
    std::error_code error;
    for (fs::directory_iterator at(path({}), error), end; !error && at != end; at.increment(error)) {
        const std::string name = at->path().filename().string();
        const bool copy = name.front() >= '0' && name.front() <= '9' && name.find('-') != name.npos;
        if (copy && std::find(known.begin(), known.end(), path(name)) == known.end())
            disk::removeName(path(name));
    }
}

void History::open()
{
    const std::string folder = std::string(m_folder).append("/").append(folderName);
    if (m_open || isLink(folder)) // a folder from a stranger: its copies may lead anywhere
        return;
    m_open = true;
    if (!exists(folder))
        return;
    readIndex();
    disk::tidy(folder);
    finishTurn();
    if (!m_open)
        return;
    if (auto burst = noted())
        close(*std::move(burst));
    disk::removeName(path(noteFile));
    removeOrphans();
}

std::vector<History::Item> History::items() const
{
    std::vector<Item> items;
    for (auto step = m_index.steps.rbegin(); step != m_index.steps.rend(); ++step)
        items.push_back({step->name, shown(step->when), step->undone});
    return items;
}

const Step *History::next(Turn way) const
{
    const auto undone =
        std::find_if(m_index.steps.begin(), m_index.steps.end(), [](const Step &each) { return each.undone; });
    if (way == Turn::redo)
        return undone == m_index.steps.end() ? nullptr : &*undone;
    return undone == m_index.steps.begin() ? nullptr : &*std::prev(undone);
}

std::string History::undoable() const
{
    const Step *const step = next(Turn::undo);
    return step ? step->name : std::string();
}

std::string History::redoable() const
{
    const Step *const step = next(Turn::redo);
    return step ? step->name : std::string();
}

std::string History::refusal(const Step &step, Turn way) const
{
    const std::string what =
        (way == Turn::undo ? "Impossible d'annuler " : "Impossible de rétablir ") + inGuillemets(step.name) + " : ";
    for (const Change &change : step.changes) {
        const Digest &now = way == Turn::undo ? change.after : change.before;
        const Digest &wanted = way == Turn::undo ? change.before : change.after;
        const std::string file = live(change.file), copy = copyOf(step.id, change);
        if (file.empty() || digestOf(file) != now)
            return what + change.file +
                (m_missed.contains(change.file) ? " a changé depuis, et l'historique n'a pas pu le noter."
                                                : " a été changé depuis par un autre programme.");
        if (wanted.there && (isLink(copy) || digestOf(copy) != wanted))
            return what + "la copie de " + change.file + " dans le dossier Historique manque ou est abîmée.";
        if (now.there && disk::calls.mayWrite(file.c_str()) != 0)
            return what + change.file + " est protégé contre l'écriture.";
    }
    return {};
}

// The file and its copy change places: each name leads to the one content or the other all the time, and what a kill
// leaves is finished by the same call. What belongs to an absent file is the absence.
bool History::swap(const Step &step, const Change &change, Turn way) const
{
    const Digest &now = way == Turn::undo ? change.after : change.before;
    const Digest &wanted = way == Turn::undo ? change.before : change.after;
    const std::string file = live(change.file), copy = copyOf(step.id, change), other = copy + std::string(swapped);
    const bool done = digestOf(file) == wanted;
    if (exists(other) && (done || !exists(copy)) && !disk::rename(other, copy))
        return false;
    disk::removeName(other);
    if (done)
        return true;
    if (!wanted.there || !now.there)
        return wanted.there ? put(copy, file) : put(file, copy);
    if (!keepAs(file, other))
        return false;
    if (put(copy, file))
        return disk::rename(other, copy);
    disk::removeName(other);
    return false;
}

bool History::swapAll(const Step &step, Turn way) const
{
    return std::all_of(step.changes.begin(), step.changes.end(),
                       [&](const Change &change) { return swap(step, change, way); });
}

// The files are where they belong: they and the index go to the disk.
bool History::turned(unsigned id, Turn way)
{
    std::set<std::string> folders{path({})};
    for (Step &step : m_index.steps) {
        if (step.id != id)
            continue;
        step.undone = way == Turn::undo;
        for (const Change &change : step.changes) {
            const std::string file = live(change.file);
            disk::syncFile(file);
            folders.insert(disk::folderOf(file));
        }
    }
    for (const std::string &folder : folders)
        disk::syncFolder(folder);
    m_index.turning = 0;
    const bool written = writeIndex();
    settle();
    return written;
}

std::string History::hindrance(Turn way) const
{
    const Step *const step = next(way);
    if (m_depth > 0)
        return "Une action est en cours : attendez qu'elle soit finie.";
    if (m_open && step)
        return refusal(*step, way);
    return !m_trouble.empty() ? m_trouble
        : way == Turn::undo   ? "Il n'y a rien à annuler."
                              : "Il n'y a rien à rétablir.";
}

std::string History::turn(Turn way)
{
    if (std::string why = hindrance(way); !why.empty())
        return why;
    const Step *const step = next(way);
    m_index.turning = step->id;
    if (writeIndex() && swapAll(*step, way)) {
        turned(step->id, way); // an index that can't be written says that the next start has this undo to finish
        return {};
    }
    const bool back = swapAll(*step, way == Turn::undo ? Turn::redo : Turn::undo);
    m_index.turning = 0;
    m_open = back; // else the next start finishes it
    m_trouble = back && writeIndex() ? "" : "L'historique ne peut pas être écrit ; le prochain démarrage y revient.";
    return "Le disque refuse l'écriture : " + inGuillemets(step->name) +
        (back ? " reste comme avant." : " sera repris au prochain démarrage.");
}

// An undo that a kill cut off is brought to its end. A file that another program changed meanwhile stays as it is.
void History::finishTurn()
{
    const auto step = std::find_if(m_index.steps.begin(), m_index.steps.end(),
                                   [this](const Step &each) { return each.id == m_index.turning; });
    if (m_index.turning == 0 || step == m_index.steps.end()) {
        m_index.turning = 0;
        return;
    }
    const Turn way = step->undone ? Turn::redo : Turn::undo;
    for (const Change &change : step->changes) {
        const Digest present = digestOf(live(change.file));
        if (present == change.before || present == change.after)
            m_open = swap(*step, change, way) && m_open;
    }
    if (m_open)
        turned(step->id, way);
    else
        m_trouble = "Une annulation n'a pas pu être achevée : le disque refuse l'écriture.";
}

}
