// Makes the sample program folder: records the real results of data/ race by race through the program's own recording,
// careers and past winners included. 2005 lacks its last race, so that a newcomer has a real one to record. With 2006, what
// an update brings a year later: all four seasons complete.
//
//     sample-seasons DATA FOLDER [2006]
#include "app/sample_data.h"
#include "publicdata/season_recording.h"
#include "results/new_season.h"
#include "statistics/season_statistics.h"
#include "store/archive.h"
#include "store/text.h"

#include <cstdio>
#include <fstream>
#include <map>
#include <sstream>

using namespace circuidex;

namespace {

// A sample recording has nothing to ask; whatever is said is a fault of the data.
class Faults : public Dialogs {
public:
    void message(const std::string &text) override { said += text + "\n"; }
    bool question(const std::string &) override { return false; }
    std::optional<std::string> chooseFile(const std::string &, const std::string &, const std::string &) override { return std::nullopt; }
    std::string said;
};

std::string fileText(const std::string &path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

template <class T>
T parsed(const std::string &path, std::optional<T> (*parse)(std::string_view, std::string &))
{
    std::string error;
    auto result = parse(fileText(path), error);
    if (!result) {
        std::fprintf(stderr, "%s: %s\n", path.c_str(), error.c_str());
        std::exit(1);
    }
    return *std::move(result);
}

// What a driver brings into a season, by his name.
using Careers = std::map<std::string, SampleCareer>;

// Behind row 21 of an all-time list lie the last candidates and older entries, which nothing compares: they may name a
// driver twice.
void dropLeftovers(Store &store)
{
    const WritableSeason archive(store, std::string(keys::ARCHIVES));
    for (const statistics::Statistic &statistic : statistics::seasonStatistics)
        for (int row = 22; statistic.allTime && row <= driverSlots; ++row)
            for (const std::string_view prefix : {statistic.allTime->nameKey, statistic.allTime->figureKey})
                archive.write(keys::records, keys::record(prefix, row), "");
}

void enterRecords(const WritableSeason &archive, const std::string &data)
{
    const std::map<std::string, std::string_view> modes{
        {"poles", "t20pol"}, {"victoires", "t20vic"}, {"points", "t20pts"}};
    std::map<std::string, int> rows;
    for (const SampleRecord &record : parsed(data + "/records.txt", parseSampleRecords)) {
        const statistics::AllTimeList list = *statistics::statisticNamed(modes.at(record.list))->allTime;
        const int row = ++rows[record.list];
        archive.write(keys::records, keys::record(list.nameKey, row), record.name);
        archive.write(keys::records, keys::record(list.figureKey, row), std::to_string(record.figure));
    }
}

void enterPast(Store &store, const std::string &data)
{
    for (const SampleWin &win : parsed(data + "/vainqueurs.txt", parseSampleWins))
        archiveWinner(store, win.race, win.year, win.name);
    const WritableSeason archive(store, std::string(keys::ARCHIVES));
    for (const SampleChampion &champion : parsed(data + "/champions.txt", parseSampleChampions))
        archive.write(keys::GP, keys::champion(champion.year), champion.name);
    enterRecords(archive, data);
}

bool describeCircuits(const Store &store, const std::string &data)
{
    const std::string folder = store.folder().string() + "/";
    bool kept = disk::makeFolder(folder + "Photos") && disk::makeFolder(folder + "Photos/descriptioncircuits");
    for (const SampleCircuit &circuit : parsed(data + "/circuits.txt", parseSampleCircuits)) {
        disk::Stamp after;
        kept = kept &&
            disk::replace(folder + publicdata::circuitDescriptionFile(circuit.race),
                          toCodePage(publicdata::circuitDescription(circuit)), false, after);
    }
    return kept;
}

// The careers after a season, with one more season behind each driver.
Careers careersAfter(const WritableSeason &season, const SampleSeason &sample, Careers before)
{
    for (const SampleDriver &driver : sample.drivers) {
        const auto whole = [&](std::string_view prefix) {
            return static_cast<int>(season.numbers().value(season.driver(prefix, driver.slot)).value_or(0));
        };
        SampleCareer &career = before[driver.name];
        career.starts = whole("nbgp");
        career.wins = whole("vic");
        career.poles = whole("pol");
        career.podiums = whole("podiums");
        career.points = season.driver("ptstot", driver.slot);
        career.seasons += 1;
    }
    return before;
}

// The leader of the points takes the title of a complete season.
void crownLeader(const WritableSeason &season, const SampleSeason &sample, Careers &careers)
{
    const auto leader = results::championshipLeader(season);
    if (!leader)
        return;
    publicdata::crown(season, *leader);
    careers[season.nom(*leader)].titles.push_back(sample.year);
}

}

int main(int argc, char **argv)
{
    const bool yearLater = argc == 4 && std::string_view(argv[3]) == "2006";
    if (argc != 3 && !yearLater) {
        std::fputs("usage: sample-seasons DATA FOLDER [2006]\n", stderr);
        return 2;
    }
    const std::string data = argv[1];
    Store store(argv[2]);
    Faults faults;
    enterPast(store, data);
    Careers careers;
    for (const SampleCareer &career : parsed(data + "/carrieres.txt", parseSampleCareers))
        careers[career.name] = career;
    std::vector<std::string> years{"2003", "2004", "2005"};
    if (yearLater)
        years.push_back("2006");
    for (const std::string &year : years) {
        const SampleSeason sample = parsed(data + "/" + year + ".saison", parseSampleSeason);
        results::MainRecord main(store, faults);
        main.an.set(year);
        const WritableSeason season = main.writableSeason();
        results::storeScale(season, {sample.scale});
        for (const SampleDriver &driver : sample.drivers)
            publicdata::enterDriver(season, driver, careers[driver.name]);
        publicdata::enterCalendar(season, sample);
        const bool complete = yearLater || year != "2005";
        const int races = static_cast<int>(sample.races.size()) - (complete ? 0 : 1);
        for (int slot = 0; slot < races; ++slot) {
            publicdata::recordRace(main, sample, slot);
            statistics::sortAllTimeLists(store);
        }
        if (complete) {
            careers = careersAfter(season, sample, std::move(careers));
            crownLeader(season, sample, careers);
        }
        publicdata::chooseChartSubjects(season);
    }
    statistics::sortAllTimeLists(store); // the last newcomers' older entries go
    dropLeftovers(store);
    store.setYearMarker(years.back());
    store.settle();
    const bool described = describeCircuits(store, data);
    if (!faults.said.empty() || store.writesLost() || !described) {
        std::fprintf(stderr, "the sample seasons are not whole: %s\n", faults.said.c_str());
        return 1;
    }
    return 0;
}
