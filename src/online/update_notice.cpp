// SPDX-License-Identifier: GPL-3.0-or-later
#include "online/update_notice.h"

#include "store/disk.h"
#include "store/text.h"

namespace circuidex::online {

namespace {

constexpr std::string_view noticeName = ".circuidex-avis";
constexpr std::size_t longest = 2000; // bytes

std::string noticePath(const std::filesystem::path &folder)
{
    return (folder / noticeName).string();
}

}

bool updateUnfinished(const std::filesystem::path &folder)
{
    return disk::look((folder / workFolder / workList).string()).kind == disk::Kind::file;
}

bool extractorMustEnd(const std::filesystem::path &folder)
{
    return updateUnfinished(folder) && disk::look(noticePath(folder)).kind == disk::Kind::missing;
}

void leaveNotice(const std::filesystem::path &folder, const std::vector<std::string> &sentences)
{
    std::string text;
    for (const std::string &sentence : sentences)
        text += (text.empty() ? "" : "\n") + sentence;
    disk::removeName(noticePath(folder));
    disk::Stamp after;
    if (!text.empty())
        disk::replace(noticePath(folder), text.size() > longest ? sentences.front() : text, false, after);
}

std::string takeNotice(const std::filesystem::path &folder)
{
    std::string text;
    disk::read(noticePath(folder), text);
    disk::removeName(noticePath(folder));
    return text.size() > longest || !isText(text) ? std::string() : toUtf8(toCodePage(text));
}

}
