#include "publicdata/official_points.h"

#include "publicdata/names.h"
#include "store/season.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <set>
#include <utility>

namespace circuidex::publicdata {

namespace {

constexpr double nothing = 1e-6; // points below are the rest of a sum of fractions

bool same(double a, double b)
{
    return std::abs(a - b) < nothing;
}

double sumOf(const std::vector<double> &points)
{
    return std::accumulate(points.begin(), points.end(), 0.0);
}

// The sum of the best so many of them.
double bestOf(std::vector<double> points, std::size_t count)
{
    std::ranges::sort(points, std::greater());
    points.resize(std::min(points.size(), count));
    return sumOf(points);
}

double counted(const std::vector<double> &byRace, const BestResults &rule)
{
    if (rule.split == 0)
        return bestOf(byRace, rule.first);
    const auto middle = byRace.begin() + static_cast<std::ptrdiff_t>(rule.split);
    return bestOf({byRace.begin(), middle}, rule.first) + bestOf({middle, byRace.end()}, rule.second);
}

// Points by race of each of the standings, with the official ones.
struct Scores {
    std::vector<double> byRace;
    double official = 0;
};

bool makes(const std::vector<Scores> &all, const BestResults &rule)
{
    return std::ranges::all_of(all,
                               [&](const Scores &each) { return same(counted(each.byRace, rule), each.official); });
}

// All results counted when nobody has fewer points than he scored.
std::optional<BestResults> ruleFor(const std::vector<Scores> &all)
{
    if (all.empty() ||
        std::ranges::all_of(all, [](const Scores &each) { return same(sumOf(each.byRace), each.official); }))
        return std::nullopt;
    const std::size_t races = all.front().byRace.size();
    for (std::size_t first = races; first-- > 1;)
        if (const BestResults rule{first, 0, 0}; makes(all, rule))
            return rule;
    for (std::size_t split = races / 2 - std::min<std::size_t>(races / 2, 2); split <= races / 2 + 2; ++split)
        for (std::size_t first = split; split > 0 && split < races && first > 0; --first)
            for (std::size_t second = races - split; second > 0; --second)
                if (const BestResults rule{first, split, second}; makes(all, rule))
                    return rule;
    return std::nullopt;
}

std::vector<double> pointsByRace(const Championship &championship, int driver)
{
    std::vector<double> byRace;
    for (const Race &race : championship.races) {
        double points = 0;
        for (const Entry &entry : race.entries)
            points += entry.driver == driver ? entry.points : 0;
        byRace.push_back(points);
    }
    return byRace;
}

// Two constructors may bear one name, with engines of two makers.
using Constructor = std::pair<int, int>;

class Accountant {
public:
    Accountant(const Data &data, const Championship &championship, const PlannedSeason &plan)
        : m_data(data), m_championship(championship), m_plan(plan), m_byPlace(pointsByPlace(championship))
    {
        for (std::size_t race = 0; race < championship.races.size(); ++race) {
            m_sprints.push_back(sprintPointsOf(championship, race));
            m_lapPoints.push_back(lapPoints(championship.races[race]));
        }
    }

    Accounts accounts()
    {
        Accounts all;
        for (const PlannedDriver &driver : m_plan.season.drivers)
            all.drivers.push_back(driverAccount(driver));
        std::set<std::string> names;
        for (const TeamPoints &each : m_championship.teamStandings)
            names.insert(teamName(each.team));
        for (const Race &race : m_championship.races)
            for (const Entry &entry : race.entries)
                if (entry.points > 0 || m_plan.slotOf(entry.driver))
                    names.insert(teamName(entry.team));
        for (const std::string &name : names)
            all.teams.push_back(teamAccount(name));
        return all;
    }

private:
    std::string teamName(int team) const { return nameForFiles(m_data.teams[static_cast<std::size_t>(team)]); }

    double usual(const Race &race, const Entry &entry) const
    {
        const auto place = static_cast<std::size_t>(entry.place.value_or(0));
        return place > 0 && place <= m_byPlace.size() ? m_byPlace[place - 1] * shareOf(race, m_byPlace) : 0;
    }

    // What a race gave for its fastest lap: a point in all, which several drivers may have shared.
    bool lapPoints(const Race &race) const
    {
        double more = 0;
        for (const Entry &entry : race.entries)
            if (const double extra = entry.points - usual(race, entry); extra > nothing && !entry.shared)
                more += extra;
        return same(more, 1);
    }

    // What the plan counts of an entry.
    double planned(const Race &race, std::size_t number, const Entry &entry) const
    {
        if (number >= m_plan.season.races.size() || !m_plan.slotOf(entry.driver) ||
            entry.place.value_or(classifiedPlaces + 1) > classifiedPlaces)
            return 0;
        const PlannedRace &recorded = m_plan.season.races[number];
        const auto place = static_cast<std::size_t>(*entry.place - 1);
        const std::string &name =
            m_plan.season.drivers[static_cast<std::size_t>(*m_plan.slotOf(entry.driver) - 1)].name;
        return recorded.finish[place] == name ? usual(race, entry) : 0;
    }

    // Why a race gave other points for an entry than the plan counts.
    void explain(const Race &race, std::size_t number, const Entry &entry, std::vector<Part> &parts) const
    {
        const auto add = [&](Reason reason, double points) {
            if (!same(points, 0))
                parts.push_back({reason, points, static_cast<int>(number)});
        };
        const double missing = entry.points - planned(race, number, entry);
        if (number >= m_plan.season.races.size())
            return add(Reason::raceLeftOut, missing);
        if (!m_plan.slotOf(entry.driver))
            return add(Reason::driverLeftOut, missing);
        const double extra = entry.points - usual(race, entry);
        const bool lap = extra > nothing && (entry.fastestLap || m_lapPoints[number]);
        const double forLap = lap ? std::min(extra, 1.0) : 0;
        add(Reason::fastestLap, forLap);
        const double rest = missing - forLap;
        if (entry.place.value_or(0) > classifiedPlaces && same(rest, usual(race, entry)))
            add(Reason::beyondEighth, rest);
        else
            add(isShared(race, entry) ? Reason::sharedCar : Reason::unexplained, rest);
    }

    // Two cars at one place are one car with two drivers.
    static bool isShared(const Race &race, const Entry &entry)
    {
        return entry.shared ||
            std::ranges::count_if(race.entries,
                                  [&entry](const Entry &other) {
                                      return (entry.place && other.place == entry.place) ||
                                          (other.shared && other.driver == entry.driver);
                                  }) > 1 ||
            std::ranges::any_of(race.entries, [&entry](const Entry &other) {
                   return other.shared && (other.car == entry.car || other.driver == entry.driver);
               });
    }

    Account driverAccount(const PlannedDriver &driver)
    {
        const int who = m_plan.drivers[static_cast<std::size_t>(driver.slot - 1)];
        Account account;
        account.name = driver.name;
        double scored = 0, sprints = 0;
        for (std::size_t number = 0; number < m_championship.races.size(); ++number) {
            const Race &race = m_championship.races[number];
            double points = 0;
            for (const Entry &entry : race.entries)
                if (entry.driver == who) {
                    scored += entry.points;
                    points += planned(race, number, entry);
                    explain(race, number, entry, account.parts);
                }
            if (number < m_plan.season.races.size())
                account.byRace.push_back(points);
            sprints += addSprint(who, number, account.parts);
        }
        account.planned = sumOf(account.byRace);
        for (const DriverPoints &standing : m_championship.standings)
            if (standing.driver == who) {
                account.official = standing.points;
                account.placed = standing.placed;
            }
        addRest(account, account.official - scored - sprints, bestResultsOf(m_championship).has_value());
        return account;
    }

    double addSprint(int driver, std::size_t number, std::vector<Part> &parts) const
    {
        const auto found = m_sprints[number].find(driver);
        if (found == m_sprints[number].end())
            return 0;
        parts.push_back({Reason::sprint, found->second, static_cast<int>(number)});
        return found->second;
    }

    // What the standings have more or less than all the races gave.
    static void addRest(Account &account, double rest, bool bestCounted)
    {
        if (rest < -nothing)
            account.parts.push_back({bestCounted ? Reason::bestResults : Reason::struckOff, rest, {}});
        else if (rest > nothing)
            account.parts.push_back({Reason::unexplained, rest, {}});
    }

    // A race after which no constructor had other points than before, though some scored in it.
    bool countsForTeams(std::size_t number) const
    {
        const auto pointsAfter = [&](std::size_t after) {
            double sum = 0;
            for (const TeamPoints &each : m_championship.races[after].teamStandings)
                sum += each.points;
            return sum;
        };
        return !same(pointsAfter(number), number > 0 ? pointsAfter(number - 1) : 0);
    }

    // Points by race of a constructor, its cars one by one, without the points for the fastest lap.
    std::vector<std::vector<double>> cars(const Constructor &constructor) const
    {
        std::vector<std::vector<double>> byRace;
        for (const Race &race : m_championship.races) {
            std::vector<double> points;
            const auto number = byRace.size();
            for (const Entry &entry : race.entries)
                if (Constructor(entry.team, entry.engine) == constructor)
                    points.push_back(m_bestCar ? std::min(entry.points, usual(race, entry)) : entry.points);
            if (!countsForTeams(number))
                points.clear();
            std::ranges::sort(points, std::greater());
            byRace.push_back(std::move(points));
        }
        return byRace;
    }

    std::vector<double> teamByRace(const Constructor &constructor) const
    {
        std::vector<double> byRace;
        for (const std::vector<double> &points : cars(constructor))
            byRace.push_back(m_bestCar ? bestOf(points, 1) : sumOf(points));
        return byRace;
    }

    std::vector<Scores> teamScores() const
    {
        std::vector<Scores> all;
        for (const TeamPoints &each : m_championship.teamStandings)
            all.push_back({teamByRace({each.team, each.engine}), each.points});
        return all;
    }

    // Which rules make the official points of all constructors: all cars, or one a race; all results, or the best.
    void findTeamRules()
    {
        for (const bool bestCar : {false, true}) {
            m_bestCar = bestCar;
            const std::vector<Scores> all = teamScores();
            m_teamRule = ruleFor(all);
            if (m_teamRule ||
                std::ranges::all_of(all, [](const Scores &each) { return same(sumOf(each.byRace), each.official); }))
                return;
        }
        m_bestCar = false;
    }

    Account teamAccount(const std::string &name)
    {
        if (!std::exchange(m_rulesFound, true))
            findTeamRules();
        Account account;
        account.name = name;
        double sprints = 0, lost = 0;
        std::vector<std::pair<Reason, double>> reasons;
        for (std::size_t number = 0; number < m_championship.races.size(); ++number) {
            const Race &race = m_championship.races[number];
            double points = 0, scored = 0;
            for (const Entry &entry : race.entries)
                if (teamName(entry.team) == name) {
                    points += planned(race, number, entry);
                    scored += entry.points;
                    explain(race, number, entry, account.parts);
                    if (const auto sprint = m_sprints[number].find(entry.driver); sprint != m_sprints[number].end())
                        sprints += addSprint(entry.driver, number, account.parts);
                }
            if (number < m_plan.season.races.size())
                account.byRace.push_back(points);
            if (m_championship.teamStandings.empty() || countsForTeams(number) || same(scored, 0))
                continue;
            account.parts.push_back({Reason::raceNotCounted, -scored, static_cast<int>(number)});
            lost += scored;
        }
        account.planned = sumOf(account.byRace);
        closeTeam(name, account, lost - sprints);
        return account;
    }

    // From all points of its cars to the official ones.
    void closeTeam(const std::string &name, Account &account, double lessSprints)
    {
        double scored = -lessSprints, oneCar = 0, counting = 0;
        for (const Race &race : m_championship.races)
            for (const Entry &entry : race.entries)
                scored += teamName(entry.team) == name ? entry.points : 0;
        bool known = false;
        account.placed = false;
        for (const TeamPoints &each : m_championship.teamStandings)
            if (teamName(each.team) == name) {
                known = true;
                account.placed = account.placed || each.placed;
                account.official += each.points;
            }
        for (const Constructor &constructor : constructorsOf(name)) {
            const std::vector<double> byRace = teamByRace(constructor);
            oneCar += sumOf(byRace);
            counting += m_teamRule ? counted(byRace, *m_teamRule) : sumOf(byRace);
        }
        const auto add = [&](Reason reason, double points) {
            if (!same(points, 0))
                account.parts.push_back({reason, points, {}});
        };
        if (m_championship.teamStandings.empty())
            return add(Reason::noConstructors, -scored);
        double rest = account.official - scored;
        if (m_bestCar) {
            add(Reason::bestCar, oneCar - scored);
            rest -= oneCar - scored;
        }
        if (m_teamRule) {
            add(Reason::bestResults, counting - oneCar);
            rest -= counting - oneCar;
        }
        add(rest < 0 || !known ? Reason::struckOff : Reason::unexplained, rest);
    }

    std::set<Constructor> constructorsOf(const std::string &name) const
    {
        std::set<Constructor> all;
        for (const Race &race : m_championship.races)
            for (const Entry &entry : race.entries)
                if (teamName(entry.team) == name)
                    all.insert({entry.team, entry.engine});
        return all;
    }

    const Data &m_data;
    const Championship &m_championship;
    const PlannedSeason &m_plan;
    const std::vector<double> m_byPlace;
    std::vector<std::map<int, double>> m_sprints; // by race
    std::vector<char> m_lapPoints; // by race: whether its extra points are those of the fastest lap
    bool m_rulesFound = false, m_bestCar = false; // of a constructor one car a race counts
    std::optional<BestResults> m_teamRule;
};

}

std::string inFrench(Reason reason)
{
    static constexpr std::array<std::string_view, 16> words{
        "course au-delà de la vingtième",
        "pilote au-delà du vingt-sixième",
        "points au-delà de la huitième place",
        "point du meilleur tour",
        "voiture partagée",
        "points de course sprint",
        "seuls les meilleurs résultats comptaient",
        "une seule voiture par course comptait",
        "course sans points pour les constructeurs",
        "il n'y avait pas de championnat des constructeurs",
        "points retirés",
        "un autre résultat est enregistré",
        "la course est comptée à un autre barème",
        "le total n'est pas celui des résultats enregistrés",
        "pilote absent de la saison",
        "sans explication",
    };
    return std::string(words[static_cast<std::size_t>(reason)]);
}

Accounts accountsOf(const Data &data, const Championship &championship, const PlannedSeason &plan)
{
    return Accountant(data, championship, plan).accounts();
}

std::optional<BestResults> bestResultsOf(const Championship &championship)
{
    std::vector<Scores> all;
    for (const DriverPoints &standing : championship.standings) {
        std::vector<double> byRace = pointsByRace(championship, standing.driver);
        for (std::size_t race = 0; race < byRace.size(); ++race)
            for (const auto &[driver, points] : sprintPointsOf(championship, race))
                byRace[race] += driver == standing.driver ? points : 0;
        all.push_back({std::move(byRace), standing.points});
    }
    return ruleFor(all);
}

}
