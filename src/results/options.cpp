#include "results/options.h"

#include "store/keys.h"

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

}
