#include "store/store.h"

#include "store/text.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <utility>

namespace circuidex {

struct Store::Entry {
    std::string stem;
    std::string path;
    KeyFile file;
    disk::Stamp stamp;
    bool loaded = false; // false: the next read reads the file
    bool settled = false; // false: the file may have changed under the same stamp
    bool text = true;
    std::uint64_t moment = 0;
    std::int64_t tick = 0;
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

bool hasLineBreak(std::string_view text)
{
    return text.find('\n') != text.npos || text.find('\r') != text.npos;
}

// Text in the code page on one line: each line break is one blank.
std::string_view lineOf(std::string_view utf8, std::string &scratch)
{
    const std::string_view bytes = toCodePage(utf8, scratch);
    if (!hasLineBreak(bytes))
        return bytes;
    std::string line;
    line.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n')
            continue;
        line += bytes[i] == '\r' || bytes[i] == '\n' ? ' ' : bytes[i];
    }
    scratch = std::move(line);
    return scratch;
}

std::string nameOf(const std::string &path)
{
    return path.substr(path.find_last_of('/') + 1);
}

// The name that the file bears from now on, its own with the minute; empty when it can't be moved.
std::string moveAside(const std::string &path, const std::string &ending)
{
    const std::string stem = std::string(path).append(".").append(backups::minuteNow());
    for (int number = 1; number < 100; ++number) {
        const std::string another = number == 1 ? std::string() : "-" + std::to_string(number);
        const std::string aside = std::string(stem).append(another).append(".").append(ending);
        if (disk::look(aside).kind == disk::Kind::missing)
            return disk::move(path, aside) ? aside : std::string();
    }
    return {};
}

}

Store::Store(std::filesystem::path folder, Numbers numbers) : m_folder(std::move(folder)), m_numbers(numbers) { }

Store::~Store()
{
    settle();
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
        fresh->path = m_folder.string().append("/f1").append(stem).append(".ini");
        found = m_files.emplace(fresh->stem, std::move(fresh)).first;
    }
    return m_lastUsed = found->second.get();
}

// Makes the copy in memory the same as the file, at the first use in a moment. A write looks in any case.
void Store::refresh(Entry &entry, bool beforeWrite) const
{
    const std::int64_t tick = clockTick();
    const bool sameMoment = entry.loaded && entry.moment == m_moment && entry.tick == tick;
    if (sameMoment && !beforeWrite)
        return;
    entry.moment = m_moment;
    entry.tick = tick;
    const disk::Stamp stamp = disk::look(entry.path);
    if (entry.loaded && stamp == entry.stamp && (entry.settled || sameMoment))
        return;
    std::string bytes;
    const disk::Stamp read = entry.loaded ? disk::read(entry.path, bytes) : load(entry.path, bytes);
    if (read.kind == disk::Kind::refused && entry.loaded && stamp == entry.stamp)
        return; // what was read before is the better answer than nothing
    entry.stamp = read;
    entry.settled = !disk::young(entry.stamp);
    if (!entry.loaded || bytes != entry.file.bytes()) {
        entry.text = !m_protected || isText(bytes);
        if (!entry.text)
            noteDamage(entry.path);
        entry.file = KeyFile(std::move(bytes));
    }
    entry.loaded = true;
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
    Entry *const found = entry(stem);
    if (!found)
        return;
    refresh(*found, true);
    if (found->stamp.kind == disk::Kind::refused || m_readOnly) {
        lose();
        return;
    }
    if (!found->text)
        found->file = KeyFile();
    if (!found->file.set(section, key, value) && found->stamp.kind == disk::Kind::file)
        return;
    if (write(found->path, found->file.bytes(), found->text, found->stamp)) {
        found->settled = false;
        found->text = true;
    } else {
        found->loaded = false; // what wasn't kept isn't shown either
    }
}

void Store::EcrireINI(std::string_view stem, std::string_view section, std::string_view key, std::string_view value)
{
    std::string scratch;
    writeBytes(stem, lineOf(section, m_section), lineOf(key, m_key), lineOf(value, scratch));
}

// The file as it was left by the last run.
disk::Stamp Store::load(const std::string &path, std::string &bytes) const
{
    return m_readOnly ? disk::read(path, bytes) : disk::repairAndRead(path, bytes);
}

bool Store::lose()
{
    ++m_lostWrites;
    m_writesLost = true;
    return false;
}

void Store::beforeFirstWrite()
{
    if (std::exchange(m_written, true))
        return;
    disk::tidy(m_folder.string());
    if (m_protected)
        backups::make(m_folder.string());
}

// Files that aren't text keep their bytes under another name, which is given back when the write fails.
bool Store::write(const std::string &path, std::string_view bytes, bool overText, disk::Stamp &after)
{
    beforeFirstWrite();
    const std::string target = disk::target(path);
    const std::string aside = overText ? std::string() : moveAside(target, "abime");
    if (!overText && aside.empty())
        return lose();
    if (replace(target, bytes, after)) {
        if (!overText)
            noteDamage(path).aside = nameOf(aside);
        return true;
    }
    if (!overText)
        disk::move(aside, target);
    return false;
}

bool Store::replace(const std::string &target, std::string_view bytes, disk::Stamp &after)
{
    const auto known = std::find_if(m_unsettled.begin(), m_unsettled.end(),
                                    [&target](const Unsettled &each) { return each.path == target; });
    const bool first = known == m_unsettled.end();
    const bool held = first ? disk::keepOld(target) : known->held;
    if (bytes.size() > disk::largest || !disk::replace(target, bytes, held, after)) {
        if (first && held)
            disk::dropOld(target);
        return lose();
    }
    if (first)
        m_unsettled.push_back({target, held});
    m_writesLost = false;
    return true;
}

Store::Damaged &Store::noteDamage(const std::string &path) const
{
    const std::string name = nameOf(path);
    const auto known = std::find_if(m_damaged.begin(), m_damaged.end(),
                                    [&name](const Damaged &each) { return each.name == name && !each.restored; });
    if (known != m_damaged.end())
        return *known;
    return m_damaged.emplace_back(Damaged{name, {}, backups::newestGood(m_folder.string(), name), false});
}

bool Store::restore(const std::string &name)
{
    const auto wanted = std::find_if(m_damaged.begin(), m_damaged.end(),
                                     [&name](const Damaged &each) { return each.name == name && !each.restored; });
    if (wanted == m_damaged.end() || !wanted->copy || m_readOnly)
        return false;
    std::string good;
    if (disk::read(wanted->copy->path, good).kind != disk::Kind::file || good.empty() || !isText(good))
        return false;
    beforeFirstWrite();
    const std::string target = disk::target((m_folder / name).string());
    const bool empty = disk::look(target).kind == disk::Kind::missing;
    const std::string aside = empty ? std::string() : moveAside(target, wanted->aside.empty() ? "abime" : "remplace");
    if (!empty && aside.empty())
        return lose();
    disk::Stamp after;
    wanted->restored = replace(target, good, after);
    if (!wanted->restored && !empty)
        disk::move(aside, target);
    if (wanted->restored && wanted->aside.empty())
        wanted->aside = nameOf(aside);
    for (const auto &[stem, entry] : m_files)
        entry->loaded = false;
    return wanted->restored;
}

std::string Store::notice() const
{
    if (m_readOnly)
        return "Lecture seule : les modifications ne sont pas conservées.";
    if (m_writesLost)
        return "Attention : les modifications ne sont pas conservées.";
    if (m_damaged.empty())
        return {};
    const Damaged &last = m_damaged.back();
    if (last.restored)
        return last.name + " : copie du " + last.copy->when + " remise ; l'ancien : " + last.aside;
    return last.aside.empty() ? last.name + " n'est pas un fichier texte ; il reste tel quel."
                              : last.name + " n'était pas un fichier texte ; mis de côté : " + last.aside;
}

// The content held is let go when the new one, and the name that leads to it, are surely on the disk.
void Store::settle()
{
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
}

std::string Store::yearMarker() const
{
    const std::string path = (m_folder / yearFile).string();
    std::string bytes;
    load(path, bytes);
    if (m_protected && !isText(bytes))
        noteDamage(path);
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
    const std::string path = (m_folder / yearFile).string();
    std::string scratch, held;
    const std::string line = std::string(lineOf(year, scratch)).append("\r\n");
    disk::Stamp stamp = disk::read(path, held);
    if (stamp.kind == disk::Kind::file && held == line)
        return;
    if (m_readOnly)
        lose();
    else
        write(path, line, !m_protected || isText(held), stamp);
}

}
