// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/history_index.h"

#include "store/disk.h"

#include <algorithm>
#include <charconv>
#include <cstring>

namespace circuidex::history {

namespace {

constexpr std::string_view head = "circuidex historique 1\n", sumLine = "somme ";

void put(std::string &text, std::uint64_t number)
{
    text.append(std::to_string(number)).append(" ");
}

void put(std::string &text, const Digest &digest)
{
    put(text, digest.there ? 1 : 0);
    put(text, digest.size);
    put(text, digest.sum);
}

// One line, read from its begin; `good` turns false at the first thing that isn't there.
struct Line {
    std::string_view rest;
    bool good = true;

    template <typename Number = std::uint64_t>
    Number number()
    {
        Number value = 0;
        const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), value);
        const auto length = std::size_t(end - rest.data());
        good = good && error == std::errc() && length < rest.size() && rest[length] == ' ';
        rest.remove_prefix(good ? length + 1 : rest.size());
        return value;
    }
    Digest digest()
    {
        const bool there = number() == 1;
        const auto size = number();
        return {there, size, number()};
    }
};

std::string_view takeLine(std::string_view &text)
{
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    return line;
}

bool readChange(Line line, Index &index)
{
    Change change;
    change.copy = line.number<unsigned>();
    change.before = line.digest();
    change.after = line.digest();
    change.file = line.rest;
    if (!line.good || index.steps.empty() || !isInnerName(change.file))
        return false;
    index.steps.back().changes.push_back(std::move(change));
    return true;
}

// Numbers rise, and behind an undone step all are undone.
bool readStep(Line line, Index &index)
{
    Step step;
    step.id = line.number<unsigned>();
    step.undone = line.number() == 1;
    step.when = line.number<std::time_t>();
    step.name = line.rest;
    if (!line.good || step.id == 0 || step.id >= index.next ||
        (!index.steps.empty() && (index.steps.back().id >= step.id || (index.steps.back().undone && !step.undone))))
        return false;
    index.steps.push_back(std::move(step));
    return true;
}

}

std::uint64_t sumOf(std::string_view bytes)
{
    constexpr std::uint64_t odd = 0x9E3779B97F4A7C15;
    std::uint64_t sum = bytes.size() * odd;
    while (!bytes.empty()) {
        std::uint64_t word = 0;
        const std::size_t size = std::min(bytes.size(), sizeof word);
        std::memcpy(&word, bytes.data(), size);
        bytes.remove_prefix(size);
        sum = (sum ^ word) * odd;
        sum ^= sum >> 29;
    }
    return sum;
}

Digest digestOf(const std::string &path)
{
    std::string bytes;
    const disk::Stamp stamp = disk::read(path, bytes);
    if (stamp.kind == disk::Kind::file)
        return {true, bytes.size(), sumOf(bytes)};
    return {stamp.kind == disk::Kind::refused, stamp.size, static_cast<std::uint64_t>(stamp.modified)};
}

bool isInnerName(std::string_view file)
{
    return !file.empty() && file.front() != '/' && file.find("..") == file.npos &&
        std::none_of(file.begin(), file.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; });
}

std::string written(const Index &index)
{
    std::string text(head);
    put(text, index.next);
    put(text, index.turning);
    for (const Step &step : index.steps) {
        text.append("\na ");
        put(text, step.id);
        put(text, step.undone ? 1 : 0);
        put(text, static_cast<std::uint64_t>(step.when));
        text.append(step.name);
        for (const Change &change : step.changes) {
            text.append("\nf ");
            put(text, change.copy);
            put(text, change.before);
            put(text, change.after);
            text.append(change.file);
        }
    }
    text.append("\n");
    return text.append(sumLine)
        .append(std::to_string(sumOf(text.substr(0, text.size() - sumLine.size()))))
        .append("\n");
}

std::optional<Index> parsed(std::string_view bytes)
{
    const auto sumAt = bytes.rfind(sumLine);
    if (!bytes.starts_with(head) || sumAt == bytes.npos ||
        bytes.substr(sumAt + sumLine.size()) != std::to_string(sumOf(bytes.substr(0, sumAt))) + "\n")
        return std::nullopt;
    std::string_view text = bytes.substr(head.size(), sumAt - head.size());
    Index index;
    Line first{takeLine(text)};
    index.next = first.number<unsigned>();
    index.turning = first.number<unsigned>();
    bool good = first.good;
    while (good && !text.empty()) {
        const std::string_view line = takeLine(text);
        const std::string_view rest = line.substr(std::min<std::size_t>(2, line.size()));
        good = line.starts_with("a ") ? readStep({rest}, index) : line.starts_with("f ") && readChange({rest}, index);
    }
    return good ? std::optional(std::move(index)) : std::nullopt;
}

}
