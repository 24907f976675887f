#include "results/options.h"

namespace circuidex::results {

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

void keepOpeningPicture(Store &store, std::string_view path)
{
    store.EcrireINI(keys::ARCHIVES, "fond", "fond", path);
}

std::optional<SavedDisplay> displayToRestore(const Season &season)
{
    constexpr std::string_view ecran = "ecran";
    const auto number = [&](std::string_view key, int most) {
        return season.numbers().whole(season.read(ecran, key), 1, most);
    };
    const auto width = number("resolutionX", 100'000), height = number("resolutiony", 100'000);
    const auto depth = number("nbcouleurs", 64);
    if (season.read(ecran, "adaptationauto") != "vrai" || !width || !height || !depth)
        return std::nullopt;
    return SavedDisplay{*width, *height, *depth};
}

}
