#pragma once
// The circuit picture, the picture and the film of the Grand Prix on show: chosen by the user, kept in the gallery file.
#include "results/main_record.h"

namespace circuidex::results {

// Asks for a file and takes it for the circuit or for the race; cancelling changes nothing.
void chooseCircuitPicture(MainRecord &main);
void chooseRacePicture(MainRecord &main);
void chooseFilm(MainRecord &main);

// Forgets the path. The file of the circuit or the picture stays; a film beside the program is deleted.
void removeCircuitPicture(MainRecord &main);
void removeRacePicture(MainRecord &main);
void removeFilm(MainRecord &main);

// Where the film of the Grand Prix on show lies, by the gallery file or else beside the program.
std::string filmPath(const MainRecord &main);

}
