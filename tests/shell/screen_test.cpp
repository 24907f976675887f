// SPDX-License-Identifier: GPL-3.0-or-later
// What the mouse and the keyboard do to a window: drag, close, shortcuts, copying from a table, and the wait pointer.
#include "shell/driven_program.h"
#include "shell/title_bar.h"

#include <QApplication>
#include <QClipboard>
#include <QTest>

using namespace circuidex;

namespace {

class ScreenTest : public test::DrivenProgram {
protected:
    ScreenTest() : DrivenProgram({"f12005.ini", "f12004.ini", "Année"}) { }
};

TEST_F(ScreenTest, FollowsTheMouseByItsBar)
{
    say("open Form30");
    Screen &scale = screen("Form30");
    auto *bar = scale.findChild<TitleBar *>();
    scale.move(100, 80);
    const QPoint held(60, 12);
    QTest::mousePress(bar, Qt::LeftButton, {}, held);
    const QPointF to = QPointF(held) + QPointF(-140, 35); // past the left edge of the display
    QMouseEvent move(QEvent::MouseMove, to, bar->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(bar, &move);
    QTest::mouseRelease(bar, Qt::LeftButton, {}, held);
    EXPECT_EQ(scale.pos(), QPoint(-40, 115));
    QMouseEvent later(QEvent::MouseMove, to, bar->mapToGlobal(to + QPointF(50, 50)), Qt::NoButton, Qt::NoButton,
                      Qt::NoModifier);
    QApplication::sendEvent(bar, &later);
    EXPECT_EQ(scale.pos(), QPoint(-40, 115)) << "let go";
}

TEST_F(ScreenTest, ClosesWhenItsButtonIsReleasedOnIt)
{
    say("open Form30");
    auto *bar = screen("Form30").findChild<TitleBar *>();
    const QPoint cross(bar->width() - 16, 14);
    QTest::mousePress(bar, Qt::LeftButton, {}, cross);
    QTest::mouseRelease(bar, Qt::LeftButton, {}, QPoint(40, 14));
    EXPECT_EQ(say("isopen Form30"), "yes") << "released beside it";
    QTest::mouseClick(bar, Qt::LeftButton, {}, cross);
    EXPECT_EQ(say("isopen Form30"), "no");
}

TEST_F(ScreenTest, StaysOnTop)
{
    say("open Form30");
    EXPECT_TRUE(screen("Form30").windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_FALSE(screen("Form1").windowFlags().testFlag(Qt::WindowStaysOnTopHint));
}

// With the focus in the largest text field, which would take some of the keys for itself.
TEST_F(ScreenTest, TakesTheMainScreensShortcutsOutOfItsFields)
{
    Screen &main = screen("Form1");
    auto *remark = static_cast<WidgetControl *>(main.control(u"Text41"_s))->widget();
    struct Case {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        const char *look, *shows;
    };
    const Case cases[] = {
        {Qt::Key_PageUp, Qt::NoModifier, "get Form1.gp", "Brésil"},
        {Qt::Key_PageDown, Qt::NoModifier, "get Form1.gp", "Japon"},
        {Qt::Key_PageUp, Qt::ControlModifier, "get Form1.an", "2004"},
        {Qt::Key_PageDown, Qt::ControlModifier, "get Form1.an", "2005"},
        {Qt::Key_N, Qt::ControlModifier, "get Form1.gp", "Chine"},
        {Qt::Key_Left, Qt::NoModifier, "get Form1.gp", "Chine"}, // moves the text cursor only
        {Qt::Key_G, Qt::ControlModifier, "isopen Form48", "yes"},
        {Qt::Key_P, Qt::ControlModifier, "calls", "print Form1"},
        {Qt::Key_E, Qt::ControlModifier, "isopen Form49", "yes"},
    };
    for (const Case &step : cases) {
        main.activateWindow();
        QApplication::processEvents();
        QTest::keyClick(remark, step.key, step.modifiers);
        EXPECT_EQ(say(step.look), step.shows) << "key " << step.key;
    }
}

TEST_F(ScreenTest, TakesANameStillBeingTypedBeforeItAmends)
{
    Screen &main = screen("Form1");
    auto *winner = static_cast<QLineEdit *>(static_cast<WidgetControl *>(main.control(u"Text31"_s))->widget());
    const auto typeAndStore = [&](const char *name) {
        main.activateWindow();
        QApplication::processEvents(); // the window becomes the active one
        winner->setFocus();
        winner->selectAll();
        QTest::keyClicks(winner, QString::fromLatin1(name));
        say("press Form1.Label43");
    };
    typeAndStore("schumacher"); // there are two
    EXPECT_EQ(say("read f12005.ini [podium] podium1Japon"), "9");
    EXPECT_EQ(winner->text(), u"Kimi Räikkönen"_s);
    EXPECT_TRUE(winner->property("refused").toBool());
    typeAndStore("alonso");
    EXPECT_EQ(say("read f12005.ini [podium] podium1Japon"), "5");
    EXPECT_FALSE(winner->property("refused").toBool());
}

TEST_F(ScreenTest, ShowsWhatLeadsToNoScreenYet)
{
    for (const auto &[opener, screen] : {std::pair("Label17", "Form93"), {"Label20", "Form96"}, {"Command2", "Form3"}}) {
        const bool there = driver->program().screens().exists(QString::fromLatin1(screen));
        const Control *control = this->screen("Form1").control(QString::fromLatin1(opener));
        EXPECT_EQ(control->enabled(), there) << opener;
        EXPECT_EQ(control->tip() == notYet, !there) << opener;
        EXPECT_EQ(say(std::string("press Form1.") + opener), "ok");
        EXPECT_EQ(say(std::string("isopen ") + screen) == "yes", there);
    }
}

TEST_F(ScreenTest, LeadsTabAsItReads)
{
    struct Case {
        const char *screen;
        std::vector<const char *> stops; // from the one that has the focus on opening
    };
    const Case cases[] = {{"Form2", {"Text1", "age", "Text6", "Label18", "Text8", "Label15", "Text2"}},
                          {"Form4", {"Command7", "Command6", "gp", "Command2", "Command13", "Text9", "Command14"}},
                          {"Form34", {"Text3", "Text4", "Text3"}},
                          {"Form39", {"Text40", "Text1", "Command1"}}};
    for (const Case &c : cases) {
        Screen &shown = open(c.screen);
        QApplication::processEvents(); // the window becomes the active one
        for (const char *stop : c.stops) {
            ASSERT_TRUE(shown.focusWidget()) << c.screen;
            EXPECT_EQ(shown.focusWidget()->objectName().toStdString(), stop) << c.screen;
            QTest::keyClick(shown.focusWidget(), Qt::Key_Tab);
        }
    }
}

TEST_F(ScreenTest, LetsATableBeCopied)
{
    say("open Form4");
    for (Table *table : screen("Form4").tables()) {
        if (!table->cell(u"Label16", 0))
            continue;
        table->selectRow(0);
        table->selectionModel()->select(table->model().index(1, 1), QItemSelectionModel::Select);
        QTest::keyClick(table, Qt::Key_C, Qt::ControlModifier);
    }
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "\tPilote\tPoints\n1\tFernando Alonso\t123\n\tKimi Räikkönen\t\n");
}

TEST_F(ScreenTest, ShowsTheWaitPointerOnlyWhileItWorks)
{
    {
        const Waiting once(screen("Form1"));
        const Waiting twice(screen("Form1"));
        EXPECT_EQ(say("pointer Form1"), "wait");
    }
    EXPECT_EQ(say("pointer Form1"), "normal");
}

TEST_F(ScreenTest, TakesDoubleClicksOfTheMouse)
{
    const auto doubleClick = [](QWidget *widget, const QPoint &at) { // all four events of it
        QTest::mouseClick(widget, Qt::LeftButton, {}, at);
        QTest::mouseDClick(widget, Qt::LeftButton, {}, at);
        QTest::mouseRelease(widget, Qt::LeftButton, {}, at);
    };
    const auto twice = [&](const char *form, const char *name) {
        auto *widget = screen(form).findChild<QWidget *>(QLatin1String(name));
        doubleClick(widget, widget->rect().center());
    };
    twice("Form1", "Text31");
    EXPECT_EQ(say("get Form26.Label2"), "1") << "a box";
    say("answer /nowhere/a.jpg");
    twice("Form1", "Image1");
    EXPECT_EQ(say("get Form1.Labell"), "/nowhere/a.jpg") << "a picture";
    EXPECT_EQ(say("get Form1.Timerlap"), "0") << "no single click is left to be answered";
    say("answer /nowhere/a.avi");
    say("answer /nowhere/b.avi");
    twice("Form1", "Label52");
    EXPECT_EQ(say("get Form1.a"), "/nowhere/b.avi") << "a label, which its first click gave a film";

    say("open Form32");
    say("press Form32.Command2");
    say("press Form32.graph(2)");
    say("settle");
    Table &races = *screen("Form33").tables().front();
    const QPoint race = races.visualRect(races.model().index(1, 1)).center();
    QTest::mouseClick(races.viewport(), Qt::LeftButton, {}, race);
    EXPECT_EQ(say("isopen Form4"), "yes") << "a cell";
    doubleClick(races.viewport(), race);
    EXPECT_EQ(say("isopen Form4"), "no");
}

class Twice : public Screen {
public:
    explicit Twice(Context &theContext) : Screen(theContext, QStringLiteral("Form0"), {})
    {
        hidden(QStringLiteral("Text1"), {}, {}, 3);
        hidden(QStringLiteral("Text1"), {}, {}, 4);
        hidden(QStringLiteral("Text1"), {}, {}, 3);
    }
};

using ScreenDeathTest = ScreenTest;

TEST_F(ScreenDeathTest, RefusesASecondControlOfOneName)
{
    EXPECT_DEATH(Twice(driver->program().context()), "");
}

TEST_F(ScreenTest, KeepsARemarkToOneLine)
{
    auto *remark = screen("Form1").findChild<QPlainTextEdit *>();
    remark->clear();
    QTest::keyClicks(remark, QStringLiteral("Pluie"));
    QTest::keyClick(remark, Qt::Key_Return);
    QTest::keyClicks(remark, QStringLiteral("au 12e tour"));
    EXPECT_EQ(say("get Form1.Text41"), "Pluie au 12e tour");
    QApplication::clipboard()->setText(QStringLiteral(" puis\nle soleil"));
    remark->paste();
    EXPECT_EQ(remark->toPlainText().count(u'\n'), 0);
}

}
