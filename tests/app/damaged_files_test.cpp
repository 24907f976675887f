// SPDX-License-Identifier: GPL-3.0-or-later
// What the user is asked and told of files that can't be trusted, and of a folder that is open already.
#include "shell/driven_program.h"

using namespace circuidex;
using circuidex::test::answer;
using circuidex::test::content;
using circuidex::test::layDown;
using circuidex::test::TemporaryFolder;
namespace fs = std::filesystem;

namespace {

class DamagedSeason : public testing::Test {
protected:
    DamagedSeason()
    {
        fs::copy(CIRCUIDEX_SAMPLE, folder.path());
        good = content(file());
        fs::create_directories(folder / "Sauvegardes/2005-10-09_2130");
        fs::copy(file(), folder / "Sauvegardes/2005-10-09_2130/f12005.ini");
        layDown(file(), spoilt);
    }
    std::string say(const char *command) { return answer(*driver, command); }
    fs::path file() const { return folder / "f12005.ini"; }

    const std::string spoilt = "PK\x03\x04" + std::string(300, '\0');
    std::string good;
    TemporaryFolder folder;
    std::unique_ptr<Driver> driver = std::make_unique<Driver>(folder.path(), Numbers());
};

const char *const question =
    "Le fichier f12005.ini est abîmé : ce n'est plus un fichier texte.\\n\\nRemettre sa copie du "
    "09/10/2005 à 21:30 ? Le fichier abîmé est gardé sous un autre nom.";

TEST_F(DamagedSeason, IsRestoredWhenTheUserSaysYes)
{
    say("answer oui");
    say("start");
    EXPECT_EQ(say("messages"), question);
    EXPECT_EQ(say("get Form1.Text1"), "9") << "the main screen starts on the restored season";
    EXPECT_EQ(content(file()).substr(0, good.size()), good) << "and what each start adds";
    EXPECT_EQ(std::distance(fs::directory_iterator(folder / "Sauvegardes"), {}), 2);
    EXPECT_EQ(say("read f12005.ini [gp] namegp0"), "Australie");
    EXPECT_EQ(say("get Form1.nonconservees"),
              "f12005.ini : copie du 09/10/2005 à 21:30 remise ; l'ancien : " +
                  driver->program().store().damaged()[0].aside);
}

TEST_F(DamagedSeason, StaysAsItIsWhenTheUserSaysNoAndIsAskedAboutAtTheNextStart)
{
    for (const char *start : {"first", "next"}) {
        say("start");
        EXPECT_EQ(say("messages"), question) << start;
        say("settle");
        say("write f12005.ini [gp] nogp=3");
        EXPECT_EQ(say("messages"), "") << "asked once a run";
        EXPECT_EQ(say("get Form1.nonconservees"),
                  "f12005.ini est abîmé : ce n'est plus un fichier texte ; il reste tel quel.");
        EXPECT_EQ(content(file()), spoilt);
        driver = std::make_unique<Driver>(folder.path(), Numbers());
    }
}

// Two programs on one folder.

TEST(TwoPrograms, TheSecondOneIsRefusedOrReadsOnly)
{
    const TemporaryFolder folder;
    fs::copy(CIRCUIDEX_SAMPLE, folder.path());
    QueuedDialogs dialogs;
    auto first = std::make_unique<FolderLock>(folder.path());
    EXPECT_EQ(openingOf(*first, dialogs), Opening::alone);
    EXPECT_TRUE(dialogs.shown.isEmpty());
    {
        const FolderLock second(folder.path());
        EXPECT_EQ(openingOf(second, dialogs), Opening::refused);
        dialogs.answers.push_back(QStringLiteral("oui"));
        EXPECT_EQ(openingOf(second, dialogs), Opening::readOnly);
        ASSERT_EQ(dialogs.shown.size(), 2);
        EXPECT_TRUE(dialogs.shown[0].startsWith(QStringLiteral("Circuidex est déjà ouvert sur ce dossier.")));
    }
    first.reset();
    EXPECT_EQ(openingOf(FolderLock(folder.path()), dialogs), Opening::alone);
}

TEST(TwoPrograms, TheOneThatReadsOnlySeesTheOthersWorkAndSaysSo)
{
    const TemporaryFolder folder;
    fs::copy(CIRCUIDEX_SAMPLE, folder.path());
    Driver writer(folder.path(), Numbers()), reader(folder.path(), Numbers());
    reader.program().store().setReadOnly();
    answer(writer, "start");
    answer(reader, "start");
    answer(reader, "settle");
    EXPECT_EQ(answer(reader, "get Form1.nonconservees"), "Lecture seule : les modifications ne sont pas conservées.");
    answer(writer, "write f12005.ini [gp] nogp=7");
    EXPECT_EQ(answer(reader, "read f12005.ini [gp] nogp"), "7");
    const std::string before = content(folder / "f12005.ini");
    answer(reader, "write f12005.ini [gp] nogp=8");
    answer(reader, "press Form1.Label36");
    answer(reader, "press Form1.Command5");
    EXPECT_EQ(content(folder / "f12005.ini"), before);
    EXPECT_EQ(answer(writer, "read f12005.ini [gp] nogp"), "7");
}

}
