// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/navigation.h"

#include "results/media_of_grand_prix.h"
#include "results/pictures.h"
#include "results/race_entry.h"
#include "store/names.h"

#include <algorithm>

namespace circuidex::results {

namespace {

constexpr int lastSlot = gpSlots - 1;

void showPictures(MainRecord &main)
{
    const ShownPicture circuit = circuitPicture(main, main.gp.text());
    main.Labell.set(circuit.path);
    main.Image1.set(circuit.file);
    const ShownPicture race = racePicture(main, main.gp.text(), main.an.text());
    main.Label50.set(race.path);
    main.Image2.set(race.file);
}

void showFilm(MainRecord &main)
{
    const std::string key = keys::vid(main.gp.text(), main.an.text());
    main.a.set(main.store.LireINI(keys::galerie, keys::gp, key));
    const std::string path = filmBesideProgram(main);
    const bool beside = !main.surroundings.findFile(path).empty();
    main.film.set(beside ? "vrai" : "");
    if (beside)
        main.writableSeason().write(keys::gp, key, path);
}

void show(MainRecord &main)
{
    const Season season = main.season();
    showResult(main, season);
    main.dat.set(season.read(keys::gp, keys::dategp(main.gp.text())));
    raceLoaded(main);
    showPictures(main);
    showFilm(main);
}

void showSlot(MainRecord &main)
{
    main.gp.set(main.season().read(keys::gp, keys::namegp(main.Label40.text())));
    show(main);
}

// From one end of the calendar the cursor goes on at the other.
void moveCursor(MainRecord &main, std::string_view end, std::string_view beforeStart, double step)
{
    if (main.Label40.text() == end)
        main.Label40.set(std::string(beforeStart));
    main.Label40.set(main.store.numbers().stepped(main.Label40.text(), step));
}

void changeSeason(MainRecord &main, double step)
{
    main.an.set(main.store.numbers().stepped(main.an.text(), step));
    showSlot(main);
}

}

void showGrandPrix(MainRecord &main)
{
    main.gp.set(enteredName(main.gp.text()).name);
    show(main);
}

void nextGrandPrix(MainRecord &main)
{
    moveCursor(main, "19", "-1", 1);
    showSlot(main);
}

void previousGrandPrix(MainRecord &main)
{
    moveCursor(main, "0", "20", -1);
    showSlot(main);
}

void nextSeason(MainRecord &main)
{
    changeSeason(main, 1);
}

void previousSeason(MainRecord &main)
{
    changeSeason(main, -1);
}

void showSeason(MainRecord &main)
{
    showSlot(main);
}

void showCalendarAnew(MainRecord &main, const std::string &nameBefore)
{
    if (main.gp.text() != nameBefore)
        return;
    const Season season = main.season();
    const std::string gpName = season.read(keys::gp, keys::namegp(main.Label40.text()));
    if (gpName != nameBefore)
        return showSlot(main);
    if (gpName.empty())
        return;
    const bool typed = unsavedRace(main);
    main.dat.set(season.read(keys::gp, keys::dategp(gpName)));
    if (!typed)
        raceLoaded(main);
}

void showNamesAnew(MainRecord &main)
{
    const Season season = main.season();
    const auto follow = [&](const Field &number, Field &name) {
        if (!number.empty())
            name.set(season.nom(number.text()));
    };
    for (int place = 1; place <= classifiedPlaces; ++place)
        follow(main.number(place), main.name(place));
    follow(main.Text39, main.Text9);
}

int firstFreeSlot(const Season &season)
{
    int slot = 0;
    while (slot < gpSlots && season.recorded(season.namegp(slot)))
        ++slot;
    return slot;
}

void goToFirstFreeSlot(MainRecord &main)
{
    main.Label40.set(std::to_string(std::min(firstFreeSlot(main.season()), lastSlot)));
    showSlot(main);
}

void rebuildNogp(const WritableSeason &season)
{
    season.write(keys::gp, "nogp", std::to_string(firstFreeSlot(season)));
}

void openOnLastRecorded(MainRecord &main)
{
    main.Label40.set(std::to_string(std::max(firstFreeSlot(main.season()) - 1, 0)));
    showSlot(main);
    main.refreshScale();
    rebuildNogp(main.writableSeason());
}

bool openMarkedSeason(MainRecord &main)
{
    main.an.set(main.store.yearMarker());
    if (!main.an.empty())
        return false;
    main.an.set("2005");
    return true;
}

void markFirstSeason(Store &store)
{
    store.setYearMarker(" 2004 "); // with the blanks that numbers in a text file have
}

void forgetMarkedSeason(MainRecord &main)
{
    const std::string marker = main.surroundings.findFile("Année");
    if (!marker.empty())
        main.surroundings.deleteFile(marker);
}

}
