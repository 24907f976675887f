#include "online/archives.h"
#include "publicdata/release.h"
#include "store/temporary_folder.h"

using namespace circuidex;
using namespace circuidex::publicdata;
using namespace circuidex::test;

namespace {

std::string refusalOf(const std::string &bytes)
{
    const TemporaryFolder folder;
    layDown(folder / "donnees.zip", bytes);
    return readPublicData((folder / "donnees.zip").string()).refusal;
}

TEST(Reading, TakesRacesResultsAndStandings)
{
    const Data &data = release();
    ASSERT_EQ(data.championships.size(), std::size(years));
    const Championship &season = *data.championship(1991);
    ASSERT_EQ(season.races.size(), 16u);
    const Race &last = season.races.back();
    EXPECT_EQ(last.date, "1991-11-03");
    EXPECT_EQ(data.drivers[static_cast<std::size_t>(last.entries[0].driver)].name, "Ayrton Senna");
    EXPECT_EQ(last.entries[0].points, 5);
    EXPECT_EQ(last.length, 3780);
    EXPECT_TRUE(season.standings[0].champion);
    EXPECT_EQ(season.standings[0].points, 96);
    EXPECT_EQ(data.championship(1992), nullptr);
}

TEST(Reading, RefusesWhatIsNoRelease)
{
    const std::string whole = content(releaseFile), deep(100, '['), races = "f1db-races.json";
    std::string bomb = "[";
    for (int i = 0; i < 500'000; ++i)
        bomb += "{\"id\":\"a\"},";
    const auto withRaces = [&](const std::string &text) { return refusalOf(zipOf({{races, text}})); };
    const struct {
        const char *what;
        std::string refusal, expected;
    } cases[] = {
        {"no file", readPublicData("/rien").refusal, "pas lisible"},
        {"no archive", refusalOf("PK rien"), "abîmée"},
        {"cut", refusalOf(whole.substr(0, whole.size() / 2)), "abîmée"},
        {"foreign", refusalOf(zipOf({{"f12005.ini", "[N°]"}})), "y manque"},
        {"no list", withRaces("{\"id\": 1}"), "n'a pas la forme attendue"},
        {"bare values", withRaces("[1, 2]"), "n'a pas la forme attendue"},
        {"cut off", withRaces("[{\"id\": 1, "), "n'a pas la forme attendue"},
        {"too deep", withRaces("[{\"id\":" + deep), "n'a pas la forme attendue"},
        {"long text", withRaces("[{\"id\":\"" + std::string(10'000, 'x')), "n'a pas la forme attendue"},
        {"no year", withRaces(R"([{"id":1,"year":9999,"round":1,"date":"9999-01-01"}])"), "n'a pas la forme attendue"},
        {"twice", refusalOf(zipOf({{races, "[]"}, {"a/" + races, "[]"}})), "deux fois"},
        {"bomb", refusalOf(zipOf({{"f1db-countries.json", bomb}})), "200 fois sa taille"},
        {"leads out", refusalOf(zipOf({{"../" + races, "[]"}})), "le nom"},
        {"encrypted", refusalOf(zipOf({{races, "[]"}}, "zip:encryption=zipcrypt")), "chiffrée"},
    };
    for (const auto &each : cases)
        EXPECT_NE(each.refusal.find(each.expected), std::string::npos) << each.what << ": " << each.refusal;
}

}
