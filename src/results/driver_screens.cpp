#include "results/driver_screens.h"

#include "results/media_of_grand_prix.h"
#include "results/navigation.h"
#include "results/pictures.h"
#include "store/history.h"

namespace circuidex::results {

namespace {

std::string actionOnDriver(const MainRecord &main, const std::string &what, DriverBoxes &boxes)
{
    return what + " " + ofName(boxes.box("nom").text()) + " " + main.an.text();
}

}

void showDriver(MainRecord &main, DriverBoxes &boxes, DriverScreen screen)
{
    const DriverRecord record = readDriver(main.season(), boxes.nopilot.text());
    boxes.show(record);
    main.said.set("");
    const DriverPictures pictures =
        driverPictures(main, record, screen == DriverScreen::profile ? PicturesOf::profile : PicturesOf::choice);
    boxes.picture1.set(pictures.photo);
    boxes.Image1.set(pictures.second);
}

bool storeShownDriver(MainRecord &main, DriverBoxes &boxes, DriverScreen screen)
{
    DriverRecord whole = completed(boxes.record(), screen);
    const std::string refusal = enterNames(main.season(), boxes.nopilot.text(), whole);
    if (!refusal.empty()) {
        main.dialogs.message(refusal);
        return false;
    }
    boxes.show(whole);
    const bool fresh = screen == DriverScreen::newDriver;
    const Action undoable(main.store, actionOnDriver(main, fresh ? "inscription" : "profil", boxes));
    storeDriver(main.writableSeason(), boxes.nopilot.text(), whole, screen);
    showNamesAnew(main);
    main.said.set("Pilote n° " + boxes.nopilot.text() + " enregistré : " + boxes.box("nom").text());
    return true;
}

void chooseDriverPicture(MainRecord &main, DriverBoxes &boxes, std::string_view prefix)
{
    const auto chosen = choosePictureFile(main.dialogs, "Image");
    if (!chosen)
        return;
    boxes.box(prefix).set(*chosen);
    const Action undoable(main.store, actionOnDriver(main, "image", boxes));
    (prefix == "path" ? boxes.picture1 : boxes.Image1).set(main.surroundings.findPicture(*chosen));
    main.writableSeason().write(keys::N, keys::driver(prefix, boxes.nopilot.text()), *chosen);
}

void readProfile(MainRecord &main)
{
    DriverProfile &profile = main.profile;
    showDriver(main, profile, DriverScreen::profile);
    if (profile.box("sitweb").empty())
        profile.box("sitweb").set("http://");
    const std::string &team = profile.box("ecurie").text();
    profile.lblecuriE.set(main.season().read(keys::N, keys::lblecuriE(team)));
    profile.ecuriE.set(teamPicture(main, team));
}

void chooseTeamPicture(MainRecord &main)
{
    const EnteredName team = enteredName(main.profile.box("ecurie").text());
    if (!team.fits())
        return main.dialogs.message(team.refusal);
    const auto chosen = choosePictureFile(main.dialogs, "Image");
    if (!chosen)
        return;
    const Action undoable(main.store, "image de l'écurie " + team.name + " " + main.an.text());
    main.writableSeason().write(keys::N, keys::lblecuriE(team.name), *chosen);
    main.profile.lblecuriE.set(*chosen);
    main.profile.ecuriE.set(main.surroundings.findPicture(*chosen));
}

void emptyProfile(DriverProfile &profile)
{
    profile.box("nom").set("");
    for (std::size_t i = 0; i < driverFields.size(); ++i)
        if (const std::string_view kept = driverFields[i].prefix; kept != "sitweb" && kept != "path" && kept != "pi")
            profile.boxes[i].set("");
    profile.seasons.set("");
}

void storeProfile(MainRecord &main)
{
    const Action undoable(main.store, actionOnDriver(main, "profil", main.profile));
    if (!storeShownDriver(main, main.profile, DriverScreen::profile))
        return;
    if (main.profile.seasons.empty())
        main.profile.seasons.set("1");
    keepSeasons(main);
}

void keepSeasons(MainRecord &main)
{
    storeCareerSeasons(main.writableSeason(), main.profile.box("nom").text(), main.profile.seasons.text());
}

}
