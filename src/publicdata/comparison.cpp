#include "publicdata/comparison.h"

#include "publicdata/names.h"
#include "publicdata/season_recording.h"
#include "results/grid.h"
#include "results/recording.h"
#include "results/scale.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <set>

namespace circuidex::publicdata {

namespace {

constexpr double nothing = 1e-6; // points

// How many letters must be changed, put in or taken out to make one of the other.
std::size_t distance(const std::string &a, const std::string &b)
{
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t(0));
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t corner = row[0]++;
        for (std::size_t k = 0; k < b.size(); ++k) {
            const std::size_t changed = corner + (a[i] == b[k] ? 0 : 1);
            corner = row[k + 1];
            row[k + 1] = std::min({changed, row[k] + 1, row[k + 1] + 1});
        }
    }
    return row.back();
}

// Spelt otherwise, but the same name: a letter or two, or one part of it ("Schumacher M.").
bool alike(const std::string &a, const std::string &b)
{
    const std::string one = plainName(a), other = plainName(b);
    const std::size_t shorter = std::min(one.size(), other.size());
    return shorter >= 4 &&
        (distance(one, other) <= shorter / 5 + 1 || one.find(other) != one.npos || other.find(one) != other.npos);
}

// Finds for each wanted name the place of the one held that means it: the same, the same but for accents and case, one
// that is alike.
std::vector<std::optional<int>> matched(const std::vector<std::string> &wanted, const std::vector<std::string> &held)
{
    std::vector<std::optional<int>> places(wanted.size());
    std::set<std::size_t> taken;
    const auto pass = [&](auto same) {
        for (std::size_t i = 0; i < wanted.size(); ++i)
            for (std::size_t k = 0; k < held.size() && !places[i]; ++k)
                if (!held[k].empty() && !taken.contains(k) && same(wanted[i], held[k])) {
                    places[i] = static_cast<int>(k);
                    taken.insert(k);
                }
    };
    pass([](const std::string &a, const std::string &b) { return a == b; });
    pass([](const std::string &a, const std::string &b) { return plainName(a) == plainName(b); });
    pass(alike);
    return places;
}

class Comparer {
public:
    Comparer(const Season &season, const Data &data, const Championship &championship)
        : m_season(season), m_scale(results::loadScale(season))
    {
        m_result.year = season.stem();
        m_result.plan = *planSeason(data, championship.year);
        m_accounts = accountsOf(data, championship, m_result.plan);
    }

    Comparison run()
    {
        matchDrivers();
        matchRaces();
        for (std::size_t race = 0; race < m_result.gps.size(); ++race)
            compareRace(race);
        driverTotals();
        teamTotals();
        return std::move(m_result);
    }

private:
    const SeasonPlan &plan() const { return m_result.plan.season; }

    Difference &add(DifferenceKind kind, const std::string &subject, const std::string &held,
                    const std::string &published)
    {
        Difference difference;
        difference.kind = kind;
        difference.subject = subject;
        difference.held = held;
        difference.published = published;
        return m_result.differences.emplace_back(std::move(difference));
    }

    void matchDrivers()
    {
        std::vector<std::string> wanted, held;
        for (const PlannedDriver &driver : plan().drivers)
            wanted.push_back(driver.name);
        for (int slot = 1; slot <= driverSlots; ++slot)
            held.push_back(m_season.nom(slot));
        m_result.numbers = matched(wanted, held);
        for (std::size_t i = 0; i < wanted.size(); ++i) {
            auto &slot = m_result.numbers[i];
            if (!slot) {
                add(DifferenceKind::driverMissing, wanted[i], "", wanted[i]);
                continue;
            }
            ++*slot;
            if (const std::string name = m_season.nom(*slot); name != wanted[i]) {
                Difference &difference = add(DifferenceKind::driverName, name, name, wanted[i]);
                difference.slot = *slot;
                difference.correctable = true;
            }
        }
    }

    void matchRaces()
    {
        std::vector<std::string> wanted, held;
        for (const PlannedRace &race : plan().races)
            wanted.push_back(race.name);
        for (int gp = 0; gp < gpSlots; ++gp)
            held.push_back(m_season.namegp(gp));
        m_result.gps = matched(wanted, held);
        std::set<int> taken;
        for (const auto &gp : m_result.gps)
            if (gp)
                taken.insert(*gp);
        for (std::size_t race = 0; race < wanted.size(); ++race)
            if (const int same = static_cast<int>(race); !m_result.gps[race] && !taken.contains(same) && likely(race)) {
                m_result.gps[race] = same;
                taken.insert(same);
            }
        for (int gp = 0; gp < gpSlots; ++gp)
            if (!held[static_cast<std::size_t>(gp)].empty() && !taken.contains(gp))
                add(DifferenceKind::raceUnknown, held[static_cast<std::size_t>(gp)], "", "").gp = gp;
    }

    // Under a name of the user's own, but in its place of the calendar and on its day.
    bool likely(std::size_t race) const
    {
        const std::string name = m_season.namegp(static_cast<int>(race));
        return !name.empty() && m_season.read(keys::gp, keys::dategp(name)) == plan().races[race].date;
    }

    std::string name(const std::string &planned) const { return m_result.nameInSeason(m_season, planned); }
    bool known(const std::string &planned) const
    {
        return planned.empty() || results::driverNamed(m_season, name(planned));
    }

    void compareRace(std::size_t race)
    {
        const PlannedRace &published = plan().races[race];
        const auto gp = m_result.gps[race];
        const std::string held = gp ? m_season.namegp(*gp) : std::string();
        if (!gp || !results::hasResult(m_season, held)) {
            add(DifferenceKind::raceMissing, gp ? held : published.name, "", published.name).gp = gp;
            return;
        }
        const auto differ = [&](DifferenceKind kind, const std::string &ours, const std::string &theirs, int place) {
            Difference &difference = add(kind, held, ours, theirs);
            difference.gp = gp;
            difference.place = place;
            return &difference;
        };
        if (held != published.name)
            differ(DifferenceKind::raceName, held, published.name, 0)->correctable = true;
        if (const std::string date = m_season.read(keys::gp, keys::dategp(held)); date != published.date)
            differ(DifferenceKind::date, date, published.date, 0)->correctable = true;
        const std::string pole = m_season.nom(m_season.read(keys::N, keys::pol(held)));
        if (pole != name(published.pole))
            differ(DifferenceKind::pole, pole, name(published.pole), 0)->correctable = known(published.pole);
        for (int place = 1; place <= classifiedPlaces; ++place) {
            const std::string &planned = published.finish[static_cast<std::size_t>(place - 1)];
            const std::string ours = m_season.nom(m_season.podium(place, held));
            if (ours != name(planned))
                differ(DifferenceKind::place, ours, name(planned), place)->correctable = known(planned);
        }
        compareGrid(published, held, differ);
    }

    template <typename Differ>
    void compareGrid(const PlannedRace &published, const std::string &held, Differ differ)
    {
        bool any = false;
        for (int place = 1; place <= gridPlaces; ++place)
            any = any || !m_season.grille(place, held).empty();
        const bool published_ =
            std::ranges::any_of(published.grid, [](const std::string &each) { return !each.empty(); });
        if (!any && published_) {
            differ(DifferenceKind::wholeGrid, "", "", 0)->correctable = true;
            return;
        }
        for (int place = 1; place <= gridPlaces; ++place) {
            const std::string ours = m_season.grille(place, held);
            const std::string theirs = name(published.grid[static_cast<std::size_t>(place - 1)]);
            if (ours != theirs)
                differ(DifferenceKind::grid, ours, theirs, place)->correctable = true;
        }
    }

    // Points that the season counted for somebody in a race, by whose the finishers are.
    template <typename Whose>
    double countedIn(int gp, Whose whose) const
    {
        const std::string race = m_season.namegp(gp);
        const double share = shareCounted(m_season, plan(), gp);
        double points = 0;
        for (int place = 1; place <= classifiedPlaces; ++place)
            if (const std::string number = m_season.podium(place, race); !number.empty() && whose(number))
                points += m_season.numbers().value(m_scale[place]).value_or(0) * share;
        return points;
    }

    // The reasons of an account with the slots of the season's calendar.
    std::vector<Part> partsOf(const Account &account) const
    {
        std::vector<Part> parts = account.parts;
        for (Part &part : parts)
            if (part.gp)
                part.gp = static_cast<std::size_t>(*part.gp) < m_result.gps.size()
                    ? m_result.gps[static_cast<std::size_t>(*part.gp)]
                    : std::nullopt;
        return parts;
    }

    // Adds what the season itself has otherwise than the plan, race by race and in the total.
    void addOwn(std::vector<Part> &parts, const Account &account, double held, const std::vector<double> &counted,
                double elsewhere) const
    {
        double sum = elsewhere;
        for (std::size_t race = 0; race < account.byRace.size(); ++race) {
            const auto gp = m_result.gps[race];
            sum += counted[race];
            if (const double more = account.byRace[race] - counted[race]; std::abs(more) > nothing)
                parts.push_back({otherShare(race) ? Reason::otherShare : Reason::otherResult, more, gp});
        }
        if (std::abs(elsewhere) > nothing)
            parts.push_back({Reason::otherResult, -elsewhere, {}}); // in a race that the data doesn't know
        if (std::abs(sum - held) > nothing)
            parts.push_back({Reason::otherTotal, sum - held, {}});
    }

    bool otherShare(std::size_t race) const
    {
        const auto gp = m_result.gps[race];
        return gp && std::abs(shareCounted(m_season, plan(), *gp) - plan().races[race].share) > nothing &&
            std::ranges::none_of(m_result.differences, [gp](const Difference &each) {
                   return each.gp == gp && each.kind == DifferenceKind::place;
               });
    }

    template <typename Whose>
    std::vector<double> countedByRace(Whose whose) const
    {
        std::vector<double> counted;
        for (const auto &gp : m_result.gps)
            counted.push_back(gp ? countedIn(*gp, [&](const std::string &number) { return whose(number, *gp); }) : 0);
        return counted;
    }

    template <typename Whose>
    double countedElsewhere(Whose whose) const
    {
        double points = 0;
        for (int gp = 0; gp < gpSlots; ++gp)
            if (std::ranges::find(m_result.gps, std::optional(gp)) == m_result.gps.end() &&
                !m_season.namegp(gp).empty())
                points += countedIn(gp, [&](const std::string &number) { return whose(number, gp); });
        return points;
    }

    void total(DifferenceKind kind, const std::string &subject, int slot, double held, const Account &account,
               std::vector<Part> parts)
    {
        const bool struck = !account.placed && account.official > 0;
        if (std::abs(held - account.official) < nothing && !struck)
            return;
        const Numbers &numbers = m_season.numbers();
        Difference &difference = add(kind, subject, numbers.text(held), numbers.text(account.official));
        difference.slot = slot;
        difference.parts = std::move(parts);
        if (struck && difference.parts.empty())
            difference.parts.push_back({Reason::struckOff, 0, {}});
    }

    void driverTotals()
    {
        for (std::size_t i = 0; i < m_accounts.drivers.size(); ++i) {
            const Account &account = m_accounts.drivers[i];
            const auto slot = m_result.numbers[i];
            std::vector<Part> parts = partsOf(account);
            if (!slot) {
                parts.push_back({Reason::unknownDriver, account.planned, {}});
                total(DifferenceKind::driverTotal, account.name, 0, 0, account, std::move(parts));
                continue;
            }
            const auto his = [&](const std::string &number, int) {
                return driverSlot(number, m_season.numbers()) == slot;
            };
            const double held = m_season.numbers().value(m_season.driver("nbpts", *slot)).value_or(0);
            addOwn(parts, account, held, countedByRace(his), countedElsewhere(his));
            total(DifferenceKind::driverTotal, m_season.nom(*slot), *slot, held, account, std::move(parts));
        }
    }

    // Of a team the season keeps the points of each slot itself.
    void teamTotals()
    {
        std::vector<std::string> wanted, held = ownTeams();
        for (const Account &account : m_accounts.teams)
            wanted.push_back(account.name);
        const auto places = matched(wanted, held);
        for (std::size_t i = 0; i < wanted.size(); ++i) {
            const Account &account = m_accounts.teams[i];
            const std::string team = places[i] ? held[static_cast<std::size_t>(*places[i])] : wanted[i];
            std::vector<Part> parts = partsOf(account);
            std::vector<double> counted;
            for (const auto &gp : m_result.gps)
                counted.push_back(gp ? teamPoints(team, *gp) : 0);
            double elsewhere = 0;
            for (int gp = 0; gp < gpSlots; ++gp)
                if (std::ranges::find(m_result.gps, std::optional(gp)) == m_result.gps.end())
                    elsewhere += teamPoints(team, gp);
            const double points = m_season.numbers().value(m_season.read(keys::N, keys::ptsecurie(team))).value_or(0);
            addOwn(parts, account, points, counted, elsewhere);
            total(DifferenceKind::teamTotal, team, 0, points, account, std::move(parts));
        }
    }

    double teamPoints(const std::string &team, int gp) const
    {
        return m_season.numbers().value(m_season.read(keys::N, keys::ecuriepts(team, std::to_string(gp)))).value_or(0);
    }

    // Those that the drivers name, and those of earlier races that the data knows.
    std::vector<std::string> ownTeams() const
    {
        std::vector<std::string> teams = results::teams(m_season);
        for (const Account &account : m_accounts.teams)
            if (!m_season.read(keys::N, keys::ptsecurie(account.name)).empty() &&
                std::ranges::find(teams, account.name) == teams.end())
                teams.push_back(account.name);
        return teams;
    }

    const Season &m_season;
    const results::Scale m_scale;
    Accounts m_accounts;
    Comparison m_result;
};

std::string orNobody(const std::string &name)
{
    return name.empty() ? "personne" : name;
}

std::string ordinal(int place)
{
    return std::to_string(place) + (place == 1 ? "er" : "e");
}

}

double shareCounted(const Season &season, const SeasonPlan &plan, int gp)
{
    const Numbers &numbers = season.numbers();
    const results::Scale scale = results::loadScale(season);
    const std::string race = season.namegp(gp);
    double usual = 0, counted = 0;
    for (int place = 1; place <= classifiedPlaces; ++place)
        if (!season.podium(place, race).empty())
            usual += numbers.value(scale[place]).value_or(0);
    std::set<std::string> teams;
    for (int slot = 1; slot <= driverSlots; ++slot)
        teams.insert(season.ecurie(slot));
    for (const PlannedDriver &driver : plan.drivers) // whose first team nobody may bear today
        teams.insert(driver.team);
    for (const PlannedMove &move : plan.moves)
        teams.insert(move.team);
    for (const std::string &team : teams)
        if (!team.empty())
            counted += numbers.value(season.read(keys::N, keys::ecuriepts(team, std::to_string(gp)))).value_or(0);
    for (const double share : {0.5, 2.0})
        if (usual > 0 && std::abs(counted - usual * share) < nothing)
            return share;
    return 1;
}

std::string Comparison::nameInSeason(const Season &season, const std::string &planned) const
{
    const auto found = std::ranges::find(plan.season.drivers, planned, &PlannedDriver::name);
    if (found == plan.season.drivers.end())
        return planned;
    const auto slot = numbers[static_cast<std::size_t>(found->slot - 1)];
    return slot ? season.nom(*slot) : planned;
}

std::string Difference::sentence() const
{
    const std::string against = orNobody(held) + " au lieu de " + orNobody(published);
    switch (kind) {
    case DifferenceKind::driverName:
        return "Pilote " + std::to_string(slot) + " : " + held + " s'écrit " + published;
    case DifferenceKind::driverMissing:
        return subject + " manque parmi les pilotes";
    case DifferenceKind::raceName:
        return held + " s'écrit " + published;
    case DifferenceKind::raceMissing:
        return subject + (gp ? " n'est pas enregistré" : " manque au calendrier");
    case DifferenceKind::raceUnknown:
        return subject + " n'est pas dans les données";
    case DifferenceKind::date:
        return subject + ", date : " + (held.empty() ? "aucune" : held) + " au lieu de " + published;
    case DifferenceKind::pole:
        return subject + ", pole : " + against;
    case DifferenceKind::place:
        return subject + ", " + ordinal(place) + " : " + against;
    case DifferenceKind::grid:
        return subject + ", grille, " + ordinal(place) + " : " + against;
    case DifferenceKind::wholeGrid:
        return subject + " : la grille manque";
    case DifferenceKind::driverTotal:
    case DifferenceKind::teamTotal:
        break;
    }
    return subject + " : " + held + " points, officiellement " + published;
}

std::optional<Comparison> compareSeason(const Season &season, const Data &data)
{
    const auto year = Numbers().whole(season.stem(), 1950, 2099);
    const Championship *const championship = year ? data.championship(*year) : nullptr;
    return championship ? std::optional(Comparer(season, data, *championship).run()) : std::nullopt;
}

}
