// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/key_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <random>
#include <vector>

#include "../../fuzz/naive_key_file.h"

using circuidex::KeyFile;

namespace {

std::string read(const KeyFile &file, std::string_view section, std::string_view key)
{
    return std::string(file.value(section, key).value_or("(none)"));
}

TEST(KeyFile, FindsValues)
{
    struct Case {
        const char *name, *file, *section, *key, *expected;
    };
    const Case cases[] = {
        {"Plain", "[a]\r\nk=1\r\n", "a", "k", "1"},
        {"EmptyFile", "", "a", "k", "(none)"},
        {"MissingKey", "[a]\r\nk=1\r\n", "a", "j", "(none)"},
        {"MissingSection", "[a]\r\nk=1\r\n", "b", "k", "(none)"},
        {"EmptyValue", "[a]\r\nk=\r\n", "a", "k", ""},
        {"OtherCase", "[gp]\r\nNomAZ7=x\r\n", "GP", "nOMaz7", "x"},
        {"AccentInOtherCase", "[\xC9t\xE9]\r\n\x9Cuf\xFF=x\r\n", "\xE9T\xC9", "\x8CUF\x9F", "x"},
        {"TimesIsNoLetter", "[a]\r\n\xD7=x\r\n", "a", "\xF7", "(none)"},
        {"AccentIsNotItsBaseLetter", "[a]\r\nBr\xE9sil=x\r\n", "a", "Bresil", "(none)"},
        {"LineFeedEnds", "[a]\nk=1\nj=2", "a", "j", "2"},
        {"ReturnEnds", "[a]\rk=1\rj=2\r", "a", "j", "2"},
        {"MixedEnds", "[a]\nk=1\r\n\rj=2\n\r", "a", "j", "2"},
        {"BlanksAround", "  [ a ]  \r\n\tk \t=  v w \t\r\n", "a", " k ", "v w"},
        {"OnePairOfQuotes", "[a]\r\nk=\"\"v\"\"\r\n", "a", "k", "\"v\""},
        {"SingleQuotes", "[a]\r\nk=' v '\r\n", "a", "k", " v "},
        {"UnlikeQuotesStay", "[a]\r\nk=\"v'\r\n", "a", "k", "\"v'"},
        {"OneQuoteAlone", "[a]\r\nk=\"\r\n", "a", "k", "\""},
        {"EqualsInValue", "[a]\r\nk=a=b\r\n", "a", "k", "a=b"},
        {"SemicolonInValue", "[a]\r\nk=a ; b\r\n", "a", "k", "a ; b"},
        {"FirstOfTwoKeys", "[a]\r\nk=1\r\nK=2\r\n", "a", "k", "1"},
        {"FirstOfTwoSections", "[a]\r\nk=1\r\n[b]\r\n[A]\r\nm=2\r\n", "a", "m", "(none)"},
        {"TextBehindHeader", "[a] ; c\r\nk=1\r\n", "a", "k", "1"},
        {"HeaderWithoutEnd", "[a]\r\n[b\r\nk=1\r\n", "a", "k", "1"},
        {"BeforeAnySection", "k=1\r\n[a]\r\n", "", "k", "(none)"},
        {"NameWithoutEquals", "[a]\r\nk\r\nk=2\r\n", "a", "k", ""},
        {"EmptyName", "[a]\r\n = v\r\n", "a", "", "v"},
        {"CommentedSection", ";[a]\r\nk=1\r\n", "a", "k", "(none)"},
        {"ByteOrderMark", "\xEF\xBB\xBF[a]\r\nk=1\r\n", "a", "k", "1"},
    };
    for (const Case &c : cases)
        EXPECT_EQ(read(KeyFile(c.file), c.section, c.key), c.expected) << c.name;
}

TEST(KeyFile, WritingTouchesItsLineOnly)
{
    struct Case {
        const char *name, *before, *section, *key, *value, *after;
    };
    const Case cases[] = {
        {"FirstKey", "", "a", "k", "1", "[a]\r\nk=1\r\n"},
        {"FirstKeyEmpty", "", "a", "k", "", "[a]\r\nk=\r\n"},
        {"Replace", "[a]\r\nk=1\r\nj=2\r\n", "a", "k", "345", "[a]\r\nk=345\r\nj=2\r\n"},
        {"ReplaceByEmpty", "[a]\r\nk=1\r\nj=2\r\n", "a", "k", "", "[a]\r\nk=\r\nj=2\r\n"},
        {"SameValue", "[a]\r\nk=1", "a", "k", "1", "[a]\r\nk=1"},
        {"QuotesGo", "[a]\r\nk=\"1\"\r\n", "a", "k", "1", "[a]\r\nk=1\r\n"},
        {"CaseOfFileStays", "[A]\r\nK=1\r\n", "a", "k", "2", "[A]\r\nK=2\r\n"},
        {"EndOfSection", "[a]\r\nk=1\r\n[b]\r\nk=2\r\n", "a", "j", "3", "[a]\r\nk=1\r\nj=3\r\n[b]\r\nk=2\r\n"},
        {"BeforeBlankLines", "[a]\r\nk=1\r\n\r\n[b]\r\n", "a", "j", "3", "[a]\r\nk=1\r\nj=3\r\n\r\n[b]\r\n"},
        {"BehindComment", "[a]\r\nk=1\r\n; c\r\n[b]\r\n", "a", "j", "3", "[a]\r\nk=1\r\n; c\r\nj=3\r\n[b]\r\n"},
        {"NewSection", "[a]\r\nk=1\r\n", "b", "k", "2", "[a]\r\nk=1\r\n[b]\r\nk=2\r\n"},
        {"LastLineWithoutEnd", "[a]\r\nk=1", "a", "j", "2", "[a]\r\nk=1\r\nj=2\r\n"},
        {"HeaderWithoutEnd", "[a]\r\nk=1\r\n[b]", "b", "j", "2", "[a]\r\nk=1\r\n[b]\r\nj=2\r\n"},
        {"EmptyLastValue", "[a]\r\nk=", "a", "j", "2", "[a]\r\nk=\r\nj=2\r\n"},
        {"LineFeedsStay", "[a]\nk=1\n", "a", "j", "2", "[a]\nk=1\nj=2\n"},
        {"ReturnsStay", "[a]\rk=1\r", "b", "j", "2", "[a]\rk=1\r[b]\rj=2\r"},
        {"MixedEndsGetBoth", "[a]\nk=1\r\n", "a", "j", "2", "[a]\nk=1\r\nj=2\r\n"},
        {"NameAlone", "[a]\r\nalone  \r\nj=1\r\n", "a", "alone", "2", "[a]\r\nalone=2\r\nj=1\r\n"},
        {"FirstOfTwo", "[a]\r\nk=1\r\nk=2\r\n", "a", "k", "3", "[a]\r\nk=3\r\nk=2\r\n"},
        {"BlankBeforeName", "[a]\r\n  k = 1 \r\n", "a", "k", "2", "[a]\r\n  k =2\r\n"},
        {"BlanksOfValueAreKept", "[a]\r\n", "a", "k", "  v ", "[a]\r\nk=  v \r\n"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        KeyFile file(c.before);
        EXPECT_EQ(file.set(c.section, c.key, c.value), std::string(c.before) != c.after);
        EXPECT_EQ(file.bytes(), c.after);
        EXPECT_FALSE(file.set(c.section, c.key, c.value)) << "a second write of the same value";
    }
}

TEST(KeyFile, ValueMayBeAViewOfTheFileItself)
{
    KeyFile file("[a]\r\nk=held\r\n");
    file.set("b", "copy", *file.value("a", "k"));
    file.set("b", "again", *file.value("b", "copy"));
    EXPECT_EQ(file.bytes(), "[a]\r\nk=held\r\n[b]\r\ncopy=held\r\nagain=held\r\n");
}

// The naive key file of the fuzzers is the reference, on files of the lines and names that this program knows, and on
// files of bytes by chance.
TEST(KeyFile, AnswersLikeTheReferenceOverRandomReadsAndWrites)
{
    const std::vector<std::string> sections = {"N\xB0", "gp", "podium", "\xC9t\xE9", "a b", "n\xB0", "GP", "a"};
    const std::vector<std::string> names = {"nom1",          "NOM1", "\xE9quipe", "\xC9quipe",
                                            "Br\xE9sil/gp4", "",     "a",         "alone"};
    const std::vector<std::string> odds = {"[gp]", "  [ a b ] x", "",     "  ", "; note", "alone",
                                           "a=1",  " NOM1 = v  ", "[open"};
    const std::string signs("[]= \t\r\n;\"'ak\xE9\0", 14); // those that mean something, often
    std::mt19937 random(20052005);
    const auto pick = [&random](const auto &from) { return from[random() % from.size()]; };
    for (int round = 0; round < 600; ++round) {
        std::string bytes;
        for (auto i = random() % 12; i > 0 && round % 2 == 0; --i)
            bytes += pick(odds) + "\r\n";
        for (auto i = random() % 200; i > 0 && round % 2 == 1; --i)
            bytes += random() % 4 ? pick(signs) : static_cast<char>(random());
        circuidex::naive::KeyFile expected(bytes);
        KeyFile file(bytes);
        for (int step = 0; step < 60; ++step) {
            const std::string section = pick(sections);
            const std::string name = random() % 8 ? pick(names) : bytes.substr(0, random() % 8);
            if (random() % 2) {
                const std::string text(random() % 9, static_cast<char>('a' + step % 26));
                const std::string value = random() % 8 ? text : bytes.substr(0, random() % 20);
                expected.set(section, name, value);
                file.set(section, name, value);
            }
            ASSERT_EQ(read(file, section, name), expected.value(section, name).value_or("(none)"))
                << section << " " << name;
            ASSERT_EQ(file.bytes(), expected.bytes());
        }
        const KeyFile again(file.bytes());
        for (const std::string &section : sections)
            for (const std::string &name : names)
                ASSERT_EQ(read(again, section, name), read(file, section, name));
    }
}

std::string repeated(std::size_t count, const std::function<std::string(std::size_t)> &line)
{
    std::string all = "[a]\r\n";
    for (std::size_t i = 0; i < count; ++i)
        all += line(i) + "\r\n";
    return all;
}

// Files made to be slow: each takes well under a second when the time grows with the size alone.
TEST(KeyFile, HostileFilesAreReadAndWrittenInLinearTime)
{
    const auto letters = [](std::size_t i) { // AaBB and BBAa are one to a hash that multiplies by 31
        std::string name;
        for (int bit = 0; bit < 19; ++bit)
            name += i >> bit & 1 ? "d~" : "e_";
        return name + "=1";
    };
    const auto section = [](std::size_t i) { return "[" + std::to_string(i) + "]"; };
    const auto equals = [](std::size_t i) { return std::to_string(i) + std::string(100'000, '='); };
    const std::pair<const char *, std::string> cases[] = {
        {"ten megabytes of keys", repeated(500'000, [](auto i) { return "podium" + std::to_string(i) + "=7"; })},
        {"a million sections", repeated(1'000'000, section)},
        {"a million times the same key", repeated(1'000'000, [](auto) { return "k=1"; })},
        {"a million times the same section", repeated(1'000'000, [](auto) { return "[a]"; })},
        {"names of equal letter sums", repeated(1 << 19, letters)},
        {"lines of 100000 characters", repeated(100, equals)},
        {"returns only", "[a]\r\n" + std::string(10'000'000, '\r')},
        {"brackets only", "[a]\r\n" + std::string(5'000'000, '[') + "\r\n"},
        {"blanks only", "[a]\r\n" + std::string(10'000'000, ' ') + "\r\n"},
    };
    for (const auto &[name, bytes] : cases) {
        const auto start = std::chrono::steady_clock::now();
        KeyFile file(bytes);
        for (int i = 0; i < 10; ++i)
            file.set("a", "written" + std::to_string(i), "v");
        EXPECT_EQ(read(file, "A", "WRITTEN9"), "v") << name;
        EXPECT_EQ(file.bytes().size(), bytes.size() + 10 * std::string("written0=v\r\n").size()) << name;
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(15)) << name;
    }
}

}
