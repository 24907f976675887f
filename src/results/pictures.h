// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Which picture stands for a circuit, a race, a driver or a team: the one that the user chose, and where there is none
// or it can't be shown, the file in the program folder that bears the name.
#include "results/main_record.h"

namespace circuidex::results {

struct ShownPicture {
    std::string path; // as it was asked for
    std::string file; // on show; empty: blank
};

ShownPicture circuitPicture(const MainRecord &main, const std::string &gpName);

// A path chosen stands for the file beside the program even when it can't be shown.
ShownPicture racePicture(const MainRecord &main, const std::string &gpName, const std::string &year);

// How far a screen goes for a driver's picture: only what was chosen; for the podium also the photo of his name; in his
// profile, behind that, the picture of anybody.
enum class PicturesOf { choice, podium, profile };

struct DriverPictures {
    std::string photo, second; // files; empty: blank
};

DriverPictures driverPictures(const MainRecord &main, const DriverRecord &record, PicturesOf screen);
std::string teamPicture(const MainRecord &main, const std::string &team);

}
