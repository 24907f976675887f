// SPDX-License-Identifier: GPL-3.0-or-later
// The menus as a person walks them: every label of every drop-down, side screen and of the list of windows is pressed.
#include "app/screens.h"
#include "shell/driven_program.h"
#include "kinds/menu_page.h"

#include <gmock/gmock.h>
#include <QCoreApplication>
#include <QKeyEvent>

#include <set>

using namespace circuidex;

namespace {

std::string captionOf(const menus::Entry &entry)
{
    return std::string(entry.caption) + (entry.season ? "2005" : "");
}

// The screen has more to show than its titles: some cell of its tables, where it has any.
bool filled(const Screen &screen)
{
    const auto full = [](const Table *table) {
        const CellModel &model = table->model();
        for (int row = 0; row < model.rowCount(); ++row)
            for (int column = 0; column < model.columnCount(); ++column)
                if (!model.cell(row, column).text().isEmpty())
                    return true;
        return false;
    };
    const std::vector<Table *> tables = screen.tables();
    return tables.empty() || std::any_of(tables.begin(), tables.end(), full);
}

// Screens that closed are gone.
void sweep()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// The whole program on the sample.
class Walk {
public:
    Walk()
    {
        test::copySample(m_folder, {"f12003.ini", "f12004.ini", "f12005.ini", "f1ARCHIVES.ini", "Année"});
        m_driver.emplace(m_folder.path(), Numbers(','));
        test::answer(*m_driver, "start");
    }
    ~Walk() { sweep(); }

    void startAgain()
    {
        sweep();
        for (const QString &name : screens().openNames())
            if (name != u"Form1")
                screens().close(name);
        sweep();
        screens().find(QStringLiteral("Form1"))->setPlace(0, 0);
    }

    Screens &screens() { return m_driver->program().screens(); }
    QStringList open() // beside the main screen
    {
        QStringList names = screens().openNames();
        names.removeAll(QStringLiteral("Form1"));
        return names;
    }

    // Opens a drop-down, then a side screen by its label.
    Screen *open(const QString &name, const QString &sideLabel = {})
    {
        startAgain();
        Screen *page = screens().open(name);
        if (sideLabel.isEmpty())
            return page;
        page->press(sideLabel);
        return screens().find(open().last());
    }

    // What a press brought: its screen opened and filled, the button pressed on it, the main screen out of sight.
    void expectOpened(const menus::Entry &entry)
    {
        const bool alone =
            entry.insteadOfMain || entry.screen == "Form28"; // the journal puts the main screen away itself
        EXPECT_EQ(screens().find(QStringLiteral("Form1"))->seen(), !alone);
        if (entry.screen.empty())
            return;
        const Screen *opened = screens().find(qt(entry.screen));
        ASSERT_NE(opened, nullptr);
        EXPECT_EQ(test::answer(*m_driver, "settle"), "ok");
        if (!menus::find(entry.screen)) {
            EXPECT_TRUE(filled(*opened));
        }
    }

    // A page from heading to "Fermer", and behind an entry the side screen that it opens.
    void walk(const menus::Menu &menu, const QString &name, const QString &sideLabel = {})
    {
        int number = 1;
        for (const menus::Entry &entry : menu.entries()) {
            const QString each = QString::number(++number);
            SCOPED_TRACE(std::string(menu.name) + " " + std::string(entry.caption));
            const menus::Menu *side = menus::find(entry.screen);
            for (const char *control : {"Label", "Fleche"}) {
                const Screen *page = open(name, sideLabel);
                ASSERT_EQ(page->text(QStringLiteral("Label") + each).toStdString(), captionOf(entry));
                if (*control == 'F' && !side)
                    continue;
                page->press(QLatin1String(control) + each);
                expectOpened(entry);
                EXPECT_EQ(screens().isOpen(qt(menu.name)), side || entry.screen.empty());
                EXPECT_EQ(screens().isOpen(name), side || entry.screen.empty());
            }
            if (side)
                walk(*side, name, QStringLiteral("Label") + each);
        }
        open(name, sideLabel)->press(QStringLiteral("Label%1").arg(number + 1));
        EXPECT_FALSE(screens().isOpen(qt(menu.name)));
        EXPECT_EQ(screens().isOpen(name), !sideLabel.isEmpty());
    }

private:
    test::TemporaryFolder m_folder;
    std::optional<Driver> m_driver;
};

std::vector<QString> dropDowns()
{
    std::vector<QString> names;
    for (const menus::Menu &menu : menus::all())
        if (menu.dropDown())
            names.push_back(qt(menu.name));
    return names;
}

TEST(Menus, EveryEntryOpensItsScreenAndClosesTheMenu)
{
    Walk walk;
    for (const QString &name : dropDowns())
        walk.walk(*menus::find(name.toStdString()), name);
}

TEST(Menus, TheListOfWindowsStaysOpen)
{
    Walk walk;
    std::multiset<std::string> expected, walked;
    for (const menus::Group &group : menus::windowList())
        for (const menus::Entry &entry : group.entries())
            expected.insert(captionOf(entry) + " > " + std::string(entry.screen));
    for (const QString &label : walk.open(QStringLiteral("Form59"))->controlNames()) {
        if (!label.startsWith(u"Label") || label == u"Label34" || label == u"Label35") // printing and the web site
            continue;
        Screen *page = walk.open(QStringLiteral("Form59"));
        const std::string caption = page->text(label).toStdString();
        page->press(label);
        QStringList opened = walk.open(); // first the target, which may open another beside it
        opened.removeAll(QStringLiteral("Form59"));
        if (!opened.isEmpty()) {
            walked.insert(caption + " > " + opened[0].toStdString());
            EXPECT_TRUE(filled(*walk.screens().find(opened[0]))) << opened[0].toStdString();
        }
        EXPECT_EQ(walk.screens().isOpen(QStringLiteral("Form59")), !walk.screens().isOpen(QStringLiteral("frmmain")));
    }
    EXPECT_THAT(walked, testing::ContainerEq(expected));
}

TEST(Menus, TheHeadingOfTheChartsOpensTheirHelp)
{
    Walk walk;
    Screen *charts = walk.open(QStringLiteral("Form43"));
    charts->press(QStringLiteral("Label1"));
    ASSERT_TRUE(walk.screens().isOpen(QStringLiteral("Form27")));
    EXPECT_EQ(walk.screens().find(QStringLiteral("Form27"))->text(QStringLiteral("Text1")),
              walk.screens().find(QStringLiteral("Form27"))->text(QStringLiteral("Text8")));
    EXPECT_TRUE(walk.screens().isOpen(QStringLiteral("Form43")));
}

// Each side screen as it opens, to the pixel.
TEST(Menus, SideScreensStandAtTheRightEdge)
{
    const std::pair<menus::Standing, double> tops[] = {
        {menus::Standing::nearTop, 3100}, // of a screen of 1500 beside one of 4500 at 3000, whose entry is at 900
        {menus::Standing::levelWithEntry, 3900},
        {menus::Standing::inTheMiddle, 4500},
        {menus::Standing::nearBottom, 5900}};
    for (const auto &[standing, top] : tops) {
        const TwipRect place = menus::besideParent(standing, {6000, 3000, 3600, 4500}, {0, 0, 2400, 1500}, 900);
        EXPECT_EQ(place.left, 9590);
        EXPECT_EQ(place.top, top);
        EXPECT_EQ(place.width, 2400);
    }
    Walk walk;
    int seen = 0;
    for (const QString &name : dropDowns())
        for (int number = 2; number < 9; ++number) {
            Screen *parent = walk.open(name);
            if (!parent->control(QStringLiteral("Fleche%1").arg(number)))
                continue;
            const QString label = QStringLiteral("Label%1").arg(number);
            parent->press(label);
            const Screen *side = walk.screens().find(walk.open().last());
            const TwipRect own = side->place();
            const TwipRect place = menus::besideParent(menus::find(side->name().toStdString())->standing,
                                                       parent->place(), own, parent->control(label)->geometry().top);
            EXPECT_NEAR(own.left, place.left, twipsPerPixel) << side->name().toStdString();
            EXPECT_NEAR(own.top, std::max(place.top, 0.0), twipsPerPixel) // never above the display
                << side->name().toStdString();
            ++seen;
        }
    EXPECT_EQ(seen, 20); // one of the 19 has two drop-downs
}

TEST(Menus, DropDownsStandWholeOnTheDisplay)
{
    const TwipRect display{0, 0, 15360, 11520}, own{0, 0, 3600, 2400};
    struct Case {
        const char *name;
        TwipRect button;
        double sideWidth, left, top;
    };
    const Case cases[] = {
        {"to the left of its button", {9000, 3000, 3000, 400}, 2000, 5340, 3000},
        {"room for the side screen", {11700, 3000, 3000, 400}, 4810, 6960, 3000},
        {"no side screen", {15000, 3000, 300, 400}, 0, 11340, 3000},
        {"at the bottom", {9000, 11000, 3000, 400}, 2000, 5340, 9120},
        {"button at the left edge", {0, 3000, 3000, 400}, 2000, 0, 3000},
        {"main screen out of sight", {9000, 53000, 3000, 400}, 2000, 5340, 9120},
        {"main screen above the display", {9000, -3000, 3000, 400}, 2000, 5340, 0},
        {"side screen wider than the display", {9000, 3000, 3000, 400}, 20000, 0, 3000},
    };
    for (const Case &c : cases) {
        const TwipRect place = menus::besideButton(c.button, own, display, c.sideWidth);
        EXPECT_EQ(place.left, c.left) << c.name;
        EXPECT_EQ(place.top, c.top) << c.name;
    }
}

class MenusOfTheProgram : public test::DrivenProgram {
protected:
    MenusOfTheProgram() : DrivenProgram({"f12005.ini", "Année"}) { }
};

TEST_F(MenusOfTheProgram, StandBesideTheirButtons)
{
    const Screen &main = screen("Form1");
    for (const menus::Menu &menu : menus::all()) {
        if (!menu.dropDown())
            continue;
        SCOPED_TRACE(std::string(menu.name));
        main.press(qt(menu.button));
        const Screen *opened = driver->program().screens().find(qt(menu.name));
        ASSERT_NE(opened, nullptr);
        const TwipRect button = main.control(qt(menu.button))->geometry(), place = opened->place();
        EXPECT_NEAR(place.top, button.top, twipsPerPixel);
        EXPECT_LE(place.left + place.width, button.left);
        EXPECT_GT(place.left, 0);
    }
}

// The screen with two drop-downs stands beside the one that opened it last, and closes with it.
TEST(Menus, TheTagTellsWhichDropDownOpenedIt)
{
    Walk walk;
    const auto charts = QStringLiteral("Form43"), seasons = QStringLiteral("Form84"), side = QStringLiteral("Form110");
    Screen *first = walk.screens().open(charts);
    Screen *second = walk.screens().open(seasons);
    second->setPlace(300, 600);
    first->press(QStringLiteral("Label7"));
    EXPECT_EQ(walk.screens().find(side)->control(QStringLiteral("Fond"))->tag, u"2");
    second->press(QStringLiteral("Label7"));
    EXPECT_EQ(walk.screens().find(side)->control(QStringLiteral("Fond"))->tag, u"");
    EXPECT_NEAR(walk.screens().find(side)->place().left, 300 + second->place().width - 10, twipsPerPixel);
    walk.screens().find(side)->press(QStringLiteral("Label2"));
    EXPECT_EQ(walk.open(), (QStringList{charts, QStringLiteral("Form103")}));
}

void type(Screen *screen, int key)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(screen->focusWidget() ? screen->focusWidget() : screen, &event);
}

TEST(Menus, CanBeWalkedByKeyboard)
{
    Walk walk;
    Screen *menu = walk.screens().open(QStringLiteral("Form57"));
    const auto lit = [](const Screen *page) {
        std::string numbers;
        for (int number = 1; page->control(QStringLiteral("Label%1").arg(number)); ++number)
            if (page->control(QStringLiteral("Label%1").arg(number))->back() == QColor(192, 192, 255))
                numbers += std::to_string(number);
        return numbers;
    };
    EXPECT_EQ(lit(menu), "");
    type(menu, Qt::Key_Up); // round the end, to "Fermer"
    EXPECT_EQ(lit(menu), "5");
    type(menu, Qt::Key_Down);
    EXPECT_EQ(lit(menu), "2");
    type(menu, Qt::Key_Right);
    Screen *side = walk.screens().find(QStringLiteral("Form111"));
    ASSERT_NE(side, nullptr);
    type(side, Qt::Key_Left);
    EXPECT_EQ(walk.open(), QStringList{QStringLiteral("Form57")});
    type(menu, Qt::Key_Return);
    side = walk.screens().find(QStringLiteral("Form111"));
    ASSERT_NE(side, nullptr);
    type(side, Qt::Key_Down);
    EXPECT_EQ(lit(side), "2");
    type(side, Qt::Key_Down);
    type(side, Qt::Key_Down);
    EXPECT_EQ(lit(side), "4");
    type(side, Qt::Key_Return);
    EXPECT_EQ(walk.open(), QStringList{QStringLiteral("Form5")});
    menu = walk.open(QStringLiteral("Form57"));
    menu->press(QStringLiteral("Label3"));
    type(menu, Qt::Key_Escape);
    EXPECT_EQ(walk.open(), QStringList());
}

}
