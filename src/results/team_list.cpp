// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/team_list.h"

#include <algorithm>

namespace circuidex::results {

std::vector<std::string> teamsByFirstDriver(const Season &season, int first, int last)
{
    std::vector<std::string> entries;
    for (int number = first; number <= last; ++number) {
        std::string team = season.ecurie(number);
        const bool named = std::find(entries.begin(), entries.end(), team) != entries.end();
        entries.push_back(named ? std::string() : std::move(team));
    }
    return entries;
}

std::vector<std::string> teamsNamed(const Season &season, int first, int last)
{
    std::vector<std::string> teams = teamsByFirstDriver(season, first, last);
    std::erase(teams, std::string());
    return teams;
}

std::vector<std::string> teamList(const Season &season)
{
    std::vector<std::string> teams = teamsNamed(season, 1, teamListDrivers);
    if (teams.size() > teamListTeams)
        teams.resize(teamListTeams);
    return teams;
}

}
