#pragma once
// The circuit picture, the picture and the film of the Grand Prix on show: chosen by the user, kept in the gallery file.
#include "results/main_record.h"

namespace circuidex::results {

// Asks for a picture of any kind of the program's. A file whose path the data files can't hold is refused with a message,
// as if the user had cancelled; a film likewise.
std::optional<std::string> choosePictureFile(Dialogs &dialogs, const std::string &title);

// Asks for a file and takes it for the circuit or for the race; cancelling changes nothing. What is no film is refused.
void chooseCircuitPicture(MainRecord &main);
void chooseRacePicture(MainRecord &main);
void chooseFilm(MainRecord &main);

// Forgets the path. The file of the circuit or the picture stays; a film beside the program is deleted.
void removeCircuitPicture(MainRecord &main);
void removeRacePicture(MainRecord &main);
void removeFilm(MainRecord &main);

// Where a film of the Grand Prix on show is looked for when nobody chose one.
std::string filmBesideProgram(const MainRecord &main);

// The film of the Grand Prix on show, where the gallery file says or else beside the program; empty when there is none to
// be played.
std::string filmAtHand(const MainRecord &main);

}
