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
    std::uint64_t moment = 0;
    std::int64_t tick = 0;
};

namespace {

constexpr std::size_t longestValue = 254;
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
    entry.stamp = entry.loaded ? disk::read(entry.path, bytes) : disk::repairAndRead(entry.path, bytes);
    entry.settled = !disk::young(entry.stamp);
    if (!entry.loaded || bytes != entry.file.bytes())
        entry.file = KeyFile(std::move(bytes));
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
    if (found->stamp.kind == disk::Kind::refused) {
        m_writesLost = true;
        return;
    }
    if (!found->file.set(section, key, value) && found->stamp.kind == disk::Kind::file)
        return;
    if (replace(found->path, found->file.bytes(), found->stamp))
        found->settled = false;
    else
        found->loaded = false; // what wasn't kept isn't shown either
}

void Store::EcrireINI(std::string_view stem, std::string_view section, std::string_view key, std::string_view value)
{
    std::string scratch;
    writeBytes(stem, lineOf(section, m_section), lineOf(key, m_key), lineOf(value, scratch));
}

bool Store::replace(const std::string &path, std::string_view bytes, disk::Stamp &after)
{
    if (!std::exchange(m_tidied, true))
        disk::tidy(m_folder.string());
    const std::string target = disk::target(path);
    const auto known = std::find_if(m_unsettled.begin(), m_unsettled.end(),
                                    [&target](const Unsettled &each) { return each.path == target; });
    const bool first = known == m_unsettled.end();
    const bool held = first ? disk::keepOld(target) : known->held;
    m_writesLost = bytes.size() > disk::largest || !disk::replace(target, bytes, held, after);
    if (first && !m_writesLost)
        m_unsettled.push_back({target, held});
    else if (first && held)
        disk::dropOld(target);
    return !m_writesLost;
}

// The content held is let go when the new one, and the name that leads to it, are surely on the disk.
void Store::settle()
{
    std::vector<std::string> folders;
    for (Unsettled &each : m_unsettled) {
        each.held = disk::syncFile(each.path) || disk::look(each.path).kind == disk::Kind::missing;
        const std::string folder = disk::folderOf(each.path);
        if (std::find(folders.begin(), folders.end(), folder) == folders.end())
            folders.push_back(folder);
    }
    for (const std::string &folder : folders)
        disk::syncFolder(folder);
    for (const Unsettled &each : m_unsettled)
        if (each.held)
            disk::dropOld(each.path);
    m_unsettled.clear();
}

std::string Store::yearMarker() const
{
    std::string bytes;
    disk::repairAndRead((m_folder / yearFile).string(), bytes);
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
    replace(path, line, stamp);
}

}
