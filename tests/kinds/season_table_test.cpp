// SPDX-License-Identifier: GPL-3.0-or-later
// What the tables of seasons leave alone: every file.
#include "shell/driven_program.h"

using namespace circuidex;
using namespace circuidex::test;

namespace {

class SeasonTableTest : public DrivenProgram {
protected:
    SeasonTableTest() : DrivenProgram({"f12003.ini", "f12004.ini", "f12005.ini", "f1ARCHIVES.ini", "Année"}) { }

    std::string files() const
    {
        std::string all;
        for (const std::string &name : folder.names())
            if (std::filesystem::is_regular_file(folder / name))
                all += name + content(folder / name);
        return all;
    }
};

TEST_F(SeasonTableTest, OnlyReads)
{
    say("settle");
    const std::string before = files();
    for (const char *form : {"Form78", "Form79", "Form80", "Form81", "Form82", "Form83"}) {
        const Screen &table = open(form);
        for (const char *pressed : {"Command1", "Command4", "Command5", "Command55"})
            table.press(QString::fromLatin1(pressed));
        table.press(u"Label1"_s, 8);
        say(std::string("close ") + form);
    }
    say("settle");
    EXPECT_TRUE(files() == before);
}

}
