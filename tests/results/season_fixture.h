// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A program folder of a test's own, with the sample seasons or empty, the main screen's record on it, and what tests
// say and ask: a result typed as driver numbers, a key as "2005 [N°] vic5", the keys that a step changed as printed
// lines. Also the published results and tables that the sample seasons are compared with.
#include "app/sample_data.h"
#include "results/navigation.h"
#include "results/recording.h"
#include "store/temporary_folder.h"
#include "store/text.h"

#include <gtest/gtest.h>

#include <deque>
#include <map>
#include <sstream>
#include <utility>

namespace circuidex::test {

using namespace results;

using Lines = std::vector<std::string>;

// "a | b | c" with blanks around the parts dropped, "a\tb" as it is; "-" stands for nothing.
inline Lines split(const std::string &text, char separator)
{
    Lines parts;
    std::istringstream in(text);
    for (std::string part; std::getline(in, part, separator);) {
        part.erase(0, part.find_first_not_of(' '));
        part.erase(part.find_last_not_of(' ') + 1);
        parts.push_back(part == "-" ? "" : part);
    }
    return parts;
}

inline Lines linesOf(const std::filesystem::path &file)
{
    Lines lines;
    for (const std::string &line : split(content(file), '\n'))
        if (!line.empty() && line.front() != '#')
            lines.push_back(line);
    return lines;
}

// A file of data/, as the sample folder is made from it.
template <class T>
T parsed(const std::string &name, std::optional<T> (*parse)(std::string_view, std::string &))
{
    std::string error;
    auto result = parse(content(CIRCUIDEX_TESTDATA "/../../data/" + name), error);
    EXPECT_TRUE(result) << name << ": " << error;
    return result.value_or(T{});
}
inline SampleSeason published(const std::string &year)
{
    return parsed(year + ".saison", parseSampleSeason);
}

// Careers by name, from the published lists and race results alone.
class PublishedCareers {
public:
    PublishedCareers()
    {
        for (const SampleCareer &career : parsed("carrieres.txt", parseSampleCareers))
            m_careers[career.name] = career;
    }
    void race(const SampleSeason &season)
    {
        for (auto &[name, career] : m_careers)
            career.starts += static_cast<int>(season.races.size()); // a race counts for everybody
        for (const SampleRace &race : season.races) {
            ++m_careers[race.pole].poles;
            for (std::size_t i = 0; i < race.finish.size(); ++i) {
                SampleCareer &career = m_careers[race.finish[i]];
                career.wins += i == 0;
                career.podiums += i < 3;
                career.points = std::to_string(std::stoi("0" + career.points) + std::stoi(season.scale[i]));
            }
        }
    }
    const SampleCareer &of(const std::string &name) { return m_careers[name]; }
    std::string line(const std::string &name)
    {
        const SampleCareer &career = of(name);
        return std::to_string(career.starts) + " GP, " + std::to_string(career.wins) + " wins, " +
            std::to_string(career.poles) + " poles, " + std::to_string(career.podiums) + " podiums, " + career.points;
    }

private:
    std::map<std::string, SampleCareer> m_careers;
};

// The same of a driver as his season's file keeps it.
inline std::string careerLine(const Season &season, int number)
{
    const auto total = [&](const char *key) { return season.driver(key, number); };
    return total("nbgp") + " GP, " + total("vic") + " wins, " + total("pol") + " poles, " + total("podiums") +
        " podiums, " + total("ptstot");
}

// The final table of a championship, "DRIVER" or "TEAM", best first.
struct TableRow {
    std::string name, points, wins;
};

inline std::vector<TableRow> officialTable(const std::string &year, const std::string &championship)
{
    std::vector<TableRow> table;
    for (const std::string &line : linesOf(CIRCUIDEX_TESTDATA "/" + year + ".standings.tsv"))
        if (const Lines row = split(line, '\t'); row[0] == championship)
            table.push_back({row[2], row[3], row[4]});
    return table;
}

// The keys of a file as any reader of such files finds them, "[section] key" and value.
using Keys = std::map<std::string, std::string>;

inline Keys keysOf(const std::filesystem::path &file)
{
    Keys keys;
    std::string section;
    std::istringstream in(toUtf8(content(file)));
    for (std::string line; std::getline(in, line);) {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        if (line.starts_with("["))
            section = line + " ";
        else if (const auto equals = line.find('='); equals != std::string::npos)
            keys.emplace(section + line.substr(0, equals), line.substr(equals + 1));
    }
    return keys;
}

// "vic5: 7 > 8" for every key whose value differs, in order; "-" for an empty or missing one. The section is told where
// the key alone wouldn't say it.
inline Lines changes(const Keys &before, const Keys &after)
{
    Keys all = before;
    all.insert(after.begin(), after.end());
    const auto value = [](const Keys &keys, const std::string &key) {
        const auto found = keys.find(key);
        return found == keys.end() || found->second.empty() ? "-" : found->second;
    };
    Lines lines;
    for (const auto &[key, unused] : all)
        if (const std::string was = value(before, key), is = value(after, key); was != is) {
            const bool plain = key.starts_with("[N°] ") || key.starts_with("[gp] ") || key.starts_with("[podium] ");
            lines.push_back((plain ? key.substr(key.find(' ') + 1) : key) + ": " + was + " > " + is);
        }
    std::sort(lines.begin(), lines.end());
    return lines;
}

// The same typed in a test, separated by semicolons, in any order.
inline Lines sorted(Lines all)
{
    std::sort(all.begin(), all.end());
    return all;
}
inline Lines lines(const std::string &text)
{
    return sorted(split(text, ';'));
}

// Takes the lines with this text out of the list.
inline Lines take(Lines &lines, const std::string &text)
{
    Lines taken;
    std::erase_if(lines, [&](const std::string &line) {
        const bool wanted = line.find(text) != std::string::npos;
        if (wanted)
            taken.push_back(line);
        return wanted;
    });
    return taken;
}

class QueuedDialogs : public Dialogs {
public:
    void message(const std::string &text) override { said.push_back(text); }
    bool question(const std::string &text) override
    {
        said.push_back(text);
        return next().has_value();
    }
    std::optional<std::string> chooseFile(const std::string &, const std::string &, const std::string &) override { return next(); }

    Lines said;
    std::deque<std::string> answers; // none left: No, and no file

private:
    std::optional<std::string> next()
    {
        if (answers.empty())
            return std::nullopt;
        std::string answer = answers.front();
        answers.pop_front();
        return answer;
    }
};

class Desk {
public:
    enum Filled { empty, sample };

    explicit Desk(Filled filled = sample, char decimalSeparator = '.', Surroundings surroundings = {})
        : store(prepared(folder, filled), Numbers(decimalSeparator)), main(store, dialogs, std::move(surroundings))
    {
        main.an.set("2005");
    }

    // "2005 [N°] vic5=7"
    void write(const std::string &line)
    {
        const auto [stem, section, key] = parts(line.substr(0, line.find('=')));
        store.EcrireINI(stem, section, key, line.substr(line.find('=') + 1));
    }
    std::string read(const std::string &line) const
    {
        const auto [stem, section, key] = parts(line);
        return store.LireINI(stem, section, key);
    }

    // The main screen as the user leaves it: the numbers of places 1 to 8, "-" for nobody.
    void enter(int slot, const std::string &gpName, const std::string &places, const std::string &pole)
    {
        main.Label40.set(std::to_string(slot));
        main.gp.set(gpName);
        const Lines numbers = split(places, ' ');
        for (int place = 1; place <= classifiedPlaces; ++place)
            main.number(place).set(numbers.at(static_cast<std::size_t>(place - 1)));
        main.Text39.set(pole);
    }

    // The cursor on a slot, its Grand Prix on show.
    void show(int slot)
    {
        main.Label40.set(std::to_string(slot - 1));
        nextGrandPrix(main);
    }

    Keys keys(const std::string &stem) const { return keysOf(folder / ("f1" + stem + ".ini")); }

    TemporaryFolder folder;
    QueuedDialogs dialogs;
    Store store;
    MainRecord main;

private:
    static std::filesystem::path prepared(const TemporaryFolder &folder, Filled filled)
    {
        if (filled == sample)
            std::filesystem::copy(CIRCUIDEX_SAMPLE, folder.path());
        return folder.path();
    }
    static std::array<std::string, 3> parts(const std::string &line)
    {
        const auto open = line.find(" ["), close = line.find("] ");
        return {line.substr(0, open), line.substr(open + 2, close - open - 2), line.substr(close + 2)};
    }
};

}
