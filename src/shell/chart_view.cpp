// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/chart_view.h"

#include "shell/look.h"
#include "shell/text.h"

#include <QBuffer>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEngine>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <QToolTip>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace circuidex {

namespace {

constexpr int captionPixels = 11, headPixels = 56; // captions' font, title and legend of a picture
constexpr int pictureScale = 2;
constexpr double reach = 28; // pixels from the pointer to what it points at
constexpr double nameGap = 14, nameApart = 13; // pixels from a line to its name, and from name to name

// From twips to where they are painted. What lies absurdly far off stays within what painters can count.
class Scaling {
public:
    Scaling(const TwipRect &region, const QRectF &target)
        : m_region(region), m_target(target), m_x(region.width > 0 ? target.width() / region.width : 0),
          m_y(region.height > 0 ? target.height() / region.height : 0)
    {
    }
    QPointF operator()(const ChartPoint &p) const
    {
        return {m_target.left() + far((p.x - m_region.left) * m_x), m_target.top() + far((p.y - m_region.top) * m_y)};
    }
    QRectF operator()(const TwipRect &r) const
    {
        return {(*this)(ChartPoint{r.left, r.top}), (*this)(ChartPoint{r.left + r.width, r.top + r.height})};
    }

private:
    static double far(double pixels) { return std::clamp(pixels, -30000.0, 30000.0); }

    TwipRect m_region;
    QRectF m_target;
    double m_x, m_y;
};

QPolygonF path(const ChartStroke &stroke, const Scaling &scaled)
{
    QPolygonF points;
    for (const ChartPoint &point : stroke.points)
        points << scaled(point);
    return points;
}

// The part of a segment inside a frame, as the shares of its length where it enters and leaves; absent when it is
// outside.
std::optional<std::pair<double, double>> insideShare(const QLineF &segment, const QRectF &frame)
{
    double enters = 0, leaves = 1;
    const auto cut = [&](double at, double step, double low, double high) {
        if (step == 0)
            return at >= low && at <= high;
        const double a = (low - at) / step, b = (high - at) / step;
        enters = std::max(enters, std::min(a, b));
        leaves = std::min(leaves, std::max(a, b));
        return enters <= leaves;
    };
    if (!cut(segment.x1(), segment.dx(), frame.left(), frame.right()) ||
        !cut(segment.y1(), segment.dy(), frame.top(), frame.bottom()))
        return std::nullopt;
    return std::pair(enters, leaves);
}

// What of a path lies inside a frame. Done here, because files of lines know no clipping.
std::vector<QPolygonF> cutOff(const QPolygonF &path, const QRectF &frame)
{
    std::vector<QPolygonF> parts;
    bool goesOn = false;
    for (qsizetype i = 1; i < path.size(); ++i) {
        const QLineF segment(path.at(i - 1), path.at(i));
        const auto share = insideShare(segment, frame);
        if (share && !goesOn)
            parts.push_back({segment.pointAt(share->first)});
        if (share)
            parts.back() << segment.pointAt(share->second);
        goesOn = share && share->second == 1;
    }
    return parts;
}

QPen pen(const ChartStroke &stroke)
{
    // Smoothed edges make a line look thinner than it is.
    return {look::drawn(stroke.colour), stroke.width + .5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

// A steep line is painted several times faster piece by piece, its pen's round ends meeting; a file of lines keeps it
// in one.
void drawInPieces(QPainter &painter, const QPolygonF &line)
{
    if (painter.paintEngine()->type() == QPaintEngine::SVG)
        return painter.drawPolyline(line);
    for (qsizetype i = 1; i < line.size(); ++i)
        painter.drawLine(line.at(i - 1), line.at(i));
}

// Of upright and level lines, each in a single row of pixels.
QPolygonF inWholePixels(QPolygonF path)
{
    for (QPointF &point : path)
        point = {std::floor(point.x()) + .5, std::floor(point.y()) + .5};
    return path;
}

bool inside(const TwipRect &r, const ChartPoint &p)
{
    return p.x >= r.left && p.x <= r.left + r.width && p.y >= r.top && p.y <= r.top + r.height;
}

// Of the end of a line: an arrow where it lies above or below the paper.
QString endName(const QString &name, double y, const QRectF &paper)
{
    return (y < paper.top() ? u"↑ "_s : y > paper.bottom() ? u"↓ "_s : QString()) + name;
}

// The names of the lines, level with their ends or, where these lie close together, as near to them as there is room.
void paintNames(QPainter &painter, const std::vector<ChartStroke> &lines, const Scaling &scaled, const QRectF &paper,
                double right)
{
    std::vector<const ChartStroke *> named;
    std::vector<double> heights;
    for (const ChartStroke &line : lines)
        if (!line.name.isEmpty() && line.points.size() > 1) {
            named.push_back(&line);
            heights.push_back(std::clamp(scaled(line.points.back()).y(), paper.top(), paper.bottom()));
        }
    const std::vector<double> places = spread(heights, nameApart, paper.top(), paper.bottom());
    for (std::size_t i = 0; i < named.size(); ++i) {
        const QPointF end(scaled(named[i]->points.back()).x() + 2, heights[i]);
        const QRectF box(end.x() + nameGap, places[i] - nameApart / 2, right - end.x() - nameGap, nameApart);
        painter.setPen(QPen(look::drawn(named[i]->colour), 1));
        painter.drawLine(end, QPointF(box.left() - 2, places[i]));
        painter.setPen(look::written(look::ink));
        const QString name = endName(named[i]->name, scaled(named[i]->points.back()).y(), paper);
        const QString shown = painter.fontMetrics().elidedText(name, Qt::ElideRight, int(box.width()));
        painter.drawText(box, int(Qt::AlignLeft | Qt::AlignVCenter) | Qt::TextDontClip, shown);
    }
}

QFont pixelFont(const QFont &font, int pixels, bool bold = false)
{
    QFont sized(font);
    sized.setPixelSize(pixels);
    sized.setBold(bold);
    return sized;
}

void paintLegend(QPainter &painter, const std::vector<ChartLegend> &legend, QPointF at, double right)
{
    const double each = legend.empty() ? 0 : (right - at.x()) / double(legend.size());
    for (const ChartLegend &entry : legend) {
        painter.fillRect(QRectF(at.x(), at.y() + 3, 18, 4), look::drawn(entry.colour));
        painter.setPen(look::written(look::ink));
        const QString shown = painter.fontMetrics().elidedText(entry.text, Qt::ElideRight, int(each - 36));
        painter.drawText(QRectF(at.x() + 24, at.y() - 5, each - 28, 20), Qt::AlignLeft | Qt::AlignVCenter, shown);
        at.rx() += each;
    }
}

}

// Heights less the distances between them need only stay in their order: of neighbours out of order each gets the mean.
std::vector<double> spread(const std::vector<double> &wanted, double apart, double first, double last)
{
    struct Block {
        double sum;
        std::size_t count;
        double mean() const { return sum / double(count); }
    };
    std::vector<std::size_t> order(wanted.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](auto a, auto b) { return wanted[a] < wanted[b]; });
    std::vector<Block> blocks;
    for (std::size_t i = 0; i < order.size(); ++i) {
        Block block{wanted[order[i]] - double(i) * apart, 1};
        for (; !blocks.empty() && blocks.back().mean() > block.mean(); blocks.pop_back())
            block = {block.sum + blocks.back().sum, block.count + blocks.back().count};
        blocks.push_back(block);
    }
    const double highest = std::max(first, last - apart * (double(wanted.size()) - 1));
    std::vector<double> places(wanted.size());
    for (std::size_t i = 0; const Block &block : blocks)
        for (const std::size_t end = i + block.count; i < end; ++i)
            places[order[i]] = std::clamp(block.mean(), first, highest) + double(i) * apart;
    return places;
}

ChartView::ChartView(QWidget *parent) : QWidget(parent)
{
    setMouseTracking(true);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setFont(pixelFont(font(), captionPixels));
}

void ChartView::setPicture(ChartPicture picture)
{
    m_picture = std::move(picture);
    setAccessibleName(m_picture.title);
    point(std::nullopt);
    if (m_reached && *m_reached >= int(m_picture.targets.size()))
        m_reached.reset();
    update();
}

void ChartView::paint(QPainter &painter, const QRectF &target) const
{
    const Scaling scaled(m_picture.region, target);
    const QRectF paper = scaled(m_picture.paper).adjusted(-1, -1, 1, 1);
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (const ChartStroke &rule : m_picture.grid) {
        painter.setPen(QPen(look::ruled(rule.colour), rule.width));
        for (const QPolygonF &part : cutOff(inWholePixels(path(rule, scaled)), paper))
            painter.drawPolyline(part);
    }
    painter.setRenderHint(QPainter::Antialiasing);
    for (const auto *blocks : {&m_picture.masks, &m_picture.bars})
        for (const ChartBlock &block : *blocks)
            painter.fillRect(scaled(block.place) & paper, look::shown(block.colour));
    for (const bool onTop : {false, true})
        for (const ChartStroke &line : m_picture.lines) {
            if (line.onTop != onTop)
                continue;
            painter.setPen(pen(line));
            for (const QPolygonF &part : cutOff(path(line, scaled), paper))
                drawInPieces(painter, part);
        }
    for (const ChartStroke &leader : m_picture.leaders) {
        painter.setPen(pen(leader));
        painter.drawPolyline(path(leader, scaled));
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (const ChartStroke &axis : m_picture.axes) {
        painter.setPen(QPen(look::drawn(axis.colour), axis.width));
        painter.drawPolyline(inWholePixels(path(axis, scaled)));
    }
    painter.setFont(font());
    painter.setRenderHint(QPainter::Antialiasing);
    paintNames(painter, m_picture.lines, scaled, scaled(m_picture.paper), target.right());
    for (const ChartText &text : m_picture.texts) {
        painter.setPen(look::written(text.colour.isValid() ? text.colour : look::quiet));
        painter.drawText(scaled(text.place), int(text.align) | Qt::TextDontClip, text.text);
    }
}

// The title names season and subjects, so that it may be long.
QFont ChartView::fitting(const QString &titled, double room) const
{
    int pixels = 14;
    while (pixels > 9 && QFontMetricsF(pixelFont(font(), pixels, true)).horizontalAdvance(titled) > room)
        --pixels;
    return pixelFont(font(), pixels, true);
}

void ChartView::paintPage(QPainter &painter, const QSizeF &page) const
{
    const look::OnPaper paper;
    painter.fillRect(QRectF(QPointF(), page), look::card);
    painter.setFont(fitting(m_picture.title, page.width() - 24));
    painter.setPen(look::written(look::ink));
    painter.drawText(QRectF(12, 6, page.width() - 24, 22), Qt::AlignLeft | Qt::AlignVCenter, m_picture.title);
    painter.setFont(pixelFont(font(), 12));
    paintLegend(painter, m_picture.legend, {12, 38}, page.width() - 12);
    paint(painter, QRectF(0, headPixels, page.width(), page.height() - headPixels));
}

// The dot at the point, and beside it what it means.
void ChartView::paintPointed(QPainter &painter) const
{
    const ChartStroke &line = m_picture.lines[std::size_t(m_pointed->line)];
    const QPointF at = Scaling(m_picture.region, rect())(line.points[std::size_t(m_pointed->point)]);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(look::shown(look::card), 1.5));
    painter.setBrush(look::drawn(line.colour));
    painter.drawEllipse(at, 5, 5);
    paintBubble(painter, at, m_pointedText);
}

void ChartView::paintReached(QPainter &painter) const
{
    const ChartTarget &target = m_picture.targets[std::size_t(*m_reached)];
    const QRectF place = Scaling(m_picture.region, rect())(target.place);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(look::written(look::ink), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(place.adjusted(-1, -1, 1, 1), 3, 3);
    paintBubble(painter, {place.center().x(), place.center().y()}, target.says);
}

// Always inside the widget.
void ChartView::paintBubble(QPainter &painter, const QPointF &at, const QString &text) const
{
    painter.setFont(pixelFont(font(), 12));
    const QSizeF size = painter.fontMetrics().size(0, text) + QSize(16, 8);
    const double left = at.x() + 10 + size.width() < width() ? at.x() + 10 : at.x() - 10 - size.width();
    const QRectF box(
        QPointF(std::max(left, 1.0), std::clamp(at.y() - 14 - size.height(), 1.0, height() - size.height() - 1)), size);
    painter.setPen(QPen(look::shown(look::line), 1));
    painter.setBrush(look::shown(look::bubble));
    painter.drawRoundedRect(box, 4, 4);
    painter.setPen(look::written(look::ink));
    painter.drawText(box, Qt::AlignCenter, text);
}

void ChartView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    paint(painter, rect());
    if (m_pointed)
        paintPointed(painter);
    else if (m_reached && hasFocus())
        paintReached(painter);
}

QSize ChartView::pageSize() const
{
    return {std::max(width(), 320), std::max(height(), 200) + headPixels};
}

QImage ChartView::image() const
{
    QImage image(pageSize() * pictureScale, QImage::Format_RGB32);
    image.setDevicePixelRatio(pictureScale);
    QPainter painter(&image);
    paintPage(painter, pageSize());
    return image;
}

QByteArray ChartView::png() const
{
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    image().save(&bytes, "PNG");
    return bytes.data();
}

QByteArray ChartView::svg() const
{
    QBuffer bytes;
    QSvgGenerator generator;
    generator.setOutputDevice(&bytes);
    generator.setSize(pageSize());
    generator.setViewBox(QRect(QPoint(), pageSize()));
    generator.setTitle(m_picture.title);
    QPainter painter(&generator);
    paintPage(painter, pageSize());
    painter.end();
    return bytes.data();
}

QByteArray ChartView::pdf() const
{
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    QPdfWriter writer(&bytes);
    writer.setTitle(m_picture.title);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageOrientation(QPageLayout::Landscape);
    writer.setPageMargins({10, 10, 10, 10}, QPageLayout::Millimeter);
    QPainter painter(&writer);
    const double scale =
        std::min(double(writer.width()) / pageSize().width(), double(writer.height()) / pageSize().height());
    painter.scale(scale, scale);
    paintPage(painter, pageSize());
    painter.end();
    return bytes.data();
}

bool ChartView::seen(const Spot &spot) const
{
    const ChartPoint &point = m_picture.lines[std::size_t(spot.line)].points[std::size_t(spot.point)];
    return inside(m_picture.paper, point) && describe && !describe(spot.line, spot.point).isEmpty();
}

// The nearest in sight; of lines that meet there, the uppermost.
std::optional<ChartView::Spot> ChartView::nearest(const QPointF &pointer) const
{
    const Scaling scaled(m_picture.region, rect());
    std::optional<Spot> found;
    double distance = reach * reach;
    for (int line = 0; line < int(m_picture.lines.size()); ++line) {
        const auto &points = m_picture.lines[std::size_t(line)].points;
        for (int point = 0; point < int(points.size()); ++point) {
            const QPointF away = scaled(points[std::size_t(point)]) - pointer;
            const double squared = QPointF::dotProduct(away, away);
            if (squared <= distance && seen({line, point})) {
                distance = squared;
                found = Spot{line, point};
            }
        }
    }
    return found;
}

void ChartView::point(std::optional<Spot> spot)
{
    if (spot == m_pointed)
        return;
    m_pointed = spot;
    m_pointedText = spot ? describe(spot->line, spot->point) : QString();
    setAccessibleDescription(m_pointedText);
    update();
}

// The first in sight of the first line that has one.
std::optional<ChartView::Spot> ChartView::first() const
{
    for (int line = 0; line < int(m_picture.lines.size()); ++line)
        for (int point = 0; point < int(m_picture.lines[std::size_t(line)].points.size()); ++point)
            if (seen({line, point}))
                return Spot{line, point};
    return std::nullopt;
}

// Along a line to the next Grand Prix, or to the next line at the same one.
std::optional<ChartView::Spot> ChartView::stepped(int key) const
{
    const int by = key == Qt::Key_Left || key == Qt::Key_Up ? -1 : 1;
    if (!m_pointed)
        return first();
    if (key == Qt::Key_Up || key == Qt::Key_Down)
        return beside(by);
    const int points = int(m_picture.lines[std::size_t(m_pointed->line)].points.size());
    for (Spot spot{m_pointed->line, m_pointed->point + by}; spot.point >= 0 && spot.point < points; spot.point += by)
        if (seen(spot))
            return spot;
    return m_pointed;
}

// The point of the line next above (-1) or below; lines that meet there lie in their own order.
std::optional<ChartView::Spot> ChartView::beside(int by) const
{
    const auto height = [this](const Spot &spot) {
        return std::pair(m_picture.lines[std::size_t(spot.line)].points[std::size_t(spot.point)].y, spot.line);
    };
    Spot best = *m_pointed;
    for (Spot spot{0, m_pointed->point}; spot.line < int(m_picture.lines.size()); ++spot.line) {
        if (spot.point >= int(m_picture.lines[std::size_t(spot.line)].points.size()) || !seen(spot))
            continue;
        const bool beyond = by < 0 ? height(spot) < height(*m_pointed) : height(spot) > height(*m_pointed);
        const bool nearer = best == *m_pointed || (by < 0 ? height(spot) > height(best) : height(spot) < height(best));
        if (beyond && nearer)
            best = spot;
    }
    return best;
}

const ChartTarget *ChartView::targetAt(const QPointF &pointer) const
{
    const Scaling scaled(m_picture.region, rect());
    const auto found = std::find_if(m_picture.targets.begin(), m_picture.targets.end(),
                                    [&](const ChartTarget &target) { return scaled(target.place).contains(pointer); });
    return found == m_picture.targets.end() ? nullptr : &*found;
}

void ChartView::reachTarget(std::optional<int> target)
{
    m_reached = target;
    setAccessibleDescription(target ? m_picture.targets[std::size_t(*target)].says : QString());
    update();
    if (const auto handler = onReach; handler && target)
        handler(*target);
}

// From target to target; false when the key doesn't walk, or there is nothing to walk on.
bool ChartView::walk(int key)
{
    const int last = int(m_picture.targets.size()) - 1, now = m_reached.value_or(-1);
    const bool back = key == Qt::Key_Left || key == Qt::Key_Up, on = key == Qt::Key_Right || key == Qt::Key_Down;
    if (last < 0 || !m_picture.lines.empty() || !(back || on || key == Qt::Key_Home || key == Qt::Key_End))
        return false;
    reachTarget(key == Qt::Key_Home ? 0 : key == Qt::Key_End ? last : std::clamp(now + (back ? -1 : 1), 0, last));
    return true;
}

// What a click or Enter at a point does; the point stays pointed at.
void ChartView::follow(int line)
{
    const auto spot = m_pointed;
    if (const auto handler = onLine)
        handler(line);
    if (spot && spot->line < int(m_picture.lines.size()))
        point(spot);
}

bool ChartView::enter()
{
    if (m_reached) {
        if (const auto press = m_picture.targets[std::size_t(*m_reached)].press)
            press();
        return true;
    }
    if (m_pointed && onLine) {
        follow(m_pointed->line);
        return true;
    }
    if (onEnter)
        onEnter();
    return bool(onEnter);
}

void ChartView::mouseMoveEvent(QMouseEvent *event)
{
    const ChartTarget *target = targetAt(event->position());
    point(target ? std::nullopt : nearest(event->position()));
    if ((target && target->press) || (m_pointed && onLine))
        setCursor(Qt::PointingHandCursor);
    else
        unsetCursor();
}

void ChartView::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return QWidget::mouseReleaseEvent(event);
    if (const ChartTarget *target = targetAt(event->position())) {
        if (const auto press = target->press)
            press();
    } else if (m_pointed && onLine) {
        follow(m_pointed->line);
    }
}

void ChartView::leaveEvent(QEvent *)
{
    point(std::nullopt);
}

void ChartView::focusInEvent(QFocusEvent *event)
{
    const bool byKey = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    if (byKey && m_picture.lines.empty() && !m_picture.targets.empty())
        reachTarget(m_reached.value_or(0));
    QWidget::focusInEvent(event);
}

void ChartView::focusOutEvent(QFocusEvent *event)
{
    point(std::nullopt);
    QWidget::focusOutEvent(event);
}

void ChartView::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    if (walk(key))
        return;
    if (key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down)
        point(stepped(key));
    else if ((key != Qt::Key_Return && key != Qt::Key_Enter) || !enter())
        QWidget::keyPressEvent(event);
}

bool ChartView::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    const Scaling scaled(m_picture.region, rect());
    if (const ChartTarget *target = targetAt(help->pos()); target && !target->tip.isEmpty()) {
        QToolTip::showText(help->globalPos(), target->tip, this);
        return true;
    }
    for (const ChartText &text : m_picture.texts)
        if (text.tip && scaled(text.place).contains(help->pos())) {
            QToolTip::showText(help->globalPos(), text.tip(), this);
            return true;
        }
    QToolTip::hideText();
    return true;
}

}
