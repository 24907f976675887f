#include "results/new_season.h"

#include "results/drivers.h"
#include "results/navigation.h"
#include "results/pictures.h"
#include "results/recording.h"
#include "store/history.h"

namespace circuidex::results {

namespace {

constexpr int lastCountedNumber = 29; // files may hold points of numbers beyond the last driver
constexpr int numbersWithOneMore = 24; // whose seasons are counted, from driver 1

WritableSeason transitFile(const MainRecord &main)
{
    return WritableSeason(main.store, "transit");
}

// Absent for a text that is no year, and for the last one.
std::optional<std::string> yearAfter(const std::string &year, const Numbers &numbers)
{
    const auto next = numbers.sum(year, "1");
    return next && isYear(year) && isYear(*next) ? next : std::nullopt;
}

// The title goes to the driver's record before the record is copied, so that both seasons know it.
void crown(MainRecord &main, const std::string &champion)
{
    const WritableSeason season = main.writableSeason();
    const std::string &year = season.stem();
    const std::string name = season.nom(champion), points = season.driver("nbpts", champion);
    season.write(keys::N, keys::driver("champion", champion), season.driver("champion", champion) + "-" + year);
    main.dialogs.message(name + " sur " + season.ecurie(champion) + " est le champion du monde de la saison " + year +
                         " avec " + points + " points!");
    WritableSeason(main.store, std::string(keys::ARCHIVES)).write(keys::GP, keys::champion(year), name);
}

// Phase one for one number. A driver without team or figures is given them here.
void leaveDriver(const Season &old, const WritableSeason &transit, const std::string &number)
{
    storeDriver(transit, number, completed(readDriver(old, number), DriverScreen::newDriver), DriverScreen::profile);
    const std::string name = transit.nom(number), team = keys::lblecuriE(transit.ecurie(number));
    storeCareerSeasons(transit, name, careerSeasons(old, name));
    transit.write(keys::N, team, old.read(keys::N, team));
}

// The path of a circuit's picture is the one by which the main screen shows it.
void leaveCalendar(const MainRecord &main, const WritableSeason &transit)
{
    for (int slot = 0; slot < gpSlots; ++slot) {
        const std::string name = main.season().namegp(slot);
        transit.write(keys::gp, keys::namegp(slot), name);
        if (!name.empty())
            transit.write(keys::gp, keys::picgp(name), circuitPicture(main, name).path);
    }
}

// Phase two for one number. Podiums begin to count here if they didn't before. The number itself goes with a driver who
// has a name: the screen for a new driver looks for the first free one, and without it would offer number 1, which is
// somebody's.
void arriveDriver(const Season &transit, const WritableSeason &fresh, const std::string &number)
{
    DriverRecord record = readDriver(transit, number);
    if (std::string &podiums = record[driverField("podiums")]; podiums.empty())
        podiums = "0";
    storeDriver(fresh, number, record, DriverScreen::profile);
    const std::string name = fresh.nom(number), team = keys::lblecuriE(fresh.ecurie(number));
    if (name.empty())
        fresh.write(keys::N, keys::driver("N°", number), "");
    const std::string seasons = careerSeasons(transit, name);
    storeCareerSeasons(fresh, name, seasons.empty() ? "0" : seasons);
    fresh.write(keys::N, team, transit.read(keys::N, team));
}

void arriveGrandPrix(const Season &transit, const WritableSeason &fresh, int slot)
{
    const std::string name = transit.namegp(slot);
    fresh.write(keys::gp, keys::namegp(slot), name);
    if (name.empty())
        return;
    for (int place = 1; place <= classifiedPlaces; ++place)
        fresh.write(keys::podiums, keys::podium(place, name), "");
    fresh.write(keys::gp, keys::picgp(name), transit.read(keys::gp, keys::picgp(name)));
}

// As the driver's sheet counts it: who has no count is in his first season, and begins his second.
void countSeasons(const WritableSeason &season)
{
    for (int number = 1; number <= numbersWithOneMore; ++number) {
        const std::string name = season.nom(number), held = careerSeasons(season, name);
        if (const auto more = season.numbers().sum(held.empty() ? "1" : held, "1"))
            storeCareerSeasons(season, name, *more);
    }
}

// The inherited scale becomes the new season's own: a later change of the old one doesn't reach it.
void passOnScale(MainRecord &main)
{
    if (main.closeScaleEditor)
        main.closeScaleEditor(); // it holds the scale of the old season
    main.refreshScale();
    storeScale(main.writableSeason(), main.scale());
}

// False when the transit file doesn't hold the drivers; what an earlier passage left there must not arrive instead.
bool leave(const MainRecord &main)
{
    const unsigned lost = main.store.lostWrites();
    const Season old = main.season();
    const WritableSeason transit = transitFile(main);
    for (int number = 0; number < carriedSlots; ++number)
        leaveDriver(old, transit, std::to_string(number));
    leaveCalendar(main, transit);
    main.store.flush();
    return main.store.lostWrites() == lost;
}

// False when the new season doesn't hold everything.
bool arrive(const MainRecord &main, const std::string &year)
{
    const unsigned lost = main.store.lostWrites();
    const Season transit = transitFile(main);
    const WritableSeason fresh(main.store, year);
    for (int number = 0; number < carriedSlots; ++number)
        arriveDriver(transit, fresh, std::to_string(number));
    for (int slot = 0; slot < gpSlots; ++slot)
        arriveGrandPrix(transit, fresh, slot);
    countSeasons(fresh);
    main.store.flush();
    return main.store.lostWrites() == lost;
}

// A season that has results is replaced without a question, so it is copied. False when that can't be done.
bool keepReplaced(MainRecord &main, const std::string &year)
{
    const Season replaced(main.store, year);
    bool held = false;
    for (int slot = 0; slot < gpSlots && !held; ++slot)
        held = hasResult(replaced, replaced.namegp(slot));
    const std::string copy = held ? main.store.keepCopy(year) : std::string();
    main.overwritten =
        copy.empty() ? "" : "La saison " + year + " avait des résultats, elle est remplacée ; sa copie : " + copy;
    return !held || !copy.empty();
}

// The user is told where the way ends.
bool carry(MainRecord &main, const std::string &next)
{
    if (!leave(main)) {
        main.dialogs.message("Le fichier de transit ne peut pas être écrit : rien n'a été transféré.");
        return false;
    }
    if (!keepReplaced(main, next)) {
        main.dialogs.message("La saison " + next +
                             " a des résultats et ne peut pas être copiée : rien n'a été transféré.");
        return false;
    }
    if (!arrive(main, next)) {
        main.dialogs.message("La saison " + next + " n'a pas pu être écrite en entier. La saison " + main.an.text() +
                             " reste ouverte : recommencez quand le disque accepte l'écriture.");
        return false;
    }
    return true;
}

}

std::optional<int> championshipLeader(const Season &season)
{
    std::optional<int> leader;
    double most = 0;
    for (int number = 1; number <= driverSlots; ++number) {
        const auto points = season.numbers().value(season.driver("nbpts", number));
        if (!points || season.nom(number).empty() || (leader && *points <= most))
            continue;
        leader = number;
        most = *points;
    }
    return leader;
}

bool passToNextSeason(MainRecord &main, const std::string &champion)
{
    const std::string year = main.an.text();
    const auto next = yearAfter(year, main.store.numbers());
    if (!next) {
        main.dialogs.message("La saison \"" + year + "\" n'est pas une année : il n'y a pas de saison suivante.");
        return false;
    }
    const Action undoable(main.store, "passage à la saison " + *next);
    const WritableSeason old = main.writableSeason();
    const std::string titleKey = keys::driver("champion", champion), titles = old.read(keys::N, titleKey);
    crown(main, champion);
    main.dialogs.message(
        "Le programme va passer a la saison suivante! Il va transférer toutes les données des pilotes "
        "de la saison " +
        year + " vers la saison " + *next +
        ". Vous pourez par la suite effectuer les transferts des pilotes, le calendrier etc... si vous "
        "n'effectuez pas de mise a jour en ligne.");
    if (!carry(main, *next)) {
        old.write(keys::N, titleKey, titles); // a second try crowns him again
        return false;
    }
    nextSeason(main);
    main.dialogs.message("Opération terminée, vous pouvez désormais soit faire une mise a jour en ligne pour mettre a "
                         "jour la base de donnée, soit entrer vous même les modifications qui ont eut lieu durant "
                         "l'inter-saison");
    passOnScale(main);
    return true;
}

void clearTotals(const WritableSeason &season)
{
    for (int number = 1; number <= driverSlots; ++number)
        if (const std::string team = season.ecurie(number); !team.empty())
            season.write(keys::N, keys::ptsecurie(team), "0");
    for (int number = 0; number <= lastCountedNumber; ++number)
        season.write(keys::N, keys::driver("nbpts", number), "0");
}

}
