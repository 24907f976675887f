// SPDX-License-Identifier: GPL-3.0-or-later
// Bars as they are painted, clicked and walked on.
#include "shell/chart_view.h"
#include "shell/driven_program.h"

#include <QTest>

using namespace circuidex;

namespace {

struct PaintedBar {
    const char *form, *control;
    int index;
    qsizetype view; // the first shows the finish, the second the grid
    TwipRect region; // of the view
    double shift; // of the strip
};

const PaintedBar bars[] = {
    {"Form51", "GrapH2", 0, 0, {600, 1800, 9435, 1920}, 0},  {"Form77", "graph", 5, 1, {600, 4440, 9435, 6240}, 0},
    {"Form91", "Label1", 1, 0, {0, 1790, 10380, 4450}, 0},   {"Form92", "Label5", 0, 1, {0, -250, 10380, 4450}, 120},
    {"Form90", "Label6", 2, 1, {0, -250, 10380, 4450}, 120},
};

class BarDisplayTest : public test::DrivenProgram {
protected:
    BarDisplayTest() : DrivenProgram({"f12003.ini", "f12004.ini", "f12005.ini", "Année"}) { }

    ChartView *view(const PaintedBar &bar) { return screen(bar.form).findChildren<ChartView *>().at(bar.view); }
    Control *control(const PaintedBar &bar) { return screen(bar.form).control(QLatin1String(bar.control), bar.index); }

    // Where a bar's share of its extent lies, in pixels of its view.
    QPoint pixel(const PaintedBar &bar, double across, double down)
    {
        const TwipRect place = control(bar)->geometry();
        const QSize size = view(bar)->size();
        return {
            int((place.left + bar.shift + across * place.width - bar.region.left) * size.width() / bar.region.width),
            int((place.top + down * place.height - bar.region.top) * size.height() / bar.region.height)};
    }
};

TEST_F(BarDisplayTest, IsPaintedAsItsControlsSay)
{
    for (const PaintedBar &bar : bars) {
        open(bar.form);
        const QImage image = view(bar)->grab().toImage();
        const QColor colour = *control(bar)->back();
        EXPECT_EQ(image.pixelColor(pixel(bar, .7, .5)), colour) << bar.form;
        EXPECT_EQ(image.pixelColor(pixel(bar, .5, .85)), colour) << bar.form;
        EXPECT_EQ(image.pixelColor(pixel(bar, .6, .2)), colour) << bar.form;
        const bool level = bar.form[4] == '5' || bar.form[4] == '7';
        EXPECT_NE(image.pixelColor(level ? pixel(bar, 1.03, .5) : pixel(bar, .7, -.05)), colour) << bar.form;
    }
}

TEST_F(BarDisplayTest, LeadsOnByMouseAndKeyboard)
{
    open("Form77");
    QTest::mouseClick(view(bars[1]), Qt::LeftButton, {}, pixel(bars[1], .5, .5));
    EXPECT_EQ(say("get Form75.Text2") + say("get Form75.Text3") + say("get Form75.Text4"), "520032005");
    open("Form92");
    ChartView *grid = view(bars[3]);
    for (int i = 0; i < 19; ++i)
        QTest::keyClick(grid, Qt::Key_Right);
    EXPECT_EQ(grid->accessibleDescription().toStdString(), "19ème sur la grille : 2 fois");
    EXPECT_LT(screen("Form92").control(QStringLiteral("Frame1"))->geometry().left, -1000) << "it came into view";
    QTest::keyClick(grid, Qt::Key_Return);
    EXPECT_EQ(say("get Form75.Text2") + say("get Form75.Text3") + say("get Form75.Text4"), "1920052005");
}

// Up climbs from line to line by their heights; Enter brings the line to the fore, and so does a click on its name.
TEST_F(BarDisplayTest, TwentySixLinesAreWalkedAndChosen)
{
    say("set Form1.an 2003");
    auto *chart = open("Form72").findChild<ChartView *>();
    QTest::keyClick(chart, Qt::Key_Right);
    EXPECT_EQ(chart->accessibleDescription().toStdString(), "Australie – Michael Schumacher : 4ème (5 pts)");
    QTest::keyClick(chart, Qt::Key_Up);
    EXPECT_EQ(chart->accessibleDescription().toStdString(), "Australie – Kimi Räikkönen : 3ème (6 pts)");
    QTest::keyClick(chart, Qt::Key_Return);
    const auto width = [&](const char *line) { return say(std::string("line Form72.") + line).back(); };
    EXPECT_EQ(width("Line8(0)"), '3');
    const TwipRect name = screen("Form72").control(QStringLiteral("Label6"), 1)->geometry();
    QTest::mouseClick(chart, Qt::LeftButton, {},
                      QPoint(int((name.left + 600 + 90) * chart->width() / 14730),
                             int((name.top + 120 - 370) * chart->height() / 9710)));
    EXPECT_EQ(width("Line1(19)"), '3');
}

}
