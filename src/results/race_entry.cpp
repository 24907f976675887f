// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/race_entry.h"

#include "results/navigation.h"
#include "results/recording.h"

namespace circuidex::results {

namespace {

bool recorded(const MainRecord &main, const std::string &season, const std::string &gpName)
{
    return hasResult(Season(main.store, seasonStem(season)), gpName);
}

Texts typedTexts(const MainRecord &main, bool isRecorded)
{
    Texts texts{main.Text41.text(), main.Text39.text(), isRecorded ? std::string() : main.dat.text()};
    for (int place = 1; place <= classifiedPlaces; ++place)
        texts.push_back(main.Text1to8[place].text());
    return texts;
}

Texts typedTexts(const MainRecord &main)
{
    return typedTexts(main, recordedRace(main));
}

LeftEntry asShown(const MainRecord &main)
{
    const std::string &season = main.an.text(), &gpName = main.gp.text();
    return {"Form1", season, gpName, typedTexts(main, recorded(main, season, gpName))};
}

}

bool recordedRace(const MainRecord &main)
{
    const LeftEntry *thing = main.entry.thing();
    return thing && recorded(main, thing->season, thing->subject);
}

void raceLoaded(MainRecord &main)
{
    main.entry.loaded(asShown(main));
}

void raceStored(MainRecord &main)
{
    main.entry.stored(asShown(main), main.left);
}

bool unsavedRace(const MainRecord &main)
{
    return main.entry.unsaved(typedTexts(main));
}

void leaveRace(MainRecord &main)
{
    main.entry.leave(typedTexts(main), main.left, {main.Label40.text(), main.gp.text()});
}

void resumeRace(MainRecord &main, const LeftEntry &left)
{
    if (left.beside.size() < 2 || left.texts.size() < 3 + classifiedPlaces)
        return;
    main.an.set(left.season);
    main.Label40.set(left.beside[0]);
    main.gp.set(left.subject);
    showGrandPrix(main);
    main.gp.set(left.beside[1]);
    main.Text41.set(left.texts[0]);
    main.Text39.set(left.texts[1]);
    if (!recorded(main, left.season, left.subject))
        main.dat.set(left.texts[2]);
    for (int place = 1; place <= classifiedPlaces; ++place) {
        main.number(place).set(left.texts[static_cast<std::size_t>(2 + place)]);
        main.name(place).set(main.season().nom(main.number(place).text()));
    }
}

}
