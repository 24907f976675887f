// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/race_fields.h"

#include "results/team_list.h"

namespace circuidex::results {

namespace {

constexpr int lastKeptSlot = 29;

void store(const WritableSeason &season, std::string_view section, const std::string &key, const std::string &text)
{
    if (!text.empty() || !season.read(section, key).empty())
        season.write(section, key, text);
}

void count(const WritableSeason &season, std::string_view key, std::string_view amount, Count direction)
{
    if (direction == Count::add)
        season.add(keys::N, key, amount);
    else
        season.subtract(keys::N, key, amount);
}

void countFromZero(const WritableSeason &season, std::string_view key, std::string_view amount, Count direction)
{
    if (direction == Count::add)
        season.addFromZero(keys::N, key, amount);
    else
        season.subtractFromZero(keys::N, key, amount);
}

}

void storeRemark(const WritableSeason &season, std::string_view gpName, const std::string &remark)
{
    store(season, keys::podiums, keys::rem(gpName), remark);
}

void storePole(const WritableSeason &season, std::string_view gpName, const std::string &driver)
{
    store(season, keys::N, keys::pol(gpName), driver);
}

void showResult(RaceFields &fields, const Season &season)
{
    const std::string &gpName = fields.gp.text();
    for (int place = 1; place <= classifiedPlaces; ++place)
        fields.number(place).set(season.podium(place, gpName));
    fields.Text41.set(season.read(keys::podiums, keys::rem(gpName)));
    fields.Text39.set(season.read(keys::N, keys::pol(gpName)));
    for (int place = 1; place <= classifiedPlaces; ++place)
        fields.name(place).set(season.nom(fields.number(place).text()));
}

void countTeams(RaceFields &fields, const WritableSeason &season, const Scale &scale, Count direction)
{
    for (int place = 1; place <= classifiedPlaces; ++place) {
        const std::string team = season.ecurie(fields.number(place).text());
        if (!team.empty())
            countFromZero(season, keys::ptsecurie(team), scale[place], direction);
    }
}

void countPole(RaceFields &fields, const WritableSeason &season, Count direction)
{
    count(season, keys::driver("pol", fields.Text39.text()), "1", direction);
}

void countDrivers(RaceFields &fields, const WritableSeason &season, const Scale &scale, Count direction)
{
    for (int place = 1; place <= classifiedPlaces; ++place) {
        const std::string number = fields.number(place).text();
        const std::string &points = scale[place];
        fields.name(place).set(season.nom(number));
        count(season, keys::driver("nbpts", number), points, direction);
        count(season, keys::driver("ptstot", number), points, direction);
        if (place == 1)
            count(season, keys::driver("vic", number), "1", direction);
        if (place <= 3)
            count(season, keys::driver("podiums", number), "1", direction);
    }
}

void countStarts(const WritableSeason &season, Count direction)
{
    for (int slot = 1; slot <= driverSlots; ++slot)
        countFromZero(season, keys::driver("nbgp", slot), "1", direction);
}

std::vector<std::string> teams(const Season &season)
{
    return teamsNamed(season, 0, lastKeptSlot);
}

void clearTeamlessPoints(const WritableSeason &season)
{
    season.write(keys::N, keys::ptsecurie({}), "0");
}

void resetTeamPoints(const WritableSeason &season, std::string_view slot, std::string_view text)
{
    for (const std::string &team : teams(season))
        season.write(keys::N, keys::ecuriepts(team, slot), text);
}

}
