// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The device that plays films, one at a time, in a window of its own. Nothing waits for it: an operation that it
// refuses has no effect, and what it doesn't know (yet) is absent. Paths are files on the disk.
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace circuidex::media {

class Player {
public:
    virtual ~Player() = default;

    // Takes the place of a film that is open; the film that is open already stays where it is.
    virtual void open(const std::string &path) = 0;
    virtual void play(const std::string &path) = 0;
    virtual void playFrom(const std::string &path, std::int64_t milliseconds) = 0; // refused outside the film
    virtual void pause(const std::string &path) = 0;
    virtual void close(const std::string &path) = 0;

    virtual std::optional<std::int64_t> milliseconds() = 0; // the film's length
    virtual std::optional<std::int64_t> frames() = 0;
    virtual std::optional<std::int64_t> millisecond() = 0; // where it stands
    virtual std::optional<std::int64_t> frame() = 0;
    virtual bool loading() const { return false; } // the length isn't known yet, but soon

    // The gallery has gone: a film left on pause goes too.
    virtual void letGo() { }

    // Told of what a person did in the film's own window.
    enum class ByHand { paused, resumed, closed };
    std::function<void(ByHand)> byHand = [](ByHand) {};
};

}
