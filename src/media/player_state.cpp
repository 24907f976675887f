// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/player_state.h"

#include <algorithm>
#include <limits>

namespace circuidex::media {

namespace {

std::string twoDigits(std::int64_t number)
{
    return (number < 10 ? "0" : "") + std::to_string(number);
}

// A length that the device doesn't tell leaves the one before.
void take(std::optional<std::int64_t> reply, std::int32_t &length)
{
    using Limits = std::numeric_limits<std::int32_t>;
    if (reply)
        length = static_cast<std::int32_t>(std::clamp<std::int64_t>(*reply, Limits::min(), Limits::max()));
}

}

std::string FormatDuration(std::int64_t milliseconds)
{
    const std::int64_t seconds = (milliseconds + 500) / 1000, hours = seconds / 3600, rest = seconds % 3600;
    return (hours > 0 ? std::to_string(hours) + ":" : "") + twoDigits(rest / 60) + ":" + twoDigits(rest % 60);
}

FilmPlayer::FilmPlayer(Player &device) : m_device(device), m_state(noMedia)
{
    m_device.byHand = [this](Player::ByHand what) { follow(what); };
}

std::string FilmPlayer::path() const
{
    return MediaName.size() < 2 ? std::string() : MediaName.substr(1, MediaName.size() - 2);
}

void FilmPlayer::OpenMedia()
{
    if (!MediaName.empty())
        m_device.open(path());
}

void FilmPlayer::PlayMedia()
{
    if (MediaName.empty())
        return;
    m_device.play(path());
    IsPlaying = true;
    m_state = playing;
}

void FilmPlayer::PauseMedia()
{
    if (!IsPlaying)
        return;
    m_device.pause(path());
    IsPlaying = false;
    m_state = paused;
}

void FilmPlayer::CloseMedia()
{
    if (!IsPlaying)
        return;
    m_device.close(path());
    IsPlaying = false;
    m_state = noMedia;
}

void FilmPlayer::ReadFrames()
{
    take(m_device.frames(), TotalFrames);
}

void FilmPlayer::ReadMilliseconds()
{
    take(m_device.milliseconds(), TotalMilliseconds);
}

// Where the device doesn't say where it stands, the film's beginning.
void FilmPlayer::seek(std::int64_t by)
{
    if (!IsPlaying)
        return;
    m_device.playFrom(path(), m_device.millisecond().value_or(0) + by);
    IsPlaying = true;
}

std::optional<Counters> FilmPlayer::RefreshCounters()
{
    if (m_device.loading()) {
        ReadMilliseconds();
        ReadFrames();
    }
    const auto frame = m_device.frame();
    if (!frame)
        return std::nullopt;
    return Counters{"Temps total: " + FormatDuration(TotalMilliseconds), "Nbr d'images: " + std::to_string(TotalFrames),
                    "Image courrante: " + std::to_string(*frame)};
}

void FilmPlayer::letGo()
{
    m_device.letGo();
    IsPlaying = false;
    m_state = noMedia;
}

void FilmPlayer::follow(Player::ByHand what)
{
    IsPlaying = what == Player::ByHand::resumed;
    m_state = IsPlaying ? playing : what == Player::ByHand::paused ? paused : noMedia;
    changedByHand();
}

}
