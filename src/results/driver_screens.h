// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What the driver screens do: show the driver of a number, keep what was typed, take a picture. The screen of a new
// driver has its own boxes; the profile's stand in the main record, since the sheet of ratios shows them too.
#include "results/main_record.h"

namespace circuidex::results {

// The driver of the number in the boxes, with his pictures.
void showDriver(MainRecord &main, DriverBoxes &boxes, DriverScreen screen);

// Fills the defaults into empty boxes and stores them all. False, and the user is told, when a name can't be stored.
bool storeShownDriver(MainRecord &main, DriverBoxes &boxes, DriverScreen screen);

// Asks for a file and stores it at once, "path" for the photo, "pi" for the second picture; cancelling changes nothing.
void chooseDriverPicture(MainRecord &main, DriverBoxes &boxes, std::string_view prefix);

// The profile: boxes, pictures and the team's. An address that is missing is begun.
void readProfile(MainRecord &main);
void chooseTeamPicture(MainRecord &main);

// Number, address and pictures stay; the name goes first, so that the seasons of the driver who leaves stay his.
void emptyProfile(DriverProfile &profile);
void storeProfile(MainRecord &main); // a career without a count is in its first season

// The boxes of a new driver, still empty, wait for what is typed.
void awaitDriver(const MainRecord &main, DriverBoxes &boxes);

// What was typed and isn't stored, the pictures apart, which are stored at once. Another driver, or a closing screen,
// leaves it; taken up, it stands in the boxes again, its driver and his season on show.
bool unsavedDriver(const DriverBoxes &boxes);
void leaveDriver(MainRecord &main, DriverBoxes &boxes);
void resumeDriver(DriverBoxes &boxes, const LeftEntry &left); // the driver is on show already

// The seasons on show, under the name on show.
void keepSeasons(MainRecord &main);

}
