// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/driver_screens.h"
#include "results/race_entry.h"

#include "results/amending.h"
#include "results/season_fixture.h"

using namespace circuidex;
using namespace circuidex::test;

namespace {

TEST(LeftEntry, OfARaceIsTakenUpAgain)
{
    Desk desk;
    goToFirstFreeSlot(desk.main);
    EXPECT_FALSE(unsavedRace(desk.main));
    desk.main.gp.set("Shanghai");
    EXPECT_FALSE(unsavedRace(desk.main)); // a name alone may be meant for another race to open
    desk.main.number(2).set("6");
    desk.main.dat.set("17/10");
    leaveRace(desk.main);
    nextSeason(desk.main);
    EXPECT_FALSE(unsavedRace(desk.main));
    resumeRace(desk.main, *desk.main.left.take());
    EXPECT_EQ(desk.main.an.text() + " " + desk.main.Label40.text() + " " + desk.main.gp.text(), "2005 18 Shanghai");
    EXPECT_EQ(desk.main.name(2).text() + " " + desk.main.dat.text(), "Giancarlo Fisichella 17/10");
    EXPECT_TRUE(unsavedRace(desk.main));
    EXPECT_EQ(recordGrandPrix(desk.main), Recording::done);
    EXPECT_FALSE(unsavedRace(desk.main));
    // An amended result is stored, and what was left of that race with it.
    desk.main.number(1).set("5");
    leaveRace(desk.main);
    EXPECT_NE(desk.main.left.last(), nullptr);
    amendGrandPrix(desk.main, Amendment::byUser);
    EXPECT_EQ(desk.main.left.last(), nullptr);
    // So is one taken back: nothing is left of it.
    cancelGrandPrix(desk.main);
    EXPECT_FALSE(unsavedRace(desk.main));
}

TEST(LeftEntry, OfADriverIsNotedWhenAnotherComes)
{
    Desk desk;
    DriverProfile &profile = desk.main.profile;
    const auto open = [&](const char *number) {
        profile.nopilot.set(number);
        readProfile(desk.main);
    };
    open("5");
    EXPECT_FALSE(unsavedDriver(profile)); // the address that was begun for him is none
    profile.box("nom").set("F. Alonso");
    profile.nopilot.set("6"); // not opened
    EXPECT_TRUE(unsavedDriver(profile));
    readProfile(desk.main);
    EXPECT_FALSE(unsavedDriver(profile));
    const auto left = desk.main.left.take();
    ASSERT_TRUE(left);
    EXPECT_EQ(left->screen + " " + left->season + " " + left->subject, "Form3 2005 5");
    open(left->subject.c_str());
    resumeDriver(profile, *left);
    EXPECT_EQ(profile.box("nom").text() + " " + profile.box("ecurie").text(), "F. Alonso Renault");
    storeProfile(desk.main);
    EXPECT_FALSE(unsavedDriver(profile));
    EXPECT_EQ(desk.keys("2005").at("[N°] nom5"), "F. Alonso");
}

TEST(LeftEntry, TheLatestOfEachThingIsKeptAndNotTooMany)
{
    LeftEntries entries;
    for (const char *subject : {"1", "2", "1"})
        entries.note({"Form3", "2005", subject, {subject}});
    EXPECT_EQ(entries.take()->subject, "1");
    EXPECT_EQ(entries.take()->subject, "2");
    EXPECT_FALSE(entries.take());
    for (int i = 0; i < 100; ++i)
        entries.note({"Form48", "2005", std::to_string(i), {}});
    std::size_t count = 0;
    while (entries.take())
        ++count;
    EXPECT_EQ(count, LeftEntries::most);
}

}
