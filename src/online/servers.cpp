// SPDX-License-Identifier: GPL-3.0-or-later
#include "online/servers.h"

#include "online/archive_names.h"
#include "store/disk.h"
#include "store/key_file.h"
#include "store/text.h"

namespace circuidex::online {

namespace {

namespace fs = std::filesystem;

std::string entryNamed(const fs::path &folder, const std::string &name)
{
    std::error_code error;
    if (fs::exists(fs::symlink_status(folder / name, error)))
        return name;
    const std::string wanted = foldedName(name);
    for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error))
        if (const std::string there = at->path().filename().string(); foldedName(there) == wanted)
            return there;
    return name;
}

}

std::string onDisk(const fs::path &folder, const std::string &path)
{
    fs::path found;
    for (const fs::path &part : fs::path(path))
        found /= entryNamed(folder / found, part.string());
    return found.string();
}

Servers readServers(const fs::path &folder)
{
    Servers servers;
    std::string bytes;
    const disk::Stamp stamp = disk::read((folder / onDisk(folder, "serveurs.ini")).string(), bytes);
    const Coding coding = codingOf(bytes);
    servers.unreadable = stamp.kind == disk::Kind::refused || !isText(bytes) || coding == Coding::mixed;
    if (stamp.kind != disk::Kind::file || servers.unreadable)
        return servers;
    const KeyFile file(coding == Coding::utf8 ? withoutUtf8(bytes) : bytes);
    const auto value = [&file](std::string_view key) { return toUtf8(file.value("serveurs", key).value_or("")); };
    servers.maj = value("maj");
    servers.miroir = value("miroir");
    servers.site = value("site");
    servers.contact = value("contact");
    servers.cle = value("cle");
    servers.donnees = value("donnees");
    return servers;
}

}
