// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Whole files: read at once, replaced at once, carried through to the disk. What a kill and a power cut leave behind
// is told in docs/durability.md. Paths are of the system's own bytes; no function throws or blocks on a device.
#include <cstdint>
#include <string>
#include <string_view>

#include <sys/types.h>

struct stat;

namespace circuidex::disk {

// The system calls that the files go through, each with the answer and errno of the system's own. A test puts others in
// their place to refuse one, to note their order or to end the program between two.
struct Calls {
    int (*open)(const char *path, int flags, mode_t mode);
    int (*stat)(const char *path, struct ::stat *info);
    int (*describe)(int file, struct ::stat *info);
    ssize_t (*read)(int file, void *to, std::size_t size);
    ssize_t (*write)(int file, const void *from, std::size_t size);
    int (*setMode)(int file, mode_t mode);
    int (*close)(int file);
    int (*sync)(int file); // the data, and what it takes to find them
    int (*syncFolder)(int folder);
    int (*mayWrite)(const char *path);
    int (*rename)(const char *from, const char *to);
    int (*exchange)(const char *one, const char *other);
    int (*link)(const char *from, const char *to);
    int (*unlink)(const char *path);
    int (*makeFolder)(const char *path);
};
extern Calls calls;

inline constexpr std::size_t largest = std::size_t(64) << 20; // bytes; a file beyond that is refused

enum class Kind { missing, file, refused }; // refused: a folder, a device, too large, or not to be read

// What tells one content of a file from the next without reading it.
struct Stamp {
    Kind kind = Kind::missing;
    std::uint64_t size = 0;
    std::uint64_t inode = 0;
    std::int64_t modified = 0; // nanoseconds
    bool operator==(const Stamp &) const = default;
};

Stamp look(const std::string &path);

// `bytes` is empty unless the answer is a file.
Stamp read(const std::string &path, std::string &bytes);

// True for a stamp so young that the file may change again without changing the stamp: the clock of a file system ticks
// every few milliseconds.
bool young(const Stamp &stamp);

// The file that a path stands for when it is a symbolic link, also one that leads nowhere yet; otherwise the path.
std::string target(const std::string &path);

// Holds on to the present content beside the file, at no cost, until dropOld(). True when a power cut can then take no
// more than what is written from now on; also for a file that doesn't exist yet.
bool keepOld(const std::string &path);
void dropOld(const std::string &path);

// Reads a file for the first time. One that a power cut left hollow, empty or nothing but zeros, first gets back the
// content held on to.
Stamp repairAndRead(const std::string &path, std::string &bytes);

// Puts a new file with these bytes in the place of the old one, which stays whole when a step fails; keeps its access
// mode. A file that may not be written is not replaced either. With its content held, the disk has no part in it.
bool replace(const std::string &path, std::string_view bytes, bool held, Stamp &after);

// Adds the bytes to the end of a file, which is made if need be. A kill may leave a part of them.
bool append(const std::string &path, std::string_view bytes);

// In one step; what bore the other name is gone. False between two disks.
bool rename(const std::string &from, const std::string &to);

bool syncFile(const std::string &path);
bool syncFolder(const std::string &path);

std::string folderOf(const std::string &path);

// A second name for the same file. False where there are no such names, or when the name is taken.
bool share(const std::string &path, const std::string &secondName);

// Sets the time of the last change, in nanoseconds as in a stamp.
void setModified(const std::string &path, std::int64_t modified);

// True also for a folder that is there already.
bool makeFolder(const std::string &path);

// False also when the name is taken.
bool makeNewFolder(const std::string &path);

// Keeps the present content under a second name: a link, or a copy where there are none.
bool keepAs(const std::string &path, const std::string &secondName);

void removeName(const std::string &path);

// The first of "stem.ending", "stem-02.ending" … that names nothing; empty when a hundred are taken.
std::string freeName(const std::string &stem, std::string_view ending);

// True when the path, with all links and dots resolved, lies in the folder or below it. It needn't exist yet.
bool inside(const std::string &folder, const std::string &path);

// Removes what a killed program left of a write in this folder.
void tidy(const std::string &folder);

}
