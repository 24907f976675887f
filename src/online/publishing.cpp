// SPDX-License-Identifier: GPL-3.0-or-later
#include "online/publishing.h"

#include "online/archive_names.h"
#include "online/checked_archive.h"
#include "online/manifest.h"
#include "store/disk.h"
#include "store/key_file.h"
#include "store/names.h"
#include "store/text.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <fstream>
#include <functional>
#include <map>
#include <memory>

#include <archive.h>
#include <archive_entry.h>
#include <locale.h>
#include <unistd.h>

namespace circuidex::online {

namespace {

namespace fs = std::filesystem;

using Files = std::map<std::string, fs::path>; // by the path in the archive

// Empty, with what is wrong, when something in the folder isn't a file or a folder.
Files filesBelow(const fs::path &folder, std::string &fault)
{
    Files files;
    std::error_code error;
    for (fs::recursive_directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
        const std::string path = at->path().lexically_relative(folder).string();
        if (at->is_directory() && !at->is_symlink())
            continue;
        if (!at->is_regular_file() || at->is_symlink())
            fault = "le nom " + shownName(path) + " n'est ni un fichier ni un dossier";
        files.emplace(path, at->path());
    }
    if (error)
        fault = "le dossier " + folder.string() + " n'est pas lisible";
    else if (files.contains(std::string(manifestName)) || files.contains(std::string(signatureName)))
        fault = "le dossier contient déjà un manifeste";
    return files;
}

// False when the file can't be read to its end.
bool eachPiece(const fs::path &path, const std::function<bool(std::string_view)> &take)
{
    std::ifstream file(path, std::ios::binary);
    std::string room(1 << 16, '\0');
    bool going = file.is_open();
    while (going && (file.read(room.data(), static_cast<std::streamsize>(room.size())) || file.gcount() > 0))
        going = take(std::string_view(room).substr(0, static_cast<std::size_t>(file.gcount())));
    return going && !file.bad();
}

class ZipWriter {
public:
    explicit ZipWriter(const std::string &path)
        : m_locale(::newlocale(LC_CTYPE_MASK, "C.UTF-8", locale_t())), m_before(::uselocale(m_locale)),
          m_archive(archive_write_new())
    {
        m_good = archive_write_set_format_zip(m_archive) == ARCHIVE_OK &&
            archive_write_set_options(m_archive, "hdrcharset=UTF-8") == ARCHIVE_OK &&
            archive_write_open_filename(m_archive, path.c_str()) == ARCHIVE_OK;
    }
    ~ZipWriter()
    {
        archive_write_free(m_archive);
        ::uselocale(m_before);
        ::freelocale(m_locale);
    }
    ZipWriter(const ZipWriter &) = delete;
    ZipWriter &operator=(const ZipWriter &) = delete;

    bool begin(const std::string &name, std::uint64_t size, bool executable, std::time_t changed)
    {
        const std::unique_ptr<archive_entry, void (*)(archive_entry *)> entry(archive_entry_new(), archive_entry_free);
        archive_entry_set_pathname_utf8(entry.get(), name.c_str());
        archive_entry_set_filetype(entry.get(), AE_IFREG);
        archive_entry_set_perm(entry.get(), executable ? 0755 : 0644);
        archive_entry_set_size(entry.get(), static_cast<la_int64_t>(size));
        archive_entry_set_mtime(entry.get(), changed, 0);
        return m_good = m_good && archive_write_header(m_archive, entry.get()) == ARCHIVE_OK;
    }
    bool add(std::string_view bytes)
    {
        return m_good = m_good &&
            archive_write_data(m_archive, bytes.data(), bytes.size()) == static_cast<la_ssize_t>(bytes.size());
    }
    bool addText(std::string_view name, std::string_view text)
    {
        return begin(std::string(name), text.size(), false, std::time(nullptr)) && add(text);
    }
    bool addFile(const std::string &name, const fs::path &path)
    {
        std::error_code error;
        const std::uint64_t size = fs::file_size(path, error);
        return !error && begin(name, size, ::access(path.c_str(), X_OK) == 0, changedAt(path)) &&
            eachPiece(path, [this](std::string_view piece) { return add(piece); });
    }
    bool finish() { return archive_write_close(m_archive) == ARCHIVE_OK && m_good; }

private:
    static std::time_t changedAt(const fs::path &path)
    {
        return static_cast<std::time_t>(disk::look(path.string()).modified / 1'000'000'000);
    }

    locale_t m_locale, m_before;
    archive *m_archive;
    bool m_good = false;
};

std::optional<std::string> manifestOf(const Files &files, const Edition &edition)
{
    Manifest manifest{edition.archive, edition.number, {}};
    for (const auto &[name, path] : files) {
        Sha256 hash;
        const auto take = [&hash](std::string_view piece) { return hash.add(piece), true; };
        if (!eachPiece(path, take))
            return std::nullopt;
        manifest.files[name] = hex(hash.digest());
    }
    return manifestText(manifest);
}

bool writeArchive(const std::string &path, const Files &files, const Edition &edition, const std::string &manifest)
{
    ZipWriter zip(path);
    bool good = zip.addText(manifestName, manifest);
    if (edition.key)
        good = good &&
            zip.addText(signatureName,
                        sign(*edition.key, manifest, edition.archive + " " + std::to_string(edition.number)));
    for (const auto &[name, from] : files)
        good = good && zip.addFile(name, from);
    return zip.finish() && good;
}

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r";
    const std::size_t first = text.find_first_not_of(blanks);
    return first == text.npos ? std::string_view() : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// What is wrong with a row; empty when it stands in the file.
std::string addVideo(KeyFile &file, std::size_t row, std::string_view line)
{
    const std::size_t bar = line.find('|');
    const std::string_view name = trimmed(line.substr(0, bar));
    const std::string_view description = bar == line.npos ? std::string_view() : trimmed(line.substr(bar + 1));
    if (row > 20)
        return "la liste a plus de vingt vidéos";
    if (!isFilmName(name) || !comesBack(name))
        return shownName(name) + " n'est pas le nom d'un film";
    if (description.empty() || !comesBack(description))
        return "la description de " + shownName(name) + " manque ou ne tient pas sur une ligne";
    const std::string number = std::to_string(row);
    file.set("vid", "description" + number, toCodePage(description));
    file.set("vid", toCodePage("N°" + number), toCodePage(name));
    return {};
}

}

std::uint64_t numberNow()
{
    const std::time_t now = std::time(nullptr);
    std::tm parts = {};
    ::gmtime_r(&now, &parts);
    std::uint64_t number = static_cast<std::uint64_t>(parts.tm_year + 1900);
    for (const int part : {parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec})
        number = number * 100 + static_cast<std::uint64_t>(part);
    return number;
}

std::string pack(const fs::path &folder, const Edition &edition, const fs::path &place)
{
    std::string fault;
    const Files files = filesBelow(folder, fault);
    const auto manifest = fault.empty() ? manifestOf(files, edition) : std::nullopt;
    if (!manifest)
        return fault.empty() ? "un fichier n'est pas lisible" : fault;
    const std::string whole = (place / edition.archive).string(), part = whole + ".part";
    const Trust trust{edition.key ? publicKeyLine(edition.key->publicKey()) : std::string(), 0};
    if (!writeArchive(part, files, edition, *manifest))
        fault = "l'archive n'a pas pu être écrite";
    else if (const CheckedArchive checked = checkArchive(part, edition.archive, trust); !checked.fits())
        fault = checked.refusal;
    else if (!disk::syncFile(part) || disk::calls.rename(part.c_str(), whole.c_str()) != 0)
        fault = "l'archive n'a pas pu être mise à sa place";
    if (!fault.empty())
        disk::removeName(part);
    return fault;
}

VideoList videoList(std::string_view lines)
{
    KeyFile file;
    VideoList list;
    std::size_t row = 0;
    while (!lines.empty() && list.fault.empty()) {
        const std::size_t end = std::min(lines.find('\n'), lines.size());
        const std::string_view line = trimmed(lines.substr(0, end));
        lines.remove_prefix(std::min(end + 1, lines.size()));
        if (!line.empty() && line.front() != '#')
            list.fault = addVideo(file, ++row, line);
    }
    if (row == 0)
        list.fault = "la liste est vide";
    list.bytes = file.bytes();
    return list;
}

}
