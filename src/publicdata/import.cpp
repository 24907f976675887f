// SPDX-License-Identifier: GPL-3.0-or-later
#include "publicdata/import.h"

#include "publicdata/names.h"
#include "publicdata/refusals.h"
#include "publicdata/season_recording.h"
#include "publicdata/swap_in.h"
#include "results/first_steps.h"
#include "results/grid.h"
#include "results/simulation.h"
#include "statistics/season_statistics.h"
#include "store/archive.h"
#include "store/text.h"

#include <algorithm>
#include <functional>
#include <set>
#include <utility>

namespace circuidex::publicdata {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view archiveFile = "f1ARCHIVES.ini";

std::string fileOf(const std::string &year)
{
    return "f1" + year + ".ini";
}

// What the archive lacks of earlier and later years; what it holds stays.
void archivePast(Store &store, const Data &data)
{
    for (const PastWinner &win : winnersOf(data))
        if (archivedWinner(store, win.race, win.year).empty())
            archiveWinner(store, win.race, win.year, win.name);
    const WritableSeason archive(store, std::string(keys::ARCHIVES));
    for (const PastWinner &champion : championsOf(data))
        if (archive.read(keys::GP, keys::champion(champion.year)).empty())
            archive.write(keys::GP, keys::champion(champion.year), champion.name);
}

// The last winner of each race is that of its last year.
void archiveLastWinners(Store &store, const Data &data)
{
    const WritableSeason archive(store, std::string(keys::ARCHIVES));
    for (const PastWinner &win : winnersOf(data)) {
        const std::string known = archive.read(keys::GP, keys::lastWinner(win.race));
        std::string last = known;
        for (int year = 1950; !known.empty() && year <= 2099; ++year)
            if (const std::string winner = archivedWinner(store, win.race, std::to_string(year)); !winner.empty())
                last = winner;
        if (last != known)
            archive.write(keys::GP, keys::lastWinner(win.race), last);
    }
}

// An all-time list and what the data adds to it: of each driver the better figure, under the name that stands there.
void mergeList(const WritableSeason &archive, const statistics::AllTimeList &list, std::vector<AllTimeEntry> entries)
{
    for (int row = 1; row <= driverSlots; ++row) {
        const std::string name = archive.read(keys::records, keys::record(list.nameKey, row));
        const auto figure = archive.numbers().value(archive.read(keys::records, keys::record(list.figureKey, row)));
        if (name.empty() || !figure)
            continue;
        const auto known =
            std::ranges::find(entries, plainName(name), [](const AllTimeEntry &each) { return plainName(each.name); });
        if (known == entries.end())
            entries.push_back({name, *figure});
        else
            *known = {name, std::max(known->figure, *figure)};
    }
    std::ranges::stable_sort(entries, std::greater(), &AllTimeEntry::figure);
    entries.resize(driverSlots);
    for (int row = 1; row <= driverSlots; ++row) {
        const AllTimeEntry &entry = entries[static_cast<std::size_t>(row - 1)];
        const bool shown = !entry.name.empty() && row < candidateRow;
        archive.write(keys::records, keys::record(list.nameKey, row), shown ? entry.name : "");
        archive.write(keys::records, keys::record(list.figureKey, row),
                      shown ? archive.numbers().text(entry.figure) : "");
    }
}

void mergeLists(Store &store, const Data &data)
{
    const WritableSeason archive(store, std::string(keys::ARCHIVES));
    const AllTime best = allTimeOf(data);
    mergeList(archive, *statistics::statisticNamed("t20pol")->allTime, best.poles);
    mergeList(archive, *statistics::statisticNamed("t20vic")->allTime, best.wins);
    mergeList(archive, *statistics::statisticNamed("t20pts")->allTime, best.points);
}

// One that the user wrote himself stays; one that came from here gives way to that of a later season.
bool mayDescribe(const std::string &path, const std::string &year)
{
    std::string bytes;
    if (disk::read(path, bytes).kind != disk::Kind::file)
        return disk::look(path).kind == disk::Kind::missing;
    const std::string text = toUtf8(bytes), sign = " virages.\r\nLes voitures y tournent dans le sens ";
    const std::size_t at = text.find(sign), told = text.find("\r\nEn ", at);
    return at != text.npos && told != text.npos && text.substr(told + 5, 4) < year;
}

}

bool seasonExists(const Store &store, int year)
{
    const std::string name = fileOf(std::to_string(year));
    if (!backups::dataFiles(store.folder().string()).contains(name))
        return false;
    const bool begun = results::isBegun(Season(store, std::to_string(year))); // by this it is read
    return begun || std::ranges::any_of(store.damaged(), [&](const Store::Damaged &file) {
               return file.name == name && file.stands();
           });
}

std::optional<Note> archiveNote(const Store &store, const Data &data)
{
    const Season archive(store, std::string(keys::ARCHIVES));
    std::set<std::string> names, fresh;
    for (int row = 0; row < archiveRows; ++row)
        names.insert(archive.read(keys::GP, keys::listed(row)));
    names.erase("");
    for (const PastWinner &win : winnersOf(data))
        if (!names.contains(win.race))
            fresh.insert(win.race);
    if (names.size() + fresh.size() <= archiveRows)
        return std::nullopt;
    return Note{Misfit::archiveFull,
                "Les archives ont la place de 61 noms de Grands Prix : " +
                    std::to_string(names.size() + fresh.size() - archiveRows) +
                    " n'y entreront pas, ni leurs vainqueurs."};
}

struct Import::Parts {
    Parts(Store &userStore, const Data &publicData, std::vector<ImportedSeason> chosen)
        : store(userStore), data(publicData), seasons(std::move(chosen)), folder(userStore.folder() / importFolder)
    {
    }

    struct Step {
        std::string doing;
        std::function<bool()> act; // false when it failed
    };

    std::string obstacle() const;
    std::string nameInFolder(const std::string &file) const;
    void planSteps();
    bool begin();
    bool beginSeason(const PlannedSeason &plan);
    bool record(const PlannedSeason &plan, int slot);
    bool endSeason(const PlannedSeason &plan);
    bool describeCircuits(const PlannedSeason &plan);
    bool putInPlace();
    bool fail(const std::string &why);
    void drop();

    Store &store;
    const Data &data;
    std::vector<ImportedSeason> seasons;
    const fs::path folder;
    Refusals refusals;
    std::unique_ptr<Store> scratch;
    std::unique_ptr<results::MainRecord> main;
    std::vector<Step> steps;
    std::size_t next = 0;
    std::vector<std::string> files; // made, by their paths in the program folder
    disk::Stamp archive; // the user's, as it was at the beginning
    std::vector<std::string> copies;
    std::string failure;
    bool done = false, dropped = false;
};

// What stands in the way of the import before anything is written.
std::string Import::Parts::obstacle() const
{
    if (store.readOnly())
        return "Lecture seule : rien ne peut être importé.";
    if (seasons.empty())
        return "Aucune saison n'est choisie.";
    const auto simulation = results::runningSimulation(store);
    for (const ImportedSeason &each : seasons) {
        const std::string &year = each.plan.season.year;
        if (!each.replace && seasonExists(store, std::stoi(year)))
            return "La saison " + year + " existe déjà : elle n'est remplacée que si vous le demandez.";
        if (simulation && simulation->season == year)
            return "Une simulation est en cours dans la saison " + year + " : arrêtez-la avant d'importer.";
    }
    return {};
}

// The user's file may bear its name in another case.
std::string Import::Parts::nameInFolder(const std::string &file) const
{
    const auto held = backups::dataFiles(store.folder().string());
    const auto found = held.find(folded(file));
    return found == held.end() ? file : found->second;
}

void Import::Parts::planSteps()
{
    std::ranges::sort(seasons, {}, [](const ImportedSeason &each) { return each.plan.season.year; });
    steps.push_back({"Archives", [this] { return begin(); }});
    for (const ImportedSeason &each : seasons) {
        const PlannedSeason &plan = each.plan;
        const std::string &year = plan.season.year;
        steps.push_back({year + " : pilotes et calendrier", [this, &plan] { return beginSeason(plan); }});
        for (std::size_t slot = 0; slot < plan.season.races.size(); ++slot)
            steps.push_back({year + " : " + plan.season.races[slot].name,
                             [this, &plan, slot] { return record(plan, static_cast<int>(slot)); }});
        steps.push_back({year + " : fin de la saison", [this, &plan] { return endSeason(plan); }});
    }
    steps.push_back({"Mise en place", [this] { return putInPlace(); }});
}

bool Import::Parts::begin()
{
    finishImport(store.folder()); // of an import that was killed
    store.flush();
    if (!disk::makeNewFolder(folder.string()))
        return fail("Le dossier du programme ne prend pas de fichiers : rien n'a été importé.");
    const std::string held = (store.folder() / nameInFolder(std::string(archiveFile))).string();
    std::string bytes;
    archive = disk::read(held, bytes);
    if (codingOf(bytes) == Coding::utf8)
        bytes = withoutUtf8(bytes);
    disk::Stamp after;
    const bool there = archive.kind != disk::Kind::missing;
    if (there &&
        (archive.kind != disk::Kind::file || backups::damageOf(archiveFile, bytes) != backups::Damage::none ||
         !disk::replace((folder / archiveFile).string(), bytes, false, after)))
        return fail("Les archives ne peuvent pas être lues : rien n'a été importé.");
    scratch = std::make_unique<Store>(folder, store.numbers());
    main = std::make_unique<results::MainRecord>(*scratch, refusals);
    scratch->hold(keys::ARCHIVES);
    archivePast(*scratch, data);
    files.push_back(std::string(archiveFile));
    return true;
}

bool Import::Parts::beginSeason(const PlannedSeason &plan)
{
    scratch->hold(plan.season.year);
    main->an.set(plan.season.year);
    const WritableSeason season = main->writableSeason();
    results::storeScale(season, scaleOf(plan.season, 1, season.numbers()));
    for (std::size_t i = 0; i < plan.season.drivers.size(); ++i)
        enterDriver(season, plan.season.drivers[i], plan.careers[i]);
    enterCalendar(season, plan.season);
    return true;
}

bool Import::Parts::record(const PlannedSeason &plan, int slot)
{
    return recordRace(*main, plan.season, slot) ||
        fail(plan.season.year + ", " + plan.season.races[static_cast<std::size_t>(slot)].name +
             " : la course n'a pas été enregistrée. " + refusals.said);
}

bool Import::Parts::endSeason(const PlannedSeason &plan)
{
    const WritableSeason season = main->writableSeason();
    if (const auto champion = results::driverNamed(season, plan.champion); champion && !plan.champion.empty())
        crown(season, *champion);
    chooseChartSubjects(season);
    if (!scratch->release(plan.season.year) || !describeCircuits(plan))
        return fail("Le disque n'a pas pris la saison " + plan.season.year + " : rien n'a été importé.");
    files.push_back(fileOf(plan.season.year));
    return true;
}

bool Import::Parts::describeCircuits(const PlannedSeason &plan)
{
    bool kept = disk::makeFolder((folder / "Photos").string()) &&
        disk::makeFolder((folder / "Photos/descriptioncircuits").string());
    for (const CircuitFacts &circuit : plan.circuits) {
        const std::string file = circuitDescriptionFile(circuit.race);
        if (file.find('/', file.find("descriptioncircuits/") + 20) != file.npos ||
            !mayDescribe((store.folder() / file).string(), plan.season.year))
            continue;
        disk::Stamp after;
        kept = kept && disk::replace((folder / file).string(), toCodePage(circuitDescription(circuit)), false, after);
        if (std::ranges::find(files, file) == files.end())
            files.push_back(file);
    }
    return kept;
}

// The one place where the program folder changes.
bool Import::Parts::putInPlace()
{
    archiveLastWinners(*scratch, data);
    mergeLists(*scratch, data);
    if (!scratch->release(keys::ARCHIVES))
        return fail("Le disque n'a pas pris les archives : rien n'a été importé.");
    scratch->settle();
    const std::string held = (store.folder() / nameInFolder(files.front())).string();
    if (disk::look(held) != archive)
        return fail("Les archives ont changé pendant l'import : rien n'a été importé, recommencez.");
    for (std::string &file : files) {
        const std::string name = nameInFolder(file);
        std::error_code error;
        if (name != file)
            fs::rename(folder / file, folder / name, error);
        file = name;
    }
    std::string years;
    for (const ImportedSeason &each : seasons)
        years += (years.empty() ? "" : ", ") + each.plan.season.year;
    SwapResult result = swapIn(store, "import de " + years, files);
    copies = std::move(result.copies);
    done = result.failure.empty();
    return done || fail(result.failure);
}

bool Import::Parts::fail(const std::string &why)
{
    failure = why;
    drop();
    return false;
}

// A swap that couldn't be ended keeps its files for the next start.
void Import::Parts::drop()
{
    if (std::exchange(dropped, true) || done)
        return;
    main.reset();
    scratch.reset();
    if (next > 0)
        finishImport(store.folder());
}

Import::Import(Store &store, const Data &data, std::vector<ImportedSeason> seasons)
    : m_parts(std::make_unique<Parts>(store, data, std::move(seasons)))
{
    m_parts->failure = m_parts->obstacle();
    m_parts->planSteps();
}

Import::~Import()
{
    m_parts->drop();
}

bool Import::step()
{
    Parts &parts = *m_parts;
    if (parts.dropped || !parts.failure.empty() || parts.next >= parts.steps.size())
        return false;
    return parts.steps[parts.next++].act() && parts.next < parts.steps.size();
}

void Import::cancel()
{
    m_parts->drop();
}

int Import::stepsDone() const
{
    return static_cast<int>(m_parts->next);
}

int Import::stepsInAll() const
{
    return static_cast<int>(m_parts->steps.size());
}

std::string Import::doing() const
{
    return m_parts->next < m_parts->steps.size() ? m_parts->steps[m_parts->next].doing : std::string();
}

bool Import::done() const
{
    return m_parts->done;
}

const std::string &Import::failure() const
{
    return m_parts->failure;
}

const std::vector<std::string> &Import::copies() const
{
    return m_parts->copies;
}

}
