#include "results/media_of_grand_prix.h"

#include "store/history.h"
#include "store/names.h"
#include "store/season.h"
#include "store/text.h"

namespace circuidex::results {

namespace {

const std::string filmFilter = "Vidéos (*.avi *.mpg *.mpeg *.wmv *.mp4 *.mkv);;Tous les fichiers (*)";

void keep(MainRecord &main, const std::string &key, const std::string &path)
{
    WritableSeason(main.store, std::string(keys::galerie)).write(keys::gp, key, path);
}

std::optional<std::string> chooseKept(Dialogs &dialogs, const std::string &title, const std::string &filter,
                                      const std::string &preset)
{
    auto chosen = dialogs.chooseFile(title, filter, preset);
    return chosen && canKeepPath(dialogs, *chosen) ? chosen : std::nullopt;
}

std::string circuitKey(const MainRecord &main)
{
    return keys::picgp(main.gp.text());
}

std::string raceKey(const MainRecord &main)
{
    return keys::img(main.gp.text(), main.an.text());
}

std::string filmKey(const MainRecord &main)
{
    return keys::vid(main.gp.text(), main.an.text());
}

void take(MainRecord &main, const std::string &title, std::string (*key)(const MainRecord &), Field &path, Field &shown)
{
    if (!main.enterGrandPrix())
        return;
    const auto chosen = choosePictureFile(main.dialogs, title);
    if (!chosen)
        return;
    path.set(*chosen);
    shown.set(main.surroundings.findPicture(*chosen));
    const bool ofCircuit = key == circuitKey;
    const Action undoable(main.store, ofCircuit ? "tracé " + ofName(main.gp.text()) : main.actionOnRace("image"));
    keep(main, key(main), *chosen);
}

}

bool canKeepPath(Dialogs &dialogs, const std::string &path)
{
    if (comesBack(path))
        return true;
    dialogs.message("Ce fichier ne peut pas être retenu : les fichiers de données ne peuvent pas contenir son chemin, qui est "
                    "trop long (plus de 254 caractères) ou porte des caractères qu'ils n'ont pas.\n\nRenommez-le ou "
                    "déplacez-le, puis choisissez-le de nouveau.");
    return false;
}

std::optional<std::string> choosePictureFile(Dialogs &dialogs, const std::string &title, const std::string &preset)
{
    return chooseKept(dialogs, title, pictureFilter, preset);
}

std::optional<std::string> chooseFilmFile(Dialogs &dialogs, const std::string &title, const std::string &preset)
{
    return chooseKept(dialogs, title, filmFilter, preset);
}

void chooseCircuitPicture(MainRecord &main)
{
    take(main, "Image du tracé", circuitKey, main.Labell, main.Image1);
}

void chooseRacePicture(MainRecord &main)
{
    take(main, "Image du Grand Prix", raceKey, main.Label50, main.Image2);
}

void chooseFilm(MainRecord &main)
{
    if (!main.enterGrandPrix())
        return;
    const auto chosen = chooseFilmFile(main.dialogs, "Vidéo du Grand Prix", main.a.text());
    if (!chosen)
        return;
    main.a.set(*chosen);
    const Action undoable(main.store, main.actionOnRace("vidéo"));
    keep(main, filmKey(main), *chosen);
    main.film.set("vrai");
}

void removeCircuitPicture(MainRecord &main)
{
    const Action undoable(main.store, "retrait du tracé " + ofName(main.gp.text()));
    keep(main, circuitKey(main), "");
}

void removeRacePicture(MainRecord &main)
{
    const Action undoable(main.store, main.actionOnRace("retrait de l'image"));
    keep(main, raceKey(main), "");
    main.Image2.set("");
}

void removeFilm(MainRecord &main)
{
    const Action undoable(main.store, main.actionOnRace("retrait de la vidéo"));
    keep(main, filmKey(main), "");
    main.film.set("");
    const std::string file = main.surroundings.findFile(filmBesideProgram(main));
    if (!file.empty())
        main.surroundings.deleteFile(file);
}

std::string filmBesideProgram(const MainRecord &main)
{
    return main.folder() + "\\" + main.gp.text() + main.an.text() + ".avi";
}

std::string filmAtHand(const MainRecord &main)
{
    const std::string kept = main.store.LireINI(keys::galerie, keys::gp, filmKey(main));
    return kept.empty() ? filmBesideProgram(main) : kept;
}

}
