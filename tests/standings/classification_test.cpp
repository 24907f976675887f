// SPDX-License-Identifier: GPL-3.0-or-later
#include "standings/classification.h"

#include "results/season_fixture.h"
#include "standings/tone_text.h"

using namespace circuidex;
using namespace circuidex::standings;
using namespace circuidex::test;

namespace {

TEST(Tones, FollowTheSign)
{
    const Numbers french(',');
    Lines all;
    for (const std::optional<double> gained :
         {std::optional(3.0), std::optional(-3.0), std::optional(0.0), std::optional(2.5), std::optional<double>()})
        all.push_back(shown(toned(gained, french)));
    EXPECT_EQ(all, (Lines{"+3^", "-3v", "=~", "+2,5^", "-"}));
}

class Classification : public testing::Test {
protected:
    WritableSeason season(const std::string &year) { return WritableSeason(desk.store, year); }
    std::string placeOf(Stage stage, const std::string &driver, std::size_t slot)
    {
        return placesOfDriver(season("2003"), stage, driver)[slot].place;
    }
    std::string holder(Stage stage, const std::string &place, std::size_t slot, const std::string &year = "2003")
    {
        const auto number = placeIn(place, stage, desk.store.numbers());
        const RaceWinner race = holdersOfPlace(season(year), year, stage, number).races[slot];
        return race.gp + "|" + race.winner + "|" + race.team;
    }
    Desk desk;
};

TEST_F(Classification, TellsTheRacesOfADriver)
{
    EXPECT_EQ(placeOf(Stage::finish, "Michael Schumacher", 0), " 4 : Quatrième");
    EXPECT_EQ(placeOf(Stage::finish, "Michael Schumacher", 2), " X : Inconnu");
    EXPECT_EQ(placeOf(Stage::grid, "Michael Schumacher", 15), " 14 : Quatorzième");
    EXPECT_EQ(placeOf(Stage::grid, "Michael Schumacher", 16), "") << "no race";
    for (const char *nobody : {"Juan Manuel Fangio", ""})
        EXPECT_EQ(placeOf(Stage::finish, nobody, 0), " X : Inconnu");
    EXPECT_EQ(placesOfDriver(season("1949"), Stage::grid, "Jarno Trulli")[0].place, "");
}

// The same man under two numbers, and at two places of one race; the last place of the grid and of the finish.
TEST_F(Classification, KeepsTheLimitsOfPlaces)
{
    desk.write("2003 [N°] nom26=David Coulthard");
    desk.write("2003 [podium] podium8Australie=26");
    desk.write("2003 [podium] podium9Australie=1");
    desk.write("2003 [N°] Australiegrilledepart24=David Coulthard");
    desk.write("2003 [N°] Australiegrilledepart25=Jarno Trulli");
    EXPECT_EQ(placeOf(Stage::finish, "David Coulthard", 0), " 8 : Huitième");
    EXPECT_EQ(placeOf(Stage::grid, "David Coulthard", 0), " 26 : Vingt-sixième");
    const RacePlaces race = racePlaces(season("2003"), "Australie");
    EXPECT_EQ(race.of("David Coulthard", Match::first).finish, 1);
    EXPECT_EQ(race.of("David Coulthard", Match::last).finish, 8);

    EXPECT_EQ(holder(Stage::grid, "26", 0), "Australie|David Coulthard|McLaren");
    EXPECT_EQ(holder(Stage::finish, "8", 0), "Australie|David Coulthard|") << "26 has no team";
    for (const char *none : {"9", "0", "1.5", "abc", ""})
        EXPECT_EQ(holder(Stage::finish, none, 0), "Australie||") << none;
}

TEST_F(Classification, TellsWhoHeldAPlace)
{
    for (const std::string year : {"2003", "2004"}) {
        const SampleSeason facts = published(year);
        for (int place = 1; place <= classifiedPlaces; ++place) {
            const SeasonWinners holders = holdersOfPlace(season(year), year, Stage::finish, place);
            for (std::size_t slot = 0; slot < facts.races.size(); ++slot)
                EXPECT_EQ(holders.races[slot].winner, facts.races[slot].finish[static_cast<std::size_t>(place - 1)]);
            EXPECT_EQ(holders.champion, "Michael Schumacher");
        }
        const auto pole = holdersOfPlace(season(year), year, Stage::grid, 1).races;
        for (std::size_t slot = 0; slot < facts.races.size(); ++slot)
            EXPECT_EQ(pole[slot].winner, facts.races[slot].pole);
    }
    EXPECT_EQ(published("2005").races[8].pole, "Jarno Trulli");
    EXPECT_EQ(holder(Stage::grid, "1", 8, "2005"), "Etats-unis||") << "he didn't start";
    EXPECT_EQ(holder(Stage::grid, "1", 9, "2005"), "France|Fernando Alonso|Renault");
}

TEST_F(Classification, ShowsAStrangerBesideTheTeamBefore)
{
    desk.write("2003 [N°] Malaisiegrilledepart-1=Juan Manuel Fangio");
    desk.write("2003 [N°] ecurie2=Aucune");
    EXPECT_EQ(holder(Stage::grid, "1", 0), "Australie|Michael Schumacher|Ferrari");
    EXPECT_EQ(holder(Stage::grid, "1", 1), "Malaisie|Juan Manuel Fangio|Ferrari");
    EXPECT_EQ(holder(Stage::grid, "1", 2), "Brésil|Rubens Barrichello|");
}

// Season, champion, first driver: a typed year changes the champion at once, the rows when it is opened again.
TEST_F(Classification, FollowsATypedYearWithALag)
{
    LaggingYear year("2004");
    const auto opened = [&] {
        const SeasonWinners holders = year.open(desk.store, Stage::finish, "2");
        return holders.races[0].gp + "|" + holders.races[0].winner + "|" + holders.champion;
    };
    const auto stepped = [&](int by) {
        year.step(by, desk.store.numbers());
        return opened();
    };
    EXPECT_EQ(opened(), "Australie|Rubens Barrichello|Michael Schumacher");
    year.typed.set("1988");
    EXPECT_EQ(opened(), "Australie|Rubens Barrichello|Ayrton Senna");
    for (const std::string past : {"1988", "1992"}) { // from a year without a file to another there is no lag
        year.typed.set(past);
        const RaceWinner first = seasonWinners(season(past), past).races[0];
        EXPECT_FALSE(first.winner.empty());
        const std::string shown = opened();
        EXPECT_EQ(shown.substr(0, shown.rfind('|')), first.gp + "|" + first.winner) << "whatever the place";
    }
    year.typed.set("2003");
    opened();
    EXPECT_EQ(stepped(1), "Australie|Rubens Barrichello|Michael Schumacher");
    EXPECT_EQ(year.shown.text(), "2004");
    EXPECT_EQ(stepped(-1), "Australie|Juan Pablo Montoya|Michael Schumacher");
    year.typed.set("abc");
    opened();
    stepped(1);
    EXPECT_EQ(year.typed.text(), "abc");
}

TEST_F(Classification, ListsTheRacesOfManySeasons)
{
    PlaceQuestion question{Stage::finish, "Michael Schumacher", "1", "2003", "2005"};
    Lines wins, poles;
    for (const std::string year : {"2005", "2004", "2003"})
        for (const SampleRace &race : published(year).races) {
            if (race.finish[0] == question.driver)
                wins.push_back(race.name + " - " + year);
            if (race.grid[0] == question.driver)
                poles.push_back(race.name + " - " + year);
        }
    const auto list = racesAtPlace(desk.store, question);
    EXPECT_EQ(list->races, wins);
    EXPECT_EQ(list->races.size(), 20u);
    EXPECT_EQ(list->sentence, "Liste des GP ou Michael Schumacher a été classé N°1 à l'arrivée :");
    question.firstYear = "2004";
    EXPECT_EQ(racesAtPlace(desk.store, question)->races.back(), "Japon - 2004");
    question.firstYear = "2003";
    question.stage = Stage::grid;
    EXPECT_EQ(racesAtPlace(desk.store, question)->races, poles);
    question = {Stage::finish, "Michael Schumacher", "1", "2006", "2005"};
    EXPECT_EQ(racesAtPlace(desk.store, question)->races, Lines{"Etats-unis - 2005"}) << "the last year in any case";
    EXPECT_EQ(racesAtPlace(desk.store, {Stage::grid, "Michel Vaillant", "26", "2003", "2005"})->sentence,
              "Liste des GP ou Michel Vaillant a été classé N°26 sur la grille de départ :");
    EXPECT_FALSE(racesAtPlace(desk.store, {Stage::grid, "", "1", "2003", "2005"}));
    for (const auto &[first, last] : {std::pair("", "2005"), std::pair("1", "99999999"), std::pair("2003", "abc")})
        EXPECT_EQ(racesAtPlace(desk.store, {Stage::grid, "Nobody", "1", first, last})->races, Lines());
}

TEST(RacesOfManySeasons, AreAtMost140AndCountTwoSlotsMore)
{
    Desk desk(Desk::empty);
    for (int year = 1990; year <= 1999; ++year)
        for (int slot = 0; slot < 23; ++slot) {
            const std::string stem = std::to_string(year), number = std::to_string(slot);
            desk.write(stem + " [gp] namegp" + number + "=G" + number);
            desk.write(stem + " [N°] G" + number + "grilledepart24=A");
        }
    const auto races = racesAtPlace(desk.store, {Stage::grid, "A", "26", "1990", "1999"})->races;
    ASSERT_EQ(races.size(), 140u);
    EXPECT_EQ(races[21], "G21 - 1999");
    EXPECT_EQ(races[22], "G0 - 1998");
}

}
