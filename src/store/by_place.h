// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One value for each place of a result or a grid, indexed by the place itself: 1 to N.
#include <array>
#include <cstddef>

namespace circuidex {

template <class T, int N>
struct ByPlace {
    std::array<T, std::size_t(N)> values{}; // in the order of the places; give them in braces, as {"10", "8"}

    T &operator[](int place) { return values[static_cast<std::size_t>(place - 1)]; }
    const T &operator[](int place) const { return values[static_cast<std::size_t>(place - 1)]; }
    T &operator[](std::size_t) = delete; // an index from 0 is a mistake
    const T &operator[](std::size_t) const = delete;

    auto begin() { return values.begin(); }
    auto end() { return values.end(); }
    auto begin() const { return values.begin(); }
    auto end() const { return values.end(); }

    friend bool operator==(const ByPlace &, const ByPlace &) = default;
};

}
