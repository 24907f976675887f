// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/display_changer.h"

#include "store/temporary_folder.h"

#include <algorithm>

#include <gtest/gtest.h>

using namespace circuidex;
using namespace circuidex::test;

namespace {

const OutputMode own = {1280, 1024, 60020}, adapted = {1024, 768, 75030}, small = {800, 600, 60320};

// What the output shows outlives the object that speaks to it.
struct FakeMachine {
    OutputMode shown = own;
    std::vector<OutputMode> offered = {own,     {1280, 1024, 75020}, small, {1024, 768, 60000},
                                       adapted, {1024, 768, 84990}};
    bool refuses = false;
};

class FakeOutput : public DisplayOutput {
public:
    explicit FakeOutput(FakeMachine &machine) : m_machine(machine) { }
    std::string name() const override { return "DP-1"; }
    OutputMode present() const override { return m_machine.shown; }
    std::vector<OutputMode> offered() const override { return m_machine.offered; }
    bool set(const OutputMode &mode) override
    {
        if (!m_machine.refuses)
            m_machine.shown = mode;
        return !m_machine.refuses;
    }

private:
    FakeMachine &m_machine;
};

class Display : public testing::Test {
protected:
    DisplayChanger program()
    {
        return DisplayChanger([this] { return std::make_unique<FakeOutput>(machine); }, state.path());
    }
    std::string note() const { return content(state / "affichage"); }

    FakeMachine machine;
    TemporaryFolder state;
};

TEST_F(Display, TheUsersSizeComesBackAtHisOwnRate)
{
    DisplayChanger display = program();
    EXPECT_TRUE(display.change(1024, 768, 75));
    EXPECT_EQ(machine.shown, adapted);
    EXPECT_EQ(note(), "affichage\tDP-1\t1280\t1024\t60020\t1024\t768\t75030\n");
    EXPECT_TRUE(display.change(1280, 1024, 75));
    EXPECT_EQ(machine.shown, own);
    EXPECT_EQ(state.names(), std::vector<std::string>());
}

TEST_F(Display, WhatIsAskedForAsItIsStaysAsItIs)
{
    EXPECT_TRUE(program().change(1280, 1024, 75));
    EXPECT_EQ(machine.shown, own);
    EXPECT_EQ(state.names(), std::vector<std::string>());
}

TEST_F(Display, ARefusalLeavesTheModeAndTheNoteAsTheyWere)
{
    DisplayChanger display = program();
    EXPECT_FALSE(display.change(1000, 700, 75));
    machine.refuses = true;
    EXPECT_FALSE(display.change(1024, 768, 75));
    EXPECT_EQ(state.names(), std::vector<std::string>());
    machine.refuses = false;
    display.changePlainly(1000, 700);
    EXPECT_EQ(machine.shown, (OutputMode{1024, 768, 60000}));
    const std::string changed = note();
    machine.refuses = true;
    EXPECT_FALSE(display.change(800, 600, 75));
    EXPECT_EQ(note(), changed);
}

TEST_F(Display, TheNextStartPutsBackWhatADeadProgramLeftChanged)
{
    program().change(1024, 768, 75);
    const std::string left = note();
    program().putBack();
    EXPECT_EQ(machine.shown, own);
    EXPECT_EQ(state.names(), std::vector<std::string>());

    layDown(state / "affichage", left);
    machine.shown = small; // which the user has taken since
    program().putBack();
    EXPECT_EQ(machine.shown, small);
    EXPECT_EQ(state.names(), std::vector<std::string>());
}

TEST_F(Display, ARunningProgramsNoteIsLeftAlone)
{
    DisplayChanger running = program();
    running.change(1024, 768, 75);
    program().putBack();
    EXPECT_EQ(machine.shown, adapted);
    EXPECT_NE(note(), "");
}

TEST_F(Display, WithoutAFolderForTheNoteTheDisplayChangesAllTheSame)
{
    layDown(state / "file", "");
    DisplayChanger display([this] { return std::make_unique<FakeOutput>(machine); }, state / "file/below");
    EXPECT_TRUE(display.change(1024, 768, 75));
    EXPECT_TRUE(display.change(1280, 1024, 75));
    EXPECT_EQ(machine.shown, own);
}

TEST_F(Display, WithoutAnOutputNothingHappens)
{
    DisplayChanger display([] { return nullptr; }, state.path());
    EXPECT_FALSE(display.change(1024, 768, 75));
    display.changePlainly(1024, 768);
    display.putBack();
    EXPECT_EQ(display.present(), std::nullopt);
    EXPECT_EQ(state.names(), std::vector<std::string>());
}

TEST(DisplayNote, OnlyAWholeLineIsRead)
{
    const std::string whole = noteText({"DP-1", own, adapted});
    EXPECT_EQ(readNote(whole), (NotedDisplay{"DP-1", own, adapted}));
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_EQ(readNote(whole.substr(0, length)), std::nullopt) << length;
    for (const char *text : {"affichage\t\t1280\t1024\t60020\t1024\t768\t75030\n", "autre\tDP-1\t1\t1\t1\t1\t1\t1\n",
                             "affichage\tDP-1\t-1280\t1024\t60020\t1024\t768\t75030\n",
                             "affichage\tDP-1\t1280\t99999999999\t60020\t1024\t768\t75030\n",
                             "affichage\tDP-1\t1280\t1024\t0\t1024\t768\t75030\n",
                             "affichage\tDP-1\t1280\t1024\t60020\t1024\t768\t75030\t1\n",
                             "affichage\tDP-1\t1280 \t1024\t60020\t1024\t768\t75030\n"})
        EXPECT_EQ(readNote(text), std::nullopt) << text;
}

}
