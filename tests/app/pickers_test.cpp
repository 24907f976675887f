// SPDX-License-Identifier: GPL-3.0-or-later
// Whoever asks for a driver, a team or a Grand Prix gets what is picked in the list, by every routing word of the
// program.
#include "kinds/picker.h"
#include "shell/driven_program.h"

#include <QCoreApplication>

using namespace circuidex;

namespace {

class PickersTest : public test::DrivenProgram {
protected:
    PickersTest() : DrivenProgram({"f12003.ini", "f12004.ini", "f12005.ini", "f1ARCHIVES.ini", "Année"}) { }

    Screens &screens() { return driver->program().screens(); }

    // Opens the list and clicks on an entry of it; the name that stood there.
    QString pick(PickList kind, const QString &word, int entry)
    {
        Screen *list = openPicker(screens(), kind, word);
        const QString screen = list->name(),
                      cell = kind == PickList::teams ? QStringLiteral("Text3") : QStringLiteral("Label6");
        const QString picked = list->text(cell, entry);
        EXPECT_FALSE(picked.isEmpty());
        list->press(cell, entry);
        EXPECT_FALSE(screens().isOpen(screen)) << word.toStdString();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return picked;
    }

    void expectServed(const Route &route, int number)
    {
        const QString word = QString::fromLatin1(route.word).replace(u'#', QString::number(number));
        SCOPED_TRACE(word.toStdString() + " of " + std::string(route.screen));
        const auto to = *destination(route.list, word.toStdString(), word.toStdString());
        Screen &asking = open(std::string(route.screen).c_str());
        const QString picked = pick(route.list, word, 4);
        const ControlName &taker = to.name.name.empty() ? to.number : to.name;
        if (!asking.control(qt(taker.name), taker.index)) // the calendar has no such row
            return;
        QString expected = to.name.name.empty() ? QStringLiteral("5") : picked; // slots count from 1
        if (word == u"compapilot") // counts one race more, and names the last one counted
            expected = qt(say("read f12005.ini [gp] namegp" + std::to_string(std::stoi(say("get Form79.Text2")) - 1)));
        EXPECT_EQ(asking.text(qt(taker.name), taker.index), expected);
        if (route.screen != "Form1")
            say("close " + std::string(route.screen));
    }
};

TEST_F(PickersTest, EveryScreenThatAsksGetsWhatIsPicked)
{
    for (const Route &route : allRoutes())
        for (int number = route.first; number <= route.last; ++number)
            expectServed(route, number);
    EXPECT_EQ(say("messages"), "");
}

// A screen that was closed in the meantime isn't opened again; without a word a driver's wins are shown.
TEST_F(PickersTest, ClosedScreensStayClosed)
{
    pick(PickList::drivers, QStringLiteral("n3"), 0);
    pick(PickList::grandsPrix, QStringLiteral("a1"), 0);
    EXPECT_EQ(screens().openNames(), QStringList{QStringLiteral("Form1")});
    for (const char *word : {"", "unheard"}) {
        const QString name = pick(PickList::drivers, QString::fromLatin1(word), 4);
        EXPECT_EQ(screen("Form23").text(QStringLiteral("Text1")), name);
    }
}

// An opener may want another season; what an earlier one left on the open list is gone.
TEST_F(PickersTest, TheLastOpenerCounts)
{
    open("Form60");
    openPicker(screens(), PickList::drivers, QStringLiteral("classcarriere"));
    Screen *list = openPicker(screens(), PickList::drivers, QStringLiteral("resum"), QStringLiteral("2003"));
    EXPECT_EQ(list->text(QStringLiteral("Tag")), QString());
    list->press(QStringLiteral("Label6"), 5);
    EXPECT_EQ(say("get Form60.Text1"), say("read f12003.ini [N°] nom6"));
}

TEST_F(PickersTest, TagsAreLeftAsTags)
{
    open("Form94");
    Screen *list = openPicker(screens(), PickList::grandsPrix, QStringLiteral("courseanalyse94"));
    EXPECT_EQ(list->text(QStringLiteral("Tag")), QStringLiteral("courseanalyse94"));
    EXPECT_EQ(list->text(QStringLiteral("Label2")), QString());
}

}
