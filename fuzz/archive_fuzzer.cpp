// SPDX-License-Identifier: GPL-3.0-or-later
// An archive of an update through its whole checking. The first byte says what the rest is:
//
//   - the bytes of a ZIP archive, as they are;
//   - a list of entries, each a kind, permissions, a name and a content, from which a well-formed archive is made, so
//   that
//     names and kinds are reached behind all checksums; every other time with a signed manifest of its files;
//   - the texts of a manifest and of its signature.
//
// What is accepted must be harmless by rules written down here a second time.
#include "online/archive_names.h"
#include "online/checked_archive.h"
#include "online/manifest.h"
#include "tests/online/archives.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <set>

#include <sys/mman.h>
#include <unistd.h>

using namespace circuidex;
using namespace circuidex::online;

namespace {

const SecretKey ours = newKey();
const std::string key = publicKeyLine(ours.publicKey());

// A file in memory that has a path.
class MemoryFile {
public:
    MemoryFile() : m_file(::memfd_create("archive", 0)), m_path("/proc/self/fd/" + std::to_string(m_file)) { }
    const std::string &hold(std::string_view bytes)
    {
        if (::ftruncate(m_file, 0) != 0 || ::pwrite(m_file, bytes.data(), bytes.size(), 0) < 0)
            std::abort();
        return m_path;
    }

private:
    int m_file;
    std::string m_path;
};

void demand(bool holds, const char *what, const std::string &path)
{
    if (holds)
        return;
    std::fprintf(stderr, "%s: '%s'\n", what, path.c_str());
    std::abort();
}

std::string lower(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
    return text;
}

void judge(const CheckedArchive &checked, bool withKey)
{
    if (!checked.fits())
        return demand(checked.refusal.find_first_of("\n\r\x1B") == std::string::npos, "refusal of several lines",
                      checked.refusal);
    std::set<std::string> seen;
    std::uint64_t size = 0;
    for (const ArchivedFile &file : checked.files) {
        const std::string path = lower(file.path);
        demand(!path.empty() && path.front() != '/' && path.back() != '/', "no path", path);
        demand(path.find_first_of("\\:*?\"<>|") == std::string::npos, "odd sign", path);
        demand(("/" + path + "/").find("/../") == std::string::npos && path.find("//") == std::string::npos,
               "leads out", path);
        demand(path.find(".circuidex-") != 0 && path.find("sauvegardes/") != 0, "reserved", path);
        demand(("/" + path + "/").find("/nul/") == std::string::npos, "device", path);
        demand(seen.insert(path).second, "twice", path);
        if (!withKey) {
            const std::string ending = path.substr(std::min(path.rfind('.'), path.size()));
            const std::set<std::string> good{".txt", ".ini",  ".jpg", ".jpeg", ".png", ".gif", ".bmp", ".webp", ".avi",
                                             ".mpg", ".mpeg", ".wmv", ".mp4",  ".m4v", ".mov", ".mkv", ".webm"};
            demand(good.contains(ending) || path.starts_with("ann"), "no data", path);
            demand(path != "serveurs.ini", "servers", path);
        }
        size += file.size;
    }
    demand(size == checked.size && size <= mostBytes && checked.files.size() <= mostEntries, "too much", "");
    demand(checked.number.has_value() == withKey, "number", "");
}

class Input {
public:
    explicit Input(std::string_view bytes) : m_bytes(bytes) { }
    bool more() const { return !m_bytes.empty(); }
    unsigned byte()
    {
        const unsigned value = more() ? static_cast<unsigned char>(m_bytes.front()) : 0;
        m_bytes.remove_prefix(more());
        return value;
    }
    std::string text() // its length in front
    {
        const std::size_t size = std::min<std::size_t>(byte(), m_bytes.size());
        const std::string taken(m_bytes.substr(0, size));
        m_bytes.remove_prefix(size);
        return taken;
    }

private:
    std::string_view m_bytes;
};

test::Members membersOf(Input input)
{
    constexpr unsigned kinds[] = {AE_IFREG, AE_IFREG, AE_IFREG, AE_IFDIR, AE_IFLNK, AE_IFCHR, AE_IFBLK, AE_IFIFO};
    test::Members members;
    while (input.more() && members.size() < 40) {
        const unsigned kind = kinds[input.byte() % 8];
        test::Member member{input.text(), input.text(), kind, 0644};
        std::erase(member.name, '\0');
        if (kind == AE_IFLNK)
            member.linkTo = member.content + "x";
        if (kind != AE_IFREG)
            member.content.clear();
        members.push_back(member);
    }
    return members;
}

}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    static MemoryFile file;
    const std::string_view bytes(reinterpret_cast<const char *>(data), size);
    const unsigned mode = size == 0 ? 0 : data[0] % 4;
    const std::string_view rest = bytes.substr(std::min<std::size_t>(1, size));
    if (mode == 0) {
        judge(checkArchive(file.hold(rest), "miseajour.zip", {}), false);
    } else if (mode == 1) {
        judge(checkArchive(file.hold(test::zipOf(membersOf(Input(rest)))), "miseajour.zip", {}), false);
    } else if (mode == 2) {
        const test::Members all = test::withManifest(membersOf(Input(rest)), "Photos.zip", 3, &ours);
        judge(checkArchive(file.hold(test::zipOf(all)), "Photos.zip", {key, 3}), true);
    } else {
        const std::size_t half = std::min(rest.find('\0'), rest.size());
        const std::string_view manifest = rest.substr(0, half),
                               signature = rest.substr(std::min(half + 1, rest.size()));
        if (const auto parsed = parseManifest(manifest))
            demand(parseManifest(manifestText(*parsed)).has_value(), "manifest doesn't come back",
                   std::string(manifest));
        demand(!signatureFault(ours.publicKey(), manifest, signature).empty(), "forged", std::string(signature));
    }
    return 0;
}
