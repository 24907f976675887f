// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/disk.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace circuidex::disk {

// Some file systems answer a rename over a file by sending the new one to the disk and waiting for the old one's last
// write, which costs ten times the rest. Two names that change places and the removal of one do the same without.
Calls calls = {
    [](const char *path, int flags, mode_t mode) { return ::open(path, flags, mode); },
    [](const char *path, struct stat *info) { return ::stat(path, info); },
    [](int file, struct stat *info) { return ::fstat(file, info); },
    ::read,
    ::write,
    ::fchmod,
    ::close,
#ifdef __linux__
    ::fdatasync,
#else
    ::fsync,
#endif
    ::fsync,
    [](const char *path) { return ::faccessat(AT_FDCWD, path, W_OK, AT_EACCESS); },
    ::rename,
#ifdef RENAME_EXCHANGE
    [](const char *one, const char *other) { return ::renameat2(AT_FDCWD, one, AT_FDCWD, other, RENAME_EXCHANGE); },
#else
    [](const char *, const char *) { return -1; },
#endif
    ::link,
    ::unlink,
    [](const char *path) { return ::mkdir(path, 0777); },
};

namespace {

constexpr std::string_view ours = ".circuidex-"; // data files begin with "f1", or are the year marker
constexpr std::string_view beingWritten = ".new";
constexpr std::string_view keptOld = ".old";

class Descriptor {
public:
    Descriptor(const std::string &path, int flags, mode_t mode = 0)
    {
        do
            m_number = calls.open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, mode);
        while (m_number < 0 && errno == EINTR);
    }
    ~Descriptor() { close(); }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    explicit operator bool() const { return m_number >= 0; }
    int number() const { return m_number; }
    bool close()
    {
        const bool closed = m_number < 0 || calls.close(m_number) == 0;
        m_number = -1;
        return closed;
    }

private:
    int m_number = -1;
};

std::int64_t modifiedAt(const struct stat &info)
{
#ifdef __APPLE__
    const timespec &at = info.st_mtimespec;
#else
    const timespec &at = info.st_mtim;
#endif
    return std::int64_t(at.tv_sec) * 1'000'000'000 + at.tv_nsec;
}

Stamp stampOf(const struct stat &info)
{
    const bool usable = S_ISREG(info.st_mode) && static_cast<std::uint64_t>(info.st_size) <= largest;
    return {usable ? Kind::file : Kind::refused, static_cast<std::uint64_t>(info.st_size),
            static_cast<std::uint64_t>(info.st_ino), modifiedAt(info)};
}

Stamp stampOfError(int error)
{
    const bool absent = error == ENOENT || error == ENOTDIR || error == ENAMETOOLONG;
    return {absent ? Kind::missing : Kind::refused, 0, 0, 0};
}

Stamp refused(Stamp stamp)
{
    stamp.kind = Kind::refused;
    return stamp;
}

bool writeAll(int descriptor, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = calls.write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool readAll(int descriptor, std::size_t expected, std::string &bytes)
{
    bytes.resize(expected + 1); // one more, to see the end without another round
    std::size_t filled = 0;
    for (;;) {
        const ssize_t got = calls.read(descriptor, bytes.data() + filled, bytes.size() - filled);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return false;
        if (got == 0)
            break;
        filled += static_cast<std::size_t>(got);
        if (filled > largest)
            return false;
        if (filled == bytes.size())
            bytes.resize(bytes.size() * 2);
    }
    bytes.resize(filled);
    return true;
}

bool hollow(std::string_view bytes)
{
    return bytes.find_first_not_of('\0') == bytes.npos;
}

std::string nameOf(const std::string &path)
{
    return path.substr(path.find_last_of('/') + 1);
}

std::string beside(const std::string &path, std::string_view name)
{
    return folderOf(path).append("/").append(ours).append(name);
}

std::string newName(const std::string &path)
{
    static std::atomic<unsigned> count = 0;
    return beside(path, std::to_string(::getpid()) + "-" + std::to_string(++count)).append(beingWritten);
}

std::string oldName(const std::string &path)
{
    return beside(path, nameOf(path)).append(keptOld);
}

bool create(const std::string &path, std::string_view bytes, const struct stat *old, Stamp &after)
{
    calls.unlink(path.c_str()); // left by a killed process that had our number
    Descriptor file(path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, 0666);
    struct stat info;
    if (!file || calls.describe(file.number(), &info) != 0)
        return false;
    if (old && (old->st_uid != info.st_uid || old->st_gid != info.st_gid) &&
        ::fchown(file.number(), old->st_uid, old->st_gid) != 0)
        errno = 0; // the file then belongs to who writes it
    if (old && (old->st_mode & 07777) != (info.st_mode & 07777) &&
        calls.setMode(file.number(), old->st_mode & 07777) != 0)
        return false;
    if (!writeAll(file.number(), bytes) || calls.describe(file.number(), &info) != 0)
        return false;
    after = stampOf(info);
    return file.close();
}

bool exchange(const std::string &fresh, const std::string &path)
{
    if (calls.exchange(fresh.c_str(), path.c_str()) != 0)
        return false;
    calls.unlink(fresh.c_str()); // the old file now; left there it is tidied away later
    return true;
}

}

Stamp look(const std::string &path)
{
    struct stat info;
    return calls.stat(path.c_str(), &info) == 0 ? stampOf(info) : stampOfError(errno);
}

Stamp read(const std::string &path, std::string &bytes)
{
    bytes.clear();
    Descriptor file(path, O_RDONLY | O_NONBLOCK);
    if (!file)
        return errno == ENOENT || errno == ENOTDIR || errno == ENAMETOOLONG ? Stamp() : refused(look(path));
    struct stat info;
    if (calls.describe(file.number(), &info) != 0)
        return refused(Stamp());
    const Stamp stamp = stampOf(info);
    if (stamp.kind != Kind::file || readAll(file.number(), stamp.size, bytes))
        return stamp;
    bytes.clear();
    return refused(stamp);
}

bool young(const Stamp &stamp)
{
    timespec now = {};
    ::clock_gettime(CLOCK_REALTIME, &now);
    const std::int64_t age = std::int64_t(now.tv_sec) * 1'000'000'000 + now.tv_nsec - stamp.modified;
    return std::llabs(age) < 100'000'000;
}

std::string target(const std::string &path)
{
    std::string at = path;
    for (int step = 0; step < 40; ++step) {
        char link[4096];
        const ssize_t length = ::readlink(at.c_str(), link, sizeof link);
        if (length <= 0 || static_cast<std::size_t>(length) == sizeof link)
            return at;
        const std::string_view to(link, static_cast<std::size_t>(length));
        at = to.front() == '/' ? std::string(to) : folderOf(at).append("/").append(to);
    }
    return path; // links in a circle: opening it fails
}

bool keepOld(const std::string &path)
{
    const std::string old = oldName(path);
    if (calls.link(path.c_str(), old.c_str()) == 0)
        return true;
    if (errno != EEXIST)
        return errno == ENOENT;
    // What a killed program held on to gives way to what is in the file now, once that is surely on the disk.
    std::string bytes;
    return read(path, bytes).kind == Kind::file && !hollow(bytes) && syncFile(path) && calls.unlink(old.c_str()) == 0 &&
        calls.link(path.c_str(), old.c_str()) == 0;
}

void dropOld(const std::string &path)
{
    calls.unlink(oldName(path).c_str());
}

Stamp repairAndRead(const std::string &path, std::string &bytes)
{
    const Stamp stamp = read(path, bytes);
    if (stamp.kind != Kind::file || !hollow(bytes))
        return stamp;
    const std::string real = target(path);
    std::string old;
    const bool useful = target(oldName(real)) == oldName(real) && // a link isn't ours
        read(oldName(real), old).kind == Kind::file && !hollow(old);
    return useful && calls.rename(oldName(real).c_str(), real.c_str()) == 0 ? read(path, bytes) : stamp;
}

bool replace(const std::string &path, std::string_view bytes, bool held, Stamp &after)
{
    struct stat old;
    const bool exists = calls.stat(path.c_str(), &old) == 0;
    if (exists ? !S_ISREG(old.st_mode) || calls.mayWrite(path.c_str()) != 0 : errno != ENOENT)
        return false;
    const std::string fresh = newName(path);
    const bool created = create(fresh, bytes, exists ? &old : nullptr, after);
    if (created && ((exists && held && exchange(fresh, path)) || calls.rename(fresh.c_str(), path.c_str()) == 0))
        return true;
    calls.unlink(fresh.c_str());
    return false;
}

bool append(const std::string &path, std::string_view bytes)
{
    Descriptor file(path, O_WRONLY | O_CREAT | O_APPEND | O_NOFOLLOW, 0666);
    return file && writeAll(file.number(), bytes) && file.close();
}

bool rename(const std::string &from, const std::string &to)
{
    return calls.rename(from.c_str(), to.c_str()) == 0;
}

bool syncFile(const std::string &path)
{
    const Descriptor file(path, O_RDONLY | O_NONBLOCK);
    return file && calls.sync(file.number()) == 0;
}

bool syncFolder(const std::string &path)
{
    const Descriptor folder(path, O_RDONLY | O_DIRECTORY);
    return folder && (calls.syncFolder(folder.number()) == 0 || errno == EINVAL);
}

std::string folderOf(const std::string &path)
{
    const auto slash = path.find_last_of('/');
    return slash == path.npos ? "." : slash == 0 ? "/" : path.substr(0, slash);
}

bool share(const std::string &path, const std::string &secondName)
{
    return calls.link(path.c_str(), secondName.c_str()) == 0;
}

void setModified(const std::string &path, std::int64_t modified)
{
    const timespec at = {static_cast<time_t>(modified / 1'000'000'000), static_cast<long>(modified % 1'000'000'000)};
    const timespec times[] = {at, at};
    if (::utimensat(AT_FDCWD, path.c_str(), times, 0) != 0)
        errno = 0; // only costs a later copy
}

bool makeFolder(const std::string &path)
{
    return calls.makeFolder(path.c_str()) == 0 || errno == EEXIST;
}

bool makeNewFolder(const std::string &path)
{
    return calls.makeFolder(path.c_str()) == 0;
}

bool keepAs(const std::string &path, const std::string &secondName)
{
    if (share(path, secondName))
        return true;
    std::string bytes;
    Stamp after;
    return errno != EEXIST && read(path, bytes).kind == Kind::file && replace(secondName, bytes, false, after);
}

void removeName(const std::string &path)
{
    calls.unlink(path.c_str());
}

std::string freeName(const std::string &stem, std::string_view ending)
{
    std::string name = std::string(stem).append(ending);
    for (int number = 2; look(name).kind != Kind::missing; ++number) {
        if (number > 99)
            return {};
        name = std::string(stem).append(number < 10 ? "-0" : "-").append(std::to_string(number)).append(ending);
    }
    return name;
}

bool inside(const std::string &folder, const std::string &path)
{
    std::error_code error;
    const std::filesystem::path outer = std::filesystem::canonical(folder, error);
    const std::filesystem::path inner = error ? outer : std::filesystem::weakly_canonical(path, error);
    return !error && std::mismatch(outer.begin(), outer.end(), inner.begin(), inner.end()).first == outer.end();
}

void tidy(const std::string &folder)
{
    DIR *const open = ::opendir(folder.c_str());
    if (!open)
        return;
    while (const dirent *entry = ::readdir(open)) {
        const std::string_view name = entry->d_name;
        const std::string path = std::string(folder).append("/").append(name);
        struct stat info;
        // Another program that runs now needs its own for a moment only.
        if (name.starts_with(ours) && name.ends_with(beingWritten) && ::lstat(path.c_str(), &info) == 0 &&
            S_ISREG(info.st_mode) && std::time(nullptr) - info.st_mtime > 60)
            calls.unlink(path.c_str());
    }
    ::closedir(open);
}

}
