// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/player_state.h"

#include <gtest/gtest.h>

using namespace circuidex::media;

namespace {

TEST(FormatDuration, RoundsToSecondsAndShowsHoursOnlyWhereThereAreAny)
{
    const std::pair<std::int64_t, const char *> cases[] = {
        {0, "00:00"},           {499, "00:00"},           {500, "00:01"},
        {9'499, "00:09"},       {10'000, "00:10"},        {59'499, "00:59"},
        {59'500, "01:00"},      {60'000, "01:00"},        {754'000, "12:34"},
        {3'599'499, "59:59"},   {3'599'500, "1:00:00"},   {3'601'000, "1:00:01"},
        {5'025'000, "1:23:45"}, {36'000'000, "10:00:00"}, {2'147'483'647, "596:31:24"},
    };
    for (const auto &[milliseconds, text] : cases)
        EXPECT_EQ(FormatDuration(milliseconds), text) << milliseconds;
}

// Notes what it is told; answers as long as it has answers.
struct Device : Player {
    void open(const std::string &path) override { said += "open " + path + "; "; }
    void play(const std::string &path) override { said += "play " + path + "; "; }
    void playFrom(const std::string &path, std::int64_t from) override
    {
        said += "play " + path + " from " + std::to_string(from) + "; ";
    }
    void pause(const std::string &path) override { said += "pause " + path + "; "; }
    void close(const std::string &path) override { said += "close " + path + "; "; }
    std::optional<std::int64_t> milliseconds() override { return length; }
    std::optional<std::int64_t> frames() override { return length; }
    std::optional<std::int64_t> millisecond() override { return at; }
    std::optional<std::int64_t> frame() override { return at; }

    std::string said;
    std::optional<std::int64_t> length, at;
};

// In each state each operation does what it may, and no more.
TEST(FilmPlayer, OperationsByState)
{
    Device device;
    FilmPlayer player(device);
    const auto after = [&](auto operation) {
        device.said.clear();
        operation();
        return device.said + player.state() + (player.IsPlaying ? " plays" : "");
    };
    const auto open = [&] { player.OpenMedia(); };
    const auto play = [&] { player.PlayMedia(); };
    const auto pause = [&] { player.PauseMedia(); };
    const auto close = [&] { player.CloseMedia(); };
    const auto on = [&] { player.SeekForward(650); };
    const auto back = [&] { player.SeekBack(30'000); };
    for (const auto &operation : std::initializer_list<std::function<void()>>{open, play, pause, close, on, back})
        EXPECT_EQ(after(operation), "[ Pas de média ]") << "no film yet";
    player.setMedia("a b.avi");
    EXPECT_EQ(player.MediaName, "\"a b.avi\"");
    EXPECT_EQ(after(open), "open a b.avi; [ Pas de média ]");
    EXPECT_EQ(after(on), "[ Pas de média ]");
    EXPECT_EQ(after(play), "play a b.avi; [ Joue ] plays");
    EXPECT_EQ(after(on), "play a b.avi from 3250; [ Joue ] plays") << "a device that doesn't say where it is";
    device.at = 1000;
    EXPECT_EQ(after(on), "play a b.avi from 4250; [ Joue ] plays");
    EXPECT_EQ(after(back), "play a b.avi from -149000; [ Joue ] plays") << "for the device to refuse";
    EXPECT_EQ(after(pause), "pause a b.avi; [ Pause ]");
    for (const auto &operation : std::initializer_list<std::function<void()>>{pause, close, on, back})
        EXPECT_EQ(after(operation), "[ Pause ]") << "a paused film doesn't count";
    EXPECT_EQ(after(play), "play a b.avi; [ Joue ] plays");
    EXPECT_EQ(after(close), "close a b.avi; [ Pas de média ]");
    for (const auto &[what, state] : {std::pair{Player::ByHand::resumed, "[ Joue ] plays"},
                                      {Player::ByHand::paused, "[ Pause ]"},
                                      {Player::ByHand::closed, "[ Pas de média ]"}})
        EXPECT_EQ(after([&, what = what] { device.byHand(what); }), state) << "at the film's own window";
}

TEST(FilmPlayer, CountersStayWhereNothingIsAnswered)
{
    Device device;
    FilmPlayer player(device);
    EXPECT_FALSE(player.RefreshCounters());
    device.length = 61'000;
    device.at = 7;
    player.ReadMilliseconds();
    player.ReadFrames();
    const auto counters = player.RefreshCounters();
    ASSERT_TRUE(counters);
    EXPECT_EQ(counters->time + "|" + counters->frames + "|" + counters->frame,
              "Temps total: 01:01|Nbr d'images: 61000|Image courrante: 7");
    device.length = {};
    player.ReadFrames();
    EXPECT_EQ(player.TotalFrames, 61'000) << "as last read";
    device.length = 1LL << 40;
    player.ReadFrames();
    EXPECT_EQ(player.TotalFrames, 2'147'483'647);
}

}
