// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One download, without the network: what to ask the server for, what its answers mean, and the file that grows from
// them. The content goes to "NAME.part" beside the destination, which takes its name when it is whole; so a destination
// is either whole or not there. A transfer that was stopped goes on where it stood when the server vouches, by its mark
// or date, that the content is still the same; what is needed for that stands in "NAME.part.suite".
#include <chrono>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>

namespace circuidex::online {

inline constexpr int mostRedirects = 5;
inline constexpr std::uint64_t mostDownload = std::uint64_t(1) << 40; // bytes
inline constexpr std::uint64_t roomKept = std::uint64_t(32) << 20; // bytes that a download leaves free on the disk
inline constexpr std::chrono::seconds mostSilence{30}; // without a byte, the transfer has failed

struct Request {
    std::string address;
    std::uint64_t from = 0; // ask for "Range: bytes=FROM-" when above 0,
    std::string ifRange; // with this as "If-Range"
};

struct Answer {
    int status = 0;
    std::string location; // header Location, empty without one; the others alike
    std::string etag, lastModified, contentRange, contentEncoding;
    std::optional<std::uint64_t> length; // of what follows
};

// What a screen shows: the figures of the event DownloadProgress. The third is the speed in bytes a second.
struct Progress {
    std::uint8_t percent = 0; // 0 also while the whole isn't known
    std::int32_t received = 0, total = 0, third = 0; // what is above two thousand millions stays there
};

class Transfer {
public:
    using Time = std::chrono::steady_clock::time_point;
    enum class State { asking, receiving, done, failed, cancelled };
    enum class Reaction { receive, again, fail };

    // `resume`: go on with what an earlier transfer left.
    Transfer(std::string source, std::filesystem::path destination, bool resume);

    State state() const { return m_state; }
    // Valid while asking; another one after each Reaction::again.
    const Request &request() const { return m_request; }
    Reaction answered(const Answer &answer);

    // False when the transfer can't go on: no room, or more than was announced.
    bool received(std::string_view bytes, Time now);
    // The connection has ended; `fault` is empty when it ended as it should.
    void ended(std::string_view fault);
    void cancel();

    Progress progress() const;
    // In French, for DownloadStatus.
    std::string status() const;

private:
    bool fail(std::string_view why);
    Reaction refuse(std::string_view why);
    Reaction redirect(const Answer &answer);
    Reaction restart();
    Reaction take(const Answer &answer);
    bool roomFor(std::uint64_t more) const;
    void note(const Answer &answer) const;
    void drop() const;
    double perSecond() const;

    std::filesystem::path m_destination, m_part, m_notes;
    std::string m_source;
    Request m_request;
    State m_state = State::asking;
    std::string m_why; // it failed
    int m_redirects = 0;
    bool m_restarted = false;
    std::ofstream m_file;
    std::uint64_t m_received = 0; // with what was there before
    std::optional<std::uint64_t> m_total;
    std::deque<std::pair<Time, std::uint64_t>> m_lately; // moment, received by then; some seconds back
};

// Takes away a download and what may be left of a stopped one. A missing file is no error.
void removeDownload(const std::filesystem::path &destination);

// Where an answer sends on to. Absent for an address that isn't one of the web, and for one without encryption when the
// first one had it.
std::optional<std::string> redirected(std::string_view from, std::string_view location);

// The file in the folder that a name from a server means; absent for one that leads elsewhere or isn't a film's.
std::optional<std::filesystem::path> filmPlace(const std::filesystem::path &folder, std::string_view name);

std::string sizeText(double bytes); // "1,2 Mo"
std::string durationText(double seconds); // "1 h 05 min", "2 min 05 s", "35 s"

}
