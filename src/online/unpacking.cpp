// SPDX-License-Identifier: GPL-3.0-or-later
#include "online/unpacking.h"

#include "online/archive_names.h"
#include "online/checked_archive.h"
#include "online/servers.h"
#include "online/update_notice.h"
#include "online/zip_reader.h"
#include "store/backups.h"
#include "store/disk.h"
#include "store/key_file.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <set>
#include <sstream>

#include <fcntl.h>
#include <unistd.h>

namespace circuidex::online {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view contentFolder = "contenu";
constexpr std::string_view numbersFile = ".circuidex-numeros";
constexpr std::uint64_t roomLeft = std::uint64_t(8) << 20; // bytes that an unpacking leaves free

// The numbers of the editions unpacked so far, by key and archive.
class Editions {
public:
    explicit Editions(const fs::path &folder) : m_path((folder / numbersFile).string())
    {
        std::string bytes;
        disk::read(m_path, bytes);
        m_file = KeyFile(std::move(bytes));
    }
    std::uint64_t newest(const std::string &key, std::string_view archive) const
    {
        std::uint64_t number = 0;
        const std::string_view text = m_file.value(key, archive).value_or("");
        std::from_chars(text.data(), text.data() + text.size(), number);
        return number;
    }
    bool set(const std::string &key, std::string_view archive, std::uint64_t number)
    {
        disk::Stamp after;
        return !m_file.set(key, archive, std::to_string(number)) || disk::replace(m_path, m_file.bytes(), false, after);
    }

private:
    std::string m_path;
    KeyFile m_file;
};

// What remains to be done for an archive that is unpacked whole. Written at once, it is the moment from which the work
// goes on only forward.
struct WorkList {
    std::string archive; // its name
    disk::Stamp stamp; // of the archive
    std::string key; // empty without a signature
    std::uint64_t number = 0;
    std::vector<std::string> paths; // of the files; the unpacked ones bear their places in this list

    std::string text() const
    {
        std::ostringstream out;
        out << archive << ' ' << stamp.size << ' ' << stamp.inode << ' ' << stamp.modified << '\n';
        out << number << ' ' << key << '\n';
        for (const std::string &path : paths)
            out << path << '\n';
        return out.str();
    }
    static WorkList read(const std::string &text)
    {
        WorkList list;
        std::istringstream in(text);
        in >> list.archive >> list.stamp.size >> list.stamp.inode >> list.stamp.modified >> list.number;
        in.get();
        std::getline(in, list.key);
        for (std::string path; std::getline(in, path);)
            list.paths.push_back(path);
        return list;
    }
};

// An unpacked file being written. Its content is what was checked, or it counts as failed.
class FreshFile {
public:
    FreshFile(const std::string &path, bool executable)
        : m_file(disk::calls.open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                                  executable ? 0777 : 0666))
    {
    }
    ~FreshFile()
    {
        if (m_file >= 0)
            disk::calls.close(m_file);
    }
    FreshFile(const FreshFile &) = delete;
    FreshFile &operator=(const FreshFile &) = delete;

    bool add(std::string_view bytes)
    {
        m_hash.add(bytes);
        while (m_file >= 0 && !bytes.empty()) {
            const ssize_t written = disk::calls.write(m_file, bytes.data(), bytes.size());
            if (written < 0 && errno == EINTR)
                continue;
            if (written <= 0)
                return false;
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        return m_file >= 0;
    }
    bool finish(const Digest &expected)
    {
        return m_file >= 0 && disk::calls.sync(m_file) == 0 && m_hash.digest() == expected;
    }

private:
    int m_file;
    Sha256 m_hash;
};

class Extractor {
public:
    explicit Extractor(const fs::path &folder)
        : m_folder(folder), m_servers(readServers(folder)), m_work(folder / workFolder),
          m_content(m_work / contentFolder)
    {
    }

    std::vector<std::string> run()
    {
        if (updateUnfinished(m_folder) && !finish())
            return m_said;
        clear();
        for (const std::string_view name : {resultsArchive, picturesArchive, programArchive})
            if (std::error_code error; fs::exists(fs::symlink_status(m_folder / name, error)))
                if (!unpack(std::string(name)))
                    break;
        return m_said;
    }

private:
    bool say(const std::string &sentence)
    {
        m_said.push_back(sentence + ".");
        return false;
    }
    bool refuse(const std::string &name, const std::string &why)
    {
        say("Mise à jour refusée, " + name + " : " + why);
        return true;
    }

    // What an earlier run left of an archive that it had not unpacked whole.
    void clear()
    {
        std::error_code ignored; // what stays makes the unpacking fail
        fs::remove_all(m_work, ignored);
    }

    // False when an archive is left half moved, which nothing may follow.
    bool unpack(const std::string &name)
    {
        const std::string path = (m_folder / name).string();
        if (m_servers.unreadable)
            return refuse(name, "serveurs.ini n'est pas lisible");
        const disk::Stamp stamp = disk::look(path);
        const std::uint64_t least = Editions(m_folder).newest(m_servers.cle, name);
        const CheckedArchive checked = checkArchive(path, name, {m_servers.cle, least});
        std::string why = checked.fits() ? obstacle(checked) : checked.refusal;
        if (why.empty())
            why = layDown(path, checked);
        if (why.empty())
            why = keepCopies(checked);
        if (why.empty() && !begin(name, stamp, checked))
            why = "le disque n'a pas pris la liste des fichiers";
        if (!why.empty()) {
            clear();
            return refuse(name, why);
        }
        return finish();
    }

    std::string obstacle(const CheckedArchive &checked) const
    {
        std::error_code error;
        const fs::space_info room = fs::space(m_folder, error);
        if (!error && room.available < checked.size + roomLeft)
            return "il n'y a pas assez de place sur le disque";
        for (const ArchivedFile &file : checked.files)
            if (const std::string where = place(file.path); where.empty())
                return "le nom " + shownName(file.path) + " est pris sur le disque, ou mène hors du dossier";
        return {};
    }

    // Where the file goes; empty where something other than an ordinary file stands in the way, or a link leads out.
    std::string place(const std::string &path) const
    {
        const fs::path whole = m_folder / onDisk(m_folder, path);
        std::error_code error;
        const fs::file_status there = fs::symlink_status(whole, error);
        const bool free = there.type() == fs::file_type::not_found || there.type() == fs::file_type::regular;
        fs::path above = whole.parent_path(); // that there is
        while (fs::symlink_status(above, error).type() == fs::file_type::not_found)
            above = above.parent_path();
        const bool open = fs::is_directory(above, error) && ::access(above.c_str(), W_OK) == 0;
        return free && open && disk::inside(m_folder.string(), above.string()) ? whole.string() : std::string();
    }

    std::string layDown(const std::string &path, const CheckedArchive &checked)
    {
        if (!disk::makeNewFolder(m_work.string()) || !disk::makeNewFolder(m_content.string()))
            return "le dossier du programme ne prend pas de fichiers";
        ZipReader zip(path);
        ZipReader::Entry entry;
        std::size_t done = 0; // of the files
        for (std::size_t number = 0; done < checked.files.size() && zip.next(entry); ++number) {
            if (number != checked.files[done].entry)
                continue; // a folder, or the manifest
            if (!layDown(zip, checked.files[done], done))
                return "le disque n'a pas pris le fichier " + shownName(checked.files[done].path);
            ++done;
        }
        const bool all = done == checked.files.size();
        return all && disk::syncFolder(m_content.string()) ? "" : "l'archive a changé entre-temps";
    }

    bool layDown(ZipReader &zip, const ArchivedFile &file, std::size_t place) const
    {
        const bool executable = file.executable && !m_servers.cle.empty();
        FreshFile fresh((m_content / std::to_string(place)).string(), executable);
        bool kept = true;
        zip.read([&](std::string_view piece) { return kept = fresh.add(piece); });
        return kept && fresh.finish(file.hash);
    }

    std::string keepCopies(const CheckedArchive &checked) const
    {
        for (const ArchivedFile &file : checked.files)
            if (const std::string name = isKept(file.path) ? onDisk(m_folder, file.path) : std::string();
                !name.empty() && disk::look((m_folder / name).string()).kind != disk::Kind::missing &&
                backups::keep(m_folder.string(), name).empty())
                return "le fichier " + shownName(name) + " n'a pas pu être copié dans Sauvegardes";
        return {};
    }

    bool begin(const std::string &name, const disk::Stamp &stamp, const CheckedArchive &checked)
    {
        WorkList list{name, stamp, checked.number ? m_servers.cle : std::string(), checked.number.value_or(0), {}};
        for (const ArchivedFile &file : checked.files)
            list.paths.push_back(file.path);
        const std::string path = (m_work / workList).string();
        disk::Stamp after;
        return disk::replace(path, list.text(), false, after) && disk::syncFile(path) &&
            disk::syncFolder(m_work.string()) && disk::syncFolder(m_folder.string());
    }

    // Moves what remains to be moved; the archive goes when all is in its place.
    bool finish()
    {
        std::string text;
        disk::read((m_work / workList).string(), text);
        const WorkList list = WorkList::read(text);
        for (std::size_t i = 0; i < list.paths.size(); ++i)
            if (!move(m_content / std::to_string(i), list.paths[i]))
                return say(list.archive + " : " + shownName(list.paths[i]) +
                           " n'a pas pu être mis en place ; la prochaine mise à jour reprendra ici");
        Editions editions(m_folder);
        if (!list.key.empty() && !editions.set(list.key, list.archive, list.number))
            return say(list.archive + " : le numéro de la mise à jour n'a pas pu être noté");
        for (const std::string &folder : m_touched)
            disk::syncFolder(folder);
        takeAway(list);
        disk::removeName((m_work / workList).string());
        clear();
        return true;
    }

    // One that was fetched since is another archive and stays.
    void takeAway(const WorkList &list)
    {
        const std::string archive = (m_folder / list.archive).string();
        disk::Stamp now = disk::look(archive);
        now.kind = list.stamp.kind;
        if (now == list.stamp)
            disk::removeName(archive);
        disk::syncFolder(m_folder.string());
    }

    bool move(const fs::path &from, const std::string &path)
    {
        if (disk::look(from.string()).kind == disk::Kind::missing)
            return true; // before a kill
        const std::string to = place(path);
        if (to.empty() || !makeFolders(fs::path(to).parent_path()))
            return false;
        m_touched.insert(disk::folderOf(to));
        return disk::calls.rename(from.c_str(), to.c_str()) == 0;
    }

    bool makeFolders(const fs::path &folder)
    {
        std::error_code error;
        if (fs::is_directory(folder, error))
            return true;
        m_touched.insert(folder.parent_path().string());
        return makeFolders(folder.parent_path()) && disk::makeFolder(folder.string());
    }

    fs::path m_folder;
    Servers m_servers;
    fs::path m_work, m_content;
    std::set<std::string> m_touched; // folders with a new name in them
    std::vector<std::string> m_said;
};

}

std::vector<std::string> unpackAll(const fs::path &folder)
{
    return Extractor(folder).run();
}

}
