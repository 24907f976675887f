// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/chart_screen.h"

#include "results/main_record.h"
#include "shell/look.h"
#include "standings/tone.h"

#include <QBoxLayout>
#include <QGuiApplication>

namespace circuidex {

using namespace charts;

namespace {

constexpr double scaleEdge = 600, captionEdge = 1080; // twips left of the paper, for what names the heights
constexpr double gap = 80, leader = 220; // of these, from such a caption to the paper
constexpr double margin = 150; // twips around the rest
constexpr double nameRoom = 1800; // twips right of the paper, for the names of the lines
constexpr double overshoot = 100; // a line may pass the upper edge of the paper by so much
constexpr double averageCaption = 400; // above a paper that may show an average
constexpr double maskWidth = 15000;

// The cells of a team's drivers, by series.
const std::array<QString, seriesCount> driverCells{u"Label4"_s, u"Label6"_s, u"Label8"_s, u"Label9"_s};

QString counted(const QString &number, double value, const QString &what)
{
    return number + u' ' + what + (std::abs(value) < 2 ? u""_s : u"s"_s);
}

}

ChartScreen::ChartScreen(Context &theContext, const QString &name, const QString &title, const ChartControls &controls)
    : PaperScreen(theContext, name, title, controls.instance.paper), m_chart(controls.instance), m_controls(controls)
{
    if (masked())
        shape(u"stopgraph"_s).geometryNow = [this] { return mask(); };
    if (const auto zero = controls.instance.zeroLine)
        registerLine(u"Line100"_s, {}, look::quiet, [this, zero] {
            return TwipLine{paper().left, *zero, paper().right(), *zero, 1};
        });
    registerLines();
    if (controls.instance.average != AverageOf::nothing)
        registerAverage();
    view()->onEnter = [this] { draw(); };
    view()->describe = [this](int series, int point) {
        return series < seriesCount && point > 0
            ? raceName(series, point - 1) + u" – "_s + subjectName(series) + u" : "_s + valueText(series, point - 1)
            : QString();
    };
}

QColor ChartScreen::colour(int series) const
{
    return QColor::fromRgb(seriesColours[static_cast<std::size_t>(series)]);
}

// Of seasons side by side, with the year.
QString ChartScreen::raceName(int series, int slot) const
{
    const Season its = m_chart.seasonOf(series, season());
    const QString name = qt(its.namegp(slot));
    const QString known = name.isEmpty() ? u"GP%1"_s.arg(slot + 1) : name;
    return m_chart.instance().ofSeasons() ? known + u' ' + qt(its.stem()) : known;
}

QString ChartScreen::seriesName(int series) const
{
    return m_chart.name(series) == clickHere ? QString() : qt(m_chart.name(series));
}

QString ChartScreen::subjectName(int series) const
{
    return qt(m_chart.name(series));
}

// Of the race and, where they are added up, so far.
QString ChartScreen::valueText(int series, int slot) const
{
    const Rule rule = m_chart.instance().rule;
    if (rule == Rule::gain || rule == Rule::cumulatedGain)
        return gainText(series, slot);
    const Numbers &numbers = context.store.numbers();
    const double value = numbers.value(m_chart.cell(series, slot)).value_or(0);
    const double shown = rule == Rule::level ? value : m_chart.sumTo(series, slot, numbers);
    const QString points = counted(qt(numbers.text(shown)), shown, u"point"_s);
    return rule == Rule::level ? points : points + u" (+%1)"_s.arg(qt(numbers.text(value)));
}

QString ChartScreen::gainText(int series, int slot) const
{
    const Numbers &numbers = context.store.numbers();
    const auto gain = numbers.value(m_chart.cell(series, slot));
    const auto places = [&](double value) {
        return counted(qt(standings::signedText(value, "0", numbers)), value, u"place"_s);
    };
    if (m_chart.instance().rule == Rule::gain)
        return !gain ? u"pas de progression"_s : *gain == 0 ? u"place gardée"_s : places(*gain);
    QString text = places(m_chart.sumTo(series, slot, numbers)) + u" au total"_s;
    if (gain)
        text += u" (%1)"_s.arg(qt(standings::signedText(*gain, "=", numbers)));
    else if (m_chart.restartsAt(series, slot))
        text += u" (sans place sur la grille)"_s;
    return text;
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
    auto *made = command(qt(m_controls.markers[static_cast<std::size_t>(series)]), u"=> "_s, [this, series] {
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

QLayout *ChartScreen::driversPanel(int series, const QString &caption)
{
    const bool onDark = series % 2 == 0;
    auto *names = new QVBoxLayout;
    names->setSpacing(0);
    for (int car = 0; car < int(m_chart.drivers(series).size()); ++car) {
        const QString &cell = driverCells[std::size_t(series)];
        auto *name = add(cell, new Label, car);
        name->setFixedHeight(17);
        name->setMargin(1);
        name->setIndent(5);
        name->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        control(cell, car)->setBack(look::pairBars[series]);
        control(cell, car)->setFore(onDark ? look::onBar : QColor(Qt::black));
        names->addWidget(name);
    }
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    row->addWidget(styled(caption, "hint"), 0, Qt::AlignTop);
    row->addLayout(names, 1);
    return row;
}

void ChartScreen::showDrivers()
{
    for (int s = 0; s < seriesCount && m_chart.instance().showsDrivers; ++s)
        for (int car = 0; const std::string &driver : m_chart.drivers(s))
            setText(driverCells[std::size_t(s)], qt(driver), car++);
}

Button *ChartScreen::drawButton(const QString &caption)
{
    auto *made = button(u"Command1"_s, caption, [this] { draw(); });
    made->makeMain();
    return made;
}

QHBoxLayout *ChartScreen::settingsRow(bool prints)
{
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    if (prints)
        row->addWidget(printCommand(u"Label7"_s));
    row->addLayout(thicknessRow());
    row->addSpacing(12);
    if (m_chart.instance().scaled())
        row->addLayout(scaleRow());
    row->addStretch(1);
    return row;
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
    showDrivers();
    showChart();
}

void ChartScreen::showChart()
{
    const Paper &p = paper();
    ChartPicture picture;
    const double top = p.top - (m_chart.instance().average == AverageOf::nothing ? margin : averageCaption);
    const double edge = m_chart.instance().scaled() ? scaleEdge : captionEdge;
    picture.region = {-edge, top, edge + p.width() + nameRoom, p.gridFrom + 30 - top};
    picture.paper = {0, p.top - overshoot, p.width(), p.bottom - p.top + overshoot};
    picture.title = pictureTitle();
    addSeries(picture);
    addAverage(picture);
    addPaper(picture);
    addScale(picture);
    addEdgeCaptions(picture);
    view()->setPicture(std::move(picture));
}

// What the lines show: of a race, or added up so far.
table_text::Grid ChartScreen::figures() const
{
    QStringList names;
    std::vector<int> chosen;
    for (int s = 0; s < seriesCount; ++s)
        if (!seriesName(s).isEmpty()) {
            names << seriesName(s);
            chosen.push_back(s);
        }
    return figuresOf(m_chart.instance().ofSeasons() ? Races::numbered : Races::named, names,
                     [this, &chosen](int subject, int slot) { return figure(chosen[std::size_t(subject)], slot); });
}

QString ChartScreen::figure(int series, int slot) const
{
    const bool drawn = vertex(slot + 1) <= (masked() ? control(u"stopgraph"_s)->geometry().left : outside);
    const bool run = drawn && !m_chart.seasonOf(series, season()).namegp(slot).empty();
    const Numbers &numbers = context.store.numbers();
    const Rule rule = m_chart.instance().rule;
    if (!run)
        return {};
    return rule == Rule::level || rule == Rule::gain ? qt(m_chart.cell(series, slot))
                                                     : qt(numbers.text(m_chart.sumTo(series, slot, numbers)));
}

// The series as their controls tell them, as far as the mask, which stands just behind a Grand Prix.
void ChartScreen::addSeries(ChartPicture &picture) const
{
    const double end = masked() ? control(u"stopgraph"_s)->geometry().left : outside;
    for (int s = 0; s < seriesCount; ++s) {
        ChartStroke stroke;
        for (int k = 0; k < segments; ++k) {
            const Control *piece = control(u"Line%1"_s.arg(s + 1), k);
            const TwipLine line = *piece->line();
            if (k == 0)
                stroke = {{{line.x1, line.y1}}, *piece->fore(), line.width, highlighted(s), seriesName(s)};
            if (line.x2 <= end)
                stroke.points.push_back({line.x2, line.y2});
        }
        picture.legend.push_back({stroke.colour, stroke.name});
        picture.lines.push_back(std::move(stroke));
    }
    if (masked())
        picture.masks.push_back({control(u"stopgraph"_s)->geometry(), look::card});
}

// Alone thicker than the others.
bool ChartScreen::highlighted(int series) const
{
    return m_chart.lineWidth(series) > m_chart.lineWidth((series + 1) % seriesCount);
}

void ChartScreen::addAverage(ChartPicture &picture) const
{
    if (!m_chart.averageShown())
        return;
    for (int i = 0; i < segments; ++i) {
        const Control *piece = averagePiece(i);
        if (const TwipLine line = *piece->line(); line.x2 <= m_chart.mask())
            picture.lines.push_back({{{line.x1, line.y1}, {line.x2, line.y2}}, *piece->fore(), line.width, true, {}});
    }
    const double left = paper().width() - 1500, y = paper().top - averageCaption + axisCaptionHeight / 2;
    picture.leaders.push_back(stroke({left - 350, y, left - 90, y, 1}, Qt::black));
    picture.texts.push_back({{left, y - axisCaptionHeight / 2, 1500, axisCaptionHeight},
                             u"Moyenne mobile"_s,
                             Qt::AlignLeft | Qt::AlignVCenter});
}

// What a height means, where that depends on the scale or the axis has round figures; over all levels that of zero.
void ChartScreen::addScale(ChartPicture &picture) const
{
    const Numbers &numbers = context.store.numbers();
    for (const Tick &tick : m_chart.ticks(numbers)) {
        addLevel(picture, tick.y);
        addHeight(picture, qt(numbers.text(tick.value)) + qt(m_chart.instance().axis), tick.y, gap);
    }
    if (const Control *zero = control(u"Line100"_s))
        picture.grid.push_back(stroke(*zero->line(), *zero->fore()));
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
