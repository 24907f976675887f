// SPDX-License-Identifier: GPL-3.0-or-later
// The last race of 2005, recorded on the sample season: first as it was, then with one thing amiss at a time, where
// only the keys that this touches may come out otherwise.
#include "results/recording.h"

#include "results/season_fixture.h"

using namespace circuidex;
using namespace circuidex::results;
using namespace circuidex::test;

namespace {

const char *const result = "5 9 16 6 14 12 7 3";

Recording recordChina(Desk &desk, const char *places = result, const char *pole = "5")
{
    desk.enter(18, "Chine", places, pole);
    desk.main.dat.set("16/10");
    desk.main.Text41.set("Égout");
    return recordGrandPrix(desk.main);
}

TEST(Recording, WritesTheRace)
{
    Desk desk;
    const Keys before = desk.keys("2005");
    EXPECT_EQ(recordChina(desk), Recording::done);
    Lines changed = changes(before, desk.keys("2005"));
    EXPECT_EQ(take(changed, "nbgp").size(), 26u); // of all drivers, not of the eight
    EXPECT_EQ(take(changed, "nbpts"),
              lines("nbpts5: 123 > 133; nbpts9: 104 > 112; nbpts16: 39 > 45; nbpts6: 53 > 58; "
                    "nbpts14: 5 > 9; nbpts12: 8 > 11; nbpts7: 34 > 36; nbpts3: 36 > 37"));
    EXPECT_EQ(take(changed, "ptstot"),
              lines("ptstot5: 237 > 247; ptstot9: 273 > 281; ptstot16: 298 > 304; ptstot6: 169 > 174; "
                    "ptstot14: 8 > 12; ptstot12: 20 > 23; ptstot7: 60 > 62; ptstot3: 166 > 167"));
    EXPECT_EQ(take(changed, "ecuriepts/gp18: "),
              lines("Renaultecuriepts/gp18: - > 15; McLarenecuriepts/gp18: - > 8; Toyotaecuriepts/gp18: - > 6; "
                    "Red Bullecuriepts/gp18: - > 4; Sauberecuriepts/gp18: - > 3; Williamsecuriepts/gp18: - > 2; "
                    "BARecuriepts/gp18: - > 1; Ferrariecuriepts/gp18: - > 0; Jordanecuriepts/gp18: - > 0; "
                    "Minardiecuriepts/gp18: - > 0"));
    EXPECT_EQ(take(changed, "ptsecurie"),
              lines("ptsecurieRenault: 176 > 191; ptsecurieMcLaren: 174 > 182; ptsecurieToyota: 82 > 88; "
                    "ptsecurieRed Bull: 30 > 34; ptsecurieSauber: 17 > 20; ptsecurieWilliams: 64 > 66; "
                    "ptsecurieBAR: 37 > 38"));
    EXPECT_EQ(changed,
              lines("podium1Chine: - > 5; podium2Chine: - > 9; podium3Chine: - > 16; podium4Chine: - > 6; "
                    "podium5Chine: - > 14; podium6Chine: - > 12; podium7Chine: - > 7; podium8Chine: - > 3; "
                    "remChine: - > Égout; podiums5: 22 > 23; podiums9: 29 > 30; podiums16: 25 > 26; vic5: 7 > 8; "
                    "pol5: 8 > 9; polChine: - > 5; nogp: 18 > 19"));
}

TEST(Recording, NotesTheWinnerAndTheRecordCandidates)
{
    Desk desk;
    const Keys before = desk.keys("ARCHIVES");
    recordChina(desk, result, "9");
    EXPECT_EQ(changes(before, desk.keys("ARCHIVES")),
              lines("[GP] Chine2005: - > Fernando Alonso; [GP] Chine: Rubens Barrichello > Fernando Alonso; "
                    "[record] nompol22: - > Kimi Räikkönen; [record] pol22: - > 9; "
                    "[record] nomvic22: - > Fernando Alonso; [record] vic22: - > 8; "
                    "[record] nompts22: - > Fernando Alonso; [record] ptstot22: - > 247"));
    EXPECT_EQ(desk.main.Label11.text(), "Grand prix enregistré!");
    EXPECT_EQ(desk.main.an.text() + " " + desk.main.Label40.text(), "2005 18");
    EXPECT_EQ(desk.main.name(1).text() + ", " + desk.main.name(8).text(), "Fernando Alonso, Jenson Button");
    EXPECT_EQ(desk.dialogs.said, Lines{});
}

TEST(Recording, OnlySkipsTheStepsThatCannotBeDone)
{
    struct Case {
        const char *name, *before; // keys of the season, written before the recording
        const char *places, *pole;
        const char *otherwise; // "key: after the ordinary recording > after this one"
    };
    const Case cases[] = {
        {"a counter that is a word", "[N°] nbpts5=zéro", result, "5", "nbpts5: 133 > zéro"},
        {"pole of a number without driver", "", result, "77", "pol5: 9 > 8; polChine: 5 > 77"},
        {"third place empty", "", "5 9 - 6 14 12 7 3", "5",
         "podium3Chine: 16 > -; nbpts16: 45 > 39; ptstot16: 304 > 298; podiums16: 26 > 25; ptsecurieToyota: 88 > 82; "
         "Toyotaecuriepts/gp18: 6 > 0"},
        {"winner empty", "", "- 9 16 6 14 12 7 3", "5",
         "podium1Chine: 5 > -; nbpts5: 133 > 123; ptstot5: 247 > 237; vic5: 8 > 7; podiums5: 23 > 22; "
         "ptsecurieRenault: 191 > 181; Renaultecuriepts/gp18: 15 > 5"},
        {"a half to a half", "[bareme] 8=0,5; [N°] nbpts3=0,5", result, "5",
         "[bareme] 8: 1 > 0,5; nbpts3: 37 > 1; ptstot3: 167 > 166,5; ptsecurieBAR: 38 > 37,5; "
         "BARecuriepts/gp18: 1 > 0,5"},
        {"team total missing", "[N°] ptsecurieToyota=", result, "5", "ptsecurieToyota: 88 > 6"},
        {"starts missing", "[N°] nbgp5=", result, "5", "nbgp5: 70 > 1"},
        {"drivers without a team", "[N°] ecurie15=; [N°] ecurie16=", result, "5",
         "ecurie15: Toyota > -; ecurie16: Toyota > -; ptsecurieToyota: 88 > 82; Toyotaecuriepts/gp18: 6 > -"},
        {"driver on two places", "", "5 5 16 6 14 12 7 3", "5",
         "podium2Chine: 9 > 5; nbpts5: 133 > 141; ptstot5: 247 > 255; podiums5: 23 > 24; nbpts9: 112 > 104; "
         "ptstot9: 281 > 273; podiums9: 30 > 29; ptsecurieRenault: 191 > 199; ptsecurieMcLaren: 182 > 174; "
         "Renaultecuriepts/gp18: 15 > 23; McLarenecuriepts/gp18: 8 > 0"},
        {"team first and third", "", "5 9 6 16 14 12 7 3", "5",
         "podium3Chine: 16 > 6; podium4Chine: 6 > 16; nbpts6: 58 > 59; ptstot6: 174 > 175; podiums6: 13 > 14; "
         "nbpts16: 45 > 44; ptstot16: 304 > 303; podiums16: 26 > 25; ptsecurieRenault: 191 > 192; "
         "ptsecurieToyota: 88 > 87; Renaultecuriepts/gp18: 15 > 16; Toyotaecuriepts/gp18: 6 > 5"},
        {"old points of the slot", "[N°] Ferrariecuriepts/gp18=7; [N°] BARecuriepts/gp18=7", result, "5", ""},
        {"nogp lost", "[gp] nogp=", result, "5", ""},
        {"a place worth no number", "[bareme] 3=six", result, "5",
         "[bareme] 3: 6 > six; nbpts16: 45 > 39; ptstot16: 304 > 298; ptsecurieToyota: 88 > 82; "
         "Toyotaecuriepts/gp18: 6 > 0"},
        {"counters missing", "[N°] nbpts5=; [N°] vic5=; [N°] pol5=; [N°] ptstot9=; [N°] podiums9=", result, "5",
         "nbpts5: 133 > -; vic5: 8 > -; pol5: 9 > -; ptstot9: 281 > -; podiums9: 30 > -"},
    };
    Desk ordinary(Desk::sample, ',');
    recordChina(ordinary);
    for (const Case &c : cases) {
        Desk desk(Desk::sample, ',');
        for (const std::string &key : split(c.before, ';'))
            desk.write("2005 " + key);
        EXPECT_EQ(recordChina(desk, c.places, c.pole), Recording::done) << c.name;
        Lines otherwise = changes(ordinary.keys("2005"), desk.keys("2005"));
        take(otherwise, "ptsecurie: "); // the points of nobody may be kept under a key with no name behind it
        std::erase_if(otherwise, [](const std::string &line) { return line.starts_with("ecuriepts/"); });
        EXPECT_EQ(otherwise, lines(c.otherwise)) << c.name;
    }
}

TEST(Recording, RefusedOnlyNotesTheDateAndFetchesTheScale)
{
    for (const auto &[gpName, changed] :
         {std::pair("", "dategp: - > 30/10"),
          {"Japon", "dategpJapon: 09/10 > 30/10"},
          {"Inde", "dategpInde: - > 30/10"}}) { // of which the eighth place alone is known
        Desk desk;
        desk.write("2005 [bareme] 1=25");
        desk.write("2005 [podium] podium8Inde=4");
        const Keys before = desk.keys("2005"), archive = desk.keys("ARCHIVES");
        desk.enter(18, gpName, result, "5");
        desk.main.dat.set("30/10");
        EXPECT_EQ(recordGrandPrix(desk.main), Recording::refused) << gpName;
        EXPECT_EQ(changes(before, desk.keys("2005")), lines(changed));
        EXPECT_EQ(changes(archive, desk.keys("ARCHIVES")), Lines{}) << gpName;
        EXPECT_EQ(desk.main.Label11.text() + desk.main.ptspilot[1].text(), "25") << gpName;
    }
}

TEST(Recording, ListsEachNameOnceInTheArchive)
{
    struct Case {
        const char *name;
        int rows; // "Course 0", "Course 1", ... stand in the list
        const char *before, *changed; // keys of section GP
    };
    const Case cases[] = {
        {"first name ever", 0, "", "Chine2005: - > A; Chine: - > A; N0: - > Chine; NO: - > 1"},
        {"new name", 3, "", "Chine2005: - > A; Chine: - > A; N3: - > Chine; NO: - > 4"},
        {"emptied row", 3, "N1=", "Chine2005: - > A; Chine: - > A; N1: - > Chine; NO: - > 2"},
        {"second year", 3, "N2=Chine; Chine=B; Chine2004=B", "Chine2005: - > A; Chine: B > A"},
        {"listed without winner", 3, "N2=Chine", ""},
        {"listed in other letters", 2, "N1=CHINE", "Chine2005: - > A; Chine: - > A; N2: - > Chine; NO: - > 3"},
        {"last free row", 60, "", "Chine2005: - > A; Chine: - > A; N60: - > Chine; NO: - > 61"},
        {"full list", 61, "", ""},
        {"full list, known name", 61, "N60=Chine; Chine=B", ""},
    };
    for (const Case &c : cases) {
        Desk desk(Desk::empty);
        for (const char *key : {"nom1=A", "vic1=2", "pol1=0"})
            desk.write(std::string("2005 [N°] ") + key);
        for (int row = 0; row < c.rows; ++row)
            desk.write("ARCHIVES [GP] N" + std::to_string(row) + "=Course " + std::to_string(row));
        for (const std::string &key : split(c.before, ';'))
            desk.write("ARCHIVES [GP] " + key);
        const Keys before = desk.keys("ARCHIVES");
        desk.enter(0, "Chine", "1 - - - - - - -", "1");
        recordGrandPrix(desk.main);
        Lines changed = changes(before, desk.keys("ARCHIVES"));
        EXPECT_EQ(take(changed, "[record] "),
                  lines("[record] nompol22: - > A; [record] pol22: - > 1; [record] nomvic22: "
                        "- > A; [record] vic22: - > 3; [record] nompts22: - > A"))
            << c.name;
        for (std::string &line : changed)
            line.erase(0, 5);
        EXPECT_EQ(changed, lines(c.changed)) << c.name;
    }
}

// Names that the files can't carry are refused with nothing written, and one that stands in a file isn't recorded
// twice.
TEST(Recording, TakesOnlyNamesAndSeasonsThatTheFilesCarry)
{
    struct Case {
        const char *year, *gpName, *said;
    };
    const Case cases[] = {
        {"2005", "a=b", "Le nom \"a=b\" ne peut pas"},
        {"2005", "[x]", "Le nom \"[x]\" ne peut pas"},
        {"2005", " Monaco ", "Le grand prix est déja"},
        {"2005", " ' ' ", "Entrez le nom"},
        {"2005/06", "Essai", "La saison \"2005/06\" n'est pas une année"},
        {"galerie", "Essai", "La saison \"galerie\""},
    };
    for (const Case &c : cases) {
        Desk desk;
        desk.write("2005 [gp] namegp18=a=b");
        const auto names = desk.folder.names();
        const Keys before = desk.keys("2005"), archive = desk.keys("ARCHIVES");
        desk.main.an.set(c.year);
        desk.enter(18, c.gpName, "5 - - - - - - -", "5");
        desk.main.dat.set(desk.read("2005 [gp] dategp" + enteredName(c.gpName).name));
        EXPECT_EQ(recordGrandPrix(desk.main), Recording::refused) << c.gpName;
        EXPECT_EQ(changes(before, desk.keys("2005")), Lines{}) << c.gpName;
        EXPECT_EQ(changes(archive, desk.keys("ARCHIVES")), Lines{}) << c.gpName;
        EXPECT_EQ(desk.folder.names(), names) << c.year;
        ASSERT_EQ(desk.dialogs.said.size(), 1u);
        EXPECT_TRUE(desk.dialogs.said[0].starts_with(c.said)) << desk.dialogs.said[0];
    }
    Desk desk;
    desk.main.an.set("\" 2005 \"");
    EXPECT_EQ(desk.main.an.text(), "2005");
    desk.enter(18, " \"Chine\" ", "5 - - - - - - -", "5");
    EXPECT_EQ(recordGrandPrix(desk.main), Recording::done);
    EXPECT_EQ(desk.read("2005 [gp] namegp18") + desk.read("ARCHIVES [GP] Chine2005"), "ChineFernando Alonso");
}

// A team of an old file whose name no key can hold: its points are nowhere, and the file doesn't grow by them.
TEST(Recording, CountsNothingUnderANameThatNoReadFinds)
{
    Desk desk;
    desk.write("2005 [N°] ecurie5=a=b");
    desk.enter(18, "Chine", "5 - - - - - - -", "5");
    recordGrandPrix(desk.main);
    EXPECT_EQ(content(desk.folder / "f12005.ini").find("ptsecuriea=b"), std::string::npos);
    EXPECT_EQ(desk.read("2005 [N°] nbpts5"), "133");
}
}
