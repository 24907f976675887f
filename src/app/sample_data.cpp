// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/sample_data.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <functional>
#include <utility>

namespace circuidex {

namespace {

// "gp 0 | Australie | 09/03" is the word "gp" with three fields.
struct Line {
    std::string_view word;
    std::vector<std::string_view> fields;

    std::string text(std::size_t field) const { return std::string(fields[field]); }
};

// A handler takes one line and answers what is wrong with it, or an empty text.
using Handler = std::function<std::string(const Line &)>;

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

Line split(std::string_view text)
{
    Line line;
    const std::size_t end = std::min(text.find(' '), text.size());
    line.word = text.substr(0, end);
    text.remove_prefix(end);
    for (;;) {
        const std::size_t bar = text.find('|');
        line.fields.push_back(trimmed(text.substr(0, bar)));
        if (bar == std::string_view::npos)
            return line;
        text.remove_prefix(bar + 1);
    }
}

bool eachLine(std::string_view text, std::string &error, const Handler &handler)
{
    for (int number = 1; !text.empty(); ++number) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view content = trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (content.empty() || content.front() == '#')
            continue;
        if (std::string wrong = handler(split(content)); !wrong.empty()) {
            error = "line " + std::to_string(number) + ": " + wrong;
            return false;
        }
    }
    return true;
}

std::optional<int> number(std::string_view text, int least, int most)
{
    int value = 0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (problem != std::errc() || end != text.data() + text.size() || value < least || value > most)
        return std::nullopt;
    return value;
}

bool isYear(std::string_view text)
{
    return text.size() == 4 && number(text, 1950, 2099);
}

bool isDay(std::string_view text) // dd/mm
{
    return text.size() == 5 && text[2] == '/' && number(text.substr(0, 2), 1, 31) && number(text.substr(3), 1, 12);
}

bool isDate(std::string_view text) // dd/mm/yyyy
{
    return text.size() == 10 && isDay(text.substr(0, 5)) && text[5] == '/' && number(text.substr(6), 1850, 2099);
}

bool isPoints(std::string_view text) // "34.5"
{
    const std::size_t point = std::min(text.find('.'), text.size());
    return number(text.substr(0, point), 0, 99999) && (point == text.size() || number(text.substr(point + 1), 0, 99));
}

std::string orNothing(std::string_view text)
{
    return std::string(text == "-" ? std::string_view() : text);
}

// The fields' number and that none of them is empty.
std::string shape(const Line &line, std::size_t least, std::size_t most)
{
    if (line.fields.size() < least || line.fields.size() > most)
        return "'" + std::string(line.word) + "' with " + std::to_string(line.fields.size()) + " fields";
    if (std::ranges::any_of(line.fields, [](std::string_view field) { return field.empty(); }))
        return "'" + std::string(line.word) + "' with an empty field";
    return {};
}

std::string bad(std::string_view what, std::string_view text)
{
    return "bad " + std::string(what) + " '" + std::string(text) + "'";
}

std::string unknownWord(const Line &line)
{
    return "unknown word '" + std::string(line.word) + "'";
}

class SeasonReader {
public:
    std::string read(const Line &line)
    {
        if (line.word == "saison")
            return year(line);
        if (m_season.year.empty())
            return "'saison' must come first";
        if (line.word == "bareme")
            return scale(line);
        if (line.word == "pilote")
            return driver(line);
        if (line.word == "transfert")
            return move(line);
        if (line.word == "gp")
            return race(line);
        if (m_season.races.empty())
            return "'" + std::string(line.word) + "' before the first 'gp'";
        if (line.word == "pole")
            return pole(line);
        if (line.word == "grille")
            return grid(line);
        if (line.word == "arrivee")
            return finish(line);
        return unknownWord(line);
    }

    // What is still missing at the end of the file.
    std::string missing() const
    {
        if (m_season.year.empty())
            return "no 'saison'";
        if (m_season.scale[0].empty())
            return "no 'bareme'";
        if (m_season.drivers.empty())
            return "no 'pilote'";
        return incompleteRace();
    }

    SampleSeason take() { return std::move(m_season); }

private:
    std::string year(const Line &line)
    {
        if (std::string wrong = shape(line, 1, 1); !wrong.empty())
            return wrong;
        if (!m_season.year.empty() || !isYear(line.fields[0]))
            return bad("season", line.fields[0]);
        m_season.year = line.text(0);
        return {};
    }

    std::string scale(const Line &line)
    {
        if (std::string wrong = shape(line, m_season.scale.size(), m_season.scale.size()); !wrong.empty())
            return wrong;
        for (std::size_t place = 0; place < m_season.scale.size(); ++place) {
            if (!isPoints(line.fields[place]))
                return bad("points", line.fields[place]);
            m_season.scale[place] = line.text(place);
        }
        return {};
    }

    std::string driver(const Line &line)
    {
        if (std::string wrong = shape(line, 5, 5); !wrong.empty())
            return wrong;
        const int next = static_cast<int>(m_season.drivers.size()) + 1;
        const auto slot = number(line.fields[0], 1, 26);
        if (slot != next)
            return bad("slot, expected " + std::to_string(next) + ", got", line.fields[0]);
        if (known(line.fields[1]))
            return bad("name, given twice:", line.fields[1]);
        if (!isDate(line.fields[4]))
            return bad("date", line.fields[4]);
        m_season.drivers.push_back({*slot, line.text(1), line.text(2), line.text(3), line.text(4)});
        return {};
    }

    std::string move(const Line &line)
    {
        if (std::string wrong = shape(line, 3, 3); !wrong.empty())
            return wrong;
        const auto slot = number(line.fields[0], 1, static_cast<int>(m_season.drivers.size()));
        const auto gp = number(line.fields[2], 0, 19);
        if (!slot)
            return bad("slot", line.fields[0]);
        if (!gp)
            return bad("Grand Prix", line.fields[2]);
        m_season.moves.push_back({*slot, line.text(1), *gp});
        return {};
    }

    std::string race(const Line &line)
    {
        if (std::string wrong = shape(line, 3, 3); !wrong.empty())
            return wrong;
        if (std::string wrong = incompleteRace(); !wrong.empty())
            return wrong;
        const int next = static_cast<int>(m_season.races.size());
        const auto gp = number(line.fields[0], 0, 19);
        if (gp != next)
            return bad("Grand Prix, expected " + std::to_string(next) + ", got", line.fields[0]);
        if (!isDay(line.fields[2]))
            return bad("date", line.fields[2]);
        SampleRace &added = m_season.races.emplace_back();
        added.name = line.text(1);
        added.date = line.text(2);
        return {};
    }

    std::string pole(const Line &line)
    {
        if (std::string wrong = shape(line, 1, 1); !wrong.empty())
            return wrong;
        if (!known(line.fields[0]))
            return bad("driver", line.fields[0]);
        m_season.races.back().pole = line.text(0);
        return {};
    }

    std::string grid(const Line &line)
    {
        if (std::string wrong = shape(line, 2, 27); !wrong.empty())
            return wrong;
        auto &places = m_season.races.back().grid;
        const auto first = number(line.fields[0], 1, static_cast<int>(places.size()));
        if (!first)
            return bad("place", line.fields[0]);
        return fill(places, static_cast<std::size_t>(*first - 1), line, 1);
    }

    std::string finish(const Line &line)
    {
        if (std::string wrong = shape(line, 1, 8); !wrong.empty())
            return wrong;
        return fill(m_season.races.back().finish, 0, line, 0);
    }

    // The fields from the given one on become drivers of the places from the given one on; "-" is nobody.
    template <typename Places>
    std::string fill(Places &places, std::size_t place, const Line &line, std::size_t field) const
    {
        for (; field < line.fields.size(); ++field, ++place) {
            const std::string name = orNothing(line.fields[field]);
            if (place >= places.size())
                return "more than " + std::to_string(places.size()) + " places";
            if (!places[place].empty())
                return "place " + std::to_string(place + 1) + " given twice";
            if (name.empty())
                continue;
            if (!known(name))
                return bad("driver", name);
            if (std::ranges::find(places, name) != places.end())
                return bad("driver, given twice:", name);
            places[place] = name;
        }
        return {};
    }

    bool known(std::string_view name) const
    {
        return std::ranges::any_of(m_season.drivers, [name](const SampleDriver &one) { return one.name == name; });
    }

    std::string incompleteRace() const
    {
        if (m_season.races.empty())
            return {};
        const SampleRace &last = m_season.races.back();
        if (last.pole.empty() || last.finish[0].empty() || std::ranges::all_of(last.grid, &std::string::empty))
            return "no pole, grid or finish for '" + last.name + "'";
        return {};
    }

    SampleSeason m_season;
};

std::string readCareer(const Line &line, SampleCareer &career)
{
    if (line.word != "carriere")
        return unknownWord(line);
    if (std::string wrong = shape(line, 8, 32); !wrong.empty())
        return wrong;
    career.name = line.text(0);
    const std::pair<std::size_t, int *> counts[] = {
        {1, &career.starts}, {2, &career.wins}, {3, &career.poles}, {4, &career.podiums}, {6, &career.seasons}};
    for (const auto &[field, count] : counts) {
        const auto value = number(line.fields[field], 0, 999);
        if (!value)
            return bad("number", line.fields[field]);
        *count = *value;
    }
    if (!isPoints(line.fields[5]))
        return bad("points", line.fields[5]);
    career.points = line.text(5);
    career.firstSeason = orNothing(line.fields[7]);
    if (!career.firstSeason.empty() && !isYear(career.firstSeason))
        return bad("season", career.firstSeason);
    for (std::size_t field = 8; field < line.fields.size(); ++field) {
        if (!isYear(line.fields[field]))
            return bad("season", line.fields[field]);
        career.titles.push_back(line.text(field));
    }
    return {};
}

std::string readChampion(const Line &line, SampleChampion &champion)
{
    if (line.word != "champion")
        return unknownWord(line);
    if (std::string wrong = shape(line, 5, 5); !wrong.empty())
        return wrong;
    if (!isYear(line.fields[0]))
        return bad("season", line.fields[0]);
    if (!isPoints(line.fields[3]))
        return bad("points", line.fields[3]);
    champion = {line.text(0), line.text(1), line.text(2), line.text(3), orNothing(line.fields[4])};
    return {};
}

std::string readRecord(const Line &line, SampleRecord &record)
{
    if (line.word != "poles" && line.word != "victoires" && line.word != "points")
        return unknownWord(line);
    if (std::string wrong = shape(line, 2, 2); !wrong.empty())
        return wrong;
    const auto figure = number(line.fields[1], 0, 9999);
    if (!figure)
        return bad("number", line.fields[1]);
    record = {std::string(line.word), line.text(0), *figure};
    return {};
}

std::string readWin(const Line &line, SampleWin &win)
{
    if (line.word != "gp")
        return unknownWord(line);
    if (std::string wrong = shape(line, 6, 6); !wrong.empty())
        return wrong;
    const auto gp = number(line.fields[0], 0, 19);
    if (!gp)
        return bad("Grand Prix", line.fields[0]);
    if (!isDay(line.fields[2]))
        return bad("date", line.fields[2]);
    win.gp = *gp;
    win.race = line.text(1);
    win.date = line.text(2);
    win.name = line.text(3);
    win.team = line.text(4);
    win.pole = line.text(5);
    return {};
}

std::string readCircuit(const Line &line, SampleCircuit &circuit)
{
    if (line.word != "circuit")
        return unknownWord(line);
    if (std::string wrong = shape(line, 9, 9); !wrong.empty())
        return wrong;
    const std::pair<std::size_t, int *> counts[] = {
        {3, &circuit.length}, {4, &circuit.turns}, {6, &circuit.laps}, {7, &circuit.distance}};
    for (const auto &[field, count] : counts) {
        const auto value = number(line.fields[field], 1, 999'999);
        if (!value)
            return bad("number", line.fields[field]);
        *count = *value;
    }
    if (!isYear(line.fields[5]))
        return bad("season", line.fields[5]);
    if (line.fields[8] != "h" && line.fields[8] != "a")
        return bad("direction", line.fields[8]);
    circuit.race = line.text(0);
    circuit.name = line.text(1);
    circuit.place = line.text(2);
    circuit.year = line.text(5);
    circuit.clockwise = line.fields[8] == "h";
    return {};
}

// One row a line.
template <typename Row>
std::optional<std::vector<Row>> rows(std::string_view text, std::string &error,
                                     std::string (*read)(const Line &, Row &))
{
    std::vector<Row> all;
    if (!eachLine(text, error, [&](const Line &line) { return read(line, all.emplace_back()); }))
        return std::nullopt;
    return all;
}

}

std::optional<SampleSeason> parseSampleSeason(std::string_view text, std::string &error)
{
    SeasonReader reader;
    if (!eachLine(text, error, [&reader](const Line &line) { return reader.read(line); }))
        return std::nullopt;
    if (const std::string missing = reader.missing(); !missing.empty()) {
        error = "at the end: " + missing;
        return std::nullopt;
    }
    return reader.take();
}

std::optional<std::vector<SampleCareer>> parseSampleCareers(std::string_view text, std::string &error)
{
    return rows<SampleCareer>(text, error, readCareer);
}

std::optional<std::vector<SampleChampion>> parseSampleChampions(std::string_view text, std::string &error)
{
    return rows<SampleChampion>(text, error, readChampion);
}

std::optional<std::vector<SampleRecord>> parseSampleRecords(std::string_view text, std::string &error)
{
    return rows<SampleRecord>(text, error, readRecord);
}

std::optional<std::vector<SampleCircuit>> parseSampleCircuits(std::string_view text, std::string &error)
{
    return rows<SampleCircuit>(text, error, readCircuit);
}

std::optional<std::vector<SampleWin>> parseSampleWins(std::string_view text, std::string &error)
{
    std::vector<SampleWin> wins;
    std::string year;
    const auto handler = [&wins, &year](const Line &line) -> std::string {
        if (line.word == "saison") {
            year = isYear(line.fields[0]) ? line.text(0) : std::string();
            return year.empty() ? bad("season", line.fields[0]) : std::string();
        }
        if (year.empty())
            return "'saison' must come first";
        wins.emplace_back().year = year;
        return readWin(line, wins.back());
    };
    if (!eachLine(text, error, handler))
        return std::nullopt;
    return wins;
}

}
