#include "online/zip_reader.h"

#include <array>
#include <clocale>
#include <fstream>

#include <archive.h>
#include <archive_entry.h>
#include <locale.h>

namespace circuidex::online {

namespace {

// The library takes names from the archive by way of the thread's locale.
class Utf8Names {
public:
    Utf8Names() : m_before(::uselocale(utf8())) { }
    ~Utf8Names() { ::uselocale(m_before); }
    Utf8Names(const Utf8Names &) = delete;
    Utf8Names &operator=(const Utf8Names &) = delete;

private:
    static locale_t utf8()
    {
        static const locale_t made = ::newlocale(LC_CTYPE_MASK, "C.UTF-8", locale_t());
        return made;
    }
    locale_t m_before;
};

ZipReader::Kind kindOf(archive *from, archive_entry *entry)
{
    if (archive_entry_is_encrypted(entry))
        return ZipReader::Kind::encrypted;
    const std::string_view format(archive_format_name(from)); // "ZIP 2.0 (deflation)"
    if (!format.ends_with("(deflation)") && !format.ends_with("(uncompressed)"))
        return ZipReader::Kind::packedOddly;
    if (archive_entry_hardlink(entry) || archive_entry_symlink(entry))
        return ZipReader::Kind::other;
    const auto type = archive_entry_filetype(entry);
    return type == AE_IFREG ? ZipReader::Kind::file
        : type == AE_IFDIR  ? ZipReader::Kind::folder
                            : ZipReader::Kind::other;
}

}

ZipReader::ZipReader(const std::string &path) : m_archive(archive_read_new())
{
    const Utf8Names names;
    constexpr std::size_t block = 1 << 16;
    m_broken = !m_archive || archive_read_support_format_zip_seekable(m_archive) != ARCHIVE_OK ||
        archive_read_open_filename(m_archive, path.c_str(), block) != ARCHIVE_OK;
}

ZipReader::~ZipReader()
{
    archive_read_free(m_archive);
}

bool ZipReader::next(Entry &entry)
{
    const Utf8Names names;
    archive_entry *header = nullptr;
    const int answer = m_broken ? ARCHIVE_FATAL : archive_read_next_header(m_archive, &header);
    if (answer == ARCHIVE_EOF)
        return false;
    const char *const name = answer == ARCHIVE_OK ? archive_entry_pathname(header) : nullptr;
    m_broken = !name;
    m_at = 0;
    if (m_broken)
        return false;
    entry = {name, kindOf(m_archive, header), (archive_entry_perm(header) & 0111) != 0};
    return true;
}

std::string_view ZipReader::piece()
{
    const Utf8Names names;
    const void *piece = nullptr;
    std::size_t size = 0;
    la_int64_t at = 0;
    int answer = m_broken ? ARCHIVE_FATAL : ARCHIVE_OK;
    while (answer == ARCHIVE_OK && size == 0) {
        answer = archive_read_data_block(m_archive, &piece, &size, &at);
        if (answer == ARCHIVE_OK && at != m_at)
            answer = ARCHIVE_FATAL;
    }
    m_broken = answer != ARCHIVE_OK && answer != ARCHIVE_EOF;
    if (answer != ARCHIVE_OK)
        return {};
    m_at += static_cast<la_int64_t>(size);
    return {static_cast<const char *>(piece), size};
}

void ZipReader::read(const std::function<bool(std::string_view)> &take)
{
    for (std::string_view next = piece(); !next.empty(); next = piece())
        if (!take(next))
            return;
}

// Each entry has a record in the directory at the archive's end, which the reading library holds in memory as a whole.
std::size_t countOfRecords(const std::string &path)
{
    constexpr std::string_view sign = "PK\1\2";
    std::ifstream file(path, std::ios::binary);
    std::string room(1 << 16, '\0');
    std::size_t count = 0, kept = 0;
    while (file.read(room.data() + kept, static_cast<std::streamsize>(room.size() - kept)) || file.gcount() > 0) {
        const std::string_view bytes(room.data(), kept + static_cast<std::size_t>(file.gcount()));
        for (std::size_t at = bytes.find(sign); at != bytes.npos; at = bytes.find(sign, at + sign.size()))
            ++count;
        const std::string end(bytes.substr(bytes.size() - std::min(bytes.size(), sign.size() - 1)));
        kept = end.size();
        room.replace(0, kept, end);
    }
    return count;
}

}
