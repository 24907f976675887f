// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/known_names.h"

#include "results/team_list.h"
#include "store/gp_list.h"
#include "store/names.h"
#include "store/text.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <set>

namespace circuidex::results {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t mostSeasons = 40;
constexpr int listRows = 22; // of an all-time list in the archive
constexpr std::size_t longestHeard = 60; // a longer text is no slip of a name

// Keeps the order in which names were met.
class Collector {
public:
    explicit Collector(std::vector<std::string> &names) : m_names(names) { }
    void take(std::string name)
    {
        if (!name.empty() && name != keys::Aucune && m_seen.insert(name).second)
            m_names.push_back(std::move(name));
    }

private:
    std::vector<std::string> &m_names;
    std::set<std::string> m_seen;
};

// The years of the folder's seasons, the nearest to this one first.
std::vector<std::string> seasonsBy(const Season &season)
{
    std::vector<std::string> years;
    std::error_code error;
    for (fs::directory_iterator at(season.store().folder(), error), end; !error && at != end; at.increment(error)) {
        const std::string name = at->path().filename().string();
        if (name.size() == 10 && folded(name).starts_with("f1") && folded(name).ends_with(".ini") &&
            isYear(name.substr(2, 4)) && name.substr(2, 4) != season.stem())
            years.push_back(name.substr(2, 4));
    }
    const int own = season.numbers().whole(season.stem(), 0, 9999).value_or(0);
    const auto far = [own](const std::string &year) { return std::abs(std::stoi(year) - own); };
    std::ranges::sort(years, [&](const auto &a, const auto &b) { return std::pair(far(a), b) < std::pair(far(b), a); });
    years.resize(std::min(years.size(), mostSeasons));
    return years;
}

struct Collectors {
    Collector grandsPrix, drivers, teams;
};

void takeSeason(Collectors &to, const Season &season)
{
    for (int slot = 0; slot < gpSlots; ++slot)
        to.grandsPrix.take(season.namegp(slot));
    for (std::string &name : driversOf(season))
        to.drivers.take(std::move(name));
    for (std::string &team : teamsNamed(season, 1, driverSlots))
        to.teams.take(std::move(team));
}

void takeArchive(Collectors &to, const Store &store, const std::vector<std::string> &years)
{
    for (std::string &name : gpList(store)) {
        to.drivers.take(store.LireINI(keys::ARCHIVES, keys::GP, keys::lastWinner(name)));
        to.grandsPrix.take(std::move(name));
    }
    for (const std::string &year : years)
        to.drivers.take(store.LireINI(keys::ARCHIVES, keys::GP, keys::champion(year)));
    for (const std::string_view list : {"nompol", "nomvic", "nompts"})
        for (int row = 0; row < listRows; ++row)
            to.drivers.take(store.LireINI(keys::ARCHIVES, keys::records, keys::record(list, row)));
}

// The letter that a character of UTF-8 beyond ASCII is heard as; 0 for none.
char letterOf(unsigned first, unsigned second)
{
    constexpr std::string_view latin = "aaaaaaaceeeeiiiidnooooo ouuuuyts"; // À to ß, and à to ÿ but for the last
    if (first == 0xC3 && second >= 0x80)
        return second == 0xBF ? 'y' : latin[(second - 0x80) % latin.size()];
    if (first == 0xC5)
        return second == 0x92 || second == 0x93 ? 'o'
            : second == 0xA0 || second == 0xA1  ? 's'
            : second == 0xBD || second == 0xBE  ? 'z'
            : second == 0xB8                    ? 'y'
                                                : '\0';
    return '\0';
}

std::string figuresOf(const std::string &name)
{
    std::string figures;
    std::ranges::copy_if(name, std::back_inserter(figures), [](char c) { return c >= '0' && c <= '9'; });
    return figures;
}

// Letters put in, left out or changed, and neighbours exchanged, each counting one.
int slipsBetween(std::string_view a, std::string_view b)
{
    using Row = std::vector<int>;
    std::array<Row, 3> rows{Row(b.size() + 1), Row(b.size() + 1), Row(b.size() + 1)};
    for (std::size_t j = 0; j <= b.size(); ++j)
        rows[0][j] = static_cast<int>(j);
    for (std::size_t i = 1; i <= a.size(); ++i) {
        Row &now = rows[i % 3];
        const Row &before = rows[(i - 1) % 3], &twoBefore = rows[(i + 1) % 3];
        now[0] = static_cast<int>(i);
        for (std::size_t j = 1; j <= b.size(); ++j) {
            now[j] = std::min({before[j] + 1, now[j - 1] + 1, before[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1)});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                now[j] = std::min(now[j], twoBefore[j - 2] + 1);
        }
    }
    return rows[a.size() % 3][b.size()];
}

int slipsAllowed(std::size_t letters)
{
    return letters < 4 ? 0 : letters < 8 ? 1 : 2;
}

}

std::vector<std::string> driversOf(const Season &season)
{
    std::vector<std::string> names;
    for (int number = 1; number <= driverSlots; ++number)
        names.push_back(season.nom(number));
    return names;
}

KnownNames knownNames(const Season &season)
{
    KnownNames known;
    Collectors to{Collector(known.grandsPrix), Collector(known.drivers), Collector(known.teams)};
    takeSeason(to, season);
    const std::vector<std::string> years = seasonsBy(season);
    for (const std::string &year : years)
        takeSeason(to, Season(season.store(), year));
    takeArchive(to, season.store(), years);
    return known;
}

std::string heard(std::string_view name)
{
    std::string letters;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const unsigned c = static_cast<unsigned char>(name[i]);
        const unsigned next = i + 1 < name.size() ? static_cast<unsigned char>(name[i + 1]) : 0U;
        const char letter = c < 0x80 ? name[i] : letterOf(c, next);
        if (c == 0xCC || c == 0xCD || (c >= 0x80 && letter != '\0'))
            ++i; // an accent of its own is passed over, a letter with one has two bytes
        if (c == 0xCC || c == 0xCD)
            continue;
        if (letter == ' ' || letter == '-' || letter == '\'' || letter == '.') {
            if (!letters.empty() && letters.back() != ' ')
                letters += ' ';
        } else {
            letters += letter == '\0'            ? name[i]
                : letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32)
                                                 : letter;
        }
    }
    if (letters.ends_with(' '))
        letters.pop_back();
    return letters;
}

std::optional<std::string> knownSpelling(const std::vector<std::string> &known, std::string_view typed)
{
    const std::string wanted = heard(typed);
    if (wanted.empty() || wanted.size() > longestHeard || std::ranges::find(known, typed) != known.end())
        return std::nullopt;
    const std::string *nearest = nullptr;
    int fewest = slipsAllowed(wanted.size()) + 1;
    bool shared = false;
    for (const std::string &name : known) {
        const std::string here = heard(name);
        if (here.size() > longestHeard || figuresOf(here) != figuresOf(wanted))
            continue;
        const int slips = slipsBetween(wanted, here);
        if (slips < fewest)
            nearest = &name;
        shared = slips == fewest ? shared || fewest > 0 : slips < fewest ? false : shared;
        fewest = std::min(fewest, slips);
    }
    return nearest && !shared ? std::optional(*nearest) : std::nullopt;
}

}
