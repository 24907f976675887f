#include "store/store.h"

#include "store/history.h"
#include "store/text.h"
#include "store/text_file.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <utility>

namespace circuidex {

using backups::Damage;

struct Store::Entry {
    struct Write {
        std::string section, key, value; // in the code page
    };
    std::string stem;
    std::string name; // "f12005.ini"
    std::string path; // where the name may be in another case
    KeyFile file;
    disk::Stamp stamp;
    bool loaded = false; // false: the next read reads the file
    bool settled = false; // false: the file may have changed under the same stamp
    bool utf8 = false; // the file is; here it isn't
    bool withheld = false; // it takes no writes
    std::optional<unsigned> held; // what is written waits for release(); the writes lost until then
    Damage damage = Damage::none;
    std::uint64_t moment = 0;
    std::int64_t tick = 0;
    std::vector<Write> waiting; // in the copy in memory, not yet in the file
};

namespace {

constexpr std::string_view yearFile = "Année";

// The coarse clock costs a few nanoseconds to read, a look at the file a microsecond.
std::int64_t clockTick()
{
#ifdef CLOCK_MONOTONIC_COARSE
    timespec now = {};
    ::clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return std::int64_t(now.tv_sec) * 1'000'000'000 + now.tv_nsec;
#else
    return std::chrono::steady_clock::now().time_since_epoch() / std::chrono::milliseconds(4);
#endif
}

bool namesFile(std::string_view stem)
{
    return stem.find_first_of(std::string_view("/\\\0", 3)) == stem.npos && stem.find("..") == stem.npos;
}

bool isControl(char c)
{
    return (static_cast<unsigned char>(c) < ' ' && c != '\t') || c == '\x7F';
}

// Text in the code page on one line: a line break is one blank, and so is each other control character. Enough of them
// would make the file no text.
std::string_view lineOf(std::string_view utf8, std::string &scratch)
{
    const std::string_view bytes = toCodePage(utf8, scratch);
    if (std::none_of(bytes.begin(), bytes.end(), isControl))
        return bytes;
    std::string line;
    line.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n')
            continue;
        line += isControl(bytes[i]) ? ' ' : bytes[i];
    }
    scratch = std::move(line);
    return scratch;
}

std::string nameOf(const std::string &path)
{
    return path.substr(path.find_last_of('/') + 1);
}

std::string fileName(std::string_view stem)
{
    return std::string("f1").append(stem).append(".ini");
}

std::string lostKey(std::string_view section, std::string_view key)
{
    return folded(toUtf8(std::string(section).append("]").append(key)));
}

const char *inFrench(Damage damage)
{
    return damage == Damage::noText ? "ce n'est plus un fichier texte"
        : damage == Damage::emptied ? "il est vide"
                                    : "il mêle deux codages de texte";
}

}

Store::Store(std::filesystem::path folder, Numbers numbers)
    : m_folder(std::move(folder)), m_numbers(numbers), m_history(std::make_unique<History>(m_folder.string()))
{
}

Store::~Store()
{
    settle();
    m_history->settle();
}

Store::Entry *Store::entry(std::string_view stem) const
{
    if (m_lastUsed && m_lastUsed->stem == stem)
        return m_lastUsed;
    auto found = m_files.find(stem);
    if (found == m_files.end()) {
        if (!namesFile(stem))
            return nullptr;
        auto fresh = std::make_unique<Entry>();
        fresh->stem = stem;
        fresh->name = fileName(stem);
        fresh->path = (m_folder / fresh->name).string();
        found = m_files.emplace(fresh->stem, std::move(fresh)).first;
    }
    return m_lastUsed = found->second.get();
}

// The file of that name; when there is none, one in another case, as it comes from a disk that knows no case.
std::string Store::pathOf(const std::string &name) const
{
    const std::string exact = (m_folder / name).string();
    if (disk::look(exact).kind != disk::Kind::missing)
        return exact;
    const disk::Stamp stamp = disk::look(m_folder.string());
    if (stamp != m_namesStamp || disk::young(stamp))
        m_names = backups::dataFiles(m_folder.string());
    m_namesStamp = stamp;
    const auto found = m_names.find(folded(name));
    return found == m_names.end() ? exact : (m_folder / found->second).string();
}

// Makes the copy in memory the same as the file, at the first use in a moment. A write looks in any case.
void Store::refresh(Entry &entry, bool beforeWrite) const
{
    if (!entry.waiting.empty())
        return;
    const std::int64_t tick = clockTick();
    const bool sameMoment = entry.loaded && entry.moment == m_moment && entry.tick == tick;
    if (sameMoment && !beforeWrite)
        return;
    entry.moment = m_moment;
    entry.tick = tick;
    disk::Stamp stamp = disk::look(entry.path);
    if (stamp.kind == disk::Kind::missing) {
        entry.path = pathOf(entry.name);
        stamp = disk::look(entry.path);
    }
    if (entry.loaded && stamp == entry.stamp && (entry.settled || sameMoment))
        return;
    std::string bytes;
    const disk::Stamp read = entry.loaded ? disk::read(entry.path, bytes) : load(entry.path, bytes);
    if (read.kind == disk::Kind::refused && entry.loaded && stamp == entry.stamp)
        return; // what was read before is the better answer than nothing
    const bool other = !entry.loaded || read.kind != entry.stamp.kind || bytes != entry.file.bytes();
    entry.stamp = read;
    entry.settled = !disk::young(entry.stamp);
    if (other)
        parse(entry, std::move(bytes));
    entry.loaded = true;
    const auto losses = m_losses.find(entry.name);
    if (losses != m_losses.end() && read.kind == disk::Kind::file && read != losses->second.stamp)
        losses->second.keys.clear(); // another program's file: the user starts from that
}

// Half a file would be worse than none.
void Store::parse(Entry &entry, std::string bytes) const
{
    const bool judged = m_protected && entry.stamp.kind == disk::Kind::file;
    entry.damage = judged ? backups::damageOf(entry.name, bytes) : Damage::none;
    entry.withheld = withheld(entry.path, entry.damage);
    entry.utf8 = judged && entry.damage == Damage::none && codingOf(bytes) == Coding::utf8;
    if (entry.utf8)
        bytes = withoutUtf8(bytes);
    if (entry.damage == Damage::mixedText)
        bytes.clear();
    entry.file = KeyFile(std::move(bytes));
}

std::string_view Store::value(std::string_view stem, std::string_view section, std::string_view key) const
{
    Entry *const found = entry(stem);
    if (!found)
        return {};
    refresh(*found, false);
    return found->file.value(section, key).value_or(std::string_view()).substr(0, longestValue);
}

std::string Store::readBytes(std::string_view stem, std::string_view section, std::string_view key) const
{
    return std::string(value(stem, section, key));
}

std::string Store::LireINI(std::string_view stem, std::string_view section, std::string_view key) const
{
    return toUtf8(value(stem, lineOf(section, m_section), lineOf(key, m_key)));
}

void Store::writeBytes(std::string_view stem, std::string_view section, std::string_view key, std::string_view value)
{
    if (Entry *const found = entry(stem))
        note(set(*found, section, key, value), found->name, section, key, found->path);
    else
        note(false, fileName(stem), section, key, {});
}

// True when the file holds the value.
bool Store::set(Entry &entry, std::string_view section, std::string_view key, std::string_view value)
{
    refresh(entry, true);
    if (entry.stamp.kind == disk::Kind::refused || m_readOnly || entry.withheld)
        return false;
    if (entry.damage == Damage::noText && entry.waiting.empty())
        entry.file = KeyFile();
    if (!entry.file.set(section, key, value) && entry.stamp.kind == disk::Kind::file)
        return true;
    if (entry.held || !entry.waiting.empty() || entry.file.bytes().size() > large) {
        entry.waiting.push_back({std::string(section), std::string(key), std::string(value)});
        return true;
    }
    entry.loaded = write(entry); // what wasn't kept isn't shown either
    return entry.loaded;
}

void Store::EcrireINI(std::string_view stem, std::string_view section, std::string_view key, std::string_view value)
{
    std::string scratch;
    writeBytes(stem, lineOf(section, m_section), lineOf(key, m_key), lineOf(value, scratch));
}

void Store::flush()
{
    for (const auto &[stem, entry] : m_files)
        if (!entry->waiting.empty() && !entry->held)
            flush(*entry);
}

void Store::hold(std::string_view stem)
{
    if (Entry *const found = entry(stem))
        found->held = lostWrites(stem);
}

bool Store::release(std::string_view stem)
{
    Entry *const found = entry(stem);
    const auto before = found ? std::exchange(found->held, std::nullopt) : std::nullopt;
    if (!before)
        return false;
    if (lostWrites(stem) != *before) {
        found->waiting.clear();
        found->loaded = false;
    } else if (!found->waiting.empty()) {
        flush(*found);
    }
    return lostWrites(stem) == *before;
}

// Another program may have written meanwhile: what waits then goes into its file.
void Store::flush(Entry &entry)
{
    const std::vector<Entry::Write> writes = std::exchange(entry.waiting, {});
    bool kept = true;
    if (disk::look(entry.path) != entry.stamp) {
        refresh(entry, true);
        kept = entry.stamp.kind != disk::Kind::refused && !entry.withheld;
        if (entry.damage == Damage::noText)
            entry.file = KeyFile();
        for (const Entry::Write &each : writes)
            entry.file.set(each.section, each.key, each.value);
    }
    entry.loaded = kept = kept && write(entry);
    for (const Entry::Write &each : writes)
        note(kept, entry.name, each.section, each.key, entry.path);
}

// The file as it was left by the last run.
disk::Stamp Store::load(const std::string &path, std::string &bytes) const
{
    return m_readOnly ? disk::read(path, bytes) : disk::repairAndRead(path, bytes);
}

void Store::note(bool kept, const std::string &name, std::string_view section, std::string_view key,
                 const std::string &path)
{
    if (kept && m_losses.empty())
        return;
    Losses &losses = m_losses[name];
    losses.stamp = disk::look(path);
    if (kept) {
        losses.keys.erase(lostKey(section, key));
    } else {
        losses.keys.insert(lostKey(section, key));
        ++losses.writes;
        ++m_lostWrites;
    }
}

bool Store::writesLost() const
{
    return std::any_of(m_losses.begin(), m_losses.end(), [](const auto &each) { return !each.second.keys.empty(); });
}

unsigned Store::lostWrites(std::string_view stem) const
{
    const auto losses = m_losses.find(fileName(stem));
    return losses == m_losses.end() ? 0 : losses->second.writes;
}

void Store::beforeFirstWrite()
{
    if (std::exchange(m_written, true))
        return;
    disk::tidy(m_folder.string());
    if (m_protected)
        backups::make(m_folder.string());
}

bool Store::write(Entry &entry)
{
    beforeFirstWrite();
    if (entry.utf8 && backups::keep(m_folder.string(), nameOf(entry.path)).empty())
        return false; // a character that the code page lacks would be lost
    const std::string_view bytes = entry.file.bytes();
    const bool kept = entry.damage == Damage::noText ? replaceDamaged(entry.path, bytes, entry.stamp)
                                                     : replace(entry.path, bytes, entry.stamp);
    if (!kept)
        return false;
    entry.settled = entry.utf8 = false;
    entry.damage = Damage::none;
    return true;
}

// The damaged file gets a second name, which stays when its own leads to another one.
bool Store::replaceDamaged(const std::string &path, std::string_view bytes, disk::Stamp &after)
{
    const std::string target = writtenFile(path);
    const std::string aside = disk::freeName(target + "." + backups::minuteNow(), ".abime");
    if (target.empty() || aside.empty() || !disk::keepAs(target, aside))
        return false;
    if (!replace(path, bytes, after)) {
        disk::removeName(aside);
        return false;
    }
    if (Damaged *const damaged = standing(nameOf(path)))
        damaged->aside = nameOf(aside);
    return true;
}

std::string Store::writtenFile(const std::string &path) const
{
    return text_file::writtenFile(m_folder.string(), path);
}

bool Store::replace(const std::string &path, std::string_view bytes, disk::Stamp &after)
{
    const std::string target = writtenFile(path);
    const auto known = std::find_if(m_unsettled.begin(), m_unsettled.end(),
                                    [&target](const Unsettled &each) { return each.path == target; });
    const bool first = known == m_unsettled.end();
    if (target.empty() || bytes.size() > disk::largest)
        return false;
    m_history->before(path);
    const bool held = first ? disk::keepOld(target) : known->held;
    if (!disk::replace(target, bytes, held, after)) {
        if (first && held)
            disk::dropOld(target);
        return false;
    }
    if (first)
        m_unsettled.push_back({target, held});
    return true;
}

bool Store::mayDelete(const std::string &path) const
{
    std::error_code error;
    return !m_readOnly && std::filesystem::symlink_status(path, error).type() == std::filesystem::file_type::regular &&
        disk::inside(m_folder.string(), path);
}

std::string Store::keepCopy(std::string_view stem)
{
    flush();
    const Entry *const found = m_readOnly ? nullptr : entry(stem);
    return found ? backups::keep(m_folder.string(), nameOf(pathOf(found->name))) : std::string();
}

Store::Damaged *Store::standing(const std::string &name) const
{
    const auto known = std::find_if(m_damaged.begin(), m_damaged.end(), [&name](const Damaged &each) {
        return each.stands() && folded(each.name) == folded(name);
    });
    return known == m_damaged.end() ? nullptr : &*known;
}

// Notes what was found. True when the file takes no writes: there is a better one to be put back, or no telling how to
// read it.
bool Store::withheld(const std::string &path, Damage damage) const
{
    const std::string name = nameOf(path);
    Damaged *known = standing(name);
    if (damage == Damage::none) {
        if (known)
            known->gone = true;
        return false;
    }
    if (!known) {
        auto copy = backups::newestGood(m_folder.string(), name);
        if (damage == Damage::emptied && !copy)
            return false; // perhaps it never held anything
        known = &m_damaged.emplace_back(Damaged{name, {}, {}, std::move(copy)});
    }
    known->what = inFrench(damage);
    return known->copy || damage == Damage::mixedText;
}

bool Store::restore(const std::string &name)
{
    flush();
    Damaged *const wanted = standing(name);
    std::string good, present;
    if (!wanted || !wanted->copy || m_readOnly || disk::read(wanted->copy->path, good).kind != disk::Kind::file ||
        backups::damageOf(name, good) != Damage::none)
        return false;
    const std::string path = (m_folder / wanted->name).string();
    const disk::Stamp stamp = disk::read(path, present);
    if (stamp.kind == disk::Kind::file && backups::damageOf(name, present) == Damage::none)
        return wanted->gone = true; // another program was faster
    beforeFirstWrite();
    disk::Stamp after;
    wanted->restored =
        stamp.kind == disk::Kind::missing ? replace(path, good, after) : replaceDamaged(path, good, after);
    for (const auto &[stem, entry] : m_files)
        entry->loaded = false;
    if (wanted->restored)
        for (auto &[file, losses] : m_losses)
            if (folded(file) == folded(name))
                losses.keys.clear();
    return wanted->restored;
}

std::string Store::notice() const
{
    if (m_readOnly)
        return "Lecture seule : les modifications ne sont pas conservées.";
    for (const auto &[name, losses] : m_losses)
        if (!losses.keys.empty() && !standing(name) && name.find_first_of("/\\") == name.npos)
            return "Attention : les modifications ne sont pas conservées (" + name + ").";
    const auto last =
        std::find_if(m_damaged.rbegin(), m_damaged.rend(), [](const Damaged &each) { return !each.gone; });
    if (last == m_damaged.rend())
        return {};
    if (last->restored)
        return last->name + " : copie du " + last->copy->when + " remise" +
            (last->aside.empty() ? "." : " ; l'ancien : " + last->aside);
    return last->aside.empty() ? last->name + " est abîmé : " + last->what + " ; il reste tel quel."
                               : last->name + " était abîmé ; mis de côté : " + last->aside;
}

// The content held is let go when the new one, and the name that leads to it, are surely on the disk.
void Store::settle()
{
    flush();
    std::map<std::string, bool> folders; // true: synced
    for (Unsettled &each : m_unsettled) {
        each.held = disk::syncFile(each.path) || disk::look(each.path).kind == disk::Kind::missing;
        folders.emplace(disk::folderOf(each.path), false);
    }
    for (auto &[folder, synced] : folders)
        synced = disk::syncFolder(folder);
    for (const Unsettled &each : m_unsettled)
        if (each.held && folders[disk::folderOf(each.path)])
            disk::dropOld(each.path);
    m_unsettled.clear();
    m_history->rest();
}

void Store::keepHistory()
{
    if (!m_readOnly)
        m_history->open();
}

// What is under way comes to its end first.
std::string Store::historyHindrance(bool back)
{
    if (m_readOnly)
        return std::string("Lecture seule : rien ne peut être ") + (back ? "annulé." : "rétabli.");
    if (m_history->finish)
        m_history->finish();
    settle();
    if (std::any_of(m_files.begin(), m_files.end(), [](const auto &each) { return each.second->held.has_value(); }))
        return "Une action est en cours : attendez qu'elle soit finie.";
    return m_history->hindrance(back ? History::Turn::undo : History::Turn::redo);
}

std::string Store::turnHistory(bool back)
{
    std::string refusal = historyHindrance(back);
    if (refusal.empty())
        refusal = m_history->turn(back ? History::Turn::undo : History::Turn::redo);
    for (const auto &[stem, entry] : m_files)
        entry->loaded = false;
    newMoment();
    return refusal;
}

std::string Store::yearMarker() const
{
    const std::string path = pathOf(std::string(yearFile));
    std::string bytes;
    const bool judged = load(path, bytes).kind == disk::Kind::file && m_protected;
    withheld(path, judged ? backups::damageOf(yearFile, bytes) : Damage::none);
    if (codingOf(bytes) == Coding::utf8)
        bytes = withoutUtf8(bytes);
    std::string_view line = std::string_view(bytes).substr(0, bytes.find_first_of("\r\n"));
    const auto start = line.find_first_not_of(" \t");
    line.remove_prefix(std::min(start, line.size()));
    if (line.starts_with('"'))
        return toUtf8(line.substr(1, line.find('"', 1) - 1));
    line = line.substr(0, line.find(','));
    return toUtf8(line.substr(0, line.find_last_not_of(" \t") + 1));
}

void Store::setYearMarker(std::string_view year)
{
    const std::string path = pathOf(std::string(yearFile));
    std::string scratch, held;
    const std::string line = std::string(lineOf(year, scratch)).append("\r\n");
    disk::Stamp stamp = disk::read(path, held);
    const bool there = stamp.kind == disk::Kind::file;
    const Damage damage = there && m_protected ? backups::damageOf(yearFile, held) : Damage::none;
    bool kept = there && held == line;
    if (!kept && !m_readOnly && !withheld(path, damage)) {
        beforeFirstWrite();
        kept = damage == Damage::noText ? replaceDamaged(path, line, stamp) : replace(path, line, stamp);
    }
    note(kept, std::string(yearFile), {}, {}, path);
}

}
