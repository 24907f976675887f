// SPDX-License-Identifier: GPL-3.0-or-later
// Names from strangers stay names, whatever form a table is given.
#include "store/table_text.h"

#include <gtest/gtest.h>

using namespace circuidex::table_text;

namespace {

TEST(TableText, TellsFormulasFromFigures)
{
    for (const char *figure : {"", "-3", "+6", "+ 10", "- 8 pts", "-1,5", "+2.25", "=", "-", "Monaco", "3-4", "a=b"})
        EXPECT_EQ(inCell(figure), figure);
    for (const char *formula : {"=1+1", "=HYPERLINK(\"http://x\")", "+1+1", "-2+3", "@SUM(A1)", "-cmd|' /C calc'!A0",
                                "- x", "+1e", "\t=1", "-1994-1995", "=="})
        EXPECT_EQ(inCell(formula), "'" + std::string(formula));
}

const Grid hostile{
    "Table",
    {{"Nom;1"}, {"Points", true}},
    {{{"Dupont; dit \"Le <b>Rapide</b>\""}, {"-3", "#FFC0C0"}}, {{"a\nb"}, {"=1+1"}}, {{" & "}, {"1,5"}}}};

TEST(TableText, QuotesWhatWouldBreakALine)
{
    EXPECT_EQ(asCsv(hostile, ';'),
              "\"Nom;1\";Points\n\"Dupont; dit \"\"Le <b>Rapide</b>\"\"\";-3\n\"a\nb\";'=1+1\n\" & \";1,5\n");
    EXPECT_EQ(asCsv(Grid{{}, {{}, {}}, {{{"1,5"}, {"a;b"}}}}, ','), "\"1,5\",a;b\n");
    EXPECT_EQ(asTabs(hostile), "Nom;1\tPoints\nDupont; dit \"Le <b>Rapide</b>\"\t-3\na b\t'=1+1\n & \t1,5\n");
    EXPECT_EQ(asCsv(Sheet{"T", {}, {{"Né le", "3;1"}}, {}}, ';'), "Rubrique;Valeur\nNé le;\"3;1\"\n");
    EXPECT_EQ(asCsv(Sheet{"T", {}, {}, {hostile, hostile}}, ';'), asCsv(hostile, ';') + '\n' + asCsv(hostile, ';'));
}

TEST(TableText, LetsNoMarkupThrough)
{
    const std::string html = asHtml({"<script>alert(1)</script>", "2004", {{"Pilote", "O'<i>\"X\""}}, {hostile}});
    EXPECT_EQ(html.find("<script"), std::string::npos);
    EXPECT_EQ(html.find("<i>"), std::string::npos);
    for (const char *part : {"<h1>&lt;script&gt;alert(1)&lt;/script&gt; – saison 2004</h1>",
                             "<p>Pilote : <b>O'&lt;i&gt;&quot;X&quot;</b></p>",
                             "<tr><td>Dupont; dit &quot;Le &lt;b&gt;Rapide&lt;/b&gt;&quot;</td><td class=\"d\" "
                             "style=\"background:#FFC0C0\">-3</td></tr>",
                             "<td>a<br>b</td>", "<td> &amp; </td>"})
        EXPECT_NE(html.find(part), std::string::npos) << part;
}

TEST(TableText, EscapesWhatJsonMinds)
{
    const std::string json = asJson({"T\\", "2004", {{"a", "b"}}, {{"", {{"C"}}, {{{"\"\n\x01é"}}}}}});
    for (const char *part : {R"("titre": "T\\")", R"("saison": "2004")", R"({"rubrique": "a", "valeur": "b"})",
                             R"("colonnes": ["C"])", R"(["\"\u000a\u0001é"])"})
        EXPECT_NE(json.find(part), std::string::npos) << part << '\n' << json;
}

}
