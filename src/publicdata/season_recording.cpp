#include "publicdata/season_recording.h"

#include "charts/season_chart.h"
#include "progression/gain_charts.h"
#include "results/grid.h"
#include "results/recording.h"
#include "standings/constructor_standings.h"
#include "standings/driver_standings.h"

namespace circuidex::publicdata {

namespace {

// "305 305 mètres": the blank between the thousands doesn't break the line.
std::string metres(int length)
{
    std::string digits = std::to_string(length);
    if (digits.size() > 3)
        digits.insert(digits.size() - 3, "\u00A0");
    return digits + " mètres";
}

// A number with a decimal point as its user writes it.
std::string written(const std::string &number, const Numbers &numbers)
{
    const auto value = Numbers('.').value(number);
    return value ? numbers.text(*value) : number;
}

constexpr const charts::Instance *seasonCharts[] = {
    &charts::form8,        &charts::form41,       &charts::form45,       &charts::form53,      &charts::form71,
    &progression::form101, &progression::form102, &progression::form105, &progression::form106};

}

void enterDriver(const WritableSeason &season, const PlannedDriver &driver, const Career &career)
{
    const auto write = [&](std::string_view prefix, const std::string &text) {
        season.write(keys::N, keys::driver(prefix, driver.slot), text);
    };
    std::string titles;
    for (const std::string &year : career.titles)
        titles += "-" + year;
    write("N°", std::to_string(driver.slot));
    write("age", driver.birth);
    write("nom", driver.name);
    write("nbpts", "0");
    write("champion", titles);
    write("vic", std::to_string(career.wins));
    write("pol", std::to_string(career.poles));
    write("natio", driver.nationality);
    write("ptstot", career.points.empty() ? "0" : written(career.points, season.numbers()));
    write("ecurie", driver.team);
    write("nbgp", std::to_string(career.starts));
    write("podiums", std::to_string(career.podiums));
    season.write(keys::gp, keys::noo(driver.name), std::to_string(career.seasons + 1));
    season.write(keys::N, keys::ptsecurie(driver.team), "0");
}

void enterCalendar(const WritableSeason &season, const SeasonPlan &plan)
{
    for (std::size_t k = 0; k < plan.races.size(); ++k) {
        season.write(keys::gp, keys::namegp(static_cast<int>(k)), plan.races[k].name);
        season.write(keys::gp, keys::dategp(plan.races[k].name), plan.races[k].date);
    }
}

results::Scale scaleOf(const SeasonPlan &plan, double share, const Numbers &numbers)
{
    results::Scale scale;
    for (int place = 1; place <= classifiedPlaces; ++place) {
        const std::string &points = plan.scale[static_cast<std::size_t>(place - 1)];
        scale[place] = numbers.text(Numbers('.').value(points).value_or(0) * share);
    }
    return scale;
}

bool recordRace(results::MainRecord &main, const SeasonPlan &plan, int slot)
{
    const WritableSeason season = main.writableSeason();
    const PlannedRace &race = plan.races[static_cast<std::size_t>(slot)];
    const auto number = [&](const std::string &name) {
        const auto found = results::driverNamed(season, name);
        return found ? std::to_string(*found) : std::string();
    };
    for (const PlannedMove &move : plan.moves)
        if (move.gp == slot)
            season.write(keys::N, keys::driver("ecurie", move.slot), move.team);
    main.Label40.set(std::to_string(slot));
    main.gp.set(race.name);
    main.dat.set(race.date);
    main.Text41.set(race.remark);
    for (int place = 1; place <= classifiedPlaces; ++place)
        main.number(place).set(number(race.finish[static_cast<std::size_t>(place - 1)]));
    main.Text39.set(number(race.pole));
    results::storeGrid(season, race.name, {race.grid});
    if (race.share != 1)
        results::storeScale(season, scaleOf(plan, race.share, season.numbers()));
    const bool recorded = results::recordGrandPrix(main) == results::Recording::done;
    if (race.share != 1)
        results::storeScale(season, scaleOf(plan, 1, season.numbers()));
    return recorded;
}

void crown(const WritableSeason &season, int slot)
{
    const std::string &year = season.stem();
    const std::string key = keys::driver("champion", slot);
    season.write(keys::N, key, season.read(keys::N, key) + "-" + year);
    WritableSeason(season.store(), std::string(keys::ARCHIVES)).write(keys::GP, keys::champion(year), season.nom(slot));
}

std::string circuitDescription(const CircuitFacts &circuit)
{
    return circuit.name + "\r\n" + circuit.place + "\r\n\r\nUn tour mesure " + metres(circuit.length) + " et compte " +
        std::to_string(circuit.turns) + " virages.\r\nLes voitures y tournent dans le sens " +
        (circuit.clockwise ? "horaire" : "antihoraire") + ".\r\nEn " + circuit.year + " la course a compté " +
        std::to_string(circuit.laps) + " tours soit " + metres(circuit.distance) + ".\r\n";
}

// One race has a file name without its accent.
std::string circuitDescriptionFile(const std::string &race)
{
    return "Photos/descriptioncircuits/" + (race == "Brésil" ? std::string("bresil") : race) + ".txt";
}

void chooseChartSubjects(const WritableSeason &season)
{
    const auto drivers = standings::driverStandings(season, {}).table.rows;
    const auto teams = standings::constructorStandings(season, {}).rows;
    for (const charts::Instance *shown : seasonCharts) {
        charts::SeasonChart chart(*shown);
        chart.open(season);
        for (std::size_t s = 0; s < chart.subjects.size(); ++s) {
            const bool byNumber = shown->subject == charts::Subject::driverNumber;
            const auto &table = shown->subject == charts::Subject::teamName ? teams : drivers;
            const std::string &name = table[s].name;
            chart.subjects[s].set(byNumber ? std::to_string(results::driverNamed(season, name).value_or(0)) : name);
        }
        chart.close(season);
    }
}

}
