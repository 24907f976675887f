// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/pictures.h"

#include <initializer_list>

namespace circuidex::results {

namespace {

std::string firstShown(const MainRecord &main, std::initializer_list<std::string> paths)
{
    for (const std::string &path : paths)
        if (std::string file = main.surroundings.findPicture(path); !path.empty() && !file.empty())
            return file;
    return {};
}

// The files of this one race bear the name that an old code page gave it.
std::string fileNameOf(const std::string &gpName)
{
    return gpName == "Brésil" ? "Br‚sil" : gpName;
}

std::string shownFor(const MainRecord &main, const std::string &gpName, const std::string &path)
{
    return gpName.empty() ? std::string() : main.surroundings.findPicture(path);
}

}

ShownPicture circuitPicture(const MainRecord &main, const std::string &gpName)
{
    const std::string chosen = main.store.LireINI(keys::galerie, keys::gp, keys::picgp(gpName));
    if (!main.surroundings.findPicture(chosen).empty())
        return {chosen, shownFor(main, gpName, chosen)};
    const std::string named = main.folder() + "\\Photos\\Circuits\\" + fileNameOf(gpName) + ".JPG";
    return {named, shownFor(main, gpName, named)};
}

ShownPicture racePicture(const MainRecord &main, const std::string &gpName, const std::string &year)
{
    std::string path = main.store.LireINI(keys::galerie, keys::gp, keys::img(gpName, year));
    if (path.empty() || fileNameOf(gpName) != gpName)
        path = main.folder() + "\\Photos\\Actu\\" + fileNameOf(gpName) + year + ".JPG";
    return {path, shownFor(main, gpName, path)};
}

DriverPictures driverPictures(const MainRecord &main, const DriverRecord &record, PicturesOf screen)
{
    const std::string photos = main.folder() + "\\Photos\\Pilotes\\photo_";
    const std::string named = screen == PicturesOf::choice ? "" : photos + record[driverField("nom")] + ".jpg";
    const std::string anybody = screen == PicturesOf::profile ? photos + "XXX.jpg" : "";
    return {firstShown(main, {record[driverField("path")], named, anybody}),
            firstShown(main, {record[driverField("pi")], anybody})};
}

std::string teamPicture(const MainRecord &main, const std::string &team)
{
    return firstShown(main,
                      {main.season().read(keys::N, keys::lblecuriE(team)),
                       main.folder() + "\\Photos\\Voitures\\picto_" + team + ".jpg"});
}

}
