// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/text.h"

#include <gtest/gtest.h>

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

// What an editor made of a season. A value may look like UTF-8 by chance, a name of ours never does.
TEST(Text, SeasonInUtf8IsToldFromOneInTheCodePage)
{
    const std::pair<std::string, Coding> cases[] = {
        {"", Coding::codePage},
        {"[gp]\r\nnogp=1\r\n", Coding::codePage},
        {"[N\xB0]\r\nnom1=R\xE4ikk\xF6nen\r\n", Coding::codePage},
        {"[gp]\r\nnamegp0=Br\xC3\xA9sil\r\n", Coding::codePage},
        {"[N\xC2\xB0]\r\nnom1=Alonso\r\n", Coding::utf8},
        {"[podium]\npodium1Br\xC3\xA9sil=5\n", Coding::utf8},
        {"\xEF\xBB\xBF[gp]\r\nnogp=1\r\n", Coding::utf8},
        {"\xEF\xBB\xBF[N\xB0]\r\n", Coding::codePage},
        {"[gp]\r\nrem=\xE9t\xE9\r\n[N\xC2\xB0]\r\n", Coding::mixed},
        {"[N\xC2\xB0]\r\nnom1=a\r\n[N\xB0]\r\nnom1=b\r\n", Coding::mixed},
        {"[gp]\r\nrem=\xE9t\xE9 [N\xC2\xB0]\r\n", Coding::codePage},
    };
    for (const auto &[bytes, coding] : cases)
        EXPECT_EQ(codingOf(bytes), coding) << bytes;
    EXPECT_EQ(withoutUtf8("\xEF\xBB\xBF[N\xC2\xB0]\r\n"), "[N\xB0]\r\n");
}

}
