// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/text_file.h"

#include "store/text.h"

namespace circuidex::text_file {

namespace {

constexpr std::string_view mark = "\xEF\xBB\xBF", lineEnd = "\r\n";

std::string pathOf(const std::string &folder, const std::string &name)
{
    return folder + "/" + name;
}

// Each line break as one character.
std::string withPlainBreaks(std::string_view text)
{
    std::string plain;
    plain.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at)
        if (text[at] != '\r' || at + 1 == text.size() || text[at + 1] != '\n')
            plain += text[at];
    return plain;
}

std::string withFileBreaks(std::string_view text)
{
    std::string lines;
    lines.reserve(text.size() + text.size() / 32 + 2);
    for (const char c : text)
        c == '\n' ? lines.append(lineEnd) : lines.append(1, c);
    return lines.append(lineEnd);
}

}

std::string writtenFile(const std::string &folder, const std::string &path)
{
    const auto nameOf = [](const std::string &of) { return of.substr(of.find_last_of('/') + 1); };
    const std::string target = disk::target(path);
    const bool ours = target == path || nameOf(target) == nameOf(path) || disk::inside(folder, target);
    return ours ? target : std::string();
}

std::string decoded(std::string_view bytes)
{
    const bool marked = bytes.starts_with(mark);
    if (marked)
        bytes.remove_prefix(mark.size());
    std::string text = withPlainBreaks(marked || isUtf8(bytes) ? std::string(bytes) : toUtf8(bytes));
    if (text.ends_with('\n'))
        text.pop_back();
    return text;
}

std::string encoded(std::string_view text)
{
    const std::string lines = withFileBreaks(text), bytes = toCodePage(lines);
    return toUtf8(bytes) == lines && !isUtf8(bytes) && !bytes.starts_with(mark) ? bytes : std::string(mark) + lines;
}

std::optional<std::string> read(const std::string &folder, const std::string &name, std::size_t most)
{
    const std::string path = pathOf(folder, name);
    const disk::Stamp stamp = disk::look(path);
    std::string bytes;
    if (stamp.kind != disk::Kind::file || stamp.size > most || disk::read(path, bytes).kind != disk::Kind::file)
        return std::nullopt;
    return decoded(bytes);
}

bool mayWrite(const std::string &folder, const std::string &name)
{
    const std::string path = pathOf(folder, name);
    return disk::look(path).kind != disk::Kind::refused && !writtenFile(folder, path).empty();
}

bool write(const std::string &folder, const std::string &name, std::string_view text)
{
    const std::string bytes = encoded(text);
    disk::Stamp after;
    return bytes.size() <= disk::largest && mayWrite(folder, name) &&
        disk::replace(writtenFile(folder, pathOf(folder, name)), bytes, false, after);
}

bool writeThrough(const std::string &folder, const std::string &name, std::string_view text)
{
    const std::string target = writtenFile(folder, pathOf(folder, name));
    return write(folder, name, text) && disk::syncFile(target) && disk::syncFolder(disk::folderOf(target));
}

}
