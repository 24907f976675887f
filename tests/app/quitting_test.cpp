// SPDX-License-Identifier: GPL-3.0-or-later
// The program as a whole: its end, its rest between two actions, its pages.
#include "platform/qt_platform.h"
#include "shell/driven_program.h"

#include <QApplication>
#include <QEventLoop>
#include <QTimer>

#include <cstdio>
#include <set>

using namespace circuidex;
using namespace circuidex::test;

namespace {

class WholeProgram : public DrivenProgram {
protected:
    WholeProgram() : DrivenProgram({"f12003.ini", "f12005.ini", "f1ARCHIVES.ini", "Année"}) { }
};

// Under a closing program nothing opens, though some screens lead on to another when they are closed.
TEST_F(WholeProgram, ClosesWithWhateverScreenIsOpen)
{
    const ScreenRows rows = driver->program().screens().rows();
    const auto screens = [this]() -> Screens & { return driver->program().screens(); };
    for (const ScreenRow &row : rows) {
        SCOPED_TRACE(row.name.toStdString());
        say("start");
        screens().open(row.name);
        QStringList openedLate;
        screens().close(QStringLiteral("Form1"));
        for (QWidget *window : QApplication::topLevelWidgets())
            if (const auto *screen = qobject_cast<Screen *>(window); screen && screen->isVisible())
                openedLate << screen->name();
        EXPECT_EQ(openedLate.join(u' ').toStdString(), "Form47");
        EXPECT_EQ(say("windows"), "Form47");
    }
    say("start");
    for (const ScreenRow &row : rows)
        if (row.name != u"Form47")
            screens().open(row.name);
    screens().close(QStringLiteral("Form1"));
    EXPECT_EQ(say("windows"), "Form47") << "all at once";
    EXPECT_EQ(say("messages"), "");
}

// What the program's own event loop does at rest, the driver does after each command.
TEST_F(WholeProgram, SettlesWhenItsEventLoopComesToRest)
{
    Program &program = driver->program();
    program.settleAtRest();
    std::filesystem::remove(folder / "f12005.ini");
    std::filesystem::create_directory(folder / "f12005.ini"); // nothing can be written there
    program.store().EcrireINI("2005", "gp", "nogp", "3");
    const Screen &main = screen("Form1");
    EXPECT_EQ(main.text(QStringLiteral("nonconservees")), u"");
    QEventLoop loop;
    QTimer::singleShot(1, &loop, &QEventLoop::quit);
    loop.exec();
    EXPECT_NE(main.text(QStringLiteral("nonconservees")), u"");
}

// A screen's page lies across when it is wider than high.
TEST_F(WholeProgram, PrintsAcrossWhatIsWide)
{
    std::set<bool> seen;
    for (const ScreenRow &row : driver->program().screens().rows()) {
        Screen *shown = driver->program().screens().open(row.name);
        const bool wide = shown && shown->width() > shown->height();
        if (!shown || !seen.insert(wide).second)
            continue;
        ASSERT_TRUE(printScreen(*shown, QString::fromStdString((folder / "page.pdf").string())));
        const std::string page = content(folder / "page.pdf");
        EXPECT_GT(page.size(), 5000u);
        double width = 0, height = 0;
        ASSERT_EQ(std::sscanf(page.c_str() + page.find("/MediaBox ["), "/MediaBox [0 0 %lf %lf]", &width, &height), 2);
        EXPECT_EQ(width > height, wide) << row.name.toStdString();
    }
    EXPECT_EQ(seen.size(), 2u);
}

}
