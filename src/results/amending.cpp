#include "results/amending.h"

#include "results/navigation.h"
#include "results/recording.h"

namespace circuidex::results {

namespace {

void clearGrid(const WritableSeason &season, std::string_view gpName)
{
    for (int place = 1; place <= gridPlaces; ++place)
        season.write(keys::N, keys::grilledepart(gpName, place), "");
}

void clearPlaces(const WritableSeason &season, std::string_view gpName)
{
    for (int place = 1; place <= classifiedPlaces; ++place)
        season.write(keys::podiums, keys::podium(place, gpName), "");
    season.write(keys::podiums, keys::rem(gpName), "");
}

// The fields hold the stored result; what they show afterwards is the caller's affair.
void takeBack(RaceFields &fields, const WritableSeason &season, const Scale &scale)
{
    season.subtractFromZero(keys::gp, "nogp", "1");
    countStarts(season, Count::takeBack);
    clearPlaces(season, fields.gp.text());
    countTeams(fields, season, scale, Count::takeBack);
    countPole(fields, season, Count::takeBack);
    fields.Text39.set("");
    season.write(keys::N, keys::pol(fields.gp.text()), "");
    countDrivers(fields, season, scale, Count::takeBack);
}

// Once round to the same slot: the fields show what is stored there.
void showSlotAgain(MainRecord &main)
{
    nextGrandPrix(main);
    previousGrandPrix(main);
}

}

bool cancelGrandPrix(MainRecord &main)
{
    const WritableSeason season = main.writableSeason();
    if (!hasResult(season, season.read(keys::gp, keys::namegp(main.Label40.text()))))
        return false;
    showSlotAgain(main);
    clearGrid(season, main.gp.text());
    resetTeamPoints(season, main.Label40.text(), "");
    main.refreshScale();
    takeBack(main, season, main.scale());
    showSlotAgain(main);
    return true;
}

void subtractResult(const WritableSeason &season, std::string_view slot, const Scale &scale)
{
    RaceFields stored;
    stored.gp.set(season.read(keys::gp, keys::namegp(slot)));
    showResult(stored, season);
    resetTeamPoints(season, slot, "0");
    takeBack(stored, season, scale);
}

void amendGrandPrix(MainRecord &main, Amendment amendment)
{
    const WritableSeason season = main.writableSeason();
    resetTeamPoints(season, main.Label40.text(), "0");
    if (amendment == Amendment::byUser && !hasResult(season, main.gp.text()))
        countStarts(season, Count::add);
    main.refreshScale();
    subtractResult(season, main.Label40.text(), main.scale());
    enterResult(main);
    proposeRecords(main);
}

}
