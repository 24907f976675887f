// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/circuits.h"

#include "results/grid.h"
#include "standings/race_places.h"
#include "store/archive.h"
#include "store/text.h"

#include <algorithm>

namespace circuidex::statistics {

namespace {

constexpr std::size_t longestDescription = 64 * 1024; // bytes

std::string descriptionNamed(const results::MainRecord &main, const std::string &name)
{
    return main.surroundings.findFile(main.folder() + "\\Photos\\descriptioncircuits\\" + name + ".txt");
}

// One race has a file name without its accent; a text under its own name serves too.
std::string descriptionFile(const results::MainRecord &main, const std::string &gpName)
{
    if (gpName.empty())
        return {};
    const std::string special = gpName == "Brésil" ? descriptionNamed(main, "bresil") : std::string();
    return special.empty() ? descriptionNamed(main, gpName) : special;
}

// What the team scored at a race; empty for a season without the race.
std::string pointsAt(const Season &season, const std::string &team, const std::string &gpName)
{
    for (int slot = 0; slot < gpSlots && !team.empty() && !gpName.empty(); ++slot)
        if (season.namegp(slot) == gpName)
            return season.read(keys::N, keys::ecuriepts(team, std::to_string(slot)));
    return {};
}

}

std::string circuitDescription(const results::MainRecord &main, const std::string &gpName)
{
    std::string bytes;
    if (const std::string path = descriptionFile(main, gpName); !path.empty())
        disk::read(path, bytes);
    bytes.resize(std::min(bytes.size(), longestDescription));
    return isText(bytes) ? itemsInLines(bytes) : std::string();
}

std::string itemsInLines(std::string_view bytes)
{
    const std::string plain = codingOf(bytes) == Coding::utf8 ? withoutUtf8(bytes) : std::string(bytes);
    std::string lines;
    for (std::string_view rest = plain; !rest.empty();) {
        const std::size_t end = std::min(rest.find_first_of(",\r\n"), rest.size());
        lines.append("\r\n").append(rest.substr(0, end));
        rest.remove_prefix(end);
        rest.remove_prefix(rest.starts_with("\r\n") ? 2 : rest.empty() ? 0 : 1);
    }
    for (char &c : lines)
        if (static_cast<unsigned char>(c) < ' ' && c != '\r' && c != '\n')
            c = ' ';
    return toUtf8(lines);
}

std::optional<CircuitRecord> recordAtCircuit(const Store &store, const std::string &driver, const std::string &gpName,
                                             const std::string &newestYear)
{
    const Season newest(store, newestYear);
    const auto number = results::driverNamed(newest, driver);
    CircuitRecord made{number ? std::to_string(*number) : "", number ? newest.ecurie(*number) : "", {}};
    int back = 0;
    for (YearAtCircuit &row : made.years) {
        const auto year = store.numbers().difference(newestYear, std::to_string(back++));
        if (!year)
            return std::nullopt;
        row.year = *year;
        row.winner = gpName.empty() ? std::string() : archivedWinner(store, gpName, *year);
        const Season season(store, *year);
        if (!results::driverNamed(season, driver))
            continue;
        const standings::DriverPlaces places = standings::racePlaces(season, gpName).of(driver, standings::Match::last);
        row.grid = standings::textOf(places.grid);
        row.finish = standings::textOf(places.finish);
        row.teamPoints = pointsAt(season, made.team, gpName);
    }
    return made;
}

}
