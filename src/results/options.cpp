// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/options.h"

#include "results/media_of_grand_prix.h"

namespace circuidex::results {

namespace {

constexpr std::string_view ecran = "ecran";

}

std::string chosenSkin(const Store &store)
{
    return store.LireINI(keys::galerie, "skin", "couleur");
}

void keepSkin(Store &store, std::string_view couleur)
{
    store.EcrireINI(keys::galerie, "skin", "couleur", couleur);
}

std::string openingPicture(const Store &store)
{
    return store.LireINI(keys::ARCHIVES, "fond", "fond");
}

void chooseOpeningPicture(Store &store, Dialogs &dialogs)
{
    const std::string path = dialogs.chooseFile("Image d'ouverture", pictureFilter).value_or("");
    if (path.empty() || canKeepPath(dialogs, path))
        store.EcrireINI(keys::ARCHIVES, "fond", "fond", path);
}

std::optional<SavedDisplay> savedDisplay(const Season &season)
{
    const auto number = [&](std::string_view key, int most) {
        return season.numbers().whole(season.read(ecran, key), 1, most);
    };
    const auto width = number("resolutionX", 100'000), height = number("resolutiony", 100'000);
    const auto depth = number("nbcouleurs", 64);
    if (!width || !height || !depth)
        return std::nullopt;
    return SavedDisplay{*width, *height, *depth};
}

void saveDisplay(const WritableSeason &season, const SavedDisplay &display)
{
    season.write(ecran, "resolutionX", std::to_string(display.width));
    season.write(ecran, "resolutiony", std::to_string(display.height));
    season.write(ecran, "nbcouleurs", std::to_string(display.depth));
}

bool adaptsDisplay(const Season &season)
{
    return season.read(ecran, "adaptationauto") == "vrai";
}

void setAdaptsDisplay(const WritableSeason &season, bool on)
{
    season.write(ecran, "adaptationauto", on ? "vrai" : "faux");
}

}
