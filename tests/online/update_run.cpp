// SPDX-License-Identifier: GPL-3.0-or-later
// The update cancelled at any moment: the extractor finds whole archives or none, so the folder is as it was before or
// as after the update, never between the two.
#include "online/archives.h"
#include "online/test_server.h"
#include "online/unpacking.h"
#include "shell/driven_program.h"

#include <map>
#include <random>
#include <set>

using namespace circuidex;
using namespace circuidex::test;

namespace {

constexpr int cancels = 200;
const char *const seasons[]{"f12006.ini", "f12007.ini", "f12008.ini"};

std::string contentOf(const std::string &edition)
{
    std::string text = "[gp]\r\nnamegp0=" + edition + "\r\n";
    std::mt19937 random(7);
    for (int i = 0; i < 10'000; ++i)
        text += "k" + std::to_string(random()) + "=1\r\n";
    return text;
}

// Of the three seasons; empty where they don't belong together.
std::string editionOf(const TemporaryFolder &folder)
{
    std::set<std::string> found;
    for (const char *season : seasons)
        found.insert(Store(folder.path()).LireINI(std::string_view(season).substr(2, 4), "gp", "namegp0"));
    return found.size() == 1 ? *found.begin() : "between";
}

// Until the file is there, or the run has ended; without a file for a few moments.
void letItRun(Driver &driver, const std::filesystem::path &file, std::mt19937::result_type random)
{
    if (file.empty())
        answer(driver, "wait " + std::to_string(random % 12));
    while (!file.empty() && !std::filesystem::exists(file) && answer(driver, "isopen Form67") == "yes")
        answer(driver, "wait 1");
}

TEST(UpdateRun, CancelledAtAnyMomentLeavesTheFolderOldOrNew)
{
    TestServer server;
    const std::string before = contentOf("before"), after = contentOf("after");
    Members members;
    for (const char *season : seasons)
        members.push_back({season, after});
    const QByteArray archive = QByteArray::fromStdString(zipOf(members));
    const TemporaryFolder folder;
    layDown(folder / "serveurs.ini", "[serveurs]\r\nmaj=" + server.address({}).toStdString() + "\r\n");
    Driver driver(folder.path(), Numbers());
    std::mt19937 random(20060312);
    std::map<std::string, int> editions;
    int cut = 0; // in the middle of the transfer
    for (int i = 0; i < cancels; ++i) {
        SCOPED_TRACE(i);
        std::filesystem::remove_all(folder / "Sauvegardes"); // so many copies aren't made within a minute
        for (const char *season : seasons)
            layDown(folder / season, before);
        const bool stalls = i % 2 == 0; // in the middle of the archive
        server.lay(QStringLiteral("/miseajour.zip"),
                   {.content = archive, .sent = stalls ? qsizetype(random()) % archive.size() : -1, .silent = stalls});
        answer(driver, "open Form67");
        answer(driver, "press Form67.Command1");
        letItRun(driver,
                 i % 4 == 0       ? folder / "miseajour.zip.part"
                     : i % 4 == 1 ? folder / "miseajour.zip"
                                  : "",
                 random());
        if (answer(driver, "isopen Form67") == "yes")
            answer(driver, "press Form67.Command2");
        answer(driver, "settle");
        const std::string calls = answer(driver, "calls");
        ASSERT_TRUE(calls.starts_with("start /") && calls.ends_with("/Zip\tend")) << calls;
        cut += std::filesystem::exists(folder / "miseajour.zip.part");
        ASSERT_EQ(online::unpackAll(folder.path()), std::vector<std::string>());
        const std::string edition = editionOf(folder);
        ASSERT_TRUE(edition == "before" || edition == "after") << edition;
        ++editions[edition];
    }
    EXPECT_GT(editions["before"], 20);
    EXPECT_GT(editions["after"], 5);
    EXPECT_GT(cut, 20);
}

}
