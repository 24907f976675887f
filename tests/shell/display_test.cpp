// SPDX-License-Identifier: GPL-3.0-or-later
// Every screen on the displays that people have: whole on them, and told to who doesn't see or has no mouse.
#include "shell/driven_program.h"
#include "shell/look.h"
#include "shell/title_bar.h"

#include <QAccessible>
#include <QApplication>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

using namespace circuidex;
using namespace circuidex::test;

namespace {

struct Display {
    const char *name, *font;
    Room room;
};

const Display displays[] = {
    {"small", "Liberation Sans", {0, 30, 1024, 738}},
    {"smallWideFont", "DejaVu Sans", {0, 0, 1024, 738}},
    {"laptop", "Liberation Sans", {60, 0, 1306, 728}},
    {"enlarged", "Liberation Sans", {0, 27, 911, 485}},
};

class OnDisplay : public testing::TestWithParam<Display> {
protected:
    OnDisplay()
    {
        QFont font = m_usual;
        font.setFamily(QString::fromLatin1(GetParam().font));
        QApplication::setFont(font);
        copySample(m_folder, {"f12003.ini", "f12004.ini", "f12005.ini", "f1ARCHIVES.ini", "Année"});
        driver.platform().room = GetParam().room;
        answer(driver, "start");
    }
    ~OnDisplay() override { QApplication::setFont(m_usual); }

private:
    const QFont m_usual = QApplication::font();
    TemporaryFolder m_folder;

protected:
    Driver driver{m_folder.path(), Numbers(',')};
};

TEST_P(OnDisplay, EveryScreenIsWholeAndSpeaks)
{
    const auto [left, top, width, height] = GetParam().room;
    Screens &screens = driver.program().screens();
    for (const ScreenRow &row : screens.rows()) {
        const std::string name = row.name.toStdString();
        SCOPED_TRACE(name);
        if (name == "Form47")
            continue; // the end of the program
        answer(driver, "open " + name);
        answer(driver, "settle");
        const Screen *screen = screens.find(row.name);
        if (!screen)
            continue; // one that closes by itself
        EXPECT_LE(screen->width(), width);
        EXPECT_LE(screen->height(), height);
        EXPECT_LE(screen->minimumHeight(), height);
        for (QWidget *widget : screen->findChildren<QWidget *>())
            if ((widget->focusPolicy() & Qt::TabFocus) && widget->isVisible()) {
                const QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(widget);
                EXPECT_FALSE(spoken->text(QAccessible::Name).isEmpty()) << widget->objectName().toStdString();
            }
        if (name != "Form1")
            answer(driver, "close " + name);
    }
}

INSTANTIATE_TEST_SUITE_P(Displays, OnDisplay, testing::ValuesIn(displays),
                         [](const auto &display) { return std::string(display.param.name); });

class DisplayTest : public DrivenProgram {
protected:
    DisplayTest() : DrivenProgram({"f12005.ini", "Année"}) { }
};

// On a display of 1024 by 768 with a panel nothing of the main screen scrolls; on a smaller one it can be reached.
TEST_F(DisplayTest, TheMainScreenScrollsOnlyWhereItMust)
{
    struct Case {
        const char *font;
        Room room;
        bool scrolls;
    };
    const QFont usual = QApplication::font();
    for (const auto &[name, room, scrolls] :
         {Case{"Liberation Sans", {0, 0, 1024, 738}, false}, Case{"DejaVu Sans", {0, 0, 1024, 738}, false},
          Case{"Liberation Sans", {0, 0, 911, 485}, true}}) {
        QFont font = usual;
        font.setFamily(QString::fromLatin1(name));
        QApplication::setFont(font);
        Driver fresh(folder.path(), Numbers(','));
        fresh.platform().room = room;
        answer(fresh, "start");
        const Screen *main = fresh.program().screens().find(u"Form1"_s);
        QApplication::processEvents();
        EXPECT_EQ(main->findChild<QScrollArea *>()->verticalScrollBar()->maximum() > 0, scrolls) << name;
        EXPECT_EQ(main->height(), room.height);
    }
    QApplication::setFont(usual);
}

TEST_F(DisplayTest, ADoubleClickOnTheTitleMaximisesWhatCanGrow)
{
    for (const auto &[name, grows] : {std::pair("Form1", true), std::pair("Form30", false)}) {
        Screen &shown = open(name);
        auto *bar = shown.findChild<TitleBar *>();
        QTest::mouseDClick(bar, Qt::LeftButton, {}, QPoint(60, 12));
        EXPECT_EQ(shown.isMaximized(), grows) << name;
        QTest::mouseDClick(bar, Qt::LeftButton, {}, QPoint(60, 12));
        EXPECT_FALSE(shown.isMaximized()) << name;
    }
}

// A command label is a button to a screen reader, which can press it.
TEST_F(DisplayTest, ScreenReadersPressCommands)
{
    auto *label = screen("Form1").findChild<QLabel *>(u"Label68"_s);
    QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(label);
    EXPECT_EQ(spoken->role(), QAccessible::Button);
    EXPECT_EQ(spoken->text(QAccessible::Name), label->text());
    spoken->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(say("isopen Form30"), "yes");
}

// Tab reaches the pictures; Enter is a click, Shift+Enter a double click.
TEST_F(DisplayTest, PicturesAnswerTheKeyboard)
{
    auto *picture = screen("Form1").findChild<QWidget *>(u"Image1"_s);
    ASSERT_TRUE(picture->focusPolicy() & Qt::TabFocus);
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(picture)->text(QAccessible::Name).contains(u"Tracé"));
    QTest::keyClick(picture, Qt::Key_Return);
    EXPECT_EQ(say("get Form1.Timerlap"), "250") << "about to enlarge it";
    QTest::keyClick(picture, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(say("get Form1.Timerlap"), "0") << "asked for another picture instead";
}

TEST(Look, TextCanBeReadOnEverySkin)
{
    for (const Skin &skin : skins) {
        EXPECT_GE(look::contrast(look::filled(skin), look::onSkin), 4.5) << skin.couleur;
        for (const auto &[at, colour] : look::bar(skin))
            EXPECT_TRUE(at < .25 || look::contrast(colour, look::onSkin) >= 4.5) << skin.couleur << at;
    }
    EXPECT_EQ(look::filled(skins[0]), look::colour(skins[0].main)) << "dark enough as it is";
    for (const QColor &ground : {look::ground, look::card, look::menu})
        EXPECT_GE(look::contrast(look::quiet, ground), 4.5);
}

// Every colour that says something keeps its hue, stays apart from the others and lets its text be read.
TEST(Look, GivenColoursKeepTheirMeaningInTheDark)
{
    const QString chosenSheet = u"Label{background-color:#C0C0FF;}"_s;
    QWidget dressed;
    look::dress(dressed, chosenSheet);
    look::appear(look::dark);
    std::vector<QColor> given{look::chosen, look::gain, look::loss, look::second, look::fourth, look::atHand};
    for (std::size_t i = 0; i < given.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_GT(look::contrast(look::shown(given[i]), look::shown(given[j])) +
                          std::abs(given[i].hslHue() - given[j].hslHue()),
                      1.2);
    for (const auto &more : {look::finishShades(), look::gridShades(), std::vector<QColor>{look::bars, look::menu}})
        given.insert(given.end(), more.begin(), more.end());
    for (const auto &more : {look::seasonBars, look::pairBars})
        given.insert(given.end(), more, more + 4);
    for (const QColor &back : given) {
        const int turned = std::abs(look::shown(back).hslHue() - back.hslHue());
        EXPECT_LE(std::min(turned, 360 - turned), 12) << back.name().toStdString();
        for (const QColor &fore : {look::ink, look::onBar, look::pointed, look::quiet})
            EXPECT_GE(look::contrast(look::over(fore, back), look::shown(back)), 4.5) << back.name().toStdString();
    }
    for (const QColor &back : {look::ground, look::card, look::stripe, look::menu})
        for (const QColor &fore : {look::ink, look::quiet, look::unpointed, look::pointed})
            EXPECT_GE(look::contrast(look::written(fore), look::shown(back)), 4.5) << back.name().toStdString();
    EXPECT_TRUE(dressed.styleSheet().contains(look::shown(look::chosen).name())) << "what was open before";
    {
        const look::OnPaper paper(true);
        EXPECT_EQ(dressed.styleSheet(), chosenSheet);
    }
    EXPECT_NE(dressed.styleSheet(), chosenSheet);
    look::appear(look::light);
    EXPECT_EQ(dressed.styleSheet(), chosenSheet);
    EXPECT_EQ(look::shown(look::gain), look::gain);
}

}
