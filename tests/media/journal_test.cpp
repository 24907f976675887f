// Articles as files: what they hold to the byte, and what a kill or a refusing disk leaves of a save.
#include "media/journal.h"
#include "store/temporary_folder.h"
#include "store/watched_calls.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstring>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace circuidex;
using namespace circuidex::media;
using namespace circuidex::test;

namespace {

class Journal : public testing::Test {
protected:
    TemporaryFolder folder;
    Store store{folder.path()};
};

TEST_F(Journal, TextsComeBackWholeAndTheCodePageIsKeptWhereItCan)
{
    const std::string mark = "\xEF\xBB\xBF";
    const struct { std::string body, bytes; } cases[] = {
        {"", "\r\n"},
        {"Été à Monaco\n\nœuvre, 5 €\n", "\xC9t\xE9 \xE0 Monaco\r\n\r\n\x9Cuvre, 5 \x80\r\n\r\n"},
        {"Ż 🏁 à\n日本", mark + "Ż 🏁 à\r\n日本\r\n"},
        {"Ã©", mark + "Ã©\r\n"}, // in the code page it would be taken for é in UTF-8
        {"ï»¿ é", mark + "ï»¿ é\r\n"},
        {"a\r\nb\rc", "a\r\r\nb\rc\r\n"},
        {std::string("\0\0", 2), std::string("\0\0\r\n", 4)},
    };
    for (const auto &[body, bytes] : cases) {
        EXPECT_TRUE(saveArticle(store, "3", {"Titre", body}));
        EXPECT_EQ(content(folder / "Journal p3.txt"), bytes);
        EXPECT_EQ(article(store, "3"), (Article{"Titre", body}));
    }
    std::string megabyte;
    while (megabyte.size() < 1 << 20)
        megabyte += "Räikkönen s'impose devant Alonso 🏁\n";
    EXPECT_TRUE(saveArticle(store, "4", {"Long", megabyte}));
    EXPECT_EQ(article(store, "4").body, megabyte);
    layDown(folder / "Journal p5.txt", "\xC3\xA9t\xC3\xA9\n"); // an editor's UTF-8
    layDown(folder / "Journal t5.txt", "titre, suite\r\nx");
    EXPECT_EQ(article(store, "5"), (Article{"titre", "été"}));
}

TEST_F(Journal, ATitleIsReadAsAField)
{
    const std::pair<const char *, const char *> cases[] = {
        {"Monaco, 22 mai", "Monaco"}, {"Dit \"Iceman\"", "Dit"}, {"\"Kimi\" gagne", "Kimi"}, {"  l'arrivée ", "l'arrivée"},
        {",x", ""}, {"", ""}, {"\"ouvert", "ouvert"}};
    for (const auto &[line, read] : cases)
        EXPECT_EQ(titleAsRead(line), read) << line;
}

TEST_F(Journal, NumbersNameFilesAndNothingElse)
{
    for (const char *number : {"", "a", "../1", "1/2", "1.5", "-", "1234567890", "1 "}) {
        EXPECT_FALSE(saveArticle(store, number, {"t", "b"})) << number;
        EXPECT_FALSE(keepDraft(store, number, {"t", "b"})) << number;
        EXPECT_EQ(article(store, number), Article()) << number;
    }
    EXPECT_EQ(folder.names(), std::vector<std::string>());
    EXPECT_TRUE(saveArticle(store, "0", {"t", "b"}));
    const Numbers numbers(',');
    EXPECT_EQ(articleBefore(numbers, "1") + articleBefore(numbers, "0") + articleBefore(numbers, "x"), "00x");
    EXPECT_EQ(articleBehind(numbers, "999") + articleBehind(numbers, ""), "1000");
}

// Forks a program that saves and dies at the call of that number, before it or in the middle of a write. True when it
// came to the end before.
bool savesUntil(const std::filesystem::path &folder, const Article &article, int last, bool half)
{
    const pid_t child = ::fork();
    if (child == 0) {
        int calls = 0;
        const WatchedCalls watched([&](const WatchedCalls::Call &call) {
            if (writes(call) && calls++ == last) {
                if (half && call.name == "write")
                    call.writePart(call.size / 2);
                ::_exit(1);
            }
            return 0;
        });
        Store store(folder);
        ::_exit(saveArticle(store, "7", article) ? 0 : 2);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST_F(Journal, AKillAtAnyCallOfASaveLeavesTheOldOrTheNewArticle)
{
    const Article old{"Avant", "Ancien texte\nde deux lignes"}, fresh{"Après 🏁", "Nouveau"}, next{"Encore", "x"};
    int kept = 0, lost = 0;
    bool done = false;
    for (int last = 0; !done; ++last)
        for (const bool half : {false, true}) {
            const TemporaryFolder place;
            Store after(place.path());
            ASSERT_TRUE(saveArticle(after, "7", old));
            keepDraft(after, "7", fresh);
            done = savesUntil(place.path(), fresh, last, half);
            const Article found = article(after, "7");
            EXPECT_TRUE(found == old || found == fresh) << last << ": " << found.title << ", " << found.body;
            EXPECT_EQ(titlesOf(after, 1)[7], found.title);
            EXPECT_TRUE(found == fresh || draft(after, "7") == fresh) << last; // else it is still offered
            (found == fresh ? kept : lost)++;
            finishSaving(after, "7");
            EXPECT_EQ(article(after, "7"), found) << last;
            EXPECT_TRUE(saveArticle(after, "7", next));
            EXPECT_EQ(content(place / "Journal t7.txt") + content(place / "Journal p7.txt"), "Encore\r\nx\r\n");
        }
    EXPECT_GT(kept, 10);
    EXPECT_GT(lost, 4);
}

TEST_F(Journal, ARefusedCallLeavesTheArticleThatTheAnswerSays)
{
    const Article old{"Avant", "Ancien"}, fresh{"Après", "Nouveau"};
    int refusals = 0, losses = 0;
    for (bool reached = true; reached; ++refusals) {
        const TemporaryFolder place;
        Store desk(place.path());
        ASSERT_TRUE(saveArticle(desk, "7", old));
        int calls = 0;
        bool saved = false;
        {
            const WatchedCalls watched([&](const auto &call) { return writes(call) && calls++ == refusals ? ENOSPC : 0; });
            saved = saveArticle(desk, "7", fresh);
        }
        EXPECT_EQ(article(desk, "7"), saved ? fresh : old) << refusals;
        EXPECT_TRUE(saveArticle(desk, "7", fresh));
        EXPECT_EQ(article(desk, "7"), fresh);
        reached = calls > refusals;
        losses += !saved;
    }
    EXPECT_GT(refusals, 10);
    EXPECT_GT(losses, 2);
}

TEST_F(Journal, WhatIsNoArticleIsNeitherReadNorReplaced)
{
    std::filesystem::create_directory(folder / "Journal p1.txt");
    ASSERT_EQ(::mkfifo((folder / "Journal p2.txt").c_str(), 0600), 0);
    std::filesystem::create_symlink("/dev/zero", folder / "Journal p3.txt");
    std::filesystem::create_symlink("Journal p4.txt", folder / "Journal p4.txt");
    const TemporaryFolder elsewhere;
    layDown(elsewhere / "x.txt", "de quelqu'un");
    std::filesystem::create_symlink(elsewhere / "x.txt", folder / "Journal p5.txt");
    for (const char *number : {"1", "2", "3", "4", "5"}) {
        layDown(folder / (std::string("Journal t") + number + ".txt"), "Titre\r\n");
        EXPECT_FALSE(saveArticle(store, number, {"a", "b"})) << number;
    }
    EXPECT_EQ(article(store, "1"), Article());
    EXPECT_EQ(content(elsewhere / "x.txt"), "de quelqu'un");
    EXPECT_EQ(titlesOf(store, 1)[2], "Titre");
    layDown(folder / "Journal p6.txt", "sans titre");
    EXPECT_EQ(article(store, "6"), Article());
    EXPECT_TRUE(saveArticle(store, "6", {"a", "b"})); // the half that wasn't shown got a second name
    const auto names = folder.names();
    EXPECT_EQ(std::ranges::count_if(names, [](const auto &name) { return name.starts_with("Journal p6."); }), 2);
    store.setReadOnly();
    EXPECT_FALSE(saveArticle(store, "6", {"c", "d"}));
    EXPECT_FALSE(keepDraft(store, "6", {"c", "d"}));
    EXPECT_EQ(article(store, "6"), (Article{"a", "b"}));
}

TEST_F(Journal, AnyPageOfALongListIsReadAtOnce)
{
    for (int n = 0; n < 10'000; ++n)
        layDown(folder / ("Journal t" + std::to_string(n) + ".txt"), "Article " + std::to_string(n) + "\r\n");
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(titlesOf(store, 167)[19], "Article 9979");
    EXPECT_EQ(titlesOf(store, 1)[0], "Article 0");
    EXPECT_EQ(titlesOf(store, 168)[0], "");
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(100));
}

}
