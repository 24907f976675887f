// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Paints a chart given as plain shapes in twips, sharp at any size: lines, bars, masks, captions. The mouse and the
// arrow keys point at the ends of the lines, or at the targets of a chart of bars, and show what each means; a click or
// Enter follows a target. The same painting makes pictures for other programs, with title and legend.
#include "shell/twips.h"
#include "store/table_text.h"

#include <QColor>
#include <QImage>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

namespace circuidex {

struct ChartPoint {
    double x = 0, y = 0;
};

struct ChartStroke {
    std::vector<ChartPoint> points;
    QColor colour;
    int width = 1; // pixels
    bool onTop = false; // of lines: above all that aren't
    QString name = {}; // stands beside the end of the line
};

struct ChartBlock {
    TwipRect place;
    QColor colour;
};

struct ChartText {
    TwipRect place;
    QString text;
    Qt::Alignment align = Qt::AlignCenter;
    std::function<QString()> tip = {}; // asked when the pointer rests on it
    QColor colour = {}; // that of captions when none is given
};

// A part of the chart that answers the mouse and the keyboard.
struct ChartTarget {
    TwipRect place;
    QString tip; // when the pointer rests on it
    QString says; // when the keyboard reaches it
    std::function<void()> press = {}; // none: it only tells
};

struct ChartLegend {
    QColor colour;
    QString text;
};

struct ChartPicture {
    TwipRect region; // what the widget shows, stretched to its size
    TwipRect paper; // grid, bars and lines are cut off at its edge
    std::vector<ChartStroke> grid; // behind everything else, in whole pixels
    std::vector<ChartBlock> masks; // over the grid
    std::vector<ChartBlock> bars;
    std::vector<ChartStroke> lines; // later ones above
    std::vector<ChartStroke> axes; // in whole pixels, uncut
    std::vector<ChartStroke> leaders; // from the captions to what they name, uncut
    std::vector<ChartText> texts;
    std::vector<ChartTarget> targets; // in the order of the arrow keys
    QString title; // of a picture for other programs
    std::vector<ChartLegend> legend;
};

// Where captions stand that would lie at the wanted heights but for each other: as near to them as the distance allows,
// in their order, all from the first to the last height as far as there is room.
std::vector<double> spread(const std::vector<double> &wanted, double apart, double first, double last);

class ChartView : public QWidget {
    Q_OBJECT
public:
    explicit ChartView(QWidget *parent = nullptr);

    void setPicture(ChartPicture picture);

    std::function<void()> onEnter;
    std::function<void(int line)> onLine; // a click or Enter at the point of a line
    std::function<void(int target)> onReach; // the keyboard came to a target

    // What a point of a line means, for the bubble beside it; empty when there is nothing to point at.
    std::function<QString(int line, int point)> describe;

    // Title, legend and chart as they stand on the screen; the image has twice its pixels, the PDF file is a page in
    // A4.
    const QString &title() const { return m_picture.title; }
    QImage image() const;
    QByteArray png() const;
    QByteArray svg() const;
    QByteArray pdf() const;

    // What the chart shows in figures, for a table; none where the screen doesn't tell.
    std::function<table_text::Grid()> asGrid;

protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool event(QEvent *event) override;

private:
    struct Spot {
        int line, point;
        friend bool operator==(const Spot &, const Spot &) = default;
    };
    void paint(QPainter &painter, const QRectF &target) const;
    QFont fitting(const QString &title, double room) const; // of a picture's title, that many pixels wide at most
    void paintPage(QPainter &painter, const QSizeF &page) const;
    void paintPointed(QPainter &painter) const;
    void paintReached(QPainter &painter) const;
    void paintBubble(QPainter &painter, const QPointF &at, const QString &text) const;
    QSize pageSize() const;
    bool seen(const Spot &spot) const;
    std::optional<Spot> nearest(const QPointF &pointer) const;
    void point(std::optional<Spot> spot);
    std::optional<Spot> first() const;
    std::optional<Spot> stepped(int key) const;
    std::optional<Spot> beside(int by) const;
    const ChartTarget *targetAt(const QPointF &pointer) const;
    void reachTarget(std::optional<int> target);
    bool walk(int key);
    bool enter();
    void follow(int line);

    ChartPicture m_picture;
    std::optional<Spot> m_pointed;
    std::optional<int> m_reached; // a target, by the keyboard
    QString m_pointedText;
};

}
