#include "app/import_command.h"

#include "platform/folder_lock.h"
#include "publicdata/comparison.h"
#include "publicdata/import.h"
#include "publicdata/reading.h"
#include "publicdata/swap_in.h"
#include "store/names.h"

namespace circuidex {

namespace {

using Say = std::function<void(const std::string &)>;

// Before anything is written: what the season loses in the frame, and how it differs from the one that it would
// replace.
void tellSeason(const Store &store, const publicdata::Data &data, const publicdata::PlannedSeason &plan, const Say &say)
{
    const std::string &year = plan.season.year;
    say(year + " : " + std::to_string(plan.season.races.size()) + " courses, " +
        std::to_string(plan.season.drivers.size()) + " pilotes");
    for (const publicdata::Note &note : plan.notes)
        say("    " + note.sentence);
    if (!publicdata::seasonExists(store, std::stoi(year)))
        return;
    if (const auto comparison = publicdata::compareSeason(Season(store, year), data))
        for (const publicdata::Difference &difference : comparison->differences)
            say("    existe déjà, " + difference.sentence());
}

std::string run(Store &store, const publicdata::Data &data, std::vector<publicdata::ImportedSeason> seasons,
                const Say &say)
{
    publicdata::Import import(store, data, std::move(seasons));
    do {
        if (import.failure().empty())
            say(import.doing());
    } while (import.step());
    for (const std::string &copy : import.copies())
        say("Copie de ce qui est remplacé : " + copy);
    return import.failure();
}

}

std::string importSeasons(const std::filesystem::path &folder, Numbers numbers, const ImportOrder &order,
                          const Say &say)
{
    const FolderLock lock(folder);
    if (lock.heldElsewhere())
        return "Circuidex est ouvert sur ce dossier : fermez-le avant d'importer.";
    const publicdata::ReadData release = publicdata::readPublicData(order.release);
    if (!release.fits())
        return release.refusal;
    if (publicdata::finishImport(folder))
        say("Un import interrompu a été terminé.");
    Store store(folder, numbers);
    store.protect();
    store.keepHistory();
    std::vector<publicdata::ImportedSeason> seasons;
    for (const std::string &year : order.years) {
        auto plan = isYear(year) ? publicdata::planSeason(release.data, std::stoi(year)) : std::nullopt;
        if (!plan)
            return "Les données n'ont pas de saison " + inQuotes(year) + ".";
        for (const publicdata::ImportedSeason &other : seasons)
            if (other.plan.season.year == year)
                return "La saison " + year + " est demandée deux fois.";
        tellSeason(store, release.data, *plan, say);
        seasons.push_back({*std::move(plan), order.replace});
    }
    if (const auto note = publicdata::archiveNote(store, release.data))
        say(note->sentence);
    return run(store, release.data, std::move(seasons), say);
}

}
