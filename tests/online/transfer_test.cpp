// SPDX-License-Identifier: GPL-3.0-or-later
#include "online/transfer.h"

#include "online/update_run.h"
#include "store/temporary_folder.h"

#include <gtest/gtest.h>

using namespace circuidex::online;
using namespace circuidex::test;
using State = Transfer::State;
using Reaction = Transfer::Reaction;

namespace {

constexpr Transfer::Time start{};
const std::string source = "http://s/videos/Monaco2005.avi";

Answer whole(std::uint64_t length, const std::string &etag = "\"a\"")
{
    Answer answer{200, {}, etag, {}, {}, {}, length};
    return answer;
}

TEST(Transfer, IsWholeOrNotThereAndGoesOnWhereItStood)
{
    const TemporaryFolder folder;
    const auto place = folder / "Monaco2005.avi";
    {
        Transfer first(source, place, true);
        ASSERT_EQ(first.answered(whole(10)), Reaction::receive);
        EXPECT_TRUE(first.received("abcd", start));
        first.cancel();
    }
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"Monaco2005.avi.part", "Monaco2005.avi.part.suite"}));
    Transfer second(source, place, true);
    EXPECT_EQ(second.request().from, 4u);
    EXPECT_EQ(second.request().ifRange, "\"a\"");
    ASSERT_EQ(second.answered({206, {}, "\"a\"", {}, "bytes 4-9/10", {}, 6}), Reaction::receive);
    EXPECT_TRUE(second.received("efg", start));
    EXPECT_EQ(second.progress().percent, 70);
    EXPECT_TRUE(second.received("hij", start));
    second.ended("");
    EXPECT_EQ(second.state(), State::done);
    EXPECT_EQ(content(place), "abcdefghij");
    EXPECT_EQ(folder.names(), std::vector<std::string>{"Monaco2005.avi"});
}

TEST(Transfer, StartsOverWhenTheContentIsAnotherOne)
{
    const TemporaryFolder folder;
    const auto stopped = [&](const std::string &etag, const std::string &modified) {
        Transfer transfer(source, folder / "a", false);
        transfer.answered({200, {}, etag, modified, {}, {}, 10});
        transfer.received("abcd", start);
        transfer.ended("coupé");
        EXPECT_EQ(transfer.state(), State::failed);
    };
    stopped("W/\"a\"", "");
    EXPECT_EQ(Transfer(source, folder / "a", true).request().from, 0u) << "a weak mark vouches for nothing";
    stopped("", "Mon, 23 Nov 2026 10:00:00 GMT");
    EXPECT_EQ(Transfer("http://t/other.avi", folder / "a", true).request().from, 0u) << "of another address";
    stopped("\"a\"", "");
    Transfer changed(source, folder / "a", true);
    ASSERT_EQ(changed.answered(whole(3, "\"b\"")), Reaction::receive); // the whole, anew
    changed.received("xyz", start);
    changed.ended("");
    EXPECT_EQ(content(folder / "a"), "xyz");
    stopped("\"a\"", "");
    Transfer odd(source, folder / "a", true);
    EXPECT_EQ(odd.answered({206, {}, {}, {}, "bytes 0-9/10", {}, 10}), Reaction::again);
    EXPECT_EQ(odd.request().from, 0u);
    EXPECT_EQ(odd.answered({416, {}, {}, {}, {}, {}, 0}), Reaction::fail) << "once";
}

TEST(Transfer, FailsWithoutAFile)
{
    const struct {
        const char *what;
        std::vector<Answer> answers;
        std::string bytes;
        const char *fault, *said;
    } cases[] = {
        {"missing", {{404, {}, {}, {}, {}, {}, 5}}, "", "", "404"},
        {"short", {whole(10)}, "abc", "", "avant la fin"},
        {"long", {whole(2)}, "abc", "", "plus que"},
        {"cut", {{200, {}, {}, {}, {}, {}, {}}}, "abc", "coupé", "coupé"},
        {"packed", {{200, {}, {}, {}, {}, "gzip", 5}}, "", "", "transformé"},
        {"no room", {whole(mostDownload)}, "", "", "place"},
        {"too large", {whole(mostDownload + 1)}, "", "", "taille"},
        {"unasked part", {{206, {}, {}, {}, "bytes 0-4/5", {}, 5}}, "", "", "demandé"},
        {"round and round", std::vector<Answer>(6, {302, "/b", {}, {}, {}, {}, {}}), "", "", "cinq fois"},
        {"to a file", {{302, "file:///etc/passwd", {}, {}, {}, {}, {}}}, "", "", "adresse refusée"},
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(each.what);
        const TemporaryFolder folder;
        Transfer transfer(source, folder / "a", false);
        for (const Answer &answer : each.answers)
            transfer.answered(answer);
        if (!each.bytes.empty())
            transfer.received(each.bytes, start);
        transfer.ended(each.fault);
        EXPECT_EQ(transfer.state(), State::failed);
        EXPECT_NE(transfer.status().find(each.said), std::string::npos) << transfer.status();
        EXPECT_FALSE(std::filesystem::exists(folder / "a"));
    }
}

TEST(Transfer, FollowsToAddressesOfTheWebOnly)
{
    const char *const cases[][3] = {
        {"http://a/b/c?d", "e.zip", "http://a/b/e.zip"},
        {"http://a", "e.zip", "http://a/e.zip"},
        {"http://a/b/", "/e.zip", "http://a/e.zip"},
        {"https://a/b", "//c/d", "https://c/d"},
        {"http://a/b", "https://c/d", "https://c/d"},
        {"http://a/b", "e?u=http://x", "http://a/e?u=http://x"},
        {"http://a/b", "é 1", "http://a/%C3%A9%201"},
        {"https://a/b", "http://a/b", "-"},
        {"https://a/b", "HTTP://a/b", "-"},
        {"http://a/b", "ftp://a/b", "-"},
        {"http://a/b", "", "-"},
        {"http://a/b", "/c\r\nd", "-"},
    };
    for (const auto &[from, location, to] : cases)
        EXPECT_EQ(redirected(from, location).value_or("-"), to) << from << " " << location;
    EXPECT_EQ(Transfer("http://s/Saint Marin2005.avi", "/tmp/none/a", true).request().address,
              "http://s/Saint%20Marin2005.avi");
}

TEST(Transfer, TakesFilmNamesOnly)
{
    for (const char *name : {"Monaco2005.avi", "Saint-Marin 2005.AVI", "Brésil2004.mkv"})
        EXPECT_TRUE(filmPlace("/p", name)) << name;
    for (const char *name : {"../a.avi", "a/b.avi", "a\\b.avi", "c:a.avi", "/a.avi", "circuidex", "f12005.ini", "",
                             ".avi", ".a.avi", "nul.avi", "a.avi ", "serveurs.ini", "Photos.zip"})
        EXPECT_FALSE(filmPlace("/p", name)) << name;
}

TEST(Transfer, TellsSpeedAndTimeLeft)
{
    const TemporaryFolder folder;
    Transfer transfer(source, folder / "a", false);
    transfer.answered(whole(3 << 20));
    for (int second = 0; second <= 2; ++second)
        transfer.received(std::string(512 << 10, 'x'), start + std::chrono::seconds(second));
    EXPECT_EQ(transfer.status(), "1,5 Mo sur 3,0 Mo, 512 Ko/s, encore 3 s");
    EXPECT_EQ(transfer.progress().third, 512 << 10);
    EXPECT_EQ(sizeText(999) + " " + sizeText(12.4 * 1024) + " " + sizeText(5e9), "999 octets 12 Ko 4,7 Go");
    EXPECT_EQ(durationText(59.1) + ", " + durationText(3599) + ", " + durationText(3900),
              "1 min 00 s, 59 min 59 s, 1 h 05 min");
}

TEST(UpdateRun, FetchesInItsOrder)
{
    using enum RunStep::What;
    const auto text = [](UpdateRun run) {
        std::string line;
        for (const RunStep &step : stepsOf(run))
            line += std::string("H-+DCZFE").substr(step.what, 1) +
                (step.what == deleteOld || step.what == download ? std::to_string(step.archive + 1) : "");
        return line;
    };
    EXPECT_EQ(text(UpdateRun::results), "-1+1DCZE");
    EXPECT_EQ(text(UpdateRun::program), "-2+2DCZE");
    EXPECT_EQ(text(UpdateRun::newSeason), "-3+3-1+1DCZE");
    EXPECT_EQ(text(UpdateRun::firstStart), "-1+1-3+3-2+2CZE");
    EXPECT_EQ(text(UpdateRun::full), "H-1+1-2+2-3+3DCZFE");
}

}
