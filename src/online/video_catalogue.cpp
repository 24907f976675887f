// SPDX-License-Identifier: GPL-3.0-or-later
#include "online/video_catalogue.h"

#include <algorithm>

namespace circuidex::online {

namespace {

constexpr std::string_view stem = "galerievideo", section = "vid";

std::string descriptionKey(int place)
{
    return "description" + std::to_string(place);
}

std::string fileKey(int place)
{
    return "N°" + std::to_string(place);
}

}

Catalogue readCatalogue(const Store &store)
{
    Catalogue catalogue;
    for (int place = 1; place <= cataloguePlaces; ++place)
        catalogue[place] = {store.LireINI(stem, section, descriptionKey(place)),
                            store.LireINI(stem, section, fileKey(place))};
    return catalogue;
}

void writeCatalogue(Store &store, const Catalogue &catalogue)
{
    for (int place = 1; place <= cataloguePlaces; ++place) {
        store.EcrireINI(stem, section, descriptionKey(place), catalogue[place].description);
        store.EcrireINI(stem, section, fileKey(place), catalogue[place].file);
    }
}

void slideDown(Catalogue &catalogue)
{
    std::shift_right(catalogue.values.begin(), catalogue.values.end(), 1);
    catalogue[1] = {};
}

void slideUp(Catalogue &catalogue)
{
    const Video last = catalogue[cataloguePlaces];
    std::shift_left(catalogue.values.begin(), catalogue.values.end(), 1);
    catalogue[cataloguePlaces] = last;
}

}
