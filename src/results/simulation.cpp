#include "results/simulation.h"

#include "results/amending.h"
#include "results/navigation.h"
#include "store/history.h"

namespace circuidex::results {

namespace {

// The file of the simulation. Of the season it holds the keys that the stop brings back, under their own names, and the
// result and the scale that were recorded.
constexpr std::string_view stem = "simulation", ownSection = "simulation";

std::string remembered(const Store &store, std::string_view section, std::string_view key)
{
    return store.LireINI(stem, section, key);
}

// Counters that begin by themselves: where the season lacked one, adding and subtracting leave a 0.
std::vector<std::string> selfStarting(const Season &season)
{
    std::vector<std::string> keys;
    for (int driver = 1; driver <= driverSlots; ++driver)
        keys.push_back(keys::driver("nbgp", driver));
    for (const std::string &team : teams(season))
        keys.push_back(keys::ptsecurie(team));
    return keys;
}

double amount(const Numbers &numbers, const std::string &text)
{
    return numbers.value(text).value_or(0);
}

std::string placeKey(int place)
{
    return std::to_string(place);
}

// True when it is kept, on the disk itself.
bool remember(MainRecord &main)
{
    const Season season = main.season();
    const auto keep = [&](std::string_view section, std::string_view key, const std::string &value) {
        main.store.EcrireINI(stem, section, key, value);
    };
    main.store.hold(stem);
    keep(ownSection, "saison", season.stem());
    keep(ownSection, "case", main.Label40.text());
    keep(ownSection, "gp", main.gp.text());
    keep(keys::gp, "nogp", season.read(keys::gp, "nogp"));
    for (int place = 1; place <= classifiedPlaces; ++place) {
        keep(keys::podiums, placeKey(place), main.number(place).text());
        keep(keys::bareme, placeKey(place), main.ptspilot[place].text());
    }
    for (const std::string &key : selfStarting(season))
        keep(keys::N, key, season.read(keys::N, key));
    const bool kept = main.store.release(stem);
    main.store.settle();
    return kept;
}

void forget(Store &store)
{
    store.EcrireINI(stem, ownSection, "saison", "");
}

bool isAsSimulated(const Season &season, const std::string &gpName)
{
    for (int place = 1; place <= classifiedPlaces; ++place)
        if (season.podium(place, gpName) != remembered(season.store(), keys::podiums, placeKey(place)))
            return false;
    return true;
}

// The recording added one start to every driver, the stop takes it off again, and both at once with all the rest.
bool isCounted(const Store &store, const Simulation &simulation)
{
    const Season season(store, simulation.season);
    bool counted = hasResult(season, simulation.gp);
    for (int driver = 1; driver <= driverSlots; ++driver)
        counted = counted || season.driver("nbgp", driver) != remembered(store, keys::N, keys::driver("nbgp", driver));
    return counted;
}

// Races that the user recorded or cancelled meanwhile stay counted. True when it is kept, on the disk itself.
bool rememberStartsAnew(Store &store, const Season &season)
{
    const Numbers &numbers = store.numbers();
    store.hold(stem);
    for (int driver = 1; driver <= driverSlots; ++driver) {
        const std::string key = keys::driver("nbgp", driver), now = season.read(keys::N, key);
        if (amount(numbers, now) != amount(numbers, remembered(store, keys::N, key)) + 1)
            store.EcrireINI(stem, keys::N, key, numbers.difference(now, "1").value_or(now));
    }
    const bool kept = store.release(stem);
    store.settle();
    return kept;
}

void placeDrivers(MainRecord &main, std::span<const SimulatedScore> scores)
{
    for (int place = 1; place <= classifiedPlaces; ++place)
        main.number(place).set("");
    for (const SimulatedScore &score : scores)
        for (int place = 1; place <= classifiedPlaces; ++place)
            if (!score.points.empty() && score.points == main.ptspilot[place].text())
                main.number(place).set(score.driver);
}

// A race without a name, or with a place or a pole, takes no simulated result, and the user learns why.
bool takesNone(MainRecord &main)
{
    if (main.gp.empty() || hasResult(main.season(), main.gp.text())) {
        recordSimulatedGrandPrix(main); // refuses it
        return true;
    }
    if (!main.Text39.empty())
        main.said.set("Une pole est déjà enregistrée pour " + inQuotes(main.gp.text()) + " : rien n'est simulé.");
    return !main.Text39.empty();
}

Scale rememberedScale(const Store &store)
{
    Scale scale;
    for (int place = 1; place <= classifiedPlaces; ++place)
        scale[place] = remembered(store, keys::bareme, placeKey(place));
    return scale;
}

// After the amendment, which counts a race for the empty result too.
void bringCountersBack(const WritableSeason &season)
{
    countStarts(season, Count::takeBack);
    for (const std::string &key : selfStarting(season)) {
        const std::string before = remembered(season.store(), keys::N, key);
        if (amount(season.numbers(), before) == amount(season.numbers(), season.read(keys::N, key)))
            season.write(keys::N, key, before);
    }
}

// Where the main screen stands, whatever is done elsewhere meanwhile.
class Place {
public:
    explicit Place(MainRecord &main)
        : m_main(main), m_season(main.an.text()), m_slot(main.Label40.text()), m_gp(main.gp.text())
    {
    }
    ~Place()
    {
        m_main.an.set(m_season);
        m_main.Label40.set(m_slot);
        m_main.gp.set(m_gp);
        showGrandPrix(m_main);
    }
    Place(const Place &) = delete;
    Place &operator=(const Place &) = delete;

private:
    MainRecord &m_main;
    std::string m_season, m_slot, m_gp;
};

// The race without its result, even if the calendar has another name in its slot by now.
void amendToEmpty(MainRecord &main, const Simulation &simulation)
{
    const WritableSeason season = main.writableSeason();
    const std::string key = keys::namegp(std::string_view(simulation.slot)), name = season.read(keys::gp, key);
    const std::string nogp =
        simulation.recorded ? remembered(main.store, keys::gp, "nogp") : season.read(keys::gp, "nogp");
    const bool asSimulated = simulation.recorded && isAsSimulated(season, simulation.gp);
    const bool takesOther = !asSimulated && hasResult(season, simulation.gp);
    season.write(keys::gp, key, simulation.gp);
    showSeason(main);
    for (int place = 1; place <= classifiedPlaces; ++place)
        main.number(place).set("");
    if (simulation.recorded)
        main.Text39.set("");
    amendGrandPrix(main, Amendment::byProgram, asSimulated ? std::optional(rememberedScale(main.store)) : std::nullopt);
    if (simulation.recorded)
        bringCountersBack(season);
    season.write(keys::gp, "nogp", nogp);
    season.write(keys::gp, key, name);
    if (const std::string copy = takesOther ? main.store.keepCopy(season.stem()) : std::string(); !copy.empty())
        main.overwritten =
            "Le résultat de " + inQuotes(simulation.gp) + " est parti avec la simulation ; la saison d'avant : " + copy;
}

}

std::optional<Simulation> runningSimulation(const Store &store)
{
    const Simulation simulation{remembered(store, ownSection, "saison"), remembered(store, ownSection, "case"),
                                remembered(store, ownSection, "gp")};
    if (!isYear(simulation.season) || !isAsSimulated(Season(store, simulation.season), simulation.gp))
        return std::nullopt;
    return simulation;
}

std::optional<Simulation> startSimulation(MainRecord &main, std::span<const SimulatedScore> scores)
{
    const Action nameless(main.store, {});
    if (firstFreeSlot(main.season()) == gpSlots) {
        main.dialogs.message("Tous les Grands Prix de la saison ont un vainqueur : il n'en reste aucun à simuler.");
        return std::nullopt;
    }
    goToFirstFreeSlot(main);
    if (!main.enterGrandPrix())
        return std::nullopt;
    main.refreshScale();
    Simulation simulation{main.season().stem(), main.Label40.text(), main.gp.text(), false};
    if (takesNone(main))
        return simulation;
    placeDrivers(main, scores);
    ActionOnSeason action(main);
    const bool noted = remember(main);
    main.store.hold(simulation.season);
    if (noted)
        simulation.recorded = recordSimulatedGrandPrix(main) == Recording::done;
    const bool kept = main.store.release(simulation.season) && noted;
    main.store.settle();
    if (!kept || !simulation.recorded)
        forget(main.store);
    if (!kept)
        showSeason(main);
    action.end("la simulation");
    return kept ? std::optional(simulation) : std::nullopt;
}

bool stopSimulation(MainRecord &main, const Simulation &simulation)
{
    const Action nameless(main.store, {});
    const Place place(main);
    main.an.set(simulation.season);
    main.Label40.set(simulation.slot);
    ActionOnSeason action(main);
    const Season season = main.season();
    const bool takenBack = simulation.recorded && !hasResult(season, simulation.gp) && !runningSimulation(main.store);
    if (!takenBack) {
        if (simulation.recorded && !rememberStartsAnew(main.store, season))
            return false;
        main.store.hold(simulation.season);
        amendToEmpty(main, simulation);
        if (!main.store.release(simulation.season))
            return action.end("l'arrêt de la simulation");
        main.store.settle();
    }
    forget(main.store);
    return true;
}

void forgetUnrecorded(Store &store)
{
    if (remembered(store, ownSection, "saison").empty())
        return;
    const auto simulation = runningSimulation(store);
    if (!simulation || !isCounted(store, *simulation))
        forget(store);
}

std::string simulationNotice(const Store &store)
{
    const auto simulation = runningSimulation(store);
    return simulation ? "Simulation en cours : " + simulation->gp + " " + simulation->season +
            ". Pour l'arrêter : Graphique des Points Pilote."
                      : std::string();
}

}
