// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The film that the program plays, one for all screens: its three states (no media, playing, paused), and the
// operations of the player's buttons on the device. A paused film doesn't count as playing: stopping and seeking leave
// it alone.
#include "media/player.h"

namespace circuidex::media {

// "1:02:03", "02:03", of seconds rounded to the nearest whole; hours only where there are any.
std::string FormatDuration(std::int64_t milliseconds);

// What the player says of its state.
inline const std::string noMedia = "[ Pas de média ]", playing = "[ Joue ]", paused = "[ Pause ]";

struct Counters {
    std::string time, frames, frame;
};

inline const Counters idleCounters{"Temps total: 00:00", "Nbr d'images: 00", "Image courrante: 00"};

class FilmPlayer {
public:
    explicit FilmPlayer(Player &device);

    std::string MediaName; // the path, in double quotes; empty before the first film
    bool IsPlaying = false;
    std::int64_t SeekStep = 5;
    std::int32_t TotalFrames = 0, TotalMilliseconds = 0; // as last read

    const std::string &state() const { return m_state; } // one of the three

    void setMedia(const std::string &path) { MediaName = '"' + path + '"'; }
    void OpenMedia();
    void PlayMedia();
    void PauseMedia();
    void CloseMedia();
    void ReadFrames();
    void ReadMilliseconds();
    void SeekForward(std::int64_t factor) { seek(SeekStep * factor); } // so many times the step, in milliseconds
    void SeekBack(std::int64_t factor) { seek(-SeekStep * factor); }

    // What the counters say now; absent while the device answers nothing, so that they stay as they are.
    std::optional<Counters> RefreshCounters();

    void letGo(); // the gallery has gone: no media

    std::function<void()> changedByHand = [] {}; // the person at the film's window has paused, resumed or closed it

private:
    std::string path() const;
    void seek(std::int64_t by);
    void follow(Player::ByHand what);

    Player &m_device;
    std::string m_state;
};

}
