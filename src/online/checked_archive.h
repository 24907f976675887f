// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// An archive looked at whole before anything of it is used: its names, its kinds of entries, its sizes, its checksums,
// and whether the key that the program folder is set up with vouches for it. docs/update.md tells the rules.
#include "online/signature.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace circuidex::online {

inline constexpr std::size_t mostEntries = 20'000;
inline constexpr std::uint64_t mostBytes = std::uint64_t(4) << 30; // unpacked, and packed
inline constexpr std::uint64_t mostUnpacking = 200; // times the packed size
inline constexpr std::size_t mostManifest = std::size_t(8) << 20; // bytes

struct Trust {
    std::string key; // of serveurs.ini; empty when none is set up
    std::uint64_t leastNumber = 0; // of the newest edition unpacked so far
};

struct ArchivedFile {
    std::string path; // clean
    std::size_t entry = 0; // which entry of the archive, from 0
    std::uint64_t size = 0; // unpacked
    Digest hash;
    bool executable = false;
};

struct CheckedArchive {
    std::string refusal; // in French, a sentence without its full stop; empty when all is well
    std::vector<ArchivedFile> files; // what the archive brings, in its order
    std::uint64_t size = 0; // of all of them
    std::optional<std::uint64_t> number; // of the edition, when a signature vouches for it
    bool fits() const { return refusal.empty(); }
};

// `name` is the one that the archive bears on the server ("Photos.zip"). Nothing is written anywhere.
CheckedArchive checkArchive(const std::string &path, std::string_view name, const Trust &trust);

}
