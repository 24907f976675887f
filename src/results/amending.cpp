#include "results/amending.h"

#include "results/navigation.h"
#include "store/history.h"
#include "store/text.h"

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
    storeRemark(season, gpName, "");
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
    storePole(season, fields.gp.text(), "");
    countDrivers(fields, season, scale, Count::takeBack);
}

// The points of the other race stay counted, so its result must be found somewhere.
void keepOtherResult(MainRecord &main, const Season &season)
{
    const std::string &gpName = main.gp.text();
    if (folded(season.read(keys::gp, keys::namegp(main.Label40.text()))) == folded(gpName) ||
        !hasResult(season, gpName))
        return;
    const std::string copy = main.store.keepCopy(season.stem());
    if (!copy.empty())
        main.overwritten = "Un autre résultat de " + inQuotes(gpName) + " est remplacé ; la saison d'avant : " + copy;
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
    ActionOnSeason action(main);
    showSlotAgain(main);
    const Action undoable(main.store, main.actionOnRace("suppression"));
    clearGrid(season, main.gp.text());
    resetTeamPoints(season, main.Label40.text(), "");
    main.refreshScale();
    takeBack(main, season, main.scale());
    showSlotAgain(main);
    action.end("la suppression");
    return true;
}

void subtractResult(const WritableSeason &season, std::string_view slot, const Scale &scale)
{
    RaceFields stored;
    stored.gp.set(season.read(keys::gp, keys::namegp(slot)));
    const Action undoable(season.store(), "suppression " + ofName(stored.gp.text()) + " " + season.stem());
    showResult(stored, season);
    resetTeamPoints(season, slot, "0");
    takeBack(stored, season, scale);
}

Recording amendGrandPrix(MainRecord &main, Amendment amendment, const std::optional<Scale> &countedAt)
{
    if (!main.enterGrandPrix())
        return Recording::refused;
    const Action undoable(main.store, main.actionOnRace("modification"));
    ActionOnSeason action(main);
    const WritableSeason season = main.writableSeason();
    keepOtherResult(main, season);
    resetTeamPoints(season, main.Label40.text(), "0");
    if (amendment == Amendment::byUser && !hasResult(season, main.gp.text()))
        countStarts(season, Count::add);
    main.refreshScale();
    subtractResult(season, main.Label40.text(), countedAt.value_or(main.scale()));
    enterResult(main);
    if (!action.end("la modification"))
        return Recording::lost;
    proposeRecords(main);
    return Recording::done;
}

}
