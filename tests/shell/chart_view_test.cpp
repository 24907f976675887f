// SPDX-License-Identifier: GPL-3.0-or-later
// A chart under the mouse and the keyboard, and its pictures for other programs.
#include "shell/chart_view.h"
#include "shell/driven_program.h"

#include <QApplication>
#include <QClipboard>
#include <QPainter>
#include <QSvgRenderer>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>

using namespace circuidex;

namespace {

bool hasColour(const QImage &image, const QRect &where, const QColor &colour)
{
    for (int y = where.top(); y <= where.bottom(); ++y)
        for (int x = where.left(); x <= where.right(); ++x)
            if (image.pixelColor(x, y) == colour)
                return true;
    return false;
}

// Right of the middle and away from the legend.
QRect within(const QImage &image)
{
    return {image.width() / 2, image.height() / 3, image.width() / 2, image.height() / 3};
}

QImage drawn(const QByteArray &svg)
{
    QSvgRenderer renderer(svg);
    QImage image(renderer.viewBox().size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

// A pixel a twip, two lines of three points: one rises, the other lies; the last point of each can't be pointed at.
class ChartViewTest : public testing::Test {
protected:
    ChartViewTest()
    {
        view.describe = [](int line, int point) {
            return point == 2 ? QString() : QStringLiteral("%1 at %2").arg(line).arg(point);
        };
        view.resize(300, 200);
        view.show();
        view.setPicture(picture());
    }
    static ChartPicture picture()
    {
        ChartPicture shown;
        shown.region = shown.paper = {0, 0, 300, 200};
        shown.lines = {{{{0, 180}, {100, 100}, {200, 20}}, Qt::red, 1},
                       {{{0, 180}, {100, 180}, {200, 180}}, Qt::blue, 1}};
        shown.texts = {
            {{80, 185, 40, 15}, QStringLiteral("GP1"), Qt::AlignCenter, [] { return QStringLiteral("Monaco"); }}};
        return shown;
    }
    std::string pointAt(const QPoint &pixel)
    {
        QTest::mouseMove(&view, pixel);
        return shown();
    }
    std::string press(Qt::Key key)
    {
        QTest::keyClick(&view, key);
        return shown();
    }
    std::string shown() const { return view.accessibleDescription().toStdString(); }

    ChartView view;
};

TEST_F(ChartViewTest, TellsTheNearestPoint)
{
    EXPECT_EQ(pointAt({110, 96}), "0 at 1");
    EXPECT_EQ(pointAt({95, 170}), "1 at 1");
    EXPECT_EQ(pointAt({2, 178}), "1 at 0") << "the line on top";
    EXPECT_EQ(pointAt({200, 22}), "") << "nothing to tell";
    EXPECT_EQ(pointAt({290, 60}), "") << "too far from all";
}

TEST_F(ChartViewTest, IsWalkedByTheArrowKeys)
{
    EXPECT_EQ(press(Qt::Key_Right), "0 at 0");
    EXPECT_EQ(press(Qt::Key_Right), "0 at 1");
    EXPECT_EQ(press(Qt::Key_Right), "0 at 1") << "the last one";
    EXPECT_EQ(press(Qt::Key_Down), "1 at 1");
    EXPECT_EQ(press(Qt::Key_Down), "1 at 1");
    EXPECT_EQ(press(Qt::Key_Left), "1 at 0");
    EXPECT_EQ(press(Qt::Key_Up), "0 at 0");
    int entered = 0;
    view.onEnter = [&] { ++entered; };
    press(Qt::Key_Return);
    EXPECT_EQ(entered, 1);
}

// A line wholly out of sight is passed over.
TEST_F(ChartViewTest, IsEnteredAtTheFirstPointInSight)
{
    ChartPicture shown = picture();
    shown.lines[0].points = {{0, -10}, {100, -10}};
    view.setPicture(shown);
    EXPECT_EQ(press(Qt::Key_Left), "1 at 0");
}

TEST_F(ChartViewTest, NamesItsLinesAtTheirEnds)
{
    ChartPicture shown = picture();
    const auto inkBeside = [&](int y) {
        view.setPicture(shown);
        return hasColour(view.grab().toImage(), {210, y - 6, 60, 12}, QColor(0x1F, 0x27, 0x33));
    };
    EXPECT_FALSE(inkBeside(20));
    shown.lines[0].name = QStringLiteral("HHH");
    EXPECT_TRUE(inkBeside(20));
    EXPECT_FALSE(inkBeside(100));
    shown.lines[0].points.back().y = 100;
    EXPECT_TRUE(inkBeside(100));
}

TEST(Spread, KeepsNamesApartAndNearTheirLines)
{
    const std::vector<double> lone{50, 10, 90}, meeting{50, 53, 50, 90}, low{98, 99, 100}, tooMany{1, 2, 3};
    EXPECT_EQ(spread(lone, 10, 0, 100), lone);
    EXPECT_EQ(spread(meeting, 10, 0, 100), (std::vector<double>{41, 61, 51, 90})) << "around their mean, in order";
    EXPECT_EQ(spread(low, 10, 0, 100), (std::vector<double>{80, 90, 100}));
    EXPECT_EQ(spread(tooMany, 60, 0, 100), (std::vector<double>{0, 60, 120}));
    EXPECT_TRUE(spread({}, 10, 0, 100).empty());
}

TEST_F(ChartViewTest, PaintsTheBubbleOverTheLines)
{
    const QImage plain = view.grab().toImage();
    pointAt({100, 100});
    EXPECT_NE(view.grab().toImage(), plain);
    view.setPicture(picture());
    EXPECT_EQ(view.grab().toImage(), plain);
    EXPECT_EQ(shown(), "");
}

// A line that leaves the paper and comes back neither runs over the captions nor over the title of a picture.
TEST_F(ChartViewTest, CutsLinesAtThePaper)
{
    ChartPicture shown = picture();
    shown.paper = {0, 100, 300, 100};
    shown.lines = {{{{0, 150}, {100, 10}, {200, 150}, {250, 350}}, Qt::red, 3}};
    view.setPicture(shown);
    const QImage onScreen = view.grab().toImage(), asLines = drawn(view.svg());
    ASSERT_EQ(onScreen.size(), QSize(300, 200));
    EXPECT_FALSE(hasColour(onScreen, {0, 0, 300, 96}, Qt::red));
    EXPECT_TRUE(hasColour(onScreen, {0, 110, 60, 40}, Qt::red));
    EXPECT_TRUE(hasColour(onScreen, {150, 110, 50, 40}, Qt::red)) << "after its return";
    ASSERT_EQ(asLines.size(), QSize(320, 256));
    EXPECT_FALSE(hasColour(asLines, {0, 0, 320, 56 + 96}, Qt::red));
    EXPECT_TRUE(hasColour(asLines, {160, 56 + 110, 60, 40}, Qt::red));
}

// Lines that lead absurdly far, and a picture without extent, are painted all the same.
TEST_F(ChartViewTest, BearsAbsurdShapes)
{
    ChartPicture far = picture();
    far.lines[0].points[1].y = -1e300;
    far.lines[0].points[2].y = std::numeric_limits<double>::max();
    far.lines[1].width = 8192;
    view.setPicture(far);
    EXPECT_FALSE(view.grab().isNull());
    EXPECT_FALSE(view.svg().isEmpty());
    far.region = {};
    view.setPicture(far);
    EXPECT_FALSE(view.grab().isNull());
}

class ChartPictures : public test::DrivenProgram {
protected:
    ChartPictures() : DrivenProgram({"f12003.ini", "Année"})
    {
        say("set Form1.an 2003");
        say("open Form8");
    }
    QByteArray saved(const std::string &control, const std::string &file)
    {
        say("answer " + (folder / file).string());
        say("press Form8." + control);
        return QByteArray::fromStdString(test::content(folder / file));
    }
};

TEST_F(ChartPictures, AreCopiedAndSaved)
{
    const QImage png = QImage::fromData(saved("enregistrerpng", "a.png"), "PNG");
    EXPECT_GT(png.width(), 1500);
    EXPECT_TRUE(hasColour(png, within(png), QColor(255, 0, 0)));
    const QByteArray lines = saved("enregistrersvg", "a.svg");
    EXPECT_TRUE(lines.contains("Graphique des Points Pilote"));
    EXPECT_TRUE(lines.contains("Juan Pablo Montoya"));
    const QImage svg = drawn(lines);
    EXPECT_TRUE(hasColour(svg, within(svg), QColor(255, 0, 0)));
    say("press Form8.copierimage");
    EXPECT_EQ(QApplication::clipboard()->image().size(), png.size());
    EXPECT_EQ(say("messages"), "");
    EXPECT_TRUE(saved("enregistrerpng", "none/a.png").isEmpty());
    EXPECT_EQ(say("messages"), "Le fichier « " + (folder / "none/a.png").string() + " » n'a pas pu être enregistré.");
}

// From the highest line to the lowest, in the colours under which the lines are registered.
TEST_F(ChartPictures, PaintEachLineInItsColour)
{
    const auto registered = [&](const char *command, int series) {
        return say(command + std::string(" Form8.Line") + std::to_string(series) + "(15)");
    };
    std::map<double, int> byHeight; // hue
    for (int series = 1; series <= 4; ++series) {
        const QStringList ends = QString::fromStdString(registered("line", series)).split(u'\t');
        byHeight[ends.at(3).toDouble()] = QColor(QString::fromStdString(registered("fore", series))).hsvHue();
    }
    std::vector<int> expected, painted;
    for (const auto &[height, hue] : byHeight)
        expected.push_back(hue);
    ASSERT_EQ(expected.size(), 4u);
    const auto views = screen("Form8").findChildren<ChartView *>(); // the bars above are others
    const auto higher = [](const auto *one, const auto *other) { return one->height() < other->height(); };
    const QImage image = (*std::max_element(views.begin(), views.end(), higher))->grab().toImage();
    for (int x = image.width() - 1; x > 0 && painted.size() < expected.size(); --x) {
        painted.clear();
        for (int y = 0; y < image.height(); ++y)
            if (const QColor pixel = image.pixelColor(x, y); pixel.hsvSaturation() > 80) {
                const int hue = (pixel.hsvHue() + 30) / 60 * 60 % 360; // the four lie 60 degrees apart
                if (std::count(painted.begin(), painted.end(), hue) == 0)
                    painted.push_back(hue);
            }
    }
    EXPECT_EQ(painted, expected);
}

TEST_F(ChartPictures, OfferThemselvesInAMenu)
{
    const auto *view = open("Form45").findChild<ChartView *>();
    QStringList entries;
    for (const QAction *action : view->actions())
        entries << action->text();
    EXPECT_EQ(
        entries.join(u'|').toStdString(),
        "Copier l'image|Enregistrer en PNG…|Enregistrer en SVG…|Enregistrer en PDF…|Enregistrer les chiffres en CSV…");
    EXPECT_EQ(view->contextMenuPolicy(), Qt::ActionsContextMenu);
}

}
