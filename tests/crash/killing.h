// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A child that works until a system call of its own and then ends without another instruction, as by a power cut.
#include "store/watched_calls.h"

#include <csignal>
#include <cstddef>
#include <sys/wait.h>
#include <unistd.h>

namespace circuidex::test {

// Killed at the call of that number, counted from 0 among those that `counts` takes; in a write, half of it is done.
// Its status, of a child that ended by itself when the work has fewer calls.
template <typename Counts, typename Work>
int killAt(std::size_t last, Counts counts, Work work)
{
    const pid_t child = ::fork();
    if (child == 0) {
        std::size_t count = 0;
        const WatchedCalls watched([&](const WatchedCalls::Call &call) {
            if (counts(call) && count++ == last) {
                if (call.writePart)
                    call.writePart(call.size / 2);
                ::kill(::getpid(), SIGKILL);
            }
            return 0;
        });
        work();
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return status;
}

}
