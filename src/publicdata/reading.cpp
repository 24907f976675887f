#include "publicdata/reading.h"

#include "online/archive_names.h"
#include "online/checked_archive.h"
#include "online/zip_reader.h"
#include "publicdata/json_table.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <map>
#include <new>
#include <set>

namespace circuidex::publicdata {

namespace {

constexpr std::size_t mostRows = 2'000'000; // of all tables; a release has some 150,000
constexpr int firstYear = 1950, lastYear = 2099;

// The places of names in a list, in the order in which the tables mention them.
class Ids {
public:
    int of(std::string_view id)
    {
        if (id.empty())
            return -1;
        if (const auto known = m_places.find(id); known != m_places.end())
            return known->second;
        return m_places.emplace(id, static_cast<int>(m_places.size())).first->second;
    }
    const std::map<std::string, int, std::less<>> &all() const { return m_places; }

private:
    std::map<std::string, int, std::less<>> m_places;
};

template <typename T>
T &at(std::vector<T> &list, int place)
{
    if (list.size() <= static_cast<std::size_t>(place))
        list.resize(static_cast<std::size_t>(place) + 1);
    return list[static_cast<std::size_t>(place)];
}

// A lap of 5.303 km is 5303 metres.
int metres(const std::optional<double> &kilometres)
{
    return kilometres && *kilometres > 0 && *kilometres < 10'000 ? static_cast<int>(*kilometres * 1000 + 0.5) : 0;
}

bool isDate(std::string_view text) // yyyy-mm-dd
{
    for (std::size_t i = 0; i < text.size(); ++i)
        if (i == 4 || i == 7 ? text[i] != '-' : text[i] < '0' || text[i] > '9')
            return false;
    return text.size() == 10;
}

bool didStart(std::string_view place)
{
    for (const std::string_view word : {"DNS", "DNQ", "DNPQ", "DNP", "WD", "EX"})
        if (place == word)
            return false;
    return true;
}

// The tables come in any order, so what belongs to a race waits for it under its number.
class Collector {
public:
    bool grandPrix(const Row &row)
    {
        const int place = m_grandsPrix.of(row.text(0));
        if (place >= 0)
            at(m_data.grandsPrix, place) = {std::string(row.text(0)), std::string(row.text(1))};
        return place >= 0;
    }
    bool country(const Row &row)
    {
        const int place = m_countries.of(row.text(0));
        if (place >= 0)
            at(m_data.countries, place) = {std::string(row.text(0)), std::string(row.text(1))};
        return place >= 0;
    }
    bool circuit(const Row &row)
    {
        const int place = m_circuits.of(row.text(0));
        if (place >= 0)
            at(m_data.circuits, place) = {std::string(row.text(1)), std::string(row.text(2))};
        return place >= 0;
    }
    bool team(const Row &row)
    {
        const int place = m_teams.of(row.text(0));
        if (place >= 0)
            at(m_data.teams, place) = row.text(1);
        return place >= 0;
    }
    bool driver(const Row &row)
    {
        const int place = m_drivers.of(row.text(0));
        if (place < 0)
            return false;
        Driver &driver = at(m_data.drivers, place);
        driver.name = row.text(1);
        driver.birth = isDate(row.text(2)) ? row.text(2) : std::string_view();
        driver.country = m_countries.of(row.text(3));
        return true;
    }
    bool race(const Row &row)
    {
        const auto id = row.whole(0), year = row.whole(1), round = row.whole(2);
        if (!id || !year || !round || *year < firstYear || *year > lastYear || *round < 1 || *round > 99 ||
            !isDate(row.text(3)))
            return false;
        Race &race = m_races[*id];
        race.id = *id;
        race.year = *year;
        race.round = *round;
        race.date = row.text(3);
        race.grandPrix = m_grandsPrix.of(row.text(4));
        race.circuit = m_circuits.of(row.text(5));
        race.clockwise = row.text(6) != "ANTI_CLOCKWISE";
        race.length = metres(row.number(7));
        race.turns = std::max(0, row.whole(8).value_or(0));
        race.laps = std::max(0, row.whole(9).value_or(0));
        race.distance = metres(row.number(10));
        race.sprint = isDate(row.text(11));
        return race.grandPrix >= 0;
    }
    bool result(const Row &row)
    {
        const auto race = row.whole(0);
        if (!race)
            return false;
        Entry entry;
        entry.order = row.whole(1).value_or(0);
        entry.place = placeOf(row, 2);
        entry.started = didStart(row.text(3));
        entry.car = carOf(row.text(4));
        entry.driver = m_drivers.of(row.text(5));
        entry.team = m_teams.of(row.text(6));
        entry.engine = m_engines.of(row.text(7));
        entry.shared = row.truth(8);
        entry.points = row.number(9).value_or(0);
        entry.pole = row.truth(10);
        entry.fastestLap = row.truth(11);
        entry.fromPits = row.text(12) == "PL";
        m_races[*race].entries.push_back(entry);
        return entry.driver >= 0 && entry.team >= 0;
    }
    bool gridCar(const Row &row)
    {
        const auto race = row.whole(0);
        const int driver = m_drivers.of(row.text(3));
        if (!race || driver < 0)
            return false;
        m_races[*race].grid.push_back({driver, row.whole(1).value_or(0), placeOf(row, 2)});
        return true;
    }
    bool sprint(const Row &row)
    {
        const auto race = row.whole(0);
        const int driver = m_drivers.of(row.text(1));
        if (!race || driver < 0)
            return false;
        if (const double points = row.number(2).value_or(0); points > 0)
            m_races[*race].sprintPoints.push_back({driver, points, true, false});
        return true;
    }
    bool driverStanding(const Row &row)
    {
        return standing(row, [&](int race) { return &m_races[race].standings; });
    }
    bool teamStanding(const Row &row)
    {
        return teamStanding(row, [&](int race) { return &m_races[race].teamStandings; });
    }
    bool finalStanding(const Row &row)
    {
        return standing(row, [&](int year) { return &m_years[year].standings; });
    }
    bool finalTeamStanding(const Row &row)
    {
        return teamStanding(row, [&](int year) { return &m_years[year].teamStandings; });
    }

    // False when a race, a driver or another thing that the tables mention isn't told of.
    bool put(Data &data)
    {
        if (!named())
            return false;
        for (auto &[id, race] : m_races) {
            if (race.year == 0)
                return false;
            sort(race);
            m_years[race.year].races.push_back(std::move(race));
        }
        for (auto &[year, championship] : m_years) {
            championship.year = year;
            std::ranges::sort(championship.races, {}, &Race::round);
            if (!championship.races.empty())
                m_data.championships.push_back(std::move(championship));
        }
        data = std::move(m_data);
        return !data.championships.empty();
    }

private:
    static std::optional<int> placeOf(const Row &row, std::size_t field)
    {
        const auto place = row.whole(field);
        return place && *place >= 1 ? place : std::nullopt;
    }
    static std::optional<int> carOf(std::string_view text)
    {
        int number = 0;
        for (const char digit : text.substr(0, 4))
            if (digit >= '0' && digit <= '9')
                number = number * 10 + (digit - '0');
        return text.empty() ? std::nullopt : std::optional(number);
    }
    template <typename Where>
    bool standing(const Row &row, Where where)
    {
        const auto key = row.whole(0);
        const int driver = m_drivers.of(row.text(1));
        if (!key || driver < 0)
            return false;
        where(*key)->push_back({driver, row.number(2).value_or(0), row.whole(3).has_value(), row.truth(4)});
        return true;
    }
    template <typename Where>
    bool teamStanding(const Row &row, Where where)
    {
        const auto key = row.whole(0);
        const int team = m_teams.of(row.text(1)), engine = m_engines.of(row.text(2));
        if (!key || team < 0)
            return false;
        where(*key)->push_back({team, engine, row.number(3).value_or(0), row.whole(4).has_value(), row.truth(5)});
        return true;
    }
    static void sort(Race &race)
    {
        std::ranges::stable_sort(race.entries, {}, &Entry::order);
        std::ranges::stable_sort(race.grid, {}, &GridCar::order);
    }
    bool named()
    {
        m_data.drivers.resize(m_drivers.all().size());
        m_data.teams.resize(m_teams.all().size());
        m_data.grandsPrix.resize(m_grandsPrix.all().size());
        m_data.circuits.resize(m_circuits.all().size());
        m_data.countries.resize(m_countries.all().size());
        const auto unnamed = [](const auto &each) { return each.name.empty(); };
        return std::ranges::none_of(m_data.drivers, unnamed) && std::ranges::none_of(m_data.grandsPrix, unnamed) &&
            std::ranges::none_of(m_data.teams, &std::string::empty);
    }

    Ids m_drivers, m_teams, m_engines, m_grandsPrix, m_circuits, m_countries;
    std::map<int, Race> m_races;
    std::map<int, Championship> m_years;
    Data m_data;
};

struct Table {
    std::string_view file;
    std::vector<std::string_view> fields;
    bool (Collector::*take)(const Row &);
    bool needed = true;
};

const std::array<Table, 12> &tablesOfRelease()
{
    static const std::array<Table, 12> all{{
        {"f1db-circuits.json", {"id", "fullName", "placeName"}, &Collector::circuit},
        {"f1db-constructors.json", {"id", "name"}, &Collector::team},
        {"f1db-countries.json", {"id", "demonym"}, &Collector::country},
        {"f1db-drivers.json", {"id", "name", "dateOfBirth", "nationalityCountryId"}, &Collector::driver},
        {"f1db-grands-prix.json", {"id", "name"}, &Collector::grandPrix},
        {"f1db-races.json",
         {"id", "year", "round", "date", "grandPrixId", "circuitId", "direction", "courseLength", "turns", "laps",
          "distance", "sprintRaceDate"},
         &Collector::race},
        {"f1db-races-race-results.json",
         {"raceId", "positionDisplayOrder", "positionNumber", "positionText", "driverNumber", "driverId",
          "constructorId", "engineManufacturerId", "sharedCar", "points", "polePosition", "fastestLap",
          "gridPositionText"},
         &Collector::result},
        {"f1db-races-starting-grid-positions.json",
         {"raceId", "positionDisplayOrder", "positionNumber", "driverId"},
         &Collector::gridCar},
        {"f1db-races-driver-standings.json",
         {"raceId", "driverId", "points", "positionNumber", "championshipWon"},
         &Collector::driverStanding},
        {"f1db-seasons-driver-standings.json",
         {"year", "driverId", "points", "positionNumber", "championshipWon"},
         &Collector::finalStanding},
        {"f1db-seasons-constructor-standings.json",
         {"year", "constructorId", "engineManufacturerId", "points", "positionNumber", "championshipWon"},
         &Collector::finalTeamStanding},
        {"f1db-races-constructor-standings.json",
         {"raceId", "constructorId", "engineManufacturerId", "points", "positionNumber", "championshipWon"},
         &Collector::teamStanding},
    }};
    return all;
}

const Table &sprintTable() // no older release has it
{
    static const Table table{
        "f1db-races-sprint-race-results.json", {"raceId", "driverId", "points"}, &Collector::sprint, false};
    return table;
}

const Table *tableIn(const std::string &path)
{
    const std::string_view file = std::string_view(path).substr(path.find_last_of('/') + 1);
    for (const Table &table : tablesOfRelease())
        if (table.file == file)
            return &table;
    return sprintTable().file == file ? &sprintTable() : nullptr;
}

}

const Championship *Data::championship(int year) const
{
    const auto found = std::ranges::find(championships, year, &Championship::year);
    return found == championships.end() ? nullptr : &*found;
}

struct Reading::Parts {
    explicit Parts(const std::string &file) : path(file), zip(file) { }

    bool refuse(const std::string &why)
    {
        if (refusal.empty())
            refusal = "Ce fichier ne peut pas être lu : " + why + ".";
        return false;
    }
    bool sizeFits();
    bool entryFits(const online::ZipReader::Entry &entry);
    bool read(const Table &table);
    bool end();

    const std::string path;
    online::ZipReader zip;
    Collector collector;
    Data data;
    std::string refusal;
    std::set<std::string_view> seen; // files of tables
    std::uint64_t packed = 0, unpacked = 0;
    std::size_t entries = 0, rows = 0;
    bool ended = false;
};

bool Reading::Parts::sizeFits()
{
    std::error_code error;
    packed = std::filesystem::is_regular_file(path, error) ? std::filesystem::file_size(path, error) : 0;
    if (error || packed == 0)
        return refuse("l'archive n'est pas lisible");
    if (packed > online::mostBytes)
        return refuse("l'archive est trop grande");
    return online::countOfRecords(path) <= online::mostEntries || refuse("l'archive a plus de 20 000 entrées");
}

bool Reading::Parts::entryFits(const online::ZipReader::Entry &entry)
{
    using Kind = online::ZipReader::Kind;
    if (++entries > online::mostEntries)
        return refuse("l'archive a plus de 20 000 entrées");
    if (const online::CleanName name = online::cleanName(entry.name); !name.fits())
        return refuse("le nom " + online::shownName(entry.name) + " " + name.refusal);
    if (entry.kind == Kind::encrypted)
        return refuse("l'archive est chiffrée");
    if (entry.kind == Kind::packedOddly)
        return refuse("l'archive est comprimée d'une manière inhabituelle");
    return entry.kind != Kind::other ||
        refuse("le nom " + online::shownName(entry.name) + " n'est ni un fichier ni un dossier");
}

bool Reading::Parts::read(const Table &table)
{
    if (!seen.insert(table.file).second)
        return refuse(std::string(table.file) + " s'y trouve deux fois");
    const std::uint64_t most = std::min(online::mostBytes, packed * online::mostUnpacking);
    const auto next = [&] {
        const std::string_view piece = zip.piece();
        unpacked += piece.size();
        return unpacked <= most ? piece : std::string_view();
    };
    const bool whole = readTable(next, table.fields,
                                 [&](const Row &row) { return ++rows <= mostRows && (collector.*table.take)(row); });
    if (unpacked > most)
        return refuse("l'archive se déploie à plus de 4 Go ou de 200 fois sa taille");
    if (zip.broken())
        return refuse("l'archive est abîmée");
    return whole || refuse(std::string(table.file) + " n'a pas la forme attendue");
}

// The last of the archive: whether all is there.
bool Reading::Parts::end()
{
    ended = true;
    if (zip.broken())
        return refuse("l'archive est abîmée");
    for (const Table &table : tablesOfRelease())
        if (!seen.contains(table.file))
            return refuse(std::string(table.file) + " y manque, ce n'est pas une archive \"JSON splitted\" de F1DB");
    if (!collector.put(data))
        refuse("ses tables ne vont pas ensemble");
    return false;
}

Reading::Reading(const std::string &path) : m_parts(std::make_unique<Parts>(path))
{
    m_parts->sizeFits();
}

Reading::~Reading() = default;

bool Reading::step()
{
    Parts &parts = *m_parts;
    try {
        online::ZipReader::Entry entry;
        while (parts.refusal.empty() && !parts.ended) {
            if (!parts.zip.next(entry))
                return parts.end();
            if (!parts.entryFits(entry))
                return false;
            const Table *const table = entry.kind == online::ZipReader::Kind::file ? tableIn(entry.name) : nullptr;
            if (table)
                return parts.read(*table);
        }
    } catch (const std::bad_alloc &) {
        parts.refuse("il demande plus de mémoire qu'il n'y en a");
    }
    return false;
}

int Reading::tablesRead() const
{
    return static_cast<int>(m_parts->seen.size());
}

int Reading::tables()
{
    return static_cast<int>(tablesOfRelease().size()) + 1;
}

const std::string &Reading::refusal() const
{
    return m_parts->refusal;
}

Data Reading::take()
{
    return std::move(m_parts->data);
}

ReadData readPublicData(const std::string &path)
{
    Reading reading(path);
    while (reading.step()) { }
    return {reading.refusal().empty() ? reading.take() : Data(), reading.refusal()};
}

}
