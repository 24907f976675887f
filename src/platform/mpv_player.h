// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Films through libmpv: in a window of their own, with mpv's own controls on it. The library is made when the first
// film is opened. It runs on threads of its own and is only ever told and listened to, so that no film, however broken,
// holds up the program. Without a display or a sound card the film runs unseen or unheard.
#include "media/player.h"

#include <string>
#include <utility>
#include <vector>

struct mpv_event;
struct mpv_handle;

namespace circuidex {

class MpvPlayer : public media::Player {
public:
    using Options = std::vector<std::pair<std::string, std::string>>; // of mpv's, on top of the program's own

    // `wake` is called from any thread when there is something for `attend`.
    explicit MpvPlayer(
        std::function<void()> wake = [] {}, Options options = {});
    ~MpvPlayer() override;
    MpvPlayer(const MpvPlayer &) = delete;
    MpvPlayer &operator=(const MpvPlayer &) = delete;

    void open(const std::string &path) override; // refuses what is no film
    void play(const std::string &path) override;
    void playFrom(const std::string &path, std::int64_t milliseconds) override;
    void pause(const std::string &path) override;
    void close(const std::string &path) override;

    std::optional<std::int64_t> milliseconds() override;
    std::optional<std::int64_t> frames() override;
    std::optional<std::int64_t> millisecond() override;
    std::optional<std::int64_t> frame() override;
    bool loading() const override { return !m_path.empty(); } // some files tell their length as they play
    void letGo() override { close(m_path); }

    bool ended() const { return m_ended; } // the film stands at its end
    bool refused() const { return m_refused; } // the film can't be played

    void attend(); // takes in what happened; on the program's thread

private:
    enum class Seen : std::uint64_t { pause = 1, end, length, frameCount, at, focus };

    bool start();
    void stop();
    void forget();
    void tell(const std::vector<const char *> &command, std::uint64_t reply = 0);
    void setPaused(bool on);
    void keepOnTop(bool on);
    std::optional<ByHand> take(const mpv_event &event);
    std::optional<ByHand> takeProperty(const mpv_event &event);
    std::optional<ByHand> takeEnd(const mpv_event &event);

    std::function<void()> m_wake;
    Options m_options;
    mpv_handle *m_mpv = nullptr;
    std::string m_path; // of the open film
    std::uint64_t m_asked = 0; // counts the films asked for, so that only the last one's answer counts
    std::int64_t m_entry = -1; // mpv's number for the open film, once it has taken it
    bool m_onTop = false, m_paused = false, m_ended = false, m_refused = false;
    std::optional<double> m_length, m_at; // seconds
    std::optional<std::int64_t> m_frames;
};

}
