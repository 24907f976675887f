// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/known_names.h"

#include "results/season_fixture.h"

using namespace circuidex;
using namespace circuidex::test;

namespace {

TEST(KnownNames, ComeFromTheSeasonThenFromTheOthersAndTheArchive)
{
    Desk desk;
    desk.write("2009 [gp] namegp4=Abou Dabi");
    desk.write("2009 [N°] ecurie3=Brawn");
    desk.write("2004 [N°] ecurie9=Aucune");
    const KnownNames known = knownNames(desk.main.season());
    const auto at = [](const std::vector<std::string> &names, const std::string &name) {
        EXPECT_EQ(std::count(names.begin(), names.end(), name), std::count(names.begin(), names.end(), name) > 0)
            << name;
        return std::find(names.begin(), names.end(), name) - names.begin();
    };
    const auto size = [](const auto &names) { return static_cast<std::ptrdiff_t>(names.size()); };
    EXPECT_EQ(at(known.grandsPrix, "Australie"), 0);
    EXPECT_LT(at(known.grandsPrix, "Chine"), at(known.grandsPrix, "Abou Dabi"));
    EXPECT_LT(at(known.grandsPrix, "Autriche"), at(known.grandsPrix, "Abou Dabi")); // of 2003
    EXPECT_LT(at(known.grandsPrix, "Argentine"), size(known.grandsPrix)); // the archive alone
    EXPECT_LT(at(known.drivers, "Fernando Alonso"), at(known.drivers, "Alain Prost"));
    EXPECT_LT(at(known.drivers, "Alain Prost"), size(known.drivers));
    EXPECT_LT(at(known.teams, "Brawn"), size(known.teams));
    EXPECT_EQ(at(known.teams, "Aucune"), size(known.teams));
}

TEST(KnownNames, OfferTheSpellingThatWasMeant)
{
    const std::vector<std::string> known{"Bahreïn", "Brésil",          "Saint-Marin",    "Grande bretagne", "Europe",
                                         "Monaco",  "Kimi Räikkönen",  "Espagne",        "Espagne 2",       "Autriche",
                                         "Fuji",    "Ralf Schumacher", "Rolf Schumacher"};
    const std::pair<const char *, const char *> cases[] = {{"Bahrein", "Bahreïn"},
                                                           {"Barhein", "Bahreïn"},
                                                           {"bahreïn", "Bahreïn"},
                                                           {"Bahreïn", ""},
                                                           {"Bresil", "Brésil"},
                                                           {"saint marin", "Saint-Marin"},
                                                           {"Kimi Raikonnen", "Kimi Räikkönen"},
                                                           {"Kimi Ra\xCC\x88ikko\xCC\x88nen", "Kimi Räikkönen"},
                                                           {"Espagne 3", ""},
                                                           {"Espagne", ""},
                                                           {"Fugi", "Fuji"},
                                                           {"Fug", ""},
                                                           {"Autrice", "Autriche"},
                                                           {"Australie", ""},
                                                           {"Relf Schumacher", ""},
                                                           {"", ""},
                                                           {"Grande Bretagne", "Grande bretagne"}};
    for (const auto &[typed, meant] : cases)
        EXPECT_EQ(knownSpelling(known, typed).value_or(""), meant) << typed;
    EXPECT_FALSE(knownSpelling(known, std::string(100000, 'e')));
    EXPECT_FALSE(knownSpelling({std::string(100000, 'e')}, "eeee"));
}

}
