// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/display_note.h"

#include <array>
#include <charconv>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace circuidex {

namespace {

constexpr std::string_view noteHeading = "affichage";
constexpr std::size_t longestNote = 256;

// Takes the next word off a line; words are parted by tabs.
std::string_view nextWord(std::string_view &line)
{
    const std::size_t end = std::min(line.find('\t'), line.size());
    const std::string_view word = line.substr(0, end);
    line.remove_prefix(std::min(end + 1, line.size()));
    return word;
}

// A whole number from 1 to the limit; otherwise 0.
int nextNumber(std::string_view &line, int limit)
{
    const std::string_view word = nextWord(line);
    int number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    return error == std::errc() && end == word.data() + word.size() && number <= limit ? std::max(number, 0) : 0;
}

OutputMode nextMode(std::string_view &line)
{
    const int width = nextNumber(line, 65535), height = nextNumber(line, 65535), rate = nextNumber(line, 1'000'000);
    return {width, height, rate};
}

bool isMode(const OutputMode &mode)
{
    return mode.width > 0 && mode.height > 0 && mode.rate > 0;
}

std::string modeText(const OutputMode &mode)
{
    return std::to_string(mode.width) + '\t' + std::to_string(mode.height) + '\t' + std::to_string(mode.rate);
}

}

std::string noteText(const NotedDisplay &noted)
{
    return std::string(noteHeading) + '\t' + noted.output + '\t' + modeText(noted.own) + '\t' + modeText(noted.changed) +
        '\n';
}

std::optional<NotedDisplay> readNote(std::string_view text)
{
    const std::size_t end = text.find('\n');
    if (end == std::string_view::npos)
        return std::nullopt;
    std::string_view line = text.substr(0, end);
    if (nextWord(line) != noteHeading)
        return std::nullopt;
    NotedDisplay noted;
    noted.output = nextWord(line);
    noted.own = nextMode(line);
    noted.changed = nextMode(line);
    if (noted.output.empty() || !isMode(noted.own) || !isMode(noted.changed) || !line.empty())
        return std::nullopt;
    return noted;
}

DisplayNote::DisplayNote(std::filesystem::path folder) : m_folder(std::move(folder)), m_file(m_folder / "affichage") { }

DisplayNote::~DisplayNote()
{
    close();
}

// A note is a file of its own, no link and nothing that would hold up who reads it.
bool DisplayNote::open(int flags)
{
    if (m_open >= 0)
        return true;
    m_open = ::open(m_file.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | flags, 0600);
    struct stat file;
    const bool ours =
        m_open >= 0 && ::fstat(m_open, &file) == 0 && S_ISREG(file.st_mode) && ::flock(m_open, LOCK_EX | LOCK_NB) == 0;
    if (!ours)
        close();
    return ours;
}

void DisplayNote::close()
{
    if (m_open >= 0)
        ::close(m_open);
    m_open = -1;
}

std::optional<NotedDisplay> DisplayNote::leftBehind()
{
    if (!open(0))
        return std::nullopt;
    std::array<char, longestNote> bytes;
    const ssize_t size = ::pread(m_open, bytes.data(), bytes.size(), 0);
    const auto noted = readNote({bytes.data(), std::size_t(std::max<ssize_t>(size, 0))});
    if (!noted)
        remove();
    return noted;
}

bool DisplayNote::write(const NotedDisplay &noted)
{
    std::error_code ignored; // then it can't be opened
    std::filesystem::create_directories(m_folder, ignored);
    if (!open(O_CREAT))
        return false;
    const std::string text = noteText(noted); // in one call, so that it is never there by half
    return ::pwrite(m_open, text.data(), text.size(), 0) == ssize_t(text.size()) &&
        ::ftruncate(m_open, off_t(text.size())) == 0;
}

void DisplayNote::remove()
{
    if (m_open < 0)
        return;
    ::unlink(m_file.c_str());
    close();
}

}
