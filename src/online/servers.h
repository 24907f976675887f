// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The servers that a program folder is set up for, from the section [serveurs] of its "serveurs.ini". Without the file,
// or with an empty key, nothing is fetched from that server.
#include <filesystem>
#include <string>

namespace circuidex::online {

struct Servers {
    std::string maj; // root of the update server, without the slash at its end
    std::string miroir; // root of the mirror
    std::string site; // the project's web site
    std::string contact; // a mail address
    std::string cle; // public key of signed updates, a line of base64
    std::string donnees; // address of the public data set
    bool unreadable = false; // the file is there and can't be read: whoever relies on the key must not go on without
};

Servers readServers(const std::filesystem::path &folder);

// The path below the folder with each part as it stands on the disk, where case may differ from the one asked for.
std::string onDisk(const std::filesystem::path &folder, const std::string &path);

}
