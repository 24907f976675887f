// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The list of the videos that the update server offers, the file "f1galerievideo.ini" of the program folder: fetched
// anew whenever the catalogue opens, and made with the catalogue's editor.
#include "store/by_place.h"
#include "store/store.h"

#include <string>
#include <string_view>

namespace circuidex::online {

inline constexpr int cataloguePlaces = 20;
inline constexpr std::string_view cataloguePath = "/f1galerievideo.ini"; // on the server
inline constexpr std::string_view catalogueFile = "\\f1galerievideo.ini"; // below the program folder
inline constexpr std::string_view videosPath = "/videos/"; // on the server, before the name of a film

struct Video {
    std::string description;
    std::string file; // on the server and in the program folder alike
    bool operator==(const Video &) const = default;
};
using Catalogue = ByPlace<Video, cataloguePlaces>; // the newest first

Catalogue readCatalogue(const Store &store);
void writeCatalogue(Store &store, const Catalogue &catalogue);

// One place down: the first becomes free, the last is lost.
void slideDown(Catalogue &catalogue);
// One place up: the first is lost, the last stays where it is as well.
void slideUp(Catalogue &catalogue);

}
