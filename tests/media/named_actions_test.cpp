// Every action of the user that the files keep can be undone under its name.
#include "media/gallery.h"
#include "media/journal.h"
#include "results/amending.h"
#include "results/calendar.h"
#include "results/driver_screens.h"
#include "results/grid.h"
#include "results/media_of_grand_prix.h"
#include "results/new_season.h"
#include "results/season_fixture.h"
#include "results/simulation.h"
#include "results/undo.h"
#include "standings/constructor_standings.h"
#include "store/gp_list.h"
#include "store/history.h"

using namespace circuidex;
using namespace circuidex::results;
using namespace circuidex::test;

namespace {

std::map<std::string, std::string> filesOf(const TemporaryFolder &folder)
{
    std::map<std::string, std::string> files;
    for (const auto &entry : std::filesystem::directory_iterator(folder.path()))
        if (const std::string name = entry.path().filename().string(); entry.is_regular_file() && name.front() != '.')
            files[name] = content(entry.path());
    return files;
}

struct NamedAction {
    const char *name;
    std::function<void(Desk &)> act;
};

const char *const china = "5 9 10 1 6 2 3 16";

const NamedAction namedActions[] = {
    {"enregistrement de Chine 2005",
     [](Desk &d) {
         d.enter(18, "Chine", china, "6");
         recordGrandPrix(d.main);
     }},
    {"modification de Chine 2005",
     [](Desk &d) {
         d.enter(18, "Chine", "5 10 9 1 6 2 3 16", "6");
         amendGrandPrix(d.main, Amendment::byUser);
     }},
    {"suppression de Chine 2005",
     [](Desk &d) {
         d.show(18);
         cancelGrandPrix(d.main);
     }},
    {"inscription d'Ayrton Senna 2005",
     [](Desk &d) {
         DriverBoxes boxes;
         boxes.nopilot.set("26");
         boxes.box("nom").set("Ayrton Senna");
         storeShownDriver(d.main, boxes, DriverScreen::newDriver);
     }},
    {"profil d'Ayrton Senna 2005",
     [](Desk &d) {
         d.main.profile.nopilot.set("26");
         readProfile(d.main);
         d.main.profile.box("natio").set("Brésil");
         storeProfile(d.main);
     }},
    {"image de l'écurie Lotus 2005",
     [](Desk &d) {
         d.main.profile.box("ecurie").set("Lotus");
         d.dialogs.answers = {"/photos/lotus.jpg"};
         chooseTeamPicture(d.main);
     }},
    {"pneus de l'écurie Renault 2005",
     [](Desk &d) {
         d.write("2005 [N°] pneuecurieRenault=M");
         standings::changeTyre(d.main.writableSeason(), "Renault");
     }},
    {"grille de Chine 2005",
     [](Desk &d) {
         Grid grid;
         grid[1] = "Ayrton Senna";
         enterGrid(d.main.writableSeason(), "Chine", grid);
     }},
    {"calendrier 2005",
     [](Desk &d) {
         Calendar calendar;
         calendar[0] = {"Espagne", "1/1"};
         enterCalendar(d.main.writableSeason(), calendar);
     }},
    {"barème 2005",
     [](Desk &d) {
         storeScale(d.main.writableSeason(), {{"12", "9"}});
     }},
    {"tracé d'Espagne",
     [](Desk &d) {
         d.main.gp.set("Espagne");
         d.dialogs.answers = {"/photos/barcelone.jpg"};
         chooseCircuitPicture(d.main);
     }},
    {"retrait d'Inde de la liste",
     [](Desk &d) {
         d.write("ARCHIVES [GP] N3=Inde");
         deleteListedGp(d.store, 3);
     }},
    {"nettoyage de la liste des Grands Prix", [](Desk &d) { tidyGpList(d.store); }},
    {"galerie photo, page 1 : emplacement 5",
     [](Desk &d) { media::Gallery(d.store, media::photos).file(5, "/photos/a.jpg"); }},
    {"galerie photo, page 1 : page vidée", [](Desk &d) { media::Gallery(d.store, media::photos).emptyPage(); }},
    {"article N°7 du journal",
     [](Desk &d) {
         media::saveArticle(d.store, "7", {"Titre", "Texte"});
     }},
    {"passage à la saison 2006", [](Desk &d) { passToNextSeason(d.main, "5"); }},
};

TEST(NamedActions, AreAllUndoneAndRedone)
{
    Desk desk;
    desk.store.keepHistory();
    std::vector<std::map<std::string, std::string>> states;
    for (const NamedAction &action : namedActions) {
        action.act(desk);
        desk.store.settle();
        EXPECT_EQ(desk.store.history().undoable(), action.name);
        states.push_back(filesOf(desk.folder));
    }
    const std::size_t all = std::size(namedActions);
    EXPECT_EQ(desk.store.history().items().size(), all);
    EXPECT_EQ(desk.main.an.text(), "2006");
    for (std::size_t left = all - 1; left > 0; --left) {
        EXPECT_TRUE(turnHistory(desk.main, Turn::undo)) << desk.main.said.text();
        EXPECT_EQ(desk.main.said.text(), std::string("Annulé : ") + namedActions[left].name);
    }
    EXPECT_EQ(desk.main.an.text(), "2005"); // 2006 is gone
    EXPECT_EQ(filesOf(desk.folder)["f12005.ini"], states[0]["f12005.ini"]);
    for (std::size_t done = 1; done < all; ++done)
        EXPECT_TRUE(turnHistory(desk.main, Turn::redo)) << desk.main.said.text();
    EXPECT_EQ(filesOf(desk.folder), states.back());
}

TEST(NamedActions, NothingIsUndoneWhileASimulationRuns)
{
    Desk desk;
    desk.store.keepHistory();
    storeScale(desk.main.writableSeason(), {{"12", "9"}});
    const SimulatedScore scores[] = {{"5", "10"}};
    const auto running = startSimulation(desk.main, scores);
    EXPECT_FALSE(turnHistory(desk.main, Turn::undo));
    EXPECT_TRUE(desk.main.said.text().starts_with("Une simulation est en cours"));
    stopSimulation(desk.main, *running);
    EXPECT_EQ(desk.store.history().items().size(), 1u);
    EXPECT_TRUE(turnHistory(desk.main, Turn::undo)) << desk.main.said.text();
}

}
