// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/picker_routes.h"

#include <gtest/gtest.h>

#include <vector>

using namespace circuidex;

namespace {

std::string printed(const ControlName &control)
{
    return control.index ? control.name + "(" + std::to_string(*control.index) + ")" : control.name;
}

// "Form8 slot>Text2 name>Label5 Command1"; a "+" before a screen that is opened for it.
std::string printed(const std::optional<Destination> &to)
{
    if (!to)
        return "nobody";
    static const char *const forms[] = {" slot>", " row>", " slot>tag of "};
    std::string line = (to->opens ? "+" : "") + std::string(to->screen);
    if (to->form == NumberForm::tagOfName)
        line += forms[2] + printed(to->name);
    else if (!to->number.name.empty())
        line += forms[static_cast<int>(to->form)] + printed(to->number);
    if (!to->name.name.empty())
        line += " name>" + printed(to->name);
    for (const std::string_view button : to->buttons)
        if (!button.empty())
            line += " " + std::string(button);
    return line;
}

struct Case {
    const char *word, *expected;
    Mark mark = Mark::label2;
};

void expectRoutes(PickList list, const std::vector<Case> &cases)
{
    for (const Case &c : cases) {
        EXPECT_EQ(printed(destination(list, "", c.word)), c.expected) << c.word;
        EXPECT_EQ(printed(destination(list, c.word, "")), c.expected) << c.word << " as the tag";
        EXPECT_EQ(markOf(list, c.word), c.mark) << c.word;
    }
}

TEST(PickerRoutes, OfADriver)
{
    expectRoutes(PickList::drivers,
                 {
                     {"1", "Form1 slot>Text1 name>Text31"},
                     {"8", "Form1 slot>Text8 name>Text38"},
                     {"pole", "Form1 slot>Text39 name>Text9"},
                     {"winner", "Form39 slot>Text40"},
                     {"class0", "Form48 slot>tag of Text99(0) name>Text99(0)"},
                     {"class25", "Form48 slot>tag of Text99(25) name>Text99(25)"},
                     {"fr3", "Form3 slot>nopilot Command3"},
                     {"resum", "Form60 row>no name>Text1 Command2"},
                     {"n1", "Form8 slot>Text1 name>Label3 Command1"},
                     {"n3", "Form8 slot>Text5 name>Label16 Command1"},
                     {"n4", "Form8 slot>Text4 name>Label15 Command1"},
                     {"nprog21", "Form102 slot>Text1 name>Label3 Command1"},
                     {"pn1", "Form45 name>Label3 Command1"},
                     {"2pn4", "Form53 name>Label15 Command1"},
                     {"p1mom", "Form36 row>no name>Text1 Command2"},
                     {"p3mom", "Form36 row>no3 name>Text9 Command2"},
                     {"classcarriere", "Form75 row>nopilott name>Text1 Command1", Mark::tag},
                     {"pilotcompaan85", "Form85 name>nompilote Command1", Mark::tag},
                 });
}

TEST(PickerRoutes, OfATeam)
{
    expectRoutes(PickList::teams,
                 {
                     {"plot1", "Form3 name>Text8"},
                     {"en1", "Form41 name>Label3 Command1"},
                     {"en4", "Form41 name>Label15 Command1"},
                     {"comparatifecu3", "Form73 name>Text9 Command2"},
                     {"4graphecuprogr105", "Form105 name>Label15 Command1"},
                 });
}

TEST(PickerRoutes, OfAGrandPrix)
{
    expectRoutes(PickList::grandsPrix,
                 {
                     {"f340", "Form34 name>Text3(0)"},
                     {"f3419", "Form34 name>Text3(19)"},
                     {"f3421", "Form34 name>Text3(21)"},
                     {"courseanalyse94", "Form94 name>nomgp Command1", Mark::tag},
                     {"fr4", "Form4 name>gp Command3 Command12"},
                     {"a1", "Form20 name>Text1 Command1"},
                 });
}

TEST(PickerRoutes, WithoutAWordTheyKnow)
{
    const char *const wins = "+Form23 name>Text1 Command1", *const main = "Form1 name>gp Command17";
    for (const char *word : {"", "0", "9", "01", "+1", " 1", "class", "class26", "class-1", "class1x", "n5", "nprog5",
                             "nprog20", "p0mom", "FR6", "fr4", "#", "class#", "99999999999999999999"})
        EXPECT_EQ(printed(destination(PickList::drivers, word, word)), wins) << word;
    for (const char *word : {"", "en5", "0graphecuprogr105", "graphecuprogr105", "pole"})
        EXPECT_EQ(printed(destination(PickList::teams, word, word)), "nobody") << word;
    for (const char *word : {"", "f34", "f3422", "f34-1", "a3", "supp"})
        EXPECT_EQ(printed(destination(PickList::grandsPrix, word, word)), main) << word;
}

TEST(PickerRoutes, TheTagComesFirst)
{
    EXPECT_EQ(destination(PickList::drivers, "classcarriere", "fr6")->screen, "Form75");
    EXPECT_EQ(destination(PickList::drivers, "something", "fr6")->screen, "Form6");
    EXPECT_EQ(destination(PickList::grandsPrix, "courseanalyse94", "a1")->screen, "Form94");
}

}
