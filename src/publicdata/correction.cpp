// SPDX-License-Identifier: GPL-3.0-or-later
#include "publicdata/correction.h"

#include "publicdata/names.h"
#include "publicdata/refusals.h"
#include "publicdata/season_recording.h"
#include "results/amending.h"
#include "results/grid.h"
#include "results/navigation.h"
#include "results/simulation.h"
#include "statistics/season_statistics.h"
#include "store/history.h"
#include "store/text.h"

#include <algorithm>
#include <functional>

namespace circuidex::publicdata {

namespace {

class Correction {
public:
    Correction(Store &store, const Comparison &comparison, const Difference &difference)
        : m_store(store), m_comparison(comparison), m_difference(difference), m_season(store, comparison.year)
    {
    }

    std::string run()
    {
        if (!m_difference.correctable)
            return "Cette différence ne se corrige pas d'ici.";
        if (m_store.readOnly())
            return "Lecture seule : rien ne peut être corrigé.";
        if (const auto simulation = results::runningSimulation(m_store);
            simulation && simulation->season == m_season.stem())
            return "Une simulation est en cours dans cette saison : arrêtez-la avant de corriger.";
        const Action action(m_store, "correction de " + m_difference.subject + " " + m_season.stem());
        m_store.hold(m_season.stem());
        const std::string wrong = apply();
        const bool kept = m_store.release(m_season.stem());
        return !wrong.empty() ? wrong : kept ? "" : "La saison n'a pas conservé la correction.";
    }

private:
    std::string race() const { return m_season.namegp(m_difference.gp.value_or(0)); }

    std::string apply()
    {
        switch (m_difference.kind) {
        case DifferenceKind::driverName:
            return renameDriver();
        case DifferenceKind::raceName:
            return renameRace();
        case DifferenceKind::date:
            m_season.write(keys::gp, keys::dategp(race()), m_difference.published);
            return {};
        case DifferenceKind::grid:
            m_season.write(keys::N, keys::grilledepart(race(), m_difference.place), m_difference.published);
            return {};
        case DifferenceKind::wholeGrid:
            return enterGrid();
        case DifferenceKind::pole:
        case DifferenceKind::place:
            return amend(race(), [this](results::MainRecord &main) { setNumber(main); });
        default:
            return "Cette différence ne se corrige pas d'ici.";
        }
    }

    void setNumber(results::MainRecord &main) const
    {
        const auto driver = results::driverNamed(m_season, m_difference.published);
        const std::string number = driver && !m_difference.published.empty() ? std::to_string(*driver) : std::string();
        if (m_difference.kind == DifferenceKind::pole)
            main.Text39.set(number);
        else
            main.number(m_difference.place).set(number);
    }

    // The program's own amendment of the race as it stands, changed by `change`, under the points and with the teams
    // that it was recorded with.
    std::string amend(const std::string &name, const std::function<void(results::MainRecord &)> &change,
                      results::Amendment amendment = results::Amendment::byUser)
    {
        Refusals unasked;
        results::MainRecord main(m_store, unasked);
        main.an.set(m_season.stem());
        const int gp = *m_difference.gp;
        main.Label40.set(std::to_string(gp));
        main.gp.set(race());
        main.dat.set(m_season.read(keys::gp, keys::dategp(race())));
        results::showResult(main, m_season);
        main.gp.set(name);
        change(main);
        const std::vector<Moved> moved = backToTeamsOfThen(gp);
        const results::Scale scale = results::loadScale(m_season);
        const double share = shareCounted(m_season, m_comparison.plan.season, gp);
        if (share != 1)
            results::storeScale(m_season, timesShare(scale, share));
        const auto result = results::amendGrandPrix(main, amendment);
        if (share != 1)
            results::storeScale(m_season, scale);
        for (const Moved &driver : moved) {
            m_season.write(keys::N, driver.key, driver.today);
            sumTeam(driver.today);
            sumTeam(driver.then);
        }
        results::rebuildNogp(m_season);
        statistics::sortAllTimeLists(m_store);
        return result == results::Recording::done ? ""
            : unasked.said.empty()                ? "La course n'a pas été corrigée."
                                                  : unasked.said;
    }

    results::Scale timesShare(const results::Scale &scale, double share) const
    {
        results::Scale part = scale;
        for (int place = 1; place <= classifiedPlaces; ++place)
            if (const auto points = m_season.numbers().value(scale[place]))
                part[place] = m_season.numbers().text(*points * share);
        return part;
    }

    struct Moved {
        std::string key, today, then; // his team's key, and its values
    };

    // Puts drivers who changed team later back to their team of this race, for the time of the amendment.
    std::vector<Moved> backToTeamsOfThen(int gp) const
    {
        std::vector<Moved> all;
        for (const PlannedDriver &driver : m_comparison.plan.season.drivers) {
            const auto slot = m_comparison.numbers[static_cast<std::size_t>(driver.slot - 1)];
            std::string then = driver.team, last = driver.team;
            for (const PlannedMove &move : m_comparison.plan.season.moves)
                if (move.slot == driver.slot) {
                    last = move.team;
                    if (move.gp <= racePlanned(gp))
                        then = move.team;
                }
            const std::string key = keys::driver("ecurie", slot.value_or(0)), today = m_season.read(keys::N, key);
            if (!slot || then == last || plainName(today) != plainName(last))
                continue; // a team that the user gave him has his points
            all.push_back({key, today, teamInSeason(then)});
            m_season.write(keys::N, key, all.back().then);
        }
        return all;
    }

    // An earlier amendment may have left points of this race with a team that he came to later: the team's total is
    // made anew of its points by race.
    void sumTeam(const std::string &team) const
    {
        double points = 0;
        for (int gp = 0; gp < gpSlots; ++gp)
            points +=
                m_season.numbers().value(m_season.read(keys::N, keys::ecuriepts(team, std::to_string(gp)))).value_or(0);
        m_season.write(keys::N, keys::ptsecurie(team), m_season.numbers().text(points));
    }

    int racePlanned(int gp) const
    {
        const auto &gps = m_comparison.gps;
        const auto found = std::ranges::find(gps, std::optional(gp));
        return found == gps.end() ? gp : static_cast<int>(found - gps.begin());
    }

    std::string teamInSeason(const std::string &published) const
    {
        for (const std::string &team : results::teams(m_season))
            if (plainName(team) == plainName(published))
                return team;
        return published;
    }

    std::string enterGrid()
    {
        const PlannedRace &planned =
            m_comparison.plan.season.races[static_cast<std::size_t>(racePlanned(*m_difference.gp))];
        results::Grid grid{planned.grid};
        for (int place = 1; place <= gridPlaces; ++place)
            grid[place] = m_comparison.nameInSeason(m_season, grid[place]);
        results::storeGrid(m_season, race(), grid);
        return {};
    }

    // The name stands in the grids and before the seasons of his career too.
    std::string renameDriver()
    {
        const std::string held = m_difference.held, name = m_difference.published;
        if (results::driverNamed(m_season, name))
            return "Un autre pilote porte déjà le nom " + inQuotes(name) + ".";
        m_season.write(keys::N, keys::driver("nom", m_difference.slot), name);
        if (results::careerSeasons(m_season, name).empty())
            results::storeCareerSeasons(m_season, name, results::careerSeasons(m_season, held));
        for (int gp = 0; gp < gpSlots; ++gp)
            for (int place = 1; place <= gridPlaces; ++place)
                if (const std::string name_ = m_season.namegp(gp); m_season.grille(place, name_) == held)
                    m_season.write(keys::N, keys::grilledepart(name_, place), name);
        return {};
    }

    // Grid, date and result go with the name.
    std::string renameRace()
    {
        const std::string held = race(), name = m_difference.published;
        if (folded(held) == folded(name)) {
            m_season.write(keys::gp, keys::namegp(*m_difference.gp), name); // all else is found by either
            return {};
        }
        if (results::hasResult(m_season, name))
            return "Une autre course porte déjà le nom " + inQuotes(name) + ".";
        const results::Grid grid = results::loadGrid(m_season, held);
        const std::string date = m_season.read(keys::gp, keys::dategp(held));
        const std::string wrong = amend(
            name, [](results::MainRecord &) {}, results::Amendment::byProgram);
        if (!wrong.empty())
            return wrong;
        results::storeGrid(m_season, name, grid);
        results::storeGrid(m_season, held, {});
        m_season.write(keys::gp, keys::dategp(name), date);
        m_season.write(keys::gp, keys::dategp(held), "");
        return {};
    }

    Store &m_store;
    const Comparison &m_comparison;
    const Difference &m_difference;
    const WritableSeason m_season;
};

}

std::string correct(Store &store, const Comparison &comparison, const Difference &difference)
{
    return Correction(store, comparison, difference).run();
}

}
