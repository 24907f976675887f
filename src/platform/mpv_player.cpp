// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/mpv_player.h"

#include "platform/film_file.h"

#include <mpv/client.h>

#include <clocale>
#include <cmath>
#include <cstring>
#include <string_view>

namespace circuidex {

namespace {

struct Option {
    const char *name, *value;
};

// What isn't known to the mpv at hand is passed over.
constexpr Option options[] = {
    // Nothing of the user's own mpv, no scripts but its controls, nothing beside or behind the file: a film from
    // anywhere
    // may be a list of addresses in disguise.
    {"config", "no"},
    {"load-scripts", "no"},
    {"ytdl", "no"},
    {"load-stats-overlay", "no"},
    {"load-osd-console", "no"},
    {"load-auto-profiles", "no"},
    {"access-references", "no"},
    {"ordered-chapters", "no"},
    {"sub-auto", "no"},
    {"audio-file-auto", "no"},
    {"cover-art-auto", "no"},
    {"resume-playback", "no"},
    {"demuxer", "lavf"},
    // No more than this in memory, whatever the file's head says; mpv ends the program that runs out of it.
    {"demuxer-max-bytes", "32MiB"},
    {"demuxer-max-back-bytes", "8MiB"},
    {"vd-lavc-o", "max_pixels=35389440"}, // 8192 by 4320
    // The window.
    {"vo", "gpu,x11,null"},
    {"audio-fallback-to-null", "yes"},
    {"osc", "yes"},
    {"input-default-bindings", "no"},
    {"input-vo-keyboard", "yes"},
    {"title", "Circuidex - ${filename}"},
    {"x11-name", "circuidex"},
    {"wayland-app-id", "circuidex"},
    {"autofit-larger", "70%x70%"},
    // At its end the film stands still on the last frame.
    {"keep-open", "yes"},
    {"keep-open-pause", "no"},
    {"idle", "yes"},
};

constexpr std::pair<const char *, const char *> keys[] = {
    {"CLOSE_WIN", "stop"},     {"q", "stop"},
    {"ESC", "stop"},           {"SPACE", "cycle pause"},
    {"f", "cycle fullscreen"}, {"MBTN_LEFT_DBL", "cycle fullscreen"},
    {"LEFT", "seek -5"},       {"RIGHT", "seek 5"},
    {"UP", "add volume 5"},    {"DOWN", "add volume -5"},
};

constexpr std::uint64_t setting = 1'000'000; // answers to anything but a film asked for

std::int64_t whole(double number)
{
    return std::abs(number) < 1e15 ? std::llround(number) : 0;
}

std::int64_t entryIn(const mpv_node &result)
{
    for (int i = 0; result.format == MPV_FORMAT_NODE_MAP && i < result.u.list->num; ++i)
        if (result.u.list->keys[i] == std::string_view("playlist_entry_id"))
            return result.u.list->values[i].u.int64;
    return -1;
}

template <class T>
std::optional<T> valueOf(const mpv_event_property &property)
{
    return property.format == MPV_FORMAT_NONE ? std::nullopt : std::optional(*static_cast<const T *>(property.data));
}

}

MpvPlayer::MpvPlayer(std::function<void()> wake, Options more) : m_wake(std::move(wake)), m_options(std::move(more)) { }

MpvPlayer::~MpvPlayer()
{
    stop();
}

// The window system has taken over the user's locale, and mpv reads numbers with a point.
bool MpvPlayer::start()
{
    if (m_mpv)
        return true;
    std::setlocale(LC_NUMERIC, "C");
    m_mpv = mpv_create();
    if (!m_mpv)
        return false;
    for (const Option &each : options)
        mpv_set_option_string(m_mpv, each.name, each.value);
    for (const auto &[name, value] : m_options)
        mpv_set_option_string(m_mpv, name.c_str(), value.c_str());
    if (mpv_initialize(m_mpv) < 0) {
        stop();
        return false;
    }
    for (const auto &[key, command] : keys)
        tell({"keybind", key, command});
    const auto observe = [this](Seen what, const char *name, mpv_format format) {
        mpv_observe_property(m_mpv, static_cast<std::uint64_t>(what), name, format);
    };
    observe(Seen::pause, "pause", MPV_FORMAT_FLAG);
    observe(Seen::focus, "focused", MPV_FORMAT_FLAG);
    observe(Seen::end, "eof-reached", MPV_FORMAT_FLAG);
    observe(Seen::length, "duration", MPV_FORMAT_DOUBLE);
    observe(Seen::frameCount, "estimated-frame-count", MPV_FORMAT_INT64);
    observe(Seen::at, "time-pos", MPV_FORMAT_DOUBLE);
    mpv_set_wakeup_callback(
        m_mpv, [](void *self) { static_cast<MpvPlayer *>(self)->m_wake(); }, this);
    return true;
}

void MpvPlayer::stop()
{
    if (!m_mpv)
        return;
    mpv_set_wakeup_callback(m_mpv, nullptr, nullptr);
    mpv_terminate_destroy(m_mpv);
    m_mpv = nullptr;
    m_path.clear();
    forget();
}

void MpvPlayer::forget()
{
    m_entry = -1;
    m_ended = m_refused = false;
    m_length = m_at = std::nullopt;
    m_frames = std::nullopt;
}

void MpvPlayer::tell(const std::vector<const char *> &command, std::uint64_t reply)
{
    std::vector<const char *> words = command;
    words.push_back(nullptr);
    mpv_command_async(m_mpv, reply == 0 ? setting : reply, words.data());
}

void MpvPlayer::setPaused(bool on)
{
    m_paused = on;
    int flag = on ? 1 : 0;
    mpv_set_property_async(m_mpv, setting, "pause", MPV_FORMAT_FLAG, &flag);
}

// The film is kept on top, as all windows of the program, but not before it has the focus, or else for a second: a
// window that comes up on top is put below the one that has the focus by some window managers.
void MpvPlayer::keepOnTop(bool on)
{
    if (m_onTop == on)
        return;
    m_onTop = on;
    tell({"set", "ontop", on ? "yes" : "no"});
}

void MpvPlayer::open(const std::string &path)
{
    attend();
    if (path == m_path && !m_refused)
        return;
    close(m_path);
    if (!isFilm(path) || !start())
        return;
    m_path = path;
    forget();
    keepOnTop(false);
    tell({"loadfile", m_path.c_str()}, ++m_asked);
}

void MpvPlayer::play(const std::string &path)
{
    if (!m_path.empty() && path == m_path)
        setPaused(false);
}

void MpvPlayer::playFrom(const std::string &path, std::int64_t from)
{
    const auto last = milliseconds();
    if (m_path.empty() || path != m_path || from < 0 || (last && from > *last))
        return;
    const std::string seconds = std::to_string(from / 1000) + "." + std::to_string(1000 + from % 1000).substr(1);
    tell({"seek", seconds.c_str(), "absolute+exact"});
    setPaused(false);
}

void MpvPlayer::pause(const std::string &path)
{
    if (!m_path.empty() && path == m_path)
        setPaused(true);
}

void MpvPlayer::close(const std::string &path)
{
    if (m_path.empty() || path != m_path)
        return;
    m_path.clear();
    forget();
    tell({"stop"});
}

std::optional<std::int64_t> MpvPlayer::milliseconds()
{
    attend();
    return m_length ? std::optional(whole(*m_length * 1000)) : std::nullopt;
}

std::optional<std::int64_t> MpvPlayer::frames()
{
    attend();
    return m_frames;
}

std::optional<std::int64_t> MpvPlayer::millisecond()
{
    attend();
    return m_at ? std::optional(whole(*m_at * 1000)) : std::nullopt;
}

std::optional<std::int64_t> MpvPlayer::frame()
{
    attend();
    if (!m_at || !m_frames || m_length.value_or(0) <= 0)
        return std::nullopt;
    return whole(*m_at / *m_length * static_cast<double>(*m_frames));
}

void MpvPlayer::attend()
{
    std::optional<ByHand> done;
    while (m_mpv) {
        const mpv_event *event = mpv_wait_event(m_mpv, 0);
        if (event->event_id == MPV_EVENT_NONE)
            break;
        if (const auto what = take(*event))
            done = what;
        if (event->event_id == MPV_EVENT_SHUTDOWN)
            stop();
    }
    if (done)
        byHand(*done); // it may ask for more
}

std::optional<media::Player::ByHand> MpvPlayer::take(const mpv_event &event)
{
    switch (event.event_id) {
    case MPV_EVENT_PROPERTY_CHANGE:
        return takeProperty(event);
    case MPV_EVENT_END_FILE:
        return takeEnd(event);
    case MPV_EVENT_COMMAND_REPLY:
        if (event.reply_userdata == m_asked && !m_path.empty()) {
            m_refused = event.error < 0;
            m_entry = entryIn(static_cast<const mpv_event_command *>(event.data)->result);
        }
        return std::nullopt;
    case MPV_EVENT_SHUTDOWN:
        return m_path.empty() ? std::nullopt : std::optional(ByHand::closed);
    default:
        return std::nullopt;
    }
}

// A pause that wasn't asked for here was made at the film's window. What is told may be older than what was asked for
// since; then the player itself knows.
std::optional<media::Player::ByHand> MpvPlayer::takeProperty(const mpv_event &event)
{
    const auto &property = *static_cast<const mpv_event_property *>(event.data);
    switch (static_cast<Seen>(event.reply_userdata)) {
    case Seen::length:
        m_length = valueOf<double>(property);
        break;
    case Seen::frameCount:
        m_frames = valueOf<std::int64_t>(property);
        break;
    case Seen::at:
        m_at = valueOf<double>(property);
        if (m_at.value_or(0) > 1)
            keepOnTop(true);
        break;
    case Seen::end:
        m_ended = valueOf<int>(property).value_or(0) != 0;
        break;
    case Seen::focus:
        if (valueOf<int>(property).value_or(0) != 0)
            keepOnTop(true);
        break;
    case Seen::pause:
        int now = valueOf<int>(property).value_or(0);
        if (m_path.empty() || (now != 0) == m_paused || mpv_get_property(m_mpv, "pause", MPV_FORMAT_FLAG, &now) < 0 ||
            (now != 0) == m_paused)
            break;
        m_paused = now != 0;
        return m_paused ? ByHand::paused : ByHand::resumed;
    }
    return std::nullopt;
}

std::optional<media::Player::ByHand> MpvPlayer::takeEnd(const mpv_event &event)
{
    const auto &end = *static_cast<const mpv_event_end_file *>(event.data);
    if (m_path.empty() || end.playlist_entry_id != m_entry)
        return std::nullopt;
    forget();
    if (end.reason == MPV_END_FILE_REASON_ERROR) {
        m_refused = true;
        return std::nullopt;
    }
    m_path.clear();
    return ByHand::closed;
}

}
