// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a file: every key that stands in it reads the same as the naive key file reads it, and a write to one of
// them leaves the same bytes.
#include "fuzz/agree.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string bytes(reinterpret_cast<const char *>(data), size);
    circuidex::fuzz::Pair files(bytes);
    std::string section;
    int asked = 0;
    const auto lines = files.naive.lines;
    for (const auto &line : lines) {
        const std::string text = circuidex::naive::trimmed(line.text);
        if (line.header())
            section = text.substr(1, text.find(']') - 1);
        else
            files.read(section, text.substr(0, text.find('=')));
        if (++asked == 6)
            break;
    }
    files.read(section, "nbpts7");
    files.write(section, lines.empty() ? "k" : lines.back().text, "12");
    files.write("gp", "namegp0", "Monaco");
    return 0;
}
