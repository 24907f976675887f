// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/film_file.h"

#include "store/temporary_folder.h"

#include <gtest/gtest.h>

using namespace circuidex;
using namespace circuidex::test;

namespace {

TEST(FilmFile, IsToldByNameOrContentAndIsAnOrdinaryFile)
{
    const TemporaryFolder folder;
    struct Case {
        const char *name;
        std::string bytes;
        bool film;
    };
    const Case cases[] = {
        {"Monaco2005.avi", "", true},
        {"départ.MKV", "x", true},
        {"RIFF",
         "RIFF\x10\x10\x10\x10"
         "AVI LIST",
         true},
        {"mp4",
         std::string("\0\0\0\x18"
                     "ftypisom",
                     12),
         true},
        {"texte.txt", "Ceci est du texte", false},
        {"f12005.ini", "[a]\r\nk=1\r\n", false},
        {"script.sh", "#!/bin/sh\n", false},
        {"avi", "", false},
    };
    for (const Case &c : cases) {
        layDown(folder / c.name, c.bytes);
        EXPECT_EQ(isFilm((folder / c.name).string()), c.film) << c.name;
    }
    std::filesystem::create_directory(folder / "dossier.avi");
    EXPECT_FALSE(isFilm((folder / "dossier.avi").string()));
    EXPECT_FALSE(isFilm((folder / "weg.avi").string()));
    EXPECT_FALSE(isFilm("/dev/null"));
}

}
