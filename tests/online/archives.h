// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// ZIP archives as a test wants them, hostile ones too, made by the library that reads them and then changed byte by
// byte.
#include "online/manifest.h"

#include <archive.h>
#include <archive_entry.h>

#include <string>
#include <vector>

namespace circuidex::test {

struct Member {
    std::string name, content;
    unsigned type = AE_IFREG;
    unsigned permissions = 0644;
    std::string linkTo = {};
};
using Members = std::vector<Member>;

inline std::string zipOf(const Members &members, const std::string &options = {})
{
    std::string bytes(1 << 16, '\0');
    for (const Member &member : members)
        bytes.resize(bytes.size() + member.content.size() + 4 * member.name.size() + 400);
    std::size_t used = 0;
    archive *const zip = archive_write_new();
    archive_write_set_format_zip(zip);
    archive_write_set_bytes_in_last_block(zip, 1);
    archive_write_set_options(zip, options.c_str());
    archive_write_set_passphrase(zip, "mot de passe"); // for "zip:encryption=zipcrypt"
    archive_write_open_memory(zip, bytes.data(), bytes.size(), &used);
    for (const Member &member : members) {
        archive_entry *const entry = archive_entry_new();
        archive_entry_set_pathname(entry, member.name.c_str());
        archive_entry_set_filetype(entry, member.type);
        archive_entry_set_perm(entry, static_cast<__LA_MODE_T>(member.permissions));
        if (member.linkTo.empty())
            archive_entry_set_size(entry, static_cast<la_int64_t>(member.content.size()));
        else
            archive_entry_set_symlink(entry, member.linkTo.c_str());
        archive_write_header(zip, entry);
        archive_write_data(zip, member.content.data(), member.content.size());
        archive_entry_free(entry);
    }
    archive_write_close(zip);
    archive_write_free(zip);
    bytes.resize(used);
    return bytes;
}

// The members with a manifest in front of them, signed when there is a key.
inline Members withManifest(const Members &members, const std::string &archive, std::uint64_t number,
                            const online::SecretKey *key)
{
    online::Manifest manifest{archive, number, {}};
    for (const Member &member : members) {
        if (member.type != AE_IFREG)
            continue;
        online::Sha256 hash;
        hash.add(member.content);
        manifest.files[member.name] = online::hex(hash.digest());
    }
    const std::string text = online::manifestText(manifest);
    Members all{{std::string(online::manifestName), text}};
    if (key)
        all.push_back({std::string(online::signatureName), online::sign(*key, text, "essai")});
    all.insert(all.end(), members.begin(), members.end());
    return all;
}

}
