// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The fast key file and the naive one, side by side: whatever is read or written, they agree, or the fuzzer stops.
#include "fuzz/naive_key_file.h"
#include "store/key_file.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace circuidex::fuzz {

class Pair {
public:
    explicit Pair(const std::string &bytes) : naive(bytes), fast(bytes) { agree("parsing"); }

    void read(const std::string &section, const std::string &key)
    {
        const auto expected = naive.value(section, key);
        const auto found = fast.value(section, key);
        if (expected.has_value() != found.has_value() || (found && *found != *expected))
            stop("reading");
    }

    void write(const std::string &section, const std::string &key, const std::string &value)
    {
        const std::string before = fast.bytes();
        naive.set(section, key, value);
        if (fast.set(section, key, value) != (fast.bytes() != before))
            stop("saying whether the bytes changed");
        agree("writing");
    }

    naive::KeyFile naive;
    KeyFile fast;

private:
    void agree(const char *step) const
    {
        if (naive.bytes() != fast.bytes())
            stop(step);
    }
    [[noreturn]] void stop(const char *step) const
    {
        std::fprintf(stderr, "The two key files differ in %s.\n--- naive\n%s\n--- fast\n%s\n", step,
                     naive.bytes().c_str(), fast.bytes().c_str());
        std::abort();
    }
};

}
