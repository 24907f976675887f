// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/navigation.h"

#include "results/media_of_grand_prix.h"
#include "results/season_fixture.h"

using namespace circuidex;
using namespace circuidex::results;
using namespace circuidex::test;

namespace {

std::string shown(const MainRecord &main)
{
    std::string line = main.an.text() + " " + main.Label40.text() + " " + main.gp.text() + " " + main.dat.text() + ":";
    for (const Field &number : main.Text1to8)
        line += " " + number.text();
    return line + " / " + main.Text31to38[1].text() + " / " + main.Text39.text() + " / " + main.Text41.text();
}

TEST(Navigation, ShowsEachGrandPrixOfTheCircle)
{
    Desk desk;
    desk.write("2005 [podium] remAustralie=Orage");
    Lines forth, back;
    desk.main.Label40.set("18");
    for (int step = 0; step < 4; ++step) {
        nextGrandPrix(desk.main);
        forth.push_back(shown(desk.main));
    }
    desk.main.number(1).set("26"); // typing is lost
    for (int step = 0; step < 3; ++step) {
        previousGrandPrix(desk.main);
        back.push_back(shown(desk.main));
    }
    EXPECT_EQ(forth,
              (Lines{"2005 19  :         /  /  / ",
                     "2005 0 Australie 06/03: 6 2 5 13 7 10 14 9 / Giancarlo Fisichella / 6 / Orage",
                     "2005 1 Malaisie 20/03: 5 15 8 10 16 13 1 14 / Fernando Alonso / 5 / ",
                     "2005 2 Bahreïn 03/04: 5 15 9 16 22 7 12 13 / Fernando Alonso / 5 / "}));
    EXPECT_EQ(back, (Lines{forth[2], forth[1], forth[0]}));
}

TEST(Navigation, StartsBeforeTheFirstFreeSlot)
{
    struct Case {
        const char *name, *recorded;
        const char *found; // cursor after the start, "nogp" then, cursor of "Nouveau GP"
    };
    const std::string allButTheLast = "0 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18", all = allButTheLast + " 19";
    const Case cases[] = {
        {"none", "", "0 0 0"},
        {"first", "0", "0 1 1"},
        {"three", "0 1 2", "2 3 3"},
        {"a hole", "0 1 3", "1 2 2"},
        {"none before", "1 2", "0 0 0"},
        {"all but the last", allButTheLast.c_str(), "18 19 19"},
        {"all twenty", all.c_str(), "19 20 19"},
    };
    for (const Case &c : cases) {
        Desk desk(Desk::empty);
        for (int slot = 0; slot < gpSlots; ++slot)
            desk.write("2005 [gp] namegp" + std::to_string(slot) + "=Course " + std::to_string(slot));
        for (const std::string &slot : split(c.recorded, ' '))
            desk.write("2005 [podium] podium1Course " + slot + "=4");
        for (const char *key : {"[gp] nogp=7", "[bareme] 1=25", "[podium] podium2Course 0=5"}) // no race without winner
            desk.write(std::string("2005 ") + key);
        openOnLastRecorded(desk.main);
        std::string found = desk.main.Label40.text() + " " + desk.read("2005 [gp] nogp");
        EXPECT_EQ(desk.main.gp.text(), "Course " + desk.main.Label40.text()) << c.name;
        EXPECT_EQ(desk.main.ptspilot[1].text(), "25") << c.name;
        goToFirstFreeSlot(desk.main);
        EXPECT_EQ(found + " " + desk.main.Label40.text(), c.found) << c.name;
    }
}

TEST(Navigation, StartsOnTheMarkedSeason)
{
    struct Case {
        const char *name, *marker, *an;
        bool first;
    };
    const Case cases[] = {
        {"no marker", "", "2005", true}, {"marker", "2003", "2003", false}, {"no year", "essai", "essai", false}};
    for (const Case &c : cases) {
        Desk desk(Desk::empty);
        desk.main.an.set("1999");
        if (*c.marker)
            desk.store.setYearMarker(c.marker);
        EXPECT_EQ(openMarkedSeason(desk.main), c.first) << c.name;
        EXPECT_EQ(desk.main.an.text(), c.an) << c.name;
        openOnLastRecorded(desk.main);
        EXPECT_EQ(shown(desk.main), std::string(c.an) + " 0  :         /  /  / ") << c.name;
        EXPECT_EQ(desk.folder.names().size(), (*c.marker ? 1u : 0u) + isYear(c.an)) << c.name; // no year, no file
    }
}

// A machine on which the files of a list are there; the program folder is written "~".
class Media : public testing::Test {
protected:
    std::string local(const std::string &path) const
    {
        const std::string home = desk.main.folder();
        return path.starts_with(home) ? "~" + path.substr(home.size()) : path;
    }
    std::string present(const std::string &path) const
    {
        return std::find(there.begin(), there.end(), local(path)) == there.end() ? "" : local(path);
    }

    Lines there;
    Desk desk{Desk::sample,
              '.',
              {[this](const std::string &path) { return present(path); },
               [this](const std::string &path) { return present(path); },
               {}}};
};

TEST_F(Media, PicturesComeFromTheGalleryOrBesideTheProgram)
{
    struct Case {
        const char *name, *gp;
        std::string gallery, there; // keys, files
        std::string shown; // circuit: picture and path; race: picture and path
    };
    const std::string circuit = R"(~\Photos\Circuits\Monaco.JPG)", race = R"(~\Photos\Actu\Monaco2005.JPG)";
    const std::string brazil = R"(~\Photos\Circuits\Br‚sil.JPG)", brazilRace = R"(~\Photos\Actu\Br‚sil2005.JPG)";
    const std::string keys =
        "picgpMonaco=C:a;imgMonaco2005=C:b;picgpBrésil=C:a;imgBrésil2005=C:b;picgp=C:a;img2005=C:b";
    const Case cases[] = {
        {"nothing there", "Monaco", "", "", ";" + circuit + ";;" + race},
        {"beside the program", "Monaco", "", circuit + ";" + race, circuit + ";" + circuit + ";" + race + ";" + race},
        {"gallery first", "Monaco", keys, circuit + ";" + race + ";C:a;C:b", "C:a;C:a;C:b;C:b"},
        {"gallery without files", "Monaco", keys, circuit + ";" + race, circuit + ";" + circuit + ";;C:b"},
        {"another year's picture", "Monaco", "imgMonaco2004=C:b", "C:b", ";" + circuit + ";;" + race},
        {"own names", "Brésil", "", brazil + ";" + brazilRace,
         brazil + ";" + brazil + ";" + brazilRace + ";" + brazilRace},
        {"own race name whatever the key says", "Brésil", keys, "C:a;C:b", "C:a;C:a;;" + brazilRace},
        {"no Grand Prix", "", keys, "C:a;C:b", ";C:a;;C:b"},
    };
    for (const Case &c : cases) {
        for (const std::string &key : split(keys + ";imgMonaco2004=", ';'))
            desk.write("galerie [gp] " + key.substr(0, key.find('=') + 1));
        for (const std::string &key : split(c.gallery, ';'))
            desk.write("galerie [gp] " + key);
        there = split(c.there, ';');
        desk.main.gp.set(c.gp);
        showGrandPrix(desk.main);
        const MainRecord &main = desk.main;
        EXPECT_EQ(main.Image1.text() + ";" + local(main.Labell.text()) + ";" + main.Image2.text() + ";" +
                      local(main.Label50.text()),
                  c.shown)
            << c.name;
    }
}

TEST_F(Media, FilmBesideTheProgramIsNotedInTheSeason)
{
    desk.write("galerie [gp] vidMonaco2005=D:film.avi");
    there = {"~\\Monaco2005.avi"};
    const Keys before = desk.keys("2005");
    Lines found;
    for (const int slot : {4, 5, 6}) {
        desk.show(slot);
        found.push_back(desk.main.gp.text() + " " + desk.main.film.text() + " " + desk.main.a.text() + " " +
                        local(filmAtHand(desk.main)));
    }
    EXPECT_EQ(found,
              (Lines{"Espagne   ~\\Espagne2005.avi", "Monaco vrai D:film.avi D:film.avi", "Europe   ~\\Europe2005.avi"}));
    EXPECT_EQ(changes(before, desk.keys("2005")),
              lines("vidMonaco2005: - > " + desk.main.folder() + "\\Monaco2005.avi"));
}

}
