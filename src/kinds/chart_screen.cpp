#include "kinds/chart_screen.h"

#include "results/main_record.h"
#include "shell/look.h"

#include <QBoxLayout>
#include <QGuiApplication>

namespace circuidex {

using namespace charts;

namespace {

constexpr double scaleEdge = 600, captionEdge = 960; // twips left of the paper, for what names the heights
constexpr double gap = 80, leader = 220; // of these, from such a caption to the paper
constexpr double margin = 150; // twips around the rest
constexpr double overshoot = 100; // a line may pass the upper edge of the paper by so much
constexpr double averageCaption = 400; // above a paper that may show an average
constexpr double maskWidth = 15000;

}

ChartScreen::ChartScreen(Context &theContext, const QString &name, const QString &title, const ChartControls &controls)
    : PaperScreen(theContext, name, title, controls.instance.paper), m_chart(controls.instance), m_controls(controls)
{
    shape(u"stopgraph"_s).geometryNow = [this] { return mask(); };
    registerLines();
    if (controls.instance.average != AverageOf::nothing)
        registerAverage();
    view()->onEnter = [this] { draw(); };
    view()->describe = [this](int series, int point) {
        return series < seriesCount && point > 0
            ? gpName(point - 1) + u" – "_s + meaning(series, point - 1)
            : QString();
    };
}

QColor ChartScreen::colour(int series) const
{
    return QColor::fromRgb(seriesColours[static_cast<std::size_t>(series)]);
}

void ChartScreen::registerLines()
{
    for (int s = 0; s < seriesCount; ++s)
        for (int k = 0; k < segments; ++k) {
            const QString name = u"Line%1"_s.arg(s + 1);
            registerLine(name, k, colour(s), [this, s, k] {
                const Curve &curve = m_chart.curve(s);
                return TwipLine{vertex(k), curve.at(k - 1), vertex(k + 1), curve.at(k), m_chart.lineWidth(s)};
            }).tipNow = [this, s, k] { return view()->describe(s, k + 1); };
        }
}

// The pieces from the left edge on, Line13(1) to (3) and Line10(1) to (17).
std::vector<TwipLine> ChartScreen::averageLines() const
{
    std::vector<TwipLine> lines;
    const auto add = [&lines](const Average::Piece &piece) {
        const int i = static_cast<int>(lines.size());
        lines.push_back({vertex(i), piece.y1, vertex(i + 1), piece.y2, 1});
    };
    for (const Average::Piece &piece : m_chart.average().beginning)
        add(piece);
    for (const Average::Piece &piece : m_chart.average().rest)
        add(piece);
    return lines;
}

void ChartScreen::registerAverage()
{
    for (int i = 0; i < segments; ++i) {
        const auto [name, index] = averageName(i);
        registerLine(name, index, look::average, [this, i] { return averageLines()[static_cast<std::size_t>(i)]; });
    }
}

// Of the piece that begins at vertex i.
std::pair<QString, int> ChartScreen::averageName(int i) const
{
    const int beginning = static_cast<int>(m_chart.average().beginning.size());
    return i < beginning ? std::pair(u"Line13"_s, i + 1) : std::pair(u"Line10"_s, i + 1 - beginning);
}

const Control *ChartScreen::averagePiece(int i) const
{
    const auto [name, index] = averageName(i);
    return control(name, index);
}

TwipRect ChartScreen::mask() const
{
    return {m_chart.mask(), paper().top - overshoot, maskWidth, paper().bottom - paper().top + overshoot};
}

Label *ChartScreen::marker(int series)
{
    auto *made =
        command(qt(m_controls.markers[static_cast<std::size_t>(series)]), u"=> "_s, [this, series] {
            m_chart.highlight(series, context.store.numbers());
            showChart();
        });
    made->setToolTip(qt(m_controls.markerTip));
    return made;
}

QLayout *ChartScreen::thicknessRow()
{
    const auto custom = [this] {
        m_chart.drawCustom(season());
        showChart();
    };
    auto *width = add(u"Text14"_s, new Edit);
    width->setFixedWidth(36);
    width->setAlignment(Qt::AlignCenter);
    width->setToolTip(u"Epaisseur des courbes, en pixels"_s);
    bind(width, m_chart.width);
    if (m_controls.entersWidth)
        onEnter(width, custom);
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    row->addWidget(styled(u"Epaisseur du trait:"_s, "hint"));
    row->addWidget(button(u"Command3"_s, u"Normal"_s, [this] {
        m_chart.drawNormal(season());
        showChart();
    }));
    row->addWidget(button(u"Command2"_s, qt(m_controls.custom), custom));
    row->addWidget(width);
    return row;
}

QLayout *ChartScreen::scaleRow()
{
    auto *scale = add(u"Text3"_s, new Edit);
    scale->setFixedWidth(48);
    scale->setAlignment(Qt::AlignCenter);
    scale->setToolTip(u"Plus l'échelle est grande, plus les courbes montent (Entrée pour tracer)"_s);
    bind(scale, m_chart.scale);
    onEnter(scale, [this] { draw(); });
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    row->addWidget(styled(u"Echelle:"_s, "hint"));
    row->addWidget(scale);
    return row;
}

Button *ChartScreen::drawButton()
{
    auto *made = button(u"Command1"_s, u"Traçer courbe"_s, [this] { draw(); });
    made->makeMain();
    return made;
}

void ChartScreen::begin()
{
    if (m_chart.instance().refreshesScale)
        context.main.refreshScale();
    m_chart.open(season());
    showSubjects();
    draw();
    view()->setFocus();
}

void ChartScreen::closing()
{
    takeSubjects();
    m_chart.close(season());
}

void ChartScreen::draw()
{
    std::optional<Waiting> waiting;
    if (m_controls.waits)
        waiting.emplace(*this);
    takeSubjects();
    m_chart.draw(season(), context.main.scale());
    showSubjects();
    showChart();
}

void ChartScreen::showChart()
{
    const Paper &p = paper();
    ChartPicture picture;
    const double top = p.top - (m_chart.instance().average == AverageOf::nothing ? margin : averageCaption);
    const double edge = m_chart.instance().scaled() ? scaleEdge : captionEdge;
    picture.region = {-edge, top, edge + p.width() + margin, p.gridFrom + 30 - top};
    picture.paper = {0, p.top - overshoot, p.width(), p.bottom - p.top + overshoot};
    picture.title = title();
    addSeries(picture);
    addAverage(picture);
    addPaper(picture);
    addScale(picture);
    addEdgeCaptions(picture);
    view()->setPicture(std::move(picture));
}

// The series as their controls tell them, as far as the mask, which stands just behind a Grand Prix.
void ChartScreen::addSeries(ChartPicture &picture) const
{
    const TwipRect covered = control(u"stopgraph"_s)->geometry();
    for (int s = 0; s < seriesCount; ++s) {
        ChartStroke stroke;
        for (int k = 0; k < segments; ++k) {
            const Control *piece = control(u"Line%1"_s.arg(s + 1), k);
            const TwipLine line = *piece->line();
            if (k == 0)
                stroke = {{{line.x1, line.y1}}, *piece->fore(), line.width};
            if (line.x2 <= covered.left)
                stroke.points.push_back({line.x2, line.y2});
        }
        picture.legend.push_back({stroke.colour, qt(m_chart.name(s))});
        picture.lines.push_back(std::move(stroke));
    }
    picture.masks.push_back({covered, look::card});
}

void ChartScreen::addAverage(ChartPicture &picture) const
{
    if (!m_chart.averageShown())
        return;
    for (int i = 0; i < segments; ++i) {
        const Control *piece = averagePiece(i);
        if (const TwipLine line = *piece->line(); line.x2 <= m_chart.mask())
            picture.lines.push_back(stroke(line, *piece->fore()));
    }
    const double left = paper().width() - 1500, y = paper().top - averageCaption + axisCaptionHeight / 2;
    picture.leaders.push_back(stroke({left - 350, y, left - 90, y, 1}, Qt::black));
    picture.texts.push_back({{left, y - axisCaptionHeight / 2, 1500, axisCaptionHeight},
                             u"Moyenne mobile"_s,
                             Qt::AlignLeft | Qt::AlignVCenter});
}

// What a height means, where that depends on the scale.
void ChartScreen::addScale(ChartPicture &picture) const
{
    const Numbers &numbers = context.store.numbers();
    for (const Tick &tick : m_chart.ticks(numbers)) {
        addLevel(picture, tick.y);
        addHeight(picture, qt(numbers.text(tick.value)), tick.y, gap);
    }
}

void ChartScreen::addEdgeCaptions(ChartPicture &picture) const
{
    for (const EdgeCaption &caption : edgeCaptions()) {
        const double y = m_chart.instance().level().at(caption.value), centre = caption.top + axisCaptionHeight / 2;
        addLevel(picture, y);
        picture.leaders.push_back(stroke({-leader, centre, 0, y, 1}, look::line));
        addHeight(picture, qt(caption.text), centre, leader + gap / 2);
    }
}

void ChartScreen::addHeight(ChartPicture &picture, const QString &caption, double centre, double right) const
{
    picture.texts.push_back(
        {{picture.region.left, centre - axisCaptionHeight / 2, -picture.region.left - right, axisCaptionHeight},
         caption,
         Qt::AlignRight | Qt::AlignVCenter});
}

void onEnter(Edit *edit, std::function<void()> handler)
{
    QObject::connect(edit, &QLineEdit::returnPressed, edit, [handler = std::move(handler)] {
        const auto shift = Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier;
        if (!(QGuiApplication::keyboardModifiers() & shift))
            handler();
    });
}

}
