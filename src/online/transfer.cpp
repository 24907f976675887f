// SPDX-License-Identifier: GPL-3.0-or-later
#include "online/transfer.h"

#include "online/archive_names.h"
#include "store/disk.h"
#include "store/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <sstream>

namespace circuidex::online {

namespace {

namespace fs = std::filesystem;

fs::path with(const fs::path &path, const char *ending)
{
    return fs::path(path).concat(ending);
}

std::string schemeOf(std::string_view address)
{
    const std::size_t colon = address.find("://");
    return colon == address.npos ? std::string() : folded(address.substr(0, colon));
}

bool ofTheWeb(std::string_view address)
{
    const std::string scheme = schemeOf(address);
    const auto odd = [](char c) { return static_cast<unsigned char>(c) <= ' ' || c == 0x7F; };
    return (scheme == "http" || scheme == "https") && std::none_of(address.begin(), address.end(), odd);
}

// Blanks and letters beyond ASCII as addresses write them.
std::string encoded(std::string_view address)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (const char c : address) {
        const unsigned byte = static_cast<unsigned char>(c);
        if (byte == ' ' || byte >= 0x80)
            text.append({'%', digits[byte >> 4], digits[byte & 15]});
        else
            text += c;
    }
    return text;
}

// "bytes 100-199/200": the first byte, and the whole size where it is told.
struct Range {
    std::uint64_t from = 0;
    std::optional<std::uint64_t> total;
};
std::optional<Range> rangeOf(std::string_view text)
{
    constexpr std::string_view unit = "bytes ";
    const std::size_t slash = text.find('/');
    Range range;
    if (!text.starts_with(unit) || slash == text.npos ||
        std::from_chars(text.data() + unit.size(), text.data() + slash, range.from).ec != std::errc())
        return std::nullopt;
    std::uint64_t total = 0;
    if (std::from_chars(text.data() + slash + 1, text.data() + text.size(), total).ec == std::errc())
        range.total = total;
    return range;
}

// The mark by which the server knows the content again; a weak one doesn't vouch for each byte.
std::string markOf(const Answer &answer)
{
    return answer.etag.empty() || answer.etag.starts_with("W/") ? answer.lastModified : answer.etag;
}

std::int32_t clamped(double value)
{
    return static_cast<std::int32_t>(std::min<double>(value, std::numeric_limits<std::int32_t>::max()));
}

std::string twoDigits(long number)
{
    return (number < 10 ? "0" : "") + std::to_string(number);
}

}

Transfer::Transfer(std::string source, fs::path destination, bool resume)
    : m_destination(std::move(destination)), m_part(with(m_destination, ".part")),
      m_notes(with(m_destination, ".part.suite")), m_source(std::move(source))
{
    m_request.address = encoded(m_source);
    if (!ofTheWeb(m_request.address)) {
        fail("l'adresse n'en est pas une");
        return;
    }
    std::string address, mark;
    std::ifstream notes(m_notes, std::ios::binary);
    std::getline(notes, address);
    std::getline(notes, mark);
    std::error_code error;
    const std::uint64_t there =
        fs::is_regular_file(fs::symlink_status(m_part, error)) ? fs::file_size(m_part, error) : 0;
    if (resume && !error && there > 0 && address == m_source && !mark.empty())
        m_request = {m_request.address, there, mark};
    else
        drop();
}

void Transfer::drop() const
{
    disk::removeName(m_part.string());
    disk::removeName(m_notes.string());
}

bool Transfer::fail(std::string_view why)
{
    m_file.close();
    m_state = State::failed;
    m_why = why;
    return false;
}

Transfer::Reaction Transfer::refuse(std::string_view why)
{
    fail(why);
    return Reaction::fail;
}

Transfer::Reaction Transfer::answered(const Answer &answer)
{
    constexpr std::array movedOn{301, 302, 303, 307, 308};
    if (m_state != State::asking)
        return Reaction::fail;
    if (std::find(movedOn.begin(), movedOn.end(), answer.status) != movedOn.end())
        return redirect(answer);
    const auto range = rangeOf(answer.contentRange);
    const bool goesOn = answer.status == 206 && m_request.from > 0 && range && range->from == m_request.from;
    if ((answer.status == 206 && !goesOn) || answer.status == 416)
        return restart();
    if (answer.status != 200 && answer.status != 206)
        return refuse("le serveur a répondu " + std::to_string(answer.status));
    if (!answer.contentEncoding.empty() && answer.contentEncoding != "identity")
        return refuse("le serveur a transformé le contenu");
    m_received = goesOn ? m_request.from : 0;
    m_total = goesOn ? range->total : answer.length;
    if (goesOn && !m_total && answer.length)
        m_total = m_received + *answer.length;
    return take(answer);
}

Transfer::Reaction Transfer::redirect(const Answer &answer)
{
    const auto to = redirected(m_request.address, answer.location);
    if (++m_redirects > mostRedirects || !to)
        return refuse(to ? "le serveur renvoie plus de cinq fois plus loin"
                         : "le serveur renvoie à une adresse refusée");
    m_request.address = *to;
    return Reaction::again;
}

// From the beginning, once: what was there before is of no use.
Transfer::Reaction Transfer::restart()
{
    if (m_restarted || m_request.from == 0)
        return refuse("le serveur n'envoie pas ce qui est demandé");
    m_restarted = true;
    drop();
    m_request.from = 0;
    m_request.ifRange.clear();
    return Reaction::again;
}

Transfer::Reaction Transfer::take(const Answer &answer)
{
    if (m_total && (*m_total > mostDownload || *m_total < m_received))
        return refuse("le fichier n'a pas une taille possible");
    if (m_total && !roomFor(*m_total - m_received))
        return refuse("il n'y a pas assez de place sur le disque");
    if (m_received == 0)
        drop(); // also a link in its place
    m_file.open(m_part, std::ios::binary | (m_received > 0 ? std::ios::app : std::ios::trunc));
    if (!m_file)
        return refuse("le fichier ne peut pas être écrit");
    note(answer);
    m_state = State::receiving;
    return Reaction::receive;
}

bool Transfer::roomFor(std::uint64_t more) const
{
    std::error_code error;
    const fs::space_info room = fs::space(m_destination.parent_path(), error);
    return error || room.available >= more + roomKept;
}

// The address and the mark, with which a later transfer goes on; nothing where the server gives no mark.
void Transfer::note(const Answer &answer) const
{
    const std::string mark = markOf(answer);
    disk::Stamp after;
    if (mark.empty() || mark.find_first_of("\r\n") != mark.npos)
        disk::removeName(m_notes.string());
    else
        disk::replace(m_notes.string(), m_source + "\n" + mark + "\n", false, after);
}

bool Transfer::received(std::string_view bytes, Time now)
{
    if (m_state != State::receiving)
        return false;
    m_received += bytes.size();
    if (m_received > m_total.value_or(mostDownload)) {
        fail("le serveur envoie plus que ce qu'il annonce");
        drop();
        return false;
    }
    if (!m_file.write(bytes.data(), static_cast<std::streamsize>(bytes.size())) || (!m_total && !roomFor(0)))
        return fail("il n'y a pas assez de place sur le disque");
    m_lately.emplace_back(now, m_received);
    while (m_lately.size() > 2 && now - m_lately.front().first > std::chrono::seconds(5))
        m_lately.pop_front();
    return true;
}

void Transfer::ended(std::string_view fault)
{
    if (m_state != State::receiving && m_state != State::asking)
        return;
    m_file.close();
    if (!fault.empty() || m_state == State::asking || m_file.fail())
        fail(fault.empty() ? "le serveur n'a rien envoyé" : fault);
    else if (m_total && m_received != *m_total)
        fail("le transfert s'est arrêté avant la fin");
    else if (!disk::syncFile(m_part.string()) || disk::calls.rename(m_part.c_str(), m_destination.c_str()) != 0)
        fail("le fichier ne peut pas être mis à sa place");
    else {
        disk::removeName(m_notes.string());
        m_state = State::done;
    }
}

void Transfer::cancel()
{
    if (m_state != State::receiving && m_state != State::asking)
        return;
    m_file.close();
    m_state = State::cancelled;
}

double Transfer::perSecond() const
{
    if (m_lately.size() < 2)
        return 0;
    const std::chrono::duration<double> time = m_lately.back().first - m_lately.front().first;
    return time.count() > 0 ? double(m_lately.back().second - m_lately.front().second) / time.count() : 0;
}

Progress Transfer::progress() const
{
    const double total = double(m_total.value_or(0)), received = double(m_received);
    const double percent = total > 0 ? std::floor(100 * received / total) : m_state == State::done ? 100 : 0;
    return {static_cast<std::uint8_t>(percent), clamped(received), clamped(total), clamped(perSecond())};
}

std::string Transfer::status() const
{
    switch (m_state) {
    case State::asking:
        return "Connexion au serveur";
    case State::done:
        return "Terminé";
    case State::cancelled:
        return "Arrêté";
    case State::failed:
        return "Échec : " + m_why;
    case State::receiving:
        break;
    }
    const double speed = perSecond();
    std::string text = sizeText(double(m_received)) + (m_total ? " sur " + sizeText(double(*m_total)) : "");
    if (speed > 0)
        text += ", " + sizeText(speed) + "/s";
    if (speed > 0 && m_total)
        text += ", encore " + durationText(double(*m_total - m_received) / speed);
    return text;
}

void removeDownload(const fs::path &destination)
{
    for (const char *ending : {"", ".part", ".part.suite"})
        disk::removeName(with(destination, ending).string());
}

std::optional<std::string> redirected(std::string_view from, std::string_view location)
{
    const std::size_t host = from.find("://") + 3;
    const std::size_t path = std::min(from.find_first_of("/?#", host), from.size());
    std::string to(location);
    if (location.empty())
        return std::nullopt;
    if (location.starts_with("//"))
        to = std::string(from.substr(0, host - 2)).append(location);
    else if (location.starts_with('/'))
        to = std::string(from.substr(0, path)).append(location);
    else if (schemeOf(location).empty() || location.find_first_of("/?#") < location.find("://")) {
        const std::string_view whole = from.substr(0, std::min(from.find_first_of("?#", path), from.size()));
        const std::size_t slash = whole.rfind('/');
        to = (slash < host ? std::string(whole) + "/" : std::string(whole.substr(0, slash + 1))).append(location);
    }
    to = encoded(to);
    const bool loses = schemeOf(from) == "https" && schemeOf(to) != "https";
    return ofTheWeb(to) && !loses ? std::optional(to) : std::nullopt;
}

std::optional<fs::path> filmPlace(const fs::path &folder, std::string_view name)
{
    return isFilmName(name) ? std::optional(folder / fs::path(name)) : std::nullopt;
}

std::string sizeText(double bytes)
{
    constexpr std::array units{"octets", "Ko", "Mo", "Go"};
    std::size_t unit = 0;
    for (; bytes >= 999.5 && unit + 1 < units.size(); ++unit)
        bytes /= 1024;
    const long tenths = std::lround(bytes * 10);
    const bool fine = unit > 0 && tenths < 100; // "1,2 Mo", "12 Mo"
    const std::string number =
        fine ? std::to_string(tenths / 10) + "," + std::to_string(tenths % 10) : std::to_string(std::lround(bytes));
    return number + " " + units[unit];
}

std::string durationText(double seconds)
{
    const long all = std::lround(std::min(std::ceil(seconds), 360'000.0));
    if (all < 60)
        return std::to_string(all) + " s";
    if (all < 3600)
        return std::to_string(all / 60) + " min " + twoDigits(all % 60) + " s";
    return std::to_string(all / 3600) + " h " + twoDigits(all / 60 % 60) + " min";
}

}
