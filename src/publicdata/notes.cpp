#include "publicdata/notes.h"

#include "publicdata/names.h"
#include "publicdata/official_points.h"
#include "store/season.h"

#include <algorithm>
#include <functional>
#include <set>

namespace circuidex::publicdata {

namespace {

constexpr std::size_t teamsShown = 13;
constexpr std::size_t mostNamed = 6; // of those that a sentence names

// "A, B et 3 autres".
std::string listed(const std::vector<std::string> &names)
{
    std::string list;
    const std::size_t named = names.size() > mostNamed ? mostNamed - 1 : names.size();
    for (std::size_t i = 0; i < named; ++i)
        list += (i == 0 ? "" : i + 1 == names.size() ? " et " : ", ") + names[i];
    return named < names.size() ? list + " et " + std::to_string(names.size() - named) + " autres" : list;
}

class Notes {
public:
    Notes(const Data &data, const Championship &championship, const PlannedSeason &plan)
        : m_data(data), m_championship(championship), m_plan(plan), m_accounts(accountsOf(data, championship, plan))
    {
    }

    std::vector<Note> all()
    {
        races();
        drivers();
        teams();
        points(Misfit::beyondEighth, Reason::beyondEighth,
               "Les points au-delà de la huitième place ne sont pas comptés, le cadre s'arrête à huit");
        points(Misfit::sprint, Reason::sprint, "Les points des courses sprint ne sont pas comptés");
        points(Misfit::fastestLap, Reason::fastestLap, "Le point du meilleur tour n'est pas compté");
        sharedCars();
        indianapolis();
        shares();
        struckOff();
        bestResults();
        constructorRules();
        spelling();
        return std::move(m_notes);
    }

private:
    void note(Misfit kind, const std::string &sentence) { m_notes.push_back({kind, sentence + "."}); }

    const std::string &nameOf(const Race &race) const
    {
        return m_data.grandsPrix[static_cast<std::size_t>(race.grandPrix)].id;
    }
    std::string raceName(std::size_t number) const
    {
        if (number < m_plan.season.races.size())
            return m_plan.season.races[number].name;
        return frenchName(m_data.grandsPrix[static_cast<std::size_t>(m_championship.races[number].grandPrix)]);
    }
    std::string driverName(int driver) const
    {
        return nameForFiles(m_data.drivers[static_cast<std::size_t>(driver)].name);
    }

    void races()
    {
        std::vector<std::string> names;
        for (std::size_t number = gpSlots; number < m_championship.races.size(); ++number)
            names.push_back(raceName(number));
        if (!names.empty())
            note(Misfit::raceLeftOut, "Une saison a 20 courses au plus ; n'y entrent pas : " + listed(names));
    }

    void drivers()
    {
        std::set<int> met;
        std::vector<std::string> others, scorers;
        for (std::size_t number = 0; number < m_plan.season.races.size(); ++number)
            for (const Entry &entry : m_championship.races[number].entries)
                if (!m_plan.slotOf(entry.driver) && met.insert(entry.driver).second)
                    (counts(entry.driver) ? scorers : others).push_back(driverName(entry.driver));
        if (!others.empty())
            note(Misfit::driverLeftOut, "Une saison a 26 pilotes au plus ; n'y entrent pas : " + listed(others));
        if (!scorers.empty())
            note(Misfit::scorerLeftOut,
                 "N'entrent pas non plus, bien qu'ils aient été en pole, parmi les huit premiers ou aux points : " +
                     listed(scorers));
    }

    bool counts(int driver) const
    {
        return std::ranges::any_of(m_championship.races, [driver](const Race &race) {
            return std::ranges::any_of(race.entries, [driver](const Entry &entry) {
                return entry.driver == driver &&
                    (entry.points > 0 || entry.pole || entry.place.value_or(99) <= classifiedPlaces);
            });
        });
    }

    void teams()
    {
        std::set<std::string> names;
        for (const PlannedDriver &driver : m_plan.season.drivers)
            names.insert(driver.team);
        for (const PlannedMove &move : m_plan.season.moves)
            names.insert(move.team);
        if (names.size() > teamsShown)
            note(Misfit::teamsUnseen,
                 "Il y a " + std::to_string(names.size()) + " écuries ; les tableaux en montrent 13 au plus");
    }

    void points(Misfit kind, Reason reason, const std::string &sentence)
    {
        std::set<int> races;
        std::set<std::string> drivers;
        for (const Account &account : m_accounts.drivers)
            for (const Part &part : account.parts)
                if (part.reason == reason) {
                    races.insert(part.gp.value_or(-1));
                    drivers.insert(account.name);
                }
        if (!drivers.empty())
            note(kind, sentence + " (" + listed({drivers.begin(), drivers.end()}) + ")");
    }

    void sharedCars()
    {
        std::vector<std::string> names;
        for (std::size_t number = 0; number < m_championship.races.size(); ++number)
            if (std::ranges::any_of(m_championship.races[number].entries, &Entry::shared))
                names.push_back(raceName(number));
        if (!names.empty())
            note(Misfit::sharedCar,
                 "Des pilotes se sont partagé une voiture ; une place n'en garde qu'un : " + listed(names));
    }

    void indianapolis()
    {
        constexpr int lastYear = 1960; // later races there were ordinary ones
        for (const Race &race : m_championship.races)
            if (nameOf(race) == "indianapolis" && race.year <= lastYear)
                note(Misfit::indianapolis,
                     "Les 500 miles d'Indianapolis comptaient pour le championnat et s'enregistrent comme une course");
    }

    void shares()
    {
        for (const PlannedRace &race : m_plan.season.races)
            if (race.share != 1)
                note(Misfit::reducedPoints,
                     race.name + " : les points valent " + Numbers(',').text(race.share) +
                         " fois ceux du barème, la course est enregistrée ainsi");
    }

    void struckOff()
    {
        std::vector<std::string> names;
        for (const DriverPoints &each : m_championship.standings)
            if (!each.placed)
                names.push_back(driverName(each.driver));
        for (const TeamPoints &each : m_championship.teamStandings)
            if (!each.placed)
                names.push_back(nameForFiles(m_data.teams[static_cast<std::size_t>(each.team)]));
        for (const auto *list : {&m_accounts.drivers, &m_accounts.teams})
            for (const Account &account : *list)
                if (has(account, Reason::struckOff) && std::ranges::find(names, account.name) == names.end())
                    names.push_back(account.name);
        if (!names.empty())
            note(Misfit::struckOff,
                 "Rayés du classement, ou avec des points retirés ; leurs résultats restent : " + listed(names));
    }

    static bool has(const Account &account, Reason reason)
    {
        return std::ranges::any_of(account.parts, [reason](const Part &part) { return part.reason == reason; });
    }

    void bestResults()
    {
        const auto rule = bestResultsOf(m_championship);
        if (!rule)
            return;
        note(Misfit::bestResults,
             rule->split == 0
                 ? "Seuls les " + std::to_string(rule->first) +
                     " meilleurs résultats d'un pilote comptaient ; ici ils comptent tous"
                 : "Seuls les " + std::to_string(rule->first) + " meilleurs résultats d'un pilote dans les " +
                     std::to_string(rule->split) + " premières courses et les " + std::to_string(rule->second) +
                     " meilleurs dans les autres comptaient ; ici ils comptent tous");
    }

    void constructorRules()
    {
        std::vector<std::string> rules;
        for (const Reason reason : {Reason::noConstructors, Reason::bestCar, Reason::raceNotCounted})
            if (std::ranges::any_of(m_accounts.teams, [&](const Account &account) { return has(account, reason); }))
                rules.push_back(inFrench(reason));
        if (!rules.empty())
            note(Misfit::constructorRules,
                 "Constructeurs : " + listed(rules) + " ; ici les points de toutes les voitures comptent");
    }

    void spelling()
    {
        std::vector<std::string> names;
        const auto compare = [&](const std::string &published) {
            if (const std::string written = nameForFiles(published); written != published)
                names.push_back(published + " (" + written + ")");
        };
        for (const int driver : m_plan.drivers)
            compare(m_data.drivers[static_cast<std::size_t>(driver)].name);
        if (!names.empty())
            note(Misfit::spelling, "Les fichiers n'ont pas toutes les lettres de : " + listed(names));
    }

    const Data &m_data;
    const Championship &m_championship;
    const PlannedSeason &m_plan;
    const Accounts m_accounts;
    std::vector<Note> m_notes;
};

}

std::vector<Note> notesOn(const Data &data, const Championship &championship, const PlannedSeason &plan)
{
    return Notes(data, championship, plan).all();
}

}
