// SPDX-License-Identifier: GPL-3.0-or-later
// The real player on small films that ffmpeg makes here, unseen and unheard; and on files that are none.
#include "platform/mpv_player.h"

#include "store/temporary_folder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <thread>

#include <sys/stat.h>
#include <unistd.h>

using namespace circuidex;
using namespace circuidex::test;
using namespace std::chrono_literals;

namespace {

// Eight seconds of 25 pictures each, with a tone. False without ffmpeg.
bool makeFilm(const std::filesystem::path &file)
{
    const std::string made = "ffmpeg -v error -y -f lavfi -i testsrc=size=64x48:rate=25:duration=8 -f lavfi -i "
                             "sine=duration=8 -c:v mpeg4 -c:a pcm_s16le \"" +
        file.string() + "\" </dev/null >/dev/null 2>&1";
    if (std::system("command -v ffmpeg >/dev/null") != 0)
        return false;
    EXPECT_EQ(std::system(made.c_str()), 0) << made;
    return true;
}

class MpvPlayerTest : public testing::Test {
protected:
    // Looks until it holds, which takes a moment of the film; false when it doesn't within ten seconds.
    bool comes(const std::function<bool()> &condition)
    {
        const auto end = std::chrono::steady_clock::now() + 10s;
        while (!condition()) {
            if (std::chrono::steady_clock::now() > end)
                return false;
            std::this_thread::sleep_for(2ms);
            player.attend();
        }
        return true;
    }
    bool stands(std::int64_t from, std::int64_t to)
    {
        const auto at = player.millisecond();
        return at && *at >= from && *at <= to;
    }

    TemporaryFolder folder;
    MpvPlayer player{[] {}, {{"vo", "null"}, {"ao", "null"}}};
};

TEST_F(MpvPlayerTest, PlaysAFilm)
{
    const std::string film = folder / "un film d'été.avi";
    if (!makeFilm(film))
        GTEST_SKIP() << "ffmpeg is missing, so there is no film to play";
    std::string byHand;
    player.byHand = [&](media::Player::ByHand) { byHand += "!"; };
    EXPECT_FALSE(player.milliseconds()) << "nothing is open";

    player.open(film);
    player.play(film);
    ASSERT_TRUE(comes([&] { return player.milliseconds() && player.frames() && player.frame(); }));
    EXPECT_NEAR(static_cast<double>(*player.milliseconds()), 8000, 100);
    EXPECT_NEAR(static_cast<double>(*player.frames()), 200, 3);
    ASSERT_TRUE(comes([&] { return player.frame() >= 2; })) << "it runs";

    player.pause(film);
    player.playFrom(film, 6000);
    ASSERT_TRUE(comes([&] { return stands(5990, 8100); })) << "forward, and it plays on";
    player.playFrom(film, 500);
    ASSERT_TRUE(comes([&] { return stands(490, 5900); })) << "back";
    const std::int64_t before = *player.millisecond();
    player.playFrom(film, -3250);
    player.playFrom(film, 60'000);
    player.pause("another.avi");
    ASSERT_TRUE(comes([&] {
        EXPECT_TRUE(stands(before, 7500)) << "before its beginning, behind its end: refused";
        return stands(before + 200, 8000);
    }));

    player.pause(film);
    const auto first = [&] { return player.frame(); };
    std::optional<std::int64_t> stood;
    ASSERT_TRUE(comes([&] { return std::exchange(stood, first()) == first() && stood.has_value(); }));
    player.open(film); // the play button on a paused film goes on with it
    player.play(film);
    ASSERT_TRUE(comes([&] { return player.frame() > *stood; }));

    player.playFrom(film, 7800);
    ASSERT_TRUE(comes([&] { return player.ended(); }));
    EXPECT_TRUE(stands(7800, 8100)) << "at its end it stands on the last picture";
    player.close(film);
    EXPECT_FALSE(player.milliseconds());
    EXPECT_FALSE(player.frame());
    EXPECT_EQ(byHand, "") << "nobody was at the window";

    player.open(film);
    player.play(film);
    ASSERT_TRUE(comes([&] { return player.frame().value_or(0) >= 1; })) << "once more";
    EXPECT_TRUE(stands(0, 7000));
}

TEST_F(MpvPlayerTest, RefusesWhatIsNoFilm)
{
    const std::string film = folder / "film.avi", cut = folder / "coupé.avi";
    const bool made = makeFilm(film);
    if (made)
        layDown(cut, content(film).substr(0, 60000));
    const std::pair<const char *, std::string> files[] = {
        {"texte.avi", "Ceci est du texte\n"},
        {"vide.avi", ""},
        {"script.sh", "#!/bin/sh\n"},
        {"liste.avi", "#EXTM3U\n#EXTINF:4,\n" + film + "\nhttp://127.0.0.1:9/x.ts\n"},
        {"edl.avi", "# mpv EDL v0\n" + film + "\n"},
        {"concat.avi", "ffconcat version 1.0\nfile '" + film + "'\n"},
        {"riff.avi",
         "RIFF\xFF\xFF\xFF\xFF"
         "AVI LIST\xFF\xFF\xFF\x7F"
         "hdrlavih" +
             std::string(200, '\xFF')},
    };
    for (const auto &[name, bytes] : files)
        layDown(folder / name, bytes);
    layDown(folder / "énorme.avi", "RIFF");
    std::filesystem::resize_file(folder / "énorme.avi", 50'000'000'000);
    std::filesystem::create_directory(folder / "dossier.avi");
    ASSERT_EQ(mkfifo((folder / "tube.avi").c_str(), 0600), 0);
    std::filesystem::create_symlink("boucle.avi", folder / "boucle.avi");
    std::filesystem::create_symlink("/dev/zero", folder / "zéro.avi");
    for (const char *name :
         {"texte.avi", "vide.avi", "script.sh", "liste.avi", "edl.avi", "concat.avi", "riff.avi", "énorme.avi",
          "dossier.avi", "tube.avi", "boucle.avi", "zéro.avi", "absent.avi", "", "av://lavfi:testsrc"}) {
        const std::string path = *name == 'a' && name[2] == ':' ? name : (folder / name).string();
        player.open(path);
        player.play(path);
        EXPECT_TRUE(comes([&] { return player.refused() || !player.loading(); })) << name;
        EXPECT_FALSE(player.milliseconds() || player.frame()) << name;
    }
    if (!made)
        GTEST_SKIP() << "ffmpeg is missing, so no film was cut short";
    player.open(cut);
    player.play(cut);
    EXPECT_TRUE(comes([&] { return player.refused() || player.ended(); }));
    player.open(film);
    player.play(film);
    EXPECT_TRUE(comes([&] { return player.frame() >= 1; })) << "after all that a film still plays";
}

}
