// The menus as a person walks them: every label of every drop-down, side screen and of the list of windows is pressed,
// and what opened and closed is printed and compared with data/menus.txt.
#include "app/screens.h"
#include "shell/driven_program.h"
#include "kinds/menu_page.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <fstream>
#include <set>

using namespace circuidex;

namespace {

using Lines = std::vector<std::string>;

Lines expectedLines()
{
    Lines lines;
    std::ifstream file(CIRCUIDEX_TESTDATA "/menus.txt");
    for (std::string line; std::getline(file, line);)
        if (!line.starts_with("#"))
            lines.push_back(line);
    return lines;
}

// The main screen and those that some line of the file opens, menus left out.
std::set<std::string> expectedTargets()
{
    std::set<std::string> targets{"Form1"};
    for (const std::string &line : expectedLines())
        if (const auto arrow = line.find(" > "); arrow != std::string::npos) {
            const std::string opened = line.substr(arrow + 3);
            const std::string screen = opened.substr(0, opened.find(','));
            if (!menus::find(screen))
                targets.insert(screen);
        }
    return targets;
}

// Stands in for a screen that a menu opens, and notes the press of a button of it.
class StandIn : public Screen {
public:
    StandIn(Context &theContext, const QString &name, const QString &title) : Screen(theContext, name, title)
    {
        hidden(QStringLiteral("Command17"), {},
               [this] { control(QStringLiteral("Command17"))->setText(QStringLiteral("pressed")); });
        hidden(QStringLiteral("Text1"));
        hidden(QStringLiteral("Text8"), QStringLiteral("Vainqueurs en Grand-Prix"));
    }
};

Screen *makeStandIn(Context &context, const QString &name, const QString &title)
{
    return new StandIn(context, name, title);
}

// The program's menus, with stand-ins for the screens that they lead to, or without these.
std::vector<ScreenRow> menuRows(const std::set<std::string> &targets)
{
    std::vector<ScreenRow> rows;
    for (ScreenRow &row : screenRows())
        if (menus::find(row.name.toStdString()) || row.name == u"Form59")
            rows.push_back(row);
    for (const std::string &target : targets)
        rows.push_back({QString::fromStdString(target), {}, makeStandIn});
    return rows;
}

// Screens that closed are gone.
void sweep()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

class Walk {
public:
    explicit Walk(std::vector<ScreenRow> rows)
        : m_store(m_folder.path(), Numbers()), m_main(m_store, m_dialogs),
          screens(std::move(rows)), m_context{m_store, m_main, m_dialogs, m_platform, screens}
    {
        m_main.an.set("2005");
        screens.setContext(m_context);
        startAgain();
    }
    ~Walk() { sweep(); }

    void startAgain()
    {
        sweep();
        for (const QString &name : screens.openNames())
            if (name != u"Form1")
                screens.close(name);
        if (Screen *main = screens.open(QStringLiteral("Form1")))
            main->setPlace(0, 0);
    }

    // Opens a drop-down, then a side screen by its label.
    Screen *open(const QString &name, const QString &sideLabel = {})
    {
        startAgain();
        Screen *page = screens.open(name);
        if (sideLabel.isEmpty())
            return page;
        page->press(sideLabel);
        return screens.find(screens.openNames().last());
    }

    // What a press brought: the screen that opened, the button pressed on it, the main screen out of sight; "-" for
    // none. Closes what it should close, or fails.
    std::string pressed(Screen *page, const QString &label, const QStringList &closes)
    {
        const QStringList before = screens.openNames();
        page->press(label);
        const QStringList after = screens.openNames();
        QStringList opened;
        for (const QString &name : after)
            if (!before.contains(name))
                opened << name;
        for (const QString &name : before)
            EXPECT_EQ(after.contains(name), !closes.contains(name) || opened.isEmpty()) << name.toStdString();
        for (const QString &name : QStringList(opened))
            if (screens.find(name)->text(QStringLiteral("Command17")) == u"pressed")
                opened << QStringLiteral("Command17 pressed");
        const Screen *main = screens.find(QStringLiteral("Form1"));
        if (main && !main->seen())
            opened << QStringLiteral("Form1 out of sight");
        return opened.isEmpty() ? "-" : opened.join(QStringLiteral(", ")).toStdString();
    }

    // A page from heading to "Fermer", and behind an entry the side screen that it opens.
    void print(Lines &lines, const QString &name, const QString &sideLabel = {})
    {
        const std::string margin = sideLabel.isEmpty() ? "" : "    ";
        const QString self = open(name, sideLabel)->name();
        const QStringList chain = sideLabel.isEmpty() ? QStringList{self} : QStringList{name, self};
        for (int number = 1;; ++number) {
            const QString label = QStringLiteral("Label%1").arg(number);
            Screen *page = open(name, sideLabel);
            const std::string caption = page->text(label).toStdString();
            if (caption == "Fermer") {
                EXPECT_EQ(page->control(QStringLiteral("Label%1").arg(number + 1)), nullptr);
                page->press(label);
                EXPECT_EQ(screens.openNames(), (QStringList{QStringLiteral("Form1")} + chain.mid(0, chain.size() - 1)));
                return;
            }
            SCOPED_TRACE(self.toStdString() + " " + caption);
            const bool leadsOn = page->control(QStringLiteral("Fleche%1").arg(number)) != nullptr;
            const std::string target = pressed(page, label, leadsOn ? QStringList() : chain);
            if (number == 1)
                lines.push_back(margin + self.toStdString() + " " + caption);
            else
                lines.push_back(margin + "  " + (target == "-" ? "[" + caption + "]" : caption + " > " + target));
            if (number > 1 && leadsOn) {
                page = open(name);
                EXPECT_EQ(pressed(page, QStringLiteral("Fleche%1").arg(number), {}), target);
                print(lines, name, label);
            }
        }
    }

private:
    test::TemporaryFolder m_folder;
    QueuedDialogs m_dialogs;
    RecordingPlatform m_platform;
    Store m_store;
    results::MainRecord m_main;

public:
    Screens screens;

private:
    Context m_context;
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
    Walk walk(menuRows(expectedTargets()));
    Lines expected = expectedLines();
    expected.erase(std::find(expected.begin(), expected.end(), "Form59"), expected.end());
    Lines walked;
    for (const QString &name : dropDowns())
        walk.print(walked, name);
    EXPECT_EQ(walked, expected);
}

TEST(Menus, TheListOfWindowsStaysOpen)
{
    Walk walk(menuRows(expectedTargets()));
    Lines expected = expectedLines();
    expected.erase(expected.begin(), std::find(expected.begin(), expected.end(), "Form59") + 1);
    Lines walked;
    for (int number = 1; number < 200; ++number) {
        const QString label = QStringLiteral("Label%1").arg(number);
        Screen *page = walk.open(QStringLiteral("Form59"));
        if (!page->control(label) || number == 34 || number == 35) // printing and the web site
            continue;
        const std::string caption = page->text(label).toStdString();
        SCOPED_TRACE(caption);
        const auto closes = caption == "Galerie Vidéo" ? QStringList{QStringLiteral("Form59")} : QStringList();
        if (const std::string target = walk.pressed(page, label, closes); target != "-") // else a heading
            walked.push_back("  " + caption + " > " + target);
    }
    std::sort(walked.begin(), walked.end());
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(walked, expected);
}

// While a screen isn't in the program, its entries stay at rest and the menu stays as it was.
TEST(Menus, AnEntryWithoutItsScreenDoesNothing)
{
    Walk walk(menuRows({}));
    int entries = 0;
    for (const ScreenRow &row : walk.screens.rows()) {
        walk.startAgain();
        Screen *page = walk.screens.open(row.name);
        for (const QString &name : page->controlNames()) {
            const int number = name.startsWith(u"Label") ? name.mid(5).toInt() : 0;
            const bool other = page->control(QStringLiteral("Fleche%1").arg(number)) || page->text(name) == u"Fermer" ||
                (row.name == u"Form59" && number == 34) || name == u"Label2apa" || name == u"Label1apa";
            if (number == 0 || other)
                continue;
            ++entries;
            SCOPED_TRACE((row.name + u' ' + page->text(name)).toStdString());
            page->control(name)->hover();
            EXPECT_EQ(page->control(name)->back(), QColor(251, 254, 226));
            page->press(name);
            EXPECT_EQ(walk.screens.openNames(), QStringList{row.name});
        }
    }
    EXPECT_GT(entries, 150);
}

TEST(Menus, TheHeadingOfTheChartsOpensTheirHelp)
{
    Walk walk(menuRows({"Form27"}));
    Screen *charts = walk.open(QStringLiteral("Form43"));
    charts->press(QStringLiteral("Label1"));
    ASSERT_TRUE(walk.screens.isOpen(QStringLiteral("Form27")));
    EXPECT_EQ(walk.screens.find(QStringLiteral("Form27"))->text(QStringLiteral("Text1")), u"Vainqueurs en Grand-Prix");
    EXPECT_TRUE(walk.screens.isOpen(QStringLiteral("Form43")));
}

struct Heights {
    menus::Standing standing;
    double top; // of a screen of 1500 beside one of 4500 at 3000, whose entry is at 900
    QString screens;
};

const Heights heights[] = {
    {menus::Standing::nearTop, 3100, QStringLiteral("Form109 Form111 Form114 Form119 Form121 Form122")},
    {menus::Standing::levelWithEntry, 3900, QStringLiteral("Form115 Form116 Form117")},
    {menus::Standing::inTheMiddle, 4500, QStringLiteral("Form126 Form127")},
    {menus::Standing::nearBottom, 5900,
     QStringLiteral("Form95 Form110 Form112 Form113 Form118 Form120 Form123 Form124")},
};

// Each side screen as it opens, to the pixel.
TEST(Menus, SideScreensStandAtTheRightEdge)
{
    for (const Heights &height : heights) {
        const TwipRect place = menus::besideParent(height.standing, {6000, 3000, 3600, 4500}, {0, 0, 2400, 1500}, 900);
        EXPECT_EQ(place.left, 9590);
        EXPECT_EQ(place.top, height.top);
        EXPECT_EQ(place.width, 2400);
    }
    Walk walk(menuRows({}));
    int seen = 0;
    for (const QString &name : dropDowns())
        for (int number = 2; number < 9; ++number) {
            Screen *parent = walk.open(name);
            const Control *entry = parent->control(QStringLiteral("Label%1").arg(number));
            if (!entry || !parent->control(QStringLiteral("Fleche%1").arg(number)))
                continue;
            parent->press(QStringLiteral("Label%1").arg(number));
            const Screen *side = walk.screens.find(walk.screens.openNames().last());
            for (const Heights &height : heights)
                if (height.screens.split(u' ').contains(side->name())) {
                    const TwipRect own = side->place();
                    const TwipRect place =
                        menus::besideParent(height.standing, parent->place(), own, entry->geometry().top);
                    EXPECT_NEAR(own.left, place.left, twipsPerPixel) << side->name().toStdString();
                    EXPECT_NEAR(own.top, std::max(place.top, 0.0), twipsPerPixel) // never above the display
                        << side->name().toStdString();
                    ++seen;
                }
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
    MenusOfTheProgram() : DrivenProgram({"f12005.ini"}) { }
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
    Walk walk(menuRows({"Form103"}));
    const auto charts = QStringLiteral("Form43"), seasons = QStringLiteral("Form84"), side = QStringLiteral("Form110");
    Screen *first = walk.screens.open(charts);
    Screen *second = walk.screens.open(seasons);
    second->setPlace(300, 600);
    first->press(QStringLiteral("Label7"));
    EXPECT_EQ(walk.screens.find(side)->control(QStringLiteral("Fond"))->tag, u"2");
    second->press(QStringLiteral("Label7"));
    EXPECT_EQ(walk.screens.find(side)->control(QStringLiteral("Fond"))->tag, u"");
    EXPECT_NEAR(walk.screens.find(side)->place().left, 300 + second->place().width - 10, twipsPerPixel);
    walk.screens.find(side)->press(QStringLiteral("Label2"));
    EXPECT_EQ(walk.screens.openNames(), (QStringList{charts, QStringLiteral("Form103")}));
}

void type(Screen *screen, int key)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(screen->focusWidget() ? screen->focusWidget() : screen, &event);
}

TEST(Menus, CanBeWalkedByKeyboard)
{
    Walk walk(menuRows({"Form5", "Form7"}));
    Screen *menu = walk.screens.open(QStringLiteral("Form57"));
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
    Screen *side = walk.screens.find(QStringLiteral("Form111"));
    ASSERT_NE(side, nullptr);
    type(side, Qt::Key_Left);
    EXPECT_EQ(walk.screens.openNames(), QStringList{QStringLiteral("Form57")});
    type(menu, Qt::Key_Return);
    side = walk.screens.find(QStringLiteral("Form111"));
    ASSERT_NE(side, nullptr);
    type(side, Qt::Key_Down);
    EXPECT_EQ(lit(side), "3"); // "Pilote" has no screen here
    type(side, Qt::Key_Down);
    EXPECT_EQ(lit(side), "4");
    type(side, Qt::Key_Return);
    EXPECT_EQ(walk.screens.openNames(), QStringList{QStringLiteral("Form5")});
    menu = walk.open(QStringLiteral("Form57"));
    menu->press(QStringLiteral("Label3"));
    type(menu, Qt::Key_Escape);
    EXPECT_EQ(walk.screens.openNames(), QStringList());
}

}
