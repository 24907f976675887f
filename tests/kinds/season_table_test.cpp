// What the tables of seasons leave alone, and how the keyboard comes to their years.
#include "shell/driven_program.h"

#include <map>

using namespace circuidex;
using namespace circuidex::test;

namespace {

class SeasonTableTest : public DrivenProgram {
protected:
    SeasonTableTest() : DrivenProgram({"f12003.ini", "f12004.ini", "f12005.ini", "f1ARCHIVES.ini", "Année"}) { }

    std::map<std::string, std::string> files() const
    {
        std::map<std::string, std::string> all;
        for (const std::string &name : folder.names())
            all[name] = content(folder / name);
        return all;
    }
};

TEST_F(SeasonTableTest, OnlyReads)
{
    say("settle");
    const auto before = files();
    for (const char *form : {"Form78", "Form79", "Form80", "Form81", "Form82", "Form83"}) {
        const Screen &table = open(form);
        for (const char *pressed : {"Command1", "Command4", "Command5", "Command55"})
            table.press(QString::fromLatin1(pressed));
        table.press(u"Label1"_s, 8);
        say(std::string("close ") + form);
    }
    say("settle");
    EXPECT_EQ(files(), before);
}

TEST_F(SeasonTableTest, TheYearsFollowTheQuestionInTheOrderOfTheKeyTab)
{
    const Screen &table = open("Form78");
    const auto widget = [&table](const QString &name, std::optional<int> index = std::nullopt) {
        return static_cast<WidgetControl *>(table.control(name, index))->widget();
    };
    const auto next = [](QWidget *from) {
        do
            from = from->nextInFocusChain();
        while (!(from->focusPolicy() & Qt::TabFocus));
        return from;
    };
    QWidget *at = widget(u"Command1"_s);
    for (int index = 7; index <= 10; ++index)
        EXPECT_EQ(at = next(at), widget(u"Label1"_s, index)) << index;
    EXPECT_EQ(next(at), table.tables().front());
}

}
