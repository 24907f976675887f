#include "publicdata/planning.h"

#include "publicdata/names.h"
#include "publicdata/notes.h"
#include "store/season.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <span>
#include <tuple>

namespace circuidex::publicdata {

namespace {

constexpr std::size_t recordRows = 20; // of an all-time list

// "1969-01-03" is "03/01/1969".
std::string dateInFiles(std::string_view date)
{
    if (date.size() != 10)
        return {};
    return std::string(date.substr(8)).append("/").append(date.substr(5, 2)).append("/").append(date.substr(0, 4));
}

std::span<const Race> racesInFrame(const Championship &championship)
{
    return std::span(championship.races).first(std::min<std::size_t>(championship.races.size(), gpSlots));
}

// What decides who gets one of the 26 numbers, and which.
struct Entrant {
    int driver = -1;
    double points = 0;
    bool noticed = false; // on pole, or in the first eight
    int starts = 0;
    int round = 0, car = 0, order = 0; // of his first race
};

std::vector<Entrant> entrantsOf(const Championship &championship)
{
    std::vector<Entrant> all;
    for (const Race &race : racesInFrame(championship)) {
        std::set<int> started;
        for (const Entry &entry : race.entries) {
            auto known = std::ranges::find(all, entry.driver, &Entrant::driver);
            if (known == all.end())
                known = all.insert(all.end(),
                                   {entry.driver, 0, false, 0, race.round, entry.car.value_or(9999), entry.order});
            known->points += entry.points;
            known->noticed = known->noticed || entry.pole || entry.place.value_or(99) <= classifiedPlaces;
            known->starts += entry.started && started.insert(entry.driver).second;
        }
    }
    return all;
}

// The 26 with the best claim, in the order of their numbers.
std::vector<int> chosenDrivers(const Championship &championship)
{
    std::vector<Entrant> all = entrantsOf(championship);
    const auto asTheyCame = [](const Entrant &a, const Entrant &b) {
        return std::tuple(a.round, a.car, a.order) < std::tuple(b.round, b.car, b.order);
    };
    std::ranges::sort(all, asTheyCame);
    std::ranges::stable_sort(all, [](const Entrant &a, const Entrant &b) {
        return std::tuple(a.points > 0, a.noticed, a.starts) > std::tuple(b.points > 0, b.noticed, b.starts);
    });
    if (all.size() > driverSlots)
        all.resize(driverSlots);
    std::ranges::sort(all, asTheyCame);
    std::vector<int> drivers;
    for (const Entrant &entrant : all)
        drivers.push_back(entrant.driver);
    return drivers;
}

// One of his entries in a race, the best; null when he wasn't there.
const Entry *entryOf(const Race &race, int driver)
{
    const auto found = std::ranges::find(race.entries, driver, &Entry::driver);
    return found == race.entries.end() ? nullptr : &*found;
}

// Two who shared a car hold its place together; who got more points for it comes first.
std::vector<const Entry *> holdersOf(const Race &race, int place)
{
    std::vector<const Entry *> holders;
    for (const Entry &entry : race.entries)
        if (entry.place == place)
            holders.push_back(&entry);
    std::ranges::stable_sort(holders, std::greater(), &Entry::points);
    return holders;
}

class Planner {
public:
    Planner(const Data &data, const Championship &championship) : m_data(data), m_championship(championship) { }

    PlannedSeason plan()
    {
        SeasonPlan &season = m_plan.season;
        season.year = std::to_string(m_championship.year);
        const std::vector<double> byPlace = pointsByPlace(m_championship);
        for (std::size_t place = 0; place < season.scale.size(); ++place)
            season.scale[place] = Numbers('.').text(place < byPlace.size() ? byPlace[place] : 0);
        m_plan.drivers = chosenDrivers(m_championship);
        planDrivers();
        for (const Race &race : racesInFrame(m_championship))
            planRace(race, byPlace);
        planChampion();
        m_plan.notes = notesOn(m_data, m_championship, m_plan);
        return std::move(m_plan);
    }

private:
    std::string teamName(int team) const { return nameForFiles(m_data.teams[static_cast<std::size_t>(team)]); }

    void planDrivers()
    {
        const std::vector<Career> careers = careersBefore(m_data, m_championship.year);
        std::set<std::string> names;
        for (std::size_t i = 0; i < m_plan.drivers.size(); ++i) {
            const Driver &driver = m_data.drivers[static_cast<std::size_t>(m_plan.drivers[i])];
            PlannedDriver planned{static_cast<int>(i) + 1,
                                  nameForFiles(driver.name),
                                  {},
                                  frenchNationality(m_data, driver.country),
                                  dateInFiles(driver.birth)};
            while (!names.insert(planned.name).second)
                planned.name += " 2"; // a namesake is another man
            m_plan.careers.push_back(careers[static_cast<std::size_t>(m_plan.drivers[i])]);
            m_plan.careers.back().name = planned.name;
            m_plan.season.drivers.push_back(std::move(planned));
            planTeams(m_plan.season.drivers.back(), m_plan.drivers[i]);
        }
    }

    void planTeams(PlannedDriver &driver, int who)
    {
        std::string team;
        int gp = 0;
        for (const Race &race : racesInFrame(m_championship)) {
            if (const Entry *const entry = entryOf(race, who); entry && teamName(entry->team) != team) {
                team = teamName(entry->team);
                if (driver.team.empty())
                    driver.team = team;
                else
                    m_plan.season.moves.push_back({driver.slot, team, gp});
            }
            ++gp;
        }
    }

    // Empty for a driver without a number.
    std::string nameOf(int driver) const
    {
        const auto slot = m_plan.slotOf(driver);
        return slot ? m_plan.season.drivers[static_cast<std::size_t>(*slot - 1)].name : std::string();
    }

    void planRace(const Race &race, const std::vector<double> &byPlace)
    {
        PlannedRace planned;
        planned.name = freeName(frenchName(m_data.grandsPrix[static_cast<std::size_t>(race.grandPrix)]));
        planned.date = dateInFiles(race.date).substr(0, 5);
        planned.share = shareOf(race, byPlace);
        if (planned.share != 1)
            planned.remark = planned.share == 0.5 ? "Demi-points"
                : planned.share == 2              ? "Points doubles"
                                                  : "Points réduits";
        for (const Entry &entry : race.entries)
            if (entry.pole && planned.pole.empty())
                planned.pole = nameOf(entry.driver);
        for (std::size_t place = 0; place < planned.finish.size(); ++place)
            for (const Entry *const entry : holdersOf(race, static_cast<int>(place) + 1))
                if (const std::string name = nameOf(entry->driver);
                    planned.finish[place].empty() && std::ranges::find(planned.finish, name) == planned.finish.end())
                    planned.finish[place] = name;
        planGrid(race, planned);
        planCircuit(race, planned.name);
        m_plan.season.races.push_back(std::move(planned));
    }

    // Where a car didn't start from its place, the place stays empty; cars from the pit lane follow behind the last
    // one.
    void planGrid(const Race &race, PlannedRace &planned) const
    {
        const auto entered = [&race](const GridCar &car, bool Entry::*as) {
            return std::ranges::any_of(race.entries,
                                       [&](const Entry &entry) { return entry.driver == car.driver && entry.*as; });
        };
        const auto onGrid = [&](const GridCar &car) { return car.place && !entered(car, &Entry::fromPits); };
        std::size_t behind = 0;
        for (const GridCar &car : race.grid)
            if (onGrid(car))
                behind = std::max(behind, static_cast<std::size_t>(*car.place));
        for (const GridCar &car : race.grid) {
            const std::size_t place = onGrid(car) ? static_cast<std::size_t>(*car.place) - 1 : behind++;
            if (entered(car, &Entry::started) && place < planned.grid.size() && planned.grid[place].empty())
                planned.grid[place] = nameOf(car.driver);
        }
    }

    void planCircuit(const Race &race, const std::string &name)
    {
        if (race.circuit < 0 || race.length <= 0 || race.turns <= 0 || race.laps <= 0 || race.distance <= 0)
            return;
        const Circuit &circuit = m_data.circuits[static_cast<std::size_t>(race.circuit)];
        m_plan.circuits.push_back({name, nameForFiles(circuit.name), nameForFiles(circuit.place), race.length,
                                   race.turns, m_plan.season.year, race.laps, race.distance, race.clockwise});
    }

    // Two races of one name would share one result.
    std::string freeName(std::string name) const
    {
        while (std::ranges::find(m_plan.season.races, name, &PlannedRace::name) != m_plan.season.races.end())
            name += " 2";
        return name;
    }

    void planChampion()
    {
        for (const DriverPoints &standing : m_championship.standings)
            if (standing.champion)
                m_plan.champion = nameOf(standing.driver);
    }

    const Data &m_data;
    const Championship &m_championship;
    PlannedSeason m_plan;
};

double pointsOf(const Race &race, int driver)
{
    double points = 0;
    for (const Entry &entry : race.entries)
        if (entry.driver == driver)
            points += entry.points;
    return points;
}

std::vector<AllTimeEntry> best(const Data &data, const std::vector<double> &figures)
{
    std::vector<AllTimeEntry> list;
    for (std::size_t driver = 0; driver < figures.size(); ++driver)
        if (figures[driver] > 0)
            list.push_back({nameForFiles(data.drivers[driver].name), figures[driver]});
    std::ranges::stable_sort(list, std::greater(), &AllTimeEntry::figure);
    list.resize(std::min(list.size(), recordRows));
    return list;
}

}

std::optional<int> PlannedSeason::slotOf(int driver) const
{
    const auto found = std::ranges::find(drivers, driver);
    return found == drivers.end() ? std::nullopt : std::optional(static_cast<int>(found - drivers.begin()) + 1);
}

std::optional<PlannedSeason> planSeason(const Data &data, int year)
{
    const Championship *const championship = data.championship(year);
    return championship ? std::optional(Planner(data, *championship).plan()) : std::nullopt;
}

std::vector<double> pointsByPlace(const Championship &championship)
{
    std::vector<std::map<double, int>> given;
    for (const Race &race : championship.races)
        for (const Entry &entry : race.entries) {
            const auto place = static_cast<std::size_t>(entry.place.value_or(0));
            if (place == 0 || place > 99 || entry.shared)
                continue;
            given.resize(std::max(given.size(), place));
            ++given[place - 1][entry.points];
        }
    std::vector<double> points;
    for (const auto &counts : given)
        points.push_back(counts.empty() ? 0 : std::ranges::max_element(counts, {}, [](const auto &each) {
                                                  return each.second;
                                              })->first);
    while (!points.empty() && points.back() == 0)
        points.pop_back();
    return points;
}

double shareOf(const Race &race, const std::vector<double> &byPlace)
{
    std::map<double, int> shares;
    for (const Entry &entry : race.entries)
        if (entry.place && static_cast<std::size_t>(*entry.place) <= byPlace.size() && !entry.shared)
            if (const double usual = byPlace[static_cast<std::size_t>(*entry.place - 1)]; usual > 0 && entry.points > 0)
                ++shares[entry.points / usual];
    const auto most = std::ranges::max_element(shares, {}, [](const auto &each) { return each.second; });
    return most == shares.end() ? 1 : most->first;
}

std::map<int, double> sprintPointsOf(const Championship &championship, std::size_t number)
{
    const Race &race = championship.races[number];
    std::map<int, double> points;
    for (const DriverPoints &each : race.sprintPoints)
        points[each.driver] += each.points;
    if (!points.empty() || !race.sprint)
        return points;
    for (const DriverPoints &after : race.standings) {
        double before = 0;
        if (number > 0)
            for (const DriverPoints &each : championship.races[number - 1].standings)
                before = each.driver == after.driver ? each.points : before;
        if (const double more = after.points - before - pointsOf(race, after.driver); more > 0)
            points[after.driver] = more;
    }
    return points;
}

std::vector<Career> careersBefore(const Data &data, int year)
{
    std::vector<Career> careers(data.drivers.size());
    std::vector<double> points(data.drivers.size());
    for (const Championship &championship : data.championships) {
        if (championship.year >= year)
            continue;
        std::set<int> drove;
        for (std::size_t number = 0; number < championship.races.size(); ++number) {
            std::set<int> started, stood;
            for (const Entry &entry : championship.races[number].entries) {
                const auto driver = static_cast<std::size_t>(entry.driver);
                Career &career = careers[driver];
                points[driver] += entry.points;
                career.poles += entry.pole;
                career.wins += entry.place == 1;
                career.podiums += entry.place.value_or(99) <= 3 && stood.insert(entry.driver).second;
                if (entry.started && started.insert(entry.driver).second)
                    ++career.starts;
                if (entry.started && drove.insert(entry.driver).second) {
                    ++career.seasons;
                    if (career.firstSeason.empty())
                        career.firstSeason = std::to_string(championship.year);
                }
            }
            for (const auto &[driver, scored] : sprintPointsOf(championship, number))
                points[static_cast<std::size_t>(driver)] += scored;
        }
        for (const DriverPoints &standing : championship.standings)
            if (standing.champion)
                careers[static_cast<std::size_t>(standing.driver)].titles.push_back(std::to_string(championship.year));
    }
    for (std::size_t driver = 0; driver < careers.size(); ++driver) {
        careers[driver].name = nameForFiles(data.drivers[driver].name);
        careers[driver].points = Numbers('.').text(points[driver]);
    }
    return careers;
}

AllTime allTimeOf(const Data &data)
{
    std::vector<double> poles(data.drivers.size()), wins = poles, points = poles;
    for (const Championship &championship : data.championships) {
        for (const Race &race : championship.races)
            for (const Entry &entry : race.entries) {
                poles[static_cast<std::size_t>(entry.driver)] += entry.pole;
                wins[static_cast<std::size_t>(entry.driver)] += entry.place == 1;
            }
        for (const DriverPoints &standing : championship.standings)
            points[static_cast<std::size_t>(standing.driver)] += standing.points;
    }
    return {best(data, poles), best(data, wins), best(data, points)};
}

std::vector<PastWinner> winnersOf(const Data &data)
{
    std::vector<PastWinner> winners;
    for (const Championship &championship : data.championships)
        for (const Race &race : championship.races) {
            if (const auto holders = holdersOf(race, 1); !holders.empty())
                winners.push_back({std::to_string(championship.year),
                                   frenchName(data.grandsPrix[static_cast<std::size_t>(race.grandPrix)]),
                                   nameForFiles(data.drivers[static_cast<std::size_t>(holders[0]->driver)].name)});
        }
    return winners;
}

std::vector<PastWinner> championsOf(const Data &data)
{
    std::vector<PastWinner> champions;
    for (const Championship &championship : data.championships)
        for (const DriverPoints &standing : championship.standings)
            if (standing.champion)
                champions.push_back({std::to_string(championship.year),
                                     {},
                                     nameForFiles(data.drivers[static_cast<std::size_t>(standing.driver)].name)});
    return champions;
}

}
