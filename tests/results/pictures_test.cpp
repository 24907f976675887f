// SPDX-License-Identifier: GPL-3.0-or-later
// Which picture stands for whom: the choice, the file that bears the name, the picture of anybody.
#include "results/pictures.h"

#include "results/season_fixture.h"

#include <set>

using namespace circuidex;
using namespace circuidex::results;
using namespace circuidex::test;

namespace {

// A desk with these files beside the program; "~" stands for the program folder.
class Pictures : public testing::Test {
protected:
    Pictures()
    {
        desk.main.surroundings.findPicture = [this](const std::string &path) {
            return files.contains(shortened(path)) ? shortened(path) : "";
        };
    }
    std::string shortened(const std::string &path) const
    {
        const std::string folder = desk.main.folder();
        return path.starts_with(folder) ? "~" + path.substr(folder.size()) : path;
    }
    std::string line(const ShownPicture &picture) const { return shortened(picture.path) + " > " + picture.file; }

    Desk desk{Desk::empty};
    std::set<std::string> files;
};

TEST_F(Pictures, OfACircuitAndARace)
{
    struct Case {
        const char *name, *gpName, *chosen;
        std::set<std::string> files;
        const char *circuit, *race;
    };
    const std::string monaco = "~\\Photos\\Circuits\\Monaco.JPG", monaco2005 = "~\\Photos\\Actu\\Monaco2005.JPG";
    const Case cases[] = {
        {"nothing", "Monaco", "", {}, "~\\Photos\\Circuits\\Monaco.JPG > ", "~\\Photos\\Actu\\Monaco2005.JPG > "},
        {"beside the program", "Monaco", "", {monaco, monaco2005},
         "~\\Photos\\Circuits\\Monaco.JPG > ~\\Photos\\Circuits\\Monaco.JPG",
         "~\\Photos\\Actu\\Monaco2005.JPG > ~\\Photos\\Actu\\Monaco2005.JPG"},
        {"chosen", "Monaco", "m.jpg", {"m.jpg", monaco, monaco2005}, "m.jpg > m.jpg", "m.jpg > m.jpg"},
        {"chosen and lost", "Monaco", "m.jpg", {monaco, monaco2005},
         "~\\Photos\\Circuits\\Monaco.JPG > ~\\Photos\\Circuits\\Monaco.JPG", "m.jpg > "},
        {"a file name of its own", "Brésil", "b.jpg", {"b.jpg"}, "b.jpg > b.jpg", "~\\Photos\\Actu\\Br‚sil2005.JPG > "},
        {"no name", "", "m.jpg", {"m.jpg"}, "m.jpg > ", "m.jpg > "},
    };
    for (const Case &c : cases) {
        for (const char *key : {"picgp", "img"})
            desk.write(std::string("galerie [gp] ") + key + c.gpName + (key[0] == 'i' ? "2005" : "") + "=" + c.chosen);
        files = c.files;
        EXPECT_EQ(line(circuitPicture(desk.main, c.gpName)), c.circuit) << c.name;
        EXPECT_EQ(line(racePicture(desk.main, c.gpName, "2005")), c.race) << c.name;
    }
}

TEST_F(Pictures, OfADriverAndHisTeam)
{
    const std::string named = "~\\Photos\\Pilotes\\photo_Ayla.jpg", anybody = "~\\Photos\\Pilotes\\photo_XXX.jpg";
    const std::string car = "~\\Photos\\Voitures\\picto_Alpha.jpg";
    DriverRecord ayla;
    ayla[driverField("nom")] = "Ayla";
    ayla[driverField("path")] = "a.jpg";
    ayla[driverField("pi")] = "casque.jpg";
    desk.write("2005 [N°] lblecuriEAlpha=alpha.jpg");
    struct Case {
        const char *name;
        std::set<std::string> files;
        std::string choice, podium, profile, team;
    };
    const Case cases[] = {
        {"nothing", {}, "|", "|", "|", ""},
        {"chosen", {"a.jpg", "casque.jpg", "alpha.jpg", named, anybody, car}, "a.jpg|casque.jpg", "a.jpg|casque.jpg",
         "a.jpg|casque.jpg", "alpha.jpg"},
        {"lost", {named, anybody, car}, "|", named + "|", named + "|" + anybody, car},
        {"nobody knows him", {anybody}, "|", "|", anybody + "|" + anybody, ""},
    };
    for (const Case &c : cases) {
        files = c.files;
        const auto shown = [&](PicturesOf screen) {
            const DriverPictures pictures = driverPictures(desk.main, ayla, screen);
            return pictures.photo + "|" + pictures.second;
        };
        EXPECT_EQ(shown(PicturesOf::choice), c.choice) << c.name;
        EXPECT_EQ(shown(PicturesOf::podium), c.podium) << c.name;
        EXPECT_EQ(shown(PicturesOf::profile), c.profile) << c.name;
        EXPECT_EQ(teamPicture(desk.main, "Alpha"), c.team) << c.name;
    }
}

}
