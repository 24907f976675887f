// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/entry_warnings.h"

#include "results/place_words.h"
#include "results/recording.h"
#include "store/names.h"

#include <algorithm>
#include <map>

namespace circuidex::results {

namespace {

// What stands where, in the order of first mention.
class Mentions {
public:
    void note(const std::string &what, std::string where)
    {
        if (what.empty())
            return;
        std::vector<std::string> &places = m_places[what];
        if (places.empty())
            m_order.push_back(what);
        places.push_back(std::move(where));
    }
    template <class Tell>
    void each(Tell tell) const
    {
        for (const std::string &what : m_order)
            tell(what, m_places.at(what));
    }

private:
    std::vector<std::string> m_order;
    std::map<std::string, std::vector<std::string>> m_places;
};

std::string listed(const std::vector<std::string> &words)
{
    std::string text;
    for (std::size_t i = 0; i < words.size(); ++i)
        text += (i == 0 ? "" : i + 1 == words.size() ? " et " : ", ") + words[i];
    return text;
}

std::string times(std::size_t count)
{
    return count == 2 ? "deux fois" : std::to_string(count) + " fois";
}

std::string twice(const std::string &who, const std::vector<std::string> &places)
{
    return who + " " + times(places.size()) + " : " + listed(places);
}

bool held(const RaceFields &entry)
{
    for (int place = 1; place <= classifiedPlaces; ++place)
        if (!entry.Text1to8[place].empty())
            return true;
    return false;
}

}

Warnings raceWarnings(const RaceFields &entry, const Season &season, std::string_view gpOnShow)
{
    Mentions drivers, numbers;
    for (int place = 1; place <= classifiedPlaces; ++place) {
        const std::string &number = entry.Text1to8[place].text();
        (season.nom(number).empty() ? numbers : drivers).note(number, placeWord(place));
    }
    const std::string &pole = entry.Text39.text();
    if (season.nom(pole).empty())
        numbers.note(pole, "pole");
    Warnings found;
    drivers.each([&](const std::string &number, const auto &places) {
        if (places.size() > 1)
            found.push_back(twice(season.nom(number), places));
    });
    numbers.each([&](const std::string &number, const auto &places) {
        found.push_back("Personne n'a le n° " + inQuotes(number) + " (" + listed(places) + ")");
    });
    if (held(entry) && pole.empty())
        found.push_back("Pas de pole-position");
    if (hasResult(season, gpOnShow) && season.read(keys::gp, keys::dategp(gpOnShow)) != entry.dat.text())
        found.push_back("La date d'une course enregistrée se change dans le calendrier");
    return found;
}

Warnings gridWarnings(const Grid &grid, const Season &season)
{
    Mentions names;
    for (int place = 1; place <= gridPlaces; ++place)
        names.note(grid[place], placeWord(place));
    Warnings found;
    names.each([&](const std::string &name, const auto &places) {
        if (places.size() > 1)
            found.push_back(twice(name, places));
    });
    names.each([&](const std::string &name, const auto &places) {
        if (!driverNamed(season, name))
            found.push_back(inQuotes(name) + " ne court pas cette saison (" + listed(places) + ")");
    });
    return found;
}

Warnings calendarWarnings(const Calendar &calendar, const Season &season)
{
    Mentions races;
    for (std::size_t slot = 0; slot < calendar.size(); ++slot)
        races.note(calendar[slot].name, std::to_string(slot + 1));
    Warnings found;
    races.each([&](const std::string &name, const auto &ranks) {
        if (ranks.size() > 1)
            found.push_back(twice(name, ranks));
    });
    for (std::size_t slot = 0; slot < calendar.size(); ++slot)
        if (!calendar[slot].date.empty() && !dayOf(calendar[slot].date))
            found.push_back(inQuotes(calendar[slot].date) + " n'est pas un jour (" + std::to_string(slot + 1) + ")");
    for (int slot = 0; slot < gpSlots; ++slot) {
        const std::string before = season.namegp(slot);
        if (!before.empty() && season.recorded(before) && calendar[static_cast<std::size_t>(slot)].name != before)
            found.push_back("Les points d'écurie de " + inQuotes(before) + " restent à la course " +
                            std::to_string(slot + 1));
    }
    return found;
}

std::string inOneLine(const Warnings &warnings)
{
    constexpr std::size_t shown = 2;
    std::string line;
    for (std::size_t i = 0; i < std::min(warnings.size(), shown); ++i)
        line += (i == 0 ? "" : " · ") + warnings[i];
    return warnings.size() > shown ? line + " (+" + std::to_string(warnings.size() - shown) + ")" : line;
}

}
