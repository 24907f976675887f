// Where windows come up: where they were left, beside what they were opened from, whole on the display; and a second
// start that brings up the first.
#include "shell/window_place.h"

#include "platform/qt_first_program.h"
#include "shell/driven_program.h"

#include <QApplication>
#include <QElapsedTimer>

#include <atomic>
#include <thread>

using namespace circuidex;

namespace {

TEST(WindowPlace, IsReadAsItWasWritten)
{
    const KeptPlace kept{{-40, 12, 640, 480}, true};
    EXPECT_EQ(keptPlace(asText(kept)), kept);
    for (const char *broken : {"", "1 2 3", "1 2 3 x", "0 0 0 10", "0 0 10 -1", "0 0 999999999999 5", "0 0 9 9 full"})
        EXPECT_EQ(keptPlace(QString::fromLatin1(broken)), std::nullopt) << broken;
}

TEST(WindowPlace, IsBesideItsOpenerAndWholeOnTheDisplay)
{
    const QRect display(0, 30, 1920, 1050);
    struct Case {
        const char *name;
        QSize window;
        QRect opener, group;
        QList<QPoint> taken;
        QPoint at;
    };
    const Case cases[] = {
        {"at its right", {400, 300}, {0, 30, 1400, 900}, {}, {}, {1400, 30}},
        {"no room there", {400, 300}, {1000, 100, 900, 900}, {}, {}, {600, 100}},
        {"over a display full of it, beside the buttons", {560, 700}, display, {1600, 400, 300, 200}, {}, {1040, 380}},
        {"a corner that is taken", {400, 300}, {0, 30, 1400, 900}, {}, {{1400, 30}, {1430, 60}}, {1460, 90}},
        {"larger than the display", {3000, 2000}, {0, 30, 1400, 900}, {}, {}, {0, 30}},
    };
    for (const Case &c : cases)
        EXPECT_EQ(besideOpener(c.window, c.opener, c.group, display, c.taken), c.at) << c.name;
}

class PlacedWindows : public test::DrivenProgram {
protected:
    PlacedWindows() : DrivenProgram({"f12005.ini", "Année"}) { driver->platform().room = {0, 0, 1920, 1080}; }
    QRect reopened(const char *name)
    {
        driver->program().screens().close(QString::fromLatin1(name));
        const Screen &again = open(name);
        return {again.pos(), again.size()};
    }
};

TEST_F(PlacedWindows, ComeBackWhereTheyWereLeft)
{
    Screen &list = open("Form32");
    list.move(300, 200);
    list.resize(1000, 760);
    EXPECT_EQ(reopened("Form32"), QRect(300, 200, 1000, 760));
    driver->platform().room = {0, 0, 1024, 738};
    const QRect small = reopened("Form32");
    EXPECT_TRUE(QRect(0, 0, 1024, 738).contains(small)) << "by now the display is a smaller one";
    driver->platform().kept["fenetres/Form32"] = "10 10 20 20";
    Screen &least = open("Form32");
    EXPECT_TRUE(reopened("Form32").size() == least.minimumSize()) << "no smaller than its content";
}

// The places that a screen gives itself are nobody's memory.
TEST_F(PlacedWindows, KeepToTheirOwnRules)
{
    for (const char *name : {"Form59", "Form57"}) {
        Screen &own = open(name);
        const QRect first(own.pos(), own.size());
        own.move(700, 300);
        EXPECT_EQ(reopened(name), first) << name;
    }
    open("Form6");
    EXPECT_EQ(reopened("Form6").topLeft(), QPoint(0, 0)) << "nobody moved it";
    EXPECT_TRUE(driver->platform().kept.empty());
}

TEST_F(PlacedWindows, OpenBesideTheScreenInFront)
{
    driver->platform().arranges = true;
    const Screen &profile = open("Form3"), &sheet = screen("Form14");
    const QRect both = QRect(profile.pos(), profile.size()) | QRect(sheet.pos(), sheet.size());
    EXPECT_TRUE(QRect(0, 0, 1920, 1080).contains(both));
    EXPECT_EQ(sheet.x(), profile.x() + profile.width());
    QApplication::processEvents(); // the profile becomes the window in front
    const Screen &scale = open("Form30");
    EXPECT_FALSE(QRect(scale.pos(), scale.size()).intersects({profile.pos(), profile.size()}));
}

TEST_F(PlacedWindows, SayWhereNothingIsKept)
{
    driver->program().screens().closeAllBut({});
    driver->program().store().setReadOnly();
    say("start");
    EXPECT_TRUE(screen("Form1").title().endsWith(QStringLiteral("(lecture seule)")));
}

TEST(FirstProgram, ComesToTheFrontForASecondStart)
{
    const test::TemporaryFolder folder, other;
    int raised = 0;
    const FirstProgram first(folder.path(), [&raised] { ++raised; });
    const auto secondStart = [](const std::filesystem::path &on) {
        std::atomic<int> answered = -1;
        std::thread second([&answered, &on] { answered = raiseFirstProgram(on, 5000); });
        QElapsedTimer clock;
        for (clock.start(); answered < 0 && !clock.hasExpired(10000);)
            QApplication::processEvents(QEventLoop::AllEvents, 20);
        second.join();
        return answered == 1;
    };
    EXPECT_EQ(secondStart(folder.path()), true);
    EXPECT_EQ(raised, 1);
    EXPECT_EQ(secondStart(other.path()), false) << "nobody has that one open";
}

}
