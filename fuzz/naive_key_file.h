// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The key file as one would write it in an hour: lines in a list, searched from the top for each read and each write.
// It shares nothing with the fast one but the rules, which the fuzzers hold the two to.
#include <optional>
#include <string>
#include <vector>

namespace circuidex::naive {

// Latin letters of Windows-1252 in lower case.
inline std::string folded(std::string text)
{
    for (char &c : text) {
        const int byte = static_cast<unsigned char>(c);
        const bool capital = (byte >= 'A' && byte <= 'Z') || (byte >= 0xC0 && byte <= 0xDE && byte != 0xD7);
        const int small = capital                          ? byte + 32
            : byte == 0x8A || byte == 0x8C || byte == 0x8E ? byte + 16
            : byte == 0x9F                                 ? 0xFF
                                                           : byte;
        c = static_cast<char>(small);
    }
    return text;
}

inline std::string trimmed(const std::string &text)
{
    const char *const blanks = " \t\v\f\r\n";
    const auto first = text.find_first_not_of(blanks);
    return first == text.npos ? "" : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

struct Line {
    std::string text, end;

    bool header() const { return trimmed(text).starts_with("[") && text.find(']') != text.npos; }
    std::string name() const
    {
        const std::string line = trimmed(text);
        return folded(trimmed(header() ? line.substr(1, line.find(']') - 1) : line.substr(0, line.find('='))));
    }
};

class KeyFile {
public:
    explicit KeyFile(std::string bytes) : m_mark(bytes.starts_with("\xEF\xBB\xBF") ? "\xEF\xBB\xBF" : "")
    {
        split(bytes.substr(m_mark.size()));
    }

    std::string bytes() const
    {
        std::string all = m_mark;
        for (const Line &line : lines)
            all += line.text + line.end;
        return all;
    }

    std::optional<std::string> value(const std::string &section, const std::string &key) const
    {
        const std::size_t at = find(section, key);
        if (at == lines.size())
            return std::nullopt;
        const std::size_t equals = lines[at].text.find('=');
        const std::string text = equals == std::string::npos ? "" : trimmed(lines[at].text.substr(equals + 1));
        const bool quoted = text.size() > 1 && text.front() == text.back() && (text[0] == '"' || text[0] == '\'');
        return quoted ? text.substr(1, text.size() - 2) : text;
    }

    void set(const std::string &section, const std::string &key, const std::string &value)
    {
        const std::string end = usualEnd();
        if (const std::size_t at = find(section, key); at < lines.size()) {
            std::string &text = lines[at].text;
            if (text.find('=') == text.npos)
                text = text.substr(0, text.find(trimmed(text)) + trimmed(text).size());
            text = text.substr(0, text.find('=')) + "=" + value;
        } else {
            std::size_t behind = header(section);
            if (behind == lines.size()) {
                finish(end);
                lines.push_back({"[" + trimmed(section) + "]", end});
                behind = lines.size() - 1;
            }
            for (std::size_t i = ++behind; i < lines.size() && !lines[i].header(); ++i)
                if (!trimmed(lines[i].text).empty())
                    behind = i + 1;
            if (behind == lines.size())
                finish(end);
            lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(behind), {trimmed(key) + "=" + value, end});
        }
        *this = KeyFile(bytes()); // a text with a line break is several lines from now on
    }

    std::vector<Line> lines;

private:
    void split(const std::string &text)
    {
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t end = std::min(text.find_first_of("\r\n", at), text.size());
            const std::size_t size = end == text.size() ? 0 : text.compare(end, 2, "\r\n") == 0 ? 2 : 1;
            lines.push_back({text.substr(at, end - at), text.substr(end, size)});
            at = end + size;
        }
    }

    std::size_t header(const std::string &section) const
    {
        std::size_t i = 0;
        const std::string wanted = folded(trimmed(section));
        while (i < lines.size() && !(lines[i].header() && lines[i].name() == wanted))
            ++i;
        return i;
    }

    std::size_t find(const std::string &section, const std::string &key) const
    {
        const std::string wanted = folded(trimmed(key));
        for (std::size_t i = header(section) + 1; i < lines.size() && !lines[i].header(); ++i)
            if (!trimmed(lines[i].text).empty() && lines[i].name() == wanted)
                return i;
        return lines.size();
    }

    std::string usualEnd() const
    {
        std::string end;
        for (const Line &line : lines)
            if (!line.end.empty() && !end.empty() && line.end != end)
                return "\r\n";
            else if (!line.end.empty())
                end = line.end;
        return end.empty() ? "\r\n" : end;
    }

    void finish(const std::string &end)
    {
        if (lines.empty() && !m_mark.empty())
            lines.push_back({"", end}); // the mark alone is a line begun
        else if (!lines.empty() && lines.back().end.empty())
            lines.back().end = end;
    }

    std::string m_mark;
};

}
