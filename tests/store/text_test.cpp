#include "store/text.h"

#include <gtest/gtest.h>

#include <random>

using namespace circuidex;

namespace {

struct TextCase {
    const char *name, *utf8, *codePage;
};

constexpr TextCase both[] = {
    {"Empty", "", ""},
    {"Ascii", "podium1Monaco", "podium1Monaco"},
    {"Accents", "Élodie N° ÿ", "\xC9lodie N\xB0 \xFF"},
    {"Euro", "12 €", "12 \x80"},
    {"Ligature", "œuf Œ", "\x9Cuf \x8C"},
    {"TypographersQuotes", "‘a’ “b” – …",
     "\x91"
     "a\x92 \x93"
     "b\x94 \x96 \x85"},
    {"OpenByte", "\xC2\x81", "\x81"},
    {"AccentBehindEightLetters", "grandeprix é", "grandeprix \xE9"},
};

TEST(Text, ConvertsBothWays)
{
    for (const TextCase &c : both) {
        EXPECT_EQ(toCodePage(c.utf8), c.codePage) << c.name;
        EXPECT_EQ(toUtf8(c.codePage), c.utf8) << c.name;
    }
}

constexpr TextCase lossy[] = {
    {"OtherScript", "日本x", "??x"},
    {"Picture", "a🏁b", "a?b"},
    {"ControlOfAUsedByte", "\xC2\x80", "?"},
    {"ReplacementCharacter", "\xEF\xBF\xBD", "?"},
    {"LoneContinuation", "a\x80z", "a?z"},
    {"CutAtTheEnd", "a\xC3", "a?"},
    {"CutInTheMiddle", "\xE2\x82x", "??x"},
    {"Overlong", "\xC0\xAF", "??"},
    {"OverlongThree", "\xE0\x80\xAF", "???"},
    {"Surrogate", "\xED\xA0\x80", "???"},
    {"BeyondUnicode", "\xF4\x90\x80\x80", "????"},
    {"NoLead", "\xFF\xFE", "??"},
};

TEST(Text, WhatTheCodePageLacksBecomesAQuestionMark)
{
    for (const TextCase &c : lossy)
        EXPECT_EQ(toCodePage(c.utf8), c.codePage) << c.name;
}

TEST(Text, OfAValueTellsWhetherItComesBack)
{
    const std::string longest(longestValue, 'x');
    for (const std::string &kept : {std::string(), std::string("/home/é/a b.png"), std::string("C:\\l'été\\12 €.jpg"),
                                    std::string("\"a\".png"), std::string("\""), longest, "é" + longest.substr(1)})
        EXPECT_TRUE(comesBack(kept)) << kept;
    for (const std::string &lost : {std::string("/Żółw.png"), std::string("e\u0301.png"), std::string("\xFF.png"),
                                    std::string("a\nb"), std::string(" a"), std::string("a\t"), std::string("\"a\""),
                                    std::string("'a'"), longest + "x"})
        EXPECT_FALSE(comesBack(lost)) << lost;
}

TEST(Text, AllBytesSurviveTheWayThereAndBack)
{
    std::string all;
    for (int c = 0; c < 256; ++c)
        all += static_cast<char>(c);
    EXPECT_EQ(toCodePage(toUtf8(all)), all);
    for (const char c : all)
        EXPECT_EQ(toCodePage(toUtf8(std::string(1, c))), std::string(1, c));
}

TEST(Text, RandomBytesGiveValidText)
{
    std::mt19937 random(5);
    for (int round = 0; round < 5000; ++round) {
        std::string bytes(random() % 30, ' ');
        for (char &c : bytes)
            c = static_cast<char>(random() % 3 ? 0x80 + random() % 128 : random() % 128);
        const std::string converted = toCodePage(bytes);
        EXPECT_LE(converted.size(), bytes.size());
        EXPECT_EQ(toCodePage(toUtf8(bytes)), bytes);
    }
}

TEST(Text, AsciiIsNotCopied)
{
    const std::string_view text = "grilledepart";
    std::string scratch;
    EXPECT_EQ(toCodePage(text, scratch).data(), text.data());
}

}
