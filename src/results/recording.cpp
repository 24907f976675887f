#include "results/recording.h"

#include "store/archive.h"
#include "store/history.h"

namespace circuidex::results {

namespace {

bool refused(MainRecord &main)
{
    if (main.gp.empty()) {
        main.dialogs.message("Entrez le nom du grand prix");
        return true;
    }
    if (hasResult(main.season(), main.gp.text())) {
        main.dialogs.message("Le grand prix est déja enregistré. Pour pouvoir le modifier cliquez sur le bouton "
                             "'Enregistrer Modifications'.");
        return true;
    }
    return false;
}

void enterCalendar(const WritableSeason &season, const MainRecord &main)
{
    if (const auto recorded = season.numbers().sum(main.Label40.text(), "1"))
        season.write(keys::gp, "nogp", *recorded);
    season.write(keys::gp, keys::namegp(std::string_view(main.Label40.text())), main.gp.text());
}

void enterPlaces(const WritableSeason &season, MainRecord &main)
{
    for (int place = 1; place <= classifiedPlaces; ++place)
        season.write(keys::podiums, keys::podium(place, main.gp.text()), main.number(place).text());
    storeRemark(season, main.gp.text(), main.Text41.text());
}

// The points of this race alone, by team.
void enterTeamPoints(const WritableSeason &season, MainRecord &main, const Scale &scale)
{
    for (int place = 1; place <= classifiedPlaces; ++place) {
        const std::string team = season.ecurie(main.number(place).text());
        season.add(keys::N, keys::ecuriepts(team, main.Label40.text()), scale[place]);
    }
}

}

ActionOnSeason::ActionOnSeason(MainRecord &main)
    : m_main(main), m_stem(main.season().stem()), m_lost(main.store.lostWrites(m_stem))
{
    main.overwritten.clear();
}

bool ActionOnSeason::end(const std::string &action)
{
    constexpr std::string_view warning = "Attention : ";
    m_main.store.flush();
    const bool kept = m_main.store.lostWrites(m_stem) == m_lost;
    if (!kept)
        m_main.Label11.set(std::string(warning) + "la saison n'a pas conservé " + action + " en entier !");
    else if (m_main.Label11.text().starts_with(warning))
        m_main.Label11.set("");
    return kept;
}

bool hasResult(const Season &season, std::string_view gpName)
{
    for (int place = 1; place <= classifiedPlaces; ++place)
        if (!season.podium(place, gpName).empty())
            return true;
    return false;
}

void enterResult(MainRecord &main)
{
    const WritableSeason season = main.writableSeason();
    const Scale scale = main.scale();
    enterCalendar(season, main);
    countStarts(season, Count::add);
    enterPlaces(season, main);
    countTeams(main, season, scale, Count::add);
    enterTeamPoints(season, main, scale);
    countPole(main, season, Count::add);
    storePole(season, main.gp.text(), main.Text39.text());
    countDrivers(main, season, scale, Count::add);
}

void proposeRecords(MainRecord &main)
{
    const Season season = main.season();
    main.pol.set(season.driver("pol", main.Text39.text()));
    main.vic.set(season.driver("vic", main.number(1).text()));
    main.pts.set(season.driver("ptstot", main.number(1).text()));
    main.lblrec.set(season.nom(main.Text39.text()));
    const std::string winner = main.name(1).text();
    archiveCandidates(main.store, {main.lblrec.text(), main.pol.text(), winner, main.vic.text(), main.pts.text()});
}

Recording recordSimulatedGrandPrix(MainRecord &main)
{
    if (!main.enterGrandPrix())
        return Recording::refused;
    const Action undoable(main.store, main.actionOnRace("enregistrement"));
    ActionOnSeason action(main);
    const WritableSeason season = main.writableSeason();
    season.write(keys::gp, keys::dategp(main.gp.text()), main.dat.text());
    main.refreshScale();
    if (refused(main))
        return Recording::refused;
    resetTeamPoints(season, main.Label40.text(), "0");
    enterResult(main);
    return action.end("le Grand Prix") ? Recording::done : Recording::lost;
}

Recording recordGrandPrix(MainRecord &main)
{
    const Action undoable(main.store, main.actionOnRace("enregistrement"));
    const Recording recording = recordSimulatedGrandPrix(main);
    if (recording != Recording::done)
        return recording;
    const unsigned lost = main.store.lostWrites(keys::ARCHIVES);
    archiveWinner(main.store, main.gp.text(), main.an.text(), main.name(1).text());
    proposeRecords(main);
    main.store.flush();
    const bool archived = main.store.lostWrites(keys::ARCHIVES) == lost;
    main.Label11.set(archived ? "Grand prix enregistré!"
                              : "Attention : Grand prix enregistré, mais pas dans les archives !");
    return Recording::done;
}

bool mayStartAssistant(MainRecord &main)
{
    if (!main.enterGrandPrix())
        return false;
    if (!hasResult(main.season(), main.gp.text()))
        return true;
    main.dialogs.message("Le grand prix est déja enregistré. Pour accéder au nouveau GP, cliquez sur ''Nouveau GP'' sur "
                         "la page principale, autrement, utilisez la commande ''Enregistrer modifications'' pour "
                         "modifier le GP");
    return false;
}

}
