// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/file_lookup.h"

#include "store/temporary_folder.h"

#include <gtest/gtest.h>

using namespace circuidex;
using namespace circuidex::test;

namespace {

class FileLookup : public testing::Test {
protected:
    FileLookup()
    {
        for (const char *name :
             {"programme/Photos/Circuits/Monaco.JPG", "programme/Photos/Actu/Brésil2005.jpg",
              "programme/Photos/Circuits/Br‚sil.JPG", "programme/photos.txt", "programme/Été/É.png",
              "programme/Monaco2005.avi/piste.txt", "programme/a.png", "programme/A.png",
              "programme/photos/CIRCUITS/spa.jpg", "dehors.txt"}) {
            std::filesystem::create_directories((outside / name).parent_path());
            layDown(outside / name, "x");
        }
    }

    // The path found, from the folder above the program's.
    std::string found(const std::string &stored) const
    {
        const std::string path = findFile(outside / "programme", stored);
        return path.starts_with(outside.path().string()) ? path.substr(outside.path().string().size() + 1) : path;
    }

    TemporaryFolder outside;
};

TEST_F(FileLookup, FindsFilesHoweverTheirPathIsWritten)
{
    struct Case {
        std::string stored, found;
    };
    const std::string monaco = "programme/Photos/Circuits/Monaco.JPG", root = outside.path().string();
    const Case cases[] = {
        {"", ""},
        {"/", ""},
        {"\\", ""},
        {"\\Photos\\Circuits\\Monaco.JPG", monaco},
        {"Photos/Circuits/Monaco.JPG", monaco},
        {"/Photos/Circuits/Monaco.JPG", monaco}, // not from the root, so from the folder
        {"\\PHOTOS\\circuits\\mOnAcO.jpg", monaco},
        {"Photos\\/\\Circuits//Monaco.JPG", monaco},
        {"\\photos\\actu\\BRÉSIL2005.JPG", "programme/Photos/Actu/Brésil2005.jpg"},
        {"\\Photos\\Circuits\\Spa.JPG", "programme/photos/CIRCUITS/spa.jpg"}, // beside a folder of the same name
        {root + "/programme\\Photos\\Circuits\\Spa.JPG", "programme/photos/CIRCUITS/spa.jpg"},
        {"été\\é.PNG", "programme/Été/É.png"},
        {"\\Photos\\Circuits\\br‚sil.jpg", "programme/Photos/Circuits/Br‚sil.JPG"},
        {"\\Photos\\Circuits\\Bresil.JPG", ""},
        {"a.png", "programme/a.png"}, // of two that differ in case, the one written exactly so
        {"A.png", "programme/A.png"},
        {root + "/programme/Photos/Circuits/Monaco.JPG", monaco},
        {root + "/programme\\photos\\circuits\\monaco.jpg", monaco},
        {root + "/dehors.txt", "dehors.txt"},
        {"..\\dehors.txt", "programme/../dehors.txt"},
        {"Photos\\..\\PHOTOS.TXT", "programme/Photos/../photos.txt"},
        {"Photos", ""}, // folders
        {"Photos\\", ""},
        {"Monaco2005.avi", ""},
        {"photos.txt\\Monaco.JPG", ""}, // a file taken for a folder
        {"C:\\Photos\\Circuits\\Monaco.JPG", ""},
        {"Photos\\Circuits\\Monaco.JPG ", ""},
        {"Photos\\Circuits\\Monaco", ""},
        {std::string("Photos\\Circuits\\Monaco.JPG\0", 27), ""},
        {std::string("photos.txt\0.JPG", 15), ""},
        {std::string(300, 'x') + ".jpg", ""}, // longer than a file name may be
        {std::string(100000, 'x'), ""},
    };
    for (const Case &c : cases)
        EXPECT_EQ(found(c.stored), c.found) << c.stored.substr(0, 80);
    std::string round;
    for (int i = 0; i < 300; ++i)
        round += "Photos\\..\\";
    EXPECT_NE(found(round + "photos.txt"), "");
    EXPECT_EQ(found(round + round + "photos.txt"), ""); // longer than a path may be
}

TEST_F(FileLookup, ReadsNothingOfAFolderThatIsntThere)
{
    EXPECT_EQ(findFile(outside / "ailleurs", "photos.txt"), "");
    EXPECT_EQ(findFile(outside / "programme/photos.txt", "photos.txt"), "");
}

}
