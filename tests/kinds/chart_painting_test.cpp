// SPDX-License-Identifier: GPL-3.0-or-later
// What a chart paints, held against the lines that it has registered. Where the twips lie in the picture is taken from
// the picture itself: its two axes.
#include "shell/chart_view.h"
#include "shell/driven_program.h"
#include "shell/look.h"

#include <algorithm>

using namespace circuidex;
using namespace circuidex::test;

namespace {

// The picture of a chart, by twips.
class Painted {
public:
    Painted(const QImage &image, const TwipRect &paper) : m_image(image), m_paper(paper)
    {
        for (int y = 0; y < image.height(); ++y)
            findBase(y);
        --m_left; // the upright axis stands on its first pixel
        for (m_top = m_bottom; m_top > 0 && m_image.pixelColor(m_left, m_top - 1) == look::line; --m_top)
            continue;
    }
    bool readable() const { return m_right - m_left > 500 && m_bottom - m_top > 200; }

    // Whether the colour's hue is found at a point, or within so many pixels above or below it.
    bool shows(const QColor &colour, double x, double y, int near) const
    {
        const int px = int(std::lround(m_left + (x - m_paper.left) * (m_right - m_left) / m_paper.width));
        const int py = int(std::lround(m_top + (y - m_paper.top) * (m_bottom - m_top) / m_paper.height));
        for (int dy = -near; dy <= near; ++dy)
            for (int dx = -1; dx <= 1; ++dx) {
                const QColor pixel = m_image.pixelColor(px + dx, py + dy);
                if (pixel.hsvSaturation() > 100 && std::abs(pixel.hsvHue() - colour.hsvHue()) < 12)
                    return true;
            }
        return false;
    }

private:
    // The base is the longest level run of its colour.
    void findBase(int y)
    {
        for (int x = 0; x < m_image.width(); ++x) {
            const int from = x;
            while (x < m_image.width() && m_image.pixelColor(x, y) == look::quiet)
                ++x;
            if (x - from > m_right - m_left) {
                m_left = from;
                m_right = x - 1;
                m_bottom = y;
            }
        }
    }

    QImage m_image;
    TwipRect m_paper;
    int m_left = 0, m_right = 0, m_top = 0, m_bottom = 0;
};

class ChartPainting : public DrivenProgram, public testing::WithParamInterface<const char *> {
protected:
    ChartPainting() : DrivenProgram({"f12003.ini", "f12004.ini", "f12005.ini", "Année"}) { say("set Form1.an 2005"); }

    double height(int series, int slot) const { return shown->control(name(series), slot)->line()->y2; }
    static QString name(int series) { return QStringLiteral("Line%1").arg(series); }

    // No other line comes near the end of this segment.
    bool alone(int series, int slot) const
    {
        for (int other = 1; other <= 4; ++other)
            if (other != series && std::abs(height(other, slot) - height(series, slot)) < 300)
                return false;
        return true;
    }
    Screen *shown = nullptr;
};

TEST_P(ChartPainting, PaintsEachSeriesWhereItIsRegistered)
{
    shown = &open(GetParam());
    const auto views = shown->findChildren<ChartView *>(); // the bars above are others
    const auto lower = [](const auto *one, const auto *other) { return one->height() < other->height(); };
    const QImage image = (*std::max_element(views.begin(), views.end(), lower))->grab().toImage();
    const TwipRect paper = shown->control(QStringLiteral("Label10"))->geometry();
    const Control *mask = shown->control(QStringLiteral("stopgraph"));
    const double end = mask ? mask->geometry().left : paper.width;
    const Painted painted(image, paper);
    ASSERT_TRUE(painted.readable());
    for (int series = 1; series <= 4; ++series) {
        int compared = 0;
        for (int slot = 0; slot < 18; ++slot) {
            const TwipLine line = *shown->control(name(series), slot)->line();
            if (!alone(series, slot) || line.x2 > end || line.y2 < paper.top || line.y2 > paper.top + paper.height)
                continue;
            ++compared;
            for (int other = 1; other <= 4; ++other) {
                const QColor its = *shown->control(name(other), 0)->fore();
                EXPECT_EQ(painted.shows(its, line.x2, line.y2, 2), other == series)
                    << series << " " << slot << " in the colour of " << other;
            }
        }
        EXPECT_GE(compared, 3) << series;
    }
}

INSTANTIATE_TEST_SUITE_P(Of, ChartPainting,
                         testing::Values("Form8", "Form102", "Form53", "Form106", "Form85", "Form108"),
                         [](const auto &chart) { return chart.param; });

}
