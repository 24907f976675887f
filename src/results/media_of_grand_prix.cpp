#include "results/media_of_grand_prix.h"

#include "store/text.h"

namespace circuidex::results {

namespace {

const std::string pictureFilter = "Images (*.jpg *.jpeg *.png *.bmp *.gif *.webp);;Tous les fichiers (*)";
const std::string filmFilter = "Vidéos (*.avi *.mpg *.mpeg *.wmv *.mp4 *.mkv);;Tous les fichiers (*)";

void keep(MainRecord &main, const std::string &key, const std::string &path)
{
    main.store.EcrireINI(keys::galerie, keys::gp, key, path);
}

// The chosen file, unless the data files can't hold its path.
std::optional<std::string> chooseKept(Dialogs &dialogs, const std::string &title, const std::string &filter)
{
    auto chosen = dialogs.chooseFile(title, filter);
    if (!chosen || comesBack(*chosen))
        return chosen;
    dialogs.message("Ce fichier ne peut pas être retenu : les fichiers de données ne peuvent pas contenir son chemin, qui est "
                    "trop long (plus de 254 caractères) ou porte des caractères qu'ils n'ont pas.\n\nRenommez-le ou "
                    "déplacez-le, puis choisissez-le de nouveau.");
    return std::nullopt;
}

void take(MainRecord &main, const std::string &title, const std::string &key, Field &path, Field &shown)
{
    const auto chosen = choosePictureFile(main.dialogs, title);
    if (!chosen)
        return;
    path.set(*chosen);
    shown.set(main.surroundings.findPicture(*chosen));
    keep(main, key, *chosen);
}

}

std::optional<std::string> choosePictureFile(Dialogs &dialogs, const std::string &title)
{
    return chooseKept(dialogs, title, pictureFilter);
}

void chooseCircuitPicture(MainRecord &main)
{
    take(main, "Image du tracé", keys::picgp(main.gp.text()), main.Labell, main.Image1);
}

void chooseRacePicture(MainRecord &main)
{
    take(main, "Image du Grand Prix", keys::img(main.gp.text(), main.an.text()), main.Label50, main.Image2);
}

void chooseFilm(MainRecord &main)
{
    const auto chosen = chooseKept(main.dialogs, "Vidéo du Grand Prix", filmFilter);
    if (!chosen)
        return;
    main.a.set(*chosen);
    keep(main, keys::vid(main.gp.text(), main.an.text()), *chosen);
    main.film.set("vrai");
}

void removeCircuitPicture(MainRecord &main)
{
    keep(main, keys::picgp(main.gp.text()), "");
}

void removeRacePicture(MainRecord &main)
{
    keep(main, keys::img(main.gp.text(), main.an.text()), "");
    main.Image2.set("");
}

void removeFilm(MainRecord &main)
{
    keep(main, keys::vid(main.gp.text(), main.an.text()), "");
    main.film.set("");
    const std::string file = main.surroundings.findFile(filmBesideProgram(main));
    if (!file.empty())
        main.surroundings.deleteFile(file);
}

std::string filmBesideProgram(const MainRecord &main)
{
    return main.folder() + "\\" + main.gp.text() + main.an.text() + ".avi";
}

std::string filmPath(const MainRecord &main)
{
    const std::string kept =
        main.store.LireINI(keys::galerie, keys::gp, keys::vid(main.gp.text(), main.an.text()));
    return kept.empty() ? filmBesideProgram(main) : kept;
}

}
