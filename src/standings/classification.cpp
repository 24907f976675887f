// SPDX-License-Identifier: GPL-3.0-or-later
#include "standings/classification.h"

#include "results/grid.h"

namespace circuidex::standings {

namespace {

constexpr std::array<std::string_view, gridPlaces> ordinals{
    "Premier",         "Second",       "Troisième",    "Quatrième",      "Cinquième",       "Sixième",
    "Septième",        "Huitième",     "Neuvième",     "Dixième",        "Onzième",         "Douzième",
    "Treizième",       "Quatorzième",  "Quinzième",    "Seizième",       "Dix-septième",    "Dix-huitième",
    "Dix-neuvième",    "Vingtième",    "Vingtéunième", "Vingt-deuxième", "Vingt-troisième", "Vingt-quatrième",
    "Vingt-cinquième", "Vingt-sixième"};

std::string placeText(std::optional<int> place)
{
    if (!place)
        return " X : Inconnu";
    return std::string(" ")
        .append(std::to_string(*place))
        .append(" : ")
        .append(ordinals[static_cast<std::size_t>(*place - 1)]);
}

// The number of the driver at a place. On the grid, where names are kept, the number before stays for a name that no
// driver bears.
std::string numberAt(const Season &season, Stage stage, int place, const RaceWinner &race, std::string before)
{
    if (stage == Stage::finish)
        return season.podium(place, race.gp);
    const auto number = results::driverNamed(season, race.winner);
    return number ? std::to_string(*number) : before;
}

void addRaces(std::vector<std::string> &races, const Season &season, const PlaceQuestion &question, int place)
{
    for (int slot = 0; slot < slotsRead; ++slot) {
        const std::string gp = season.namegp(slot);
        if (!gp.empty() && nameAt(season, question.stage, place, gp) == question.driver)
            races.push_back(std::string(gp).append(" - ").append(season.stem()));
    }
}

}

std::array<PlaceRow, gpSlots> placesOfDriver(const Season &season, Stage stage, std::string_view driver)
{
    const SeasonPlaces races = seasonPlaces(season);
    std::array<PlaceRow, gpSlots> rows;
    for (std::size_t slot = 0; slot < rows.size(); ++slot)
        if (const RacePlaces &race = races[slot]; !race.gp.empty())
            rows[slot] = {race.gp, placeText(race.place(stage, driver, Match::last))};
    return rows;
}

SeasonWinners holdersOfPlace(const Season &season, std::string_view year, Stage stage, std::optional<int> place)
{
    SeasonWinners holders;
    std::string number;
    int slot = 0;
    for (RaceWinner &race : holders.races) {
        race.gp = season.namegp(slot++);
        if (race.gp.empty() || !place)
            continue;
        race.winner = nameAt(season, stage, *place, race.gp);
        number = numberAt(season, stage, *place, race, std::move(number));
        if (std::string team = season.ecurie(number); !race.winner.empty() && team != keys::Aucune)
            race.team = std::move(team);
    }
    if (holders.races[0].gp.empty() && holders.races[1].gp.empty())
        addArchivedWinners(holders.races, season.store(), year);
    holders.champion = championOf(season.store(), year);
    return holders;
}

SeasonWinners LaggingYear::open(Store &store, Stage stage, std::string_view place)
{
    const Season season(store, shown.text());
    SeasonWinners holders = holdersOfPlace(season, typed.text(), stage, placeIn(place, stage, store.numbers()));
    shown.set(typed.text());
    return holders;
}

void LaggingYear::step(int by, const Numbers &numbers)
{
    for (Field *year : {&typed, &shown})
        year->set(numbers.stepped(year->text(), by));
}

std::vector<std::string> seasonsBack(const std::string &lastYear, const std::string &firstYear, const Numbers &numbers)
{
    std::vector<std::string> years;
    for (std::optional<std::string> year = lastYear; year && years.size() < longestSpan;) {
        years.push_back(*year);
        year = *year > firstYear ? numbers.difference(*year, "1") : std::nullopt;
    }
    return years;
}

std::optional<PlaceList> racesAtPlace(Store &store, const PlaceQuestion &question)
{
    if (question.driver.empty())
        return std::nullopt;
    PlaceList list;
    const auto place = placeIn(question.place, question.stage, store.numbers());
    for (const std::string &year : seasonsBack(question.lastYear, question.firstYear, store.numbers()))
        if (place && list.races.size() < listedPlaces)
            addRaces(list.races, Season(store, year), question, *place);
    list.races.resize(std::min(list.races.size(), listedPlaces));
    list.sentence = "Liste des GP ou " + question.driver + " a été classé N°" + question.place +
        (question.stage == Stage::finish ? " à l'arrivée :" : " sur la grille de départ :");
    return list;
}

}
