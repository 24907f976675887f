#pragma once
// A ZIP archive read from its beginning to its end, entry by entry. Nothing is believed: whatever the library that
// reads it finds odd counts as broken.
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

struct archive;

namespace circuidex::online {

class ZipReader {
public:
    explicit ZipReader(const std::string &path);
    ~ZipReader();
    ZipReader(const ZipReader &) = delete;
    ZipReader &operator=(const ZipReader &) = delete;

    enum class Kind {
        file,
        folder,
        other, // a link, a device …
        encrypted,
        packedOddly, // neither deflated nor stored as it is, the two ways that all tools know
    };
    struct Entry {
        std::string name; // as stored
        Kind kind = Kind::file;
        bool executable = false;
    };

    // False at the end, and when the archive turns out to be broken.
    bool next(Entry &entry);

    // Hands over the content of the entry in pieces, until `take` answers false.
    void read(const std::function<bool(std::string_view)> &take);

    // The next piece of the entry's content, valid until the next call; empty at its end, and when the archive turns
    // out to be broken.
    std::string_view piece();

    bool broken() const { return m_broken; }

private:
    archive *m_archive;
    bool m_broken = false;
    std::int64_t m_at = 0; // in the entry's content
};

// The number of entries that a file may hold at most, counted without unpacking anything.
std::size_t countOfRecords(const std::string &path);

}
