// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Puts a hook before each system call of the store: it may note the call, refuse it with an errno, or end the program.
// The calls themselves stay genuine.
#include "store/disk.h"

#include <cerrno>
#include <functional>
#include <string>
#include <string_view>

namespace circuidex::test {

class WatchedCalls {
public:
    struct Call {
        std::string_view name;
        std::string path; // the first one; of a call on an open file, the path it was opened by
        std::string to; // the second one
        std::size_t size = 0; // of a write
        std::function<void(std::size_t)> writePart; // of a write: does this much of it at once
    };
    // The errno that the call fails with, or 0 to let it through.
    using Hook = std::function<int(const Call &)>;

    explicit WatchedCalls(Hook hook)
    {
        s_hook = std::move(hook);
        disk::calls = {
            [](const char *path, int flags, mode_t mode) {
                const int file = through(genuine.open, told("open", path), path, flags, mode);
                if (file >= 0)
                    paths(file) = path;
                return file;
            },
            [](auto... all) { return through(genuine.stat, told("stat", all...), all...); },
            [](auto... all) { return through(genuine.describe, told("describe", all...), all...); },
            [](auto... all) { return through(genuine.read, told("read", all...), all...); },
            [](int file, const void *from, std::size_t size) {
                const auto part = [&](std::size_t some) { genuine.write(file, from, some); };
                return through(genuine.write, {"write", paths(file), {}, size, part}, file, from, size);
            },
            [](auto... all) { return through(genuine.setMode, told("setMode", all...), all...); },
            [](int file) { // a close that fails has closed all the same
                const int refused = s_hook(told("close", file));
                const int closed = genuine.close(file);
                return refused == 0 ? closed : (errno = refused, -1);
            },
            [](auto... all) { return through(genuine.sync, told("sync", all...), all...); },
            [](auto... all) { return through(genuine.syncFolder, told("syncFolder", all...), all...); },
            [](auto... all) { return through(genuine.mayWrite, told("mayWrite", all...), all...); },
            [](auto... all) { return through(genuine.rename, told("rename", all...), all...); },
            [](auto... all) { return through(genuine.exchange, told("exchange", all...), all...); },
            [](auto... all) { return through(genuine.link, told("link", all...), all...); },
            [](auto... all) { return through(genuine.unlink, told("unlink", all...), all...); },
            [](auto... all) { return through(genuine.makeFolder, told("makeFolder", all...), all...); },
        };
    }
    ~WatchedCalls()
    {
        disk::calls = genuine;
        s_hook = nullptr;
    }
    WatchedCalls(const WatchedCalls &) = delete;
    WatchedCalls &operator=(const WatchedCalls &) = delete;

private:
    inline static const disk::Calls genuine = disk::calls;
    inline static Hook s_hook;

    static std::string &paths(int file)
    {
        static std::string known[1024];
        return known[file % 1024];
    }
    static Call told(std::string_view name, const char *path, const char *to) { return {name, path, to, 0, {}}; }
    template <typename... Rest>
    static Call told(std::string_view name, const char *path, Rest...)
    {
        return {name, path, {}, 0, {}};
    }
    template <typename... Rest>
    static Call told(std::string_view name, int file, Rest...)
    {
        return {name, paths(file), {}, 0, {}};
    }
    template <typename Function, typename... Arguments>
    static auto through(Function function, const Call &call, Arguments... arguments) -> decltype(function(arguments...))
    {
        if (const int refused = s_hook(call)) {
            errno = refused;
            return -1;
        }
        return function(arguments...);
    }
};

// True for a call after which a data file may have another content or another name.
inline bool replaces(const WatchedCalls::Call &call)
{
    return call.name == "rename" || call.name == "exchange" || call.name == "link" || call.name == "unlink";
}

// True for the calls that a write consists of. Their order is the same in each run; how often a file is looked at and
// read again depends on the clock.
inline bool writes(const WatchedCalls::Call &call)
{
    return replaces(call) || call.name == "write" || call.name == "setMode" || call.name == "mayWrite" ||
        call.name == "sync" || call.name == "syncFolder" || call.name == "makeFolder";
}

}
