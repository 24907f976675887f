// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The list that an archive may carry: which archive it is, a number that rises from one edition to the next, and the
// SHA-256 of each file. `sha256sum -c MANIFESTE` understands it too:
//
//     # Circuidex miseajour.zip 20261123104500
//     9f86d081884c7d659a2feaa0c55ad015a3bf4f1b2b0b822cd15d6c15b0f00a08  f12006.ini
//
// The signature of this text, in "MANIFESTE.minisig", so covers all that the archive brings.
#include "online/signature.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace circuidex::online {

inline constexpr std::string_view manifestName = "MANIFESTE";
inline constexpr std::string_view signatureName = "MANIFESTE.minisig";

struct Manifest {
    std::string archive; // "miseajour.zip"
    std::uint64_t number = 0;
    std::map<std::string, std::string> files; // by path: the hash in small hexadecimal digits
};

// Absent for a text of another form, and when a file is named twice.
std::optional<Manifest> parseManifest(std::string_view text);
std::string manifestText(const Manifest &manifest);

}
