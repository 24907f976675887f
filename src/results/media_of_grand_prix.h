// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The circuit picture, the picture and the film of the Grand Prix on show: chosen by the user, kept in the gallery file.
#include "results/main_record.h"

namespace circuidex::results {

inline const std::string pictureFilter = "Images (*.jpg *.jpeg *.png *.bmp *.gif *.webp);;Tous les fichiers (*)";

// Asks for a picture or a film of any kind of the program's. A file whose path the data files can't hold is refused with a
// message, as if the user had cancelled. The preset stands in the choice at first.
std::optional<std::string> choosePictureFile(Dialogs &dialogs, const std::string &title, const std::string &preset = {});
std::optional<std::string> chooseFilmFile(Dialogs &dialogs, const std::string &title, const std::string &preset = {});

// Whether the data files can hold this path; the user is told when they can't.
bool canKeepPath(Dialogs &dialogs, const std::string &path);

// Asks for a file and takes it for the circuit or for the race; cancelling changes nothing.
void chooseCircuitPicture(MainRecord &main);
void chooseRacePicture(MainRecord &main);
void chooseFilm(MainRecord &main);

// Forgets the path. The file of the circuit or the picture stays; a film beside the program is deleted.
void removeCircuitPicture(MainRecord &main);
void removeRacePicture(MainRecord &main);
void removeFilm(MainRecord &main);

// Where a film of the Grand Prix on show is looked for when nobody chose one.
std::string filmBesideProgram(const MainRecord &main);

// The film of the Grand Prix on show: where the gallery file says, and if it says nothing, beside the program. Whether it is
// there shows when it is played.
std::string filmAtHand(const MainRecord &main);

}
